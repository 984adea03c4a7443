#include "DocumentSamples.h"

#include <inspection/Difference.h>

using namespace KORMAK;
using namespace DocumentSamples;

class DifferenceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void byDefault();
    void changed();
    void setAndNotSet();
    void added();
};

void DifferenceTest::byDefault()
{
    const Difference difference;
    QVERIFY(!difference.HasBefore());
    QVERIFY(!difference.HasAfter());
    QCOMPARE(difference.GetPath() + difference.GetText() + difference.GetBefore() + difference.GetAfterJson(),
             QString());
    QCOMPARE(difference, Difference());
}

void DifferenceTest::changed()
{
    const Document before = example("jobs/surveillance-mc-hf.xml");
    Document after = before;
    after.SetField("JobHeader.Author", "A \"B\"");
    const QVector<Difference> differences = Document::Compare(before, after);
    QCOMPARE(differences.size(), 1);
    const Difference &difference = differences.constFirst();
    QCOMPARE(difference.GetPath(), QString("JobHeader.Author"));
    QVERIFY(difference.HasBefore() && difference.HasAfter());
    QCOMPARE(difference.GetBeforeJson(), '"' + before.GetField("JobHeader.Author").GetText() + '"');
    QCOMPARE(difference.GetAfter(), QString("\"A \\\"B\\\"\""));
    QCOMPARE(difference.GetText(),
             "JobHeader.Author: " + difference.GetBefore() + " -> " + difference.GetAfter());
    QVERIFY(difference == Document::Compare(before, after).constFirst());
    QVERIFY(difference != Document::Compare(after, before).constFirst());
}

void DifferenceTest::setAndNotSet()
{
    const Document before = Document::New("Job");
    Document after = before;
    after.SetField("JobHeader.JobType", "Surveillance MC HF");
    const Difference difference = Document::Compare(before, after).constFirst();
    QVERIFY(difference.HasBefore());
    QCOMPARE(difference.GetBefore(), QString("not set"));
    QCOMPARE(difference.GetBeforeJson(), QString("null"));
    QCOMPARE(difference.GetAfterJson(), QString("\"Surveillance MC HF\""));
}

void DifferenceTest::added()
{
    const Document before = Document::New("AutomaticWorkflow");
    Document after = before;
    after.SetField("Area.Coordinate", "52.1,13.4");
    const QVector<Difference> differences = Document::Compare(before, after);
    QCOMPARE(differences.size(), 1);
    const Difference &difference = differences.constFirst();
    QVERIFY(!difference.HasBefore());
    QCOMPARE(difference.GetBefore() + difference.GetBeforeJson(), QString());
    QCOMPARE(difference.GetAfterJson(), QString("{\"Latitude\": 52.1, \"Longitude\": 13.4}"));
    QCOMPARE(difference.GetText(), "Area.Coordinate[0]: added " + difference.GetAfter());
    QVERIFY(Document::Compare(after, before).constFirst().GetText().contains(": removed "));
}

QTEST_GUILESS_MAIN(DifferenceTest)
#include "DifferenceTest.moc"
