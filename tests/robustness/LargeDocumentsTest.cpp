// Documents far larger than any that is of use: they are read or refused as small ones are, in a time and
// with memory that grow as they do, and without deep recursion.
#include <kormak/ActivityGenerationData.h>
#include <kormak/GenericReceiver.h>
#include <kormak/Job.h>
#include <objectbase/ReadingLimits.h>
#include <tests/support/Objects.h>
#include <tests/support/ToolSupport.h>

#include <QElapsedTimer>

#ifdef Q_OS_LINUX
#include <sys/resource.h>
#endif

using namespace TestSupport;

namespace {

#ifdef KORMAK_SANITIZED
constexpr bool KeepsFreedMemory = true;
#else
constexpr bool KeepsFreedMemory = false;
#endif

constexpr int Levels = 100'000;
constexpr int MostLevels = 990;
constexpr int Megabyte = 1 << 20;

QString nested(const QString &name, int levels)
{
    return QString('<' + name + '>').repeated(levels) + QString("</" + name + '>').repeated(levels);
}

/// An incomplete parameter, so that a million fit.
QString parameters(int count)
{
    QString text;
    for (int i = 0; i < count; ++i)
        text += "<Parameter UniqueName=\"" + QString::number(i) + "\"/>";
    return text;
}

/// What \a size megabytes of it take, in kilobytes: the growth of the largest memory this process ever had.
template <class Work>
long growthBy(Work work)
{
#ifdef Q_OS_LINUX
    rusage before{};
    getrusage(RUSAGE_SELF, &before);
    work();
    rusage after{};
    getrusage(RUSAGE_SELF, &after);
    return after.ru_maxrss - before.ru_maxrss;
#else
    work();
    return 0;
#endif
}

} // namespace

class LargeDocumentsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void memoryGrowsAsTheText();
    void deepNesting_data();
    void deepNesting();
    void deepNestingInTheTool_data();
    void deepNestingInTheTool();
    void longText_data();
    void longText();
    void manyAttributes();
    void manyUnknownAttributesInAll();
    void manyChildren();
    void manyParameters();
    void manyEntries();
};

/// First of all, since it looks at the most memory that was ever taken.
void LargeDocumentsTest::memoryGrowsAsTheText()
{
    if (KeepsFreedMemory)
        QSKIP("AddressSanitizer keeps what is freed for a while", ""); // clang asks for a second argument
    const auto read = [](int megabytes) {
        KORMAK::JobHeader header;
        QVERIFY(header.SetXmlString(
            "<JobHeader><Author>" + QString(megabytes * Megabyte, 'x') + "</Author></JobHeader>", true));
        QCOMPARE(header.GetAuthor().size(), megabytes * Megabyte);
    };
    read(1);
    const long first = growthBy([&] { read(16); });
    const long second = growthBy([&] { read(32); });
    const long third = growthBy([&] { read(64); });
    qInfo("from 1 to 16 MB: %ld kB more, to 32 MB: %ld kB, to 64 MB: %ld kB", first, second, third);
    // Twice as much each time, and containers that double add as much again.
    constexpr long Slack = 32 * 1024;
    QVERIFY(second <= 3 * first + Slack);
    QVERIFY(third <= 3 * second + Slack);
    constexpr long MostKilobytesPerMegabyte =
        16 * 1024; // the text, the reader's, the object's; two bytes each
    QVERIFY(first + second + third <= 64 * MostKilobytesPerMegabyte);
}

