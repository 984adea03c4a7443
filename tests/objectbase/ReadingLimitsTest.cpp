#include <objectbase/ReadingBounds_p.h>
#include <objectbase/ReadingLimits.h>
#include <tests/support/BinaryParts.h>
#include <tests/support/DocumentKinds.h>
#include <tests/support/Files.h>
#include <tests/support/Samples.h>

#include <QDataStream>
#include <QTemporaryDir>

#include <functional>

using namespace TESSEL;
using namespace KORMAK;
using namespace TestSupport;

namespace {

using Change = void (*)(ReadingLimits &, int);
using Make = QString (*)(int);

ReadingLimits limitsWith(Change change, int value)
{
    ReadingLimits limits;
    change(limits, value);
    return limits;
}

QString attributes(int count)
{
    QString text;
    for (int i = 0; i < count; ++i)
        text += QString(" a%1=\">\"").arg(i);
    return text;
}

QString nested(int levels)
{
    return QString("<a>").repeated(levels) + QString("</a>").repeated(levels);
}

QString activity(const QString &body, const QString &declarations = {})
{
    const QString type = declarations.isNull() ? QString() : "<!DOCTYPE x [" + declarations + "]>";
    return type + "<ActivityGeneration><Mode>AGSC</Mode>" + body + "</ActivityGeneration>";
}

QString area(const QString &name)
{
    return "<Area Version=\"1.0\"><Name>" + name + "</Name></Area>";
}

QByteArray compressedForm(const QByteArray &name, const QString &text)
{
    return binaryForm(name, qCompress(text.toUtf8()), BinaryParts::Compressed);
}

/// Whether each operation that reads takes \a text; they must agree.
bool isTaken(const QString &kind, const QString &text, const ReadingLimits &limits = {})
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("file");
    const QVector<std::function<bool(ITesselObject &)>> operations{
        [&](ITesselObject &object) { return object.SetXmlString(text, true); },
        [&](ITesselObject &object) { return object.SetXmlString(text, false); },
        [&](ITesselObject &object) { return object.LoadXml(writtenFile(path, text.toUtf8())); },
        [&](ITesselObject &object) {
            QFile file(writtenFile(path, binaryForm(kind.toUtf8(), text.toUtf8())));
            return object.LoadBinary(&file);
        },
        [&](ITesselObject &object) {
            QByteArray bytes = compressedForm(kind.toUtf8(), text);
            return object.SetBinaryRepresentation(bytes);
        },
        [&](ITesselObject &object) {
            const QByteArray bytes = compressedForm(kind.toUtf8(), text);
            QDataStream stream(bytes);
            object.SetBinary(stream, 1);
            return stream.status() == QDataStream::Ok;
        },
    };
    int taken = 0;
    for (const auto &operation : operations) {
        const auto object = newObject(kind);
        object->SetReadingLimits(limits);
        const auto before = newObject(kind);
        const bool isRead = operation(*object);
        taken += isRead ? 1 : 0;
        // A depth that is counted while reading leaves what was read until then.
        if (!isRead && refusalOf(text, limits) && elementOf(*object) != elementOf(*before))
            qWarning("What was refused has changed the object");
    }
    if (taken != 0 && taken != operations.size())
        qWarning("%d of %d operations took the text", taken, static_cast<int>(operations.size()));
    return taken == operations.size();
}

} // namespace

Q_DECLARE_METATYPE(Change)
Q_DECLARE_METATYPE(Make)

class ReadingLimitsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void defaults();
    void values_data();
    void values();
    void namespaces_data();
    void namespaces();
    void boundaries_data();
    void boundaries();
    void notCounted_data();
    void notCounted();
    void refusals_data();
    void refusals();
    void entityCharactersOfLongTexts();
    void ownedObjects_data();
    void ownedObjects();
    void ownedObjectsKeepTheirLimits();
    void depthOfKnownElements_data();
    void depthOfKnownElements();
    void tooDeepInABlock();
    void copies();
    void callersReader();
    void blockOfAParameter();
    void expandedBytes();
    void expandedFactor();
    void writtenFormsAreTaken();
};

