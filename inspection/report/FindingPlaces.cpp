#include "inspection/report/FindingPlaces_p.h"

#include <algorithm>

namespace KORMAK::Inspection {

namespace {

QString severityText(const Finding &finding)
{
    return finding.GetSeverity() == Finding::Severity::Error ? QStringLiteral("Error")
                                                             : QStringLiteral("Warning");
}

QString severityLook(const Finding &finding)
{
    return finding.GetSeverity() == Finding::Severity::Error ? QStringLiteral("error")
                                                             : QStringLiteral("warning");
}

QString noteId(int index)
{
    return QStringLiteral("note-%1").arg(index + 1);
}

QString findingId(int index)
{
    return QStringLiteral("finding-%1").arg(index + 1);
}

QString linkTo(const QString &id)
{
    return QLatin1Char('#') + id;
}

} // namespace

namespace {

/// The path as pages know it: of a parameter whose name is empty they do not know whether it is given.
QString knownPath(const QString &path)
{
    for (const QLatin1String parameter :
         {QLatin1String("Parameter[]"), QLatin1String("GenericReceiver/Parameter[]")}) {
        const auto end = parameter.size();
        if (path.startsWith(parameter) && (path.size() == end || path.at(end) == QLatin1Char('/')))
            return path.left(end - 2) + path.mid(end);
    }
    return path;
}

} // namespace

FindingPlaces::FindingPlaces(const QVector<Finding> &findings)
    : all(findings), isNoted(static_cast<std::size_t>(findings.size()))
{
    for (int i = 0; i < static_cast<int>(all.size()); ++i) {
        if (!all.at(i).GetPath().isEmpty())
            open.emplace(knownPath(all.at(i).GetPath()), i);
    }
}

void FindingPlaces::writeNotes(Html &html, const QString &path)
{
    if (open.empty())
        return;
    const auto isWithin = [&path](const QString &candidate) {
        return candidate.size() == path.size() || candidate.at(path.size()) == QLatin1Char('/');
    };
    std::vector<int> found;
    for (auto entry = open.lower_bound(path); entry != open.end() && entry->first.startsWith(path);) {
        if (isWithin(entry->first)) {
            found.push_back(entry->second);
            entry = open.erase(entry);
        } else {
            ++entry;
        }
    }
    const auto step = path.lastIndexOf(QLatin1Char('/')) + 1;
    const auto [first, last] = open.equal_range(path.left(step) + QLatin1Char('@') + path.mid(step));
    std::vector<int> ofAttribute;
    for (auto entry = first; entry != last; ++entry)
        ofAttribute.push_back(entry->second);
    open.erase(first, last);
    for (const int index : ofAttribute)
        writeNote(html, index, QString());
    std::sort(found.begin(), found.end());
    for (const int index : found)
        writeNote(html, index, knownPath(all.at(index).GetPath()).mid(path.size() + 1));
}

void FindingPlaces::writeNote(Html &html, int index, const QString &within)
{
    const Finding &finding = all.at(index);
    isNoted[static_cast<std::size_t>(index)] = true;
    html.open(u"p", {{u"class", QStringLiteral("note ") + severityLook(finding)}, {u"id", noteId(index)}})
        .element(u"a", severityText(finding), {{u"href", linkTo(findingId(index))}})
        .text(u": ");
    if (!within.isEmpty())
        html.element(u"code", within).text(u": ");
    html.text(finding.GetMessage()).close();
}

void FindingPlaces::writeList(Html &html, Source source) const
{
    html.open(u"ol", {{u"class", QStringLiteral("findings")}});
    for (int i = 0; i < static_cast<int>(all.size()); ++i) {
        const Finding &finding = all.at(i);
        html.open(u"li", {{u"id", findingId(i)}, {u"class", severityLook(finding)}});
        html.element(u"strong", severityText(finding)).text(u" ");
        if (!finding.GetPath().isEmpty()) {
            if (isNoted[static_cast<std::size_t>(i)])
                html.open(u"a", {{u"href", linkTo(noteId(i))}}).element(u"code", finding.GetPath()).close();
            else
                html.element(u"code", finding.GetPath());
            html.text(u": ");
        }
        html.text(finding.GetMessage());
        const QStringList allowed = finding.GetAllowed();
        if (!allowed.isEmpty())
            html.element(u"span", QStringLiteral(" Allowed: ") + allowed.join(QStringLiteral(", ")),
                         {{u"class", QStringLiteral("muted")}});
        if (finding.HasPlace()) {
            const QString place =
                QStringLiteral("line %1, column %2")
                    .arg(QString::number(finding.GetLine()), QString::number(finding.GetColumn()));
            html.text(u" (");
            if (source == Source::Shown)
                html.element(u"a", place, {{u"href", QStringLiteral("#L%1").arg(finding.GetLine())}});
            else
                html.text(place);
            html.text(u")");
        }
        html.close();
    }
    html.close();
}

int FindingPlaces::count(Finding::Severity severity) const
{
    return static_cast<int>(std::count_if(all.begin(), all.end(), [severity](const Finding &finding) {
        return finding.GetSeverity() == severity;
    }));
}

std::vector<qint64> FindingPlaces::lines() const
{
    std::vector<qint64> lines;
    for (const Finding &finding : all) {
        if (finding.HasPlace())
            lines.push_back(finding.GetLine());
    }
    std::sort(lines.begin(), lines.end());
    lines.erase(std::unique(lines.begin(), lines.end()), lines.end());
    return lines;
}

QString counted(qint64 count, const QString &noun)
{
    return QString::number(count) + QLatin1Char(' ') + noun + (count == 1 ? QString() : QStringLiteral("s"));
}

} // namespace KORMAK::Inspection
