#include "tools/FieldLines.h"

#include <inspection/FieldText_p.h>
#include <inspection/QuotedText_p.h>

#include <algorithm>
#include <iterator>
#include <optional>

using namespace KORMAK::Inspection;

namespace {

using Kind = FieldParts::Kind;

constexpr qsizetype IndentWidth = 2;
constexpr int LongestCell = 32;
constexpr QStringView NotSet = u"not set";

struct Line {
    QString label;
    std::optional<QString> value = {}; ///< nothing: not set
    std::vector<Line> fields = {};
    bool isHeading = false; ///< it has no value but fields
    bool isElement = false; ///< one of several lines with the same label
    QStringList table = {};
};

std::vector<Line> linesOf(const FieldTable &table, const void *object, const DocumentSays &says,
                          std::optional<int> width);

QString spaces(qsizetype count)
{
    return {static_cast<int>(count), QLatin1Char(' ')};
}

QString justified(const QString &text, qsizetype width)
{
    return text.leftJustified(static_cast<int>(width));
}

// Tables

struct Row {
    std::vector<QString> cells;
    std::vector<Line> beneath; ///< what no cell can hold
};

/// The labels that rows of a table may have.
void addColumns(QStringList &columns, const FieldTable &table)
{
    for (const FieldRow &row : table) {
        const bool isBeneath = row.isProse || (row.parts && row.parts->kind != Kind::One);
        if (row.parts && row.label.isEmpty())
            addColumns(columns, row.parts->table);
        else if (!isBeneath && row.shown != FieldRow::Shown::Never && !columns.contains(row.label.toString()))
            columns += row.label.toString();
    }
}

bool fitsInCell(const Line &line)
{
    return !line.isElement && line.value.value_or(QString()).size() <= LongestCell
        && !line.value.value_or(QString()).contains(QLatin1Char('\n'));
}

Row rowOf(const QStringList &columns, const FieldTable &table, const void *object, const DocumentSays &says)
{
    Row row;
    row.cells.resize(static_cast<std::size_t>(columns.size()));
    std::vector<Line> lines = linesOf(table, object, says, std::nullopt);
    for (Line &line : lines) {
        const auto column = columns.indexOf(line.label);
        if (column == 0 || (column > 0 && fitsInCell(line)))
            row.cells[static_cast<std::size_t>(column)] = oneLine(line.value.value_or(NotSet.toString()));
        else
            row.beneath.push_back(std::move(line));
    }
    return row;
}

/// The columns that some row has something in; the first one does not push others away.
std::vector<qsizetype> widthsOf(const QStringList &columns, const std::vector<Row> &rows)
{
    std::vector<qsizetype> widths(static_cast<std::size_t>(columns.size()));
    for (const Row &row : rows) {
        for (std::size_t i = 0; i < widths.size(); ++i)
            widths[i] = std::max(widths[i], std::min<qsizetype>(row.cells[i].size(), LongestCell));
    }
    for (std::size_t i = 0; i < widths.size(); ++i) {
        if (widths[i] > 0)
            widths[i] = std::max<qsizetype>(widths[i], columns[static_cast<int>(i)].size());
    }
    return widths;
}

/// How many of the columns, which are \a widths wide, fit beside one another; the first one always does.
std::size_t columnsWithin(const std::vector<qsizetype> &widths, std::optional<int> width)
{
    if (!width)
        return widths.size();
    std::size_t count = 0;
    for (qsizetype end = 0; count < widths.size(); ++count) {
        if (widths[count] == 0)
            continue;
        end += widths[count];
        if (end > *width && count > 0)
            break;
        end += IndentWidth;
    }
    return count;
}

/// Of the first \a count columns.
template <class Cells>
QString tableLine(const Cells &cells, const std::vector<qsizetype> &widths, std::size_t count)
{
    QString line;
    auto cell = cells.begin();
    for (std::size_t i = 0; i < count; ++i) {
        if (widths[i] > 0)
            line += justified(*cell, widths[i] + IndentWidth);
        ++cell;
    }
    while (line.endsWith(QLatin1Char(' ')))
        line.chop(1);
    return line;
}

/// The cells from \a first on, each behind the label of its column, in as few lines as \a width lets there
/// be.
QStringList labelledCells(const QStringList &columns, const Row &row, std::size_t first, qsizetype width)
{
    QStringList lines;
    for (std::size_t i = first; i < row.cells.size(); ++i) {
        if (row.cells[i].isEmpty())
            continue;
        const QString cell = columns[static_cast<int>(i)] + QStringLiteral(": ") + row.cells[i];
        const bool fits = !lines.isEmpty() && lines.constLast().size() + IndentWidth + cell.size() < width;
        if (fits)
            lines.last() += QStringLiteral("; ") + cell;
        else
            lines += spaces(IndentWidth) + cell;
    }
    return lines;
}

void addLines(QStringList &text, const std::vector<Line> &lines, int depth, qsizetype column);
qsizetype labelWidth(const std::vector<Line> &lines, int depth);

/// \a width: of a line; nothing: any. Columns beyond it stand beneath each row.
QStringList tableOf(const FieldParts &parts, const std::vector<FieldPart> &all, const DocumentSays &says,
                    std::optional<int> width)
{
    QStringList columns;
    addColumns(columns, parts.table);
    std::vector<Row> rows;
    rows.reserve(all.size());
    std::transform(all.begin(), all.end(), std::back_inserter(rows),
                   [&](const FieldPart &part) { return rowOf(columns, parts.table, part.object, says); });
    const std::vector<qsizetype> widths = widthsOf(columns, rows);
    const std::size_t count = columnsWithin(widths, width);
    QStringList text;
    if (!rows.empty())
        text += tableLine(columns, widths, count);
    for (const Row &row : rows) {
        text += tableLine(row.cells, widths, count);
        text += labelledCells(columns, row, count, width.value_or(0));
        addLines(text, row.beneath, 1, labelWidth(row.beneath, 1) + IndentWidth);
    }
    return text;
}

// Fields

/// What stands behind the value of a field; empty: the document says that value. \a name: where the field has
/// no line of its own.
QString saying(const FieldRow &row, const void *object, const DocumentSays &says, QStringView name = {})
{
    const DocumentSays::Saying *const said = says.of(row, object);
    if (!said)
        return {};
    if (said->breaksOff)
        return QStringLiteral(" (document breaks off here)");
    const QString field = name.isEmpty() ? QString() : name.toString() + QLatin1Char(' ');
    return QStringLiteral(" (document says %1%2)").arg(field, quoted(said->text));
}

Line lineOf(const FieldRow &row, const FieldPart &part, const DocumentSays &says, std::optional<int> width)
{
    Line line{row.label.toString()};
    if (row.parts->table.inLine) {
        line.value = row.parts->table.inLine(part.object);
        for (const FieldRow &field : row.parts->table)
            *line.value += saying(field, part.object, says, field.label);
    } else {
        line.isHeading = true;
        line.fields = linesOf(row.parts->table, part.object, says, width);
    }
    return line;
}

/// All values of a list in one line.
QString plainValues(const FieldTable &table, const std::vector<FieldPart> &all)
{
    QStringList texts;
    for (const FieldPart &part : all)
        texts += shownText(table.rows.front().type, table.rows.front().get(part.object))
                     .value_or(NotSet.toString());
    return texts.join(QStringLiteral(", "));
}

void addParts(std::vector<Line> &lines, const FieldRow &row, const void *object, const DocumentSays &says,
              std::optional<int> width)
{
    const FieldParts &parts = *row.parts;
    const std::vector<FieldPart> all = parts.all(object);
    if (parts.table.isPlain()) {
        lines.push_back({row.label.toString(), plainValues(parts.table, all)});
    } else if (parts.kind == Kind::Map) {
        Line line{row.label.toString(), QString::number(static_cast<int>(all.size()))};
        line.table = tableOf(parts, all, says, width);
        lines.push_back(std::move(line));
    } else if (row.label.isEmpty()) {
        std::vector<Line> own = linesOf(parts.table, all.front().object, says, width);
        std::move(own.begin(), own.end(), std::back_inserter(lines));
    } else {
        for (const FieldPart &part : all) {
            lines.push_back(lineOf(row, part, says, width));
            lines.back().isElement = parts.kind == Kind::List;
        }
    }
}

std::vector<Line> linesOf(const FieldTable &table, const void *object, const DocumentSays &says,
                          std::optional<int> width)
{
    std::vector<Line> lines;
    for (const FieldRow &row : table) {
        if (!row.isShownOf(object) && !says.concern(row, object))
            continue;
        if (row.parts) {
            addParts(lines, row, object, says, width);
        } else {
            lines.push_back({row.label.toString(), shownText(row.type, row.get(object))});
            if (const QString text = saying(row, object, says); !text.isEmpty())
                lines.back().value = lines.back().value.value_or(NotSet.toString()) + text;
        }
        const QStringView remark = row.remark ? row.remark(object) : QStringView();
        if (!remark.isEmpty())
            lines.back().label += QStringLiteral(" (%1)").arg(remark.toString());
    }
    return lines;
}

QString indented(const Line &line, int depth)
{
    return spaces(depth * IndentWidth) + line.label + QLatin1Char(':');
}

/// The width of the longest label that a value stands beside.
qsizetype labelWidth(const std::vector<Line> &lines, int depth)
{
    qsizetype width = 0;
    for (const Line &line : lines) {
        if (!line.isHeading)
            width = std::max<qsizetype>(width, indented(line, depth).size());
        width = std::max(width, labelWidth(line.fields, depth + 1));
    }
    return width;
}

QString valueLines(const std::optional<QString> &value, qsizetype column)
{
    if (!value)
        return NotSet.toString();
    QStringList lines = value->split(QLatin1Char('\n'));
    std::transform(lines.begin(), lines.end(), lines.begin(), oneLine);
    return lines.join(QLatin1Char('\n') + spaces(column));
}

void addLines(QStringList &text, const std::vector<Line> &lines, int depth, qsizetype column)
{
    for (const Line &line : lines) {
        const QString label = indented(line, depth);
        text += line.isHeading ? label : justified(label, column) + valueLines(line.value, column);
        addLines(text, line.fields, depth + 1, column);
        for (const QString &row : line.table) // may hold several lines
            text += spaces((depth + 1) * IndentWidth)
                + QString(row).replace(QLatin1Char('\n'),
                                       QLatin1Char('\n') + spaces((depth + 1) * IndentWidth));
    }
}

} // namespace

QStringList fieldLines(const FieldTable &table, const void *object, const DocumentSays &says,
                       std::optional<int> width)
{
    // Tables stand one step in.
    const std::vector<Line> lines =
        linesOf(table, object, says, width ? std::optional(*width - int(IndentWidth)) : std::nullopt);
    QStringList text;
    addLines(text, lines, 0, labelWidth(lines, 0) + IndentWidth);
    return text;
}
