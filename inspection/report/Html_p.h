// Writes HTML and the SVG in it, element by element. Whatever is written passes through here, so that no text
// can become anything but text.
#ifndef KORMAK_INSPECTION_REPORT_HTML_P_H
#define KORMAK_INSPECTION_REPORT_HTML_P_H

#include <QString>
#include <QStringView>

#include <initializer_list>
#include <utility>
#include <vector>

namespace KORMAK::Inspection {

class Html {
public:
    /// Names are constants of the pages, never of a document.
    using Attribute = std::pair<QStringView, QString>;
    using Attributes = std::initializer_list<Attribute>;

    /// How line feeds and tabs in a text are written.
    enum class Lines {
        Escaped, ///< as escapes, like other characters that cannot be seen
        Kept,
    };

    /// Begins an element, which close() ends.
    Html &open(QStringView name, Attributes attributes = {});
    /// Ends the innermost element that is open.
    Html &close();
    /// An element that can have no end tag: \c meta, \c col.
    Html &single(QStringView name, Attributes attributes = {});
    /// A whole element that holds \a text.
    Html &element(QStringView name, const QString &text, Attributes attributes = {});
    /// Characters that cannot be seen, or that change what is seen of others, are written as escapes.
    Html &text(QStringView text, Lines lines = Lines::Escaped);
    /// A constant of the pages that is written as it stands: a style sheet.
    Html &constant(QStringView text);
    /// What \a other has written, of which nothing is open.
    Html &add(const Html &other);

    [[nodiscard]] const QString &written() const noexcept { return out; }
    [[nodiscard]] bool isEmpty() const noexcept { return out.isEmpty(); }

private:
    void begin(QStringView name, Attributes attributes);

    QString out;
    std::vector<QStringView> openElements;
};

} // namespace KORMAK::Inspection

#endif
