#include "DocumentSamples.h"

#include <inspection/Document.h>
#include <inspection/Kinds.h>
#include <kormak/AutomaticWorkflow.h>
#include <kormak/GenericReceiver.h>
#include <kormak/Job.h>
#include <objectbase/Area.h>

#include <QBuffer>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <atomic>
#include <thread>
#include <vector>

using namespace KORMAK;
using namespace DocumentSamples;

class DocumentTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void noDocument();
    void examplesAsTheLibraryReadsThem_data();
    void examplesAsTheLibraryReadsThem();
    void examplesAsTheToolTellsThem_data();
    void examplesAsTheToolTellsThem();
    void pairsAsTheToolComparesThem();
    void objectsOfExamples_data();
    void objectsOfExamples();
    void newDocuments_data();
    void newDocuments();
    void everythingThatAnObjectLacks();
    void textBeyondXml();
    void objectsThatPassAndAreNotWritten();
    void valuesWithoutNames();
    void namesThatSteerTerminals();
    void unknownObject();
    void unknownKind();
    void unusableTexts_data();
    void unusableTexts();
    void firstAndLastCharacters();
    void namespaceDeclaredTwiceBehindAll();
    void fieldsAreSet();
    void severalFieldsAreSet();
    void fieldsThatTheTextSaysOtherwise();
    void settingFails_data();
    void settingFails();
    void copies();
    void lossesOfTexts();
    void lossesOfObjects();
    void lossesOfWhatIsNotWritten();
    void lossesBeyondLimits();
    void lossesBehindAChange();
    void comparing();
    void limits();
    void threads();
    void filesAndDevices();
    void expectedKinds_data();
    void expectedKinds();
    void filesThatCannotBeRead();
    void eachReadingIsOfItsOwn();
    void saving();
    void savingFails_data();
    void savingFails();
};

namespace {

const char SurveillanceJob[] = "jobs/surveillance-mc-hf.xml";

QString refusalByTheLibrary(const QByteArray &text, TESSEL::ITesselObject &object)
{
    if (!object.SetXmlString(QString::fromUtf8(text), true))
        return "not read";
    object.Check();
    return {};
}

bool hasError(const QVector<Finding> &findings)
{
    return std::any_of(findings.begin(), findings.end(), [](const Finding &finding) {
        return finding.GetSeverity() == Finding::Severity::Error;
    });
}

QStringList complaintsOf(const QVector<Finding> &findings)
{
    QStringList complaints;
    for (const Finding &finding : findings)
        complaints += finding.GetComplaint();
    return complaints;
}

std::unique_ptr<TESSEL::ITesselObject> objectOfKind(const QString &kind)
{
    if (kind == "Job")
        return std::make_unique<Job>();
    if (kind == "AutomaticWorkflow")
        return std::make_unique<AutomaticWorkflow>();
    if (kind == "GenericReceiver")
        return std::make_unique<GenericReceiver>();
    return nullptr;
}

} // namespace

void DocumentTest::noDocument()
{
    Document document;
    QCOMPARE(document.GetKind() + document.GetState(), QString());
    QVERIFY(!document.IsAccepted());
    QVERIFY(!document.IsComplete());
    QVERIFY(!document.GetObject());
    QVERIFY(document.GetFindings().isEmpty());
    QVERIFY(document.GetLosses().isEmpty());
    QVERIFY(document.GetFields().isEmpty());
    QCOMPARE(document.GetFieldsJson() + document.GetFindingsJson("f") + document.GetLossesJson("f"),
             QByteArray());
    QVERIFY(!messageOf([&] { (void)document.GetField("Version"); }).isEmpty());
    QCOMPARE(messageOf([&] { document.SetField("Version", "1"); }),
             QString("there is no document whose fields could be set"));
    const QTemporaryDir folder;
    const auto errors = document.SaveFile(folder.filePath("a.xml"));
    QCOMPARE(linesOf(errors),
             QStringList("0:0 error unwritten : there is no document that could be written"));
    QCOMPARE(document.GetWriteErrors(), errors);
    QVERIFY(QDir(folder.path()).isEmpty());
    QCOMPARE(messageOf([&] { (void)Document::Compare(document, Document::New("Job")); }),
             QString("there are no two documents to compare"));

    Document moved = Document::New("Job");
    const Document taken = std::move(moved);
    QCOMPARE(taken.GetKind(), QString("Job"));
    QCOMPARE(moved.GetKind(), QString()); // NOLINT: what is moved from is no document
}

void DocumentTest::examplesAsTheLibraryReadsThem_data()
{
    addExamples();
}

void DocumentTest::examplesAsTheLibraryReadsThem()
{
    QFETCH(QString, path);

    const QByteArray text = contentOf(path);
    const Document document(text);
    QCOMPARE(hasError(document.GetFindings()), !document.IsAccepted());
    for (const Finding &finding : document.GetFindings()) {
        QVERIFY(finding.HasPlace());
        QVERIFY(finding.GetOffset() >= 0 && finding.GetOffset() <= text.size());
    }
    const auto object = objectOfKind(document.GetKind());
    if (!object)
        return;
    QString refusal;
    const QString thrown = messageOf([&] { refusal = refusalByTheLibrary(text, *object); });
    QCOMPARE(document.IsAccepted(), refusal.isEmpty() && thrown.isEmpty());
    if (!thrown.isEmpty())
        QVERIFY2(complaintsOf(document.GetFindings()).contains(thrown), qPrintable(thrown));
    if (!document.IsAccepted())
        return;
    QCOMPARE(document.IsComplete(), object->HasData());
    // A NaN equals nothing, not even itself.
    QCOMPARE(Document::AreEqualObjects(document, Document(*object)),
             Document::AreEqualObjects(document, document));
    QVERIFY(Document::Compare(document, Document(*object)).isEmpty());
}

