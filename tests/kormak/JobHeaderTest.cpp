#include <kormak/JobHeader.h>
#include <tests/support/Samples.h>

#include <limits>
#include <type_traits>

using namespace KORMAK;
using namespace TestSupport;
using JobType::JobTypeValue;
using TESSEL::Converters::ToDateTime;

static_assert(std::is_base_of_v<TESSEL::ITesselObject, JobHeader>);
static_assert(std::is_same_v<decltype(std::declval<const JobHeader &>().GetAuthor()), const QString &>);
static_assert(std::is_same_v<decltype(std::declval<const JobHeader &>().GetCreation()), const QDateTime &>);
static_assert(std::is_same_v<decltype(std::declval<const JobHeader &>().GetDescription()), const QString &>);
static_assert(std::is_same_v<decltype(std::declval<const JobHeader &>().GetVersion()), const QString &>);

class JobHeaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void newHeader();
    void reset();
    void resetKeepsTheName();

    void settersStoreWithoutTest_data();
    void settersStoreWithoutTest();
    void setJobType_data();
    void setJobType();
    void setJobTypeRejects_data();
    void setJobTypeRejects();
    void setShowJDH();
    void showJDHIsKeptAsText_data();
    void showJDHIsKeptAsText();

    void completeness_data();
    void completeness();
    void completeJobTypes_data();
    void completeJobTypes();
    void checkOnDemand();
    void completeMeansChecked();
    void connectableResourceIsWrittenForSearchJobs_data();
    void connectableResourceIsWrittenForSearchJobs();
    void messagesNameTheObject_data();
    void messagesNameTheObject();
    void anyData_data();
    void anyData();
    void emptyTextsAreNoData();

    void writing_data();
    void writing();
    void creationIsWrittenInUtc();
    void documents();
    void textsThatXmlCannotCarry();

    void reading_data();
    void reading();
    void readingReplacesOnlyWhatIsThere();
    void readingStaysOnTheEndElement();
    void unknownTags_data();
    void unknownTags();
    void searchJobsAreNotReadBack();
    void elementInsideText();
    void roundTrip_data();
    void roundTrip();

    void equality_data();
    void equality();
    void equalityIgnoresTheName();

    void copies();
    void copiesTheBase();
    void selfAssignment();
};

namespace {

QString element(const QString &children)
{
    return "<JobHeader Version=\"1.0\">" + children + "</JobHeader>";
}

QStringList fieldsOf(const JobHeader &header)
{
    return {
        "Version=" + header.GetVersion(),
        "JobType=" + QString::number(header.GetJobType()),
        "ConnectableResource=" + QString::number(header.GetConnectableResource()),
        "Author=" + header.GetAuthor(),
        "Creation=" + TESSEL::Converters::ToString(header.GetCreation()),
        "Description=" + header.GetDescription(),
        QString("ShowJDH=") + (header.GetShowJDH() ? "true" : "false"),
    };
}

/// The fields of a new header, but for \a changes ("Author=Ida").
QStringList newFieldsBut(const QStringList &changes)
{
    return with({"Version=1.0", "JobType=-1", "ConnectableResource=-1",
                 "Author=", "Creation=", "Description=", "ShowJDH=true"},
                changes);
}

/// A class derived from the header may know better what is complete.
class AlwaysComplete : public JobHeader {
public:
    [[nodiscard]] bool HasData() const override { return true; }
};

} // namespace

void JobHeaderTest::newHeader()
{
    const JobHeader header;

    QCOMPARE(fieldsOf(header), newFieldsBut({}));
    QCOMPARE(header.GetCreation(), QDateTime());
    QVERIFY(header.GetCreation().isNull());
    QCOMPARE(header.GetObjectType(), TESSEL::ObjectTypes::JobHeader);
    QCOMPARE(static_cast<int>(header.GetObjectType()), 41);
    QCOMPARE(header.GetObjectName(), QString("JobHeader"));
    QVERIFY(!header.HasData());
    QVERIFY(header.AnyData());
    QCOMPARE(messageOf([&] { header.Check(); }), QString("JobHeader: Please set Author"));
}

void JobHeaderTest::reset()
{
    JobHeader header =
        objectFrom<JobHeader>("<JobHeader Version=\"7.3\"><Author>Ida</Author><JobType>Antenna</JobType>"
                              "<Creation>2026-05-04T07:08:09,010Z</Creation><Description>d</Description>"
                              "<ShowJDH>perhaps</ShowJDH></JobHeader>");
    header.Reset();

    QCOMPARE(fieldsOf(header), newFieldsBut({}));
    QVERIFY(header.GetCreation().isNull());
    QCOMPARE(header, JobHeader());

    header.SetAuthor("A");
    header.SetCreation(ToDateTime("2026-03-29T00:59:59,250Z"));
    header.SetJobType(JobType::ProductionSCHF);
    QVERIFY(elementOf(header).contains("<ShowJDH>true</ShowJDH>"));
}

void JobHeaderTest::resetKeepsTheName()
{
    Renamed<JobHeader> header("Kopf");
    header.Reset();
    QCOMPARE(header.GetObjectName(), QString("Kopf"));
}

void JobHeaderTest::settersStoreWithoutTest_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("text") << "Überwachung 4–6 MHz";
    QTest::newRow("empty") << "";
    QTest::newRow("blanks") << "  ";
    QTest::newRow("placeholders") << "%1 %2";
    QTest::newRow("markup") << "<a href=\"x\">&amp;</a>";
    QTest::newRow("control character") << QString(QChar(1));
}

