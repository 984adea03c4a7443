#include "tools/Field.h"

#include <cmath>
#include <type_traits>

bool areSame(const FieldValue &a, const FieldValue &b)
{
    return a.index() == b.index()
        && std::visit(
               [&b](const auto &value) {
                   using Value = std::decay_t<decltype(value)>;
                   const auto &other = std::get<Value>(b);
                   if constexpr (std::is_floating_point_v<Value>)
                       return value == other || (std::isnan(value) && std::isnan(other));
                   else
                       return value == other;
               },
               a);
}

QString bracketed(const FieldParts &parts, const QString &key)
{
    if (parts.kind == FieldParts::Kind::One)
        return {};
    QString text = key;
    text.replace(QLatin1Char('\\'), QStringLiteral("\\\\")).replace(QLatin1Char(']'), QStringLiteral("\\]"));
    return QLatin1Char('[') + text + QLatin1Char(']');
}