void ReadingLimitsTest::defaults()
{
    const ReadingLimits limits;
    QCOMPARE(limits.GetEntityCharacters(), qint64(1'048'576));
    QCOMPARE(limits.GetEntityFactor(), 1);
    QCOMPARE(limits.GetAttributes(), 100);
    QCOMPARE(limits.GetDepth(), 1000);
    QCOMPARE(limits.GetExpandedBytes(), qint64(6'291'456));
    QCOMPARE(limits.GetExpandedFactor(), 6);
    for (const QString &kind : kinds())
        QVERIFY(newObject(kind)->GetReadingLimits() == limits);
}

void ReadingLimitsTest::values_data()
{
    QTest::addColumn<Change>("change");

    const auto add = [](const char *name, Change change) { QTest::newRow(name) << change; };
    add("EntityCharacters", [](ReadingLimits &limits, int value) { limits.SetEntityCharacters(value); });
    add("EntityFactor", [](ReadingLimits &limits, int value) { limits.SetEntityFactor(value); });
    add("Attributes", [](ReadingLimits &limits, int value) { limits.SetAttributes(value); });
    add("Depth", [](ReadingLimits &limits, int value) { limits.SetDepth(value); });
    add("ExpandedBytes", [](ReadingLimits &limits, int value) { limits.SetExpandedBytes(value); });
    add("ExpandedFactor", [](ReadingLimits &limits, int value) { limits.SetExpandedFactor(value); });
}

void ReadingLimitsTest::values()
{
    QFETCH(Change, change);

    const ReadingLimits limits = limitsWith(change, 77);
    QVERIFY(limits != ReadingLimits());
    QVERIFY(!(limits == ReadingLimits()));
    QVERIFY(limits == limitsWith(change, 77));
    QVERIFY(limits != limitsWith(change, 78));
    Area area;
    area.SetReadingLimits(limits);
    QVERIFY(area.GetReadingLimits() == limits);
    area.Reset();
    QVERIFY(area.GetReadingLimits() == limits);
    area.SetReadingLimits(ReadingLimits());
    QVERIFY(area.GetReadingLimits() == ReadingLimits());
}

void ReadingLimitsTest::namespaces_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("taken");

    const auto add = [](const char *name, const QString &text, bool taken) {
        QTest::newRow(name) << text << taken;
    };
    const auto root = [](const QString &inTag) { return "<ActivityGeneration" + inTag + "/>"; };
    add("twice at the root", root(" xmlns=\"a\" xmlns=\"a\""), false);
    add("twice at the root, others", root(" xmlns=\"a\" xmlns=\"b\""), false);
    add("twice with others between", root(" xmlns=\"a\" Version=\"2.2\" xmlns:x=\"c\" xmlns=\"b\""), false);
    add("prefix twice at the root", root(" xmlns:x=\"a\" xmlns:x=\"a\""), false);
    add("twice with children",
        "<ActivityGeneration xmlns:x='a' xmlns:x='b'><Mode>AGSC</Mode></ActivityGeneration>", false);
    add("twice in a child", activity("<a xmlns=\"a\" xmlns=\"a\"/>"), false);
    add("prefix twice in a child", activity("<b/><a xmlns:x=\"a\" xmlns:x=\"a\">x</a><b/>"), false);
    add("twice deep", activity("<b><c><d><x:e xmlns:x=\"a\" xmlns:x=\"a\"/></d></c></b>"), false);
    add("twice where the reader breaks off", "<ActivityGeneration xmlns='a' xmlns='a'", false);
    add("twice in an entity", activity("&e;", "<!ENTITY e '<a xmlns=\"a\" xmlns=\"a\"/>'>"), false);
    add("twice in an entity, hidden", activity("&e;", "<!ENTITY e '<a xml&#110;s=\"a\" &#x78;mlns=\"a\"/>'>"),
        false);
    add("twice in an entity, prefix hidden",
        activity("&e;", "<!ENTITY e '<a xml&#110;s:x=\"a\" xml&#110;s:x=\"a\"/>'>"), false);
    add("twice in an entity that is not used",
        activity("", "<!ENTITY e '<a xml&#110;s=\"a\" xml&#110;s=\"a\"/>'>"), true);

    add("once", root(" xmlns=\"a\""), true);
    add("prefix once", root(" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\""), true);
    add("two prefixes", root(" xmlns:x=\"a\" xmlns:y=\"a\" xmlns=\"a\""), true);
    add("again in a child", activity("<a xmlns=\"a\"><a xmlns=\"a\"/><a xmlns=\"b\"/></a>"), true);
    add("by the document type and itself",
        "<!DOCTYPE x [<!ATTLIST ActivityGeneration xmlns CDATA 'u'>]>" + root(" xmlns='v'"), true);
    add("twice by the document type",
        "<!DOCTYPE x [<!ATTLIST ActivityGeneration xmlns CDATA 'u' xmlns CDATA 'v'>]>" + root(""), true);
    add("in a text", activity("<a>xmlns='a' xmlns='a'</a>"), true);
    add("in a comment", activity("<!--<a xmlns='a' xmlns='a'/>-->"), true);
    add("in a section", activity("<a><![CDATA[<a xmlns='a' xmlns='a'/>]]></a>"), true);
    add("in a value", activity("<a b=\"xmlns='a' xmlns='a'\"/>"), true);
    add("other attribute twice", activity("<a b='a' b='a'/>"), false);
}

