#include "inspection/NewFindings_p.h"

#include <QtTest>

using namespace KORMAK;
using namespace KORMAK::Inspection;

class NewFindingsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void findings_data();
    void findings();
};

Q_DECLARE_METATYPE(KORMAK::Inspection::DocumentCheck::PlacedFinding)
Q_DECLARE_METATYPE(KORMAK::Inspection::TextPatch)

namespace {

using Placed = DocumentCheck::PlacedFinding;
using PlacedList = QVector<Placed>;
using Patches = QVector<TextPatch>;

Placed at(qsizetype offset, const QString &message, const QString &path = "Job/ResourceType")
{
    return {{offset, message, path}, TextPosition()};
}

Placed asError(Placed one)
{
    one.finding.severity = Severity::Error;
    return one;
}

Placed withGist(Placed one, const QString &gist)
{
    one.finding.gist = gist;
    return one;
}

Placed withId(Placed one, QStringView id)
{
    one.finding.id = id;
    return one;
}

Placed withoutPlace(Placed one)
{
    one.position.reset();
    return one;
}

DocumentCheck checkOf(const PlacedList &findings)
{
    DocumentCheck check;
    check.findings.assign(findings.begin(), findings.end());
    return check;
}

} // namespace

void NewFindingsTest::findings_data()
{
    QTest::addColumn<PlacedList>("before");
    QTest::addColumn<PlacedList>("after");
    QTest::addColumn<Patches>("patches"); ///< of the text after
    QTest::addColumn<QStringList>("added");

    const auto add = [](const char *name, const PlacedList &before, const PlacedList &after,
                        const Patches &patches, const QStringList &added) {
        QTest::newRow(name) << before << after << patches << added;
    };
    add("none", {}, {}, {}, {});
    add("the first", {}, {at(5, "a")}, {}, {"5 a"});
    add("known", {at(5, "a")}, {at(5, "a")}, {}, {});
    add("gone", {at(5, "a")}, {}, {}, {});
    add("another message", {at(5, "a")}, {at(5, "b")}, {}, {"5 b"});
    add("another place", {at(5, "a")}, {at(6, "a")}, {}, {"6 a"});
    add("another rule", {at(5, "a")}, {withId(at(5, "a"), FindingId::Repeated)}, {}, {"5 a"});
    add("told twice", {at(5, "a")}, {at(5, "a"), at(5, "a")}, {}, {"5 a"});
    add("no longer told twice", {at(5, "a"), at(5, "a")}, {at(5, "a")}, {}, {});

    const Patches inserted{{2, 2, "xyz"}};
    add("moved", {at(5, "a")}, {at(8, "a")}, inserted, {});
    add("not moved, so of another place", {at(5, "a")}, {at(5, "a")}, inserted, {"5 a"});
    add("in what was inserted", {at(2, "a")}, {at(3, "a")}, inserted, {"3 a"});
    add("before what was inserted", {at(1, "a")}, {at(1, "a")}, inserted, {});
    add("behind what was removed", {at(5, "a")}, {at(3, "a")}, {{1, 3, {}}}, {});

    add("an error of a warning", {at(5, "a")}, {asError(at(5, "a"))}, {}, {"5 a"});
    add("a warning of an error", {asError(at(5, "a"))}, {at(5, "a")}, {}, {});
    add("an error as before", {asError(at(5, "a"))}, {asError(at(5, "a"))}, {}, {});
    add("a warning beside its error", {asError(at(5, "a"))}, {asError(at(5, "a")), at(5, "a")}, {}, {"5 a"});
    add("a warning takes no error while there is one like it", {at(5, "a"), asError(at(5, "a"))},
        {at(5, "a"), asError(at(5, "a"))}, {}, {});

    add("around it called otherwise", {at(5, "a", "Receiver/Parameter[A]/Enable")},
        {at(5, "a", "Receiver/Parameter[B]/Enable")}, {}, {});
    add("itself called otherwise", {at(5, "a", "Receiver/Parameter[A]")},
        {at(5, "a", "Receiver/Parameter[B]")}, {}, {});
    add("another attribute", {at(5, "a", "Job/@Version")}, {at(5, "a", "Job/@Mode")}, {}, {"5 a"});
    add("another missing element", {at(5, "a", "Job/JobHeader")}, {at(5, "a", "Job/ResourceType")}, {},
        {"5 a"});
    add("the same fault in other words", {withGist(at(5, "a"), "key 1")}, {withGist(at(5, "b"), "key 1")}, {},
        {});
    add("another fault in the same words", {withGist(at(5, "a"), "key 1")}, {withGist(at(5, "a"), "key 2")},
        {}, {"5 a"});
    add("about no place", {withoutPlace(at(5, "a"))}, {withoutPlace(at(9, "a"))}, inserted, {});
    add("about a place now", {withoutPlace(at(0, "a"))}, {at(0, "a")}, {}, {"0 a"});
    add("in their order", {at(5, "b")}, {at(4, "c"), at(5, "b"), at(6, "a")}, {}, {"4 c", "6 a"});
}

void NewFindingsTest::findings()
{
    QFETCH(const PlacedList, before);
    QFETCH(const PlacedList, after);
    QFETCH(const Patches, patches);
    QFETCH(const QStringList, added);

    const DocumentCheck checkBefore = checkOf(before);
    const DocumentCheck checkAfter = checkOf(after);
    const std::vector<TextPatch> arranged(patches.begin(), patches.end());
    QStringList found;
    for (const Placed &one : newFindings({checkAfter, arranged}, {checkBefore, {}}))
        found += QString::number(one.finding.offset) + ' ' + one.finding.message;
    QCOMPARE(found, added);
}

QTEST_GUILESS_MAIN(NewFindingsTest)
#include "NewFindingsTest.moc"
