#include "tools/GithubAnnotation.h"

#include <inspection/DocumentJson_p.h>
#include <tools/FindingText.h>
#include <tools/PathEncoding.h>

using namespace KORMAK::Inspection;

namespace {

/// What ends a line stands as an escape.
QString dataText(QString text)
{
    return text.replace(QLatin1Char('%'), QStringLiteral("%25"))
        .replace(QLatin1Char('\r'), QStringLiteral("%0D"))
        .replace(QLatin1Char('\n'), QStringLiteral("%0A"));
}

/// And so does what ends a property.
QString propertyText(const QString &text)
{
    return dataText(text)
        .replace(QLatin1Char(':'), QStringLiteral("%3A"))
        .replace(QLatin1Char(','), QStringLiteral("%2C"));
}

} // namespace

QByteArray githubAnnotation(const QString &path, const FindingData &finding,
                            const std::optional<TextPosition> &position)
{
    const QString place =
        position ? QStringLiteral(",line=%1,col=%2").arg(position->line).arg(position->column) : QString();
    const QString element = finding.path.isEmpty() ? QString() : finding.path + QStringLiteral(": ");
    const QString file = FindingText::plainPath(path);
    const QString start = QStringLiteral("::") + nameOf(finding.severity).toString()
        + QStringLiteral(" file=")
        + propertyText(PathEncoding::isUtf8(file) ? file : PathEncoding::shown(file)) + place
        + QStringLiteral(",title=") + propertyText(finding.id.toString()) + QStringLiteral("::");
    const QString message = PathEncoding::shown(element + FindingText::message(finding));
    return (start + dataText(message) + QLatin1Char('\n')).toUtf8();
}
