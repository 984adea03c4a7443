// Where the tool writes: results to standard output, complaints to standard error, both in UTF-8 whatever the
// locale.
#ifndef KORMAK_TOOLS_CONSOLE_H
#define KORMAK_TOOLS_CONSOLE_H

#include <QByteArray>
#include <QString>

namespace Console {

/// Standard output cannot be written; \a code is its errno.
struct OutputError {
    int code;
};

/// Writes \a text as it stands. \throws OutputError
void write(const QString &text);
/// The same for a text that is UTF-8 already. \throws OutputError
void writeBytes(const QByteArray &bytes);
/// Writes \a line and ends it. \throws OutputError
void print(const QString &line);
/// Writes out what is still held back. \throws OutputError
void flush();

/// Writes \a line to standard error, behind everything printed so far.
void complain(const QString &line);

/// Writes \a lines, in UTF-8 and each ended, likewise.
void complainInBytes(const QByteArray &lines);

/// Whether \a c cannot steer a terminal and ends no line.
[[nodiscard]] bool isHarmless(QChar c);
/// \a c as an escape that programs know, JSON included.
[[nodiscard]] QString escaped(QChar c);

/// \a text on one line, with nothing in it that could steer a terminal: control characters as escapes.
[[nodiscard]] QString oneLine(const QString &text);

/// \a text, cut when it is long.
[[nodiscard]] QString shortened(const QString &text);

/// \a text between quotation marks, on one line and cut when it is long.
[[nodiscard]] QString quoted(const QString &text);

} // namespace Console

#endif
