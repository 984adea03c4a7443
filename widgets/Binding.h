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
/// Values outside the limits are shown, and decimals are not cut off. A control that cannot show a value as
/// it is, or whose parameter is disabled or gone, is disabled, and its tool tip says why. What is being typed
/// stays when the document changes, and OpenDocument::TakeOpenEdits() takes it. The wheel changes nothing in
/// a control that does not have the focus.
///
/// Called again for \a parent, it connects anew. Both may be destroyed in any order.
/// \return what is not connected, and why, for people: "kormak_Gian: there is no parameter Gian"; empty when
/// everything is
[[nodiscard]] WIDGETS_EXPORT QStringList Bind(QWidget &parent, OpenDocument &receiver);

} // namespace KORMAK

#endif
