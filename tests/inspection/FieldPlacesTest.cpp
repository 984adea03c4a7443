#include "inspection/FieldPlaces_p.h"

#include <inspection/DocumentEdit.h>
#include <inspection/DocumentSays_p.h>
#include <inspection/ParsedDocument_p.h>

#include <QtTest>

using namespace KORMAK;
using namespace KORMAK::Inspection;

class FieldPlacesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void places_data();
    void places();
    void readAndChanged_data();
    void readAndChanged();
    void sayings_data();
    void sayings();
    void scope();
};

namespace {

using Change = DocumentEdit::Change;

ParsedDocument parsed(const QString &text)
{
    return documentOf(checkedText(text.toUtf8()), {});
}

QString inParameter(const QString &elements)
{
    return "<Parameter "
           "UniqueName=\"P\"><RepresentationName>r</RepresentationName><ValueType>ValueString</ValueType>"
        + elements + "</Parameter>";
}

QString inInteger(const QString &elements)
{
    return inParameter("<ParameterType>Integer</ParameterType><Integer>" + elements + "</Integer>");
}

/// A double list whose block reads on into the parameter behind it.
QString openList()
{
    return "<GenericReceiver>"
        + inParameter("<ParameterType>DoubleList</ParameterType><DoubleList><Minimum>1</Minimum>"
                      "<MaxDoubleListLength>3</MaxDoubleListLength></DoubleList>")
        + "<Parameter UniqueName=\"Q\"><ToolTip>of "
          "Q</ToolTip><Double><Minimum>2</Minimum></Double><ToolTip>of P</ToolTip>"
          "</Parameter></GenericReceiver>";
}

QString textsAt(const XmlTree &tree, const std::vector<FieldPlace> &places)
{
    QStringList texts;
    for (const FieldPlace &place : places) {
        texts += place.table    ? '<' + tree.name(place.element) + '>'
            : place.isAttribute ? '@' + tree.attribute(place.element, place.row->name).value_or("?")
                                : tree.text(place.element);
    }
    return texts.join(' ');
}

} // namespace

