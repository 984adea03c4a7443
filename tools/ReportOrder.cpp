#include "tools/ReportOrder.h"

#include <objectbase/Vocabulary_p.h>
#include <tools/Options.h>
#include <tools/Usage.h>

#include <QCommandLineParser>

namespace {

using Order = KORMAK::ReportIndex::Order;

constexpr QStringView OptionName = u"sort";

constexpr TESSEL::VocabularyRow<Order> OrderRows[] = {
    {Order::Name, u"name"},         {Order::Kind, u"kind"},     {Order::State, u"state"},
    {Order::Findings, u"findings"}, {Order::Author, u"author"}, {Order::Time, u"time"},
    {Order::Resource, u"resource"},
};
constexpr TESSEL::Vocabulary Orders{OrderRows};

} // namespace

QCommandLineOption ReportOrder::option()
{
    return optionCalled(OptionName, QStringLiteral("What the index goes by (default: name)."), ValueName);
}

QStringList ReportOrder::names()
{
    return Orders.names();
}

bool ReportOrder::isSet(const QCommandLineParser &parser)
{
    return parser.isSet(OptionName.toString());
}

Order ReportOrder::of(const QCommandLineParser &parser)
{
    const auto name = onlyValue(parser, OptionName);
    if (!name)
        return Order::Name;
    const Order order = Orders.valueOf(*name);
    if (!Orders.isValid(order))
        throw Usage::unknown(QStringLiteral("order"), *name, names());
    return order;
}
