#include "inspection/XmlPlaces_p.h"

#include <inspection/XmlTree_p.h>

#include <QtTest>
#include <QXmlStreamReader>

using namespace KORMAK::Inspection;

class XmlPlacesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void elementReadAt_data();
    void elementReadAt();
    void offsetsInBytes();
    void attributesInTag();
    void placeOfError_data();
    void placeOfError();
    void withoutEncoding_data();
    void withoutEncoding();
    void elementNamed_data();
    void elementNamed();
};

void XmlPlacesTest::elementReadAt_data()
{
    QTest::addColumn<QString>("text"); // "|" stands before the element b that is meant
    QTest::addColumn<bool>("isReadToItsEnd");

    QTest::newRow("start") << "<a>\n |<b>1</b></a>" << false;
    QTest::newRow("start with attributes") << "<a>|<b c='>' d=\"/>\">1</b></a>" << false;
    QTest::newRow("start, empty") << "<a>|<b/></a>" << false;
    QTest::newRow("end") << "<a>|<b>1</b></a>" << true;
    QTest::newRow("end, empty") << "<a>|<b/></a>" << true;
    QTest::newRow("end behind a comment") << "<a>|<b>1<!-- <c> --></b></a>" << true;
    QTest::newRow("end behind a section") << "<a>|<b><![CDATA[<c>]]></b></a>" << true;
    QTest::newRow("end behind other elements") << "<a><c><d/></c><e>1</e>|<b>2</b></a>" << true;
}

void XmlPlacesTest::elementReadAt()
{
    QFETCH(QString, text);
    QFETCH(bool, isReadToItsEnd);

    const auto place = text.indexOf('|');
    text.remove('|');
    PlacedReader placed(text.toUtf8());
    QXmlStreamReader &reader = placed.xml();
    while (!(reader.isStartElement() && reader.name() == QLatin1String("b")))
        QVERIFY(reader.readNext() != QXmlStreamReader::Invalid);
    QCOMPARE(placed.startOfToken(), static_cast<qsizetype>(place));
    if (isReadToItsEnd)
        reader.readElementText();
    QCOMPARE(::elementReadAt(text.toUtf8(), placed.offset()), static_cast<qsizetype>(place));
}

/// However many bytes and code units the characters before a place take, and wherever Qt's reader begins
/// anew.
void XmlPlacesTest::offsetsInBytes()
{
    constexpr int Filling = 5000;
    for (const char *character : {"x", "\xC3\xA4", "\xE2\x82\xAC", "\xF0\x9D\x84\x9E"}) {
        QByteArray text("<a>");
        for (int i = 0; i < Filling; ++i)
            text += character;
        text += "<b/>";
        const auto place = text.indexOf("<b");
        PlacedReader placed(text + "</a>");
        while (!(placed.xml().isStartElement() && placed.xml().name() == QLatin1String("b")))
            QVERIFY(placed.xml().readNext() != QXmlStreamReader::Invalid);
        QCOMPARE(placed.startOfToken(), static_cast<qsizetype>(place));
        QCOMPARE(placed.offset(), static_cast<qsizetype>(text.size()));
    }
}

void XmlPlacesTest::attributesInTag()
{
    const QByteArray text = "<a><b xmlns:x='y>' c = \"1'\"\n\txmlns=\"z\" x:d='/>'/></a>";
    PlacedReader placed(text);
    while (!(placed.xml().isStartElement() && placed.xml().name() == QLatin1String("b")))
        QVERIFY(placed.xml().readNext() != QXmlStreamReader::Invalid);
    QStringList found;
    for (const auto &[name, offset] : placed.attributesInTag())
        found += QString("%1 %2").arg(name).arg(offset);
    QCOMPARE(found, (QStringList{"xmlns:x 6", "c 19", "xmlns 29", "x:d 39"}));
}

