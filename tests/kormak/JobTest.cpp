#include <kormak/Job.h>
#include <tests/support/Samples.h>

#include <type_traits>

using namespace KORMAK;
using namespace TestSupport;
using TESSEL::AntennaData;
using TESSEL::ResourceType::ResourceTypeValue;

static_assert(std::is_base_of_v<TESSEL::ITesselObject, Job>);
static_assert(std::is_same_v<decltype(std::declval<const Job &>().GetJobHeader()), const JobHeader &>);
static_assert(std::is_same_v<decltype(std::declval<Job &>().GetJobHeader()), JobHeader &>);
static_assert(std::is_same_v<decltype(std::declval<const Job &>().GetAntennaData()), const AntennaData &>);
static_assert(std::is_same_v<decltype(std::declval<Job &>().GetAntennaData()), AntennaData &>);
static_assert(std::is_same_v<decltype(std::declval<const Job &>().GetVersion()), const QString &>);

class JobTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void newJob();
    void reset();
    void resetKeepsTheName();

    void header();
    void resourceTypes_data();
    void resourceTypes();
    void antennaData();
    void antennaDataRejected_data();
    void antennaDataRejected();
    void antennaDataOutliveTheResourceType();

    void completeness_data();
    void completeness();
    void completeMeansChecked();
    void checkOnDemand();
    void messagesNameTheObject_data();
    void messagesNameTheObject();
    void anyData_data();
    void anyData();

    void writing();
    void writesAntennaDataForTheAntennaOnly_data();
    void writesAntennaDataForTheAntennaOnly();
    void writesNamesOfOwnedObjects();
    void document();
    void documentOfSurveillance();
    void documentOfOtherResources();
    void documentOfNothing();
    void textsThatXmlCannotCarry();

    void reading_data();
    void reading();
    void readingReplacesOnlyWhatIsThere();
    void readingStaysOnTheEndElement();
    void unknownTags_data();
    void unknownTags();
    void namesOfOwnedObjectsAreTheTags();
    void headerComesBeforeResourceType();
    void resourceTypeComesBeforeAntennaData();
    void headerComesBeforeAntennaData();
    void searchJobsAreNeverComplete_data();
    void searchJobsAreNeverComplete();
    void roundTrip_data();
    void roundTrip();

    void equality_data();
    void equality();

    void copies();
    void copiesTheBase();
    void selfAssignment();
};

namespace {

constexpr int NotSet = -1;
constexpr int OnAntenna = 49;

ResourceTypeValue resource(int value)
{
    return static_cast<ResourceTypeValue>(value);
}

/// One field of each part of a job.
QStringList fieldsOf(const Job &job)
{
    return {
        "Version=" + job.GetVersion(),
        "Author=" + job.GetJobHeader().GetAuthor(),
        "Header version=" + job.GetJobHeader().GetVersion(),
        "ResourceType=" + QString::number(job.GetResourceType()),
        "Antenna=" + job.GetAntennaData().GetName(),
        "Antenna version=" + job.GetAntennaData().GetVersion(),
    };
}

class AlwaysComplete : public Job {
public:
    [[nodiscard]] bool HasData() const override { return true; }
};

class OpenJob : public Job {
public:
    using Job::IsValidAntennaData;
};

} // namespace

void JobTest::newJob()
{
    const Job job;

    QCOMPARE(fieldsOf(job),
             (QStringList{"Version=1.0", "Author=", "Header version=1.0", "ResourceType=-1",
                          "Antenna=", "Antenna version=1.0"}));
    QCOMPARE(job.GetJobHeader(), JobHeader());
    QCOMPARE(job.GetAntennaData(), AntennaData());
    QCOMPARE(job.GetResourceType(), TESSEL::ResourceType::GetInvalidResourceType());
    QCOMPARE(static_cast<int>(job.GetObjectType()), 40);
    QCOMPARE(job.GetObjectName(), QString("Job"));
    QVERIFY(!job.HasData());
    QVERIFY(job.AnyData());
    QCOMPARE(messageOf([&] { job.Check(); }), QString("JobHeader: Please set Author"));
    QCOMPARE(messageOf([&] { (void)job.GetXmlString(); }), QString("JobHeader: Please set Author"));
}

void JobTest::reset()
{
    Job job = completeJob();
    process(job,
            "<Job Version=\"2.0\"><JobHeader Version=\"3.0\"><ShowJDH>no</ShowJDH></JobHeader>"
            "<AntennaData Version=\"4.0\"/></Job>");
    job.Reset();

    QCOMPARE(fieldsOf(job), fieldsOf(Job()));
    QCOMPARE(job, Job());
    QCOMPARE(job.GetJobHeader(), JobHeader());
    QCOMPARE(job.GetAntennaData(), AntennaData());
}

void JobTest::resetKeepsTheName()
{
    Renamed<Job> job("Auftrag", completeJob());
    job.Reset();
    QCOMPARE(job.GetObjectName(), QString("Auftrag"));
    QCOMPARE(fieldsOf(job), fieldsOf(Job()));
}

