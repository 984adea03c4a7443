#include <inspection/DocumentKind_p.h>
#include <inspection/FieldDiff_p.h>
#include <inspection/ReadableForm_p.h>
#include <tests/inspection/DocumentSamples.h>
#include <tests/support/RandomDocuments.h>

#include <QRegularExpression>
#include <QtTest>

using namespace KORMAK;
using namespace KORMAK::Inspection;

/// What is written in the readable form is read back by the library, and is the same then.
class ReadableFormTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void documents_data();
    void documents();
    void randomObjects_data();
    void randomObjects();
    void examples_data();
    void examples();
    void unrepresentable();
    void drafts();
};

namespace {

const DocumentKind &kindOf(const TESSEL::ITesselObject &object)
{
    return *documentKindOf(object);
}

QString formOf(const TESSEL::ITesselObject &object)
{
    const auto text = readableForm(kindOf(object), object);
    return text ? QString::fromUtf8(*text) : QStringLiteral("(nothing)");
}

/// What the library reads from \a text is not as in \a object, a line each. Fields that no document says are
/// left out, and values that no name is read as.
QStringList changes(const TESSEL::ITesselObject &object, const QString &text)
{
    static const QRegularExpression unsaid(
        R"(\b(Boolean|Integer|Long|Float|Double|TimeStamp|String|Enum)\.)"
        R"((Value|Multiplier|RepresentationName|UniqueParameterName|UseAsList|DoubleList.*|SelectedEnumValue.*|DefaultValue.*): )");
    static const QRegularExpression unnamed(R"((Polarization|ValueType|ControlType): \d+ -> not set$)");
    const DocumentKind &kind = kindOf(object);
    const auto readBack = kind.create();
    if (!readBack->SetXmlString(text, true))
        return {"is not read back: " + text};
    QStringList lines;
    for (const FieldDifference &difference :
         differences(kind.fields(), kind.address(object), kind.address(*readBack))) {
        const QString line = difference.toLine();
        const bool isFlag = line.contains("Boolean.Value");
        if (!line.contains(unnamed) && (!line.contains(unsaid) || isFlag))
            lines += line;
    }
    return lines;
}

} // namespace

void ReadableFormTest::documents_data()
{
    QTest::addColumn<QString>("read");
    QTest::addColumn<QString>("written");

    QTest::newRow("the mode is an element, also with what the mode does not need")
        << R"(<AutomaticWorkflow Version="1.0"><Mode>ManualMode</Mode><Classifiers>7</Classifiers></AutomaticWorkflow>)"
        << "<AutomaticWorkflow Version=\"1.0\">\n"
           "    <Mode>ManualMode</Mode>\n"
           "    <Classifiers>7</Classifiers>\n"
           "</AutomaticWorkflow>\n";
    QTest::newRow("an area only where there is one")
        << R"(<AutomaticWorkflow><Mode>AutomaticMode</Mode><SearchStrategy>LowestIdFirst</SearchStrategy></AutomaticWorkflow>)"
        << "<AutomaticWorkflow>\n"
           "    <Mode>AutomaticMode</Mode>\n"
           "    <Classifiers>1</Classifiers>\n"
           "    <ClassificationTime>40</ClassificationTime>\n"
           "    <ClassificationResult>3</ClassificationResult>\n"
           "    <SearchStrategy>LowestIdFirst</SearchStrategy>\n"
           "    <BitstreamClassification>false</BitstreamClassification>\n"
           "</AutomaticWorkflow>\n";
    QTest::newRow("the older form of activity generation stays what it is")
        << R"(<ActivityGeneration Version="1.0">AGED</ActivityGeneration>)"
        << "<ActivityGeneration Version=\"1.0\" Autostart=\"false\">AGED</ActivityGeneration>\n";
    QTest::newRow("the type of a boolean parameter")
        << R"(<Parameter Version="1.0" UniqueName="On"><RepresentationName>rx.on</RepresentationName><ValueType>ValueNumericInt</ValueType><ParameterType>Boolean</ParameterType><Boolean>true</Boolean></Parameter>)"
        << "<Parameter Version=\"1.0\" UniqueName=\"On\">\n"
           "    <RepresentationName>rx.on</RepresentationName>\n"
           "    <ValueType>ValueNumericInt</ValueType>\n"
           "    <Enable>true</Enable>\n"
           "    <ParameterType>Boolean</ParameterType>\n"
           "    <Boolean>true</Boolean>\n"
           "</Parameter>\n";
    QTest::newRow("the default of a string is an element")
        << R"(<Parameter UniqueName="S"><ParameterType>String</ParameterType><String><Default>a &lt; b</Default></String></Parameter>)"
        << "<Parameter UniqueName=\"S\">\n"
           "    <Enable>true</Enable>\n"
           "    <ParameterType>String</ParameterType>\n"
           "    <String>\n"
           "        <Default>a &lt; b</Default>\n"
           "    </String>\n"
           "</Parameter>\n";
    QTest::newRow("numbers with all their digits")
        << R"(<Parameter UniqueName="D"><Multiplier>0.001</Multiplier><ParameterType>Double</ParameterType><Double><Default>0.123456789</Default></Double></Parameter>)"
        << "<Parameter UniqueName=\"D\">\n"
           "    <Multiplier>0.001</Multiplier>\n"
           "    <Enable>true</Enable>\n"
           "    <ParameterType>Double</ParameterType>\n"
           "    <Double>\n"
           "        <Minimum>-1.7976931348623157e+308</Minimum>\n"
           "        <Maximum>1.7976931348623157e+308</Maximum>\n"
           "        <Default>0.123456789</Default>\n"
           "        <Precision>2</Precision>\n"
           "    </Double>\n"
           "</Parameter>\n";
    QTest::newRow("antenna data of a job that has no antenna")
        << R"(<Job><AntennaData><Name>East</Name></AntennaData></Job>)"
        << "<Job>\n"
           "    <JobHeader Version=\"1.0\">\n"
           "        <ShowJDH>true</ShowJDH>\n"
           "    </JobHeader>\n"
           "    <AntennaData>\n"
           "        <Name>East</Name>\n"
           "    </AntennaData>\n"
           "</Job>\n";
}