void XmlPlacesTest::placeOfError_data()
{
    QTest::addColumn<QString>("text"); // "|" stands before the place

    QTest::newRow("end of the text") << "<a>\n<b>|";
    QTest::newRow("short") << "<a>|";
    QTest::newRow("character") << "<a>&| b</a>";
    QTest::newRow("character of several bytes") << QString::fromUtf8("<a b=|\xE2\x82\xAC>");
    QTest::newRow("element in a text") << "<c>1</c><b>2|<d/></b>";
    QTest::newRow("outside of all elements") << "|x<a/>";
}

void XmlPlacesTest::placeOfError()
{
    QFETCH(QString, text);

    const auto place = text.left(text.indexOf('|')).toUtf8().size();
    const bool isInText = text.contains("<b>2");
    const QString whole = text.remove('|');
    PlacedReader placed((isInText ? "<a>" + whole + "</a>" : whole).toUtf8());
    while (!placed.xml().atEnd()) {
        placed.xml().readNext();
        if (isInText && placed.xml().isStartElement() && placed.xml().name() == QLatin1String("b"))
            placed.xml().readElementText();
    }
    QVERIFY(placed.xml().hasError());
    QCOMPARE(placed.placeOfError(), static_cast<qsizetype>(place + (isInText ? 3 : 0)));
}

void XmlPlacesTest::withoutEncoding_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");

    const auto add = [](const char *name, const QByteArray &before, const QByteArray &after) {
        QTest::newRow(name) << before << after;
    };
    const auto same = [&add](const char *name, const QByteArray &text) { add(name, text, text); };
    add("encoding", "<?xml version=\"1.0\" encoding=\"UTF-16\"?><a/>",
        "<?xml version=\"1.0\"                  ?><a/>");
    add("between others", "<?xml version='1.0'\n encoding = 'UTF-8' standalone='yes'?><a/>",
        "<?xml version='1.0'                     standalone='yes'?><a/>");
    add("behind a byte order mark", "\xEF\xBB\xBF<?xml version='1.0' encoding='UTF-16'?><a/>",
        "\xEF\xBB\xBF<?xml version='1.0'                  ?><a/>");
    same("none", "<?xml version=\"1.0\"?><a encoding=\"UTF-16\"/>");
    same("no declaration", "<a encoding='UTF-16'/>");
    same("no name of an encoding", "<?xml version=\"1.0\" encoding=\"1\"?><a/>");
    same("no version", "<?xml encoding='UTF-16'?><a/>");
    same("no blank", "<?xmlversion='1.0' encoding='UTF-16'?><a/>");
    same("no equals sign", "<?xml version'1.0' encoding='UTF-16'?><a/>");
    same("no quotation mark", "<?xml version=1.0 encoding='UTF-16'?><a/>");
    same("quotation mark that is not closed", "<?xml version='1.0' encoding='UTF-16?><a/>");
    same("breaks off", "<?xml version='1.0' encoding=");
    same("elsewhere", " <?xml version=\"1.0\" encoding=\"UTF-16\"?><a/>");
}

void XmlPlacesTest::withoutEncoding()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);

    QCOMPARE(::withoutEncoding(before), after);
}

void XmlPlacesTest::elementNamed_data()
{
    QTest::addColumn<QString>("text"); // "|" stands before the element that is meant

    QTest::newRow("root") << "<!-- <b> -->|<b/>";
    QTest::newRow("child") << "<a>|<b/></a>";
    QTest::newRow("first of two") << "<a><c>|<b/></c><b/></a>";
    QTest::newRow("none") << "<!-- <a> -->|<a><c/></a>";
    QTest::newRow("with a prefix") << "<a>|<x:b xmlns:x='y'/></a>";
}

void XmlPlacesTest::elementNamed()
{
    QFETCH(QString, text);

    const auto place = text.indexOf('|');
    text.remove('|');
    const XmlTree tree(text.toUtf8());
    QCOMPARE(tree.offset(::elementNamed(tree, u"b")), static_cast<qsizetype>(place));
}

QTEST_GUILESS_MAIN(XmlPlacesTest)
#include "XmlPlacesTest.moc"