void JobTest::header()
{
    Job job;
    job.GetJobHeader().SetAuthor("Ida");
    QCOMPARE(std::as_const(job).GetJobHeader().GetAuthor(), QString("Ida"));
    QCOMPARE(&std::as_const(job).GetJobHeader(), &job.GetJobHeader());

    JobHeader header = completeHeader(9);
    job.SetJobHeader(header);
    header.SetAuthor("Tom");
    QCOMPARE(job.GetJobHeader(), completeHeader(9));

    job.SetJobHeader(JobHeader());
    QCOMPARE(job.GetJobHeader(), JobHeader());
    job.SetJobHeader(completeHeader());
    job.SetJobHeader(job.GetJobHeader());
    QCOMPARE(job.GetJobHeader(), completeHeader());
}

void JobTest::resourceTypes_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("hasAntennaData");

    QTest::newRow("not set") << NotSet << false;
    QTest::newRow("first") << 0 << false;
    QTest::newRow("before the antenna") << 48 << false;
    QTest::newRow("antenna") << OnAntenna << true;
    QTest::newRow("behind the antenna") << 50 << false;
    QTest::newRow("antenna in the low byte") << 256 + OnAntenna << false;
    QTest::newRow("unknown") << 1000 << false;
    QTest::newRow("negative") << -49 << false;
}

void JobTest::resourceTypes()
{
    QFETCH(int, value);
    QFETCH(bool, hasAntennaData);

    OpenJob job;
    job.SetResourceType(resource(value));
    QCOMPARE(static_cast<int>(job.GetResourceType()), value);
    QCOMPARE(job.IsValidAntennaData(resource(value)), hasAntennaData);
    QCOMPARE(OpenJob().IsValidAntennaData(resource(value)), hasAntennaData);
}

void JobTest::antennaData()
{
    Job job;
    job.GetAntennaData().SetName("Mast 1");
    QCOMPARE(std::as_const(job).GetAntennaData().GetName(), QString("Mast 1"));
    QCOMPARE(&std::as_const(job).GetAntennaData(), &job.GetAntennaData());

    job.SetResourceType(resource(OnAntenna));
    AntennaData antenna = completeAntenna();
    job.SetAntennaData(antenna);
    antenna.SetName("Mast 9");
    QCOMPARE(job.GetAntennaData(), completeAntenna());

    job.SetAntennaData(AntennaData());
    QCOMPARE(job.GetAntennaData(), AntennaData());
}

void JobTest::antennaDataRejected_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("jobName");
    QTest::addColumn<QString>("message");

    const auto row = [](const char *name, int value, const QString &jobName, const QString &message) {
        QTest::newRow(name) << value << jobName << message;
    };
    const QString receiver = TESSEL::ResourceType::ResourceTypeToName(resource(0));
    const QString neighbour = TESSEL::ResourceType::ResourceTypeToName(resource(48));
    row("not set", NotSet, "Job", "Antenna data cannot be set for resource 'undefined' in 'Job'.");
    row("first", 0, "Job", "Antenna data cannot be set for resource '" + receiver + "' in 'Job'.");
    row("before the antenna", 48, "Job",
        "Antenna data cannot be set for resource '" + neighbour + "' in 'Job'.");
    row("unknown", 1000, "Job", "Antenna data cannot be set for resource 'undefined' in 'Job'.");
    row("another name", NotSet, "Auftrag",
        "Antenna data cannot be set for resource 'undefined' in 'Auftrag'.");
    row("placeholders", NotSet, "%2%1", "Antenna data cannot be set for resource 'undefined' in '%2%1'.");
}

void JobTest::antennaDataRejected()
{
    QFETCH(int, value);
    QFETCH(QString, jobName);
    QFETCH(QString, message);

    Renamed<Job> job(jobName, completeJob());
    job.SetResourceType(resource(value));
    QCOMPARE(messageOf([&] { job.SetAntennaData(AntennaData()); }), message);
    QCOMPARE(job.GetAntennaData(), completeAntenna());
    QCOMPARE(static_cast<int>(job.GetResourceType()), value);
}

void JobTest::antennaDataOutliveTheResourceType()
{
    Job job = completeJob();
    job.SetResourceType(resource(3));
    QCOMPARE(job.GetAntennaData(), completeAntenna());
    QCOMPARE(elementOf(job), QString());

    job.SetResourceType(resource(OnAntenna));
    QCOMPARE(elementOf(job), completeJobElement());
}

