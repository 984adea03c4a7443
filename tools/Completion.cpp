#include "tools/Completion.h"

#include <inspection/DocumentKind_p.h>
#include <inspection/DocumentTexts_p.h>
#include <inspection/FieldListing_p.h>
#include <inspection/NameLists_p.h>
#include <objectbase/QtCompat_p.h>
#include <tools/OutputFormat.h>
#include <tools/ReportOrder.h>
#include <tools/SeveritySettings.h>
#include <tools/TableFields.h>
#include <tools/Tool.h>
#include <tools/Usage.h>

#include <QMap>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <vector>

using namespace KORMAK::Inspection;

namespace {

/// What can stand for a value that the help calls by a name.
struct Value {
    enum class Kind { Any, File, Field, Word };

    Kind kind;
    QStringList words = {};
};

/// A name that the help uses and that is not known here ends the build.
Value valueCalled(const QString &name, const Command &command)
{
    if (name == FileName || name == PathName || name == QStringView(u"OUT"))
        return {Value::Kind::File};
    if (name == QStringView(u"COMMAND"))
        return {Value::Kind::Word, Tool::commandNames()};
    if (name == QStringView(u"FIELD=VALUE"))
        return {Value::Kind::Field};
    if (name == QStringView(u"FORMAT"))
        return {Value::Kind::Word, outputFormatNames(command.formats)};
    if (name == ReportOrder::ValueName)
        return {Value::Kind::Word, ReportOrder::names()};
    if (name == SettingOfSeverity)
        return {Value::Kind::Word, SeveritySettings::optionValues()};
    if (name == PartName)
        return {Value::Kind::Word, Table::partNames()};
    if (name == KindName)
        return {Value::Kind::Word, documentKindNames()};
    if (name == QStringView(u"VOCABULARY"))
        return {Value::Kind::Word, nameListNames()};
    if (name != QStringView(u"N") && name != QStringView(u"FIELD") && name != ParameterName
        && name != ConditionName && name != ManyFields)
        qFatal("There is no completion for %s", qPrintable(name));
    return {Value::Kind::Any};
}

QString quoted(QString text)
{
    return QLatin1Char('\'') + text.replace(QLatin1Char('\''), QStringLiteral("'\\''")) + QLatin1Char('\'');
}

QString quoted(const QStringList &texts, const QString &between = QStringLiteral(" "))
{
    QStringList all;
    for (const QString &text : texts)
        all += quoted(text);
    return all.join(between);
}

/// One case of a shell.
QString caseOf(const QString &patterns, const QString &command)
{
    return QStringLiteral("        ") + patterns + QStringLiteral(")\n            ") + command
        + QStringLiteral("\n            ;;\n");
}

QString printing(const QStringList &texts)
{
    return QStringLiteral("printf '%s\\n' ") + quoted(texts);
}

// What both shells ask

QString fieldCases()
{
    QString cases;
    const QStringList kinds = documentKindNames();
    for (const QString &kind : kinds) {
        QStringList paths;
        for (const SettableField &field : settableFields(*findDocumentKind(kind)))
            paths += field.path;
        cases += caseOf(kind, printing(paths));
    }
    return cases;
}

/// A pattern for the path of a field, any text standing for an index or a name.
QString patternOf(const QString &kind, const QString &path)
{
    QString pattern = quoted(kind + QLatin1Char(':') + path);
    for (const QString &key : {QStringLiteral("[N]"), QStringLiteral("[NAME]")})
        pattern.replace(key, QStringLiteral("['*']"));
    return pattern;
}

QString valueCases()
{
    struct Texts {
        QStringList patterns;
        QStringList texts;
    };
    std::vector<Texts> all;
    const QStringList kinds = documentKindNames();
    for (const QString &kind : kinds) {
        for (const SettableField &field : settableFields(*findDocumentKind(kind))) {
            const QStringList texts = field.row ? allowedTexts(field.row->type) : QStringList();
            if (texts.isEmpty())
                continue;
            auto same = std::find_if(all.begin(), all.end(),
                                     [&texts](const Texts &row) { return row.texts == texts; });
            if (same == all.end())
                same = all.insert(same, {{}, texts});
            same->patterns += patternOf(kind, field.path);
        }
    }
    QString cases;
    for (const Texts &row : all)
        cases += caseOf(row.patterns.join(QStringLiteral(" | ")), printing(row.texts));
    return cases;
}

// Bash

/// "check:--jobs | check:-j"
QString bashPattern(const Command &command, const QStringList &options)
{
    QStringList patterns;
    for (const QString &option : options)
        patterns += command.name.toString() + QLatin1Char(':') + option;
    return patterns.join(QStringLiteral(" | "));
}

QStringList namesOf(const QList<QCommandLineOption> &options)
{
    QStringList names;
    for (const QCommandLineOption &option : options)
        names += Usage::dashedNames(option);
    return names;
}

QString bashWords(const Value &value)
{
    switch (value.kind) {
    case Value::Kind::File:
        return QStringLiteral("return 1");
    case Value::Kind::Field:
        return QStringLiteral("_kormak_settings \"$3\" \"$4\"");
    case Value::Kind::Word:
        return printing(value.words);
    case Value::Kind::Any:
        break;
    }
    return QStringLiteral(":");
}

QString bashWordCases()
{
    QString cases = caseOf(QStringLiteral(":"), printing(Tool::commandNames()));
    for (const Command *command : Tool::commands()) {
        const Arguments &arguments = command->arguments;
        const QString words = bashWords(valueCalled(arguments.name.toString(), *command));
        cases += caseOf(bashPattern(*command, {QString()}),
                        arguments.most == 1 ? QStringLiteral("[[ $3 ]] || ") + words : words);
        const QList<QCommandLineOption> options = Tool::optionsOf(*command);
        for (const QCommandLineOption &option : options) {
            if (!option.valueName().isEmpty())
                cases += caseOf(bashPattern(*command, Usage::dashedNames(option)),
                                bashWords(valueCalled(option.valueName(), *command)));
        }
    }
    return cases;
}

QString bashOptionCases()
{
    QString cases = caseOf(QStringLiteral("''"), printing(namesOf(Tool::options())));
    for (const Command *command : Tool::commands())
        cases += caseOf(command->name.toString(), printing(namesOf(Tool::optionsOf(*command))));
    return cases;
}

/// Those that a value follows.
QString bashValueOptions()
{
    QStringList patterns;
    for (const Command *command : Tool::commands()) {
        const QList<QCommandLineOption> options = Tool::optionsOf(*command);
        for (const QCommandLineOption &option : options) {
            if (!option.valueName().isEmpty())
                patterns += bashPattern(*command, Usage::dashedNames(option));
        }
    }
    return patterns.join(QStringLiteral(" | "));
}

// Zsh

/// A text in what _arguments is told.
QString zshText(QString text)
{
    for (const QChar special : {QLatin1Char('\\'), QLatin1Char('['), QLatin1Char(']'), QLatin1Char(':')})
        text.replace(special, QLatin1Char('\\') + QString(special));
    return text;
}

/// ":NAME:what completes it"
QString zshValue(const QString &name, const Command &command)
{
    const Value value = valueCalled(name, command);
    const QString start = QLatin1Char(':') + zshText(name) + QLatin1Char(':');
    switch (value.kind) {
    case Value::Kind::File:
        return start + QStringLiteral("_files");
    case Value::Kind::Field:
        return start + QStringLiteral("_kormak_setting");
    case Value::Kind::Word:
        return start + QLatin1Char('(') + value.words.join(QLatin1Char(' ')) + QLatin1Char(')');
    case Value::Kind::Any:
        break;
    }
    return start + QLatin1Char(' ');
}

/// \a command: whose they are.
QStringList zshOptions(const QList<QCommandLineOption> &options, const Command &command)
{
    QStringList rows;
    for (const QCommandLineOption &option : options) {
        const QString valueName = option.valueName();
        const QStringList names = Usage::dashedNames(option);
        const bool isRepeated = valueName == ParameterName || valueName == ConditionName
            || valueName == SettingOfSeverity
            || (!valueName.isEmpty() && valueCalled(valueName, command).kind == Value::Kind::Field);
        const QString start = isRepeated ? QStringLiteral("*")
                                         : QLatin1Char('(') + names.join(QLatin1Char(' ')) + QLatin1Char(')');
        for (const QString &name : names) {
            const QString join = valueName.isEmpty()    ? QString()
                : name.startsWith(QStringLiteral("--")) ? QStringLiteral("=")
                                                        : QStringLiteral("+");
            rows += start + name + join + QLatin1Char('[') + zshText(option.description()) + QLatin1Char(']')
                + (valueName.isEmpty() ? QString() : zshValue(valueName, command));
        }
    }
    return rows;
}

QString zshToolOptions()
{
    return quoted(zshOptions(Tool::options(), helpCommand), QStringLiteral(" \\\n        "));
}

QString zshCommands()
{
    QStringList rows;
    for (const Command *command : Tool::commands())
        rows += command->name.toString() + QLatin1Char(':') + command->summary.toString();
    return quoted(rows);
}

QString zshCommandCases()
{
    QString cases;
    for (const Command *command : Tool::commands()) {
        const QString start = command->arguments.most == 1 ? QStringLiteral("1") : QStringLiteral("*");
        const QStringList rows = zshOptions(Tool::optionsOf(*command), *command)
            << start + zshValue(command->arguments.name.toString(), *command);
        const QString between = QStringLiteral(" \\\n                        ");
        cases += QStringLiteral("                ") + command->name.toString()
            + QStringLiteral(")\n                    _arguments") + between + quoted(rows, between)
            + QStringLiteral("\n                    ;;\n");
    }
    return cases;
}

/// \a script with its value in the place of each @NAME@, and of the whole line if that is "# @NAME@"; lines
/// that speak to ShellCheck are left out. A name that has no value ends the build.
QString filled(const QString &script, const QMap<QString, QString> &values)
{
    static const QRegularExpression place(
        QStringLiteral("^ *# @([A-Z_]+)@\\n|@([A-Z_]+)@|^ *# shellcheck .*\\n"),
        QRegularExpression::MultilineOption);
    QString text;
    TESSEL::TextSize end = 0;
    for (auto matches = place.globalMatch(script); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        text += script.mid(end, match.capturedStart() - end);
        end = match.capturedEnd();
        if (match.lastCapturedIndex() == 0)
            continue;
        const QString name = match.captured(match.lastCapturedIndex());
        if (!values.contains(name))
            qFatal("There is nothing for @%s@", qPrintable(name));
        text += values[name];
    }
    return text + script.mid(end);
}

} // namespace

QString Completion::filledIn(const QString &script, const QString &fieldFunctions)
{
    QMap<QString, QString> values{
        {QStringLiteral("FIELD_CASES"), fieldCases()},
        {QStringLiteral("VALUE_CASES"), valueCases()},
        {QStringLiteral("WORD_CASES"), bashWordCases()},
        {QStringLiteral("OPTION_CASES"), bashOptionCases()},
        {QStringLiteral("VALUE_OPTIONS"), bashValueOptions()},
        {QStringLiteral("TOOL_OPTIONS"), zshToolOptions()},
        {QStringLiteral("COMMANDS"), zshCommands()},
        {QStringLiteral("COMMAND_CASES"), zshCommandCases()},
    };
    values.insert(QStringLiteral("FIELD_FUNCTIONS"), filled(fieldFunctions, values));
    return filled(script, values);
}
