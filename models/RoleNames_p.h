// What all models have in common: their roles are called for QML as their enumerators, columns have titles,
// and tool tips are texts.
#ifndef KORMAK_MODELS_ROLENAMES_P_H
#define KORMAK_MODELS_ROLENAMES_P_H

#include <QByteArray>
#include <QHash>
#include <QMetaEnum>
#include <QString>
#include <QStringView>
#include <QVariant>

#include <cstddef>

namespace KORMAK {

/// Adds "path" for PathRole to \a names, and so on for each enumerator of \a Role, which has a Q_ENUM. A
/// name is that of one role.
template <class Role>
[[nodiscard]] QHash<int, QByteArray> withRoleNames(QHash<int, QByteArray> names)
{
    const auto roles = QMetaEnum::fromType<Role>();
    for (int i = 0; i < roles.keyCount(); ++i) {
        QByteArray name = roles.key(i);
        name.chop(static_cast<int>(sizeof("Role")) - 1);
        name[0] = static_cast<char>(name.at(0) - 'A' + 'a');
        if (const int former = names.key(name, -1); former >= 0)
            names.remove(former);
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

/// Shows \a text as it stands, in lines that are not too long. Qt would take a text of a document that looks
/// like HTML for HTML.
[[nodiscard]] inline QString toolTipOf(const QString &text)
{
    return text.isEmpty()
        ? text
        : QStringLiteral("<p style=\"white-space: pre-wrap\">%1</p>").arg(text.toHtmlEscaped());
}

} // namespace KORMAK

#endif
