// What is told of documents, held against the library that reads them, and its tables against the schemas.
#include <inspection/DocumentCheck_p.h>
#include <inspection/DocumentTexts_p.h>
#include <inspection/FieldDiff_p.h>
#include <inspection/NameLists_p.h>
#include <kormak/ActivityGenerationData.h>
#include <kormak/Job.h>
#include <kormak/Vocabularies_p.h>
#include <objectbase/TesselException.h>
#include <objectbase/Vocabularies_p.h>
#include <tests/support/DocumentKinds.h>
#include <tests/support/ToolSupport.h>

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSet>
#include <QXmlStreamReader>

using namespace KORMAK;
using namespace KORMAK::Inspection;
using namespace TESSEL;
using namespace ToolSupport;

class DocumentWalkTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void namesAreThoseOfTheSchemas();
    void vocabulariesAreThoseOfTheSchemas_data();
    void vocabulariesAreThoseOfTheSchemas();
    void everyElementInEveryObject_data();
    void everyElementInEveryObject();
    void textsOfElements_data();
    void textsOfElements();
    void textsOfAttributes_data();
    void textsOfAttributes();
    void textOfTheOlderForm();
    void dataHeaderFlag();
    void changedDocuments_data();
    void changedDocuments();
};

namespace {

/// What the library says against a document; a null text when it accepts it.
QString refusal(const QString &text)
{
    QXmlStreamReader reader(text);
    reader.readNextStartElement();
    const DocumentKind *kind = findDocumentKind(reader.name());
    if (!kind)
        return "unknown kind";
    const auto object = kind->create();
    try {
        if (!object->SetXmlString(text, true))
            return "not well-formed";
        object->Check();
    } catch (const TESSEL::TesselException &exception) {
        return exception.GetErrorMessage();
    }
    return {};
}

/// In which fields the object that the walk has made of an accepted document differs from the one that the
/// library has read, or how the library's words are others.
QString differenceFromLibrary(const QString &text, const QString &said)
{
    if (said == "unknown kind" || said == "not well-formed")
        return {};
    const ParsedDocument document = documentOf(text.toUtf8(), ReadingLimits());
    const auto rejection = document.rejection ? document.rejection : checkObject(document);
    const QString words = rejection ? rejection->message : QString();
    const bool isReaderInError = document.tree.isBroken()
        || std::any_of(document.findings.begin(), document.findings.end(),
                       [](const FindingData &finding) { return finding.id == FindingId::MisplacedElement; });
    if (words != said && !isReaderInError) // whose words come first then
        return "not the words of the library: " + words + '\n';
    const auto object = document.kind->create();
    if (!said.isNull() || !object->SetXmlString(text, true))
        return {};
    QString lines;
    for (const FieldDifference &difference :
         differences(document.kind->fields(), document.kind->address(*object),
                     document.kind->address(*document.object)))
        lines += difference.toLine() + '\n';
    if (object->HasData() != document.isComplete)
        lines += "complete as the library says it is not, or the other way round\n";
    return lines;
}

/// Why the check of a document does not fit what the library makes of it; a null text when it does. There is
/// to be an error exactly when the library refuses the document, and no need for the words of the library.
QString misfit(const QString &text)
{
    const QString said = refusal(text);
    const DocumentCheck check = checkText(text.toUtf8());
    bool hasError = false;
    bool hasNeed = false;
    QString findings;
    for (const auto &placed : check.findings) {
        const FindingData &finding = placed.finding;
        hasError = hasError || finding.severity == Severity::Error;
        hasNeed = hasNeed || finding.id == FindingId::Refused;
        findings += finding.path + ": " + finding.message + " [" + finding.complaint + "]\n";
    }
    const bool isRefused = !said.isNull();
    const QString difference = differenceFromLibrary(text, said);
    if (hasError == isRefused && !hasNeed && check.isAccepted != isRefused && difference.isEmpty())
        return {};
    return "The library says: " + said + "\nThe check says:\n" + findings + difference + text;
}

/// An object of a document, by the rows that lead to it.
struct Place {
    const DocumentKind *kind;
    QString owner; ///< the element of the object
    const ObjectTable *table;
};

void addPlaces(QList<Place> &places, const Place &place)
{
    places << place;
    for (const Row &row : place.table->elements) {
        if (row.part)
            addPlaces(places, {place.kind, row.name.toString(), &row.part->table()});
    }
}

/// Every object of every kind of document, the older forms left out.
QList<Place> allPlaces()
{
    QList<Place> places;
    for (const QString &name : documentKindNames()) {
        const DocumentKind *kind = findDocumentKind(name);
        addPlaces(places, {kind, name, &kind->table()});
    }
    return places;
}

/// A complete document of a kind in which the elements of \a owner mean something, as the library writes it
/// but for one that it does not read back.
QString documentWith(const DocumentKind &kind, const QString &owner)
{
    const auto parameter = [](const QString &type, const QString &content) {
        return QString(
                   "<Parameter Version=\"1.0\" "
                   "UniqueName=\"P\">\n<RepresentationName>r</RepresentationName>\n"
                   "<ValueType>ValueString</ValueType>\n<ParameterType>%1</ParameterType>\n%2\n</Parameter>")
            .arg(type, content);
    };
    const QString limits = "<Minimum>1</Minimum>\n<Maximum>9</Maximum>\n<Default>5</Default>";
    QString element = parameter("Boolean", "<Boolean>true</Boolean>");
    if (owner == "Enum" || owner == "EnumValue")
        element = parameter("Enum",
                            "<Enum>\n<EnumValue Key=\"1\" Name=\"a\" Identifier=\"b\" Value=\"2\" "
                            "Default=\"true\"/>\n<EnumValue Key=\"3\"/>\n</Enum>");
    else if (owner == "String")
        element = parameter(owner, "<String>\n<Default>a</Default>\n</String>");
    else if (owner == "DoubleList")
        element = parameter(
            owner, "<DoubleList>\n<MaxDoubleListLength>3</MaxDoubleListLength>\n<Double/>\n</DoubleList>");
    else if (owner == "Double")
        element = parameter(
            "DoubleList", "<Double>\n" + limits + "<MaxDoubleListLength>3</MaxDoubleListLength>\n</Double>");
    else if (owner != "Boolean" && TestSupport::typeNames().contains(owner))
        element = parameter(owner, QString("<%1>\n%2\n</%1>").arg(owner, limits));

    if (kind.rootElement == QString("Job"))
        return with(completeJob(), ">1500000<", ">0<");
    if (kind.rootElement == QString("AutomaticWorkflow"))
        return completeWorkflow();
    if (kind.rootElement == QString("ActivityGeneration"))
        return completeGeneration();
    if (kind.rootElement == QString("Parameter"))
        return element;
    if (kind.rootElement == QString("GenericReceiver"))
        return QString("<GenericReceiver Version=\"1.0\">\n%1\n</GenericReceiver>").arg(element);
    return TestSupport::wholeDocument(kind.rootElement.toString());
}

/// The document with the text of the element called \a tag in it replaced, or with such an element added to
/// its owner.
QString withText(QString document, const QString &owner, const QString &tag, const QString &text)
{
    const QString element = QString("<%1>%2</%1>").arg(tag, text.toHtmlEscaped());
    const QRegularExpression present(QString("<%1>[^<]*</%1>").arg(tag));
    if (document.contains(present))
        return document.replace(present, element);
    const auto end = document.lastIndexOf("</" + owner + '>');
    return document.insert(end, element);
}

QString withAttribute(QString document, const QString &owner, const QString &name, const QString &value)
{
    const auto begin = document.indexOf('<' + owner + QLatin1Char(' '));
    const auto start = begin >= 0 ? begin : document.indexOf('<' + owner + '>');
    const auto end = document.indexOf('>', start);
    QString tag = document.mid(start, end - start);
    tag.remove(QRegularExpression(QString(" %1=\"[^\"]*\"").arg(name)));
    tag.insert(owner.size() + 1, QString(" %1=\"%2\"").arg(name, value.toHtmlEscaped()));
    return document.replace(start, end - start, tag);
}

/// What the library makes of a document: its refusal, or what it would write.
QString outcomeOf(const DocumentKind &kind, const QString &text)
{
    const QString said = refusal(text);
    if (!said.isNull())
        return said;
    const auto object = kind.create();
    (void)object->SetXmlString(text, true);
    return object->GetXmlString();
}

bool isWritten(const QString &outcome)
{
    return outcome.contains("</");
}

/// Texts that mean something to some kind of value, and texts that nearly do.
QStringList samples()
{
    QStringList texts{"12.5",
                      "3",
                      " 7 ",
                      "+7",
                      "-7",
                      "007",
                      "1e3",
                      " 1E+3 ",
                      ".5",
                      "5.",
                      "1.25e-2",
                      "nan",
                      "NaN",
                      "inf",
                      "-inf",
                      "infinity",
                      "1e39",
                      "-3.5e38",
                      "1e308",
                      "1e309",
                      "1e400",
                      "2147483647",
                      "2147483648",
                      "-2147483648",
                      "-2147483649",
                      "9223372036854775807",
                      "9223372036854775808",
                      "99999999999999999999999999999999",
                      "999999999999999999999999999999999999",
                      "",
                      " ",
                      "-",
                      "+",
                      ".",
                      "--1",
                      "1-",
                      "1.2.3",
                      "1e",
                      "1,5",
                      "1 000",
                      "1_000",
                      "0x1F",
                      "1f",
                      "5 dB",
                      "five",
                      "true",
                      "True",
                      "TRUE",
                      " true",
                      "yes",
                      "1",
                      "23",
                      "24",
                      "10",
                      "11",
                      "999",
                      "1000",
                      "2026-03-29T00:59:59,250Z",
                      "2026-03-29T00:59:59Z",
                      "2026-02-30T00:59:59,250Z",
                      "2026-03-29 00:59:59,250",
                      QString::fromUtf8("\xD9\xA3"),
                      QString::fromUtf8("\xC2\xBD")};
    for (const NameList &list : allNameLists()) {
        const QStringList names = list.table().names();
        texts << names << names.first().toLower() << names.last() + ' ' << ' ' + names.first()
              << names.last().toUpper();
    }
    texts.removeDuplicates();
    return texts;
}

/// Whether what the row says of each text is what the library makes of it. \a outcome is that of the
/// document with the text.
template <class Outcome>
void compareTexts(const Row &row, Outcome outcome)
{
    const QString garbage = "\u2022 neither a number nor a name";
    const bool isRefused = !row.refusedAs.isEmpty();
    if (row.type.kind == TextType::Kind::Text) {
        QVERIFY(outcome("abc") != outcome("abd"));
        QVERIFY(isValid(row.type, garbage));
        return;
    }
    QVERIFY(!isValid(row.type, garbage));
    const QString otherwise = outcome(garbage);
    QCOMPARE(otherwise.contains(": Invalid "), isRefused);
    int good = 0;
    for (const QString &text : samples()) {
        const QString what = outcome(text);
        if (!isValid(row.type, text)) {
            QVERIFY2(what == otherwise || (isRefused && what.contains(": Invalid ")), qPrintable(text));
            continue;
        }
        ++good;
        bool isNumber = false;
        const double number = text.toDouble(&isNumber);
        // Not every number is one that makes a document complete.
        const bool isDefault = text == "false" || (isNumber && (number == 0 || !isWritten(what)));
        QVERIFY2(isDefault || what != otherwise, qPrintable(text));
    }
    QVERIFY(good > 0);
}

QStringList schemaFiles()
{
    QStringList paths;
    for (const QString folder : {"", "types/"}) {
        const QDir dir(QString(SCHEMAS_DIR) + '/' + folder);
        for (const QString &name : dir.entryList({"*.xsd"}, QDir::Files))
            paths << dir.filePath(name);
    }
    return paths;
}

/// Calls \a visit with each element of the schemas that has a name or a value.
template <class Visit>
void forEachInSchemas(Visit visit)
{
    for (const QString &path : schemaFiles()) {
        QFile file(path);
        QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(path));
        QXmlStreamReader reader(&file);
        while (!reader.atEnd()) {
            if (reader.readNext() == QXmlStreamReader::StartElement)
                visit(reader.name().toString(), reader.attributes());
        }
    }
}