void JobTest::completeness_data()
{
    QTest::addColumn<JobHeader>("header");
    QTest::addColumn<int>("resourceType");
    QTest::addColumn<AntennaData>("antenna");
    QTest::addColumn<bool>("isComplete");
    QTest::addColumn<QString>("message");

    const auto row = [](const char *name, const JobHeader &header, int resourceType,
                        const AntennaData &antenna, bool isComplete, const QString &message) {
        QTest::newRow(name) << header << resourceType << antenna << isComplete << message;
    };
    const QString nothing;
    const QString noAuthor = "JobHeader: Please set Author";
    const QString noResourceType = "Job: Please set ResourceType";
    const QString noConnection = "JobHeader: Please set ConnectableRessource";
    const QString noName = "AntennaData: Please set Name";
    const JobHeader header = completeHeader();
    const AntennaData antenna = completeAntenna();
    JobHeader silent = headerWithShowJDH("");
    silent.SetAuthor("A");
    silent.SetCreation(header.GetCreation());
    silent.SetJobType(header.GetJobType());
    AntennaData narrow = antenna;
    narrow.SetMaximumFrequency(antenna.GetMinimumFrequency());

    row("complete", header, OnAntenna, antenna, true, nothing);

    row("no header", JobHeader(), OnAntenna, antenna, false, noAuthor);
    row("search", completeHeader(10), OnAntenna, antenna, false, noConnection);
    row("no resource type", header, NotSet, antenna, false, noResourceType);
    row("no antenna", header, OnAntenna, AntennaData(), false, noName);
    row("antenna without range", header, OnAntenna, narrow, false,
        "AntennaData: Please set MaximumFrequency");

    row("nothing", JobHeader(), NotSet, AntennaData(), false, noAuthor);
    row("header only", header, NotSet, AntennaData(), false, noResourceType);
    row("antenna only", JobHeader(), OnAntenna, AntennaData(), false, noAuthor);

    row("first resource", header, 0, antenna, false, nothing);
    row("resource before the antenna", header, 48, antenna, false, nothing);
    row("resource behind the antenna", header, 50, antenna, false, nothing);
    row("other invalid resource", header, -2, antenna, false, nothing);
    row("other resource without antenna", header, 7, AntennaData(), false, nothing);
    row("other resource without header", JobHeader(), 7, antenna, false, noAuthor);

    row("header without flag", silent, OnAntenna, antenna, false, nothing);
    row("header without flag, no resource type", silent, NotSet, antenna, false, noResourceType);
    row("header without flag, no antenna", silent, OnAntenna, AntennaData(), false, noName);
}

void JobTest::completeness()
{
    QFETCH(JobHeader, header);
    QFETCH(int, resourceType);
    QFETCH(AntennaData, antenna);
    QFETCH(bool, isComplete);
    QFETCH(QString, message);

    Job job;
    job.SetJobHeader(header);
    job.SetResourceType(resource(resourceType));
    job.GetAntennaData() = antenna;

    QCOMPARE(job.HasData(), isComplete);
    QCOMPARE(messageOf([&] { job.Check(); }), message);
    QCOMPARE(elementOf(job), isComplete ? completeJobElement() : QString());
    QString text;
    QCOMPARE(messageOf([&] { text = job.GetXmlString(); }), message);
    if (!isComplete)
        QCOMPARE(text, message.isEmpty() ? TestSupport::document("") : QString());
}

void JobTest::completeMeansChecked()
{
    const AlwaysComplete job;
    QCOMPARE(messageOf([&] { job.Check(); }), QString());
}

void JobTest::checkOnDemand()
{
    const Job job;
    QCOMPARE(messageOf([&] { job.Check(true); }), QString("JobHeader: Please set Author"));
    QCOMPARE(messageOf([&] { job.Check(false); }), QString());
}

void JobTest::messagesNameTheObject_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("name") << "Auftrag";
    QTest::newRow("first placeholder") << "%1";
    QTest::newRow("second placeholder") << "%2";
}

void JobTest::messagesNameTheObject()
{
    QFETCH(QString, name);
    Renamed<Job> job(name);
    job.SetJobHeader(Renamed<JobHeader>("Kopf", completeHeader()));

    QCOMPARE(messageOf([&] { job.Check(); }), QString(name + ": Please set ResourceType"));
    QCOMPARE(messageOf([&] { process(job, "<x><Nonsense/></x>"); }),
             QString("Unknown Tag 'Nonsense' in '" + name + "'."));
    QCOMPARE(messageOf([&] { process(job, "<x><Kopf><Nonsense/></Kopf></x>"); }),
             QString("Unknown Tag 'Nonsense' in 'Kopf'."));
    job.GetJobHeader().SetAuthor("");
    QCOMPARE(messageOf([&] { job.Check(); }), QString("Kopf: Please set Author"));
}

