#include <inspection/DocumentKind_p.h>
#include <inspection/DocumentTexts_p.h>
#include <inspection/FieldListing_p.h>
#include <inspection/NameLists_p.h>
#include <tools/Tool.h>
#include <tools/Usage.h>

#include <QProcess>
#include <QStandardPaths>
#include <QtTest>

using namespace KORMAK::Inspection;

/// The completions as the build has made them, in the shells that they are made for.
class CompletionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void bash_data();
    void bash();
    void bashKnowsAllOptions();
    void bashLeavesFilesToTheShell();
    void fieldsAndValues_data();
    void fieldsAndValues();
    void zsh();
    void isFilledIn_data();
    void isFilledIn();
    void shellCheck_data();
    void shellCheck();
};

namespace {

const QString ForBash = KORMAK_TEXTS "/completions/kormak";
const QString ForZsh = KORMAK_TEXTS "/completions/_kormak";

/// What \a script, with \a arguments, writes in the \a shell; null when it complains or fails.
QString outputOf(const QString &shell, const QString &script, const QStringList &arguments = {})
{
    QProcess process;
    process.start(shell, QStringList{shell == "zsh" ? "-f" : "--norc", "-c", script, "-"} + arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        return {};
    const QByteArray complaints = process.readAllStandardError();
    return complaints.isEmpty() ? QString::fromUtf8(process.readAllStandardOutput()) : QString();
}

/// What bash offers for a call, whose \a words are those that it makes of the line.
QStringList offered(const QStringList &words)
{
    const QString out = outputOf("bash",
                                 ". '" + ForBash
                                     + "'; COMP_WORDS=(kormak \"$@\") COMP_CWORD=$#; _kormak; "
                                       "((${#COMPREPLY[@]})) && printf '%s\\n' \"${COMPREPLY[@]}\"; echo end",
                                 words);
    QStringList lines = out.split('\n', Qt::SkipEmptyParts);
    return lines.isEmpty() || lines.takeLast() != "end" ? QStringList{"(failed)"} : lines;
}

bool isMissing(const char *shell)
{
    return QStandardPaths::findExecutable(shell).isEmpty();
}

void skip(const char *reason)
{
    QTest::qSkip(reason, __FILE__, __LINE__);
}

} // namespace

void CompletionTest::bash_data()
{
    QTest::addColumn<QStringList>("words"); // behind "kormak"; the last one is completed
    QTest::addColumn<QStringList>("replies");

    const auto add = [](const char *name, const QStringList &words, const QStringList &replies) {
        QTest::newRow(name) << words << replies;
    };
    add("commands", {""}, Tool::commandNames());
    add("command", {"ch"}, {"check"});
    add("no such command", {"x"}, {});
    add("options of the tool", {"-"}, {"-h", "--help", "-v", "-V", "--version"});
    add("options of a command", {"new", "-"},
        {"--set", "--template", "-o", "--list-fields", "--format", "--limit-attributes", "--limit-depth",
         "--limit-entities", "-h", "--help"});
    add("options behind a file", {"format", "a.xml", "--in"}, {"--in-place"});
    add("options behind standard input", {"format", "-", "--in"}, {"--in-place"});
    add("option with two names", {"check", "--r"}, {"--recursive"});
    add("format", {"show", "--format", ""}, {"text", "json", "geojson"});
    add("format of checks", {"check", "--format", ""}, {"text", "json", "sarif", "github"});
    add("format of tables", {"table", "--format", ""}, {"text", "csv", "json"});
    add("parts", {"table", "--each", ""}, {"Parameter"});
    add("condition", {"table", "--where", ""}, {});
    add("options behind conditions", {"table", "--where", "a = b", "--col"}, {"--columns"});
    add("format behind =", {"show", "--format", "=", "j"}, {"json"});
    add("format right behind =", {"show", "--format", "="}, {"text", "json", "geojson"});
    add("severity", {"check", "--severity", "rep"}, {"repeated=error", "repeated=warning", "repeated=off"});
    add("severity behind =", {"check", "--severity", "repeated", "=", "w"}, {"warning"});
    add("number", {"check", "-j", ""}, {});
    add("command behind which is an option", {"show", "--format", "json", "--h"}, {"--help"});
    add("kinds", {"new", ""}, documentKindNames());
    add("kind behind an option", {"new", "-o", "a.xml", "Auto"}, {"AutomaticWorkflow"});
    add("nothing behind a kind", {"new", "Job", ""}, {});
    add("help of a command", {"help", "c"}, {"check"});
    add("help of any command", {"help", ""}, Tool::commandNames());
    add("nothing behind the command of help", {"help", "check", ""}, {});
    add("check of format", {"format", "--ch"}, {"--check"});
    add("vocabularies", {"list", ""}, nameListNames());
    add("vocabulary", {"list", "--format", "json", "Par"}, {"ParameterType"});
    add("fields", {"new", "Job", "--set", "JobH"},
        {"JobHeader.JobType=", "JobHeader.Author=", "JobHeader.Creation=", "JobHeader.ShowJDH=",
         "JobHeader.Description="});
    add("fields behind =", {"new", "Job", "--set", "=", "Antenna"},
        {"AntennaData.Name=", "AntennaData.MinimumFrequency=", "AntennaData.MaximumFrequency=",
         "AntennaData.Azimuth=", "AntennaData.Polarization="});
    add("fields of a second option", {"new", "Job", "--set", "JobHeader.Author", "=", "a", "--set", "Re"},
        {"ResourceType="});
    add("fields before a kind", {"new", "--set", ""}, {});
    add("fields up to a key", {"new", "GenericReceiver", "--set", "Par"}, {"Parameter\\["});
    add("fields up to an index", {"new", "AutomaticWorkflow", "--set", "Area.C"},
        {"Area.Coordinate=", "Area.Coordinate\\["});
    add("fields behind an index", {"new", "AutomaticWorkflow", "--set", "Area.Coordinate[12]"},
        {"Area.Coordinate\\[12\\].Latitude=", "Area.Coordinate\\[12\\].Longitude="});
    add("fields behind a key", {"new", "GenericReceiver", "--set", "Parameter\\[Rx\\ 1\\].ValueT"},
        {"Parameter\\[Rx\\ 1\\].ValueType="});
    add("fields behind a key in quotes", {"new", "GenericReceiver", "--set", "'Parameter[Rx 1].Disp"},
        {"Parameter[Rx 1].DisplaySuffix=", "Parameter[Rx 1].DisplayName="});
    add("fields behind two keys", {"new", "GenericReceiver", "--set", "'Parameter[a].Enum.EnumValue[0].K"},
        {"Parameter[a].Enum.EnumValue[0].Key="});
    add("values", {"new", "Job", "--set", "AntennaData.Polarization", "=", ""},
        {"Horizontal", "Vertical", "Slant", "Left-Hand\\ Circular", "Right-Hand\\ Circular"});
    add("values right behind =", {"new", "AutomaticWorkflow", "--set", "Mode", "="},
        {"ManualMode", "AutomaticMode"});
    add("value with a blank", {"new", "Job", "--set", "JobHeader.JobType", "=", "Search\\ MC\\ V"},
        {"Search\\ MC\\ VUHF"});
    add("value in quotes", {"new", "Job", "--set", "'JobHeader.JobType=Search MC V"},
        {"JobHeader.JobType=Search MC VUHF"});
    add("values of a boolean", {"new", "ActivityGeneration", "--set", "Autostart", "=", "t"}, {"true"});
    add("values behind a key",
        {"new", "GenericReceiver", "--set", "Parameter\\[a\\].ControlType", "=", "VCT"}, {"VCTimeEdit"});
    add("value of a text", {"new", "Job", "--set", "JobHeader.Author", "=", ""}, {});
}

void CompletionTest::bash()
{
    QFETCH(QStringList, words);
    QFETCH(QStringList, replies);

    if (isMissing("bash")) {
        skip("there is no bash");
        return;
    }
    QCOMPARE(offered(words), replies);
}

/// And knows what follows each of them, so that it does not take that for an argument.
void CompletionTest::bashKnowsAllOptions()
{
    if (isMissing("bash")) {
        skip("there is no bash");
        return;
    }
    for (const Command *command : Tool::commands()) {
        const QString name = command->name.toString();
        QStringList names;
        for (const QCommandLineOption &option : Tool::optionsOf(*command))
            names += Usage::dashedNames(option);
        QCOMPARE(offered({name, "-"}), names);
        if (command->arguments.name != u"KIND")
            continue;
        for (const QCommandLineOption &option : Tool::optionsOf(*command)) {
            for (const QString &dashed : Usage::dashedNames(option)) {
                const QStringList before =
                    option.valueName().isEmpty() ? QStringList{name, dashed} : QStringList{name, dashed, "a"};
                QCOMPARE(offered(before + QStringList("Jo")), QStringList("Job"));
            }
        }
    }
}

void CompletionTest::bashLeavesFilesToTheShell()
{
    if (isMissing("bash")) {
        skip("there is no bash");
        return;
    }
    for (const QStringList &words :
         {QStringList{"check", "a.xml", ""}, QStringList{"show", ""}, QStringList{"table", ""},
          QStringList{"diff", "a.xml", ""}, QStringList{"format", "-o", ""},
          QStringList{"check", "--baseline", ""}, QStringList{"new", "Job", "-o", ""}})
        QCOMPARE(offered(words), QStringList());
    QVERIFY(outputOf("bash", ". '" + ForBash + "'; complete -p kormak").contains("-o default"));
}

void CompletionTest::fieldsAndValues_data()
{
    QTest::addColumn<QString>("shell");
    QTest::addColumn<QString>("path");

    QTest::newRow("bash") << "bash" << ForBash;
    QTest::newRow("zsh") << "zsh" << ForZsh;
}

/// Both shells know all fields, and what can be listed of their values.
void CompletionTest::fieldsAndValues()
{
    QFETCH(QString, shell);
    QFETCH(QString, path);

    if (isMissing(shell.toLatin1().constData())) {
        skip("there is no such shell");
        return;
    }
    // Without what only a completion can do.
    const QString load = "eval \"$(grep -v '^_kormak \"\\$@\"$' '" + path + "')\"; ";
    const QStringList kinds = documentKindNames();
    for (const QString &kind : kinds) {
        QStringList paths;
        QString script = load;
        QString values;
        for (const SettableField &field : settableFields(*findDocumentKind(kind))) {
            paths << field.path;
            script += "echo '" + field.path + "'; _kormak_values " + kind + " '" + field.path + "'; ";
            values += field.path + '\n';
            const QStringList texts = field.row ? allowedTexts(field.row->type) : QStringList();
            for (const QString &text : texts)
                values += text + '\n';
        }
        QCOMPARE(outputOf(shell, load + "_kormak_all_fields " + kind), paths.join('\n') + '\n');
        QCOMPARE(outputOf(shell, script), values);
    }
    const QStringList behindKeys =
        outputOf(shell, load + "_kormak_fields GenericReceiver 'Parameter[a b].Enum.EnumValue[0].'")
            .split('\n');
    QVERIFY(behindKeys.contains("Parameter[a b].Enum.EnumValue[0].Key="));
    QVERIFY(behindKeys.contains("Parameter[a b].ValueType="));
    QCOMPARE(outputOf(shell, load + "_kormak_fields GenericReceiver P"), QString("Parameter[\n"));
}

void CompletionTest::zsh()
{
    QFile file(ForZsh);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll());
    QVERIFY(text.startsWith("#compdef kormak\n"));
    for (const Command *command : Tool::commands()) {
        QVERIFY(text.contains('\'' + command->name.toString() + ':' + command->summary.toString() + '\''));
        const QString cases =
            text.section("\n                " + command->name.toString() + ")\n", 1, 1).section(";;", 0, 0);
        for (const QCommandLineOption &option : Tool::optionsOf(*command)) {
            for (const QString &name : Usage::dashedNames(option))
                QVERIFY2(cases.contains(QRegularExpression("[)*]" + name + "[=+]?\\[")), qPrintable(name));
        }
        QVERIFY2(cases.contains(':' + command->arguments.name.toString() + ':'), qPrintable(cases));
    }
    QVERIFY(text.contains("'1:COMMAND:(" + Tool::commandNames().join(' ') + ")'"));
    if (isMissing("zsh")) {
        skip("there is no zsh");
        return;
    }
    QProcess process;
    process.start("zsh", {"-n", ForZsh});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.readAllStandardError(), QByteArray());
    QCOMPARE(process.exitCode(), 0);
}

