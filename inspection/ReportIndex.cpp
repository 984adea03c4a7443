#include "inspection/ReportIndex.h"

#include <inspection/Report.h>
#include <inspection/report/FindingPlaces_p.h>
#include <inspection/report/Page_p.h>
#include <inspection/report/PageFrame_p.h>
#include <kormak/Job.h>

#include <QLocale>

#include <algorithm>
#include <tuple>
#include <utility>

namespace KORMAK {

using namespace Inspection;

namespace {

using Entry = ReportIndex::Entry;
using Order = ReportIndex::Order;

/// Texts in their order, the empty ones last.
bool isBefore(const QString &a, const QString &b)
{
    return std::make_tuple(a.isEmpty(), a) < std::make_tuple(b.isEmpty(), b);
}

bool isBefore(const Entry &a, const Entry &b, Order order)
{
    switch (order) {
    case Order::Name:
        return a.name < b.name;
    case Order::Kind:
        return isBefore(a.kind, b.kind);
    case Order::State:
        return std::make_tuple(a.isAccepted, a.isComplete) < std::make_tuple(b.isAccepted, b.isComplete);
    case Order::Findings:
        return std::make_tuple(a.errors, a.warnings) > std::make_tuple(b.errors, b.warnings);
    case Order::Author:
        return isBefore(a.author, b.author);
    case Order::Time:
        return a.creation.isValid() && (!b.creation.isValid() || a.creation > b.creation);
    case Order::Resource:
        return isBefore(a.resource, b.resource);
    }
    return false;
}

QString kindName(const QString &kind)
{
    const DocumentKind *const known = findDocumentKind(kind);
    return known ? headlineOf(*known, *known->create()).kind : QStringLiteral("unknown");
}

void writeState(Html &html, const Entry &entry)
{
    const auto [state, look] = !entry.isAccepted ? std::pair(u"refused", u"badge error")
        : entry.isComplete                       ? std::pair(u"complete", u"badge good")
                                                 : std::pair(u"not complete", u"badge warning");
    html.open(u"td")
        .element(u"span", QStringView(state).toString(), {{u"class", QStringView(look).toString()}})
        .close();
}

QString findingsText(const Entry &entry)
{
    QStringList texts;
    if (entry.errors > 0)
        texts += counted(entry.errors, QStringLiteral("error"));
    if (entry.warnings > 0)
        texts += counted(entry.warnings, QStringLiteral("warning"));
    return texts.isEmpty() ? QStringLiteral("none") : texts.join(QStringLiteral(", "));
}

/// The folder that all documents are in, with its slash; empty when there is none.
QString commonFolder(const QVector<Entry> &entries)
{
    if (entries.isEmpty())
        return {};
    QString folder = entries.constFirst().name;
    for (const Entry &entry : entries) {
        const auto slashes = [&folder] { return folder.left(folder.lastIndexOf(QLatin1Char('/')) + 1); };
        folder = slashes();
        while (!folder.isEmpty() && !entry.name.startsWith(folder)) {
            folder.chop(1);
            folder = slashes();
        }
    }
    return folder;
}

/// \a name is that of the entry, or a part of it that is enough.
void writeEntry(Html &html, const Entry &entry, const QString &name)
{
    html.open(u"tr").open(u"th", {{u"scope", QStringLiteral("row")}});
    if (entry.link.isEmpty())
        html.text(name);
    else
        html.element(u"a", name, {{u"href", entry.link}});
    const QString kind = kindName(entry.kind);
    if (entry.title != kind)
        html.element(u"small", entry.title);
    html.close();
    html.element(u"td", kind);
    writeState(html, entry);
    html.element(
        u"td", findingsText(entry),
        {{u"class",
          entry.errors + entry.warnings > 0 ? QStringLiteral("count") : QStringLiteral("count muted")}});
    html.element(u"td", entry.author);
    html.element(u"td",
                 entry.creation.isValid()
                     ? QLocale::c().toString(entry.creation.toUTC(), QStringLiteral("yyyy-MM-dd hh:mm 'UTC'"))
                     : QString());
    html.element(u"td", entry.resource);
    html.close();
}

} // namespace

ReportIndex::Entry ReportIndex::EntryOf(const Document &document, const QString &name, const QString &link)
{
    Entry entry;
    entry.name = name;
    entry.link = link;
    entry.kind = document.GetKind();
    entry.title = Report(document).GetTitle();
    entry.isAccepted = document.IsAccepted();
    entry.isComplete = document.IsComplete();
    for (const Finding &finding : document.GetFindings())
        ++(finding.GetSeverity() == Finding::Severity::Error ? entry.errors : entry.warnings);
    if (const auto *const job = dynamic_cast<const Job *>(document.GetObject())) {
        entry.author = job->GetJobHeader().GetAuthor();
        entry.creation = job->GetJobHeader().GetCreation();
        if (TESSEL::ResourceType::IsValidResourceType(job->GetResourceType()))
            entry.resource = TESSEL::ResourceType::ResourceTypeToName(job->GetResourceType());
    }
    return entry;
}

void ReportIndex::Add(const Entry &entry)
{
    entries.push_back(entry);
}

void ReportIndex::Sort(Order order)
{
    std::stable_sort(entries.begin(), entries.end(), [order](const Entry &a, const Entry &b) {
        if (isBefore(a, b, order))
            return true;
        return !isBefore(b, a, order) && a.name < b.name;
    });
}

QByteArray ReportIndex::GetHtml() const
{
    Html html;
    openPage(html, QStringLiteral("Documents"));
    html.open(u"header").element(u"h1", QStringLiteral("Documents"));
    const auto faulty =
        std::count_if(entries.begin(), entries.end(), [](const Entry &entry) { return !entry.isAccepted; });
    html.element(u"p",
                 counted(entries.size(), QStringLiteral("document")) + QStringLiteral(", ")
                     + QString::number(faulty) + QStringLiteral(" refused."),
                 {{u"class", QStringLiteral("lead")}});
    html.close().open(u"main");
    const QString folder = commonFolder(entries);
    openTable(html, folder.isEmpty() ? QStringLiteral("All documents") : folder,
              {u"Document", u"Kind", u"State", u"Findings", u"Author", u"Time", u"Resource"},
              {{u"class", QStringLiteral("index")}});
    for (const Entry &entry : entries)
        writeEntry(html, entry, entry.name.mid(folder.size()));
    html.close().close().close();
    return closedPage(html);
}

} // namespace KORMAK