void JobTest::anyData_data()
{
    QTest::addColumn<QString>("job");
    QTest::addColumn<bool>("isAny");

    const auto row = [](const char *name, const QString &children, bool isAny) {
        QTest::newRow(name) << "<Job Version=\"1.0\"><JobHeader Version=\"1.0\"><ShowJDH/></JobHeader>"
                + children
                + "</Job>" << isAny;
    };
    row("nothing", "", false);
    row("header", "<JobHeader><Author>A</Author></JobHeader>", true);
    row("data-header flag", "<JobHeader><ShowJDH>false</ShowJDH></JobHeader>", true);
    row("first resource type",
        "<ResourceType>" + TESSEL::ResourceType::ResourceTypeToName(resource(0)) + "</ResourceType>", true);
    row("antenna as resource type", "<ResourceType>Antenna</ResourceType>", true);
    row("unknown resource type", "<ResourceType>Mast</ResourceType>", false);
    row("antenna data without the resource type", "<AntennaData><Name>A</Name></AntennaData>", true);
    row("versions", "<JobHeader Version=\"8\"/><AntennaData Version=\"9\"/>", false);
}

void JobTest::anyData()
{
    QFETCH(QString, job);
    QFETCH(bool, isAny);
    QCOMPARE(objectFrom<Job>(job).AnyData(), isAny);
}

void JobTest::writing()
{
    Job job = completeJob();
    QCOMPARE(elementOf(job), completeJobElement());

    job.GetJobHeader().SetDescription("d");
    job.GetAntennaData().SetAzimuth(12.5);
    process(job, "<Job Version=\"2.5\"/>");
    QCOMPARE(elementOf(job),
             completeJobElement()
                 .replace("<Job Version=\"1.0\">", "<Job Version=\"2.5\">")
                 .replace("</JobHeader>", "<Description>d</Description></JobHeader>")
                 .replace("</AntennaData>", "<Azimuth>12.5</Azimuth></AntennaData>"));

    process(job, "<Job/>");
    QVERIFY(elementOf(job).startsWith("<Job Version=\"\"><JobHeader Version=\"1.0\">"));
}

void JobTest::writesAntennaDataForTheAntennaOnly_data()
{
    QTest::addColumn<int>("value");
    for (int value = -2; value <= 51; ++value)
        QTest::addRow("resource type %d", value) << value;
}

void JobTest::writesAntennaDataForTheAntennaOnly()
{
    QFETCH(int, value);

    AlwaysComplete job;
    job.SetJobHeader(completeHeader());
    job.SetResourceType(resource(value));
    job.GetAntennaData() = completeAntenna();
    QCOMPARE(elementOf(job),
             QString("<Job Version=\"1.0\">" + completeHeaderElement() + "<ResourceType>"
                     + TESSEL::ResourceType::ResourceTypeToName(resource(value)) + "</ResourceType>"
                     + (value == OnAntenna ? completeAntennaElement() : "") + "</Job>"));
}

void JobTest::writesNamesOfOwnedObjects()
{
    Renamed<Job> job("Auftrag", completeJob());
    job.SetJobHeader(Renamed<JobHeader>("Kopf", completeHeader()));
    job.SetAntennaData(Renamed<AntennaData>("Antenne", completeAntenna()));

    QCOMPARE(elementOf(job),
             completeJobElement()
                 .replace("JobHeader", "Kopf")
                 .replace("AntennaData", "Antenne")
                 .replace("Job ", "Auftrag ")
                 .replace("/Job>", "/Auftrag>"));
}

void JobTest::document()
{
    Job job = completeJob();
    job.GetJobHeader().SetDescription("Night shift: <HF> & \"V/UHF\"");
    job.GetAntennaData().SetAzimuth(271.25);
    job.GetAntennaData().SetPolarization(AntennaData::Vertical);

    const QString text =
        "<?xml version=\"1.0\"?>\n"
        "<Job Version=\"1.0\">\n"
        "    <JobHeader Version=\"1.0\">\n"
        "        <JobType>Production SC HF</JobType>\n"
        "        <Author>Mara Lind</Author>\n"
        "        <Creation>2026-03-29T00:59:59,250Z</Creation>\n"
        "        <ShowJDH>true</ShowJDH>\n"
        "        <Description>Night shift: &lt;HF&gt; &amp; &quot;V/UHF&quot;</Description>\n"
        "    </JobHeader>\n"
        "    <ResourceType>Antenna</ResourceType>\n"
        "    <AntennaData Version=\"1.0\">\n"
        "        <Name>Mast 3</Name>\n"
        "        <MinimumFrequency>1500000</MinimumFrequency>\n"
        "        <MaximumFrequency>30000000</MaximumFrequency>\n"
        "        <Azimuth>271.25</Azimuth>\n"
        "        <Polarization>Vertical</Polarization>\n"
        "    </AntennaData>\n"
        "</Job>\n";
    QCOMPARE(job.GetXmlString(), text);
    QCOMPARE(static_cast<const TESSEL::ITesselObject &>(job).GetXmlString(), text);

    Job copy;
    QVERIFY(copy.SetXmlString(text, true));
    QCOMPARE(copy, job);
    QCOMPARE(copy.GetXmlString(), text);
}

