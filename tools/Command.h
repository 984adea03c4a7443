// What main() needs to know of a command. A new command is one source file with its Command, the declaration
// of that below and its line in the table in Tool.cpp.
#ifndef KORMAK_TOOLS_COMMAND_H
#define KORMAK_TOOLS_COMMAND_H

#include <tools/OutputFormat.h>

#include <QCommandLineOption>
#include <QList>
#include <QString>
#include <QStringView>

#include <array>

QT_BEGIN_NAMESPACE
class QCommandLineParser;
QT_END_NAMESPACE

/// In order of weight: the greatest of several is the one that the tool ends with.
enum ExitStatus {
    Good = 0,
    Faulty = 1, ///< a document is at fault
    Failed = 2, ///< something cannot be read or written, or the call is wrong
};

/// What stands behind the options of a call.
struct Arguments {
    static constexpr int Unlimited = 0x7FFFFFFF;

    QStringView name; ///< as messages call one of them
    QStringView usage; ///< as the help shows them all
    int least;
    int most;
};

/// What stands for standard input or output in place of the name of a file.
inline constexpr QStringView StandardStream = u"-";

inline constexpr QStringView FileName = u"FILE"; ///< of which one may be standard input
inline constexpr QStringView PathName = u"PATH"; ///< of a file or a folder; one may be standard input
inline constexpr QStringView KindName = u"KIND"; ///< of a kind of document
inline constexpr QStringView ParameterName =
    u"NAME"; ///< of a parameter in a document; may be given repeatedly
inline constexpr QStringView OneField = u"FIELD"; ///< the name of a field
inline constexpr QStringView ManyFields = u"FIELD,..."; ///< the same for several
inline constexpr QStringView SettingOfSeverity = u"ID=SEVERITY";
inline constexpr QStringView ConditionName = u"CONDITION"; ///< of rows
inline constexpr QStringView PartName = u"PART"; ///< of documents
inline constexpr Arguments OneFile{FileName, u"FILE", 1, 1};
inline constexpr Arguments ManyFiles{FileName, u"FILE...", 1, Arguments::Unlimited};
inline constexpr Arguments ManyPaths{PathName, u"PATH...", 1, Arguments::Unlimited};

/// What each exit status means, in the order of ExitStatus; empty: the command never ends with it.
using ExitTexts = std::array<QStringView, 3>;

struct Command {
    QStringView name;
    QStringView summary; ///< a few words
    /// Lines are broken where the text is shown; but a line that begins with a blank stands as it is.
    QStringView description;
    ExitTexts exitStatus;
    QStringView example;
    Arguments arguments;
    QList<QCommandLineOption> (*options)();
    ExitStatus (*run)(const QCommandLineParser &parser);
    OutputFormats formats = TextAndJson; ///< of its option --format, if it has one
};

/// Thrown for a call that is wrong.
struct UsageError {
    QString message;
};

extern const Command checkCommand;
extern const Command diffCommand;
extern const Command fixCommand;
extern const Command formatCommand;
extern const Command helpCommand;
extern const Command listCommand;
extern const Command newCommand;
extern const Command reportCommand;
extern const Command setCommand;
extern const Command showCommand;
extern const Command tableCommand;

#endif