void JobHeaderTest::settersStoreWithoutTest()
{
    QFETCH(QString, text);

    JobHeader header;
    header.SetAuthor(text);
    QCOMPARE(fieldsOf(header), newFieldsBut({"Author=" + text}));

    header = JobHeader();
    header.SetDescription(text);
    QCOMPARE(fieldsOf(header), newFieldsBut({"Description=" + text}));

    const QDateTime creation = ToDateTime("2026-03-29T00:59:59,250Z");
    header = JobHeader();
    header.SetCreation(creation);
    QCOMPARE(header.GetCreation(), creation);
    QCOMPARE(fieldsOf(header), newFieldsBut({"Creation=2026-03-29T00:59:59,250Z"}));
    header.SetCreation(QDateTime());
    QCOMPARE(fieldsOf(header), newFieldsBut({}));
}

void JobHeaderTest::setJobType_data()
{
    QTest::addColumn<int>("value");
    for (int value = 0; value <= 21; ++value)
        QTest::addRow("job type %d", value) << value;
}

void JobHeaderTest::setJobType()
{
    QFETCH(int, value);

    JobHeader header;
    header.SetJobType(static_cast<JobTypeValue>(value));
    QCOMPARE(fieldsOf(header), newFieldsBut({"JobType=" + QString::number(value)}));
}

void JobHeaderTest::setJobTypeRejects_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("message");

    QTest::newRow("not set") << -1 << "JobHeader: Invalid JobType '-1'";
    QTest::newRow("behind the last") << 22 << "JobHeader: Invalid JobType '22'";
    QTest::newRow("far behind the last") << 1000000 << "JobHeader: Invalid JobType '1000000'";
    QTest::newRow("smallest number") << std::numeric_limits<int>::min()
                                     << "JobHeader: Invalid JobType '-2147483648'";
    QTest::newRow("greatest number") << std::numeric_limits<int>::max()
                                     << "JobHeader: Invalid JobType '2147483647'";
}

void JobHeaderTest::setJobTypeRejects()
{
    QFETCH(int, value);
    QFETCH(QString, message);

    JobHeader header;
    header.SetJobType(JobType::SignalTracking);
    QCOMPARE(messageOf([&] { header.SetJobType(static_cast<JobTypeValue>(value)); }), message);
    QCOMPARE(header.GetJobType(), JobType::SignalTracking);

    Renamed<JobHeader> renamed("%2 and %1");
    QCOMPARE(messageOf([&] { renamed.SetJobType(static_cast<JobTypeValue>(value)); }),
             QString("%2 and %1") + message.mid(static_cast<int>(qstrlen("JobHeader"))));
}

void JobHeaderTest::setShowJDH()
{
    JobHeader header = completeHeader();
    header.SetShowJDH(false);
    QVERIFY(!header.GetShowJDH());
    QVERIFY(header.HasData());
    QCOMPARE(elementOf(header),
             completeHeaderElement().replace("<ShowJDH>true</ShowJDH>", "<ShowJDH>false</ShowJDH>"));

    header.SetShowJDH(true);
    QVERIFY(header.GetShowJDH());
    QCOMPARE(elementOf(header), completeHeaderElement());
}

void JobHeaderTest::showJDHIsKeptAsText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("shown");

    QTest::newRow("true") << "true" << true;
    QTest::newRow("false") << "false" << false;
    QTest::newRow("capitals") << "TRUE" << false;
    QTest::newRow("one capital") << "True" << false;
    QTest::newRow("digit") << "1" << false;
    QTest::newRow("blank in front") << " true" << false;
    QTest::newRow("blank behind") << "true " << false;
    QTest::newRow("longer word") << "trueish" << false;
    QTest::newRow("another word") << "perhaps" << false;
    QTest::newRow("blank") << " " << false;
    QTest::newRow("placeholder") << "%1" << false;
    QTest::newRow("escaped") << "&lt;no&amp;" << false;
}

void JobHeaderTest::showJDHIsKeptAsText()
{
    QFETCH(QString, text);
    QFETCH(bool, shown);

    JobHeader header = completeHeader();
    process(header, element("<ShowJDH>" + text + "</ShowJDH>"));
    QCOMPARE(header.GetShowJDH(), shown);
    QVERIFY(header.HasData());
    QCOMPARE(elementOf(header),
             completeHeaderElement().replace("<ShowJDH>true</ShowJDH>", "<ShowJDH>" + text + "</ShowJDH>"));
}