void ReadableFormTest::documents()
{
    QFETCH(const QString, read);
    QFETCH(const QString, written);
    const QString root = read.mid(1, read.indexOf(QRegularExpression("[ >]")) - 1);
    const auto object = findDocumentKind(root)->create();
    QVERIFY(object->SetXmlString(read, true));
    const QString text = formOf(*object);
    QCOMPARE(text, "<?xml version=\"1.0\"?>\n" + written);
    QCOMPARE(changes(*object, text), QStringList());
}

void ReadableFormTest::randomObjects_data()
{
    QTest::addColumn<QString>("kind");
    for (const QString &name : documentKindNames())
        QTest::newRow(qPrintable(name)) << name;
}

void ReadableFormTest::randomObjects()
{
    QFETCH(const QString, kind);
    constexpr int Count = 200;
    TestSupport::RandomDocuments random(20'260'329);
    for (int i = 0; i < Count; ++i) {
        TestSupport::forKind(kind, [&](auto row) {
            const auto object = random.object<typename decltype(row)::Document>(i);
            const QString text = formOf(object);
            QVERIFY2(changes(object, text).isEmpty(),
                     qPrintable(changes(object, text).join('\n') + '\n' + text));
        });
        if (QTest::currentTestFailed())
            return;
    }
}

void ReadableFormTest::examples_data()
{
    DocumentSamples::addExamples();
}

/// Also those that are not complete, and those that the library would not write.
void ReadableFormTest::examples()
{
    QFETCH(const QString, path);
    const Document document(DocumentSamples::contentOf(path));
    if (!document.GetObject())
        QSKIP("is not read to its end", ""); // clang asks for a second argument
    const QString text = formOf(*document.GetObject());
    QVERIFY(Document(text.toUtf8()).GetObject());
    QCOMPARE(changes(*document.GetObject(), text), QStringList());
    QCOMPARE(formOf(*Document(text.toUtf8()).GetObject()), text);
}

void ReadableFormTest::unrepresentable()
{
    Job job;
    for (const QChar c : {QChar(1), QChar(0xD800)}) {
        JobHeader header;
        header.SetAuthor(c);
        job.SetJobHeader(header);
        QCOMPARE(formOf(job), "(nothing)");
    }
}

void ReadableFormTest::drafts()
{
    Job job;
    JobHeader header;
    header.SetAuthor(QString(QChar(1)) + QChar(0xD800) + "a\t");
    job.SetJobHeader(header);
    QCOMPARE(QString::fromUtf8(draftOf(kindOf(job), job)),
             "<Job><JobHeader><Author>\uFFFD\uFFFDa\t</Author><ShowJDH>true</ShowJDH></JobHeader></Job>");
}

QTEST_GUILESS_MAIN(ReadableFormTest)
#include "ReadableFormTest.moc"
