#include "inspection/Difference.h"

#include <inspection/FieldDiff_p.h>
#include <objectbase/Debug_p.h>
#include <objectbase/NoDestructor_p.h>

#include <utility>

namespace KORMAK {

using namespace Inspection;

Difference::Difference() = default;

const FieldDifference &Difference::data() const
{
    static const TESSEL::NoDestructor<FieldDifference> none;
    return d ? *d : *none;
}

QString Difference::GetPath() const
{
    return data().path;
}

bool Difference::HasBefore() const
{
    return !data().before.json.isEmpty();
}

QString Difference::GetBefore() const
{
    return data().before.text;
}

QString Difference::GetBeforeJson() const
{
    return data().before.json;
}

bool Difference::HasAfter() const
{
    return !data().after.json.isEmpty();
}

QString Difference::GetAfter() const
{
    return data().after.text;
}

QString Difference::GetAfterJson() const
{
    return data().after.json;
}

QString Difference::GetText() const
{
    return d ? d->toLine() : QString();
}

bool Difference::operator==(const Difference &other) const
{
    return GetPath() == other.GetPath() && GetBefore() == other.GetBefore()
        && GetBeforeJson() == other.GetBeforeJson() && GetAfter() == other.GetAfter()
        && GetAfterJson() == other.GetAfterJson();
}

Difference DifferenceMaker::made(FieldDifference difference)
{
    Difference result;
    result.d = std::make_shared<const FieldDifference>(std::move(difference));
    return result;
}

QDebug operator<<(QDebug debug, const Difference &difference)
{
    return TESSEL::printText(debug, QStringLiteral("Difference(") + difference.GetText() + QLatin1Char(')'));
}

} // namespace KORMAK
