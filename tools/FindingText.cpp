#include "tools/FindingText.h"

#include <inspection/DocumentKind_p.h>
#include <inspection/QuotedText_p.h>
#include <inspection/Remedy_p.h>

using namespace KORMAK::Inspection;

namespace {

/// The call that lists all the names that are allowed; empty when there is none.
QString callThatLists(const FindingData &finding)
{
    if (!finding.vocabulary.isEmpty())
        return QStringLiteral("kormak list ") + finding.vocabulary.toString();
    const QString kind = finding.path.section(QLatin1Char('/'), 0, 0).section(QLatin1Char('['), 0, 0);
    return findDocumentKind(kind) ? QStringLiteral("kormak new %1 --list-fields").arg(kind) : QString();
}

} // namespace

QString FindingText::textInPlaceOfName(const FindingData &finding)
{
    return finding.unknownName.isEmpty() ? finding.found.value_or(QString()) : finding.unknownName;
}

QString FindingText::noteOnAllowed(const FindingData &finding)
{
    if (finding.allowed.isEmpty())
        return {};
    const auto [names, more] = excerptOf(finding.allowed, textInPlaceOfName(finding));
    const QString call = callThatLists(finding);
    if (more > 0 && !finding.suggestion.isEmpty())
        return call.isEmpty() ? call : QStringLiteral(" (all names: %1)").arg(call);
    QString text = QStringLiteral(" (allowed: ") + oneLine(names.join(QStringLiteral(", ")));
    if (more > 0)
        text += QStringLiteral("; %1 more").arg(more) + (call.isEmpty() ? call : QStringLiteral(": ") + call);
    return text + QLatin1Char(')');
}

QString FindingText::message(const FindingData &finding)
{
    return finding.message + noteOnAllowed(finding);
}

QString FindingText::plainPath(QString path)
{
    while (path.startsWith(QLatin1String("./")) && path.size() > 2)
        path.remove(0, 2);
    return path;
}
