#include "widgets/ValueChange_p.h"

#include <models/OpenDocument.h>
#include <models/ParameterModel.h>

#include <QCoreApplication>

namespace KORMAK::Widgets {

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("KORMAK::Binding", text);
}

} // namespace

QString setParameterValue(QAbstractItemModel &model, const QModelIndex &index, const QVariant &wanted,
                          OpenDocument &document)
{
    QString reason;
    const QObject listening;
    QObject::connect(&document, &OpenDocument::Refused, &listening,
                     [&reason](const QVector<Finding> &findings) {
                         if (reason.isEmpty() && !findings.isEmpty())
                             reason = findings.constFirst().GetMessage();
                     });
    return model.setData(index, wanted, ParameterModel::ValueRole) ? QString() : reason;
}

QString droppedText(const QString &text, const QString &reason)
{
    return translated("\"%1\" is not taken: %2").arg(text, reason);
}

QString noParameter(const QString &name)
{
    return translated("there is no parameter %1").arg(name);
}

QString disabledParameter()
{
    return translated("the parameter is disabled now");
}

QString parameterOfOtherType()
{
    return translated("the parameter has another type now");
}

} // namespace KORMAK::Widgets