QStringList sorted(const QSet<QString> &set)
{
    QStringList list(set.begin(), set.end());
    list.sort();
    return list;
}

/// Every name of an element that is read.
QSet<QString> elementNames()
{
    QSet<QString> names;
    for (const Place &place : allPlaces()) {
        names << place.owner;
        for (const Row &row : place.table->elements) {
            if (row.read || row.part || row.content == Row::Content::Ignored)
                names << row.name.toString();
        }
    }
    return names;
}

} // namespace

void DocumentWalkTest::namesAreThoseOfTheSchemas()
{
    QSet<QString> elements;
    QSet<QString> attributes;
    forEachInSchemas([&](const QString &tag, const QXmlStreamAttributes &present) {
        if (tag == "element" && present.hasAttribute("name"))
            elements << present.value("name").toString();
        if (tag == "attribute" && present.hasAttribute("name"))
            attributes << present.value("name").toString();
    });
    QSet<QString> tableAttributes;
    for (const Place &place : allPlaces()) {
        for (const Row &row : place.table->attributes)
            tableAttributes << row.name.toString();
    }
    QCOMPARE(sorted(elementNames()), sorted(elements));
    QCOMPARE(sorted(tableAttributes), sorted(attributes));
}

void DocumentWalkTest::vocabulariesAreThoseOfTheSchemas_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("type");

    QTest::newRow("job types") << jobTypes().names() << "JobTypeName";
    QTest::newRow("resource types") << resourceTypes().names() << "ResourceTypeName";
    QTest::newRow("polarizations") << polarizations().names() << "PolarizationName";
    QTest::newRow("workflow modes") << workflowModes().names() << "WorkflowModeName";
    QTest::newRow("search strategies") << searchStrategies().names() << "SearchStrategyName";
    QTest::newRow("generation modes") << generationModes().names() << "ActivityGenerationModeName";
    QTest::newRow("energy channels") << energyChannels().names() << "EnergyChannelName";
    QTest::newRow("active criteria") << activeCriteria().names() << "DDemActiveCriteriaName";
    QTest::newRow("write modes") << databaseWriteModes().names() << "DataBaseWriteModeName";
    QTest::newRow("parameter types") << parameterTypes().names() << "ParameterTypeName";
    QTest::newRow("value types") << valueTypes().names() << "ValueTypeName";
    QTest::newRow("control types") << controlTypes().names() << "ControlTypeName";
}