void JobTest::documentOfSurveillance()
{
    const QString text = "<?xml version=\"1.0\"?>\n"
                         "<Job Version=\"2.0\">\n"
                         "    <JobHeader Version=\"1.2\">\n"
                         "        <JobType>Surveillance MC VUHF</JobType>\n"
                         "        <Author>Jörg Ünal</Author>\n"
                         "        <Creation>1999-12-31T23:59:59,999Z</Creation>\n"
                         "        <ShowJDH>yes</ShowJDH>\n"
                         "    </JobHeader>\n"
                         "    <ResourceType>Antenna</ResourceType>\n"
                         "    <AntennaData Version=\"3\">\n"
                         "        <Name>Turm 📡</Name>\n"
                         "        <MinimumFrequency>0</MinimumFrequency>\n"
                         "        <MaximumFrequency>3000000000.5</MaximumFrequency>\n"
                         "    </AntennaData>\n"
                         "</Job>\n";
    Job job;
    QVERIFY(job.SetXmlString(text, true));
    QCOMPARE(job.GetJobHeader().GetJobType(), JobType::SurveillanceMCVUHF);
    QVERIFY(!job.GetJobHeader().GetShowJDH());
    QCOMPARE(job.GetXmlString(), text);
}

void JobTest::documentOfOtherResources()
{
    Job job = completeJob();
    job.SetResourceType(resource(0));
    QCOMPARE(messageOf([&] { job.Check(); }), QString());
    QCOMPARE(job.GetXmlString(), QString("<?xml version=\"1.0\"?>\n"));
}

void JobTest::documentOfNothing()
{
    Job job = completeJob();
    job.GetJobHeader().SetAuthor("");
    QString text = "untouched";
    QCOMPARE(messageOf([&] { text = job.GetXmlString(); }), QString("JobHeader: Please set Author"));
    QCOMPARE(text, QString("untouched"));
}

void JobTest::textsThatXmlCannotCarry()
{
    Job job = completeJob();
    job.GetJobHeader().SetAuthor("bell\a");
    QCOMPARE(messageOf([&] { (void)job.GetXmlString(); }), QString("Job: Text cannot be represented in XML"));

    job = completeJob();
    job.GetAntennaData().SetName("one\rtwo");
    Job copy;
    QVERIFY(copy.SetXmlString(job.GetXmlString(), true));
    QCOMPARE(copy.GetAntennaData().GetName(), QString("one\rtwo"));
}

void JobTest::reading_data()
{
    QTest::addColumn<QString>("job");
    QTest::addColumn<QStringList>("fields");

    const auto row = [](const char *name, const QString &job, const QStringList &changes) {
        QStringList fields = fieldsOf(Job());
        for (QString &field : fields) {
            for (const QString &change : changes) {
                if (change.section('=', 0, 0) == field.section('=', 0, 0))
                    field = change;
            }
        }
        QTest::newRow(name) << job << fields;
    };
    const QString header = "<JobHeader Version=\"1.0\"><Author>Ida</Author></JobHeader>";
    const QString resourceType = "<ResourceType>Antenna</ResourceType>";
    const QString antenna = "<AntennaData Version=\"1.0\"><Name>A 1</Name></AntennaData>";
    const auto job = [](const QString &children) { return "<Job Version=\"1.0\">" + children + "</Job>"; };

    row("no children", job(""), {});
    row("header", job(header), {"Author=Ida"});
    row("resource type", job(resourceType), {"ResourceType=49"});
    row("antenna data", job(antenna), {"Antenna=A 1"});
    row("all, in order of writing", job(header + resourceType + antenna),
        {"Author=Ida", "ResourceType=49", "Antenna=A 1"});
    row("all, backwards", job(antenna + resourceType + header),
        {"Author=Ida", "ResourceType=49", "Antenna=A 1"});
    row("antenna data of another resource",
        job("<ResourceType>" + TESSEL::ResourceType::ResourceTypeToName(resource(0)) + "</ResourceType>"
            + antenna),
        {"ResourceType=0", "Antenna=A 1"});
    row("doubled: the last counts",
        job(header + resourceType + antenna + "<JobHeader Version=\"1.0\"><Author>Tom</Author></JobHeader>"
            + "<AntennaData Version=\"1.0\"><Name>A 2</Name></AntennaData><ResourceType>"
            + TESSEL::ResourceType::ResourceTypeToName(resource(48)) + "</ResourceType>"),
        {"Author=Tom", "ResourceType=48", "Antenna=A 2"});
    row("a second header replaces only what it holds",
        job(header + "<JobHeader Version=\"2.0\"><Description>d</Description></JobHeader>"),
        {"Author=Ida", "Header version=2.0"});

    row("unknown resource type replaces a known one", job(resourceType + "<ResourceType>Mast</ResourceType>"),
        {});
    row("resource type in lower case", job("<ResourceType>antenna</ResourceType>"), {});
    row("blanks around the resource type", job("<ResourceType> Antenna </ResourceType>"), {});
    row("number of a resource type", job("<ResourceType>49</ResourceType>"), {});
    row("empty resource type", job("<ResourceType/>"), {});

    row("versions", "<Job Version=\"2\"><JobHeader Version=\"3\"/><AntennaData Version=\"4\"/></Job>",
        {"Version=2", "Header version=3", "Antenna version=4"});
    row("no versions", "<Job><JobHeader/><AntennaData/></Job>",
        {"Version=", "Header version=", "Antenna version="});
    row("version in lower case", "<Job version=\"2\"/>", {"Version="});
    row("version among others", "<Job a=\"1\" Version=\"2\" version=\"3\"/>", {"Version=2"});
    row("version with a prefix", "<Job xmlns:j=\"urn:jobs\" j:Version=\"2\"/>", {"Version="});
    row("prefixes",
        "<j:Job xmlns:j=\"urn:jobs\" Version=\"2\"><j:JobHeader "
        "Version=\"3\"><j:Author>Ida</j:Author></j:JobHeader>"
        "<j:ResourceType>Antenna</j:ResourceType></j:Job>",
        {"Version=2", "Header version=3", "Author=Ida", "ResourceType=49"});
    row("comments and blanks between", job("\n  <!-- who -->\n  " + header + "\n  text\n" + resourceType),
        {"Author=Ida", "ResourceType=49"});
}