void DocumentTest::examplesAsTheToolTellsThem_data()
{
    addExamples();
}

void DocumentTest::examplesAsTheToolTellsThem()
{
    QFETCH(QString, path);

#ifdef KORMAK_TOOL
    const Document document(contentOf(path));
    const QByteArray told = toolOutput({"check", "--format", "json", path});
    const int summary = told.lastIndexOf("{\"type\": \"summary\"");
    QVERIFY(summary > 0);
    QCOMPARE(document.GetFindingsJson(path), told.left(summary));
    // The tool also shows what can be read of a text that is not read to its end.
    if (document.GetObject())
        QCOMPARE(document.GetFieldsJson() + '\n', toolOutput({"show", "--format", "json", path}));
    else
        QCOMPARE(document.GetFieldsJson(), QByteArray());
    if (document.IsAccepted())
        QCOMPARE(path + ": " + document.GetState() + '\n', QString::fromUtf8(toolOutput({"check", path})));
    // Whatever the tool rewrites loses nothing, and the other way round.
    QCOMPARE(document.GetLosses().isEmpty(), !toolOutput({"format", path}).isEmpty());
#endif
}

void DocumentTest::pairsAsTheToolComparesThem()
{
#ifdef KORMAK_TOOL
    int compared = 0;
    QString former = examples().constLast();
    for (const QString &path : examples()) {
        const Document a(contentOf(former));
        const Document b(contentOf(path));
        const QByteArray told = toolOutput({"diff", "--format", "json", former, path});
        QByteArray json;
        const QString refusal = messageOf([&] { json = Document::GetDifferencesJson(a, b) + '\n'; });
        QCOMPARE(json, told);
        QCOMPARE(refusal.isEmpty(), !told.isEmpty());
        compared += refusal.isEmpty() ? 1 : 0;
        former = path;
    }
    QVERIFY2(compared >= 15, qPrintable(QString::number(compared)));
#endif
}

void DocumentTest::objectsOfExamples_data()
{
    addExamples();
}

/// What an object lacks is told as it is of the text that it was read from.
void DocumentTest::objectsOfExamples()
{
    QFETCH(QString, path);

    const Document document(contentOf(path));
    if (!document.GetObject())
        return;
    const Document ofObject(*document.GetObject());
    QCOMPARE(ofObject.GetKind(), document.GetKind());
    QCOMPARE(ofObject.IsAccepted(), document.IsAccepted());
    QCOMPARE(ofObject.IsComplete(), document.IsComplete());
    QCOMPARE(ofObject.GetState(), document.GetState());
    QJsonObject fields = QJsonDocument::fromJson(document.GetFieldsJson()).object();
    fields.remove("documentSays");
    QCOMPARE(QJsonDocument::fromJson(ofObject.GetFieldsJson()).object(), fields);
    QCOMPARE(hasError(ofObject.GetFindings()), !ofObject.IsAccepted());
    const QStringList complaints = complaintsOf(ofObject.GetFindings());
    for (const Finding &finding : document.GetFindings()) {
        QVERIFY2(finding.GetComplaint().isEmpty() || complaints.contains(finding.GetComplaint()),
                 qPrintable(finding.GetComplaint()));
    }
    for (const Finding &finding : ofObject.GetFindings()) {
        QVERIFY(!finding.HasPlace());
        QCOMPARE(finding.GetOffset(), -1);
    }
    QVERIFY(ofObject.IsComplete() || !ofObject.GetFindings().isEmpty());
}

void DocumentTest::newDocuments_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QStringList>("missing");

    QTest::newRow("Job") << "Job"
                         << QStringList({"Job/ResourceType", "Job/JobHeader/Author", "Job/JobHeader/Creation",
                                         "Job/JobHeader/JobType"});
    QTest::newRow("AutomaticWorkflow") << "AutomaticWorkflow" << QStringList("AutomaticWorkflow/Mode");
    QTest::newRow("ActivityGeneration") << "ActivityGeneration" << QStringList("ActivityGeneration/Mode");
    QTest::newRow("GenericReceiver") << "GenericReceiver" << QStringList();
    QTest::newRow("Parameter") << "Parameter"
                               << QStringList({"Parameter/@UniqueName", "Parameter/ParameterType",
                                               "Parameter/ValueType", "Parameter/RepresentationName"});
}

void DocumentTest::newDocuments()
{
    QFETCH(QString, kind);
    QFETCH(QStringList, missing);

    const Document document = Document::New(kind);
    QCOMPARE(document.GetKind(), kind);
    QCOMPARE(pathsOf(document.GetFindings()), missing);
    QCOMPARE(document.IsAccepted(), missing.isEmpty());
    QCOMPARE(document.IsComplete(), missing.isEmpty());
}

/// Each of its complaints is the one that Check() makes when the others are dealt with.
void DocumentTest::everythingThatAnObjectLacks()
{
    Document document = Document::New("Job");
    document.SetField("ResourceType", "Antenna");
    const QVector<QPair<QString, QString>> texts{{"Job/JobHeader/Author", "A"},
                                                 {"Job/JobHeader/Creation", "2026-03-29T00:59:59Z"},
                                                 {"Job/JobHeader/JobType", "Surveillance MC HF"},
                                                 {"Job/AntennaData/Name", "North"},
                                                 {"Job/AntennaData/MinimumFrequency", "1"},
                                                 {"Job/AntennaData/MaximumFrequency", "2"}};
    for (int missing = texts.size(); missing > 0; --missing) {
        const QVector<Finding> findings = document.GetFindings();
        QCOMPARE(findings.size(), missing);
        const QString complaint = messageOf([&] { document.GetObject()->Check(); });
        QCOMPARE(document.GetState(), "Job, not complete: " + complaint);
        QCOMPARE(findings.constFirst().GetComplaint(), complaint);
        QCOMPARE(findings.constFirst().GetPath(), texts[texts.size() - missing].first);
        document.SetField(findings.constFirst().GetPath().mid(4).replace('/', '.'),
                          texts[texts.size() - missing].second);
    }
    QVERIFY(document.GetFindings().isEmpty());
    QVERIFY(document.IsAccepted() && document.IsComplete());
    QVERIFY(document.GetLosses().isEmpty());
    QCOMPARE(document.GetState(), QString("Job, complete"));
}

