// The forms of the documents, held against the library that reads them and against the schemas.
#include "ToolSupport.h"

#include <kormak/Job.h>
#include <objectbase/TesselException.h>
#include <tools/DocumentCheck.h>
#include <tools/DocumentForm.h>
#include <tools/NameLists.h>

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSet>
#include <QXmlStreamReader>

using namespace ToolSupport;

class DocumentFormTest : public QObject {
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

/// Why the check of a document does not fit what the library makes of it; a null text when it does. There is
/// to be an error exactly when the library refuses the document, and no need for the words of the library.
QString misfit(const QString &text)
{
    const QString said = refusal(text);
    const FileCheck check = checkText("a.xml", {text.toUtf8()});
    bool hasError = false;
    bool hasNeed = false;
    QString findings;
    for (const auto &placed : check.findings) {
        const Finding &finding = placed.finding;
        hasError = hasError || finding.severity == Severity::Error;
        hasNeed = hasNeed || finding.id == FindingId::Refused;
        findings += finding.path + ": " + finding.message + " [" + finding.complaint + "]\n";
    }
    const bool isRefused = !said.isNull();
    if (hasError == isRefused && !hasNeed && (check.status == Faulty) == isRefused)
        return {};
    return "The library says: " + said + "\nThe check says:\n" + findings + text;
}

/// An object of a document, by the rows that lead to it.
struct Place {
    const DocumentKind *kind;
    QString owner; ///< the element of the object
    const ObjectForm *form;
};

void addPlaces(QList<Place> &places, const Place &place)
{
    places << place;
    for (const ElementForm &row : place.form->elements) {
        if (row.object)
            addPlaces(places, {place.kind, row.name.toString(), row.object});
    }
}

/// Every object of every kind of document, the older forms left out.
QList<Place> allPlaces()
{
    QList<Place> places;
    for (const QString &name : documentKindNames()) {
        const DocumentKind *kind = findDocumentKind(name);
        const XmlTree tree(('<' + name + "/>").toUtf8());
        const ElementForm &root = kind->form(tree).elements[0];
        addPlaces(places, {kind, root.name.toString(), root.object});
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
    else if (owner == "Integer" || owner == "Long" || owner == "Float" || owner == "TimeStamp")
        element = parameter(owner, QString("<%1>\n%2\n</%1>").arg(owner, limits));

    if (kind.rootElement == QString("Job"))
        return with(completeJob(), ">1500000<", ">0<");
    if (kind.rootElement == QString("AutomaticWorkflow"))
        return completeWorkflow();
    if (kind.rootElement == QString("ActivityGeneration"))
        return completeGeneration();
    return kind.rootElement == QString("Parameter")
        ? element
        : QString("<GenericReceiver Version=\"1.0\">\n%1\n</GenericReceiver>").arg(element);
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
    object->SetXmlString(text, true);
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
    for (const auto *names : {&JobTypes.names(), &ResourceTypes.names(), &Polarizations.names(),
                              &WorkflowModes.names(), &SearchStrategies.names(), &GenerationModes.names(),
                              &EnergyChannels.names(), &ActiveCriteria.names(), &DatabaseWriteModes.names(),
                              &ParameterTypes.names(), &ValueTypes.names(), &ControlTypes.names()}) {
        for (const QString &name : *names)
            texts << name;
        texts << names->first().toLower() << names->last() + ' ' << ' ' + names->first()
              << names->last().toUpper();
    }
    texts.removeDuplicates();
    return texts;
}

/// Whether what the form says of each text is what the library makes of it. \a outcome is that of the
/// document with the text.
template <class Outcome>
void compareTexts(const TextForm &form, bool isRefused, Outcome outcome)
{
    const QString garbage = "\u2022 neither a number nor a name";
    if (form.isFree()) {
        QVERIFY(outcome("abc") != outcome("abd"));
        QVERIFY(form.isSaidBy(garbage));
        return;
    }
    QVERIFY(!form.isSaidBy(garbage));
    const QString otherwise = outcome(garbage);
    QCOMPARE(otherwise.contains(": Invalid "), isRefused);
    int good = 0;
    for (const QString &text : samples()) {
        const QString what = outcome(text);
        if (!form.isSaidBy(text)) {
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

/// Every name of an element in the forms.
QSet<QString> elementNames()
{
    QSet<QString> names;
    for (const Place &place : allPlaces()) {
        names << place.owner;
        for (const ElementForm &row : place.form->elements)
            names << row.name.toString();
    }
    return names;
}

} // namespace

void DocumentFormTest::namesAreThoseOfTheSchemas()
{
    QSet<QString> elements;
    QSet<QString> attributes;
    forEachInSchemas([&](const QString &tag, const QXmlStreamAttributes &present) {
        if (tag == "element" && present.hasAttribute("name"))
            elements << present.value("name").toString();
        if (tag == "attribute" && present.hasAttribute("name"))
            attributes << present.value("name").toString();
    });
    QSet<QString> formAttributes;
    for (const Place &place : allPlaces()) {
        for (const AttributeForm &row : place.form->attributes)
            formAttributes << row.name.toString();
    }
    QCOMPARE(sorted(elementNames()), sorted(elements));
    QCOMPARE(sorted(formAttributes), sorted(attributes));
}

void DocumentFormTest::vocabulariesAreThoseOfTheSchemas_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("type");

    QTest::newRow("job types") << JobTypes.names() << "JobTypeName";
    QTest::newRow("resource types") << ResourceTypes.names() << "ResourceTypeName";
    QTest::newRow("polarizations") << Polarizations.names() << "PolarizationName";
    QTest::newRow("workflow modes") << WorkflowModes.names() << "WorkflowModeName";
    QTest::newRow("search strategies") << SearchStrategies.names() << "SearchStrategyName";
    QTest::newRow("generation modes") << GenerationModes.names() << "ActivityGenerationModeName";
    QTest::newRow("energy channels") << EnergyChannels.names() << "EnergyChannelName";
    QTest::newRow("active criteria") << ActiveCriteria.names() << "DDemActiveCriteriaName";
    QTest::newRow("write modes") << DatabaseWriteModes.names() << "DataBaseWriteModeName";
    QTest::newRow("parameter types") << ParameterTypes.names() << "ParameterTypeName";
    QTest::newRow("value types") << ValueTypes.names() << "ValueTypeName";
    QTest::newRow("control types") << ControlTypes.names() << "ControlTypeName";
}

void DocumentFormTest::vocabulariesAreThoseOfTheSchemas()
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

void DocumentFormTest::everyElementInEveryObject_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("owner");

    for (const Place &place : allPlaces())
        QTest::newRow(qPrintable(place.kind->rootElement.toString() + ' ' + place.owner))
            << place.kind->rootElement.toString() << place.owner;
}

void DocumentFormTest::everyElementInEveryObject()
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

void DocumentFormTest::textsOfElements_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<int>("number");

    const QList<Place> places = allPlaces();
    for (int i = 0; i < places.size(); ++i) {
        const Place &place = places[i];
        // A block "DoubleList" holds what a "Double" does. The data header flag is kept as it stands.
        if (place.owner == "DoubleList" || place.kind->rootElement == QString("GenericReceiver"))
            continue;
        for (std::size_t row = 0; row < place.form->elements.size(); ++row) {
            const ElementForm &element = place.form->elements[row];
            if (element.content == ElementForm::Content::Text && element.name != QString("ShowJDH"))
                QTest::newRow(qPrintable(place.owner + ' ' + element.name.toString()))
                    << i << static_cast<int>(row);
        }
    }
}

void DocumentFormTest::textsOfElements()
{
    QFETCH(int, place);
    QFETCH(int, number);

    const Place owner = allPlaces()[place];
    const ElementForm &row = owner.form->elements[static_cast<std::size_t>(number)];
    QString document = documentWith(*owner.kind, owner.owner);
    if (row.keepsFormer) // without a former
        document.remove(QRegularExpression("<ParameterType>[^<]*</ParameterType>"));
    compareTexts(row.form, !row.refusedAs.isEmpty(), [&](const QString &text) {
        return outcomeOf(*owner.kind, withText(document, owner.owner, row.name.toString(), text));
    });
}

void DocumentFormTest::textsOfAttributes_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<int>("number");

