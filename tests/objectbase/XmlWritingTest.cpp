#include <objectbase/ITesselObject.h>
#include <tests/support/Objects.h>
#include <tests/support/SampleDocuments.h>

#include <QtTest>

using namespace TESSEL;
using namespace TestSupport;
using namespace SampleDocuments;

class XmlWritingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void framing();
    void framingOfAnIncompleteObject();
    void checkComesFirst();
    void incompleteNestedObjectVanishes();
    void textsThatXmlCannotCarry_data();
    void textsThatXmlCannotCarry();
    void textsThatXmlCarries_data();
    void textsThatXmlCarries();
    void carriageReturns();
    void everyCharacterOfTheBasicPlane();
};

void XmlWritingTest::framing()
{
    Note note("Title & more", "Body");
    note.version = "2.0";
    note.label = "blue";
    QCOMPARE(note.GetXmlString(),
             document("<Note Version=\"2.0\" Label=\"blue\">\n"
                      "    <Title>Title &amp; more</Title>\n"
                      "    <Body>Body</Body>\n"
                      "</Note>\n"));
    QCOMPARE(BareDocument().GetXmlString(), document("<Bare/>\n"));
}

void XmlWritingTest::framingOfAnIncompleteObject()
{
    QCOMPARE(elementOf(DraftNote()), QString());
    QCOMPARE(DraftNote().GetXmlString(), document(QString()));
    QCOMPARE(messageOf([] { (void)Note().GetXmlString(); }), QString("Note: Please set Title"));
}

void XmlWritingTest::checkComesFirst()
{
    const BareDocument object;
    (void)object.GetXmlString();
    QCOMPARE(object.calls, (QStringList{"Check", "GetXml"}));

    class Refusing : public BareDocument {
    public:
        void Check() const override
        {
            BareDocument::Check();
            throw TesselException("refused");
        }
    };
    const Refusing refusing;
    QCOMPARE(messageOf([&] { (void)refusing.GetXmlString(); }), QString("refused"));
    QCOMPARE(refusing.calls, QStringList("Check"));
}

void XmlWritingTest::incompleteNestedObjectVanishes()
{
    Binder binder;
    binder.title = "binder";
    QCOMPARE(elementOf(binder), QString("<Binder Version=\"1.0\"><Title>binder</Title></Binder>"));
}

void XmlWritingTest::textsThatXmlCannotCarry_data()
{
    QTest::addColumn<QString>("text");

    for (ushort code = 0; code < 0x20; ++code) {
        if (code != '\t' && code != '\n' && code != '\r')
            QTest::addRow("U+%04X", code) << QString("a") + QChar(code) + "b";
    }
    const QChar high(0xD83D);
    const QChar low(0xDCE1);
    QTest::newRow("U+FFFE") << QString("a") + QChar(0xFFFE);
    QTest::newRow("U+FFFF") << QString("a") + QChar(0xFFFF);
    QTest::newRow("high surrogate") << QString("a") + high + "b";
    QTest::newRow("high surrogate at the end") << QString("a") + high;
    QTest::newRow("low surrogate") << QString("a") + low + "b";
    QTest::newRow("low surrogate alone") << QString(low);
    QTest::newRow("two low surrogates") << QString(low) + low;
    QTest::newRow("surrogates exchanged") << QString(low) + high;
    QTest::newRow("high surrogate before a pair") << QString(high) + high + low;
    QTest::newRow("low surrogate behind a pair") << QString(high) + low + low;
    QTest::newRow("first high surrogate") << QString(QChar(0xD800));
    QTest::newRow("last low surrogate") << QString(QChar(0xDFFF));
}