void DocumentTest::textBeyondXml()
{
    Document document = example(SurveillanceJob);
    document.SetField("JobHeader.Author", QString("A") + QChar(1));
    QVERIFY(!document.IsAccepted());
    QVERIFY(document.IsComplete());
    QCOMPARE(linesOf(document.GetFindings()),
             QStringList("0:0 error refused : Job: Text cannot be represented in XML"));
    QCOMPARE(linesOf(document.GetLosses()), linesOf(document.GetFindings()));

    // Paths have a replacement for it, but not for characters of two code units.
    Document receiver = Document::New("GenericReceiver");
    const QString name = QString::fromUtf8("\xF0\x9D\x84\x9E\xC3\xA4");
    receiver.SetField("Parameter[" + name + QChar(1) + QChar(0xFFFE) + "].ParameterType", "Integer");
    QStringList paths;
    for (const Finding &finding : receiver.GetFindings())
        paths += finding.GetPath();
    QVERIFY2(paths.contains("GenericReceiver/Parameter[" + name + QString(2, QChar::ReplacementCharacter)
                            + "]/ValueType"),
             qPrintable(paths.join('\n')));
}

/// Check() passes, but nothing would be written: why is told as a warning.
void DocumentTest::objectsThatPassAndAreNotWritten()
{
    Document job = example(SurveillanceJob);
    job.SetField("ResourceType", FindVocabulary("ResourceType").GetNames().constFirst());
    QVERIFY(job.IsAccepted() && !job.IsComplete());
    QCOMPARE(linesOf(job.GetFindings()),
             QStringList("0:0 warning bad-value Job/ResourceType: only a job on the resource \"Antenna\" is "
                         "ever complete; the library would write nothing for this one"));

    Document flag = example("jobs/production-mc-hf-empty-data-header-flag.xml");
    QCOMPARE(
        linesOf(Document(*flag.GetObject()).GetFindings()),
        QStringList("0:0 warning bad-value Job/JobHeader/ShowJDH: is empty: the header is not complete, and "
                    "the library would write nothing"));

    Document receiver = Document::New("GenericReceiver");
    receiver.SetFields({{"Parameter[A].ParameterType", "Enum"},
                        {"Parameter[A].RepresentationName", "a"},
                        {"Parameter[A].ValueType", "ValueNumericInt"},
                        {"Parameter[B].ParameterType", "Integer"},
                        {"Parameter[B].RepresentationName", "b"}});
    QVERIFY(receiver.IsAccepted() && !receiver.IsComplete());
    const QStringList lines = linesOf(receiver.GetFindings());
    QVERIFY2(lines.contains("0:0 warning missing-element GenericReceiver/Parameter[B]/ValueType: missing"),
             qPrintable(lines.join('\n')));
    QVERIFY2(lines.contains("0:0 warning missing-element : Parameter[A]: Please set Enum.EnumValue"),
             qPrintable(lines.join('\n')));
}

/// An object may hold what no document says, and Check() lets it pass.
void DocumentTest::valuesWithoutNames()
{
    Parameter parameter;
    parameter.SetParameterType(ParameterType::Integer);
    parameter.SetUniqueParameterName("P");
    parameter.SetRepresenationName("rx.p");
    parameter.SetValueType(static_cast<Parameter::ValueType>(99));
    const Document document(parameter);
    QVERIFY(document.IsAccepted() && document.IsComplete());
    const Field field = document.GetField("ValueType");
    QVERIFY(field.IsSet());
    QCOMPARE(field.GetValue(), QVariant(qint64(99)));
    QCOMPARE(field.GetText(), QString("99"));
    QCOMPARE(field.GetShownText(), QString("99 (no name)"));
    QVERIFY(document.GetFieldsJson().contains("\"ValueType\": 99,"));
    QCOMPARE(
        linesOf(document.GetFindings()),
        QStringList("0:0 warning bad-value Parameter[P]/ValueType: \"99\" is not a known name; it reads as "
                    "\"not set\""));
    QCOMPARE(complaintsOf(document.GetFindings()), QStringList(QString()));
    QCOMPARE(linesOf(document.GetLosses()),
             QStringList("0:0 warning not-read-back ValueType: not read back as it is: 99 -> not set"));

    parameter.SetParameterType(static_cast<ParameterType>(55));
    const Document untyped(parameter);
    QVERIFY(untyped.IsAccepted() && !untyped.IsComplete());
    QCOMPARE(untyped.GetField("ParameterType").GetText(), QString("55"));
    QVERIFY(pathsOf(untyped.GetFindings()).contains("Parameter[P]/ParameterType"));
}

