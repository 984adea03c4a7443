// The pages of docs/, for tests that compare them with the library.
#ifndef KORMAK_PAGE_H
#define KORMAK_PAGE_H

#include <tests/support/Files.h>

#include <QList>
#include <QRegularExpression>
#include <QStringList>

namespace Page {

inline QString contentOf(const QString &path)
{
    return TestSupport::textOf(QDir(SOURCE_DIR).filePath(path));
}

/// The files of a folder, with their path from the root of the project.
inline QStringList pathsIn(const QString &folder, const QStringList &patterns)
{
    QStringList paths;
    for (const QString &name : TestSupport::namesIn(QDir(SOURCE_DIR).filePath(folder), patterns))
        paths += folder + '/' + name;
    return paths;
}

struct Section {
    QString anchor;
    QString text;
    QList<QStringList> rows; ///< the cells of its tables, without headings
};

/// The cells of the table rows in \a text.
inline QList<QStringList> rowsIn(const QString &text)
{
    QList<QStringList> rows;
    const QStringList lines = text.split('\n');
    for (int i = 0; i < lines.size(); ++i) {
        const bool isHeading = i + 1 < lines.size() && lines[i + 1].startsWith("| -");
        if (!lines[i].startsWith("| ") || lines[i].startsWith("| -") || isHeading)
            continue;
        QStringList cells = lines[i].split('|').mid(1);
        cells.removeLast();
        for (QString &cell : cells)
            cell = cell.trimmed();
        rows += cells;
    }
    return rows;
}

/// The sections of a page that bear an anchor, "## Heading {#anchor}".
inline QList<Section> sectionsOf(const QString &path)
{
    QList<Section> sections;
    const QString page = contentOf(path);
    static const QRegularExpression heading("^## .*\\{#(\\w+)\\}\\n([^\\0]*?)(?=^## |\\z)",
                                            QRegularExpression::MultilineOption);
    auto found = heading.globalMatch(page);
    while (found.hasNext()) {
        const auto match = found.next();
        sections += {match.captured(1), match.captured(2), rowsIn(match.captured(2))};
    }
    return sections;
}

/// What stands between code marks in \a cell.
inline QStringList codeIn(const QString &cell)
{
    QStringList code;
    static const QRegularExpression span("(`+)(.+?)\\1(?!`)");
    auto found = span.globalMatch(cell);
    while (found.hasNext())
        code += found.next().captured(2);
    return code;
}

} // namespace Page

#endif
