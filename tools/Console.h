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

} // namespace Console

#endif