/// Names of parameters and entries stand in messages.
void DocumentTest::namesThatSteerTerminals()
{
    Document receiver = Document::New("GenericReceiver");
    receiver.SetFields({{"Parameter[a\nb].ParameterType", "Enum"},
                        {"Parameter[a\nb].RepresentationName", "a"},
                        {"Parameter[a\nb].ValueType", "ValueNumericInt"}});
    const QStringList lines = linesOf(receiver.GetFindings());
    QVERIFY2(lines.contains("0:0 warning missing-element : Parameter[a\\nb]: Please set Enum.EnumValue"),
             qPrintable(lines.join('\n')));

    receiver.SetFields({{"Parameter[a\nb].Enum.EnumValue", "1," + QString(QChar(0x9B)) + "2J,c,2"},
                        {"Parameter[a\nb].Enum.EnumValue[1].Key", "1"},
                        {"Parameter[a\nb].Enum.EnumValue[1].Name", QString(1000, 'x')}});
    QStringList messages;
    const auto findings = receiver.GetFindings();
    for (const Finding &finding : findings)
        messages += finding.GetMessage();
    QCOMPARE(Document("<Job>&a\x1B;</Job>").GetFindings().constFirst().GetMessage(),
             QString("Entity 'a\\u001b' not declared."));
    const QString cut = QString(200, 'x') + QChar(0x2026);
    QVERIFY2(messages.contains("the entries '\\u009b2J' and '" + cut + "' have the same key"),
             qPrintable(messages.join('\n')));
}

void DocumentTest::unknownObject()
{
    const Document document{TESSEL::Area()};
    QCOMPARE(document.GetKind(), QString());
    QVERIFY(!document.GetObject());
    QVERIFY(!document.IsAccepted());
    const QVector<Finding> findings = document.GetFindings();
    QCOMPARE(linesOf(findings), QStringList("0:0 error unknown-kind : unknown kind of document 'Area'"));
    QCOMPARE(findings.constFirst().GetAllowed(), GetDocumentKinds());
    QCOMPARE(document.GetLosses(), findings);
}

void DocumentTest::unknownKind()
{
    QCOMPARE(messageOf([] { (void)Document::New("job"); }),
             QString("unknown kind of document 'job'. Allowed: " + GetDocumentKinds().join(", ")));
    QVERIFY(!messageOf([] { (void)Document::New({}); }).isEmpty());
}

void DocumentTest::unusableTexts_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("finding");

    QTest::newRow("null") << QByteArray() << QString()
                          << "1:1 error not-well-formed : Premature end of document.";
    QTest::newRow("no XML") << QByteArray("Job") << QString()
                            << "1:1 error not-well-formed : Start tag expected.";
    QTest::newRow("another root") << QByteArray("<Area/>") << QString()
                                  << "1:1 error unknown-kind : unknown kind of document 'Area'";
    QTest::newRow("not UTF-8")
        << QByteArray("<Job>\xE9</Job>") << QString()
        << "1:6 error encoding : byte 0xe9 is not UTF-8; it may be ISO-8859-1: \"iconv -f "
           "ISO-8859-1 -t UTF-8 FILE > NEWFILE\" converts it";
    QTest::newRow("further byte alone")
        << QByteArray("<Job>\x80") << QString()
        << "1:6 error encoding : byte 0x80 is not UTF-8; it may be WINDOWS-1252: \"iconv -f WINDOWS-1252 -t "
           "UTF-8 FILE > NEWFILE\" converts it";
    const std::pair<const char *, QByteArray> notUtf8[] = {
        {"character that breaks off", "\xE2\x82"},
        {"two bytes for one", "\xC1\x81"},
        {"three bytes for two", "\xE0\x9F\xBF"},
        {"four bytes for three", "\xF0\x8F\xBF\xBF"},
        {"surrogate", "\xED\xA0\x80"},
        {"beyond Unicode", "\xF4\x90\x80\x80"},
    };
    for (const auto &[name, bytes] : notUtf8) {
        const QString byte = QString::fromLatin1(bytes.left(1).toHex());
        QTest::newRow(name) << "<Job>" + bytes << QString()
                            << "1:6 error encoding : byte 0x" + byte + " is not UTF-8";
    }
    QTest::newRow("NUL at the start")
        << QByteArray("\0<Job/>", 7) << QString() << "1:1 error encoding : the text holds a NUL byte";
    QTest::newRow("NUL") << QByteArray("<Job/>\0", 7) << QString()
                         << "1:7 error encoding : the text holds a NUL byte";
    QTest::newRow("namespace declared twice")
        << QByteArray("<GenericReceiver xmlns='a' xmlns='a'/>") << QString() << QString();
    QTest::newRow("second root") << QByteArray("<GenericReceiver/><GenericReceiver/>") << "GenericReceiver"
                                 << "1:36 error not-well-formed : Extra content at end of document.";
}

void DocumentTest::unusableTexts()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, kind);
    QFETCH(QString, finding);

    Document document(text);
    QVERIFY(!document.IsAccepted());
    QCOMPARE(document.GetKind(), kind);
    QVERIFY(!document.GetObject());
    QVERIFY(hasError(document.GetFindings()));
    if (!finding.isEmpty())
        QCOMPARE(linesOf(document.GetFindings()), QStringList(finding));
    QVERIFY(hasError(document.GetLosses()));
    QVERIFY(!document.GetState().isEmpty());
    QVERIFY(document.GetFields().isEmpty());
    QCOMPARE(document.GetFieldsJson(), QByteArray());
    QVERIFY(!messageOf([&] { document.SetField("Version", "1"); }).isEmpty());
    QVERIFY(document.GetFindingsJson("a \"b\"").contains("\"file\": \"a \\\"b\\\"\""));
}

