#include "widgets/ValueChange_p.h"

#include <models/OpenDocument.h>
#include <models/ParameterModel.h>

namespace KORMAK::Widgets {

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

} // namespace KORMAK::Widgets