void DocumentWalkTest::vocabulariesAreThoseOfTheSchemas()
{
    QFETCH(QStringList, names);
    QFETCH(QString, type);

    QStringList inSchema;
    QString current;
    forEachInSchemas([&](const QString &tag, const QXmlStreamAttributes &present) {
        if (tag == "simpleType" && present.hasAttribute("name"))
            current = present.value("name").toString();
        else if (tag == "enumeration" && current == type)
            inSchema << present.value("value").toString();
    });
    QCOMPARE(names, inSchema);
}

void DocumentWalkTest::everyElementInEveryObject_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("owner");

    for (const Place &place : allPlaces())
        QTest::newRow(qPrintable(place.kind->rootElement.toString() + ' ' + place.owner))
            << place.kind->rootElement.toString() << place.owner;
}

void DocumentWalkTest::everyElementInEveryObject()
{
    QFETCH(QString, kind);
    QFETCH(QString, owner);

    const QString document = documentWith(*findDocumentKind(kind), owner);
    QCOMPARE(misfit(document), QString());
    QSet<QString> names = elementNames();
    names << "Unknown"
          << "author"
          << "ConnectableResource";
    for (const QString &name : names) {
        for (const QString &content : {QString(), QString("x"), QString("1"), QString("<Unknown/>"),
                                       QString("1<JobType>x</JobType>"), QString("<Minimum>x</Minimum>")}) {
            const QString element = QString("<%1>%2</%1>").arg(name, content);
            QString changed = document;
            if (owner == "EnumValue")
                changed.replace("<EnumValue Key=\"3\"/>", "<EnumValue>" + element + "</EnumValue>");
            else
                changed.insert(document.lastIndexOf("</" + owner + '>'), element);
            QVERIFY(changed != document);
            QCOMPARE(misfit(changed), QString());
        }
    }
}