void ReadingLimitsTest::namespaces()
{
    QFETCH(QString, text);
    QFETCH(bool, taken);
    QCOMPARE(isTaken("ActivityGeneration", text), taken);
}

void ReadingLimitsTest::boundaries_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<Change>("change");
    QTest::addColumn<int>("limit");
    QTest::addColumn<Make>("make"); // a document that has just so much

    const auto add = [](const char *name, const char *kind, Change change, int limit, Make make) {
        QTest::newRow(name) << QString(kind) << change << limit << make;
    };
    const char *const activityKind = "ActivityGeneration";

    const Change entities = [](ReadingLimits &limits, int value) {
        limits.SetEntityFactor(0);
        limits.SetEntityCharacters(value);
    };
    add("entity in a text", "Area", entities, 40,
        [](int n) { return "<!DOCTYPE Area [<!ENTITY e 'x'>]>" + area(QString("&e;").repeated(n)); });
    add("entity in an attribute", "Area", entities, 40, [](int n) {
        return "<!DOCTYPE Area [<!ENTITY e 'x'>]><Area Version='" + QString("&e;").repeated(n) + "'/>";
    });
    add("entity of entities", "Area", entities, 30, [](int n) {
        // 6 for "&f;&f;", 4 for both f, and what is left
        return "<!DOCTYPE Area [<!ENTITY f 'xy'><!ENTITY e '&f;&f;'><!ENTITY g '.'>]>"
            + area("&e;" + QString("&g;").repeated(n - 10));
    });
    add("entities that are declared later", "Area", entities, 30, [](int n) {
        return "<!DOCTYPE Area [<!ENTITY e '&f;&f;'><!ENTITY f 'xy'><!ENTITY g '.'>]>"
            + area("&e;" + QString("&g;").repeated(n - 10));
    });
    add("entity with references to characters", "Area", entities, 30, [](int n) {
        return "<!DOCTYPE Area [<!ENTITY e '&#120;&#x79;&#38;f;'><!ENTITY f 'zzz'><!ENTITY g '.'>]>"
            + area("&e;" + QString("&g;").repeated(n - 8)); // xy&f; and zzz
    });
    add("entity in the default of an attribute", "Area", entities, 40, [](int n) {
        return "<!DOCTYPE Area [<!ENTITY e 'x'><!ATTLIST Area Version CDATA '"
            + QString("&e;").repeated(n - 1) + "'>]><Area/>";
    });
    add("parameter entity", "Area", entities, 40,
        [](int n) { return "<!DOCTYPE Area [<!ENTITY % e ' '>" + QString("%e;").repeated(n) + "]><Area/>"; });
    add("entity that a parameter entity declares", "Area", entities, 150, [](int n) {
        // 15 characters and 100 for the declaration
        return "<!DOCTYPE Area [<!ENTITY % p '<!ENTITY e \"x\">'>%p;]>"
            + area(QString("&e;").repeated(n - 115));
    });

    add("elements with declared attributes", "ActivityGeneration", entities, 40, [](int n) {
        // The root and the mode count, too.
        return activity(QString("<a/>").repeated(n / 4 - 2) + QString("&e;").repeated(n % 4),
                        "<!ENTITY e '.'><!ATTLIST a b CDATA '' c CDATA '' d CDATA '' e CDATA ''>");
    });

    const Change mostAttributes = [](ReadingLimits &limits, int value) { limits.SetAttributes(value); };
    add("attributes", activityKind, mostAttributes, 100,
        [](int n) { return activity("<a" + attributes(n) + "/>"); });
    add("few attributes", activityKind, mostAttributes, 3,
        [](int n) { return activity("<a" + attributes(n) + "/>"); });
    add("attributes of the root", activityKind, mostAttributes, 20,
        [](int n) { return "<ActivityGeneration" + attributes(n) + "/>"; });
    add("short attributes", activityKind, mostAttributes, 20, [](int n) {
        QString text;
        for (int i = 0; i < n; ++i)
            text += ' ' + QString(QChar('a' + i)) + "=''";
        return activity("<x" + text + "/>");
    });
    add("attributes with blanks", activityKind, mostAttributes, 20,
        [](int n) { return activity("<a" + attributes(n).replace("=", "\n = \t") + "\n/>"); });
    add("attributes in an entity", activityKind, mostAttributes, 20, [](int n) {
        return activity("&e;", "<!ENTITY e '<a" + attributes(n).replace('=', "&#61;") + "/>'>");
    });
    add("attributes that are declared", activityKind, mostAttributes, 20, [](int n) {
        QString text;
        for (int i = 0; i < n; ++i)
            text += QString(" a%1 CDATA '#'").arg(i);
        return activity("<a/>", "<!ATTLIST a" + text + ">");
    });
    add("attributes that are declared for several elements", activityKind, mostAttributes, 20, [](int n) {
        QString text;
        for (int i = 0; i < n; ++i)
            text += QString("<!ATTLIST a%1 a CDATA #FIXED ''>").arg(i);
        return activity("<a/>", text);
    });
    add("namespaces and attributes", activityKind, mostAttributes, 20, [](int n) {
        return activity("<a xmlns='u' xmlns:x='u'><b xmlns:y='u'><c" + attributes(n - 3) + "/></b></a>");
    });

    const Change mostDeep = [](ReadingLimits &limits, int value) { limits.SetDepth(value); };
    add("depth", activityKind, mostDeep, 1000, [](int n) { return activity(nested(n - 1)); });
    add("small depth", activityKind, mostDeep, 3, [](int n) { return activity(nested(n - 1)); });
    add("depth twice", activityKind, mostDeep, 7,
        [](int n) { return activity(nested(n - 1) + nested(n - 1)); });
    add("depth where there are namespaces", activityKind, mostDeep, 7,
        [](int n) { return activity("<a xmlns='u'/>" + nested(n - 1)); });
    add("depth where there is a document type", activityKind, mostDeep, 7,
        [](int n) { return activity("&e;", "<!ENTITY e '" + nested(n - 1) + "'>"); });
    add("depth of a script", "GenericReceiver", mostDeep, 7,
        [](int n) { return "<GenericReceiver><Script>" + nested(n - 2) + "</Script></GenericReceiver>"; });
}