/// Those that take one more byte than the one before, or one less than the one behind.
void DocumentTest::firstAndLastCharacters()
{
    for (const char *character : {"\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF",
                                  "\xEE\x80\x80", "\xEF\xBF\xBD", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBD"}) {
        const Document document(QByteArray("<Job><JobHeader/><ResourceType>") + character
                                + "</ResourceType></Job>");
        QStringList found;
        for (const Finding &finding : document.GetFindings())
            found += finding.GetFound();
        QVERIFY2(found.contains(QString::fromUtf8(character)), QByteArray(character).toHex());
    }
}

void DocumentTest::namespaceDeclaredTwiceBehindAll()
{
    const QByteArray start =
        "<Parameter UniqueName='Mode'><RepresentationName>m</RepresentationName><ValueType>"
        "ValueSelection</ValueType><ParameterType>Enum</ParameterType><Enum><EnumValue/></Enum>";
    QVERIFY(Document(start + "</Parameter>").IsComplete());
    QVERIFY(Document(start + "<Enum></Parameter>").IsComplete()); // what was read until then

    // of which the library reads nothing
    const QByteArray text = start + "<Enum><EnumValue xmlns='a' xmlns='a'/></Enum></Parameter>";
    Parameter parameter;
    QVERIFY(!parameter.SetXmlString(text, true));
    QVERIFY(!parameter.HasData());
    const Document document(text);
    QVERIFY(!document.IsAccepted());
    QVERIFY(!document.IsComplete());
    QVERIFY(document.GetFindingsJson("f").contains("\"complete\": false"));
    QCOMPARE(document.GetKind(), QString("Parameter"));
    QCOMPARE(linesOf(document.GetFindings()).constLast().section(' ', 1),
             QString("error not-well-formed Parameter[Mode]/Enum: The namespace declaration "
                     "'xmlns' stands twice in one element."));
}

void DocumentTest::fieldsAreSet()
{
    Document document = Document::New("GenericReceiver");
    document.SetField("Parameter[Gain].ParameterType", "Integer");
    document.SetField("Parameter[Gain].Integer.Minimum", "-3");
    QCOMPARE(document.GetField("Parameter[Gain].Integer.Minimum").GetValue(), QVariant(qint64(-3)));
    const auto &receiver = dynamic_cast<const GenericReceiver &>(*document.GetObject());
    QCOMPARE(receiver.GetParameter("Gain").GetIntegerHandler().GetMinimum(), -3);

    Document workflow = Document::New("AutomaticWorkflow");
    workflow.SetField("Area.Coordinate", "52.1,13.4");
    workflow.SetField("Area.Coordinate[1].Latitude", "-1");
    workflow.SetField("Area.Coordinate[0].Longitude", "2");
    QStringList texts;
    for (const Field &field : workflow.GetFields()) {
        if (field.GetPath().startsWith("Area.Coordinate"))
            texts += field.GetText();
    }
    QCOMPARE(texts, QStringList({"52.1", "2", "-1", "0"}));
    workflow.SetField("Area.Name", "North");
    workflow.SetField("Area.Name", {}); // a text can be taken back
    QVERIFY(!workflow.GetField("Area.Name").IsSet());
}

/// In whatever order they are given.
void DocumentTest::severalFieldsAreSet()
{
    QVector<Document::Setting> settings{{"Parameter[Gain].Integer.Maximum", "40"},
                                        {"Parameter[Gain].RepresentationName", "rx.gain"},
                                        {"Parameter[Gain].ParameterType", "Integer"},
                                        {"Parameter[Gain].ValueType", "ValueNumericInt"}};
    Document document = Document::New("GenericReceiver");
    document.SetFields(settings);
    QVERIFY(document.IsComplete());
    std::reverse(settings.begin(), settings.end());
    Document other = Document::New("GenericReceiver");
    other.SetFields(settings);
    QVERIFY(Document::Compare(document, other).isEmpty());

    settings.push_back(settings.constFirst());
    QCOMPARE(messageOf([&] { other.SetFields(settings); }),
             QString("Parameter[Gain].ValueType: is set twice"));
    document.SetFields({});
    QVERIFY(Document::Compare(document, other).isEmpty());
}

void DocumentTest::fieldsThatTheTextSaysOtherwise()
{
    QByteArray text = contentOf(QDir(EXAMPLES_DIR).filePath("jobs/surveillance-mc-hf.xml"));
    QVERIFY(!Document(text).GetFieldsJson().contains("documentSays"));
    Document document(text.replace("<Azimuth>0<", "<Azimuth>north<"));
    const auto saysOf = [](const Document &told) {
        return QJsonDocument::fromJson(told.GetFieldsJson()).object()["documentSays"].toObject();
    };
    QCOMPARE(saysOf(document), QJsonObject({{"AntennaData.Azimuth", "north"}}));
    const Document copy(document);
    document.SetField("JobHeader.Author", "M. Keller");
    QCOMPARE(saysOf(document), QJsonObject()); // it is the object that counts now
    QCOMPARE(saysOf(copy), QJsonObject({{"AntennaData.Azimuth", "north"}}));
    const Document marked("\xEF\xBB\xBF" + text.replace("?>", " encoding='latin1'?>"));
    QCOMPARE(saysOf(marked), QJsonObject({{"AntennaData.Azimuth", "north"}}));
}

void DocumentTest::settingFails_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("message");

    QTest::newRow("no path") << ""
                             << "x"
                             << "there is no field ''. Allowed: JobHeader, ResourceType, AntennaData";
    QTest::newRow("no such field") << "JobHeader.author"
                                   << "x"
                                   << "there is no field 'author' in JobHeader. Allowed: JobType, Author, "
                                      "Creation, ShowJDH, Description";
    QTest::newRow("an = in the path") << "JobHeader.Author=x"
                                      << "y"
                                      << "there is no field 'JobHeader.Author=x'";
    QTest::newRow("no setter") << "Version"
                               << "2.0"
                               << "Version: no setter reaches this field";
    QTest::newRow("an object") << "JobHeader"
                               << "x"
                               << "JobHeader: takes one of its fields: JobType, Author, Creation, ShowJDH, "
                                  "Description";
    QTest::newRow("no number") << "AntennaData.Azimuth"
                               << "north"
                               << "AntennaData.Azimuth: 'north' is not allowed. Allowed: finite number in "
                                  "degrees";
    QTest::newRow("no date") << "JobHeader.Creation"
                             << "2026-02-30T00:00:00Z"
                             << "JobHeader.Creation: '2026-02-30T00:00:00Z' is not allowed. Allowed: date in "
                                "UTC as 2026-03-29T00:59:59,250Z, 2026-03-29T00:59:59Z, or now";
    QTest::newRow("no truth")
        << "JobHeader.ShowJDH"
        << "True"
        << "JobHeader.ShowJDH: 'True' is not allowed; did you mean \"true\"? Allowed: true, false";
}

