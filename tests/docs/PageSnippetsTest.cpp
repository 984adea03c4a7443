// What the pages of docs/ show beside the examples: each snippet is run here.

#include <inspection/Document.h>
#include <inspection/Kinds.h>
#include <inspection/ReportIndex.h>
#include <kormak/AutomaticWorkflow.h>
#include <kormak/GenericReceiver.h>
#include <kormak/Job.h>
#include <objectbase/TesselException.h>

#include <QTemporaryDir>
#include <QtTest>

#include <optional>

namespace {

//! [double list]
KORMAK::Parameter channels()
{
    KORMAK::Parameter parameter;
    parameter.SetParameterType(KORMAK::ParameterType::DoubleList);
    parameter.SetValueType(KORMAK::Parameter::ValueFloatList);
    parameter.SetUniqueParameterName("Channels");
    parameter.SetRepresenationName("tuner.channels");
    parameter.SetDisplaySuffix("Hz");

    KORMAK::DoubleHandler &handler = parameter.GetDoubleHandler(); // that of lists, too
    handler.SetUseAsList(true); // the type alone does not say so to the handler
    handler.SetMaxDoubleListLength(32); // all that documents say of the list
    handler.SetMinimum(20e6);
    handler.SetMaximum(1300e6);
    handler.SetDefault(0);
    handler.SetValue(0);
    return parameter;
}
//! [double list]

//! [default is value]
KORMAK::Parameter attenuation()
{
    KORMAK::Parameter parameter;
    parameter.SetParameterType(KORMAK::ParameterType::Integer);
    parameter.SetValueType(KORMAK::Parameter::ValueNumericInt);
    parameter.SetUniqueParameterName("Attenuation");
    parameter.SetRepresenationName("tuner.attenuation");
    parameter.GetIntegerHandler().SetMaximum(40);
    parameter.GetIntegerHandler().SetDefault(10);
    parameter.GetIntegerHandler().SetValue(10);
    return parameter;
}

KORMAK::Parameter input()
{
    KORMAK::Parameter parameter;
    parameter.SetParameterType(KORMAK::ParameterType::Enum);
    parameter.SetValueType(KORMAK::Parameter::ValueSelection);
    parameter.SetUniqueParameterName("Input");
    parameter.SetRepresenationName("tuner.input");
    KORMAK::EnumHandler &handler = parameter.GetEnumHandler();
    handler.AppendEnumValue({0, "Antenna 1", "", 0, ""});
    handler.AppendEnumValue({1, "Antenna 2", "", 1, "true"});
    handler.SetDefaultValue(handler.GetEnumValue("Antenna 2")); // as reading does
    handler.SetSelectedEnumValue(handler.GetDefaultValue());
    return parameter;
}
//! [default is value]

KORMAK::Parameter received(const KORMAK::Parameter &parameter)
{
    KORMAK::Parameter copy;
    return copy.SetXmlString(parameter.GetXmlString(), true) ? copy : KORMAK::Parameter();
}

//! [read]
/// The job in a file, or nothing and, in \a complaint, why.
std::optional<KORMAK::Job> readJob(const QString &path, QString &complaint)
{
    try {
        KORMAK::Job job; // a new one, since reading does not reset
        if (!job.LoadXml(path)) {
            complaint = "cannot be read, is not well-formed, or is no job";
            return std::nullopt;
        }
        job.Check();
        if (job.HasData())
            return job;
        complaint = "passes the check, but is not complete"; // on another resource than an antenna
    } catch (const TESSEL::TesselException &error) { // it is not understood, or lacks something
        complaint = error.GetErrorMessage();
    }
    return std::nullopt;
}
//! [read]

//! [save]
/// Whether the job is in the file now; if not, \a complaint says why, and the file is as it was.
bool saveJob(const KORMAK::Job &job, const QString &path, QString &complaint)
{
    try {
        if (job.SaveXml(path))
            return true;
        complaint = job.HasData() ? "the file cannot be written" : "the job is not complete";
    } catch (const TESSEL::TesselException &error) {
        complaint = error.GetErrorMessage();
    }
    return false;
}
//! [save]

//! [inspect]
/// What stands between a file and the job in it, or between a job and its file, a line for each.
QStringList linesOf(const QVector<KORMAK::Finding> &findings)
{
    QStringList lines;
    for (const KORMAK::Finding &finding : findings) {
        const bool isError = finding.GetSeverity() == KORMAK::Finding::Severity::Error;
        const QString place = finding.HasPlace() ? QString::number(finding.GetLine()) + ": " : QString();
        lines +=
            place + (isError ? "error: " : "warning: ") + finding.GetPath() + ": " + finding.GetMessage();
    }
    return lines;
}

QStringList changeAuthor(const QString &path, const QString &author)
{
    auto document = KORMAK::Document::ReadFile(path, "Job");
    if (!document.IsAccepted())
        return linesOf(
            document.GetFindings()); // the file cannot be read, the text is none, something is missing...
    const auto losses = document.GetLosses(); // comments, for example
    if (!losses.isEmpty())
        return linesOf(losses);
    document.SetField("JobHeader.Author", author);
    return linesOf(document.SaveFile(path)); // empty: it is written
}
//! [inspect]

} // namespace

class PageSnippetsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void listEntry();
    void doubleList();
    void defaultIsValue();
    void valueIsLost();
    void receiver();
    void workflow();
    void workflowIsIncomplete();
    void area();
    void errors();
    void inspection();
};

void PageSnippetsTest::listEntry()
{
    //! [Entry]
    KORMAK::ReportIndex::Entry entry;
    entry.name = "antenna.xml";
    entry.link = "pages/antenna.xml.html";
    entry.kind = "Job";
    entry.isAccepted = true;
    //! [Entry]
    KORMAK::ReportIndex index;
    index.Add(entry);
    QVERIFY(index.GetHtml().contains("href=\"pages/antenna.xml.html\""));
}

void PageSnippetsTest::doubleList()
{
    const KORMAK::Parameter sent = channels();
    QCOMPARE(received(sent), sent);

    //! [values of a list]
    KORMAK::Parameter withValues = channels();
    withValues.GetDoubleHandler().AppendDoubleValue(145e6);
    const auto losses = KORMAK::Document(withValues).GetLosses();
    QCOMPARE(losses.size(), 1);
    QCOMPARE(losses[0].GetId(), KORMAK::FindingId::NotReadBack.toString());
    QCOMPARE(losses[0].GetPath(), QString("Double.DoubleList[0]"));
    //! [values of a list]
    QCOMPARE(received(withValues).GetDoubleHandler().GetDoubleList(), QVector<double>());
    QVERIFY(received(withValues) != withValues);

    KORMAK::Parameter asOneValue = sent;
    asOneValue.GetDoubleHandler().SetUseAsList(false);
    asOneValue.GetDoubleHandler().SetValue(KORMAK::DoubleHandler().GetValue());
    QVERIFY(!asOneValue.HasData());
    KORMAK::Parameter withoutLength = sent;
    withoutLength.GetDoubleHandler().SetMaxDoubleListLength(0);
    QVERIFY(!withoutLength.HasData());
}

void PageSnippetsTest::defaultIsValue()
{
    QCOMPARE(received(attenuation()), attenuation());
    QCOMPARE(received(input()), input());
}

void PageSnippetsTest::valueIsLost()
{
    //! [value is lost]
    KORMAK::Parameter sent = attenuation(); // its default is 10
    sent.GetIntegerHandler().SetValue(25);
    KORMAK::Parameter back;
    QVERIFY(back.SetXmlString(sent.GetXmlString(), true));
    QCOMPARE(back.GetIntegerHandler().GetValue(), 10);
    QVERIFY(back != sent);

    QCOMPARE(back.GetXmlString(), sent.GetXmlString()); // documents that say the same
    const auto differences = KORMAK::Document::Compare(KORMAK::Document(sent), KORMAK::Document(back));
    QCOMPARE(differences.size(), 1);
    QCOMPARE(differences[0].GetText(), QString("Integer.Value: 25 -> 10"));
    //! [value is lost]
}

void PageSnippetsTest::receiver()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("receiver.xml");
    //! [receiver]
    KORMAK::GenericReceiver receiver;
    receiver.AddParameter(attenuation());
    receiver.AddParameter(channels());
    receiver.AddParameter(input());

    const auto complaints =
        KORMAK::Document(receiver).SaveFile(path); // names what is incomplete in which parameter
    QVERIFY(complaints.isEmpty());

    KORMAK::GenericReceiver loaded;
    QVERIFY(loaded.LoadXml(path));
    QCOMPARE(loaded, receiver);
    //! [receiver]

    KORMAK::Parameter empty = channels();
    empty.GetDoubleHandler().SetMaxDoubleListLength(0);
    receiver.AddParameter(empty);
    const auto errors = KORMAK::Document(receiver).SaveFile(path);
    QCOMPARE(errors.size(), 1);
    QVERIFY2(errors[0].GetMessage().contains("Channels"), qPrintable(errors[0].GetMessage()));
    receiver.Check(); // does not throw
    QVERIFY(!receiver.SaveXml(path));
}

void PageSnippetsTest::workflow()
{
    //! [workflow]
    KORMAK::AutomaticWorkflow workflow;
    workflow.SetWorkflowMode(KORMAK::AutomaticWorkflow::AutomaticMode);
    workflow.SetSearchStrategy(KORMAK::AutomaticWorkflow::HighestLevelFirst); // all else has a default
    workflow.GetArea().SetName("Harbour"); // without a name it is not written
    workflow.GetArea().AddCoordinate({54.33, 10.13});
    const QString document = workflow.GetXmlString();

    KORMAK::AutomaticWorkflow received;
    QVERIFY(received.SetXmlString(document, true));
    QCOMPARE(received.GetWorkflowMode(), KORMAK::AutomaticWorkflow::InvalidWorkflowMode);
    received.SetWorkflowMode(KORMAK::AutomaticWorkflow::AutomaticMode);
    QCOMPARE(received, workflow);
    //! [workflow]
    QVERIFY(document.contains(" Mode=\"AutomaticMode\""));
    QVERIFY(received.HasData());
}