void ReadingLimitsTest::boundaries()
{
    QFETCH(QString, kind);
    QFETCH(Change, change);
    QFETCH(int, limit);
    QFETCH(Make, make);

    const ReadingLimits limits = limitsWith(change, limit);
    QVERIFY(isTaken(kind, make(limit), limits));
    QVERIFY(!isTaken(kind, make(limit + 1), limits));
    QVERIFY(isTaken(kind, make(limit + 1), limitsWith(change, limit + 1)));
}

void ReadingLimitsTest::notCounted_data()
{
    QTest::addColumn<QString>("body");
    const QString tag = "<a" + attributes(2000) + "/>";
    QTest::newRow("comment") << "<!--" + tag + "-->";
    QTest::newRow("section") << "<a><![CDATA[" + tag + "]]></a>";
    QTest::newRow("processing instruction") << "<?a " + tag + "?>";
    QTest::newRow("text") << "<a>" + QString(tag).remove('<') + "</a>";
    QTest::newRow("value") << "<a b='" + QString(tag).remove('<') + "'/>";
    QTest::newRow("many elements") << QString("<a b='c'/>").repeated(2000);
    QTest::newRow("references to characters") << "<a>" + QString("&#60;&lt;").repeated(2000) + "</a>";
}

void ReadingLimitsTest::notCounted()
{
    QFETCH(QString, body);

    ReadingLimits limits;
    limits.SetEntityCharacters(10);
    limits.SetEntityFactor(0);
    limits.SetDepth(2);
    QVERIFY(isTaken("ActivityGeneration", activity(body), limits));
    QVERIFY(isTaken("ActivityGeneration",
                    activity(body, "<!ENTITY e 'x'><!-- %e; <!ATTLIST a b CDATA ''> -->"), limits));
}