void JobHeaderTest::completeness_data()
{
    QTest::addColumn<QString>("author");
    QTest::addColumn<QString>("creation");
    QTest::addColumn<int>("jobType");
    QTest::addColumn<QString>("showJDH");
    QTest::addColumn<bool>("isComplete");
    QTest::addColumn<QString>("message");

    const QString date = "2026-03-29T00:59:59,250Z";
    const QString pleaseSet = "JobHeader: Please set ";
    const QString nothing;

    const auto row = [](const char *name, const QString &author, const QString &creation, int jobType,
                        const QString &showJDH, bool isComplete, const QString &message) {
        QTest::newRow(name) << author << creation << jobType << showJDH << isComplete << message;
    };

    row("complete", "A", date, 0, "true", true, nothing);
    row("blank author", " ", date, 0, "true", true, nothing);
    row("start of 1970", "A", "1970-01-01T00:00:00,000Z", 0, "true", true, nothing);
    row("before 1970", "A", "1931-01-01T00:00:00,000Z", 0, "true", true, nothing);
    row("odd flag", "A", date, 0, "x", true, nothing);

    row("no author", "", date, 0, "true", false, pleaseSet + "Author");
    row("no creation", "A", "", 0, "true", false, pleaseSet + "Creation");
    row("no such date", "A", "2026-02-30T00:00:00,000Z", 0, "true", false, pleaseSet + "Creation");
    row("no job type", "A", date, -1, "true", false, pleaseSet + "JobType");
    row("no flag", "A", date, 0, "", false, nothing);
    row("search HF", "A", date, 10, "true", false, pleaseSet + "ConnectableRessource");
    row("search V/UHF", "A", date, 11, "true", false, pleaseSet + "ConnectableRessource");

    row("nothing", "", "", -1, "", false, pleaseSet + "Author");
    row("author only", "A", "", -1, "", false, pleaseSet + "Creation");
    row("author and creation", "A", date, -1, "", false, pleaseSet + "JobType");
    row("author and job type", "A", "", 0, "", false, pleaseSet + "Creation");
    row("creation only", "", date, -1, "", false, pleaseSet + "Author");
    row("job type only", "", "", 0, "true", false, pleaseSet + "Author");
    row("search without author", "", date, 10, "true", false, pleaseSet + "Author");
    row("search without creation", "A", "", 11, "true", false, pleaseSet + "Creation");
    row("search without flag", "A", date, 10, "", false, pleaseSet + "ConnectableRessource");
}

void JobHeaderTest::completeness()
{
    QFETCH(QString, author);
    QFETCH(QString, creation);
    QFETCH(int, jobType);
    QFETCH(QString, showJDH);
    QFETCH(bool, isComplete);
    QFETCH(QString, message);

    for (const QString &description : {QString(), QString("described")}) {
        JobHeader header = headerWithShowJDH(showJDH);
        header.SetAuthor(author);
        header.SetCreation(ToDateTime(creation));
        header.SetDescription(description);
        if (jobType >= 0)
            header.SetJobType(static_cast<JobTypeValue>(jobType));

        QCOMPARE(header.HasData(), isComplete);
        QCOMPARE(messageOf([&] { header.Check(); }), message);
        QCOMPARE(elementOf(header).isEmpty(), !isComplete);
        QString document;
        QCOMPARE(messageOf([&] { document = header.GetXmlString(); }), message);
        if (!isComplete)
            QCOMPARE(document, message.isEmpty() ? TestSupport::document("") : QString());
    }
}

void JobHeaderTest::completeJobTypes_data()
{
    QTest::addColumn<int>("value");
    for (int value = 0; value <= 21; ++value)
        QTest::addRow("job type %d", value) << value;
}

void JobHeaderTest::completeJobTypes()
{
    QFETCH(int, value);
    const bool isSearch = value == 10 || value == 11;
    const JobHeader header = completeHeader(value);

    QCOMPARE(header.HasData(), !isSearch);
    QCOMPARE(messageOf([&] { header.Check(); }),
             isSearch ? QString("JobHeader: Please set ConnectableRessource") : QString());
    QCOMPARE(elementOf(header),
             isSearch ? QString()
                      : completeHeaderElement().replace(
                          "Production SC HF", JobType::JobTypeToName(static_cast<JobTypeValue>(value))));
}

void JobHeaderTest::checkOnDemand()
{
    const JobHeader header;
    QCOMPARE(messageOf([&] { header.Check(true); }), QString("JobHeader: Please set Author"));
    QCOMPARE(messageOf([&] { header.Check(false); }), QString());
}

void JobHeaderTest::completeMeansChecked()
{
    const AlwaysComplete header;
    QCOMPARE(messageOf([&] { header.Check(); }), QString());
    QCOMPARE(
        elementOf(header),
        element("<JobType>undefined</JobType><Author></Author><Creation></Creation><ShowJDH>true</ShowJDH>"));
}

void JobHeaderTest::connectableResourceIsWrittenForSearchJobs_data()
{
    QTest::addColumn<int>("value");
    for (int value = -1; value <= 21; ++value)
        QTest::addRow("job type %d", value) << value;
}

void JobHeaderTest::connectableResourceIsWrittenForSearchJobs()
{
    QFETCH(int, value);
    const auto type = static_cast<JobTypeValue>(value);

    AlwaysComplete header;
    if (value >= 0)
        header.SetJobType(type);
    header.SetAuthor("A");
    header.SetDescription("d");
    QCOMPARE(
        elementOf(header),
        element("<JobType>" + JobType::JobTypeToName(type)
                + "</JobType><Author>A</Author><Creation></Creation><ShowJDH>true</ShowJDH>"
                + (value == 10 || value == 11 ? "<ConnectableResource>undefined</ConnectableResource>" : "")
                + "<Description>d</Description>"));
}

void JobHeaderTest::messagesNameTheObject_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("name") << "Kopf";
    QTest::newRow("first placeholder") << "%1";
    QTest::newRow("second placeholder") << "%2";
    QTest::newRow("empty") << "";
}