void LargeDocumentsTest::deepNesting_data()
{
    QTest::addColumn<QString>("document");
    QTest::addColumn<QString>("message"); // null: none
    QTest::addColumn<bool>("isRead");

    const QString unknown = nested("a", Levels);
    const QString deep = nested("a", MostLevels);
    const QString tooDeep = "Elements stand more than 1000 deep in one another.";
    QTest::newRow("unknown, passed over")
        << "<ActivityGeneration>" + deep + "</ActivityGeneration>" << QString() << true;
    QTest::newRow("unknown, too deep")
        << "<ActivityGeneration>" + unknown + "</ActivityGeneration>" << QString() << false;
    QTest::newRow("script, passed over")
        << "<GenericReceiver><Script>" + deep + "</Script></GenericReceiver>" << QString() << true;
    QTest::newRow("script, too deep")
        << "<GenericReceiver><Script>" + unknown + "</Script></GenericReceiver>" << QString() << false;
    QTest::newRow("unknown") << "<Job>" + unknown + "</Job>"
                             << "Unknown Tag 'a' in 'Job'." << false;
    QTest::newRow("the element itself") << nested("Job", Levels) << "Unknown Tag 'Job' in 'Job'." << false;
    QTest::newRow("another root") << unknown << QString() << false;
    QTest::newRow("in a text") << "<Job><ResourceType>" + unknown + "</ResourceType></Job>" << QString()
                               << false;
    QTest::newRow("in the block of a type")
        << "<Parameter><Integer>" + deep + "<Minimum>1</Minimum></Integer></Parameter>" << QString() << true;
    QTest::newRow("too deep in the block of a type")
        << "<Parameter><Integer>" + unknown + "<Minimum>1</Minimum></Integer></Parameter>" << tooDeep
        << false;
    QTest::newRow("the block of a type itself")
        << "<Parameter>" + nested("Float", 2) + "</Parameter>" << QString() << true;
    QTest::newRow("never closed") << "<ActivityGeneration>" + QString("<a>").repeated(MostLevels) << QString()
                                  << false;
    QTest::newRow("never closed in a block") << "<Parameter><Integer>" + QString("<a>").repeated(MostLevels)
                                             << "Premature end of document." << false;
    QTest::newRow("never closed in a block, too deep")
        << "<Parameter><Integer>" + QString("<a>").repeated(Levels) << tooDeep << false;
}

void LargeDocumentsTest::deepNesting()
{
    QFETCH(QString, document);
    QFETCH(QString, message);
    QFETCH(bool, isRead);

    std::unique_ptr<TESSEL::ITesselObject> object = std::make_unique<KORMAK::Job>();
    if (document.startsWith("<Activity"))
        object = std::make_unique<KORMAK::ActivityGenerationData>();
    else if (document.startsWith("<Gen"))
        object = std::make_unique<KORMAK::GenericReceiver>();
    else if (document.startsWith("<Par"))
        object = std::make_unique<KORMAK::Parameter>();
    bool answer = false;
    QCOMPARE(messageOf([&] { answer = object->SetXmlString(document, true); }), message);
    QCOMPARE(answer, isRead);
}

void LargeDocumentsTest::deepNestingInTheTool_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<int>("status");

    QTest::newRow("check") << "check" << 0;
    QTest::newRow("show") << "show" << 0;
    QTest::newRow("format") << "format" << 1; // what is nested would be lost
}

void LargeDocumentsTest::deepNestingInTheTool()
{
    QFETCH(QString, command);
    QFETCH(int, status);

    const ToolSupport::Folder folder;
    folder.write("deep.xml",
                 ToolSupport::with(ToolSupport::completeGeneration(), "</ActivityGeneration>",
                                   nested("a", MostLevels).toUtf8() + "</ActivityGeneration>"));
    const ToolSupport::Run run = folder.run({command, "deep.xml"});
    QVERIFY2(run.status == status, qPrintable(QString("%1 %2").arg(run.status).arg(run.err.left(500))));
}

void LargeDocumentsTest::longText_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("letters") << QString(64 * Megabyte, 'x');
    QTest::newRow("markup") << QString("<&>\"").repeated(2 * Megabyte);
    QTest::newRow("carriage returns") << QString(8 * Megabyte, '\r');
    QTest::newRow("two units each") << QString::fromUtf8("\xF0\x9D\x84\x9E").repeated(4 * Megabyte);
}

void LargeDocumentsTest::longText()
{
    QFETCH(QString, text);

    KORMAK::JobHeader header;
    header.SetAuthor(text);
    header.SetJobType(KORMAK::JobType::Antenna);
    header.SetCreation(QDateTime::fromMSecsSinceEpoch(0, Qt::UTC));
    KORMAK::JobHeader again;
    QVERIFY(again.SetXmlString(header.GetXmlString(), true));
    QVERIFY(again.GetAuthor() == text);
}