void FieldPlacesTest::places_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("texts");

    const auto add = [](const char *name, const QString &text, const QString &path, const QString &texts) {
        QTest::newRow(name) << text << path << texts;
    };
    add("the document", "<Job/>", "", "<Job>");
    add("attribute", "<Job Version='1.0'/>", "Version", "@1.0");
    add("attribute that is only written", "<AutomaticWorkflow Mode='x'/>", "Mode", "");
    const QString twice = "<Job><JobHeader Version='1'><Author>a</Author></JobHeader>"
                          "<JobHeader><Author>b</Author></JobHeader></Job>";
    add("object in two elements", twice, "JobHeader", "<JobHeader> <JobHeader>");
    add("value in both", twice, "JobHeader.Author", "a b");
    add("attribute of the first only", twice, "JobHeader.Version", "");
    add("attribute of the last", "<Job><JobHeader Version='1'/><JobHeader Version='2'/></Job>",
        "JobHeader.Version", "@1 @2");
    const QString workflow =
        "<AutomaticWorkflow><Area><Coordinate><Latitude>1</Latitude></Coordinate></Area><Area>"
        "<Coordinate><Latitude>2</Latitude></Coordinate></Area></AutomaticWorkflow>";
    add("list that begins anew", workflow, "Area.Coordinate[0].Latitude", "2");
    add("list that is shorter than before", workflow, "Area.Coordinate[1]", "");
    const QString receiver =
        "<GenericReceiver><Parameter UniqueName='a.b]'><ToolTip>1</ToolTip></Parameter>"
        "<Parameter UniqueName='a.b]'><DisplayName>2</DisplayName></Parameter></GenericReceiver>";
    add("name that ends early", receiver, "Parameter[a.b\\]].DisplayName", "2");
    add("one that took the place of another", receiver, "Parameter[a.b\\]].ToolTip", "");
    add("elements of both", receiver, "Parameter[a.b\\]]", "<Parameter> <Parameter>");
    add("boolean", inParameter("<Boolean>true</Boolean>"), "Boolean.Value", "true");
    add("around a boolean", inParameter("<Boolean>true</Boolean>"), "Boolean", "");
    add("older form", "<ActivityGeneration Version='1.0'>AGSC</ActivityGeneration>", "Mode", "AGSC");
    add("path with an empty step", twice, "JobHeader..Author", "");
    add("path that ends with a point", twice, "JobHeader.", "");
    add("path with half a key", receiver, "Parameter[a.b", "");

    add("in a block", inInteger("<Minimum>1</Minimum>"), "Integer.Minimum", "1");
    add("in an unknown element", inInteger("<Limits><Minimum>1</Minimum></Limits>"), "Integer.Minimum", "1");
    add("deep in unknown elements",
        inInteger("<A><B/><C><D><Minimum>1</Minimum></D></C></A><Minimum>2</Minimum>"), "Integer.Minimum",
        "1 2");
    add("entry in an entry", inParameter("<Enum><EnumValue Key='1'><EnumValue Key='2'/></EnumValue></Enum>"),
        "Enum.EnumValue[1].Key", "@2");
    add("in an unknown element beside blocks", inParameter("<A><ToolTip>t</ToolTip></A>"), "ToolTip", "");
    add("block in an unknown element", inParameter("<A><Integer><Minimum>1</Minimum></Integer></A>"),
        "Integer.Minimum", "");
    add("block that reads on", openList(), "Parameter[P].Double.Minimum", "1 2");
    add("swallowed parameter", openList(), "Parameter[Q]", "");
    add("behind what was swallowed", openList(), "Parameter[P].ToolTip", "of P");
}

void FieldPlacesTest::places()
{
    QFETCH(const QString, text);
    QFETCH(const QString, path);
    QFETCH(const QString, texts);

    const ParsedDocument document = parsed(text);
    const FieldPlaces places(document.tree, *document.kind, *document.object);
    QCOMPARE(textsAt(document.tree, places.find(path)), texts);
}

void FieldPlacesTest::readAndChanged_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("value"); ///< null: unset
    QTest::addColumn<QString>("changed");

    const auto add = [](const char *name, const QString &text, const QString &path, const QString &value,
                        const QString &changed) { QTest::newRow(name) << text << path << value << changed; };
    const QString nested = inInteger("<Default>5</Default><A><B><Minimum>1</Minimum></B></A>");
    add("limit", nested, "Integer.Minimum", "2", QString(nested).replace(">1<", ">2<"));
    add("limit behind another", inInteger("<Maximum>1</Maximum><A><Maximum>2</Maximum></A>"),
        "Integer.Maximum", "3", inInteger("<Maximum>1</Maximum><A><Maximum>3</Maximum></A>"));
    add("limit that is not there", nested, "Integer.Maximum", "9",
        inInteger("<Maximum>9</Maximum><Default>5</Default><A><B><Minimum>1</Minimum></B></A>"));
    add("limit removed", nested, "Integer.Minimum", {}, inInteger("<Default>5</Default><A><B></B></A>"));
    const QString text =
        inParameter("<ParameterType>String</ParameterType><String><A><Default>d</Default></A></String>");
    add("default", text, "String.Default", "e", QString(text).replace(">d<", ">e<"));
    const QString entries =
        inParameter("<ParameterType>Enum</ParameterType><Enum><A><EnumValue Key=\"1\" Name=\"a\"/></A>"
                    "<EnumValue Key=\"2\" Name=\"b\"/></Enum>");
    add("entry", entries, "Enum.EnumValue[0].Name", "c", QString(entries).replace("\"a\"", "\"c\""));
    add("entry behind it", entries, "Enum.EnumValue[1].Name", "c",
        QString(entries).replace("\"b\"", "\"c\""));
    add("block that reads on", openList(), "Parameter[P].Double.Minimum", "7",
        openList().replace(">2<", ">7<"));
    add("behind what was swallowed", openList(), "Parameter[P].ToolTip", "t",
        openList().replace(">of P<", ">t<"));
}

