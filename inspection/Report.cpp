#include "inspection/Report.h"

#include <inspection/report/Page_p.h>
#include <inspection/report/PageFrame_p.h>
#include <inspection/report/SourceListing_p.h>
#include <objectbase/NoDestructor_p.h>

namespace KORMAK {

using namespace Inspection;

struct Report::Private {
    Document document;
    QString name;
    QByteArray source;
};

namespace {

/// What a page begins with where there is no object to tell more.
Headline headlineOf(const Document &document)
{
    if (const TESSEL::ITesselObject *const object = document.GetObject())
        return headlineOf(*documentKindOf(*object), *object);
    const DocumentKind *const kind = findDocumentKind(document.GetKind());
    const QString name =
        kind ? headlineOf(*kind, *kind->create()).kind : QStringLiteral("Document of an unknown kind");
    return {name, name + QStringLiteral(" that cannot be read")};
}

void writeStatusItem(Html &html, const QString &look, const QString &text)
{
    html.element(u"li", text, {{u"class", look}});
}

void writeHeader(Html &html, const Document &document, const QString &name, const FindingPlaces &findings)
{
    const Headline headline = headlineOf(document);
    html.open(u"header");
    const QString kicker =
        headline.kind == headline.title || name.isEmpty() ? QString() : QStringLiteral(" · ");
    html.open(u"p", {{u"class", QStringLiteral("kicker")}});
    if (headline.kind != headline.title)
        html.text(headline.kind).text(kicker);
    html.text(name).close();
    html.element(u"h1", headline.title);
    html.open(u"ul", {{u"class", QStringLiteral("status")}});
    if (!document.IsAccepted())
        writeStatusItem(html, QStringLiteral("error"), QStringLiteral("refused"));
    if (document.IsComplete())
        writeStatusItem(html, QStringLiteral("good"), QStringLiteral("complete"));
    else
        writeStatusItem(html, QStringLiteral("warning"), QStringLiteral("not complete"));
    const int errors = findings.count(Finding::Severity::Error);
    const int warnings = findings.count(Finding::Severity::Warning);
    if (errors > 0)
        writeStatusItem(html, QStringLiteral("error"), counted(errors, QStringLiteral("error")));
    if (warnings > 0)
        writeStatusItem(html, QStringLiteral("warning"), counted(warnings, QStringLiteral("warning")));
    if (findings.isEmpty())
        writeStatusItem(html, QStringLiteral("good"), QStringLiteral("no findings"));
    html.close();
    if (!document.IsComplete())
        html.element(u"p", document.GetState(), {{u"class", QStringLiteral("missing")}});
    html.close();
}

} // namespace

Report::Report() = default;

Report::Report(const Document &document, const QString &name, const QByteArray &source)
    : d(std::make_shared<const Private>(Private{document, name, source}))
{
}

QString Report::GetTitle() const
{
    return d ? headlineOf(d->document).title : QString();
}

QByteArray Report::GetHtml() const
{
    static const TESSEL::NoDestructor<Private> none;
    const Private &own = d ? *d : *none;
    FindingPlaces findings(own.document.GetFindings());
    Html content;
    if (const TESSEL::ITesselObject *const object = own.document.GetObject())
        writeContent({content, findings, *documentKindOf(*object), *object});
    Html html;
    openPage(html, GetTitle() + (own.name.isEmpty() ? QString() : QStringLiteral(" – ") + own.name));
    writeHeader(html, own.document, own.name, findings);
    html.open(u"main");
    const bool hasSource = !own.source.isEmpty();
    if (!findings.isEmpty()) {
        openSection(html, QStringLiteral("Findings"), QStringLiteral("findings"));
        findings.writeList(html, hasSource ? FindingPlaces::Source::Shown : FindingPlaces::Source::Absent);
        html.close();
    }
    html.add(content);
    if (hasSource) {
        openSection(html, QStringLiteral("Source"), QStringLiteral("source"));
        writeSource(html, own.source, findings.lines());
        html.close();
    }
    html.close();
    return closedPage(html);
}

} // namespace KORMAK