void PageSnippetsTest::workflowIsIncomplete()
{
    //! [incomplete workflow]
    KORMAK::AutomaticWorkflow workflow;
    workflow.SetWorkflowMode(KORMAK::AutomaticWorkflow::AutomaticMode);
    workflow.Check(); // passes
    QVERIFY(!workflow.HasData()); // there is no search strategy
    QVERIFY(!workflow.SaveXml("workflow.xml")); // and nothing that could be written
    const auto errors = KORMAK::Document(workflow).GetWriteErrors();
    QCOMPARE(errors.size(), 1); // which says so
    //! [incomplete workflow]
    QVERIFY2(errors[0].GetMessage().contains("SearchStrategy"), qPrintable(errors[0].GetMessage()));

    workflow.SetWorkflowMode(KORMAK::AutomaticWorkflow::ManualMode);
    QVERIFY(workflow.HasData());
}

void PageSnippetsTest::area()
{
    //! [area]
    TESSEL::Area area;
    area.SetName("German Bight");
    area.AddCoordinate({53.55, 7.1}); // degrees north, degrees east
    area.AddCoordinate({55.0625, 6.4});
    area.AddCoordinate({54.9, 8.3}); // the outline closes by itself
    area.GetCoordinate()[2].SetLongitude(8.25);

    KORMAK::AutomaticWorkflow workflow;
    workflow.SetWorkflowMode(KORMAK::AutomaticWorkflow::AutomaticMode);
    workflow.SetSearchStrategy(KORMAK::AutomaticWorkflow::LowestIdFirst);
    workflow.GetArea() = area; // a copy
    //! [area]
    QVERIFY(workflow.GetXmlString().contains("<Longitude>8.25</Longitude>"));
    area.SetName({});
    workflow.GetArea() = area;
    QVERIFY(!workflow.GetXmlString().contains("Area"));
    QCOMPARE(KORMAK::DocumentKindOf(area), QString());
}

void PageSnippetsTest::errors()
{
    const QTemporaryDir folder;
    const QString examples = EXAMPLES_DIR;
    const QString path = folder.filePath("job.xml");
    QString complaint;

    auto job = readJob(examples + "/jobs/antenna.xml", complaint);
    QVERIFY2(job, qPrintable(complaint));
    QVERIFY(saveJob(*job, path, complaint));
    QVERIFY(readJob(path, complaint) == job);
    QCOMPARE(complaint, QString());

    QVERIFY(!readJob(folder.filePath("missing.xml"), complaint));
    QCOMPARE(complaint, QString("cannot be read, is not well-formed, or is no job"));
    QVERIFY(!readJob(examples + "/faulty/missing-author.xml", complaint));
    QCOMPARE(complaint, QString("JobHeader: Please set Author"));
    QVERIFY(!readJob(examples + "/faulty/unknown-tag-in-job.xml", complaint));
    QCOMPARE(complaint, QString("Unknown Tag 'Priority' in 'Job'."));

    QVERIFY(!saveJob(*job, folder.filePath("none/job.xml"), complaint));
    QCOMPARE(complaint, QString("the file cannot be written"));
    job->SetResourceType(TESSEL::ResourceType::Decoder);
    QVERIFY(!saveJob(*job, path, complaint));
    QCOMPARE(complaint, QString("the job is not complete"));
    job->GetJobHeader().SetAuthor({});
    QVERIFY(!saveJob(*job, path, complaint));
    QCOMPARE(complaint, QString("JobHeader: Please set Author"));
    QVERIFY(readJob(path, complaint)); // what was there still is

    QVERIFY(!readJob(examples + "/jobs/signal-tracking-without-antenna.xml", complaint));
    QCOMPARE(complaint, QString("passes the check, but is not complete"));
}

void PageSnippetsTest::inspection()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("job.xml");
    const auto of = [&](const char *example) {
        QFile::remove(path);
        QFile::copy(QString(EXAMPLES_DIR) + '/' + example, path);
        return changeAuthor(path, "M. Keller");
    };
    QCOMPARE(of("jobs/antenna.xml"), QStringList());
    KORMAK::Job job;
    QVERIFY(job.LoadXml(path));
    QCOMPARE(job.GetJobHeader().GetAuthor(), QString("M. Keller"));

    QCOMPARE(of("faulty/missing-author.xml"), QStringList("3: error: Job/JobHeader/Author: missing"));
    QCOMPARE(of("receivers/vuhf-tuner.xml").size(), 1);
    QFile::remove(path);
    QCOMPARE(changeAuthor(path, "M. Keller").size(), 1);
}

QTEST_GUILESS_MAIN(PageSnippetsTest)

#include "PageSnippetsTest.moc"
