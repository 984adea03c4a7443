// Reading a document from a file: its text, its kind, its object, or what is wrong and where.
#ifndef KORMAK_TOOLS_DOCUMENTFILE_H
#define KORMAK_TOOLS_DOCUMENTFILE_H

#include <objectbase/ITesselObject.h>
#include <tools/Command.h>
#include <tools/DocumentKind.h>
#include <tools/TextPosition.h>

#include <QString>
#include <QStringView>

#include <functional>
#include <memory>
#include <optional>

struct Document {
    QString text;
    const DocumentKind *kind;
    std::unique_ptr<TESSEL::ITesselObject> object;
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
};

/// The text of the file \a path, "-" being standard input. \throws DocumentError
[[nodiscard]] QString readText(const QString &path);
/// The kind of the document \a text. \throws DocumentError
[[nodiscard]] const DocumentKind &kindOf(const QString &text);
/// Reads the text of \a document into its object.
[[nodiscard]] std::optional<Rejection> readObject(Document &document);
/// What Check() says of \a document.
[[nodiscard]] std::optional<Rejection> checkObject(const Document &document);

/// All of that but the check. \throws DocumentError
[[nodiscard]] Document readDocument(const QString &path);

/// \throws DocumentError when Check() of the document throws, at the element that it is about
void checkDocument(const Document &document);

/// \throws DocumentError with \a message, at the root element
[[noreturn]] void throwAtRoot(const Document &document, const QString &message);

/// Whether \a document is complete and, if not, why: "Job, not complete: JobHeader: Please set Author"
[[nodiscard]] QString stateOf(const Document &document);

/// Does \a work on the document in the file \a path. When reading or \a work throws a DocumentError, that is
/// complained about.
[[nodiscard]] ExitStatus onDocument(const QString &path,
                                    const std::function<ExitStatus(const Document &)> &work);

/// One line "FILE:LINE:COLUMN: SEVERITY: PATH: MESSAGE" for each finding.
void complainAbout(const QString &path, const Document &document, QStringView severity,
                   const Findings &findings);

/// The line of a complaint about the file \a path, and about a place in it if there is one.
[[nodiscard]] QString complaintLine(const QString &path, const std::optional<TextPosition> &position,
                                    QStringView severity, const QString &message,
                                    const QStringList &allowed = {});
[[nodiscard]] QString complaintLine(const QString &path, const std::optional<TextPosition> &position,
                                    QStringView severity, const Finding &finding);

/// The file at \a path as complaints name it, with the message.
void complainAbout(const QString &path, const DocumentError &error);

#endif
