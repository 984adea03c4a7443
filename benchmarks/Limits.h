// What reading and writing cost at least with Qt: the tokens of a document without anything done with them,
// and the calls that write it without anything decided.
#ifndef BENCHMARKS_LIMITS_H
#define BENCHMARKS_LIMITS_H

#include <QString>
#include <QVector>

namespace Limits {

/// Reads \a document token by token and returns their number.
[[nodiscard]] long readTokens(const QString &document);

/// As readTokens(), and takes every attribute and the text of every leaf. Returns the number of characters.
[[nodiscard]] long readTexts(const QString &document);

/// The calls of a QXmlStreamWriter that write a document as the library does, with their arguments.
class Calls {
public:
    /// The calls that write \a document, which the library wrote.
    explicit Calls(const QString &document);

    /// Makes them; what they write is \a document again.
    [[nodiscard]] QString replay() const;

private:
    enum Kind { StartElement, Attribute, TextElement, EndElement };
    struct Call {
        Kind kind;
        QString name;
        QString text;
    };
    QVector<Call> calls;
};

} // namespace Limits

#endif
