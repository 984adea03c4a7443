#include "inspection/report/PageFrame_p.h"

#include <inspection/report/Stylesheet_p.h>

namespace KORMAK::Inspection {

void openPage(Html &html, const QString &title)
{
    html.constant(u"<!DOCTYPE html>\n");
    html.open(u"html", {{u"lang", QStringLiteral("en")}}).open(u"head");
    html.single(u"meta", {{u"charset", QStringLiteral("utf-8")}});
    // A browser is to ask nobody for anything and to run nothing, whatever a document says.
    html.single(
        u"meta",
        {{u"http-equiv", QStringLiteral("Content-Security-Policy")},
         {u"content",
          QStringLiteral("default-src 'none'; style-src 'unsafe-inline'; img-src data:; form-action 'none'; "
                         "base-uri 'none'")}});
    html.single(u"meta",
                {{u"name", QStringLiteral("viewport")},
                 {u"content", QStringLiteral("width=device-width, initial-scale=1")}});
    html.element(u"title", title);
    html.single(u"link", {{u"rel", QStringLiteral("icon")}, {u"href", QStringLiteral("data:,")}});
    html.open(u"style").constant(stylesheet()).close().close().open(u"body");
}

QByteArray closedPage(Html &html)
{
    html.close().close().constant(u"\n");
    return html.written().toUtf8();
}

} // namespace KORMAK::Inspection