void JobTest::reading()
{
    QFETCH(QString, job);
    QFETCH(QStringList, fields);
    QCOMPARE(fieldsOf(objectFrom<Job>(job)), fields);
}

void JobTest::readingReplacesOnlyWhatIsThere()
{
    Job job = completeJob();
    job.GetJobHeader().SetDescription("d");
    process(job, "<Job Version=\"1.0\"><JobHeader Version=\"1.0\"><Author>Ida</Author></JobHeader></Job>");

    Job expected = completeJob();
    expected.GetJobHeader().SetDescription("d");
    expected.GetJobHeader().SetAuthor("Ida");
    QCOMPARE(elementOf(job), elementOf(expected));

    QVERIFY(job.SetXmlString("<Job Version=\"1.0\"/>", true));
    QCOMPARE(elementOf(job), elementOf(expected));
}

void JobTest::readingStaysOnTheEndElement()
{
    QXmlStreamReader reader("<Box>" + completeJobElement() + "<After/></Box>");
    reader.readNextStartElement();
    reader.readNextStartElement();
    Job job;
    job.ProcessXml(reader);
    QCOMPARE(job, completeJob());
    QVERIFY(reader.isEndElement());
    QCOMPARE(reader.name().toString(), QString("Job"));
    QVERIFY(reader.readNextStartElement());
    QCOMPARE(reader.name().toString(), QString("After"));

    for (const char *tag : {"JobHeader", "AntennaData", "ResourceType"}) {
        QXmlStreamReader child(QString("<Job><%1></%1></Job>").arg(tag));
        child.readNextStartElement();
        child.readNextStartElement();
        Renamed<Job> open("Job");
        open.ProcessXmlStartElement(child);
        QVERIFY(child.isEndElement());
        QCOMPARE(child.name().toString(), QString(tag));
    }
}

void JobTest::unknownTags_data()
{
    QTest::addColumn<QString>("child");
    QTest::addColumn<QString>("message");

    const auto row = [](const char *name, const QString &child, const QString &tag, const QString &object) {
        QTest::newRow(name) << child << "Unknown Tag '" + tag + "' in '" + object + "'.";
    };
    row("unknown", "<Priority>1</Priority>", "Priority", "Job");
    row("job in the job", "<Job/>", "Job", "Job");
    row("header in lower case", "<jobheader/>", "jobheader", "Job");
    row("header in other case", "<Jobheader/>", "Jobheader", "Job");
    row("resource type in other case", "<Resourcetype>Antenna</Resourcetype>", "Resourcetype", "Job");
    row("antenna data in capitals", "<ANTENNADATA/>", "ANTENNADATA", "Job");
    row("element of the header", "<Author>Ida</Author>", "Author", "Job");
    row("version as a child", "<Version>2</Version>", "Version", "Job");
    row("prefix", "<j:Priority xmlns:j=\"urn:jobs\"/>", "Priority", "Job");
    row("in the header", "<JobHeader><Priority/></JobHeader>", "Priority", "JobHeader");
    row("connectable resource", "<JobHeader><ConnectableResource/></JobHeader>", "ConnectableResource",
        "JobHeader");
    row("in the antenna data", "<AntennaData><Priority/></AntennaData>", "Priority", "AntennaData");
}

