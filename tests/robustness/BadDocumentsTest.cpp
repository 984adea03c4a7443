// Documents that are taken apart in every way, and what reading makes of them: the answer, the message, the
// whole state of the object, and what Check() says afterwards.
#include "ReadingModel.h"

#include <tests/support/RowNames.h>

#include <QDateTime>
#include <QRegularExpression>
#include <QtTest>

using namespace Robustness;
using namespace TestSupport;

namespace {

/// Whole documents of every kind, each with its kind, and of every form that reading tells apart.
QVector<QPair<QString, QString>> wholeDocuments()
{
    QVector<QPair<QString, QString>> documents;
    const auto add = [&documents](const QString &kind, const QString &document) {
        if (!documents.contains({kind, document}))
            documents.append(qMakePair(kind, document));
    };
    for (const QString &kind : kinds())
        add(kind, wholeDocument(kind));
    add("ActivityGeneration",
        "<ActivityGeneration Version=\"1.0\" Autostart=\"true\">AGMC</ActivityGeneration>");
    for (const QString &type : typeNames())
        add("Parameter", wholeParameterOf(type, type));
    add("Parameter",
        "<Parameter UniqueName=\"late\"><ParameterType>DoubleList</ParameterType><DoubleList>" + wholeLimits()
            + "</DoubleList><RepresentationName>r</RepresentationName></Parameter>");
    return documents;
}

QString described(const State &state)
{
    QStringList lines;
    for (auto entry = state.begin(); entry != state.end(); ++entry)
        lines << entry.key() + '=' + entry.value();
    return lines.join('\n');
}

/// What a reader says that gives up; an element in a text is no fault of the XML.
QString messageOfReader(const QString &text)
{
    const QString error = errorOfReader(text);
    return error.isEmpty() ? QString("Expected character data.") : error;
}

/// Counts how often its name is asked for.
template <class Document>
class NameCounting : public Document {
public:
    const QString &GetObjectName() const override
    {
        ++asked;
        return Document::GetObjectName();
    }