void JobHeaderTest::messagesNameTheObject()
{
    QFETCH(QString, name);
    Renamed<JobHeader> header(name);

    QCOMPARE(messageOf([&] { header.Check(); }), QString(name + ": Please set Author"));
    header.SetAuthor("%1 %2");
    QCOMPARE(messageOf([&] { header.Check(); }), QString(name + ": Please set Creation"));
    header.SetCreation(ToDateTime("2026-03-29T00:59:59,250Z"));
    QCOMPARE(messageOf([&] { header.Check(); }), QString(name + ": Please set JobType"));
    header.SetJobType(JobType::SearchMCHF);
    QCOMPARE(messageOf([&] { header.Check(); }), QString(name + ": Please set ConnectableRessource"));
    QCOMPARE(messageOf([&] { process(header, "<x><Nonsense/></x>"); }),
             QString("Unknown Tag 'Nonsense' in '" + name + "'."));
}

void JobHeaderTest::anyData_data()
{
    QTest::addColumn<QString>("header");
    QTest::addColumn<bool>("isAny");

    QTest::newRow("nothing") << element("<ShowJDH/>") << false;
    QTest::newRow("author") << element("<ShowJDH/><Author>A</Author>") << true;
    QTest::newRow("creation") << element("<ShowJDH/><Creation>2026-03-29T00:59:59,250Z</Creation>") << true;
    QTest::newRow("start of 1970") << element("<ShowJDH/><Creation>1970-01-01T00:00:00,000Z</Creation>")
                                   << true;
    QTest::newRow("description") << element("<ShowJDH/><Description>d</Description>") << true;
    QTest::newRow("job type") << element("<ShowJDH/><JobType>Production SC HF</JobType>") << true;
    QTest::newRow("search job type") << element("<ShowJDH/><JobType>Search MC HF</JobType>") << true;
    QTest::newRow("flag") << element("<ShowJDH>true</ShowJDH>") << true;
    QTest::newRow("false flag") << element("<ShowJDH>false</ShowJDH>") << true;
    QTest::newRow("unknown job type") << element("<ShowJDH/><JobType>Holiday</JobType>") << false;
    QTest::newRow("no date") << element("<ShowJDH/><Creation>yesterday</Creation>") << false;
    QTest::newRow("another version") << "<JobHeader Version=\"3.0\"><ShowJDH/></JobHeader>" << false;
}

void JobHeaderTest::anyData()
{
    QFETCH(QString, header);
    QFETCH(bool, isAny);
    QCOMPARE(objectFrom<JobHeader>(header).AnyData(), isAny);
}

void JobHeaderTest::emptyTextsAreNoData()
{
    JobHeader header = objectFrom<JobHeader>(element("<ShowJDH/>"));
    header.SetAuthor("");
    header.SetDescription("");
    QVERIFY(!header.AnyData());
}

void JobHeaderTest::writing_data()
{
    QTest::addColumn<QString>("read");
    QTest::addColumn<QString>("written");

    const QString complete = "<JobType>Tuner MC VUHF</JobType><Author>Ida</Author>"
                             "<Creation>2026-05-04T07:08:09,010Z</Creation><ShowJDH>false</ShowJDH>";
    QTest::newRow("without description") << element(complete) << element(complete);
    QTest::newRow("empty description")
        << element(complete + "<Description></Description>") << element(complete);
    QTest::newRow("description") << element(complete + "<Description>d</Description>")
                                 << element(complete + "<Description>d</Description>");
    QTest::newRow("blank description") << element(complete + "<Description> </Description>")
                                       << element(complete + "<Description> </Description>");
    QTest::newRow("order") << element("<Description>d</Description><ShowJDH>false</ShowJDH>"
                                      "<Creation>2026-05-04T07:08:09,010Z</Creation><Author>Ida</Author>"
                                      "<JobType>Tuner MC VUHF</JobType>")
                           << element(complete + "<Description>d</Description>");
    QTest::newRow("version") << "<JobHeader Version=\"2.5 &quot;b&quot;\">" + complete + "</JobHeader>"
                             << "<JobHeader Version=\"2.5 &quot;b&quot;\">" + complete + "</JobHeader>";
    QTest::newRow("no version") << "<JobHeader>" + complete + "</JobHeader>"
                                << "<JobHeader Version=\"\">" + complete + "</JobHeader>";
    QTest::newRow("special characters")
        << element(complete + "<Author>&lt;Ü&amp;ß&gt; 📡</Author><Description>%1\n%2</Description>")
        << element("<JobType>Tuner MC VUHF</JobType><Author>&lt;Ü&amp;ß&gt; 📡</Author>"
                   "<Creation>2026-05-04T07:08:09,010Z</Creation><ShowJDH>false</ShowJDH>"
                   "<Description>%1\n%2</Description>");
    QTest::newRow("search turned into surveillance")
        << element(complete + "<JobType>Search MC VUHF</JobType><JobType>Surveillance MC VUHF</JobType>")
        << element(QString(complete).replace("Tuner MC VUHF", "Surveillance MC VUHF"));
    QTest::newRow("search") << element(complete + "<JobType>Search MC HF</JobType>") << "";
    QTest::newRow("unknown job type") << element(complete + "<JobType>tuner mc vuhf</JobType>") << "";
    QTest::newRow("incomplete") << element("<Author>Ida</Author>") << "";
}