/// The edit itself makes sure that what was asked is read.
void FieldPlacesTest::readAndChanged()
{
    QFETCH(const QString, text);
    QFETCH(const QString, path);
    QFETCH(const QString, value);
    QFETCH(const QString, changed);

    const Change change{value.isNull() ? Change::Action::Unset : Change::Action::Set, path, value};
    const DocumentEdit edit(text.toUtf8(), {change}, DocumentEdit::NewFindings::Accepted);
    QStringList messages;
    for (const Finding &finding : edit.GetFindings())
        messages += finding.GetMessage();
    QVERIFY2(edit.IsDone(), qPrintable(messages.join('\n')));
    QCOMPARE(QString::fromUtf8(edit.GetText()), changed);
}

void FieldPlacesTest::sayings_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("sayings");

    QTest::newRow("understood") << inInteger("<A><Minimum>1</Minimum></A>") << QStringList();
    QTest::newRow("in an unknown element")
        << inInteger("<A><Minimum>low</Minimum></A>") << QStringList{"Integer.Minimum=low"};
    QTest::newRow("understood before") << inInteger("<Minimum>1</Minimum><A><Minimum>low</Minimum></A>")
                                       << QStringList{"Integer.Minimum=low"};
    QTest::newRow("understood behind")
        << inInteger("<A><Minimum>low</Minimum></A><Minimum>1</Minimum>") << QStringList();
    QTest::newRow("read on") << openList().replace(">2<", ">low<")
                             << QStringList{"Parameter[P].Double.Minimum=low"};
    QTest::newRow("not read any more") << openList().replace(">1<", ">low<") << QStringList();
    QTest::newRow("attribute that is only written")
        << "<AutomaticWorkflow Mode='ManualMode'/>" << QStringList{"Mode=ManualMode"};
    QTest::newRow("attribute of an element before")
        << "<Job><JobHeader Version='9'/><JobHeader/></Job>" << QStringList();
    QTest::newRow("elements in the older form")
        << "<ActivityGeneration Version='1.0'>AGSC</ActivityGeneration>" << QStringList();
}

void FieldPlacesTest::sayings()
{
    QFETCH(const QString, text);
    QFETCH(const QStringList, sayings);

    const ParsedDocument document = parsed(text);
    const DocumentSays says(*document.kind, *document.object, document.tree);
    QStringList found;
    for (const DocumentSays::Saying &saying : says.all())
        found += saying.path + '=' + saying.text;
    QCOMPARE(found, sayings);
}

/// A part of the document is where it is in the whole, even behind a block that takes in what follows it.
void FieldPlacesTest::scope()
{
    const ParsedDocument document = parsed("<GenericReceiver Version='1'>" + openList().mid(17));
    const EditScope onlyQ({"Parameter[Q].ToolTip"});
    QVERIFY(FieldPlaces(document.tree, *document.kind, *document.object, onlyQ).find("Parameter[Q]").empty());

    const ParsedDocument plain = parsed("<GenericReceiver Version='1'><Parameter UniqueName='P'/>"
                                        "<Parameter UniqueName='Q'/></GenericReceiver>");
    const FieldPlaces places(plain.tree, *plain.kind, *plain.object, onlyQ);
    QVERIFY(places.find("Parameter[P]").empty());
    QCOMPARE(places.find("Parameter[Q].UniqueName").size(), std::size_t(1));
    QCOMPARE(places.find("Version").size(), std::size_t(1));
}

QTEST_GUILESS_MAIN(FieldPlacesTest)
#include "FieldPlacesTest.moc"
