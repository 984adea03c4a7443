#include "models/ParameterModel.h"

#include <inspection/ParameterSummary.h>
#include <models/FindingIndex_p.h>
#include <models/ParameterRows_p.h>
#include <models/ParameterValue_p.h>
#include <models/RoleNames_p.h>

#include <algorithm>
#include <utility>

namespace KORMAK {

using Row = ParameterRows::Row;

namespace {

/// Where the list of \a handler has the entry at \a place of the list of \a other, which may have others or
/// another order: at the same place, or the first that bears its key. -1: nowhere.
int placeOfEntry(const EnumHandler &handler, const EnumHandler &other, int place)
{
    const auto &entries = handler.GetEnumList();
    const auto isSame = [&other, place](const EnumHandler::EnumValue &entry) {
        return entry.Key == other.GetEnumList().at(place).Key;
    };
    if (place < 0 || (place < entries.size() && isSame(entries.at(place))))
        return place;
    const auto found = std::find_if(entries.begin(), entries.end(), isSame);
    return found == entries.end() ? -1 : static_cast<int>(found - entries.begin());
}

} // namespace

struct ParameterModel::Private {
    OpenDocument &document;
    Document defaults = document.GetDocument();
    ParameterRows defaultRows = ParameterRows(defaults);
    ParameterRows rows = ParameterRows(document.GetDocument());
    FindingIndex findings = FindingIndex(document.GetDocument().GetFindings());
    QHash<QString, QString> groups = {};
    DocumentEdit::NewFindings newFindings = DocumentEdit::NewFindings::Accepted;
    mutable QHash<QString, QString> pathsInFindings = {}; ///< by path, once somebody asks for findings

    /// How findings call the parameter; empty when it is the document.
    [[nodiscard]] QString pathInFindings(int row) const
    {
        const QString path = rows.path(row);
        if (pathsInFindings.isEmpty() && !path.isEmpty()) {
            const auto nodes = document.GetDocument().GetNodes(QStringLiteral("Parameter"));
            for (const FieldNode &node : nodes)
                pathsInFindings.insert(node.GetPath(), node.GetPathInFindings());
        }
        return pathsInFindings.value(path);
    }

    [[nodiscard]] QVector<Finding> findingsOf(int row) const
    {
        return findings.isEmpty() ? QVector<Finding>() : findings.at(pathInFindings(row));
    }

    [[nodiscard]] QString prefix(int row) const
    {
        const QString path = rows.path(row);
        return path.isEmpty() ? path : path + QLatin1Char('.');
    }

    /// Whose value is the default, and that value as one of the parameter itself.
    struct Default {
        const Parameter *parameter = nullptr; ///< null: there is none
        QVariant value = {};
    };

    [[nodiscard]] Default defaultOf(const Row &row) const
    {
        const Parameter *const found = defaultRows.parameter(row.key);
        if (!found || found->GetParameterType() != row.parameter->GetParameterType())
            return {};
        const QVariant value = ParameterValue(*found).value;
        if (!row.parameter->IsEnum())
            return {found, value};
        const int place =
            placeOfEntry(row.parameter->GetEnumHandler(), found->GetEnumHandler(), value.toInt());
        return place < 0 ? Default() : Default{found, place};
    }