void JobTest::unknownTags()
{
    QFETCH(QString, child);
    QFETCH(QString, message);

    Job job;
    job.GetAntennaData().SetName("before");
    const QString text = "<Job Version=\"2.0\"><JobHeader Version=\"3.0\"><Author>Ida</Author></JobHeader>"
                         "<ResourceType>Antenna</ResourceType>"
        + child
        + "<JobHeader><Author>Tom</Author></JobHeader><AntennaData><Name>behind</Name></AntennaData></Job>";
    QCOMPARE(messageOf([&] { process(job, text); }), message);
    QCOMPARE(job.GetVersion(), QString("2.0"));
    QCOMPARE(job.GetJobHeader().GetAuthor(), QString("Ida"));
    QCOMPARE(static_cast<int>(job.GetResourceType()), OnAntenna);
    QCOMPARE(job.GetAntennaData().GetName(), QString("before"));

    Job again;
    QCOMPARE(messageOf([&] { (void)again.SetXmlString(text, true); }), message);
}

void JobTest::namesOfOwnedObjectsAreTheTags()
{
    Renamed<Job> job("Auftrag");
    job.SetJobHeader(Renamed<JobHeader>("Kopf"));
    job.GetAntennaData() = Renamed<AntennaData>("Antenne");

    process(job, "<Auftrag><Kopf><Author>Ida</Author></Kopf><Antenne><Name>A 1</Name></Antenne></Auftrag>");
    QCOMPARE(job.GetJobHeader().GetAuthor(), QString("Ida"));
    QCOMPARE(job.GetAntennaData().GetName(), QString("A 1"));
    QCOMPARE(messageOf([&] { process(job, "<Auftrag><JobHeader/></Auftrag>"); }),
             QString("Unknown Tag 'JobHeader' in 'Auftrag'."));
    QCOMPARE(messageOf([&] { process(job, "<Auftrag><AntennaData/></Auftrag>"); }),
             QString("Unknown Tag 'AntennaData' in 'Auftrag'."));
}

void JobTest::headerComesBeforeResourceType()
{
    Job job;
    job.SetJobHeader(Renamed<JobHeader>("ResourceType"));
    process(job, "<Job><ResourceType Version=\"5\"><Author>Ida</Author></ResourceType></Job>");
    QCOMPARE(job.GetJobHeader().GetAuthor(), QString("Ida"));
    QCOMPARE(static_cast<int>(job.GetResourceType()), NotSet);
}

void JobTest::resourceTypeComesBeforeAntennaData()
{
    Job job;
    job.GetAntennaData() = Renamed<AntennaData>("ResourceType");
    process(job, "<Job><ResourceType Version=\"5\">Antenna</ResourceType></Job>");
    QCOMPARE(static_cast<int>(job.GetResourceType()), OnAntenna);
    QCOMPARE(job.GetAntennaData().GetVersion(), QString("1.0"));
}

void JobTest::headerComesBeforeAntennaData()
{
    Job job;
    job.SetJobHeader(Renamed<JobHeader>("Part"));
    job.GetAntennaData() = Renamed<AntennaData>("Part");
    process(job, "<Job><Part Version=\"5\"/></Job>");
    QCOMPARE(job.GetJobHeader().GetVersion(), QString("5"));
    QCOMPARE(job.GetAntennaData().GetVersion(), QString("1.0"));
}

void JobTest::searchJobsAreNeverComplete_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("HF") << "Search MC HF";
    QTest::newRow("V/UHF") << "Search MC VUHF";
}

void JobTest::searchJobsAreNeverComplete()
{
    QFETCH(QString, name);

    Job job = objectFrom<Job>(completeJobElement().replace("Production SC HF", name));
    QVERIFY(!job.HasData());
    QCOMPARE(messageOf([&] { (void)job.GetXmlString(); }),
             QString("JobHeader: Please set ConnectableRessource"));
    QCOMPARE(elementOf(job), QString());

    QCOMPARE(messageOf([&] {
                 process(job,
                         completeJobElement().replace(
                             "</JobHeader>",
                             "<ConnectableResource>DDC IPC Voice HF</ConnectableResource></JobHeader>"));
             }),
             QString("Unknown Tag 'ConnectableResource' in 'JobHeader'."));
}

void JobTest::roundTrip_data()
{
    QTest::addColumn<int>("jobType");
    for (int value = 0; value <= 21; ++value) {
        if (!JobType::IsSearchMC(static_cast<JobType::JobTypeValue>(value)))
            QTest::addRow("job type %d", value) << value;
    }
}

void JobTest::roundTrip()
{
    QFETCH(int, jobType);

    Job job = completeJob();
    job.SetJobHeader(completeHeader(jobType));
    job.GetJobHeader().SetDescription("%1 <b>\n\tÄ 📡 %2");
    job.GetAntennaData().SetMaximumFrequency(1e9 / 3);
    process(job, "<Job Version=\"&lt;2&gt;\"/>");

    Job copy;
    QVERIFY(copy.SetXmlString(job.GetXmlString(), true));
    QCOMPARE(copy, job);
    QCOMPARE(elementOf(copy), elementOf(job));
}

