// What the pages of the classes in inspection/ show: each snippet bears the name of its class.

#include <inspection/Document.h>
#include <kormak/Job.h>
#include <objectbase/TesselException.h>

#include <QTemporaryDir>
#include <QtTest>

namespace {

QString jobPath()
{
    return QString(EXAMPLES_DIR) + "/jobs/antenna.xml";
}

KORMAK::Document job()
{
    return KORMAK::Document::ReadFile(jobPath());
}

KORMAK::Document jobWithoutAuthor()
{
    return KORMAK::Document::ReadFile(QString(EXAMPLES_DIR) + "/faulty/missing-author.xml");
}

} // namespace

class InspectionSnippetsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void difference();
    void document();
    void entry();
    void field();
    void finding();
    void findingId();
    void vocabulary();
};

void InspectionSnippetsTest::difference()
{
    const KORMAK::Document before = job();
    KORMAK::Document after = before;
    after.SetField("JobHeader.Author", "M. Keller");
    QStringList lines;
    //! [Difference]
    const auto differences = KORMAK::Document::Compare(before, after);
    for (const KORMAK::Difference &difference : differences)
        lines += difference.GetPath() + " was " + difference.GetBefore();
    //! [Difference]
    QCOMPARE(lines, QStringList("JobHeader.Author was \"L. Brandt\""));
}

void InspectionSnippetsTest::document()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("job.xml");
    QVERIFY(QFile::copy(jobPath(), path));
    int complaints = 0;
    const auto complain = [&](const QVector<KORMAK::Finding> &findings) { complaints += findings.size(); };
    //! [Document]
    auto document = KORMAK::Document::ReadFile(path, "Job");
    complain(document.GetFindings()); // with places; none when all is well
    if (document.GetObject()) { // it could be read
        complain(document.GetLosses()); // what would be gone once it is written
        document.SetField("JobHeader.Author", "M. Keller");
        complain(document.SaveFile(path)); // nothing when it is written
    }
    //! [Document]
    QCOMPARE(complaints, 0);
    KORMAK::Job saved;
    QVERIFY(saved.LoadXml(path));
    QCOMPARE(saved.GetJobHeader().GetAuthor(), QString("M. Keller"));
    complain(KORMAK::Document::ReadFile(path, "GenericReceiver").GetFindings());
    QCOMPARE(complaints, 1);
}

void InspectionSnippetsTest::entry()
{
    //! [Entry]
    const auto types = KORMAK::FindVocabulary("JobType").GetEntries();
    const KORMAK::Vocabulary::Entry &search = types[11];
    QCOMPARE(search.name, QString("Search MC VUHF")); // is read
    QCOMPARE(search.written, QString("Surveillance MC VUHF"));
    //! [Entry]
    QCOMPARE(search.value, 11);
}

void InspectionSnippetsTest::field()
{
    const KORMAK::Document document = job();
    //! [Field]
    const KORMAK::Field field = document.GetField("AntennaData.MinimumFrequency");
    QCOMPARE(field.GetLabel(), QString("Minimum frequency"));
    QCOMPARE(field.GetUnit(), QString("Hz"));
    QCOMPARE(field.GetValue().toDouble(), 1.5e6); // exactly what it holds
    QCOMPARE(field.GetText(), QString("1500000")); // as SetField() takes it
    //! [Field]
}

void InspectionSnippetsTest::finding()
{
    const KORMAK::Document document = jobWithoutAuthor();
    QStringList lines;
    //! [Finding]
    const auto findings = document.GetFindings();
    for (const KORMAK::Finding &finding : findings) {
        if (finding.GetSeverity() == KORMAK::Finding::Severity::Error)
            lines += QString("line %1: %2: %3")
                         .arg(finding.GetLine())
                         .arg(finding.GetPath(), finding.GetMessage());
    }
    //! [Finding]
    QCOMPARE(lines, QStringList("line 3: Job/JobHeader/Author: missing"));
}

void InspectionSnippetsTest::findingId()
{
    const KORMAK::Document document = jobWithoutAuthor();
    //! [FindingId]
    const auto findings = document.GetFindings();
    const bool asksForMore =
        std::any_of(findings.begin(), findings.end(), [](const KORMAK::Finding &finding) {
            return finding.GetId() == KORMAK::FindingId::MissingElement;
        });
    //! [FindingId]
    QVERIFY(asksForMore);
}

void InspectionSnippetsTest::vocabulary()
{
    //! [Vocabulary]
    const QStringList modes = KORMAK::FindVocabulary("WorkflowMode").GetNames();
    QCOMPARE(modes, QStringList({"ManualMode", "AutomaticMode"}));
    QVERIFY(KORMAK::FindVocabulary("Mode").IsNull()); // there is none
    //! [Vocabulary]
}

QTEST_GUILESS_MAIN(InspectionSnippetsTest)

#include "InspectionSnippetsTest.moc"
