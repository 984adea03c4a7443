#include "models/ParameterFilter.h"

#include <models/ParameterModel.h>

#include <algorithm>
#include <set>

namespace KORMAK {

struct ParameterFilter::Private {
    QString search = {};
    QStringList words = {};
    Show show = Show::All;
    std::optional<QString> group = {};
};

ParameterFilter::ParameterFilter(QObject *parent)
    : QSortFilterProxyModel(parent), d(std::make_unique<Private>())
{
}

ParameterFilter::~ParameterFilter() = default;

QString ParameterFilter::GetSearch() const
{
    return d->search;
}

void ParameterFilter::SetSearch(const QString &words)
{
    if (d->search == words)
        return;
    d->search = words;
    d->words = words.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    invalidateFilter();
    Q_EMIT SearchChanged();
}

ParameterFilter::Show ParameterFilter::GetShow() const noexcept
{
    return d->show;
}

void ParameterFilter::SetShow(Show show)
{
    if (d->show == show)
        return;
    d->show = show;
    invalidateFilter();
    Q_EMIT ShowChanged();
}

std::optional<QString> ParameterFilter::GetGroup() const
{
    return d->group;
}

void ParameterFilter::SetGroup(const std::optional<QString> &group)
{
    if (d->group == group)
        return;
    d->group = group;
    invalidateFilter();
    Q_EMIT GroupChanged();
}

QVariant ParameterFilter::groupProperty() const
{
    return d->group ? QVariant(*d->group) : QVariant();
}

void ParameterFilter::setGroupProperty(const QVariant &group)
{
    const bool isText = group.isValid() && group.userType() != QMetaType::Nullptr;
    SetGroup(isText ? std::optional(group.toString()) : std::nullopt);
}

QStringList ParameterFilter::GetGroups() const
{
    std::set<QString> groups;
    for (int row = 0; sourceModel() && row < sourceModel()->rowCount(); ++row)
        groups.insert(sourceModel()->index(row, 0).data(ParameterModel::GroupRole).toString());
    QStringList sorted(groups.begin(), groups.end());
    if (!sorted.isEmpty() && sorted.constFirst().isEmpty())
        sorted += sorted.takeFirst();
    return sorted;
}

bool ParameterFilter::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    const QModelIndex index = sourceModel()->index(row, 0, parent);
    if (d->group && index.data(ParameterModel::GroupRole).toString() != *d->group)
        return false;
    if (d->show == Show::Changed && !index.data(ParameterModel::ChangedRole).toBool())
        return false;
    if (d->words.isEmpty())
        return true;
    const QString texts[] = {index.data(ParameterModel::UniqueNameRole).toString(),
                             index.data(ParameterModel::NameRole).toString(),
                             index.data(ParameterModel::ToolTipRole).toString()};
    return std::all_of(d->words.begin(), d->words.end(), [&texts](const QString &word) {
        return std::any_of(std::begin(texts), std::end(texts),
                           [&word](const QString &text) { return text.contains(word, Qt::CaseInsensitive); });
    });
}

} // namespace KORMAK