    mutable int asked = 0;
};

Answer answerOf(TESSEL::ITesselObject &object, const QString &text)
{
    Answer answer;
    answer.message =
        messageOf([&] { answer.result = object.SetXmlString(text, true) ? Answer::Taken : Answer::Refused; });
    if (!answer.message.isNull())
        answer.result = Answer::Thrown;
    answer.state = stateOf(object);
    answer.isComplete = object.HasData();
    answer.complaint = messageOf([&] { object.Check(); });
    return answer;
}

/// What differs; empty: nothing.
QString difference(const Answer &answer, const Answer &expected)
{
    if (answer.result != expected.result)
        return QString("answer %1 instead of %2, '%3'")
            .arg(answer.result)
            .arg(expected.result)
            .arg(answer.message + expected.message);
    if (answer.message != expected.message)
        return "message '" + answer.message + "' instead of '" + expected.message + '\'';
    if (answer.state != expected.state)
        return "state\n" + described(answer.state) + "\ninstead of\n" + described(expected.state);
    if (answer.isComplete != expected.isComplete)
        return answer.isComplete ? "complete" : "not complete";
    if (answer.complaint != expected.complaint)
        return "complaint '" + answer.complaint + "' instead of '" + expected.complaint + '\'';
    return {};
}

/// Reads \a document into an object that has read \a before, if anything, and compares with the model.
QString fault(const QString &kind, const Document *before, const ReadingModel &model,
              const Document &document)
{
    const auto object = newObject(kind);
    if (before && !object->SetXmlString(before->text, true))
        return "the document before is not taken";
    const Answer answer = answerOf(*object, document.text);

    QString fault;
    for (const bool givesCutText : {false, true}) {
        Answer expected = ReadingModel(model).read(document, givesCutText);
        if (expected.message == MessageOfReader)
            expected.message = messageOfReader(document.text);
        fault = difference(answer, expected);
        if (fault.isEmpty())
            break;
    }
    if (fault.isEmpty() && messageOf([&] { (void)object->GetXmlString(); }) != answer.complaint)
        fault = "GetXmlString() says something else than Check()";
    if (fault.isEmpty() && elementOf(*object).isEmpty() == answer.isComplete)
        fault = "written, but not complete, or the reverse";
    return fault;
}

/// The first fault among \a documents, read into new objects and into such as have read \a whole, if given.
QString firstFault(const QString &kind, const QVector<QPair<QString, Document>> &documents,
                   const Document *whole = nullptr)
{
    const ReadingModel newModel(kind);
    ReadingModel filledModel(kind);
    if (whole)
        (void)filledModel.read(*whole, true);
    for (const auto &document : documents) {
        const QString name = document.first + '\n' + document.second.text + '\n';
        const QString intoNew = fault(kind, nullptr, newModel, document.second);
        if (!intoNew.isEmpty())
            return name + intoNew;
        const QString intoFilled = whole ? fault(kind, whole, filledModel, document.second) : QString();
        if (!intoFilled.isEmpty())
            return name + "on top of another\n" + intoFilled;
    }
    return {};
}

/// At, below and above the limits of every type of number, and what may look like a number.
QStringList numberTexts()
{
    return {"0",
            "-0",
            "+1",
            " 7 ",
            "\t7\n",
            "00012",
            "1",
            "10",
            "11",
            "23",
            "24",
            "999",
            "1000",
            "-1",
            "-2",
            "12.0",
            "1.",
            ".5",
            "-.5",
            "1e3",
            "1E3",
            "1e-3",
            "0x10",
            "010",
            "1_000",
            "1,5",
            "1 000",
            "1'000",
            "\u0661\u0662",
            "\u00a07",
            "--1",
            "+-1",
            "1-",
            "1x",
            "x1",
            "-",
            "+",
            ".",
            "e5",
            "true",
            "NaN",
            "nan",
            "-nan",
            "inf",
            "-inf",
            "INF",
            "Infinity",
            "127",
            "128",
            "32767",
            "32768",
            "-32768",
            "-32769",
            "65535",
            "65536",
            "2147483647",
            "2147483648",
            "-2147483648",
            "-2147483649",
            "4294967295",
            "4294967296",
            "4294967297",
            "9223372036854775807",
            "9223372036854775808",
            "-9223372036854775808",
            "-9223372036854775809",
            "18446744073709551616",
            "3.4028234e38",
            "3.4028235e38",
            "3.4028236e38",
            "3.5e38",
            "-3.5e38",
            "1e-45",
            "1e-46",
            "1.17549435e-38",
            "16777217",
            "0.1",
            "1.7976931348623157e308",
            "1.7976931348623158e308",
            "1.8e308",
            "-1.8e308",
            "1e400",
            "4.9e-324",
            "1e-400",
            "9007199254740993",
            "-111111.11",
            QString(400, '9'),
            '0' + QString(400, '0') + '7',
            "0." + QString(400, '0') + '7',
            "1e" + QString(50, '9')};
}

/// \a text in place of every text and every attribute.
Variants withText(const Node &root, const QString &text)
{
    return changedElements(
               root, "text", [&text](Node &node) { node.children = {Node::textOf(text)}; },
               [](const Node &node) {
                   return node.children.size() == 1 && node.children[0].kind == Node::Text;
               })
        + changedAttributes(root, "value", [&text](Node &node, int i) { node.attributes[i].second = text; });
}

using VariantsOf = std::function<Variants(const Node &)>;

/// Something that is put into every place of every element.
VariantsOf everywhere(const QString &what, const QVector<Node> &nodes)
{
    return [=](const Node &root) {
        Variants variants;
        constexpr int MostPlaces = 25;
        for (int place = 0; place < MostPlaces; ++place) {
            variants += changedElements(
                root, QString("%1 at place %2").arg(what).arg(place),
                [&](Node &node) {
                    for (int i = 0; i < nodes.size(); ++i)
                        node.children.insert(place + i, nodes[i]);
                },
                [place](const Node &node) { return place <= node.children.size(); });
        }
        return variants;
    };
}

VariantsOf everyElement(const QString &what, const Change &change)
{
    return [=](const Node &root) { return changedElements(root, what, change); };
}

VariantsOf everyChild(const QString &what, const std::function<void(Node &, int)> &change)
{
    return [=](const Node &root) { return changedChildren(root, what, change); };
}

VariantsOf everyAttribute(const QString &what, const std::function<void(Node &, int)> &change)
{
    return [=](const Node &root) { return changedAttributes(root, what, change); };
}

/// Some versions of Qt take a document type anywhere.
bool isDocumentTypeRefused()
{
    QXmlStreamReader reader(QStringLiteral("<a><!DOCTYPE a></a>"));
    while (!reader.atEnd())
        reader.readNext();
    return reader.hasError();
}

QVector<QPair<QString, VariantsOf>> waysToSpoil()
{
    QVector<QPair<QString, VariantsOf>> ways{
        {"nothing changed",
         [](const Node &root) {
             return Variants{{"as it is", root}};
         }},
        {"left out", everyChild("left out", [](Node &node, int i) { node.children.removeAt(i); })},
        {"given twice",
         everyChild("given twice",
                    [](Node &node, int i) { node.children.insert(i, Node(node.children[i])); })},
        {"moved to the end",
         everyChild("at the end", [](Node &node, int i) { node.children.append(node.children.takeAt(i)); })},
        {"nested into itself", everyElement("nested", [](Node &node) { node.children = {Node(node)}; })},
        {"nested into itself, at the end",
         everyElement("nested at the end", [](Node &node) { node.children.append(Node(node)); })},
        {"empty", everyElement("empty", [](Node &node) { node.children.clear(); })},
        {"text instead of content",
         everyElement("text", [](Node &node) { node.children = {Node::textOf("surprise")}; })},
        {"elements instead of content",
         everyElement(
             "elements",
             [](Node &node) {
                 node.children = {Node::element("Name"), Node::element("Default", {Node::textOf("3")})};
             })},
        {"unknown name", everyElement("unknown", [](Node &node) { node.name = "Unknown"; })},
        {"name in lower case",
         everyElement("lower case", [](Node &node) { node.name = node.name.toLower(); })},
        {"name in capitals", everyElement("capitals", [](Node &node) { node.name = node.name.toUpper(); })},
        {"name of the parent",
         everyChild("as its parent", [](Node &node, int i) { node.children[i].name = node.name; })},
        {"prefix",
         everyElement("prefix",
                      [](Node &node) {
                          node.name = "k:" + node.name;
                          node.addAttribute("xmlns:k", "urn:k");
                      })},
        {"another namespace",
         everyElement("namespace", [](Node &node) { node.addAttribute("xmlns", "urn:k"); })},
        {"attribute left out",
         everyAttribute("left out", [](Node &node, int i) { node.attributes.removeAt(i); })},
        {"attribute given twice",
         everyAttribute("twice", [](Node &node, int i) { node.attributes.append(node.attributes[i]); })},
        {"attribute empty",
         everyAttribute("empty", [](Node &node, int i) { node.attributes[i].second.clear(); })},
        {"attribute with another value",
         everyAttribute("surprise", [](Node &node, int i) { node.attributes[i].second = "surprise & <b>"; })},
        {"attribute in lower case",
         everyAttribute(
             "lower case",
             [](Node &node, int i) { node.attributes[i].first = node.attributes[i].first.toLower(); })},
        {"attribute with a prefix",
         everyAttribute("prefix",
                        [](Node &node, int i) {
                            node.attributes[i].first.prepend("k:");
                            node.addAttribute("xmlns:k", "urn:k");
                        })},
        {"attribute as an element",
         everyAttribute("element",
                        [](Node &node, int i) {
                            const auto attribute = node.attributes.takeAt(i);
                            node.children.prepend(
                                Node::element(attribute.first, {Node::textOf(attribute.second)}));
                        })},
        {"unknown attribute",
         everyElement("attribute", [](Node &node) { node.addAttribute("Unknown", "1"); })},
    };
    const auto add = [&ways](const QString &what, const QVector<Node> &nodes) {
        ways.append({what, everywhere(what, nodes)});
    };
    add("text", {Node::textOf("1")});
    add("blanks", {Node::textOf(" \t\n")});
    add("element", {Node::element("Unknown", {Node::element("Mode", {Node::textOf("AGSC")})})});
    add("comment", {Node::markup("<!-- <Name>x</Name> -->")});
    add("processing instruction", {Node::markup("<?kormak <Name>x</Name> ?>")});
    add("CDATA", {Node::textWrittenAs("<![CDATA[<1>&amp;]]>", "<1>&amp;")});
    add("empty CDATA", {Node::textWrittenAs("<![CDATA[]]>", "")});
    add("CDATA and text",
        {Node::textWrittenAs("<![CDATA[1]]>", "1"), Node::markup("<!---->"), Node::textOf("2")});
    add("references", {Node::textWrittenAs("&#49;&#x32;&lt;&amp;", "12<&")});
    add("unknown entity", {Node::fault("&unknown;")});
    add("reference to NUL", {Node::fault("&#0;")});
    add("reference to a surrogate", {Node::fault("&#xD800;")});
    add("bare ampersand", {Node::fault("& ")});
    add("NUL", {Node::fault(QString(QChar(0)) + "x")});
    add("control character", {Node::fault(QString(QChar(1)))});
    add("end of CDATA", {Node::fault("]]>")});
    add("declaration", {Node::fault("<?xml version=\"1.0\"?>")});
    add("document type",
        {isDocumentTypeRefused() ? Node::fault("<!DOCTYPE Job>") : Node::documentType("<!DOCTYPE Job>")});
    add("undeclared prefix", {Node::fault("<k:Name>x</k:Name>")});
    add("attribute without quotes", {Node::fault("<Name a=b>x</Name>")});
    add("end tag of another element", {Node::fault("</Another>")});
    add("comment without end", {Node::fault("<!-- x ")});
    add("double hyphen in a comment", {Node::fault("<!-- -- -->")});
    return ways;
}

} // namespace

