// The options for what a document may become while it is read.
#ifndef KORMAK_TOOLS_LIMITOPTIONS_H
#define KORMAK_TOOLS_LIMITOPTIONS_H

#include <objectbase/ReadingLimits.h>

#include <QCommandLineOption>
#include <QList>
#include <QString>
#include <QStringView>

QT_BEGIN_NAMESPACE
class QCommandLineParser;
QT_END_NAMESPACE

inline constexpr QStringView AttributesLimit = u"limit-attributes";
inline constexpr QStringView DepthLimit = u"limit-depth";
inline constexpr QStringView EntitiesLimit = u"limit-entities";

/// \a own options of a command that reads documents, with those for limits behind them.
[[nodiscard]] QList<QCommandLineOption> withLimitOptions(QList<QCommandLineOption> own);

/// The limits of the library, but for those that the call gives. \throws UsageError
[[nodiscard]] TESSEL::ReadingLimits limitsOf(const QCommandLineParser &parser);

/// \a message, which says that a bound is met, with the option that sets it.
[[nodiscard]] QString withOption(const QString &message, QStringView option);

#endif
