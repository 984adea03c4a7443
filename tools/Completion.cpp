#include "tools/Completion.h"

#include <tools/DocumentKind.h>
#include <tools/FieldAssignment.h>
#include <tools/NameLists.h>
#include <tools/OutputFormat.h>
#include <tools/Tool.h>
#include <tools/Usage.h>

#include <QStringList>

#include <algorithm>
#include <vector>

namespace {

/// What can stand for a value that the help calls by a name.
struct Value {
    enum class Kind { Any, File, Field, Word };

    Kind kind;
    QStringList words = {};
};

/// A name that the help uses and that is not known here ends the build.
Value valueCalled(const QString &name)
{
    if (name == FileName || name == PathName || name == QStringView(u"OUT"))
        return {Value::Kind::File};
    if (name == QStringView(u"FIELD=VALUE"))
        return {Value::Kind::Field};
    if (name == QStringView(u"FORMAT"))
        return {Value::Kind::Word, outputFormatNames()};
    if (name == QStringView(u"KIND"))
        return {Value::Kind::Word, documentKindNames()};
    if (name == QStringView(u"VOCABULARY"))
        return {Value::Kind::Word, nameListNames()};
    if (name != QStringView(u"N"))
        qFatal("There is no completion for %s", qPrintable(name));
    return {Value::Kind::Any};
}

QString quoted(QString text)
{
    return QLatin1Char('\'') + text.replace(QLatin1Char('\''), QStringLiteral("'\\''")) + QLatin1Char('\'');
}

QString quoted(const QStringList &texts)
{
    QStringList all;
    for (const QString &text : texts)
        all += quoted(text);
    return all.join(QLatin1Char(' '));
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
        for (const SettableField &field : settableFields(*findDocumentKind(kind)->fields))
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
        for (const SettableField &field : settableFields(*findDocumentKind(kind)->fields)) {
            if (field.texts.isEmpty())
                continue;
            auto same = std::find_if(all.begin(), all.end(),
                                     [&field](const Texts &row) { return row.texts == field.texts; });
            if (same == all.end())
                same = all.insert(same, {{}, field.texts});
            same->patterns += patternOf(kind, field.path);
        }
    }
    QString cases;
    for (const Texts &row : all)
        cases += caseOf(row.patterns.join(QStringLiteral(" | ")), printing(row.texts));
    return cases;
}