    const QList<Place> places = allPlaces();
    for (int i = 0; i < places.size(); ++i) {
        const Place &place = places[i];
        if (place.kind->rootElement == QString("GenericReceiver") && place.owner != "GenericReceiver")
            continue;
        for (std::size_t row = 0; row < place.form->attributes.size(); ++row)
            QTest::newRow(qPrintable(place.owner + ' ' + place.form->attributes[row].name.toString()))
                << i << static_cast<int>(row);
    }
}

void DocumentFormTest::textsOfAttributes()
{
    QFETCH(int, place);
    QFETCH(int, number);

    const Place owner = allPlaces()[place];
    const AttributeForm &row = owner.form->attributes[static_cast<std::size_t>(number)];
    // The version of activity generation is not written back.
    if (owner.owner == "ActivityGeneration" && row.name == QString("Version")) {
        QVERIFY(row.text.isFree());
        return;
    }
    QString document = documentWith(*owner.kind, owner.owner);
    if (owner.owner == "Parameter") // the type of a boolean one is not written, so that nothing is
        document.replace("Boolean</ParameterType>", "Integer</ParameterType>");
    const auto outcome = [&](const QString &text) {
        return outcomeOf(*owner.kind, withAttribute(document, owner.owner, row.name.toString(), text));
    };
    if (row.unread.isEmpty())
        compareTexts(row.text, false, outcome);
    else
        QCOMPARE(outcome("abc"), outcome("abd"));
}

void DocumentFormTest::textOfTheOlderForm()
{
    const XmlTree tree("<ActivityGeneration Version='1.0'/>");
    const DocumentKind &kind = *findDocumentKind(u"ActivityGeneration");
    const ElementForm &root = kind.form(tree).elements[0];
    QVERIFY(root.content == ElementForm::Content::Text);
    compareTexts(root.form, false, [&kind](const QString &text) {
        return outcomeOf(
            kind, "<ActivityGeneration Version='1.0'>" + text.toHtmlEscaped() + "</ActivityGeneration>");
    });
}

void DocumentFormTest::dataHeaderFlag()
{
    const auto place = allPlaces()[1];
    QCOMPARE(place.owner, QString("JobHeader"));
    const auto row = std::find_if(place.form->elements.begin(), place.form->elements.end(),
                                  [](const auto &candidate) { return candidate.name == QString("ShowJDH"); });
    QVERIFY(row != place.form->elements.end());
    for (const QString &text : samples() + QStringList("false")) {
        KORMAK::Job job;
        QVERIFY(job.SetXmlString(withText(completeJob(), "JobHeader", "ShowJDH", text), true));
        QCOMPARE(job.GetJobHeader().GetShowJDH(), text == "true");
        QCOMPARE(row->form.isSaidBy(text), text == "true" || text == "false" || text.isEmpty());
        QCOMPARE(job.HasData(), !text.isEmpty());
    }
}

void DocumentFormTest::changedDocuments_data()
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
void DocumentFormTest::changedDocuments()
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

QTEST_GUILESS_MAIN(DocumentFormTest)
#include "DocumentFormTest.moc"