void JobHeaderTest::writing()
{
    QFETCH(QString, read);
    QFETCH(QString, written);
    QCOMPARE(elementOf(objectFrom<JobHeader>(read)), written);
}

void JobHeaderTest::creationIsWrittenInUtc()
{
    const qint64 milliseconds = 1774745999250;
    const QDateTime utc = QDateTime::fromMSecsSinceEpoch(milliseconds).toUTC();
    JobHeader header = completeHeader();
    for (const QDateTime &creation :
         {utc, utc.toLocalTime(), utc.toOffsetFromUtc(-7200), utc.toOffsetFromUtc(20700)}) {
        header.SetCreation(creation);
        QCOMPARE(elementOf(header), completeHeaderElement());
    }
    QCOMPARE(objectFrom<JobHeader>(completeHeaderElement()).GetCreation().toMSecsSinceEpoch(), milliseconds);
    QCOMPARE(objectFrom<JobHeader>(completeHeaderElement()).GetCreation().timeSpec(), Qt::UTC);
}

void JobHeaderTest::documents()
{
    JobHeader header = completeHeader();
    header.SetDescription("Night shift");
    QCOMPARE(header.GetXmlString(),
             document("<JobHeader Version=\"1.0\">\n"
                      "    <JobType>Production SC HF</JobType>\n"
                      "    <Author>Mara Lind</Author>\n"
                      "    <Creation>2026-03-29T00:59:59,250Z</Creation>\n"
                      "    <ShowJDH>true</ShowJDH>\n"
                      "    <Description>Night shift</Description>\n"
                      "</JobHeader>\n"));

    JobHeader copy;
    QVERIFY(copy.SetXmlString(header.GetXmlString(), true));
    QCOMPARE(copy, header);
}

void JobHeaderTest::textsThatXmlCannotCarry()
{
    JobHeader header = completeHeader();
    header.SetDescription("bell\a");
    QCOMPARE(messageOf([&] { (void)header.GetXmlString(); }),
             QString("JobHeader: Text cannot be represented in XML"));

    header.SetDescription("one\rtwo");
    JobHeader copy;
    QVERIFY(copy.SetXmlString(header.GetXmlString(), true));
    QCOMPARE(copy.GetDescription(), QString("one\rtwo"));
}

void JobHeaderTest::reading_data()
{
    QTest::addColumn<QString>("header");
    QTest::addColumn<QStringList>("changes");

    QTest::newRow("no children") << element("") << QStringList();
    QTest::newRow("Author") << element("<Author>Ida</Author>") << QStringList{"Author=Ida"};
    QTest::newRow("Creation") << element("<Creation>2026-05-04T07:08:09,010Z</Creation>")
                              << QStringList{"Creation=2026-05-04T07:08:09,010Z"};
    QTest::newRow("Description") << element("<Description>d</Description>") << QStringList{"Description=d"};
    QTest::newRow("ShowJDH") << element("<ShowJDH>false</ShowJDH>") << QStringList{"ShowJDH=false"};
    QTest::newRow("JobType") << element("<JobType>Signal Tracking</JobType>") << QStringList{"JobType=17"};
    QTest::newRow("all, in order of writing") << element(
        "<JobType>Exciter HF</JobType><Author>Ida</Author><Creation>2026-05-04T07:08:09,010Z</Creation>"
        "<ShowJDH>false</ShowJDH><Description>d</Description>")
                                              << QStringList{"JobType=18", "Author=Ida",
                                                             "Creation=2026-05-04T07:08:09,010Z",
                                                             "ShowJDH=false", "Description=d"};
    QTest::newRow("all, backwards") << element(
        "<Description>d</Description><ShowJDH>false</ShowJDH><Creation>2026-05-04T07:08:09,010Z</Creation>"
        "<Author>Ida</Author><JobType>Exciter HF</JobType>")
                                    << QStringList{"JobType=18", "Author=Ida",
                                                   "Creation=2026-05-04T07:08:09,010Z", "ShowJDH=false",
                                                   "Description=d"};
    QTest::newRow("doubled: the last counts") << element(
        "<Author>Ida</Author><JobType>Exciter HF</JobType><Author>Tom</Author><JobType>Antenna</JobType>")
                                              << QStringList{"JobType=20", "Author=Tom"};

    QTest::newRow("search HF") << element("<JobType>Search MC HF</JobType>") << QStringList{"JobType=10"};
    QTest::newRow("search V/UHF") << element("<JobType>Search MC VUHF</JobType>")
                                  << QStringList{"JobType=11"};
    QTest::newRow("job type that is written for two")
        << element("<JobType>Surveillance MC VUHF</JobType>") << QStringList{"JobType=7"};
    QTest::newRow("unknown job type replaces a known one")
        << element("<JobType>Antenna</JobType><JobType>antenna</JobType>") << QStringList{"JobType=-1"};
    QTest::newRow("name of unknown job types") << element("<JobType>undefined</JobType>") << QStringList();
    QTest::newRow("blanks around the job type") << element("<JobType> Antenna </JobType>") << QStringList();
    QTest::newRow("number of a job type") << element("<JobType>3</JobType>") << QStringList();
    QTest::newRow("no date replaces a date")
        << element("<Creation>2026-05-04T07:08:09,010Z</Creation><Creation>soon</Creation>") << QStringList();
    QTest::newRow("date of another form")
        << element("<Creation>2026-05-04T07:08:09.010Z</Creation>") << QStringList();
    QTest::newRow("empty texts replace texts")
        << element("<Author>Ida</Author><Author/><Description>d</Description><Description></Description>")
        << QStringList();
    QTest::newRow("capitals in the flag")
        << element("<ShowJDH>TRUE</ShowJDH>") << QStringList{"ShowJDH=false"};

    QTest::newRow("blanks are kept") << element("<Author> Ida\n</Author>") << QStringList{"Author= Ida\n"};
    QTest::newRow("entities") << element("<Author>&lt;I&#100;a&gt;&amp;</Author>")
                              << QStringList{"Author=<Ida>&"};
    QTest::newRow("character data") << element("<Author>I<![CDATA[<d>]]>a</Author>")
                                    << QStringList{"Author=I<d>a"};
    QTest::newRow("comments and blanks between")
        << element("\n  <!-- who -->\n  <Author>I<!-- -->da</Author>\n  <?note?>text\n")
        << QStringList{"Author=Ida"};
    QTest::newRow("attributes of children")
        << element("<Author Version=\"8\" rank=\"1\">Ida</Author>") << QStringList{"Author=Ida"};
    QTest::newRow("prefixes")
        << "<j:JobHeader xmlns:j=\"urn:jobs\" Version=\"2.0\"><j:Author>Ida</j:Author></j:JobHeader>"
        << QStringList{"Version=2.0", "Author=Ida"};
    QTest::newRow("default namespace")
        << "<JobHeader xmlns=\"urn:jobs\" Version=\"2.0\"><Author>Ida</Author></JobHeader>"
        << QStringList{"Version=2.0", "Author=Ida"};

    QTest::newRow("version") << "<JobHeader Version=\"2.0\"/>" << QStringList{"Version=2.0"};
    QTest::newRow("empty version") << "<JobHeader Version=\"\"/>" << QStringList{"Version="};
    QTest::newRow("no version") << "<JobHeader/>" << QStringList{"Version="};
    QTest::newRow("version in lower case") << "<JobHeader version=\"2.0\"/>" << QStringList{"Version="};
    QTest::newRow("version in capitals") << "<JobHeader VERSION=\"2.0\"/>" << QStringList{"Version="};
    QTest::newRow("version with a prefix")
        << "<JobHeader xmlns:j=\"urn:jobs\" j:Version=\"2.0\"/>" << QStringList{"Version="};
    QTest::newRow("version among others")
        << "<JobHeader a=\"1\" version=\"2\" Version=\"3\" z=\"4\"/>" << QStringList{"Version=3"};
    QTest::newRow("name of the element does not matter")
        << "<Head Version=\"2.0\"><Author>Ida</Author></Head>" << QStringList{"Version=2.0", "Author=Ida"};
}

