#include "tools/ReportOrder.h"

#include <tools/ListOf.h>
#include <tools/Usage.h>

#include <QCommandLineParser>

#include <algorithm>
#include <iterator>

namespace {

using Order = KORMAK::ReportIndex::Order;

constexpr QStringView OptionName = u"sort";

constexpr struct {
    QStringView name;
    Order order;
} Orders[] = {
    {u"name", Order::Name},         {u"kind", Order::Kind},     {u"state", Order::State},
    {u"findings", Order::Findings}, {u"author", Order::Author}, {u"time", Order::Time},
    {u"resource", Order::Resource},
};

} // namespace

QCommandLineOption ReportOrder::option()
{
    return {listOf<QStringList>(OptionName.toString()),
            QStringLiteral("What the index goes by (default: name)."), ValueName.toString()};
}

QStringList ReportOrder::names()
{
    QStringList all;
    for (const auto &row : Orders)
        all += row.name.toString();
    return all;
}

bool ReportOrder::isSet(const QCommandLineParser &parser)
{
    return parser.isSet(OptionName.toString());
}

Order ReportOrder::of(const QCommandLineParser &parser)
{
    const QStringList values = parser.values(OptionName.toString());
    if (values.size() > 1)
        throw UsageError{QStringLiteral("--sort can be given only once")};
    if (values.isEmpty())
        return Order::Name;
    const auto *const found = std::find_if(std::begin(Orders), std::end(Orders), [&values](const auto &row) {
        return row.name == values.constFirst();
    });
    if (found == std::end(Orders))
        throw Usage::unknown(QStringLiteral("order"), values.constFirst(), names());
    return found->order;
}