void DocumentWalkTest::textsOfElements_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<QString>("name");

    const QList<Place> places = allPlaces();
    for (int i = 0; i < places.size(); ++i) {
        const Place &place = places[i];
        // A block "DoubleList" holds what a "Double" does. The data header flag is kept as it stands.
        if (place.owner == "DoubleList" || place.kind->rootElement == QString("GenericReceiver"))
            continue;
        for (const Row &row : place.table->elements) {
            if (row.content == Row::Content::Text && row.read && row.name != QString("ShowJDH"))
                QTest::newRow(qPrintable(place.owner + ' ' + row.name.toString()))
                    << i << row.name.toString();
        }
    }
}

void DocumentWalkTest::textsOfElements()
{
    QFETCH(int, place);
    QFETCH(QString, name);

    const Place owner = allPlaces()[place];
    const Row &row = *owner.table->element(name);
    QString document = documentWith(*owner.kind, owner.owner);
    if (row.keepsFormer) // without a former
        document.remove(QRegularExpression("<ParameterType>[^<]*</ParameterType>"));
    compareTexts(row, [&](const QString &text) {
        return outcomeOf(*owner.kind, withText(document, owner.owner, row.name.toString(), text));
    });
}

void DocumentWalkTest::textsOfAttributes_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<QString>("name");

    const QList<Place> places = allPlaces();
    for (int i = 0; i < places.size(); ++i) {
        const Place &place = places[i];
        if (place.kind->rootElement == QString("GenericReceiver") && place.owner != "GenericReceiver")
            continue;
        for (const Row &row : place.table->attributes)
            QTest::newRow(qPrintable(place.owner + ' ' + row.name.toString())) << i << row.name.toString();
    }
}