void DocumentTest::settingFails()
{
    QFETCH(QString, path);
    QFETCH(QString, text);
    QFETCH(QString, message);

    Document document = example(SurveillanceJob);
    const QByteArray fields = document.GetFieldsJson();
    const auto *const object = document.GetObject();
    QCOMPARE(messageOf([&] {
                 document.SetFields({{"JobHeader.Description", "new"}, {path, text}});
             }),
             message);
    QCOMPARE(messageOf([&] { document.SetField(path, text); }), message);
    QCOMPARE(document.GetObject(), object);
    QCOMPARE(document.GetFieldsJson(), fields);
}

void DocumentTest::copies()
{
    const Document document = example(SurveillanceJob);
    Document copy = document;
    QCOMPARE(copy.GetObject(), document.GetObject());
    copy.SetField("JobHeader.Author", "Somebody else");
    QVERIFY(copy.GetObject() != document.GetObject());
    QVERIFY(document.GetField("JobHeader.Author").GetText() != "Somebody else");

    Job job;
    const Document ofJob(job);
    job.GetJobHeader().SetAuthor("Keller");
    QVERIFY(!ofJob.GetField("JobHeader.Author").IsSet());
}

void DocumentTest::lossesOfTexts()
{
    QByteArray text = contentOf(QDir(EXAMPLES_DIR).filePath(SurveillanceJob));
    QVERIFY(Document(text).GetLosses().isEmpty());
    text.replace("<JobHeader ", "<!-- by hand --><JobHeader Colour=\"red\" ");
    const Document document(text);
    QVERIFY(document.IsAccepted());
    const QVector<Finding> losses = document.GetLosses();
    QCOMPARE(linesOf(losses),
             QStringList({"3:5 warning lost-comment Job: the comment \" by hand \" would be missing",
                          "3:21 warning lost Job/JobHeader/@Colour: was \"red\", would be missing"}));
    QVERIFY(text.mid(static_cast<int>(losses[1].GetOffset())).startsWith("<JobHeader"));
    const QList<QByteArray> lines = document.GetLossesJson("f.xml").split('\n');
    QCOMPARE(static_cast<int>(lines.size()), 3);
    const QJsonObject json = QJsonDocument::fromJson(lines[1]).object();
    QCOMPARE(json.value("id").toString(), QString("lost"));
    QCOMPARE(json.value("line").toInt(), 3);

    // What is not complete is not written at all.
    const Document incomplete = example("jobs/signal-tracking-without-antenna.xml");
    QCOMPARE(incomplete.GetLosses().size(), 1);
    QCOMPARE(incomplete.GetLosses().constFirst().GetSeverity(), Finding::Severity::Error);
    QCOMPARE(incomplete.GetLosses().constFirst().GetMessage(), incomplete.GetState());
}

void DocumentTest::lossesOfObjects()
{
    const Document receiver = example("receivers/hf-receiver.xml");
    QStringList paths;
    for (const Finding &finding : Document(*receiver.GetObject()).GetLosses()) {
        QCOMPARE(finding.GetId(), FindingId::NotReadBack.toString());
        QVERIFY(!finding.HasPlace());
        paths += finding.GetPath();
    }
    QCOMPARE(paths,
             QStringList({"Parameter[OperatorCall].String.Default", "Parameter[OperatorCall].String.Value",
                          "Parameter[StationName].String.Default", "Parameter[StationName].String.Value"}));

    Document workflow = Document::New("AutomaticWorkflow");
    workflow.SetFields({{"Mode", "ManualMode"}});
    QVERIFY(workflow.IsComplete());
    QCOMPARE(
        linesOf(workflow.GetLosses()),
        QStringList("0:0 warning not-read-back Mode: not read back as it is: \"ManualMode\" -> not set"));
}

/// It passes Check(), but writes nothing, which loses all.
void DocumentTest::lossesOfWhatIsNotWritten()
{
    AutomaticWorkflow workflow;
    workflow.SetWorkflowMode(AutomaticWorkflow::AutomaticMode);
    const Document document(workflow);
    QVERIFY(document.IsAccepted());
    QCOMPARE(linesOf(document.GetLosses()), QStringList("0:0 error refused : " + document.GetState()));
}

