// What all models have in common: their roles are called for QML as their enumerators, and columns have
// titles.
#ifndef KORMAK_MODELS_ROLENAMES_P_H
#define KORMAK_MODELS_ROLENAMES_P_H

#include <QByteArray>
#include <QHash>
#include <QMetaEnum>
#include <QStringView>
#include <QVariant>

#include <cstddef>

namespace KORMAK {

/// Adds "path" for PathRole to \a names, and so on for each enumerator of \a Role, which has a Q_ENUM.
template <class Role>
[[nodiscard]] QHash<int, QByteArray> withRoleNames(QHash<int, QByteArray> names)
{
    const auto roles = QMetaEnum::fromType<Role>();
    for (int i = 0; i < roles.keyCount(); ++i) {
        QByteArray name = roles.key(i);
        name.chop(static_cast<int>(sizeof("Role")) - 1);
        name[0] = static_cast<char>(name.at(0) - 'A' + 'a');
        names.insert(roles.value(i), name);
    }
    return names;
}

/// Of the column \a section; nothing where there is no such column.
template <std::size_t Count>
[[nodiscard]] QVariant titleAt(const QStringView (&titles)[Count], int section)
{
    return section >= 0 && section < static_cast<int>(Count)
        ? QVariant(titles[static_cast<std::size_t>(section)].toString())
        : QVariant();
}

} // namespace KORMAK

#endif
