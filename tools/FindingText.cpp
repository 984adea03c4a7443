#include "tools/FindingText.h"

using namespace KORMAK::Inspection;

QString FindingText::message(const FindingData &finding)
{
    constexpr int Few = 12;
    if (finding.allowed.isEmpty() || finding.allowed.size() > Few)
        return finding.message;
    return finding.message + QStringLiteral(" (allowed: ") + finding.allowed.join(QStringLiteral(", "))
        + QLatin1Char(')');
}

QString FindingText::plainPath(QString path)
{
    while (path.startsWith(QLatin1String("./")) && path.size() > 2)
        path.remove(0, 2);
    return path;
}
