#include "tools/Manual.h"

#include <tools/Tool.h>
#include <tools/Usage.h>

#include <QDir>
#include <QStringList>

namespace {

/// A text as it stands, on a line of its own.
QString line(QString text)
{
    text.replace(QLatin1Char('\\'), QStringLiteral("\\e"));
    text.replace(QLatin1Char('-'), QStringLiteral("\\-"));
    text.replace(QLatin1Char('\''), QStringLiteral("\\(aq"));
    const bool isRequest = text.startsWith(QLatin1Char('.'));
    return (isRequest ? QStringLiteral("\\&") : QString()) + text + QLatin1Char('\n');
}

QString section(QStringView name)
{
    return QStringLiteral(".SH ") + line(name.toString());
}

QString bold(const QString &text)
{
    return QStringLiteral(".B ") + line(text);
}

/// What is said of \a name.
QString entry(const QString &name, const QString &meaning)
{
    return QStringLiteral(".TP\n") + bold(name) + line(meaning);
}

/// \a lines as they are broken.
QString verbatim(const QStringList &lines)
{
    QString text(QStringLiteral(".PP\n.RS\n.nf\n"));
    for (const QString &one : lines)
        text += line(one);
    return text + QStringLiteral(".fi\n.RE\n");
}

/// A description: the lines that begin with a blank stand as they are, behind what a paragraph begins with.
QString paragraphs(QStringView description)
{
    QString text;
    QStringList table;
    const QStringList lines = description.toString().split(QLatin1Char('\n'));
    for (const QString &one : lines) {
        if (one.startsWith(QLatin1Char(' '))) {
            table += one.mid(2);
            continue;
        }
        if (!table.isEmpty())
            text += verbatim(table);
        table.clear();
        if (!one.isEmpty())
            text += QStringLiteral(".PP\n") + line(one);
    }
    return table.isEmpty() ? text : text + verbatim(table);
}

QString optionEntries(const QList<QCommandLineOption> &options)
{
    QString text;
    for (const QCommandLineOption &option : options)
        text += entry(Usage::nameOf(option), option.description());
    return text;
}

QString exitEntries(const ExitTexts &texts)
{
    QString text;
    for (const TextLayout::Row &row : Usage::exitRows(texts))
        text += entry(row.name, row.meaning);
    return text;
}

QString example(QStringView calls)
{
    return verbatim(calls.toString().split(QLatin1Char('\n')));
}

QString commandSection(const Command &command)
{
    return QStringLiteral(".SS ") + line(Usage::callOf(command))
        + paragraphs(command.description.toString() + Usage::noteOnArguments(command))
        + QStringLiteral(".PP\nOptions:\n") + optionEntries(Tool::optionsOf(command))
        + QStringLiteral(".PP\nExit status:\n") + exitEntries(command.exitStatus)
        + QStringLiteral(".PP\nExample:\n") + example(command.example);
}

QString synopsis()
{
    QString text;
    for (const Command *command : Tool::commands())
        text += bold(QStringLiteral("kormak ") + Usage::callOf(*command)) + QStringLiteral(".br\n");
    return text + bold(QStringLiteral("kormak --help | --version"));
}

} // namespace

QString manualPage(const QString &version, const QString &dataFolder)
{
    const QString data =
        QDir::isAbsolutePath(dataFolder) ? dataFolder : QStringLiteral("PREFIX/") + dataFolder;
    // Without a date: the page of a version is always the same.
    QString text =
        QStringLiteral(".TH KORMAK 1 \"\" \"Kormak %1\" \"User Commands\"\n.nh\n.ad l\n").arg(version)
        + section(u"NAME") + QStringLiteral("kormak \\- ") + line(Tool::Summary.toString())
        + section(u"SYNOPSIS") + synopsis() + section(u"DESCRIPTION") + paragraphs(Tool::Description)
        + section(u"OPTIONS") + optionEntries(Tool::options()) + section(u"COMMANDS");
    for (const Command *command : Tool::commands())
        text += commandSection(*command);
    return text + section(u"EXIT STATUS") + exitEntries(Tool::ExitMeanings) + section(u"ENVIRONMENT")
        + entry(QStringLiteral("NO_COLOR"),
                QStringLiteral(
                    "If it is set and not empty, \"error\", \"warning\" and \"loss\" are not coloured. "
                    "In any case they are coloured only on a terminal."))
        + entry(QStringLiteral("TERM"),
                QStringLiteral("On a terminal that is called dumb nothing is coloured."))
        + section(u"FILES")
        + entry(data + QStringLiteral("/kormak/schemas/*.xsd"),
                QStringLiteral("The XML schemas, one for each kind of document, for editors and validators. "
                               "PREFIX is where Kormak is installed, such as /usr."))
        + entry(QStringLiteral("kormak.ini"),
                QStringLiteral(
                    "How much findings matter to check, for the documents in its folder and below."))
        + section(u"EXAMPLES") + QStringLiteral("Makes a job and checks it:\n") + example(Tool::Example);
}
