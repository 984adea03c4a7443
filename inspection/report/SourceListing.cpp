#include "inspection/report/SourceListing_p.h"

#include <inspection/ParsedDocument_p.h>
#include <objectbase/QtCompat_p.h>

#include <QStringList>

#include <algorithm>
#include <utility>

namespace KORMAK::Inspection {

void writeSource(Html &html, const QByteArray &source, const std::vector<qint64> &marked)
{
    // Lines are those of TextPositions: each of the three line ends ends one.
    QStringList lines = TESSEL::decodeUtf8(source.mid(static_cast<int>(byteOrderMarkSize(source))))
                            .replace(QStringLiteral("\r\n"), QStringLiteral("\n"))
                            .replace(QLatin1Char('\r'), QLatin1Char('\n'))
                            .split(QLatin1Char('\n'));
    if (lines.constLast().isEmpty() && lines.size() > 1
        && (marked.empty() || marked.back() < lines.size())) // what ends the last line begins no other one
        lines.removeLast();
    constexpr int ManyLines = 10000; // whose numbers take more room
    html.open(
        u"ol",
        {{u"class", lines.size() < ManyLines ? QStringLiteral("source") : QStringLiteral("source long")}});
    auto next = marked.begin();
    qint64 number = 0;
    for (const QString &line : std::as_const(lines)) {
        ++number;
        next = std::lower_bound(next, marked.end(), number);
        if (next != marked.end() && *next == number)
            html.single(u"li",
                        {{u"id", QStringLiteral("L%1").arg(number)}, {u"class", QStringLiteral("hit")}});
        else
            html.single(u"li");
        html.text(line, Html::Lines::Kept);
    }
    html.close();
}

} // namespace KORMAK::Inspection
