#include <inspection/FieldText_p.h>
#include <inspection/report/Page_p.h>

#include <QStringList>

namespace KORMAK::Inspection {

namespace {

using Kind = FieldParts::Kind;

/// A table of two columns that is opened when there is a row for it.
class FieldRows {
public:
    explicit FieldRows(const Page &ofPage, QString tableCaption)
        : page(ofPage), caption(std::move(tableCaption))
    {
    }

    /// The fields of \a object, but for those that have tables of their own.
    void write(const FieldTable &table, const void *object, const QString &path)
    {
        for (const FieldRow &row : table) {
            if (!row.isShownOf(object))
                continue;
            const QString place = path + QLatin1Char('/') + row.key.toString();
            if (row.parts)
                writeParts(row, object, place);
            else
                writeRow(row, object, place, shownText(row.type, row.get(object)));
        }
    }

    void end()
    {
        if (!isOpen)
            return;
        page.html.close().close();
        isOpen = false;
    }

private:
    void writeParts(const FieldRow &row, const void *object, const QString &place)
    {
        const FieldParts &parts = *row.parts;
        if (parts.table.isPlain())
            writeRow(row, object, place, plainValues(parts, object));
        else if (row.label.isEmpty())
            write(parts.table, parts.all(object).front().object, place);
        else if (parts.table.inLine)
            writeRow(row, object, place, inLine(parts, object));
    }

    static std::optional<QString> plainValues(const FieldParts &parts, const void *object)
    {
        QStringList texts;
        const FieldRow &value = parts.table.rows.front();
        for (const FieldPart &part : parts.all(object))
            texts += shownText(value.type, value.get(part.object)).value_or(QStringLiteral("not set"));
        return texts.join(QStringLiteral(", "));
    }

    static std::optional<QString> inLine(const FieldParts &parts, const void *object)
    {
        QStringList texts;
        for (const FieldPart &part : parts.all(object))
            texts += parts.table.inLine(part.object);
        return texts.isEmpty() ? std::nullopt : std::optional(texts.join(QLatin1Char('\n')));
    }

    void open()
    {
        if (isOpen)
            return;
        page.html.open(u"table", {{u"class", QStringLiteral("fields")}})
            .element(u"caption", caption)
            .open(u"tbody");
        isOpen = true;
    }

    void writeRow(const FieldRow &row, const void *object, const QString &place,
                  const std::optional<QString> &value)
    {
        open();
        const QStringView remark = row.remark ? row.remark(object) : QStringView();
        Html &html = page.html;
        html.open(u"tr").open(u"th", {{u"scope", QStringLiteral("row")}}).text(row.label);
        if (!remark.isEmpty())
            html.text(u" (").text(remark).text(u")");
        html.close().open(u"td");
        if (value)
            writeProse(html, *value);
        else
            html.element(u"span", QStringLiteral("not set"), {{u"class", QStringLiteral("muted")}});
        page.findings.writeNotes(html, place);
        html.close().close();
    }

    const Page &page;
    const QString caption;
    bool isOpen = false;
};

/// Whether the parts are objects with several fields, which people read in a table of their own.
bool hasOwnTable(const FieldRow &row)
{
    return row.parts && row.parts->kind == Kind::One && !row.label.isEmpty() && !row.parts->table.inLine
        && !row.parts->table.isPlain();
}

} // namespace

void writeProse(Html &html, const QString &text)
{
    const QStringList lines = text.split(QLatin1Char('\n'));
    bool isFirst = true;
    for (const QString &line : lines) {
        if (!isFirst)
            html.single(u"br");
        html.text(line);
        isFirst = false;
    }
}

namespace {

void writeTables(const Page &page, const FieldTable &table, const void *object, const QString &path,
                 const QString &caption)
{
    FieldRows rows(page, caption);
    rows.write(table, object, path);
    rows.end();
    for (const FieldRow &row : table) {
        if (!hasOwnTable(row) || !row.isShownOf(object))
            continue;
        const QString place = path + QLatin1Char('/') + row.key.toString();
        const QStringView remark = row.remark ? row.remark(object) : QStringView();
        const QString label = row.label.toString()
            + (remark.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(remark.toString()));
        writeTables(page, row.parts->table, row.parts->all(object).front().object, place, label);
        page.findings.writeNotes(page.html, place);
    }
}

} // namespace

void writeFields(const Page &page)
{
    const QString path = page.rootPath();
    writeTables(page, page.kind.fields(), page.kind.address(page.object), path,
                headlineOf(page.kind, page.object).kind);
    page.findings.writeNotes(page.html, path);
}

void writeAllFields(const Page &page)
{
    openSection(page.html, QStringLiteral("All fields"));
    writeFields(page);
    page.html.close();
}

} // namespace KORMAK::Inspection
