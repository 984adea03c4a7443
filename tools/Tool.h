// The tool as a whole: its commands, and what help and manual say of all of them.
#ifndef KORMAK_TOOLS_TOOL_H
#define KORMAK_TOOLS_TOOL_H

#include <objectbase/DocumentTable_p.h>
#include <tools/Command.h>

#include <QCommandLineOption>
#include <QList>
#include <QStringList>
#include <QStringView>

namespace Tool {

inline constexpr QStringView Summary =
    u"check, show, compare, rewrite and make documents of a radio-monitoring system";
inline constexpr QStringView Description =
    u"Checks, shows, compares, rewrites and makes the XML documents of a radio-monitoring system: jobs, "
    u"automatic workflows, settings of activity generation, receivers and their parameters.\n"
    u"\n"
    u"Results go to standard output, complaints to standard error. The file name - stands for standard "
    u"input; names that begin with a dash stand behind --. What cannot be printed, in names or in "
    u"documents, is shown as an escape, such as \\n or \\u202e.";
inline constexpr ExitTexts ExitMeanings{
    u"all is well",
    u"a document is at fault or would change, or two documents differ",
    u"a file cannot be read or written, or the call is wrong",
};
inline constexpr QStringView Example =
    u"kormak new Job --set JobHeader.JobType=Antenna \\\n"
    u"    --set JobHeader.Author=\"M. Keller\" --set JobHeader.Creation=now \\\n"
    u"    --set ResourceType=Antenna --set AntennaData.Name=North \\\n"
    u"    --set AntennaData.MinimumFrequency=1.5e6 \\\n"
    u"    --set AntennaData.MaximumFrequency=30e6 -o job.xml\n"
    u"kormak check job.xml";

/// In the order in which people are told of them.
[[nodiscard]] TESSEL::TableView<const Command *> commands();
[[nodiscard]] QStringList commandNames();
/// Null when there is none.
[[nodiscard]] const Command *findCommand(QStringView name);

/// Of a call without a command.
[[nodiscard]] QList<QCommandLineOption> options();
/// Its own, and that for help.
[[nodiscard]] QList<QCommandLineOption> optionsOf(const Command &command);

} // namespace Tool

#endif