Q_DECLARE_METATYPE(VariantsOf)

class BadDocumentsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void wholeDocumentsAreRead();
    void spoiltDocuments_data();
    void spoiltDocuments();
    void numbers_data();
    void numbers();
    void prefixes_data();
    void prefixes();
    void namesAreForMessages_data();
    void namesAreForMessages();
};

/// Otherwise the tests below would prove little.
void BadDocumentsTest::wholeDocumentsAreRead()
{
    QStringList found;
    for (const auto &document : wholeDocuments()) {
        const auto object = newObject(document.first);
        QVERIFY2(object->SetXmlString(document.second, true) || document.second.contains("late"),
                 qPrintable(document.second));
        QVERIFY2(stateOf(*object) != stateOf(*newObject(document.first)), qPrintable(document.second));
        found << document.first;
    }
    found.removeDuplicates();
    found.sort();
    QCOMPARE(found, kinds());
}

void BadDocumentsTest::spoiltDocuments_data()
{
    QTest::addColumn<VariantsOf>("variantsOf");

    for (const auto &way : waysToSpoil())
        QTest::newRow(qPrintable(way.first)) << way.second;
}

void BadDocumentsTest::spoiltDocuments()
{
    QFETCH(VariantsOf, variantsOf);

    int count = 0;
    for (const auto &whole : wholeDocuments()) {
        const Node root = treeOf(whole.second);
        const Document document = documentOf(root);
        const bool isReadable = newObject(whole.first)->SetXmlString(document.text, true);
        QVector<QPair<QString, Document>> documents;
        for (const Variant &variant : variantsOf(root))
            documents.append({variant.name, documentOf(variant.root)});
        count += static_cast<int>(documents.size());
        const QString fault = firstFault(whole.first, documents, isReadable ? &document : nullptr);
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }
    QVERIFY(count >= wholeDocuments().size());
}

