// Reading a document from a file: its text, its kind, its object, or what is wrong and where.
#ifndef KORMAK_TOOLS_DOCUMENTFILE_H
#define KORMAK_TOOLS_DOCUMENTFILE_H

#include <inspection/ParsedDocument_p.h>
#include <objectbase/ReadingLimits.h>
#include <tools/Command.h>
#include <tools/InputFile.h>

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <functional>
#include <map>
#include <optional>
#include <tuple>

struct FileDocument : KORMAK::Inspection::ParsedDocument {
    InputFile::State source = {}; ///< the file that it was read from, as it was then
    QByteArray bytes = {}; ///< of the file
};

/// The text of a file, as a document holds it.
struct SourceText {
    QByteArray bytes = {}; ///< of the file
    QByteArray text = {}; ///< without a byte-order mark and a declared encoding
    InputFile::State source = {};
    KORMAK::Inspection::Findings findings = {}; ///< what there is to tell of its bytes
};

/// The checked text of the file \a path, "-" being standard input. \throws DocumentError
[[nodiscard]] SourceText readText(const QString &path);
/// What is done with a document that the library does not read to its end.
enum class Unread {
    Complained, ///< it is complained about
    Used, ///< its object has what can be read
};

/// The document in the file \a path, read but not checked, of any kind or of the one that is expected.
/// \throws DocumentError
[[nodiscard]] FileDocument readDocument(const QString &path, const TESSEL::ReadingLimits &limits,
                                        Unread unread = Unread::Complained, const QString &expectedKind = {});

/// Does \a work on the file \a path. When it throws a DocumentError or runs out of memory, that is complained
/// about.
[[nodiscard]] ExitStatus onFile(const QString &path, const std::function<ExitStatus()> &work);

/// One line "FILE:LINE:COLUMN: SEVERITY: PATH: MESSAGE" for each finding.
void complainAbout(const QString &path, const FileDocument &document, QStringView severity,
                   const KORMAK::Inspection::Findings &findings);

/// The line of a complaint about the file \a path, and about a place in it if there is one.
[[nodiscard]] QString complaintLine(const QString &path,
                                    const std::optional<KORMAK::Inspection::TextPosition> &position,
                                    QStringView severity, const QString &message);

/// The notes behind findings on what is allowed: a few names, and where the others are. That on a name in a
/// vocabulary is made once for all findings of it.
class AllowedNotes {
public:
    /// In parentheses behind a blank; empty when there is nothing to tell.
    [[nodiscard]] QString of(const KORMAK::Inspection::FindingData &finding);

private:
    struct Name {
        QString vocabulary;
        QString text; ///< in place of a name
        bool isSuggested; ///< which one was meant
        friend bool operator<(const Name &a, const Name &b)
        {
            return std::tie(a.vocabulary, a.text, a.isSuggested)
                < std::tie(b.vocabulary, b.text, b.isSuggested);
        }
    };

    std::map<Name, QString> ofNames;
};

/// The same for a finding, with a few of the names that are allowed.
[[nodiscard]] QString complaintLine(const QString &path,
                                    const std::optional<KORMAK::Inspection::TextPosition> &position,
                                    QStringView severity, const KORMAK::Inspection::FindingData &finding,
                                    AllowedNotes &notes);
[[nodiscard]] QString complaintLine(const QString &path,
                                    const std::optional<KORMAK::Inspection::TextPosition> &position,
                                    QStringView severity, const KORMAK::Inspection::FindingData &finding);

/// What is said of a file when memory ran out over it.
inline constexpr QStringView NotEnoughMemory = u"not enough memory";

/// The file at \a path as complaints name it, with the message.
void complainAbout(const QString &path, const KORMAK::Inspection::DocumentError &error);

#endif
