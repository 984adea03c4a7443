#include "tools/DocumentFile.h"

#include <tools/Console.h>
#include <tools/FindingText.h>
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
        return FindingText::noteOnAllowed(finding);
    const Name name{finding.vocabulary.toString(), FindingText::textInPlaceOfName(finding),
                    !finding.suggestion.isEmpty()};
    const auto known = ofNames.find(name);
    if (known != ofNames.end())
        return known->second;
    if (ofNames.size() == Most)
        ofNames.clear();
    return ofNames.emplace(name, FindingText::noteOnAllowed(finding)).first->second;
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