void DocumentTest::lossesBeyondLimits()
{
    TESSEL::ReadingLimits limits;
    limits.SetDepth(2);

    AutomaticWorkflow workflow;
    workflow.SetWorkflowMode(AutomaticWorkflow::AutomaticMode);
    workflow.SetSearchStrategy(AutomaticWorkflow::LowestIdFirst);
    workflow.GetArea().SetName("North");
    workflow.SetReadingLimits(limits);
    QCOMPARE(linesOf(Document(workflow).GetLosses()).constFirst(),
             QString("0:0 warning not-read-back : would not be read back"));

    Parameter parameter;
    parameter.SetParameterType(ParameterType::Integer);
    parameter.SetUniqueParameterName("P");
    parameter.SetRepresenationName("rx.p");
    parameter.SetValueType(Parameter::ValueNumericInt);
    QVERIFY(Document(parameter).GetLosses().isEmpty());
    parameter.SetReadingLimits(limits);
    QCOMPARE(linesOf(Document(parameter).GetLosses()).constFirst(),
             QString("0:0 warning not-read-back : would not be read back: Elements stand more than 2 deep in "
                     "one another."));
}

/// What the text says beyond the fields is told all the same.
void DocumentTest::lossesBehindAChange()
{
    QByteArray text = contentOf(QDir(EXAMPLES_DIR).filePath(SurveillanceJob));
    text.replace("<JobHeader ", "<!-- by hand --><JobHeader ");
    Document document(text);
    const QStringList before = linesOf(document.GetLosses());
    QCOMPARE(static_cast<int>(before.size()), 1);
    document.SetField("JobHeader.Author", "Somebody else");
    QVERIFY(document.GetFindings().isEmpty());
    QCOMPARE(linesOf(document.GetLosses()), before);

    // A text that could not be written as it was, since it lacks something, is compared with what is now.
    Document completed(contentOf(EXAMPLES_DIR "/faulty/job-type-in-lower-case.xml"));
    QVERIFY(hasError(completed.GetLosses()));
    completed.SetField("JobHeader.JobType", "Surveillance MC HF");
    QCOMPARE(linesOf(completed.GetLosses()),
             QStringList("4:9 warning lost Job/JobHeader/JobType: was \"surveillance mc hf\", would be "
                         "\"Surveillance MC HF\""));
}

void DocumentTest::comparing()
{
    const Document job = example(SurveillanceJob);
    QVERIFY(Document::Compare(job, job).isEmpty());
    QVERIFY(Document::AreEqualObjects(job, job));
    QCOMPARE(messageOf([&] { (void)Document::Compare(job, Document::New("Parameter")); }),
             QString("documents of the kinds Job and Parameter cannot be compared"));
    const Document broken("<Job>");
    QCOMPARE(broken.GetKind(), QString("Job"));
    for (const auto &call : {std::make_pair(job, broken), std::make_pair(broken, job)}) {
        QVERIFY(!messageOf([&] { (void)Document::Compare(call.first, call.second); }).isEmpty());
        QVERIFY(!messageOf([&] { (void)Document::AreEqualObjects(call.first, call.second); }).isEmpty());
        QVERIFY(!messageOf([&] { (void)Document::GetDifferencesJson(call.first, call.second); }).isEmpty());
    }
}

void DocumentTest::limits()
{
    const QByteArray text = contentOf(QDir(EXAMPLES_DIR).filePath(SurveillanceJob));
    TESSEL::ReadingLimits limits;
    limits.SetDepth(2);
    const Document refused(text, limits);
    QVERIFY(!refused.IsAccepted());
    QVERIFY(!refused.GetObject());
    QCOMPARE(refused.GetFindings().constFirst().GetLimit(), Finding::Limit::Depth);
    limits.SetDepth(3);
    const Document read(text, limits);
    QVERIFY(read.IsAccepted());
    QCOMPARE(read.GetObject()->GetReadingLimits(), limits);
    QVERIFY(read.GetLosses().isEmpty());
}

/// Each with documents of its own, which share the data of one.
void DocumentTest::threads()
{
    const QStringList paths = examples();
    std::vector<Document> shared;
    std::vector<QByteArray> told;
    for (const QString &path : paths) {
        shared.emplace_back(contentOf(path));
        told.push_back(shared.back().GetFindingsJson("f") + shared.back().GetFieldsJson()
                       + shared.back().GetLossesJson("f"));
    }
    std::atomic<int> faults{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([&, i] {
            for (std::size_t n = 0; n < shared.size(); ++n) {
                const Document own = i % 2 == 0 ? shared[n] : Document(contentOf(paths[static_cast<int>(n)]));
                if (own.GetFindingsJson("f") + own.GetFieldsJson() + own.GetLossesJson("f") != told[n])
                    ++faults;
                Document changed = shared[n];
                if (changed.GetKind() != "Job" || !changed.GetObject())
                    continue;
                changed.SetField("JobHeader.Author", QString::number(i));
                if (changed.GetField("JobHeader.Author").GetText() != QString::number(i))
                    ++faults;
            }
            if (FindVocabulary("JobType").GetNames().size() != 22 || GetVocabularies().size() != 15)
                ++faults;
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    QCOMPARE(faults.load(), 0);
}

void DocumentTest::filesAndDevices()
{
    const QString path = QString(EXAMPLES_DIR) + "/jobs/antenna.xml";
    const Document file = Document::ReadFile(path, "Job");
    QVERIFY(file.IsAccepted());
    QFile device(path);
    QVERIFY(device.open(QIODevice::ReadOnly));
    const Document ofDevice = Document::Read(device);
    QCOMPARE(ofDevice.GetFindings(), file.GetFindings());
    QVERIFY(Document::Compare(file, ofDevice).isEmpty());
    QVERIFY(device.seek(0));
    QBuffer buffer;
    buffer.setData(QByteArray("rest") + device.readAll());
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    QVERIFY(buffer.seek(4));
    QVERIFY(Document::Compare(file, Document::Read(buffer)).isEmpty());
    const auto job = file.Get<Job>();
    QVERIFY(job.has_value());
    QVERIFY(*job == *static_cast<const Job *>(file.GetObject()));
    QVERIFY(!file.Get<GenericReceiver>().has_value());
    QVERIFY(!Document().Get<Job>().has_value());
}

void DocumentTest::expectedKinds_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("id"); // of the first error

    const QByteArray job = "<Job/>";
    QTest::newRow("any") << job << QString() << "missing-element";
    QTest::newRow("as expected") << job << "Job"
                                 << "missing-element";
    QTest::newRow("another") << job << "Parameter"
                             << "other-kind";
    QTest::newRow("no such kind expected") << job << "job"
                                           << "other-kind";
    QTest::newRow("unknown") << QByteArray("<Jobs/>") << "Job"
                             << "unknown-kind";
}

void DocumentTest::expectedKinds()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, kind);
    QFETCH(QString, id);

    const Document document = Document::Read(text, kind);
    QVERIFY(!document.IsAccepted());
    QVERIFY(!document.GetFindings().isEmpty());
    const Finding finding = document.GetFindings().first();
    QCOMPARE(finding.GetId(), id);
    QCOMPARE(finding.GetSeverity(), Finding::Severity::Error);
    QCOMPARE(finding.GetLine(), qint64(1));
    QCOMPARE(document.GetObject() != nullptr, id == "missing-element");
    if (id == "other-kind")
        QCOMPARE(finding.GetMessage(), "is a document of kind Job, not " + kind);
}

