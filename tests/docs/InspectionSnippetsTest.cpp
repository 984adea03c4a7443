// What the pages of the classes in inspection/ show: each snippet bears the name of its class.

#include <inspection/Document.h>
#include <inspection/DocumentEdit.h>
#include <inspection/ParameterSummary.h>
#include <inspection/Report.h>
#include <inspection/ReportIndex.h>
#include <kormak/Job.h>
#include <kormak/Parameter.h>
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

QByteArray textOfJob()
{
    QFile file(jobPath());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

KORMAK::Document jobWithoutAuthor()
{
    return KORMAK::Document::ReadFile(QString(EXAMPLES_DIR) + "/faulty/missing-author.xml");
}

} // namespace

class InspectionSnippetsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void change();
    void difference();
    void document();
    void documentEdit();
    void entry();
    void field();
    void fieldNode();
    void finding();
    void findingId();
    void place();
    void parameterSummary();
    void report();
    void reportIndex();
    void vocabulary();
};

void InspectionSnippetsTest::change()
{
    using Change = KORMAK::DocumentEdit::Change;
    const QByteArray text = textOfJob();
    //! [Change]
    const QVector<Change> changes{{Change::Action::Set, "AntennaData.Azimuth", "45.5"},
                                  {Change::Action::Unset, "JobHeader.Description"}};
    //! [Change]
    QVERIFY(KORMAK::DocumentEdit(text, changes).GetText().contains("<Azimuth>45.5</Azimuth>"));
}

void InspectionSnippetsTest::documentEdit()
{
    using Change = KORMAK::DocumentEdit::Change;
    const QByteArray text = textOfJob();
    QByteArray result;
    //! [DocumentEdit]
    const KORMAK::DocumentEdit edit(text, {{Change::Action::Set, "JobHeader.Author", "M. Keller"}});
    if (edit.IsDone())
        result = edit.GetText(); // with another author, and every other byte as it was
    //! [DocumentEdit]
    QCOMPARE(result, QByteArray(text).replace("L. Brandt", "M. Keller"));
}

void InspectionSnippetsTest::place()
{
    using Change = KORMAK::DocumentEdit::Change;
    const KORMAK::DocumentEdit edit(textOfJob(), {{Change::Action::Set, "JobHeader.Author", "M. Keller"}});
    QStringList lines;
    //! [Place]
    const auto places = edit.GetPlaces();
    for (const KORMAK::DocumentEdit::Place &place : places)
        lines += QString("line %1: %2 is now %3").arg(place.line).arg(place.removed, place.inserted);
    //! [Place]
    QCOMPARE(lines, QStringList("line 5: L. Brandt is now M. Keller"));
}

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

void InspectionSnippetsTest::fieldNode()
{
    const KORMAK::Document document = job();
    QStringList paths;
    //! [FieldNode]
    const QVector<KORMAK::FieldNode> nodes = document.GetNodes("AntennaData");
    for (const KORMAK::FieldNode &node : nodes)
        paths += node.GetPath(); // "AntennaData.Version" and so on
    //! [FieldNode]
    QCOMPARE(paths.value(0), QString("AntennaData.Version"));
    QCOMPARE(nodes.value(0).GetKind(), KORMAK::FieldNode::Kind::Value);
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

void InspectionSnippetsTest::parameterSummary()
{
    //! [ParameterSummary]
    KORMAK::Parameter parameter;
    parameter.SetUniqueParameterName("Bandwidth");
    parameter.SetRepresenationName("rx.bandwidth");
    parameter.SetParameterType(KORMAK::ParameterType::Double);
    parameter.SetDisplaySuffix("kHz");
    parameter.SetMultiplier(1000); // shown in kHz, stored in Hz
    parameter.GetDoubleHandler().SetDefault(9000);
    parameter.GetDoubleHandler().SetValue(12500);
    const KORMAK::ParameterSummary summary(parameter);
    QCOMPARE(summary.group, QString("rx"));
    QCOMPARE(summary.value, QString("12.5\u00a0kHz"));
    QCOMPARE(summary.defaultValue, QString("9\u00a0kHz"));
    //! [ParameterSummary]
    QVERIFY(summary.range.isEmpty());
}

void InspectionSnippetsTest::report()
{
    const QByteArray text = textOfJob();
    //! [Report]
    const KORMAK::Document document(text);
    const QByteArray page = KORMAK::Report(document, "antenna.xml", text).GetHtml();
    //! [Report]
    QVERIFY(page.contains("antenna.xml") && page.contains("L. Brandt"));
}

void InspectionSnippetsTest::reportIndex()
{
    //! [ReportIndex]
    KORMAK::ReportIndex index;
    index.Add(KORMAK::ReportIndex::EntryOf(job(), "antenna.xml", "antenna.xml.html"));
    index.Add(KORMAK::ReportIndex::EntryOf(jobWithoutAuthor(), "other.xml", "other.xml.html"));
    index.Sort(KORMAK::ReportIndex::Order::Findings); // the one with most to tell first
    const QByteArray page = index.GetHtml();
    //! [ReportIndex]
    QVERIFY(page.indexOf("other.xml") < page.indexOf("antenna.xml"));
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