void DocumentWalkTest::textsOfAttributes()
{
    QFETCH(int, place);
    QFETCH(QString, name);

    const Place owner = allPlaces()[place];
    const Row &row = *owner.table->attribute(name);
    // The version of activity generation is not written back.
    if (owner.owner == "ActivityGeneration" && row.name == QString("Version")) {
        QVERIFY(row.type.kind == TextType::Kind::Text);
        return;
    }
    QString document = documentWith(*owner.kind, owner.owner);
    if (owner.owner == "Parameter") // the type of a boolean one is not written, so that nothing is
        document.replace("Boolean</ParameterType>", "Integer</ParameterType>");
    const auto outcome = [&](const QString &text) {
        return outcomeOf(*owner.kind, withAttribute(document, owner.owner, row.name.toString(), text));
    };
    if (row.read)
        compareTexts(row, outcome);
    else
        QCOMPARE(outcome("abc"), outcome("abd"));
}

void DocumentWalkTest::textOfTheOlderForm()
{
    const DocumentKind &kind = *findDocumentKind(u"ActivityGeneration");
    ActivityGenerationData data;
    QVERIFY(kind.table().wholeText(&data) == nullptr);
    QVERIFY(data.SetXmlString("<ActivityGeneration Version='1.0'/>", true));
    const Row *const root = kind.table().wholeText(&data);
    QVERIFY(root != nullptr);
    compareTexts(*root, [&kind](const QString &text) {
        return outcomeOf(
            kind, "<ActivityGeneration Version='1.0'>" + text.toHtmlEscaped() + "</ActivityGeneration>");
    });
}