void BadDocumentsTest::numbers_data()
{
    QTest::addColumn<QString>("text");

    for (const QString &text : numberTexts())
        QTest::newRow(RowNames::quoted(text.left(50))) << text;
}

void BadDocumentsTest::numbers()
{
    QFETCH(QString, text);

    for (const auto &whole : wholeDocuments()) {
        QVector<QPair<QString, Document>> documents;
        for (const Variant &variant : withText(treeOf(whole.second), text))
            documents.append({variant.name, documentOf(variant.root)});
        const QString fault = firstFault(whole.first, documents);
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }
}

void BadDocumentsTest::prefixes_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("text");

    for (const auto &document : wholeDocuments())
        QTest::newRow(qPrintable(document.first + ' ' + document.second.left(70)))
            << document.first << document.second;
}

void BadDocumentsTest::prefixes()
{
    QFETCH(QString, kind);
    QFETCH(QString, text);

    const Document whole = documentOf(treeOf(text));
    QCOMPARE(whole.text, text);
    QVector<QPair<QString, Document>> documents;
    for (int length = 0; length < text.size(); ++length)
        documents.append({QString("%1 characters").arg(length), prefixOf(whole, length)});
    const QString fault = firstFault(kind, documents);
    QVERIFY2(fault.isEmpty(), qPrintable(fault));
}

void BadDocumentsTest::namesAreForMessages_data()
{
    prefixes_data();

    QTest::newRow("incomplete Job") << "Job" << wholeJob().replace(">Antenna</R", ">Receiver HF</R");
    QTest::newRow("incomplete JobHeader") << "JobHeader" << wholeJobHeader().replace("perhaps", "");
    QTest::newRow("incomplete Parameter")
        << "Parameter" << wholeParameter().remove(QRegularExpression("<Enum>.*</Enum>"));
}

/// A derived class may make its name when it is asked for.
void BadDocumentsTest::namesAreForMessages()
{
    QFETCH(QString, kind);
    QFETCH(QString, text);

    forKind(kind, [&text](auto sample) {
        NameCounting<typename decltype(sample)::Document> object;
        process(object, text);
        QCOMPARE(object.asked, 0);
        const QString message = messageOf([&] { object.TESSEL::ITesselObject::Check(true); });
        QCOMPARE(object.asked, message.isNull() ? 0 : 1);
    });
}

QTEST_GUILESS_MAIN(BadDocumentsTest)
#include "BadDocumentsTest.moc"