void ReadingLimitsTest::refusals_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("reason");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("place"); // what stands there

    const QString declaration = "<!ENTITY e '" + QString(4000, 'x') + "'>";
    QTest::newRow("entities") << activity("<a>" + QString("&e;").repeated(262) + "</a><b>&e;</b>",
                                          declaration)
                              << int(RefusedText::EntityCharacters)
                              << "Entities stand for more than 1048576 characters."
                              << "&e;</b>";
    QTest::newRow("attributes") << activity("<b/><a" + attributes(101) + "/>") << int(RefusedText::Attributes)
                                << "An element has more than 100 attributes."
                                << "<a a0=";
    QTest::newRow("depth") << activity("<a xmlns='u'/>" + nested(1000)) << int(RefusedText::Depth)
                           << "Elements stand more than 1000 deep in one another."
                           << "</a></a>";
    QTest::newRow("namespace") << "<Job xmlns='a' xmlns='a'/>" << int(RefusedText::NamespaceDeclaredTwice)
                               << "A namespace is declared twice in one element."
                               << "";
}

void ReadingLimitsTest::refusals()
{
    QFETCH(QString, text);
    QFETCH(int, reason);
    QFETCH(QString, message);
    QFETCH(QString, place);

    const auto refusal = refusalOf(text, {});
    QVERIFY(refusal);
    QCOMPARE(int(refusal->reason), reason);
    QCOMPARE(refusal->message, message);
    QVERIFY(refusal->offset > 0 && refusal->offset <= text.size());
    QVERIFY2(text.mid(int(refusal->offset)).startsWith(place),
             qPrintable(text.mid(int(refusal->offset), 20)));
    QVERIFY(!refusalOf(activity("<a b='c'/>"), {}));
    QVERIFY(!refusalOf("not well-formed <", {}));
}

void ReadingLimitsTest::entityCharactersOfLongTexts()
{
    ReadingLimits limits;
    limits.SetEntityCharacters(100);
    limits.SetEntityFactor(2);
    const auto document = [](int references) {
        return "<!DOCTYPE Area [<!ENTITY e '" + QString(2000, 'x') + "'>]>"
            + area(QString("&e;").repeated(references)) + QString(500, ' ');
    };
    const auto size = static_cast<int>(document(2).size());
    QVERIFY(size * 2 > 2 * 2000 && size * 2 < 3 * 2000);
    QVERIFY(isTaken("Area", document(2), limits));
    QVERIFY(!isTaken("Area", document(3), limits));
}

void ReadingLimitsTest::ownedObjects_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<Make>("make");

    const auto add = [](const char *name, const char *kind, Make make) {
        QTest::newRow(name) << QString(kind) << make;
    };
    add("parameter of a receiver", "GenericReceiver", [](int n) {
        return "<GenericReceiver><Parameter UniqueName=\"a\"><Enum>" + nested(n - 3)
            + "</Enum></Parameter></GenericReceiver>";
    });
    add("second parameter of a receiver", "GenericReceiver", [](int n) {
        return "<GenericReceiver><Parameter "
               "UniqueName=\"a\"><Enum><EnumValue/><EnumValue/></Enum></Parameter>"
               "<Parameter UniqueName=\"b\"><Enum><EnumValue><x/></EnumValue><EnumValue/>"
            + nested(n - 3) + "</Enum></Parameter></GenericReceiver>";
    });
    add("block with defaults", "Parameter", [](int n) {
        return "<Parameter><Long><Default>1</Default><Minimum>2</Minimum><x/>" + nested(n - 2)
            + "<Default>1</Default></Long></Parameter>";
    });
}