void DocumentWalkTest::dataHeaderFlag()
{
    const auto place = allPlaces()[1];
    QCOMPARE(place.owner, QString("JobHeader"));
    const Row *const row = place.table->element(u"ShowJDH");
    QVERIFY(row != nullptr);
    for (const QString &text : samples() + QStringList("false")) {
        KORMAK::Job job;
        QVERIFY(job.SetXmlString(withText(completeJob(), "JobHeader", "ShowJDH", text), true));
        QCOMPARE(job.GetJobHeader().GetShowJDH(), text == "true");
        QCOMPARE(isValid(row->type, text), text == "true" || text == "false" || text.isEmpty());
        QCOMPARE(job.HasData(), !text.isEmpty());
    }
}

void DocumentWalkTest::changedDocuments_data()
{
    QTest::addColumn<QString>("document");

    for (const QString &name : documentKindNames()) {
        const DocumentKind &kind = *findDocumentKind(name);
        QTest::newRow(qPrintable(name)) << documentWith(kind, name);
        if (name != "Parameter" && name != "GenericReceiver")
            continue;
        for (const QString type :
             {"Enum", "Double", "DoubleList", "Integer", "Long", "Float", "String", "TimeStamp"})
            QTest::newRow(qPrintable(name + ' ' + type)) << documentWith(kind, type);
    }
    QTest::newRow("receiver of two parameters") << QString(completeReceiver());
    QTest::newRow("activity generation, older form")
        << QString("<ActivityGeneration Version=\"1.0\">AGSC</ActivityGeneration>");
}

/// Documents changed line by line in every way that people's mistakes take, and in several at once.
void DocumentWalkTest::changedDocuments()
{
    QFETCH(QString, document);
    constexpr int Rounds = 1500;
    constexpr int MostChanges = 4;

    QRandomGenerator random(qHash(document, 0));
    const QStringList texts = samples();
    const QStringList tags = sorted(elementNames());
    const auto oneOf = [&random](const QStringList &list) {
        return list[static_cast<int>(random.bounded(list.size()))];
    };
    for (int round = 0; round < Rounds; ++round) {
        QStringList lines = document.split('\n');
        const int changes = random.bounded(1, MostChanges + 1);
        for (int change = 0; change < changes && lines.size() > 1; ++change) {
            const int line = random.bounded(static_cast<int>(lines.size()));
            switch (random.bounded(6)) {
            case 0:
                lines.removeAt(line);
                break;
            case 1:
                lines.insert(random.bounded(static_cast<int>(lines.size())), lines[line]);
                break;
            case 2:
                lines[line].replace(QRegularExpression(">[^<]*</"),
                                    '>' + oneOf(texts).toHtmlEscaped() + "</");
                break;
            case 3:
                lines[line].replace(QRegularExpression("<(/?)\\w+"), "<\\1" + oneOf(tags));
                break;
            case 4:
                lines.insert(
                    line, '<' + oneOf(tags) + '>' + oneOf(texts).toHtmlEscaped() + "</" + oneOf(tags) + '>');
                break;
            default: {
                const QString tag = oneOf(tags);
                lines.insert(line, '<' + tag + '>' + oneOf(texts).toHtmlEscaped() + "</" + tag + '>');
                break;
            }
            }
        }
        const QString fault = misfit(lines.join('\n'));
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }
}

QTEST_GUILESS_MAIN(DocumentWalkTest)
#include "DocumentWalkTest.moc"