    [[nodiscard]] bool isChanged(const Row &row) const
    {
        const QVariant standard = defaultOf(row).value;
        if (!standard.isValid())
            return false;
        const QVariant value = ParameterValue(*row.parameter).value;
        return value.userType() == QMetaType::QVariantList ? value != standard
                                                           : Field::TextOf(value) != Field::TextOf(standard);
    }
};

namespace {

QVariantList entriesOf(const EnumHandler &handler)
{
    QVariantList entries;
    for (const EnumHandler::EnumValue &entry : handler.GetEnumList()) {
        entries += QVariantMap{{QStringLiteral("key"), entry.Key},
                               {QStringLiteral("name"), entry.Name},
                               {QStringLiteral("identifier"), entry.Identifier},
                               {QStringLiteral("value"), entry.Value}};
    }
    return entries;
}

QStringList entryNamesOf(const EnumHandler &handler)
{
    QStringList names;
    for (const EnumHandler::EnumValue &entry : handler.GetEnumList())
        names += entry.Name;
    return names;
}

QVariant shown(const Parameter &parameter, const Parameter *standard, int column)
{
    switch (column) {
    case ParameterModel::UniqueNameColumn:
        return parameter.GetUniqueParameterName();
    case ParameterModel::RepresentationNameColumn:
        return parameter.GetRepresenationName();
    case ParameterModel::DisplayNameColumn:
        return parameter.GetDisplayName();
    case ParameterModel::TypeColumn:
        return ParameterTypeToName(parameter.GetParameterType());
    case ParameterModel::ValueColumn:
        return ParameterSummary(parameter).value;
    case ParameterModel::DefaultColumn:
        return standard ? ParameterSummary(*standard).value : QString();
    case ParameterModel::MinimumColumn:
        return ParameterSummary(parameter).minimum;
    case ParameterModel::MaximumColumn:
        return ParameterSummary(parameter).maximum;
    case ParameterModel::UnitColumn:
        return parameter.GetDisplaySuffix();
    case ParameterModel::EnabledColumn:
        return parameter.IsEnabled() ? QStringLiteral("yes") : QStringLiteral("no");
    default:
        return {};
    }
}

/// What the parameter itself says.
QVariant ownData(const Parameter &parameter, int role)
{
    switch (role) {
    case ParameterModel::UniqueNameRole:
        return parameter.GetUniqueParameterName();
    case ParameterModel::RepresentationNameRole:
        return parameter.GetRepresenationName();
    case ParameterModel::NameRole:
        return ParameterSummary(parameter).name;
    case Qt::ToolTipRole:
        return toolTipOf(parameter.GetToolTip());
    case ParameterModel::ToolTipRole:
        return parameter.GetToolTip();
    case ParameterModel::EnabledRole:
        return parameter.IsEnabled();
    case ParameterModel::ParameterTypeRole:
        return static_cast<qint32>(parameter.GetParameterType());
    case ParameterModel::ValueTypeRole:
        return static_cast<qint32>(parameter.GetValueType());
    case ParameterModel::ControlTypeRole:
        return static_cast<qint32>(parameter.GetControlType());
    case ParameterModel::ValueRole:
        return ParameterValue(parameter).value;
    case ParameterModel::ShownValueRole:
        return ParameterSummary(parameter).value;
    case ParameterModel::MinimumRole:
        return ParameterValue(parameter).minimum;
    case ParameterModel::MaximumRole:
        return ParameterValue(parameter).maximum;
    case ParameterModel::DivisorRole:
        return DivisorOf(parameter);
    case ParameterModel::PrecisionRole:
        return ParameterValue(parameter).precision;
    case ParameterModel::UnitRole:
        return parameter.GetDisplaySuffix();
    case ParameterModel::MaximumLengthRole:
        return parameter.IsDoubleList() ? QVariant(parameter.GetDoubleHandler().GetMaxDoubleListLength())
                                        : QVariant();
    case ParameterModel::EntriesRole:
        return parameter.IsEnum() ? entriesOf(parameter.GetEnumHandler()) : QVariantList();
    case ParameterModel::EntryNamesRole:
        return parameter.IsEnum() ? entryNamesOf(parameter.GetEnumHandler()) : QStringList();
    case ParameterModel::SettableRole:
        return ParameterValue::isSettable(parameter);
    default:
        return {};
    }
}

} // namespace

ParameterModel::ParameterModel(OpenDocument &document, QObject *parent)
    : QAbstractTableModel(parent), d(new Private{document})
{
    connect(&document, &OpenDocument::Replaced, this, [this] { reset(); });
    connect(&document, &OpenDocument::Changed, this, [this](const QStringList &paths) { update(paths); });
}

ParameterModel::~ParameterModel() = default;

const Document &ParameterModel::GetDefaults() const noexcept
{
    return d->defaults;
}

void ParameterModel::SetDefaults(const Document &receiver)
{
    d->defaults = receiver;
    d->defaultRows = ParameterRows(receiver);
    tellAll();
}

const QHash<QString, QString> &ParameterModel::GetGroups() const noexcept
{
    return d->groups;
}

void ParameterModel::SetGroups(const QHash<QString, QString> &groups)
{
    d->groups = groups;
    tellAll();
}

DocumentEdit::NewFindings ParameterModel::GetNewFindings() const noexcept
{
    return d->newFindings;
}

void ParameterModel::SetNewFindings(DocumentEdit::NewFindings newFindings) noexcept
{
    d->newFindings = newFindings;
}

int ParameterModel::GetRow(const QString &uniqueName) const
{
    return d->rows.find(uniqueName);
}

QVector<Finding> ParameterModel::RestoreDefaults()
{
    QVector<DocumentEdit::Change> changes;
    for (int row = 0; row < d->rows.size(); ++row) {
        const Row &one = d->rows.at(row);
        if (!d->isChanged(one))
            continue;
        const QVariant standard = d->defaultOf(one).value;
        if (const auto ofRow = ParameterValue::changesTo(standard, *one.parameter, d->prefix(row)))
            changes += *ofRow;
    }
    return d->document.Change(changes, d->newFindings);
}

int ParameterModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : d->rows.size();
}

int ParameterModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : EnabledColumn + 1;
}

Qt::ItemFlags ParameterModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.column() == ValueColumn && index.data(SettableRole).toBool() ? flags | Qt::ItemIsEditable
                                                                              : flags;
}

