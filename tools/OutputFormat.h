// The option --format of the commands that tell something.
#ifndef KORMAK_TOOLS_OUTPUTFORMAT_H
#define KORMAK_TOOLS_OUTPUTFORMAT_H

#include <QCommandLineOption>
#include <QStringList>

QT_BEGIN_NAMESPACE
class QCommandLineParser;
QT_END_NAMESPACE

enum class OutputFormat { Text, Json };

[[nodiscard]] QCommandLineOption formatOption();
[[nodiscard]] QStringList outputFormatNames();

/// Text unless told otherwise. \throws UsageError for an unknown format, and for several
[[nodiscard]] OutputFormat outputFormat(const QCommandLineParser &parser);

#endif