/// Qt's reader compares each attribute with all others.
void LargeDocumentsTest::manyAttributes()
{
    QString document = "<Job";
    constexpr int Count = 5'000;
    for (int i = 0; i < Count; ++i)
        document += QString(" a%1=\"b\"").arg(i);
    KORMAK::Job job;
    QVERIFY(!job.SetXmlString(document + "/>", true));
    TESSEL::ReadingLimits limits;
    limits.SetAttributes(Count + 2);
    job.SetReadingLimits(limits);
    QVERIFY(job.SetXmlString(document + " Version=\"2.0\"/>", true));
    QCOMPARE(job.GetVersion(), QString("2.0"));
    QVERIFY(!job.SetXmlString(document + " a0=\"c\" Version=\"3.0\"/>", true));
    QCOMPARE(job.GetVersion(), QString("2.0"));
}

void LargeDocumentsTest::manyUnknownAttributesInAll()
{
    QString element = "<EnumValue";
    constexpr int OnEach = 100;
    for (int i = 0; i < OnEach; ++i)
        element += QString(" a%1=\"b\"").arg(i);
    constexpr int Elements = 10'000;
    KORMAK::Parameter parameter;
    QVERIFY(parameter.SetXmlString(
        "<Parameter><Enum>" + (element + "/>").repeated(Elements) + "</Enum></Parameter>", true));
    QCOMPARE(static_cast<int>(parameter.GetEnumHandler().GetEnumList().size()), Elements);
}

void LargeDocumentsTest::manyChildren()
{
    constexpr int Count = 1'000'000;
    KORMAK::ActivityGenerationData data;
    QVERIFY(data.SetXmlString("<ActivityGeneration>" + QString("<a/>").repeated(Count)
                                  + "<Mode>AGED</Mode></ActivityGeneration>",
                              true));
    QCOMPARE(data.GetActivtyGenerationMode(), KORMAK::ActivityGenerationData::AGED);
}

void LargeDocumentsTest::manyParameters()
{
    // A million of the same name are one parameter.
    constexpr int Million = 1'000'000;
    KORMAK::GenericReceiver same;
    QVERIFY(same.SetXmlString("<GenericReceiver>" + QString("<Parameter UniqueName=\"a\"/>").repeated(Million)
                                  + "</GenericReceiver>",
                              true));
    QCOMPARE(static_cast<int>(same.GetParameterList().size()), 1);

    const int count = qEnvironmentVariableIsSet("KORMAK_LARGE") ? Million : Million / 10;
    KORMAK::GenericReceiver receiver;
    QVERIFY(receiver.SetXmlString("<GenericReceiver>" + parameters(count) + "</GenericReceiver>", true));
    QCOMPARE(static_cast<int>(receiver.GetParameterList().size()), count);
    QCOMPARE(receiver.GetParameter(QString::number(count - 1)).GetUniqueParameterName(),
             QString::number(count - 1));
    const KORMAK::GenericReceiver copy = receiver;
    receiver.Reset();
    QCOMPARE(static_cast<int>(copy.GetParameterList().size()), count);
}

void LargeDocumentsTest::manyEntries()
{
    constexpr int Count = 200'000;
    KORMAK::Parameter parameter;
    QVERIFY(
        parameter.SetXmlString("<Parameter UniqueName=\"a\"><RepresentationName>r</RepresentationName>"
                               "<ValueType>ValueSelection</ValueType><ParameterType>Enum</ParameterType>"
                               "<Enum>"
                                   + QString("<EnumValue Key=\"7\" Name=\"n\" Value=\"1\"/>").repeated(Count)
                                   + "</Enum></Parameter>",
                               true));
    QCOMPARE(static_cast<int>(parameter.GetEnumHandler().GetEnumList().size()), Count);
    QVERIFY(parameter.HasData());
    KORMAK::Parameter again;
    QVERIFY(again.SetXmlString(parameter.GetXmlString(), true));
    QVERIFY(again == parameter);
}

QTEST_GUILESS_MAIN(LargeDocumentsTest)
#include "LargeDocumentsTest.moc"