QVariant ParameterModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const Row &row = d->rows.at(index.row());
    const Private::Default standard = d->defaultOf(row);
    switch (role) {
    case Qt::EditRole:
        if (index.column() == ValueColumn)
            return ParameterValue(*row.parameter).value;
        [[fallthrough]];
    case Qt::DisplayRole:
        return shown(*row.parameter, standard.parameter, index.column());
    case PathRole:
        return d->rows.path(index.row());
    case ValuePathRole: {
        const QString path = ParameterValue(*row.parameter).path;
        return path.isEmpty() ? path : d->prefix(index.row()) + path;
    }
    case GroupRole: {
        const auto given = d->groups.constFind(row.key);
        return given == d->groups.constEnd() ? GroupOf(*row.parameter) : *given;
    }
    case DefaultRole:
        return standard.value;
    case ShownDefaultRole:
        return standard.parameter ? ParameterSummary(*standard.parameter).value : QString();
    case ChangedRole:
        return d->isChanged(row);
    case FindingsRole:
        return QVariant::fromValue(d->findingsOf(index.row()));
    case MessagesRole:
        return messagesOf(d->findingsOf(index.row()));
    case SeverityRole:
        return severityOf(d->findingsOf(index.row()));
    default:
        return ownData(*row.parameter, role);
    }
}

bool ParameterModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const bool isEdit = role == Qt::EditRole && index.column() == ValueColumn;
    if (!index.isValid() || !(isEdit || role == ValueRole))
        return false;
    const Row &row = d->rows.at(index.row());
    const auto changes = ParameterValue::changesTo(value, *row.parameter, d->prefix(index.row()));
    if (!changes) {
        d->document.Refuse(d->rows.path(index.row()),
                           row.parameter->IsEnum() ? QStringLiteral("is no entry of the enumeration")
                                                   : QStringLiteral("no document holds its value"));
        return false;
    }
    return d->document.Change(*changes, d->newFindings).isEmpty();
}

QVariant ParameterModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static constexpr QStringView Titles[] = {u"Unique name",  u"Representation name",
                                             u"Display name", u"Type",
                                             u"Value",        u"Default",
                                             u"Minimum",      u"Maximum",
                                             u"Unit",         u"Enabled"};
    if (role != Qt::DisplayRole)
        return {};
    return orientation == Qt::Vertical ? QVariant(section + 1) : titleAt(Titles, section);
}

QHash<int, QByteArray> ParameterModel::roleNames() const
{
    return withRoleNames<Role>(QAbstractTableModel::roleNames());
}

void ParameterModel::reset()
{
    beginResetModel();
    d->defaults = d->document.GetDocument();
    d->defaultRows = ParameterRows(d->defaults);
    d->rows = ParameterRows(d->defaults);
    d->findings = FindingIndex(d->document.GetDocument().GetFindings());
    d->pathsInFindings.clear();
    endResetModel();
}

/// Goes through the former parameters and those of today side by side; both are in the order of their names.
/// All show what is there today before anybody hears of it, except that rows come and go one after the other.
void ParameterModel::update(const QStringList &paths)
{
    const ParameterRows now(d->document.GetDocument());
    FindingIndex findings(d->document.GetDocument().GetFindings());
    const QStringList told = d->findings.differences(findings);
    d->findings = std::move(findings);
    d->pathsInFindings.clear();

    ParameterRows former = std::exchange(d->rows, now);
    std::swap(d->rows.rows, former.rows);
    auto &rows = d->rows.rows;
    for (std::size_t i = 0; i < rows.size();) {
        const Parameter *const parameter = now.parameter(rows[i].key);
        if (parameter) {
            rows[i].parameter = parameter;
            ++i;
            continue;
        }
        const int row = static_cast<int>(i);
        beginRemoveRows({}, row, row);
        rows.erase(rows.begin() + row);
        endRemoveRows();
    }
    for (int row = 0; row < now.size(); ++row) {
        if (row < d->rows.size() && d->rows.at(row).key == now.at(row).key)
            continue;
        beginInsertRows({}, row, row);
        rows.insert(rows.begin() + row, now.at(row));
        endInsertRows();
    }

    std::vector<int> changed;
    for (const QString &path : paths)
        changed.push_back(d->rows.rowOf(path));
    for (int row = 0; !told.isEmpty() && row < d->rows.size(); ++row) {
        const QString own = d->pathInFindings(row);
        if (std::any_of(told.begin(), told.end(),
                        [&own](const QString &one) { return isPathOrWithin(one, own); }))
            changed.push_back(row);
    }
    std::sort(changed.begin(), changed.end());
    changed.erase(std::unique(changed.begin(), changed.end()), changed.end());
    for (const int row : changed) {
        if (row >= 0)
            tellRow(row);
    }
}

void ParameterModel::tellAll()
{
    if (d->rows.size() > 0)
        Q_EMIT dataChanged(index(0, 0), index(d->rows.size() - 1, EnabledColumn));
}

void ParameterModel::tellRow(int row)
{
    Q_EMIT dataChanged(index(row, 0), index(row, EnabledColumn));
}

} // namespace KORMAK