void JobHeaderTest::reading()
{
    QFETCH(QString, header);
    QFETCH(QStringList, changes);
    QCOMPARE(fieldsOf(objectFrom<JobHeader>(header)), newFieldsBut(changes));
}

void JobHeaderTest::readingReplacesOnlyWhatIsThere()
{
    JobHeader header = completeHeader(5);
    header.SetDescription("d");
    header.SetShowJDH(false);
    QStringList fields =
        newFieldsBut({"Version=4", "JobType=5", "Author=Mara Lind", "Creation=2026-03-29T00:59:59,250Z",
                      "Description=d", "ShowJDH=false"});

    process(header, "<JobHeader Version=\"4\"/>");
    QCOMPARE(fieldsOf(header), fields);

    process(header, "<JobHeader Version=\"4\"><Author>Ida</Author></JobHeader>");
    fields.replaceInStrings("Mara Lind", "Ida");
    QCOMPARE(fieldsOf(header), fields);
}

void JobHeaderTest::readingStaysOnTheEndElement()
{
    QXmlStreamReader reader(QString("<Box><JobHeader><Author>Ida</Author></JobHeader><After/></Box>"));
    reader.readNextStartElement();
    reader.readNextStartElement();
    Renamed<JobHeader> header("JobHeader");
    header.ProcessXml(reader);
    QVERIFY(reader.isEndElement());
    QCOMPARE(reader.name().toString(), QString("JobHeader"));
    QVERIFY(reader.readNextStartElement());
    QCOMPARE(reader.name().toString(), QString("After"));

    QXmlStreamReader child(
        QString("<JobHeader><Description>d</Description><Author>Tom</Author></JobHeader>"));
    child.readNextStartElement();
    child.readNextStartElement();
    header.ProcessXmlStartElement(child);
    QVERIFY(child.isEndElement());
    QCOMPARE(child.name().toString(), QString("Description"));
    QCOMPARE(header.GetDescription(), QString("d"));
    QCOMPARE(header.GetAuthor(), QString("Ida"));
}

