#ifndef KORMAK_WIDGETS_BINDING_H
#define KORMAK_WIDGETS_BINDING_H

#include <widgets/widgets_export.h>

#include <QStringList>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace KORMAK {

class OpenDocument;

/// Connects controls with the parameters that they are called after.
///
/// \snippet docs/WidgetsSnippetsTest.cpp Bind
///
/// What is in \a parent and called "kormak_Gain" shows the value that the parameter Gain has in \a receiver,
/// and what people set there is changed in the document. In a name, "_" stands also for a character that
/// names of objects seldom have, as long as one parameter alone is meant.
///
/// | class | for |
/// | --- | --- |
/// | ParameterEdit | every parameter with a value |
/// | NumberEdit, FrequencyEdit | numbers |
/// | QCheckBox | booleans |
/// | QComboBox | enumerations, whose entries become its items |
/// | QSpinBox, QDoubleSpinBox | numbers of up to 32 bits or in single or double precision |
/// | QSlider | whole numbers of 32 bits with limits |
/// | QDateTimeEdit | time stamps in a unit of time, in UTC |
/// | QLineEdit | everything but booleans, enumerations and lists |
///
/// Values outside the limits are shown and marked, and decimals are not cut off. A control that cannot show a
/// value as it is, or whose parameter is disabled or gone, is disabled, and its tool tip says why. The wheel
/// changes nothing in a control that does not have the focus. A control without an accessible name and
/// without a label is called as its parameter is.
///
/// What is being typed stays when the document changes, and OpenDocument::TakeOpenEdits() takes it. What is
/// no value, or is refused, stays too and is marked; but spin boxes and QDateTimeEdit put it back when they
/// lose the focus, as they always do, and OpenDocument::Refused() tells. It also tells of what was typed for
/// a parameter that can be set no longer. Another document drops it.
///
/// Called again for \a parent, it connects anew. Both may be destroyed in any order, and by what hears of a
/// change.
/// \return what is not connected, and why, for people: "kormak_Gian: there is no parameter Gian"; empty when
/// everything is
[[nodiscard]] WIDGETS_EXPORT QStringList Bind(QWidget &parent, OpenDocument &receiver);

} // namespace KORMAK

#endif
