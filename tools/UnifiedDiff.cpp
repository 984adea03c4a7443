#include "tools/UnifiedDiff.h"

#include <tools/PathEncoding.h>

#include <algorithm>
#include <vector>

namespace {

constexpr int Context = 3; ///< lines around those that differ

/// With their ends.
std::vector<QByteArray> linesOf(const QByteArray &text)
{
    std::vector<QByteArray> lines;
    for (int begin = 0; begin < text.size();) {
        const int found = static_cast<int>(text.indexOf('\n', begin));
        const int end = found < 0 ? static_cast<int>(text.size()) : found + 1;
        lines.push_back(text.mid(begin, end - begin));
        begin = end;
    }
    return lines;
}

struct Edit {
    char sign; ///< ' ', '-' or '+'
    int line; ///< in the text before, or after when it is added
};

/// The fewest lines to remove and to add, by following the furthest paths for ever more of them.
class Comparison {
public:
    Comparison(const std::vector<QByteArray> &linesBefore, const std::vector<QByteArray> &linesAfter)
        : before(linesBefore), after(linesAfter), most(static_cast<int>(before.size() + after.size()))
    {
    }

    std::vector<Edit> edits()
    {
        std::vector<std::vector<int>> history;
        std::vector<int> furthest(static_cast<std::size_t>(2 * most + 2), 0);
        for (int count = 0;; ++count) {
            history.push_back(furthest);
            for (int diagonal = -count; diagonal <= count; diagonal += 2) {
                int x = isDown(furthest, diagonal, count) ? at(furthest, diagonal + 1)
                                                          : at(furthest, diagonal - 1) + 1;
                int y = x - diagonal;
                while (isSame(x, y))
                    ++x, ++y;
                at(furthest, diagonal) = x;
                if (x >= sizeBefore() && y >= sizeAfter())
                    return wayBack(history);
            }
        }
    }

private:
    int &at(std::vector<int> &path, int diagonal) const
    {
        return path[static_cast<std::size_t>(diagonal + most)];
    }
    [[nodiscard]] int sizeBefore() const { return static_cast<int>(before.size()); }
    [[nodiscard]] int sizeAfter() const { return static_cast<int>(after.size()); }

    [[nodiscard]] bool isSame(int x, int y) const
    {
        return x < sizeBefore() && y < sizeAfter()
            && before[static_cast<std::size_t>(x)] == after[static_cast<std::size_t>(y)];
    }

    bool isDown(std::vector<int> &path, int diagonal, int count) const
    {
        return diagonal == -count || (diagonal != count && at(path, diagonal - 1) < at(path, diagonal + 1));
    }

    std::vector<Edit> wayBack(std::vector<std::vector<int>> &history) const
    {
        std::vector<Edit> edits;
        int x = sizeBefore();
        int y = sizeAfter();
        for (int count = static_cast<int>(history.size()) - 1; count >= 0; --count) {
            std::vector<int> &path = history[static_cast<std::size_t>(count)];
            const bool down = isDown(path, x - y, count);
            const int former = down ? x - y + 1 : x - y - 1;
            const int formerX = count == 0 ? 0 : at(path, former);
            const int formerY = count == 0 ? 0 : formerX - former;
            while (x > formerX && y > formerY)
                edits.push_back({' ', (--y, --x)});
            if (count > 0)
                edits.push_back(down ? Edit{'+', --y} : Edit{'-', --x});
        }
        std::reverse(edits.begin(), edits.end());
        return edits;
    }

    const std::vector<QByteArray> &before;
    const std::vector<QByteArray> &after;
    const int most;
};

/// What a string literal of C would be.
QByteArray inQuotes(const QByteArray &name)
{
    QByteArray result = "\"";
    for (const char c : name) {
        const auto byte = static_cast<uchar>(c);
        if (c == '"' || c == '\\')
            result += QByteArray("\\") + c;
        else if (c == '\t' || c == '\n')
            result += c == '\t' ? "\\t" : "\\n";
        else if (byte < 0x20 || byte >= 0x7F)
            result += '\\' + QByteArray::number(byte, 8).rightJustified(3, '0');
        else
            result += c;
    }
    return result + '"';
}

/// As patch and git read names: one with a blank ends with a tab, one that cannot stand there as it is has
/// quotes.
QByteArray nameInHeader(const QString &path)
{
    const QByteArray name = PathEncoding::encoded(path);
    const bool isPlain = PathEncoding::shown(path) == path && !name.contains('"') && !name.contains('\\')
        && !name.startsWith(' ') && !name.endsWith(' ');
    if (!isPlain)
        return inQuotes(name);
    return name.contains(' ') ? name + '\t' : name;
}

QByteArray lineOf(char sign, const QByteArray &line)
{
    return sign + line
        + (line.endsWith('\n') ? QByteArray() : QByteArray("\n\\ No newline at end of file\n"));
}

/// "3,2": the first line and how many there are, where that is not one.
QByteArray rangeOf(int begin, int count)
{
    const QByteArray first = QByteArray::number(count == 0 ? begin : begin + 1);
    return count == 1 ? first : first + ',' + QByteArray::number(count);
}

} // namespace

QByteArray unifiedDiff(const QString &path, const QByteArray &before, const QByteArray &after)
{
    if (before == after)
        return {};
    const std::vector<QByteArray> linesBefore = linesOf(before);
    const std::vector<QByteArray> linesAfter = linesOf(after);
    const std::vector<Edit> edits = Comparison(linesBefore, linesAfter).edits();
    const QByteArray file = nameInHeader(path);
    QByteArray diff = "--- " + file + "\n+++ " + file + '\n';
    int x = 0;
    int y = 0;
    for (std::size_t i = 0; i < edits.size();) {
        if (edits[i].sign == ' ') {
            ++i, ++x, ++y;
            continue;
        }
        // Back to the lines before it, and on to those behind the last that differs.
        int leading = 0;
        while (leading < Context && i > 0 && edits[i - 1].sign == ' ')
            --i, --x, --y, ++leading;
        QByteArray hunk;
        const int beginX = x;
        const int beginY = y;
        int same = 0;
        for (; i < edits.size(); ++i) {
            const bool isDifferent = edits[i].sign != ' ';
            if (!isDifferent && same >= leading + Context) {
                const auto next = std::find_if(
                    edits.begin() + static_cast<std::ptrdiff_t>(i),
                    edits.begin() + static_cast<std::ptrdiff_t>(std::min(edits.size(), i + Context)),
                    [](const Edit &edit) { return edit.sign != ' '; });
                if (next == edits.begin() + static_cast<std::ptrdiff_t>(std::min(edits.size(), i + Context)))
                    break;
            }
            same = isDifferent ? 0 : same + 1;
            if (isDifferent)
                leading = 0;
            const auto line = static_cast<std::size_t>(edits[i].line);
            hunk += lineOf(edits[i].sign, edits[i].sign == '+' ? linesAfter[line] : linesBefore[line]);
            x += edits[i].sign == '+' ? 0 : 1;
            y += edits[i].sign == '-' ? 0 : 1;
        }
        diff += "@@ -" + rangeOf(beginX, x - beginX) + " +" + rangeOf(beginY, y - beginY) + " @@\n" + hunk;
    }
    return diff;
}
