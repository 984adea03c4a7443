#include "tools/TableWriter.h"

#include <inspection/DocumentJson_p.h>
#include <inspection/Json_p.h>
#include <inspection/QuotedText_p.h>
#include <tools/Console.h>
#include <tools/PathEncoding.h>

#include <algorithm>

using namespace KORMAK::Inspection;

namespace Table {

namespace {

constexpr int WidestColumn = 60; ///< what is wider moves what stands behind it
constexpr std::size_t BlockRows = 200;
constexpr QStringView Gap = u"  ";
constexpr QStringView NotSet = u"-";

QString quotedForCsv(QString text)
{
    static const QString Special = QStringLiteral(",\"\r\n");
    if (std::none_of(text.cbegin(), text.cend(), [](QChar c) { return Special.contains(c); }))
        return text;
    return QLatin1Char('"') + text.replace(QLatin1Char('"'), QStringLiteral("\"\"")) + QLatin1Char('"');
}

/// As names of files can stand in UTF-8.
QString pathText(const QString &path)
{
    return PathEncoding::isUtf8(path) ? path : PathEncoding::shown(path);
}

} // namespace

void Writer::begin(const std::vector<FieldName> &columns)
{
    writeBlock();
    fields = columns;
    names.clear();
    for (const FieldName &field : fields)
        names += field.name();
    if (format == OutputFormat::Csv)
        Console::writeBytes(csv(names));
    if (format == OutputFormat::Text) {
        if (hasBegun)
            Console::write(QStringLiteral("\n"));
        widths.assign(fields.size(), 0);
        block.push_back(names);
    }
    hasBegun = true;
}

void Writer::add(const Row &row)
{
    if (format == OutputFormat::Json) {
        Console::writeBytes(json(row));
        return;
    }
    QStringList cells;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const QString text = fields[i].isFile() ? pathText(row[i].text()) : row[i].text();
        cells += format == OutputFormat::Csv ? text : row[i].isSet() ? oneLine(text) : NotSet.toString();
    }
    if (format == OutputFormat::Csv) {
        Console::writeBytes(csv(cells));
        return;
    }
    block.push_back(cells);
    if (block.size() >= BlockRows)
        writeBlock();
}

void Writer::end()
{
    writeBlock();
}

void Writer::writeBlock()
{
    for (const QStringList &cells : block) {
        for (int i = 0; i < cells.size(); ++i) {
            int &width = widths[static_cast<std::size_t>(i)];
            width = std::max(width, std::min(static_cast<int>(cells[i].size()), WidestColumn));
        }
    }
    for (const QStringList &cells : block) {
        QString line;
        for (int i = 0; i < cells.size(); ++i)
            line += (i == 0 ? QString() : Gap.toString())
                + cells[i].leftJustified(widths[static_cast<std::size_t>(i)]);
        while (line.endsWith(QLatin1Char(' ')))
            line.chop(1);
        Console::print(line);
    }
    block.clear();
}

QByteArray Writer::csv(const QStringList &cells) const
{
    QStringList quoted;
    for (const QString &cell : cells)
        quoted += quotedForCsv(cell);
    return quoted.join(QLatin1Char(',')).toUtf8() + "\r\n";
}

QByteArray Writer::json(const Row &row) const
{
    JsonWriter writer(JsonWriter::Layout::OneLine);
    writer.beginObject();
    for (std::size_t i = 0; i < row.size(); ++i)
        writer.member(fields[i].name(),
                      row[i].type ? jsonValue(*row[i].type, row[i].value) : QStringLiteral("null"));
    writer.endObject();
    return writer.text().toUtf8() + '\n';
}

} // namespace Table
