#include "tools/LimitOptions.h"

#include <tools/Command.h>
#include <tools/Options.h>

#include <QCommandLineParser>

#include <limits>

using namespace KORMAK::Inspection;

namespace {

constexpr QStringView AttributesLimit = u"limit-attributes";
constexpr QStringView DepthLimit = u"limit-depth";
constexpr QStringView EntitiesLimit = u"limit-entities";

QCommandLineOption limitOption(QStringView name, const QString &what, qint64 standard)
{
    return optionCalled(name, QStringLiteral("Most %1 (default: %2).").arg(what).arg(standard), u"N");
}

/// The last of the values given; \a standard when the option is not.
template <class Number>
Number numberOf(const QCommandLineParser &parser, QStringView option, Number standard)
{
    const QString name = option.toString();
    if (!parser.isSet(name))
        return standard;
    bool ok = false;
    const qint64 number = parser.value(name).toLongLong(&ok);
    if (!ok || number < 0 || number > std::numeric_limits<Number>::max())
        throw UsageError{
            QStringLiteral("--%1 takes a number from 0, not '%2'").arg(name, parser.value(name))};
    return static_cast<Number>(number);
}

} // namespace

QList<QCommandLineOption> withLimitOptions(QList<QCommandLineOption> own)
{
    const TESSEL::ReadingLimits limits;
    own.push_back(
        limitOption(AttributesLimit, QStringLiteral("attributes of an element"), limits.GetAttributes()));
    own.push_back(limitOption(DepthLimit, QStringLiteral("elements in one another"), limits.GetDepth()));
    own.push_back(
        limitOption(EntitiesLimit, QStringLiteral("characters from entities"), limits.GetEntityCharacters()));
    return own;
}

TESSEL::ReadingLimits limitsOf(const QCommandLineParser &parser)
{
    TESSEL::ReadingLimits limits;
    limits.SetAttributes(numberOf(parser, AttributesLimit, limits.GetAttributes()));
    limits.SetDepth(numberOf(parser, DepthLimit, limits.GetDepth()));
    limits.SetEntityCharacters(numberOf(parser, EntitiesLimit, limits.GetEntityCharacters()));
    if (parser.isSet(EntitiesLimit.toString()))
        limits.SetEntityFactor(0); // what is given holds for documents of any size
    return limits;
}

QString withOption(const QString &message, ReadingLimit limit)
{
    if (limit == ReadingLimit::None || message.isEmpty())
        return message;
    const QStringView option = limit == ReadingLimit::Attributes ? AttributesLimit
        : limit == ReadingLimit::Depth                           ? DepthLimit
                                                                 : EntitiesLimit;
    return message + QStringLiteral(" (--%1 sets the limit)").arg(option);
}