void CompletionTest::isFilledIn_data()
{
    fieldsAndValues_data();
}

/// Nothing is left of what only the templates hold.
void CompletionTest::isFilledIn()
{
    QFETCH(QString, path);

    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll());
    QVERIFY(text.contains("_kormak() {\n"));
    QCOMPARE(QRegularExpression("@[A-Z_]+@|shellcheck").match(text).captured(), QString());
}

void CompletionTest::shellCheck_data()
{
    QTest::addColumn<QString>("path");

    QTest::newRow("for bash") << ForBash;
    QTest::newRow("template for bash") << SOURCE_DIR "/tools/completions/kormak.bash.in";
    QTest::newRow("template of both shells") << SOURCE_DIR "/tools/completions/fields.sh.in";
}

void CompletionTest::shellCheck()
{
    QFETCH(QString, path);

    if (isMissing("shellcheck")) {
        skip("there is no ShellCheck");
        return;
    }
    QProcess process;
    process.start("shellcheck", {"--norc", "--shell=bash", path});
    QVERIFY(process.waitForFinished());
    QCOMPARE(QString::fromUtf8(process.readAllStandardOutput() + process.readAllStandardError()), QString());
    QCOMPARE(process.exitCode(), 0);
}

QTEST_GUILESS_MAIN(CompletionTest)
#include "CompletionTest.moc"