void JobHeaderTest::unknownTags_data()
{
    QTest::addColumn<QString>("child");
    QTest::addColumn<QString>("tag");

    QTest::newRow("ConnectableResource") << "<ConnectableResource>DDC IPC Voice HF</ConnectableResource>"
                                         << "ConnectableResource";
    QTest::newRow("ConnectableRessource") << "<ConnectableRessource/>"
                                          << "ConnectableRessource";
    QTest::newRow("unknown") << "<Priority>1</Priority>"
                             << "Priority";
    QTest::newRow("author in lower case") << "<author>Tom</author>"
                                          << "author";
    QTest::newRow("job type in other case") << "<Jobtype>Antenna</Jobtype>"
                                            << "Jobtype";
    QTest::newRow("flag in other case") << "<ShowJdh>false</ShowJdh>"
                                        << "ShowJdh";
    QTest::newRow("creation in capitals") << "<CREATION/>"
                                          << "CREATION";
    QTest::newRow("description in lower case") << "<description/>"
                                               << "description";
    QTest::newRow("beginning of a tag") << "<Auth/>"
                                        << "Auth";
    QTest::newRow("longer tag") << "<Authors/>"
                                << "Authors";
    QTest::newRow("version as a child") << "<Version>2</Version>"
                                        << "Version";
    QTest::newRow("header in the header") << "<JobHeader/>"
                                          << "JobHeader";
    QTest::newRow("element of the job") << "<ResourceType/>"
                                        << "ResourceType";
    QTest::newRow("prefix") << "<j:Priority xmlns:j=\"urn:jobs\"/>"
                            << "Priority";
    QTest::newRow("umlaut") << "<Priorität/>"
                            << "Priorität";
}

void JobHeaderTest::unknownTags()
{
    QFETCH(QString, child);
    QFETCH(QString, tag);

    JobHeader header;
    header.SetDescription("before");
    const QString text = "<JobHeader Version=\"2.0\"><Author>Ida</Author><JobType>Antenna</JobType>" + child
        + "<Author>Tom</Author><Description>behind</Description></JobHeader>";
    QCOMPARE(messageOf([&] { process(header, text); }), QString("Unknown Tag '" + tag + "' in 'JobHeader'."));
    QCOMPARE(fieldsOf(header),
             newFieldsBut({"Version=2.0", "Author=Ida", "JobType=20", "Description=before"}));

    JobHeader again;
    QCOMPARE(messageOf([&] { (void)again.SetXmlString(text, true); }),
             QString("Unknown Tag '" + tag + "' in 'JobHeader'."));
}

void JobHeaderTest::searchJobsAreNotReadBack()
{
    JobHeader header;
    const QString text = element("<JobType>Search MC HF</JobType><Author>Ida</Author>"
                                 "<Creation>2026-05-04T07:08:09,010Z</Creation><ShowJDH>true</ShowJDH>"
                                 "<ConnectableResource>DDC IPC Voice HF</ConnectableResource>"
                                 "<Description>d</Description>");
    QCOMPARE(messageOf([&] { process(header, text); }),
             QString("Unknown Tag 'ConnectableResource' in 'JobHeader'."));
    QCOMPARE(fieldsOf(header),
             newFieldsBut({"JobType=10", "Author=Ida", "Creation=2026-05-04T07:08:09,010Z"}));
    QCOMPARE(messageOf([&] { header.Check(); }), QString("JobHeader: Please set ConnectableRessource"));
}

void JobHeaderTest::elementInsideText()
{
    QXmlStreamReader reader(element("<Author><b>Ida</b></Author><Description>behind</Description>"));
    reader.readNextStartElement();
    JobHeader header;
    header.ProcessXml(reader);
    QVERIFY(reader.hasError());
    QCOMPARE(reader.errorString(), QString("Expected character data."));
    QCOMPARE(header.GetDescription(), QString());
}

void JobHeaderTest::roundTrip_data()
{
    QTest::addColumn<int>("jobType");
    for (int value = 0; value <= 21; ++value) {
        if (!JobType::IsSearchMC(static_cast<JobTypeValue>(value)))
            QTest::addRow("job type %d", value) << value;
    }
}

void JobHeaderTest::roundTrip()
{
    QFETCH(int, jobType);

    JobHeader header = completeHeader(jobType);
    header.SetDescription("%1 <b>\n\tÄ 📡 %2");
    header.SetShowJDH(jobType % 2 == 0);
    const JobHeader copy = objectFrom<JobHeader>(elementOf(header));
    QCOMPARE(copy, header);
    QCOMPARE(fieldsOf(copy), fieldsOf(header));
    QCOMPARE(elementOf(copy), elementOf(header));
}

