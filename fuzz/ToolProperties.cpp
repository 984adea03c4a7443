#include "fuzz/ToolProperties.h"

#include <fuzz/LibraryReading.h>
#include <fuzz/Properties.h>
#include <inspection/QuotedText_p.h>
#include <objectbase/QtCompat_p.h>
#include <tools/Command.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTemporaryDir>

using namespace KORMAK::Inspection;

namespace Fuzz {

namespace {

/// A file for the tool.
class InputFile {
public:
    explicit InputFile(const QString &name) : path(folder().filePath(name)) { }

    const QString &holding(const QByteArray &bytes) const
    {
        QFile file(path);
        demand(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(),
               "there is room for temporary files");
        return path;
    }

private:
    static QTemporaryDir &folder()
    {
        static QTemporaryDir result;
        return result;
    }

    const QString path;
};

/// Whether \a xml holds a token that no object keeps, of any kind but \a allowed.
bool holdsMoreThanElements(const QByteArray &xml, QXmlStreamReader::TokenType allowed)
{
    QXmlStreamReader reader(TESSEL::decodeUtf8(xml));
    bool isFound = false;
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        isFound = isFound
            || (token != allowed
                && (token == QXmlStreamReader::Comment || token == QXmlStreamReader::ProcessingInstruction
                    || token == QXmlStreamReader::DTD));
    }
    return isFound;
}

/// Nothing in \a bytes can steer a terminal.
void demandHarmless(const QByteArray &bytes, const QString &property)
{
    const QString text = QString::fromUtf8(bytes);
    demand(text.toUtf8() == bytes, property + ": it is UTF-8");
    for (const QChar c : text)
        demand(c == QLatin1Char('\n') || isHarmless(c), property + ": " + text);
    demand(text.isEmpty() || text.endsWith(QLatin1Char('\n')), property + ": lines are ended");
}

QJsonObject jsonIn(const QByteArray &bytes)
{
    QJsonParseError error{};
    const QJsonDocument json = QJsonDocument::fromJson(bytes, &error);
    demand(error.error == QJsonParseError::NoError && json.isObject(),
           "JSON is an object: " + error.errorString() + '\n' + QString::fromUtf8(bytes));
    return json.object();
}

QList<QJsonObject> jsonLinesIn(const QByteArray &bytes)
{
    demand(bytes.endsWith('\n'), "lines of JSON are ended");
    QList<QJsonObject> objects;
    for (const QByteArray &line : bytes.chopped(1).split('\n'))
        objects.append(jsonIn(line));
    return objects;
}

void demandStatus(const ToolRun &run, bool isGood, const QString &property)
{
    demand((run.status == Good) == isGood,
           property + QStringLiteral("; status %1\n").arg(run.status) + QString::fromUtf8(run.complaints));
}

/// What was asked for is written, or it is told why not.
void demandAnswer(const ToolRun &run, const QString &property)
{
    demand(run.status == Good || !run.complaints.isEmpty(), property + ": a failure is explained");
    demand(run.status == Good || run.output.isEmpty(), property + ": what fails writes nothing");
    demandHarmless(run.complaints, property + ": complaints cannot steer a terminal");
}

void checkCheck(const Tool &tool, const QString &path, const LibraryReading &reading)
{
    const ToolRun asText = tool({"check", path});
    demandStatus(asText, reading.isAccepted, "'check' accepts what the library accepts");
    demandAnswer(asText, "check");
    demandHarmless(asText.output, "'check' writes nothing that steers a terminal");

    const ToolRun asJson = tool({"check", "--format", "json", path});
    demand(asJson.status == asText.status && asJson.complaints.isEmpty(), "JSON makes no difference");
    const QList<QJsonObject> lines = jsonLinesIn(asJson.output);
    const auto findings = lines.size() - 2;
    demand(findings >= 0 && lines.last().value("type") == "summary", "the last line sums up");
    const QJsonObject &file = lines.at(lines.size() - 2);
    demand(file.value("type") == "file" && file.value("findings").toInt() == findings
               && file.value("status") == (reading.isAccepted ? "good" : "faulty")
               && (!reading.isAccepted || file.value("complete").toBool() == reading.isComplete()),
           "the file is summed up: " + QString::fromUtf8(asJson.output));
    bool hasError = false;
    for (int i = 0; i < findings; ++i) {
        const QJsonObject &finding = lines.at(i);
        demand(finding.value("type") == "finding" && finding.value("line").toInt() >= 1
                   && finding.value("column").toInt() >= 1 && !finding.value("message").toString().isEmpty(),
               "a finding has a place and a message: " + QString::fromUtf8(asJson.output));
        hasError = hasError || finding.value("severity") == "error";
    }
    demand(hasError != reading.isAccepted, "an error is what the library refuses a document for");
    demand(asText.complaints.count('\n') == findings, "text tells as much as JSON");
}

void checkTable(const Tool &tool, const QString &path, const LibraryReading &reading)
{
    const ToolRun asText = tool({"table", path});
    demandStatus(asText, reading.isAccepted, "'table' has what the library accepts");
    demandAnswer(asText, "table");
    demandHarmless(asText.output, "'table' writes nothing that steers a terminal");

    const ToolRun asJson = tool({"table", "--format", "json", "--columns", "kind,complete", path});
    demand(asJson.status == asText.status && asJson.output.isEmpty() == asText.output.isEmpty(),
           "JSON makes no difference to 'table'");
    if (asJson.status != Good)
        return;
    const QList<QJsonObject> rows = jsonLinesIn(asJson.output);
    demand(rows.size() == 1 && rows.constFirst().value("kind") == reading.object->GetObjectName()
               && rows.constFirst().value("complete").toBool() == reading.isComplete(),
           "'table' has a row for a document: " + QString::fromUtf8(asJson.output));
    demand(tool({"table", "--format", "csv", path}).output.endsWith("\r\n"), "lines of CSV are ended");
}

void checkShow(const Tool &tool, const QString &path, const LibraryReading &reading)
{
    const ToolRun asText = tool({"show", path});
    demandStatus(asText, reading.isRead, "'show' shows what the library reads");
    demand(asText.status == Good || !asText.complaints.isEmpty(), "'show' tells what it stopped at");
    demandHarmless(asText.complaints, "complaints of 'show' cannot steer a terminal");
    demandHarmless(asText.output, "'show' writes nothing that steers a terminal");

    const ToolRun asJson = tool({"show", "--format", "json", path});
    demand(asJson.status == asText.status && asJson.output.isEmpty() == asText.output.isEmpty(),
           "JSON makes no difference");
    if (asJson.output.isEmpty())
        return;
    const QJsonObject shown = jsonIn(asJson.output);
    if (asJson.status != Good) {
        demand(shown.value("fields").isObject() && !shown.value("complete").toBool()
                   && !shown.value("reason").toString().isEmpty(),
               "'show' tells why a document is refused: " + QString::fromUtf8(asJson.output));
        return;
    }
    demand(shown.value("kind") == reading.object->GetObjectName() && shown.value("fields").isObject()
               && shown.value("complete").toBool() == reading.isComplete()
               && shown.value("reason").isNull() == reading.isComplete(),
           "'show' tells whether the document is complete: " + QString::fromUtf8(asJson.output));
}

/// Whatever a document says, its page is made of the elements that pages have.
void demandPage(const QByteArray &page)
{
    static const QStringList Elements =
        QString("html head meta title link style body header main section nav figure figcaption h1 h2 p ul "
                "ol li table "
                "caption thead tbody tr th td a code small span strong br div svg path line rect circle text")
            .split(QLatin1Char(' '));
    static const QRegularExpression tag("<(?!!DOCTYPE html>)/?([^ >]*)( [a-zA-Z0-9-]+=\"[^\"]*\")*>|<");
    const QString text = QString::fromUtf8(page);
    demand(text.toUtf8() == page && text.startsWith("<!DOCTYPE html>") && text.endsWith("</html>\n"),
           "a page is whole: " + text);
    const auto body = text.indexOf(QLatin1String("<body>"));
    for (auto tags = tag.globalMatch(text.mid(body)); tags.hasNext();) {
        const QString name = tags.next().captured(1);
        demand(Elements.contains(name), "a page has no other elements: " + name + " in " + text);
    }
}

void checkReport(const Tool &tool, const QString &path, const LibraryReading &reading)
{
    const ToolRun run = tool({"report", path});
    demandStatus(run, reading.isAccepted, "'report' accepts what the library accepts");
    demand(run.complaints.isEmpty(),
           "a document at fault has a page, too: " + QString::fromUtf8(run.complaints));
    demandPage(run.output);
}

/// The differences between two files that are told, the same as text and as JSON.
QJsonArray differencesToldBy(const Tool &tool, const QString &before, const QString &after)
{
    const ToolRun asText = tool({"diff", before, after});
    const ToolRun asJson = tool({"diff", "--format", "json", before, after});
    const QString told = QString::fromUtf8(asText.output + asText.complaints + asJson.output);
    demandHarmless(asText.output, "'diff' writes nothing that steers a terminal");
    const QJsonObject json = jsonIn(asJson.output);
    QJsonArray differences = json.value("differences").toArray();
    demand(json.value("equal").toBool() == differences.isEmpty() && asJson.status == asText.status
               && asText.status == (differences.isEmpty() ? Good : Faulty),
           "the status tells whether a field differs: " + told);
    const bool agrees = json.value("equalToLibrary") == json.value("equal");
    demand(asText.output.count('\n') == differences.size() + (agrees ? 0 : 1),
           "text tells as much as JSON: " + told);
    return differences;
}

void checkDiffWithItself(const Tool &tool, const QString &path, const LibraryReading &reading)
{
    if (!reading.isRead)
        demandStatus(tool({"diff", path, path}), false, "only what is read is compared");
    else
        demand(differencesToldBy(tool, path, path).isEmpty(), "a document does not differ from itself");
}

/// A document that was written anew says what it said, and what it left to defaults.
void checkDiffWithWritten(const Tool &tool, const QString &path, const QString &written)
{
    const QJsonArray differences = differencesToldBy(tool, path, written);
    for (const auto &difference : differences) {
        const QJsonObject object = difference.toObject();
        demand(object.contains("before") && object.value("before").isNull(),
               "nothing that was said is changed: " + QString::fromUtf8(QJsonDocument(object).toJson()));
    }
}

/// \a text was written by the tool.
void checkWritten(const Tool &tool, const QString &path, const QByteArray &text)
{
    const LibraryReading reading(text);
    demand(reading.isComplete(), "what the tool writes is complete: " + QString::fromUtf8(text));
    demandEqual(QString::fromUtf8(text), reading.object->GetXmlString(),
                "the tool writes as the library does");
    checkCheck(tool, path, reading);
    checkShow(tool, path, reading);
    const ToolRun again = tool({"format", path});
    demandStatus(again, true, "what was formatted is formatted without a loss");
    demandEqual(QString::fromUtf8(again.output), QString::fromUtf8(text),
                "what was formatted stays as it is");
}

void checkFormat(const Tool &tool, const QString &path, const QByteArray &bytes,
                 const LibraryReading &reading)
{
    static const InputFile formattedFile("formatted.xml");

    const ToolRun run = tool({"format", path});
    demandAnswer(run, "format");
    const ToolRun withoutComments = tool({"format", "--drop-comments", path});
    demand(run.status != Good || withoutComments.output == run.output,
           "without comments to lose, nothing else is lost");
    demand(run.status != Good || !holdsMoreThanElements(bytes, QXmlStreamReader::NoToken),
           "a comment is not lost without a word");
    if (withoutComments.status != Good)
        return;
    demand(!holdsMoreThanElements(bytes, QXmlStreamReader::Comment), "only comments may be dropped");
    demand(reading.isComplete(), "what is formatted is complete");
    const QString &formatted = formattedFile.holding(withoutComments.output);
    checkWritten(tool, formatted, withoutComments.output);
    checkDiffWithWritten(tool, path, formatted);
}

} // namespace

