#include "tools/DocumentFile.h"

#include <inspection/QuotedText_p.h>
#include <inspection/Remedy_p.h>
#include <tools/Console.h>
#include <tools/LimitOptions.h>
#include <tools/PathEncoding.h>
#include <tools/Terminal.h>

#include <new>
#include <utility>

using namespace KORMAK::Inspection;

namespace {

InputFile::Content readBytes(const QString &path)
{
    try {
        return InputFile::read(path);
    } catch (const InputFile::Error &error) {
        throw DocumentError{QStringLiteral("cannot be read: ") + error.reason};
    }
}

/// The call that lists all the names that are allowed; empty when there is none.
QString callThatLists(const FindingData &finding)
{
    if (!finding.vocabulary.isEmpty())
        return QStringLiteral("kormak list ") + finding.vocabulary.toString();
    const QString kind = finding.path.section(QLatin1Char('/'), 0, 0).section(QLatin1Char('['), 0, 0);
    return findDocumentKind(kind) ? QStringLiteral("kormak new %1 --list-fields").arg(kind) : QString();
}

QString textInPlaceOfName(const FindingData &finding)
{
    return finding.unknownName.isEmpty() ? finding.found.value_or(QString()) : finding.unknownName;
}

/// A few names, and where the others are, in parentheses behind a blank. Who is told what to write needs no
/// names that are like it.
QString noteOnAllowed(const FindingData &finding)
{
    if (finding.allowed.isEmpty())
        return {};
    const auto [names, more] = excerptOf(finding.allowed, textInPlaceOfName(finding));
    const QString call = callThatLists(finding);
    if (more > 0 && !finding.suggestion.isEmpty())
        return call.isEmpty() ? call : QStringLiteral(" (all names: %1)").arg(call);
    QString text = QStringLiteral(" (allowed: ") + oneLine(names.join(QStringLiteral(", ")));
    if (more > 0)
        text += QStringLiteral("; %1 more").arg(more) + (call.isEmpty() ? call : QStringLiteral(": ") + call);
    return text + QLatin1Char(')');
}

} // namespace

SourceText readText(const QString &path)
{
    const InputFile::Content content = readBytes(path);
    Findings findings;
    const QByteArray text = checkedText(content.bytes, &findings);
    return {content.bytes, text, content.state, std::move(findings)};
}

FileDocument readDocument(const QString &path, const TESSEL::ReadingLimits &limits, Unread unread,
                          const QString &expectedKind)
{
    const SourceText source = readText(path);
    FileDocument document{documentOf(source.text, limits, expectedKind), source.source, source.bytes};
    if (document.rejection && unread == Unread::Complained)
        throwRejection(*document.rejection, document.text);
    return document;
}

ExitStatus onFile(const QString &path, const std::function<ExitStatus()> &work)
{
    try {
        return work();
    } catch (const DocumentError &error) {
        complainAbout(path, error);
        return error.position ? Faulty : Failed;
    } catch (const std::bad_alloc &) {
        complainAbout(path, {NotEnoughMemory.toString()});
        return Failed;
    }
}

ExitStatus onDocument(const QString &path, const TESSEL::ReadingLimits &limits,
                      const std::function<ExitStatus(FileDocument &)> &work, Unread unread)
{
    return onFile(path, [&] {
        FileDocument document = readDocument(path, limits, unread);
        return work(document);
    });
}

void complainAbout(const QString &path, const FileDocument &document, QStringView severity,
                   const Findings &findings)
{
    if (findings.empty())
        return;
    TextPositions positions(document.text);
    AllowedNotes notes;
    for (const FindingData &finding : findings)
        Console::complain(complaintLine(path, positions.at(finding.offset), severity, finding, notes));
}

QString AllowedNotes::of(const FindingData &finding)
{
    constexpr std::size_t Most = 256; // of a document that has more of them, few are alike
    if (finding.vocabulary.isEmpty())
        return noteOnAllowed(finding);
    const Name name{finding.vocabulary.toString(), textInPlaceOfName(finding), !finding.suggestion.isEmpty()};
    const auto known = ofNames.find(name);
    if (known != ofNames.end())
        return known->second;
    if (ofNames.size() == Most)
        ofNames.clear();
    return ofNames.emplace(name, noteOnAllowed(finding)).first->second;
}

QString complaintLine(const QString &path, const std::optional<TextPosition> &position, QStringView severity,
                      const FindingData &finding, AllowedNotes &notes)
{
    const QString place = finding.path.isEmpty() ? QString() : finding.path + QStringLiteral(": ");
    return complaintLine(path, position, severity, place + finding.message) + notes.of(finding);
}

QString complaintLine(const QString &path, const std::optional<TextPosition> &position, QStringView severity,
                      const FindingData &finding)
{
    AllowedNotes notes;
    return complaintLine(path, position, severity, finding, notes);
}

void complainAbout(const QString &path, const DocumentError &error)
{
    FindingData finding{0, withOption(error.message, error.limit)};
    finding.allowed = error.allowed;
    Console::complain(complaintLine(path, error.position, u"error", finding));
}

QString complaintLine(const QString &path, const std::optional<TextPosition> &position, QStringView severity,
                      const QString &message)
{
    QString line = PathEncoding::shown(path);
    if (position)
        line += QLatin1Char(':') + toText(*position);
    line += QStringLiteral(": ") + Terminal::coloured(severity) + QStringLiteral(": ")
        + PathEncoding::shown(message);
    return line;
}