void JobHeaderTest::equality_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<bool>("areEqual");

    const auto creation = [](const QString &text) { return element("<Creation>" + text + "</Creation>"); };
    const QString full =
        "<JobType>Antenna</JobType><Author>Ida</Author><Creation>2026-05-04T07:08:09,010Z</Creation>"
        "<ShowJDH>false</ShowJDH><Description>d</Description>";

    QTest::newRow("new") << element("") << element("") << true;
    QTest::newRow("the same in all fields") << element(full) << element(full) << true;
    QTest::newRow("job type") << element(full) << element(full + "<JobType>Exciter HF</JobType>") << false;
    QTest::newRow("no job type") << element(full) << element(full + "<JobType/>") << false;
    QTest::newRow("types written alike") << element("<JobType>Search MC VUHF</JobType>")
                                         << element("<JobType>Surveillance MC VUHF</JobType>") << false;
    QTest::newRow("author") << element(full) << element(full + "<Author>ida</Author>") << false;
    QTest::newRow("description") << element(full) << element(full + "<Description>D</Description>") << false;
    QTest::newRow("flag") << element(full) << element(full + "<ShowJDH>true</ShowJDH>") << false;
    QTest::newRow("two flags that are not true")
        << element("<ShowJDH>no</ShowJDH>") << element("<ShowJDH>TRUE</ShowJDH>") << true;
    QTest::newRow("no flag and false flag")
        << element("<ShowJDH/>") << element("<ShowJDH>false</ShowJDH>") << true;
    QTest::newRow("version") << "<JobHeader Version=\"1.0\"/>"
                             << "<JobHeader Version=\"1.1\"/>" << false;
    QTest::newRow("no version") << "<JobHeader Version=\"1.0\"/>"
                                << "<JobHeader/>" << false;

    QTest::newRow("milliseconds") << creation("2026-05-04T07:08:09,000Z")
                                  << creation("2026-05-04T07:08:09,999Z") << true;
    QTest::newRow("a millisecond over the second")
        << creation("2026-05-04T07:08:09,999Z") << creation("2026-05-04T07:08:10,000Z") << false;
    QTest::newRow("seconds") << creation("2026-05-04T07:08:09,010Z") << creation("2026-05-04T07:08:10,010Z")
                             << false;
    QTest::newRow("136 years apart") << creation("1970-01-01T00:00:00,000Z")
                                     << creation("2106-02-07T06:28:16,000Z") << false;
    QTest::newRow("date and none") << creation("2026-05-04T07:08:09,010Z") << element("") << false;
    QTest::newRow("start of 1970 and none") << creation("1970-01-01T00:00:00,000Z") << element("") << false;
    QTest::newRow("two that are no dates") << creation("soon") << creation("later") << true;
    QTest::newRow("before 1970 and none") << creation("1969-12-31T23:59:59,000Z") << element("") << true;
    QTest::newRow("half a second before 1970 and none")
        << creation("1969-12-31T23:59:59,500Z") << element("") << true;
    QTest::newRow("half a second before and start of 1970")
        << creation("1969-12-31T23:59:59,500Z") << creation("1970-01-01T00:00:00,000Z") << false;
    QTest::newRow("two before 1970") << creation("1931-01-01T00:00:00,000Z")
                                     << creation("1955-05-05T05:05:05,000Z") << true;
    QTest::newRow("last second that counts and none")
        << creation("2106-02-07T06:28:14,999Z") << element("") << false;
    QTest::newRow("last two seconds that count")
        << creation("2106-02-07T06:28:13,000Z") << creation("2106-02-07T06:28:14,000Z") << false;
    QTest::newRow("first second that does not count and none")
        << creation("2106-02-07T06:28:15,000Z") << element("") << true;
    QTest::newRow("two that do not count")
        << creation("2106-02-07T06:28:16,000Z") << creation("2999-01-01T00:00:00,000Z") << true;
    QTest::newRow("before 1970 and too late")
        << creation("1931-01-01T00:00:00,000Z") << creation("2200-01-01T00:00:00,000Z") << true;
}

void JobHeaderTest::equality()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    QFETCH(bool, areEqual);
    const JobHeader a = objectFrom<JobHeader>(first);
    const JobHeader b = objectFrom<JobHeader>(second);

    QCOMPARE(a == b, areEqual);
    QCOMPARE(b == a, areEqual);
    QCOMPARE(a != b, !areEqual);
    QCOMPARE(b != a, !areEqual);
    QVERIFY(a == a);
}

void JobHeaderTest::equalityIgnoresTheName()
{
    const JobHeader header;
    const Renamed<JobHeader> renamed("Kopf");
    QVERIFY(static_cast<const JobHeader &>(renamed) == header);
}

void JobHeaderTest::copies()
{
    JobHeader header =
        objectFrom<JobHeader>("<JobHeader Version=\"7.3\"><Author>Ida</Author><JobType>Antenna</JobType>"
                              "<Creation>2026-05-04T07:08:09,010Z</Creation><Description>d</Description>"
                              "<ShowJDH>perhaps</ShowJDH></JobHeader>");
    const QStringList fields = fieldsOf(header);
    const QString written = elementOf(header);

    const JobHeader copy(header);
    JobHeader assigned = completeHeader();
    JobHeader &result = assigned = header;
    QCOMPARE(&result, &assigned);
    header.Reset();

    for (const JobHeader *other : std::initializer_list<const JobHeader *>{&copy, &assigned}) {
        QCOMPARE(fieldsOf(*other), fields);
        QCOMPARE(elementOf(*other), written);
    }
}

void JobHeaderTest::copiesTheBase()
{
    const Renamed<JobHeader> renamed("Kopf", completeHeader());
    renamed.SetValidate(false);

    const JobHeader copy(renamed);
    JobHeader assigned;
    assigned = renamed;
    for (const JobHeader *other : std::initializer_list<const JobHeader *>{&copy, &assigned}) {
        QCOMPARE(other->GetObjectName(), QString("Kopf"));
        QCOMPARE(other->GetObjectType(), TESSEL::ObjectTypes::JobHeader);
        QVERIFY(!other->GetValidate());
        QCOMPARE(elementOf(*other), completeHeaderElement().replace("JobHeader", "Kopf"));
    }
}

void JobHeaderTest::selfAssignment()
{
    JobHeader header = completeHeader(9);
    header.SetDescription("d");
    const QStringList fields = fieldsOf(header);
    const JobHeader &same = header;
    header = same;
    QCOMPARE(fieldsOf(header), fields);
}

QTEST_GUILESS_MAIN(JobHeaderTest)
#include "JobHeaderTest.moc"