void checkToolOnDocument(const Tool &tool, const QByteArray &bytes)
{
    static const InputFile file("document.xml");

    const QString &path = file.holding(bytes);
    const LibraryReading reading(bytes);
    checkCheck(tool, path, reading);
    checkShow(tool, path, reading);
    checkReport(tool, path, reading);
    checkTable(tool, path, reading);
    checkFormat(tool, path, bytes, reading);
    checkDiffWithItself(tool, path, reading);
}

QStringList callOfNew(const QByteArray &bytes)
{
    QStringList lines = QString::fromUtf8(bytes).split(QLatin1Char('\n'));
    QStringList arguments{"new"};
    for (const QString &line : lines.mid(1))
        arguments << "--set=" + line;
    return arguments << "--" << lines.constFirst();
}

void checkToolOnAssignments(const Tool &tool, const QByteArray &bytes)
{
    static const InputFile file("new.xml");

    const ToolRun run = tool(callOfNew(bytes));
    demandAnswer(run, "new");
    if (run.status != Good)
        return;
    const QString &path = file.holding(run.output);
    const LibraryReading reading(run.output);
    checkCheck(tool, path, reading);
    checkShow(tool, path, reading);
    demand(reading.isComplete(), "what is made is complete");
    const ToolRun again = tool({"format", "--readable", path});
    demand(again.status == Good && again.output == run.output, "what is made is in the readable form");
}

} // namespace Fuzz