/// In a block a reader's error is thrown.
void ReadingLimitsTest::ownedObjects()
{
    QFETCH(QString, kind);
    QFETCH(Make, make);

    constexpr int Most = 6;
    ReadingLimits limits;
    limits.SetDepth(Most);
    const auto object = newObject(kind);
    object->SetReadingLimits(limits);
    QVERIFY(object->SetXmlString(make(Most), true));
    QCOMPARE(messageOf([&] { (void)object->SetXmlString(make(Most + 1), true); }),
             QString("Elements stand more than 6 deep in one another."));
    QByteArray form = binaryForm(kind.toUtf8(), make(Most + 1).toUtf8());
    QVERIFY(!object->SetBinaryRepresentation(form));
    QVERIFY(newObject(kind)->SetXmlString(make(Most + 1), true));
}

void ReadingLimitsTest::ownedObjectsKeepTheirLimits()
{
    ReadingLimits few;
    few.SetDepth(5);
    ReadingLimits fewer;
    fewer.SetDepth(2);
    Job job;
    job.SetReadingLimits(few);
    QVERIFY(job.GetJobHeader().GetReadingLimits() == ReadingLimits());
    job.GetJobHeader().SetReadingLimits(fewer);
    QVERIFY(job.SetXmlString("<Job><JobHeader><Author>a</Author></JobHeader></Job>", true));
    QVERIFY(job.GetJobHeader().GetReadingLimits() == fewer);
    QVERIFY(job.GetReadingLimits() == few);
    QVERIFY(!messageOf([&] {
                 (void)job.SetXmlString("<Job><JobHeader><X/></JobHeader></Job>", true);
             }).isEmpty());
    QVERIFY(job.GetJobHeader().GetReadingLimits() == fewer);

    GenericReceiver receiver;
    receiver.SetReadingLimits(few);
    QVERIFY(receiver.SetXmlString("<GenericReceiver><Parameter UniqueName='a'/></GenericReceiver>", true));
    QVERIFY(receiver.GetParameter("a").GetReadingLimits() == ReadingLimits());
}

void ReadingLimitsTest::depthOfKnownElements_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("depth");
    QTest::newRow("root") << "Area"
                          << "<Area/>" << 1;
    QTest::newRow("text") << "Area"
                          << "<Area><Name>a</Name></Area>" << 2;
    QTest::newRow("coordinate") << "Area"
                                << "<Area><Coordinate><Latitude>1</Latitude></Coordinate></Area>" << 3;
    QTest::newRow("owned object") << "Job"
                                  << "<Job><JobHeader><Author>a</Author></JobHeader></Job>" << 3;
    QTest::newRow("block") << "Parameter"
                           << "<Parameter><Long><Minimum>1</Minimum></Long></Parameter>" << 3;
}

// As deep as the document is and no less, in XML as in a binary form.
void ReadingLimitsTest::depthOfKnownElements()
{
    QFETCH(QString, kind);
    QFETCH(QString, text);
    QFETCH(int, depth);
    for (const int most : {depth, depth - 1}) {
        const auto object = newObject(kind);
        ReadingLimits limits;
        limits.SetDepth(most);
        object->SetReadingLimits(limits);
        bool isRead = false;
        (void)messageOf([&] { isRead = object->SetXmlString(text, true); });
        QCOMPARE(isRead, most == depth);
        QByteArray form = binaryForm(kind.toUtf8(), text.toUtf8());
        QCOMPARE(newObject(kind)->SetBinaryRepresentation(form), true);
        QCOMPARE(object->SetBinaryRepresentation(form), most == depth);
    }
}

// What is too deep is not stored either.
void ReadingLimitsTest::tooDeepInABlock()
{
    ReadingLimits limits;
    limits.SetDepth(3);
    OpenParameter parameter;
    parameter.SetReadingLimits(limits);
    parameter.GetLongHandler().SetMinimum(7);
    QXmlStreamReader reader("<Long><x><y><Minimum>1</Minimum></y></x></Long>");
    reader.readNextStartElement();
    QVERIFY(!messageOf([&] { parameter.ProcessLongList(reader); }).isEmpty());
    QCOMPARE(parameter.GetLongHandler().GetMinimum(), 7);
}