void XmlWritingTest::textsThatXmlCannotCarry()
{
    QFETCH(QString, text);
    const QString message = "Note: Text cannot be represented in XML";

    const Note inAText("title", text);
    QCOMPARE(messageOf([&] { (void)inAText.GetXmlString(); }), message);

    Note inAnAttribute("title");
    inAnAttribute.label = text;
    QCOMPARE(messageOf([&] { (void)inAnAttribute.GetXmlString(); }), message);

    // Behind the last text stands nothing that a writer would look at.
    class Label : public Note {
    public:
        void GetXml(QXmlStreamWriter &writer) const override
        {
            writer.writeStartElement(GetObjectName());
            writer.writeAttribute("Label", label);
            writer.writeEndElement();
        }
    };
    Label last;
    last.title = "title";
    last.label = text;
    QCOMPARE(messageOf([&] { (void)last.GetXmlString(); }), message);

    Binder nested;
    nested.title = "title";
    nested.note = inAText;
    QCOMPARE(messageOf([&] { (void)nested.GetXmlString(); }),
             QString("Binder: Text cannot be represented in XML"));
}

void XmlWritingTest::textsThatXmlCarries_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("tab and line feed") << "\ta\n\nb\t";
    QTest::newRow("carriage return") << "a\rb\r\nc\n\r";
    QTest::newRow("carriage return only") << "\r";
    QTest::newRow("blanks around") << "  a  ";
    QTest::newRow("only blanks") << "   ";
    QTest::newRow("markup") << "<b attribute=\"1\">&amp;'</b>]]>";
    QTest::newRow("reference") << "&#13;&#x41;";
    QTest::newRow("Latin-1") << QString::fromUtf8("Z\xC3\xBCrich\xC2\xA0");
    QTest::newRow("next line and line separator") << QString("a") + QChar(0x85) + QChar(0x2028) + "b";
    QTest::newRow("delete") << QString(QChar(0x7F)) + QChar(0x9F);
    QTest::newRow("byte order mark") << QString(QChar(0xFEFF)) + "a";
    QTest::newRow("replacement character") << QString(QChar(0xFFFD));
    QTest::newRow("around the surrogates") << QString(QChar(0xD7FF)) + QChar(0xE000);
    QTest::newRow("surrogate pair") << QString::fromUtf8("\xF0\x9F\x93\xA1");
    QTest::newRow("surrogate pairs in a row") << QString::fromUtf8("\xF0\x9F\x93\xA1\xF0\x90\x80\x80");
    QTest::newRow("first pair") << QString(QChar(0xD800)) + QChar(0xDC00);
    QTest::newRow("last pair but the noncharacters") << QString(QChar(0xDBFF)) + QChar(0xDFFD);
    QTest::newRow("long") << QString(100000, 'x');
}

void XmlWritingTest::textsThatXmlCarries()
{
    QFETCH(QString, text);

    Note note(text, text);
    note.label = text;
    Note back;
    QVERIFY(back.SetXmlString(note.GetXmlString(), true));
    QCOMPARE(back.fields(), note.fields());
    QCOMPARE(back.GetXmlString(), note.GetXmlString());
}

void XmlWritingTest::carriageReturns()
{
    Note note("a\rb", "\r\n");
    note.label = "\r";
    QCOMPARE(note.GetXmlString(),
             document("<Note Version=\"1.0\" Label=\"&#13;\">\n"
                      "    <Title>a&#13;b</Title>\n"
                      "    <Body>&#13;\n</Body>\n"
                      "</Note>\n"));
}

void XmlWritingTest::everyCharacterOfTheBasicPlane()
{
    QString all;
    for (int code = 0x20; code < 0xFFFE; ++code) {
        if (!QChar(static_cast<ushort>(code)).isSurrogate())
            all.append(QChar(static_cast<ushort>(code)));
    }
    Note note(all);
    note.label = all;
    Note back;
    QVERIFY(back.SetXmlString(note.GetXmlString(), true));
    QVERIFY(back.title == all);
    QVERIFY(back.label == all);
}

QTEST_GUILESS_MAIN(XmlWritingTest)
#include "XmlWritingTest.moc"