void DocumentTest::filesThatCannotBeRead()
{
    const QTemporaryDir folder;
    QBuffer closed;
    for (const Document &document : {Document::ReadFile(folder.filePath("missing.xml")),
                                     Document::ReadFile(folder.path()), Document::Read(closed)}) {
        QVERIFY(!document.IsAccepted());
        QVERIFY(document.GetObject() == nullptr);
        QCOMPARE(document.GetFindings().size(), 1);
        const Finding finding = document.GetFindings().first();
        QCOMPARE(finding.GetId(), QString("unreadable"));
        QVERIFY(!finding.HasPlace());
        QVERIFY2(finding.GetMessage().startsWith("cannot be read: "), qPrintable(finding.GetMessage()));
        QCOMPARE(document.GetLosses(), document.GetFindings());
        QCOMPARE(document.SaveFile(folder.filePath("a.xml")), document.GetFindings());
    }
    QVERIFY(QDir(folder.path()).isEmpty());
}

/// Unlike documents that are read into one object one after the other.
void DocumentTest::eachReadingIsOfItsOwn()
{
    const Document first = Document::Read(
        "<Job><JobHeader><Author>A</Author></JobHeader><ResourceType>Antenna</ResourceType></Job>");
    const Document second = Document::Read("<Job><JobHeader><Description>D</Description></JobHeader></Job>");
    QCOMPARE(first.GetField("JobHeader.Author").GetText(), QString("A"));
    QVERIFY(!second.GetField("JobHeader.Author").IsSet());
    QVERIFY(!second.GetField("ResourceType").IsSet());
}

void DocumentTest::saving()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("job.xml");
    const Document job = Document::ReadFile(QString(EXAMPLES_DIR) + "/jobs/antenna.xml");
    QVERIFY(job.GetWriteErrors().isEmpty());
    QVERIFY(job.SaveFile(path).isEmpty());
    QVERIFY(Document::Compare(job, Document::ReadFile(path)).isEmpty());
    const auto errors = job.SaveFile(folder.filePath("none/job.xml"));
    QCOMPARE(errors.size(), 1);
    QCOMPARE(errors.first().GetId(), QString("unwritten"));
    QVERIFY(errors.first().GetMessage().startsWith("cannot be written: "));
    QCOMPARE(job.SaveFile(folder.path()).size(), 1);
    QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList("job.xml"));
}

void DocumentTest::savingFails_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("message");

    QTest::newRow("refused") << QByteArray("<Job/>") << "missing";
    QTest::newRow("other resource") << QByteArray(
        "<Job><JobHeader><Author>A</Author><Creation>2026-03-14T06:30:00,000Z</Creation><JobType>Antenna"
        "</JobType></JobHeader><ResourceType>Decoder</ResourceType></Job>")
                                    << "Job: only a job with ResourceType \"Antenna\" is written";
    QTest::newRow("empty flag") << QByteArray(
        "<Job><JobHeader><Author>A</Author><Creation>2026-03-14T06:30:00,000Z</Creation><JobType>Antenna"
        "</JobType><ShowJDH/></JobHeader><ResourceType>Antenna</ResourceType><AntennaData><Name>A</Name>"
        "<MinimumFrequency>1</MinimumFrequency><MaximumFrequency>2</MaximumFrequency></AntennaData></Job>")
                                << "JobHeader: Please set ShowJDH";
    QTest::newRow("parameter that is not complete") << QByteArray(
        "<GenericReceiver><Parameter UniqueName='Mode'><RepresentationName>m</RepresentationName>"
        "<ValueType>ValueSelection</ValueType><ParameterType>Enum</ParameterType></Parameter>"
        "</GenericReceiver>") << "Parameter[Mode]: Please set Enum.EnumValue";
}

void DocumentTest::savingFails()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, message);

    const QTemporaryDir folder;
    const Document document = Document::Read(text);
    const auto errors = document.SaveFile(folder.filePath("a.xml"));
    QCOMPARE(errors, document.GetWriteErrors());
    QVERIFY(!errors.isEmpty());
    for (const Finding &error : errors)
        QCOMPARE(error.GetSeverity(), Finding::Severity::Error);
    QCOMPARE(errors.first().GetMessage(), message);
    QVERIFY(QDir(folder.path()).isEmpty());
}

QTEST_GUILESS_MAIN(DocumentTest)
#include "DocumentTest.moc"
