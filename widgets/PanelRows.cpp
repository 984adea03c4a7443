#include "widgets/PanelRows_p.h"

#include <kormak/Parameter.h>
#include <models/OpenDocument.h>
#include <widgets/ParameterControl.h>
#include <widgets/ParameterText_p.h>
#include <widgets/ValueChange_p.h>

#include <QCoreApplication>

#include <algorithm>
#include <limits>
#include <utility>

namespace KORMAK::Widgets {

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("KORMAK::ReceiverPanel", text);
}

QString withUnit(const Parameter &parameter, const QVariant &value, const QLocale &locale)
{
    const QString text = shownValue(parameter, value, locale);
    const QString unit = shownUnit(parameter, value, locale);
    return text.isEmpty() || unit.isEmpty() ? text : text + QChar(0xA0) + unit;
}

} // namespace

PanelRows::PanelRows(ParameterModel &model, OpenDocument &receiver, QObject *parent)
    : ParameterFilter(parent), parameters(model), document(receiver)
{
    // Before the base class hears of it, and sorts.
    const auto forget = [this] { known.reset(); };
    connect(&model, &QAbstractItemModel::modelReset, this, forget);
    connect(&model, &QAbstractItemModel::rowsInserted, this, forget);
    connect(&model, &QAbstractItemModel::rowsRemoved, this, forget);
    connect(&model, &QAbstractItemModel::dataChanged, this, forget);
    setSourceModel(&model);
    setDynamicSortFilter(true);
    sort(NameColumn);
}

QString PanelRows::uniqueName(const QModelIndex &index) const
{
    return index.data(ParameterModel::UniqueNameRole).toString();
}

const Parameter *PanelRows::parameter(const QModelIndex &index) const
{
    return findParameter(document.GetDocument(), uniqueName(index));
}

bool PanelRows::isEditable(const QModelIndex &index) const
{
    return index.isValid() && index.data(ParameterModel::EnabledRole).toBool()
        && index.data(ParameterModel::SettableRole).toBool();
}

const PanelRows::Groups &PanelRows::groups() const
{
    if (known)
        return *known;
    known.emplace();
    const int count = sourceModel()->rowCount();
    std::vector<QString> sorted;
    for (int row = 0; row < count; ++row) {
        known->names.push_back(sourceModel()->index(row, 0).data(ParameterModel::GroupRole).toString());
        sorted.push_back(known->names.back());
    }
    std::sort(sorted.begin(), sorted.end());
    sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
    for (const QString &name : known->names) {
        const auto found = std::lower_bound(sorted.begin(), sorted.end(), name);
        // What has no group is the last.
        known->ranks.push_back(name.isEmpty() ? std::numeric_limits<int>::max()
                                              : static_cast<int>(found - sorted.begin()));
    }
    return *known;
}

QString PanelRows::groupOf(int row) const
{
    const int source = mapToSource(index(row, NameColumn)).row();
    const auto &names = groups().names;
    return source >= 0 && static_cast<std::size_t>(source) < names.size()
        ? names[static_cast<std::size_t>(source)]
        : QString();
}

bool PanelRows::isFirstOfGroup(int row) const
{
    const QString group = groupOf(row);
    return row == 0 ? !group.isEmpty() : group != groupOf(row - 1);
}

QString PanelRows::problemOf(const QModelIndex &index) const
{
    QString typedProblem = draft(index).problem;
    if (!typedProblem.isEmpty())
        return typedProblem;
    const QStringList messages = index.data(ParameterModel::MessagesRole).toStringList();
    if (!messages.isEmpty())
        return messages.join(QLatin1Char('\n'));
    const Parameter *const found = parameter(index);
    return found ? Widgets::problemOf(*found, index.data(ParameterModel::ValueRole), language) : QString();
}

void PanelRows::setDraft(const QModelIndex &index, const Draft &draft)
{
    typed.insert(uniqueName(index), draft);
    Q_EMIT dataChanged(this->index(index.row(), 0), this->index(index.row(), columnCount() - 1));
}

void PanelRows::removeDraft(const QModelIndex &index)
{
    const QString name = uniqueName(index);
    if (typed.remove(name) == 0)
        return;
    Q_EMIT dataChanged(this->index(index.row(), 0), this->index(index.row(), columnCount() - 1));
    filterLater({name});
}

void PanelRows::clearDrafts()
{
    filterLater(std::exchange(typed, {}).keys());
}

