#include "inspection/ExpectedFields_p.h"

#include <inspection/FieldText_p.h>
#include <inspection/FindingData_p.h>
#include <inspection/QuotedText_p.h>

#include <algorithm>
#include <iterator>

namespace KORMAK::Inspection {

namespace {

QString textOf(const HeldField &held)
{
    return isSet(held.value) ? quoted(settableText(held.row->type, held.value)) : QStringLiteral("not set");
}

} // namespace

void ExpectedFields::unset(const QString &path)
{
    unsetPaths.insert(path);
}

void ExpectedFields::unsetElement(const QString &path)
{
    const auto [list, index] = listOf(path);
    unsetPaths.insert(path);
    removed[list].insert(index);
}

bool ExpectedFields::isUnset(const QString &path) const
{
    for (QString whole = path; !whole.isEmpty(); whole = parentOf(whole)) {
        if (unsetPaths.contains(whole))
            return true;
    }
    return false;
}

/// What is unset is read as its absence means; but of an element of a list or a parameter, nothing is left.
bool ExpectedFields::mayBeAnything(const QString &path) const
{
    for (QString whole = path; !whole.isEmpty(); whole = parentOf(whole)) {
        if (unsetPaths.contains(whole))
            return !whole.endsWith(QLatin1Char(']'));
    }
    return false;
}

/// \a path as it is called when the elements before it are gone.
QString ExpectedFields::movedUp(const QString &path) const
{
    if (removed.empty())
        return path;
    QString result = path;
    for (QString whole = path; !whole.isEmpty(); whole = parentOf(whole)) {
        const auto [list, index] = listOf(whole);
        const auto gone = index < 0 ? removed.end() : removed.find(list);
        if (gone == removed.end())
            continue;
        const auto before = std::distance(gone->second.begin(), gone->second.lower_bound(index));
        result =
            list + QStringLiteral("[%1]").arg(index - static_cast<int>(before)) + result.mid(whole.size());
    }
    return result;
}

QVector<Finding> ExpectedFields::differencesTo(const HeldFields &read) const
{
    QVector<Finding> differences;
    HeldFields expected;
    for (const auto &[path, held] : fields) {
        if (!isUnset(path))
            expected[movedUp(path)] = held;
    }
    for (const auto &[path, held] : read) {
        const auto wanted = expected.find(path);
        if (wanted == expected.end() ? !mayBeAnything(path) : !areSame(wanted->second.value, held.value)) {
            differences +=
                FindingMaker::notEdited(QStringLiteral("would be read as %1").arg(textOf(held)), path);
        }
    }
    for (const auto &[path, held] : expected) {
        // With what is unset, a type for example, fields go that are of no use without it.
        if (read.find(path) == read.end() && !(held.isConditional && !unsetPaths.isEmpty()))
            differences += FindingMaker::notEdited(QStringLiteral("would be gone"), path);
    }
    return differences;
}

} // namespace KORMAK::Inspection