void ReadingLimitsTest::copies()
{
    ReadingLimits limits;
    limits.SetDepth(5);
    Area area;
    area.SetReadingLimits(limits);
    Area copy(area);
    QVERIFY(copy.GetReadingLimits() == limits);
    Area assigned;
    assigned = area;
    QVERIFY(assigned.GetReadingLimits() == limits);
    copy.SetReadingLimits(ReadingLimits());
    QVERIFY(area.GetReadingLimits() == limits);
    area = Area();
    QVERIFY(area.GetReadingLimits() == ReadingLimits());
    QVERIFY(assigned.GetReadingLimits() == limits);
}

void ReadingLimitsTest::callersReader()
{
    ReadingLimits limits;
    limits.SetDepth(5);
    ActivityGenerationData data;
    data.SetReadingLimits(limits);
    QXmlStreamReader good(activity(nested(4)));
    good.readNextStartElement();
    data.ProcessXml(good);
    QVERIFY(!good.hasError() && good.isEndElement());

    QXmlStreamReader deep(activity(nested(5)));
    deep.readNextStartElement();
    data.ProcessXml(deep);
    QCOMPARE(deep.error(), QXmlStreamReader::CustomError);
    QCOMPARE(deep.errorString(), QString("Elements stand more than 5 deep in one another."));
}

void ReadingLimitsTest::blockOfAParameter()
{
    ReadingLimits limits;
    limits.SetDepth(4);
    OpenParameter parameter;
    parameter.SetReadingLimits(limits);
    QXmlStreamReader reader("<Long>" + nested(3) + "</Long>");
    reader.readNextStartElement();
    QCOMPARE(messageOf([&] { parameter.ProcessLongList(reader); }),
             QString("Elements stand more than 4 deep in one another."));
}

void ReadingLimitsTest::expandedBytes()
{
    const QString text = area(QString(100'000, 'x'));
    QByteArray compressed = compressedForm("Area", text);
    QByteArray plain = binaryForm("Area", text.toUtf8());
    ReadingLimits limits;
    limits.SetExpandedFactor(0);
    Area read;
    for (const int missing : {0, 1}) {
        limits.SetExpandedBytes(text.size() - missing);
        read.SetReadingLimits(limits);
        QCOMPARE(read.SetBinaryRepresentation(compressed), missing == 0);
        QVERIFY(read.SetBinaryRepresentation(plain));
    }
}

void ReadingLimitsTest::expandedFactor()
{
    const QString text = area(QString(100'000, 'x'));
    QByteArray compressed = compressedForm("Area", text);
    const int payload = static_cast<int>(qCompress(text.toUtf8()).size());
    const int factor = static_cast<int>(text.size()) / payload;
    ReadingLimits limits;
    limits.SetExpandedBytes(0);
    Area read;
    for (const int more : {0, 1}) {
        limits.SetExpandedFactor(factor + more);
        read.SetReadingLimits(limits);
        QCOMPARE(read.SetBinaryRepresentation(compressed), more == 1);
    }
}

/// Flags are told by the eighth byte.
void ReadingLimitsTest::writtenFormsAreTaken()
{
    const auto most = static_cast<int>(ReadingLimits().GetExpandedBytes());
    Area object;
    object.SetName("x");
    const auto frame = static_cast<int>(object.GetXmlString().size()) - 1;
    for (const int size : {1, most - frame, most - frame + 1, 2 * most}) {
        object.SetName(QString(size, 'x'));
        QByteArray bytes = object.GetCompressedBinaryRepresentationAsQByteArray(9);
        QCOMPARE(int(bytes.at(7)), size <= most - frame ? 1 : 0);
        Area read;
        QVERIFY(read.SetBinaryRepresentation(bytes));
        QVERIFY(read == object);
    }
}

QTEST_GUILESS_MAIN(ReadingLimitsTest)
#include "ReadingLimitsTest.moc"
