#include "tools/XmlPlaces.h"

#include <QtTest>
#include <QXmlStreamReader>

class XmlPlacesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void elementReadAt_data();
    void elementReadAt();
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
    QXmlStreamReader reader(text);
    while (!(reader.isStartElement() && reader.name() == QLatin1String("b")))
        QVERIFY(reader.readNext() != QXmlStreamReader::Invalid);
    if (isReadToItsEnd)
        reader.readElementText();
    QCOMPARE(::elementReadAt(text, reader.characterOffset()), static_cast<qsizetype>(place));
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
    QCOMPARE(::elementNamed(text, u"b"), static_cast<qsizetype>(place));
}

QTEST_GUILESS_MAIN(XmlPlacesTest)
#include "XmlPlacesTest.moc"