void JobTest::equality_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<bool>("areEqual");

    const auto row = [](const char *name, const QString &first, const QString &second, bool areEqual) {
        QTest::newRow(name) << "<Job Version=\"1.0\">" + first + "</Job>"
                            << "<Job Version=\"1.0\">" + second + "</Job>" << areEqual;
    };
    const QString onAntenna = "<ResourceType>Antenna</ResourceType>";
    const auto onResource = [](int value) {
        return "<ResourceType>" + TESSEL::ResourceType::ResourceTypeToName(resource(value))
            + "</ResourceType>";
    };
    const auto header = [](const QString &text) {
        return "<JobHeader Version=\"1.0\">" + text + "</JobHeader>";
    };
    const QString mast1 = "<AntennaData Version=\"1.0\"><Name>Mast 1</Name></AntennaData>";
    const QString mast2 = "<AntennaData Version=\"1.0\"><Name>Mast 2</Name></AntennaData>";

    row("new", "", "", true);
    row("all the same", header("<Author>A</Author>") + onAntenna + mast1,
        header("<Author>A</Author>") + onAntenna + mast1, true);
    row("header", header("<Author>A</Author>"), header("<Author>B</Author>"), false);
    row("version of the header", header(""), "<JobHeader Version=\"1.1\"/>", false);
    row("headers that compare equal", header("<ShowJDH>no</ShowJDH>"), header("<ShowJDH>maybe</ShowJDH>"),
        true);
    row("creations within a second", header("<Creation>2026-03-29T00:59:59,250Z</Creation>"),
        header("<Creation>2026-03-29T00:59:59,750Z</Creation>"), true);
    row("resource type", onResource(0), onResource(1), false);
    row("resource type not set", onResource(0), "", false);
    row("antenna and not set", onAntenna, "", false);
    row("antenna and another resource", onAntenna + mast1, onResource(48) + mast1, false);
    row("antennas of the antenna resource", onAntenna + mast1, onAntenna + mast2, false);
    row("antennas of another resource", onResource(48) + mast1, onResource(48) + mast2, true);
    row("antennas without a resource", mast1, mast2, true);
    row("antennas of an unknown resource", "<ResourceType>x</ResourceType>" + mast1,
        "<ResourceType>y</ResourceType>" + mast2, true);

    QTest::newRow("version") << "<Job Version=\"1.0\"/>"
                             << "<Job Version=\"1.1\"/>" << false;
    QTest::newRow("no version") << "<Job Version=\"1.0\"/>"
                                << "<Job/>" << false;
    QTest::newRow("the same other version") << "<Job Version=\"2\"/>"
                                            << "<Job Version=\"2\"/>" << true;
}

void JobTest::equality()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    QFETCH(bool, areEqual);
    const Job a = objectFrom<Job>(first);
    const Job b = objectFrom<Job>(second);

    QCOMPARE(a == b, areEqual);
    QCOMPARE(b == a, areEqual);
    QCOMPARE(a != b, !areEqual);
    QCOMPARE(b != a, !areEqual);
    QVERIFY(a == a);
    QVERIFY(static_cast<const Job &>(Renamed<Job>("Auftrag", a)) == a);
}

void JobTest::copies()
{
    Job job = completeJob();
    process(job,
            "<Job Version=\"2.0\"><JobHeader Version=\"3.0\"><ShowJDH>no</ShowJDH></JobHeader>"
            "<AntennaData Version=\"4.0\"/></Job>");
    const QStringList fields = fieldsOf(job);
    const QString written = elementOf(job);

    const Job copy(job);
    Job assigned;
    Job &result = assigned = job;
    QCOMPARE(&result, &assigned);
    job.Reset();

    for (const Job *other : std::initializer_list<const Job *>{&copy, &assigned}) {
        QCOMPARE(fieldsOf(*other), fields);
        QCOMPARE(elementOf(*other), written);
    }

    job = completeJob();
    job.SetResourceType(resource(7));
    QCOMPARE(Job(job).GetAntennaData(), completeAntenna());
    assigned = job;
    QCOMPARE(static_cast<int>(assigned.GetResourceType()), 7);
    QCOMPARE(assigned.GetAntennaData(), completeAntenna());
}

void JobTest::copiesTheBase()
{
    const Renamed<Job> renamed("Auftrag", completeJob());
    renamed.SetValidate(false);

    const Job copy(renamed);
    Job assigned;
    assigned = renamed;
    for (const Job *other : std::initializer_list<const Job *>{&copy, &assigned}) {
        QCOMPARE(other->GetObjectName(), QString("Auftrag"));
        QCOMPARE(other->GetObjectType(), TESSEL::ObjectTypes::Job);
        QVERIFY(!other->GetValidate());
    }
}

void JobTest::selfAssignment()
{
    Job job = completeJob();
    const Job &same = job;
    job = same;
    QCOMPARE(elementOf(job), completeJobElement());
}

QTEST_GUILESS_MAIN(JobTest)
#include "JobTest.moc"