QString functions()
{
    return QStringLiteral(R"sh(# The fields of a KIND that can be set; N stands for an index, NAME for a name.
_kormak_all_fields() {
    case $1 in
%1    esac
}

# What the FIELD of a KIND can be set to, where that can be listed.
_kormak_values() {
    case $1:$2 in
%2    esac
}

# The fields of a KIND, each up to the first bracket that is not in TYPED, else with "=".
_kormak_fields() {
    local begin rest end
    _kormak_all_fields "$1" | while IFS= read -r end; do
        begin='' rest=$2
        while [[ $end == *\]* && $rest == *\]* ]]; do
            rest=${rest#*\[}
            begin=$begin${end%%\[*}[${rest%%\]*}]
            rest=${rest#*\]} end=${end#*\]}
        done
        if [[ $end == *\[* ]]; then
            end=${end%%\[*}[
        else
            end=$end=
        fi
        printf '%s\n' "$begin$end"
    done | uniq
}
)sh")
        .arg(fieldCases(), valueCases());
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
        const QString words = bashWords(valueCalled(arguments.name.toString()));
        cases += caseOf(bashPattern(*command, {QString()}),
                        arguments.most == 1 ? QStringLiteral("[[ $3 ]] || ") + words : words);
        const QList<QCommandLineOption> options = Tool::optionsOf(*command);
        for (const QCommandLineOption &option : options) {
            if (!option.valueName().isEmpty())
                cases += caseOf(bashPattern(*command, Usage::dashedNames(option)),
                                bashWords(valueCalled(option.valueName())));
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
QString zshValue(const QString &name)
{
    const Value value = valueCalled(name);
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

QStringList zshOptions(const QList<QCommandLineOption> &options)
{
    QStringList rows;
    for (const QCommandLineOption &option : options) {
        const QString valueName = option.valueName();
        const QStringList names = Usage::dashedNames(option);
        const bool isRepeated = !valueName.isEmpty() && valueCalled(valueName).kind == Value::Kind::Field;
        const QString start = isRepeated ? QStringLiteral("*")
                                         : QLatin1Char('(') + names.join(QLatin1Char(' ')) + QLatin1Char(')');
        for (const QString &name : names) {
            const QString join = valueName.isEmpty()    ? QString()
                : name.startsWith(QStringLiteral("--")) ? QStringLiteral("=")
                                                        : QStringLiteral("+");
            rows += start + name + join + QLatin1Char('[') + zshText(option.description()) + QLatin1Char(']')
                + (valueName.isEmpty() ? QString() : zshValue(valueName));
        }
    }
    return rows;
}

/// A command of a shell with each of its arguments on a line of its own.
QString zshCall(const QString &command, const QStringList &arguments, const QString &indent)
{
    QString call = indent + command;
    for (const QString &argument : arguments)
        call += QStringLiteral(" \\\n    ") + indent + quoted(argument);
    return call;
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
        const QStringList rows = zshOptions(Tool::optionsOf(*command))
            << start + zshValue(command->arguments.name.toString());
        cases += QStringLiteral("                ") + command->name.toString() + QStringLiteral(")\n")
            + zshCall(QStringLiteral("_arguments"), rows, QString(20, QLatin1Char(' ')))
            + QStringLiteral("\n                    ;;\n");
    }
    return cases;
}

} // namespace

QString Completion::forBash()
{
    return QStringLiteral("# What bash completes the calls of kormak with.\n\n") + functions()
        + QStringLiteral(R"sh(
# FIELD= as far as it is TYPED for a KIND, then FIELD=VALUE.
_kormak_settings() {
    local value
    if [[ $2 != *=* ]]; then
        _kormak_fields "$1" "$2"
    else
        _kormak_values "$1" "${2%%=*}" | while IFS= read -r value; do
            printf '%s\n' "${2%%=*}=$value"
        done
    fi
}

# What can stand behind COMMAND and OPTION, either of which may be empty, with the ARGUMENT that is there already.
# Fails where it is a file.
_kormak_words() {
    case $1:$2 in
)sh") + bashWordCases()
        + QStringLiteral(R"sh(    esac
}

_kormak_options() {
    case $1 in
)sh") + bashOptionCases()
        + QStringLiteral(R"sh(    esac
}

_kormak() {
    # Bash takes words apart at "=".
    local words=() i word last=''
    for ((i = 1; i <= COMP_CWORD; ++i)); do
        word=${COMP_WORDS[i]}
        if ((${#words[@]} > 0)) && [[ $word == '=' || $last == '=' ]]; then
            words[${#words[@]} - 1]+=$word
        else
            words+=("$word")
        fi
        last=$word
    done

    local typed=${words[${#words[@]} - 1]} command='' argument='' option=''
    for word in "${words[@]:0:${#words[@]} - 1}"; do
        if [[ $option ]]; then
            option=''
        elif [[ $word == -?* ]]; then
            case $command:$word in
                )sh")
        + bashValueOptions() + QStringLiteral(R"sh() option=$word ;;
            esac
        elif [[ ! $command ]]; then
            command=$word
        elif [[ ! $argument ]]; then
            argument=$word
        fi
    done

    local prefix='' quote=''
    if [[ ! $option && $typed == --*=* ]]; then
        option=${typed%%=*} prefix=$option= typed=${typed#*=}
    fi
    if [[ $typed == [\'\"]* ]]; then
        quote=${typed:0:1} prefix='' typed=${typed:1}
    else
        typed=${typed//\\/}
    fi

    COMPREPLY=()
    local offered
    if [[ ! $option && $typed == -* ]]; then
        offered=$(_kormak_options "$command")
    else
        offered=$(_kormak_words "$command" "$option" "$argument" "$typed") || return 0
    fi
    compopt +o default 2>/dev/null
    local behind=''
    if [[ ! $quote && $prefix$typed == *=* && $COMP_WORDBREAKS == *=* ]]; then
        behind=$prefix$typed
        behind=${behind%=*}=
    fi
    while IFS= read -r word; do
        [[ $word && $word == "$typed"* ]] || continue
        [[ $word != *[=[] ]] || compopt -o nospace 2>/dev/null
        word=$prefix$word
        word=${word#"$behind"}
        [[ $quote ]] || printf -v word %q "$word"
        COMPREPLY+=("$word")
    done <<<"$offered"
}

complete -o default -F _kormak kormak
)sh");
}

QString Completion::forZsh()
{
    return QStringLiteral("#compdef kormak\n# What zsh completes the calls of kormak with.\n\n") + functions()
        + QStringLiteral(R"sh(
# FIELD=VALUE of the kind that is among the words.
_kormak_setting() {
    local kind='' word typed=${(Q)PREFIX}
    local -a matches
    for word in $words; do
        [[ -z $kind && -n $(_kormak_all_fields $word) ]] && kind=$word
    done
    if [[ $typed == *=* ]]; then
        matches=(${(f)"$(_kormak_values "$kind" "${typed%%=*}")"})
        compset -P '*='
        compadd -a matches
    else
        matches=(${(f)"$(_kormak_fields "$kind" "$typed")"})
        compadd -S '' -a matches
    fi
}

_kormak() {
    local curcontext=$curcontext state
    local -a line commands
    local -A opt_args
)sh")
        + zshCall(QStringLiteral("_arguments -C"),
                  zshOptions(Tool::options())
                      << QStringLiteral("1:COMMAND:->command") << QStringLiteral("*::ARGUMENT:->argument"),
                  QStringLiteral("    "))
        + QStringLiteral(R"sh( && return
    case $state in
        command)
            commands=()sh")
        + zshCommands() + QStringLiteral(R"sh()
            _describe COMMAND commands
            ;;
        argument)
            case $words[1] in
)sh") + zshCommandCases()
        + QStringLiteral(R"sh(            esac
            ;;
    esac
}

_kormak "$@"
)sh");
}
