#include "models/FindingModel.h"

#include <models/FindingIndex_p.h>
#include <models/RoleNames_p.h>

#include <algorithm>

namespace KORMAK {

struct FindingModel::Private {
    OpenDocument &document;
    QVector<Finding> findings = document.GetDocument().GetFindings();
};

namespace {

QString severityText(Finding::Severity severity)
{
    return severity == Finding::Severity::Error ? QStringLiteral("Error") : QStringLiteral("Warning");
}

QString placeText(const Finding &finding)
{
    return finding.HasPlace()
        ? QStringLiteral("line %1, column %2").arg(finding.GetLine()).arg(finding.GetColumn())
        : QString();
}

QVariant shown(const Finding &finding, int column)
{
    switch (column) {
    case FindingModel::SeverityColumn:
        return severityText(finding.GetSeverity());
    case FindingModel::MessageColumn:
        return finding.GetMessage();
    case FindingModel::PlaceColumn:
        return placeText(finding);
    case FindingModel::PathColumn:
        return finding.GetPath();
    case FindingModel::RemedyColumn:
        return finding.GetSuggestion();
    default:
        return {};
    }
}

} // namespace

FindingModel::FindingModel(OpenDocument &document, QObject *parent)
    : QAbstractTableModel(parent), d(new Private{document})
{
    connect(&document, &OpenDocument::Replaced, this, [this] { reset(); });
    connect(&document, &OpenDocument::Changed, this, [this] { update(); });
}

FindingModel::~FindingModel() = default;

void FindingModel::reset()
{
    beginResetModel();
    d->findings = d->document.GetDocument().GetFindings();
    endResetModel();
}

/// Goes through the former findings and those of today side by side: what is the same stays, though it may
/// stand at another place.
void FindingModel::update()
{
    const QVector<Finding> now = d->document.GetDocument().GetFindings();
    QVector<Finding> &rows = d->findings;
    int row = 0;
    for (const Finding &finding : now) {
        const auto found = std::find_if(rows.cbegin() + row, rows.cend(), [&finding](const Finding &one) {
            return isSameFinding(one, finding);
        });
        const int at = static_cast<int>(found - rows.cbegin());
        if (found == rows.cend()) {
            beginInsertRows({}, row, row);
            rows.insert(row, finding);
            endInsertRows();
        } else {
            removeRowsBetween(row, at);
            if (rows.at(row) != finding) {
                rows[row] = finding;
                Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
            }
        }
        ++row;
    }
    removeRowsBetween(row, static_cast<int>(rows.size()));
}

void FindingModel::removeRowsBetween(int first, int end)
{
    if (first == end)
        return;
    beginRemoveRows({}, first, end - 1);
    d->findings.remove(first, end - first);
    endRemoveRows();
}

int FindingModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(d->findings.size());
}

int FindingModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : RemedyColumn + 1;
}

QVariant FindingModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const Finding &finding = d->findings.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return shown(finding, index.column());
    case Qt::ToolTipRole:
        return index.column() == MessageColumn || index.column() == PathColumn
            ? toolTipOf(shown(finding, index.column()).toString())
            : QVariant();
    case SeverityRole:
        return static_cast<qint32>(finding.GetSeverity());
    case MessageRole:
        return finding.GetMessage();
    case PathRole:
        return finding.GetPath();
    case FieldPathRole:
        return finding.GetFieldPath();
    case LineRole:
        return finding.GetLine();
    case ColumnRole:
        return finding.GetColumn();
    case IdRole:
        return finding.GetId();
    case RemedyRole:
        return finding.GetSuggestion();
    case AllowedRole:
        return finding.GetAllowed();
    case FindingRole:
        return QVariant::fromValue(finding);
    default:
        return {};
    }
}

QVariant FindingModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static constexpr QStringView Titles[] = {u"Severity", u"Message", u"Place", u"Path", u"Remedy"};
    if (role != Qt::DisplayRole)
        return {};
    return orientation == Qt::Vertical ? QVariant(section + 1) : titleAt(Titles, section);
}

QHash<int, QByteArray> FindingModel::roleNames() const
{
    return withRoleNames<FindingModel::Role>(QAbstractTableModel::roleNames());
}

} // namespace KORMAK
