// The option --format of the commands that tell something.
#ifndef KORMAK_TOOLS_OUTPUTFORMAT_H
#define KORMAK_TOOLS_OUTPUTFORMAT_H

#include <objectbase/DocumentTable_p.h>

#include <QCommandLineOption>
#include <QStringList>
#include <QStringView>

QT_BEGIN_NAMESPACE
class QCommandLineParser;
QT_END_NAMESPACE

enum class OutputFormat { Text, Json, Csv, GeoJson, Sarif, Github };

/// Those that a command knows.
using OutputFormats = TESSEL::TableView<OutputFormat>;

inline constexpr OutputFormat TextAndJson[] = {OutputFormat::Text, OutputFormat::Json};

[[nodiscard]] QCommandLineOption formatOption(OutputFormats formats = TextAndJson);
[[nodiscard]] QStringList outputFormatNames(OutputFormats formats = TextAndJson);

/// Text unless told otherwise. \throws UsageError for an unknown format, and for several
[[nodiscard]] OutputFormat outputFormat(const QCommandLineParser &parser,
                                        OutputFormats formats = TextAndJson);

#endif
