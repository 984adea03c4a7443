// Not installed. How controls set values.
#ifndef KORMAK_WIDGETS_VALUECHANGE_P_H
#define KORMAK_WIDGETS_VALUECHANGE_P_H

#include <QString>
#include <QVariant>

QT_BEGIN_NAMESPACE
class QAbstractItemModel;
class QModelIndex;
QT_END_NAMESPACE

namespace KORMAK {

class OpenDocument;

namespace Widgets {

/// Sets the value of the parameter at \a index of \a model, whose document is \a document. Whoever hears of
/// it may destroy any of them. \return why the document refuses it; empty when it has the value
[[nodiscard]] QString setParameterValue(QAbstractItemModel &model, const QModelIndex &index,
                                        const QVariant &wanted, OpenDocument &document);

/// What people are told of \a text, which was typed for a parameter that can be set no longer for \a reason.
[[nodiscard]] QString droppedText(const QString &text, const QString &reason);
/// Why what was typed can be set no longer.
[[nodiscard]] QString noParameter(const QString &name);
[[nodiscard]] QString disabledParameter();
[[nodiscard]] QString parameterOfOtherType();

} // namespace Widgets

} // namespace KORMAK

#endif
