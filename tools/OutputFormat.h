// The option --format of the commands that tell something.
#ifndef KORMAK_TOOLS_OUTPUTFORMAT_H
#define KORMAK_TOOLS_OUTPUTFORMAT_H

#include <QCommandLineOption>
#include <QStringList>
#include <QStringView>

QT_BEGIN_NAMESPACE
class QCommandLineParser;
QT_END_NAMESPACE

enum class OutputFormat { Text, Json, GeoJson };

/// Which of the formats a command offers.
enum class FormatChoice {
    Common, ///< text and JSON
    WithGeoJson,
};

/// What the help calls a value of the option.
inline constexpr QStringView FormatName = u"FORMAT";
inline constexpr QStringView GeoFormatName = u"FORM"; ///< with GeoJSON

[[nodiscard]] QCommandLineOption formatOption(FormatChoice choice = FormatChoice::Common);
[[nodiscard]] QStringList outputFormatNames(FormatChoice choice = FormatChoice::Common);

/// Text unless told otherwise. \throws UsageError for an unknown format, and for several
[[nodiscard]] OutputFormat outputFormat(const QCommandLineParser &parser,
                                        FormatChoice choice = FormatChoice::Common);

#endif