QVector<Draft> PanelRows::takeLostDrafts()
{
    QVector<Draft> lost;
    for (auto draft = typed.begin(); draft != typed.end();) {
        const QModelIndex source = parameters.index(parameters.GetRow(draft.key()), ValueColumn);
        const bool isOther =
            source.data(ParameterModel::ParameterTypeRole).toInt() != static_cast<qint32>(draft->type);
        if (isEditable(source) && !isOther) {
            ++draft;
            continue;
        }
        const QString reason = !source.isValid() ? noParameter(draft.key())
            : isOther                            ? parameterOfOtherType()
                                                 : disabledParameter();
        draft->problem = droppedText(draft->text, reason);
        lost.push_back(*draft);
        draft = typed.erase(draft);
    }
    return lost;
}

QString PanelRows::setValue(const QModelIndex &index, const QVariant &value)
{
    return setParameterValue(*this, index, value, document);
}

void PanelRows::setEdited(const QString &uniqueName)
{
    const QString former = std::exchange(edited, uniqueName);
    if (!former.isEmpty())
        filterLater({former});
}

void PanelRows::filterLater(const QStringList &uniqueNames)
{
    const bool isAnyToGo = std::any_of(uniqueNames.begin(), uniqueNames.end(), [this](const QString &name) {
        const int row = parameters.GetRow(name);
        return row >= 0 && !filterAcceptsRow(row, {});
    });
    if (isAnyToGo) // a view may be about to close its editor
        QMetaObject::invokeMethod(
            this, [this] { invalidateFilter(); }, Qt::QueuedConnection);
}

bool PanelRows::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    if (!edited.isEmpty() || !typed.isEmpty()) {
        const QString name = uniqueName(parameters.index(row, NameColumn, parent));
        if (name == edited || typed.contains(name))
            return true;
    }
    return ParameterFilter::filterAcceptsRow(row, parent);
}

void PanelRows::setLocale(const QLocale &locale)
{
    language = locale;
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

QString PanelRows::text(const QModelIndex &index) const
{
    const Parameter *const found = parameter(index);
    if (!found)
        return {};
    switch (index.column()) {
    case NameColumn:
        return nameOf(*found);
    case ValueColumn: {
        if (hasDraft(index))
            return draft(index).text;
        return withUnit(*found, index.data(ParameterModel::ValueRole), language);
    }
    case DefaultColumn: {
        const QVariant standard = index.data(ParameterModel::DefaultRole);
        const bool isShown = standard.isValid() && index.data(ParameterModel::ChangedRole).toBool();
        return isShown ? withUnit(*found, standard, language) : QString();
    }
    case LimitsColumn:
        return rangeOf(*found, language);
    default:
        return {};
    }
}

QString PanelRows::toolTip(const QModelIndex &index) const
{
    const Parameter *const found = parameter(index);
    if (!found)
        return {};
    QStringList parts{problemOf(index), describe(*found, language)};
    if (ParameterControlOf(*found) == ParameterControl::NumberList
        || ParameterControlOf(*found) == ParameterControl::FrequencyList)
        parts += translated("Documents do not hold the values of a list");
    parts += found->GetUniqueParameterName()
        + (found->GetRepresenationName().isEmpty() ? QString()
                                                   : QStringLiteral(" · ") + found->GetRepresenationName());
    parts.removeAll(QString());
    return parts.join(QStringLiteral("\n\n"));
}

QVariant PanelRows::data(const QModelIndex &index, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return text(index);
    case Qt::ToolTipRole:
        return toolTip(index);
    case Qt::AccessibleTextRole:
        return index.column() == ValueColumn
            ? this->index(index.row(), NameColumn).data().toString() + QStringLiteral(": ") + text(index)
            : text(index);
    case Qt::AccessibleDescriptionRole:
        return problemOf(index);
    default:
        return ParameterFilter::data(index, role);
    }
}

Qt::ItemFlags PanelRows::flags(const QModelIndex &index) const
{
    // Also what cannot be edited can be gone to, and read.
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
    if (index.column() == ValueColumn && isEditable(index))
        flags |= Qt::ItemIsEditable;
    return flags;
}

QVariant PanelRows::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return role == Qt::DisplayRole ? QVariant() : ParameterFilter::headerData(section, orientation, role);
    switch (section) {
    case NameColumn:
        return translated("Parameter");
    case ValueColumn:
        return translated("Value");
    case DefaultColumn:
        return translated("Default");
    case LimitsColumn:
        return translated("Limits");
    default:
        return {};
    }
}

bool PanelRows::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    const auto rankOf = [this](const QModelIndex &index) {
        return groups().ranks.at(static_cast<std::size_t>(index.row()));
    };
    const int a = rankOf(left);
    const int b = rankOf(right);
    return a == b ? left.row() < right.row() : a < b;
}

} // namespace KORMAK::Widgets
