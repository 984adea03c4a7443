// Reading a document from a file: its text, its kind, its object, or what is wrong and where.
#ifndef KORMAK_TOOLS_DOCUMENTFILE_H
#define KORMAK_TOOLS_DOCUMENTFILE_H

#include <objectbase/ITesselObject.h>
#include <objectbase/ReadingLimits.h>
#include <tools/Command.h>
#include <tools/DocumentKind.h>
#include <tools/InputFile.h>
#include <tools/TextPosition.h>

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <functional>
#include <memory>
#include <optional>

struct Document {
    QByteArray text; ///< in UTF-8
    XmlTree tree; ///< of the text, as far as it is wanted
    const DocumentKind *kind = nullptr;
    std::unique_ptr<TESSEL::ITesselObject> object; ///< of the kind
    InputFile::State source = {}; ///< the file that it was read from, as it was then
};

/// The text of a file, as Document holds it.
struct SourceText {
    QByteArray text;
    InputFile::State source = {};
};

/// Why a document cannot be used. Without a position it is not the document that is at fault: the file cannot
/// be read.
struct DocumentError {
    QString message;
    std::optional<TextPosition> position = std::nullopt;
    QStringView id = FindingId::Unreadable;
    QStringList allowed = {}; ///< the names that could be there
};

/// What the library refuses a document for.
struct Rejection {
    QString message;
    qsizetype offset; ///< of the element that it is about, or of what ended the reading
    QStringView id = FindingId::Refused;
};

/// The text of the file \a path, "-" being standard input: UTF-8 without a mark, without a NUL, and with no
/// encoding declared. \throws DocumentError
[[nodiscard]] SourceText readText(const QString &path);
/// The document that \a source is, with so much of its tree at least, and its object as a new one is. \throws
/// DocumentError when it goes beyond the limits, has no root element or is of no known kind
[[nodiscard]] Document documentOf(const SourceText &source, XmlTree::Extent extent,
                                  const TESSEL::ReadingLimits &limits);
/// Reads the text of \a document into its object. What is not well-formed is always refused.
[[nodiscard]] std::optional<Rejection> readObject(Document &document);
/// What Check() says of \a document.
[[nodiscard]] std::optional<Rejection> checkObject(const Document &document);

/// All of that but the check. \throws DocumentError
[[nodiscard]] Document readDocument(const QString &path, XmlTree::Extent extent,
                                    const TESSEL::ReadingLimits &limits);

/// \throws DocumentError when Check() of the document throws, at the element that it is about
void checkDocument(const Document &document);

/// \throws DocumentError with \a message, at the root element
[[noreturn]] void throwAtRoot(const Document &document, const QString &message);

/// Whether \a document is complete and, if not, why: "Job, not complete: JobHeader: Please set Author"
[[nodiscard]] QString stateOf(const Document &document);

/// Does \a work on the document in the file \a path. When reading or \a work throws a DocumentError or runs
/// out of memory, that is complained about.
[[nodiscard]] ExitStatus onDocument(const QString &path, XmlTree::Extent extent,
                                    const TESSEL::ReadingLimits &limits,
                                    const std::function<ExitStatus(Document &)> &work);

/// One line "FILE:LINE:COLUMN: SEVERITY: PATH: MESSAGE" for each finding.
void complainAbout(const QString &path, const Document &document, QStringView severity,
                   const Findings &findings);

/// The line of a complaint about the file \a path, and about a place in it if there is one.
[[nodiscard]] QString complaintLine(const QString &path, const std::optional<TextPosition> &position,
                                    QStringView severity, const QString &message,
                                    const QStringList &allowed = {});
[[nodiscard]] QString complaintLine(const QString &path, const std::optional<TextPosition> &position,
                                    QStringView severity, const Finding &finding);

/// What is said of a file when memory ran out over it.
inline constexpr QStringView NotEnoughMemory = u"not enough memory";

/// The file at \a path as complaints name it, with the message.
void complainAbout(const QString &path, const DocumentError &error);

#endif
