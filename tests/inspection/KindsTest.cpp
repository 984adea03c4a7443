#include "DocumentSamples.h"

#include <inspection/Kinds.h>
#include <kormak/GenericReceiver.h>
#include <kormak/Job.h>
#include <objectbase/Area.h>

using namespace KORMAK;

class KindsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void kinds();
    void ofTexts_data();
    void ofTexts();
    void ofExamples_data();
    void ofExamples();
    void withinLimits();
    void ofObjects();
};

namespace {

class OwnJob : public Job { };

} // namespace

void KindsTest::kinds()
{
    QCOMPARE(GetDocumentKinds(),
             QStringList({"Job", "AutomaticWorkflow", "ActivityGeneration", "GenericReceiver", "Parameter"}));
    for (const QString &kind : GetDocumentKinds()) {
        QCOMPARE(DocumentKindOf('<' + kind.toUtf8() + "/>"), kind);
        QCOMPARE(DocumentKindOf(*Document::New(kind).GetObject()), kind);
    }
}

void KindsTest::ofTexts_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("kind");

    QTest::newRow("nothing") << QByteArray() << QString();
    QTest::newRow("no XML") << QByteArray("Job") << QString();
    QTest::newRow("another root") << QByteArray("<Area/>") << QString();
    QTest::newRow("other case") << QByteArray("<job/>") << QString();
    QTest::newRow("prefix") << QByteArray("<a:Job xmlns:a='b'/>") << "Job";
    QTest::newRow("mark and encoding")
        << QByteArray("\xEF\xBB\xBF<?xml version='1.0' encoding='latin1'?><Job/>") << "Job";
    QTest::newRow("not UTF-8") << QByteArray("<Job a='\xE9'/>") << QString();
    QTest::newRow("NUL") << QByteArray("<Job/>\0", 7) << QString();
    QTest::newRow("broken behind the root") << QByteArray("<Job><a></b>") << "Job";
    QTest::newRow("broken before the root") << QByteArray("<!-- <Job/>") << QString();
}

void KindsTest::ofTexts()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, kind);

    QCOMPARE(DocumentKindOf(text), kind);
    QCOMPARE(Document(text).GetKind(), kind);
}

void KindsTest::ofExamples_data()
{
    DocumentSamples::addExamples();
}

void KindsTest::ofExamples()
{
    QFETCH(QString, path);

    const QByteArray text = DocumentSamples::contentOf(path);
    QCOMPARE(DocumentKindOf(text), Document(text).GetKind());
}

void KindsTest::withinLimits()
{
    TESSEL::ReadingLimits limits;
    limits.SetAttributes(1);
    QCOMPARE(DocumentKindOf("<Job a='' b=''/>"), QString("Job"));
    QCOMPARE(DocumentKindOf("<Job a='' b=''/>", limits), QString());
    QCOMPARE(DocumentKindOf("<Job a=''/>", limits), QString("Job"));
}

void KindsTest::ofObjects()
{
    QCOMPARE(DocumentKindOf(Job()), QString("Job"));
    QCOMPARE(DocumentKindOf(OwnJob()), QString("Job"));
    QCOMPARE(DocumentKindOf(GenericReceiver()), QString("GenericReceiver"));
    QCOMPARE(DocumentKindOf(TESSEL::Area()), QString());
    QCOMPARE(DocumentKindOf(JobHeader()), QString());
}

QTEST_GUILESS_MAIN(KindsTest)
#include "KindsTest.moc"
