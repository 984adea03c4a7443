// The options for what a document may become while it is read.
#ifndef KORMAK_TOOLS_LIMITOPTIONS_H
#define KORMAK_TOOLS_LIMITOPTIONS_H

#include <inspection/FindingData_p.h>
#include <objectbase/ReadingLimits.h>

#include <QCommandLineOption>
#include <QList>
#include <QString>
#include <QStringView>

QT_BEGIN_NAMESPACE
class QCommandLineParser;
QT_END_NAMESPACE

/// \a own options of a command that reads documents, with those for limits behind them.
[[nodiscard]] QList<QCommandLineOption> withLimitOptions(QList<QCommandLineOption> own);

/// The limits of the library, but for those that the call gives. \throws UsageError
[[nodiscard]] TESSEL::ReadingLimits limitsOf(const QCommandLineParser &parser);

/// \a message, which says that \a limit is met, with the option that sets it; nothing is added to an empty
/// one.
[[nodiscard]] QString withOption(const QString &message, KORMAK::Inspection::ReadingLimit limit);

#endif
