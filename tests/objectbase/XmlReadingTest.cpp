#include <objectbase/ITesselObject.h>
#include <tests/support/Objects.h>
#include <tests/support/SampleDocuments.h>

#include <QtTest>

using namespace TESSEL;
using namespace TestSupport;
using namespace SampleDocuments;

namespace {

const QString CompleteDocument = document("<Note Version=\"2.0\" Label=\"blue\">\n"
                                          "    <Title>Title &amp; more</Title>\n"
                                          "    <Body>Body</Body>\n"
                                          "</Note>\n");
const QStringList CompleteFields{"2.0", "blue", "Title & more", "Body"};

} // namespace

class XmlReadingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void loopStopsOnTheOwnEndElement();
    void loopHandsOverEachChild();
    void loopSkipsUntouchedChildren_data();
    void loopSkipsUntouchedChildren();
    void loopGoesOnBehindADeeperEndElement();
    void nestedObjects();
    void nestedObjectOfTheSameName();
    void unknownTags_data();
    void unknownTags();
    void untouchedDescendantsAreNotUnknown();
    void baseLeavesEveryChildUntouched();
    void malformedChildrenEndTheLoop_data();
    void malformedChildrenEndTheLoop();
    void textValues_data();
    void textValues();
    void textValueOfAnElementWithChildren();
    void placesAreThoseOfTheDocument_data();
    void placesAreThoseOfTheDocument();
    void readDocument_data();
    void readDocument();
    void longDocuments_data();
    void longDocuments();
    void refusedDocuments_data();
    void refusedDocuments();
    void truncatedDocuments();
    void otherRootElement_data();
    void otherRootElement();
    void exceptionsPassThrough();
    void readingNeverResets();
};

void XmlReadingTest::loopStopsOnTheOwnEndElement()
{
    QXmlStreamReader reader("<Box><Note Version=\"1\"><Title>a</Title></Note><After/></Box>");
    reader.readNextStartElement();
    reader.readNextStartElement();
    Note note;
    note.ProcessXml(reader);

    QVERIFY(reader.isEndElement());
    QCOMPARE(reader.name().toString(), QString("Note"));
    QVERIFY(reader.readNextStartElement());
    QCOMPARE(reader.name().toString(), QString("After"));
}

void XmlReadingTest::loopHandsOverEachChild()
{
    LenientNote note;
    QCOMPARE(process(note,
                     "<Note> text <!-- comment --><Title>a</Title><?instruction?><Other/>"
                     "<![CDATA[<Hidden/>]]><Title>b</Title></Note>"),
             QXmlStreamReader::EndElement);
    QCOMPARE(note.children, (QStringList{"Title", "Other", "Title"}));
    QVERIFY(note.allOnStartElement);
    QCOMPARE(note.title, QString("b"));

    LenientNote empty;
    QCOMPARE(process(empty, "<Note/>"), QXmlStreamReader::EndElement);
    QCOMPARE(empty.children, QStringList());
}

void XmlReadingTest::loopSkipsUntouchedChildren_data()
{
    QTest::addColumn<QString>("child");

    QTest::newRow("empty") << "<Other/>";
    QTest::newRow("text") << "<Other>text</Other>";
    QTest::newRow("children") << "<Other><a/><b><c>text</c></b></Other>";
    QTest::newRow("known name inside") << "<Other><Title>wrong</Title></Other>";
    QTest::newRow("known name far inside") << "<Other><a><b><Title>wrong</Title></b></a><Title/></Other>";
    QTest::newRow("own name inside") << "<Other><Note><Title>wrong</Title></Note></Other>";
    QTest::newRow("same name inside") << "<Other><Other><Title>wrong</Title></Other></Other>";
}

void XmlReadingTest::loopSkipsUntouchedChildren()
{
    QFETCH(QString, child);

    LenientNote note;
    QCOMPARE(process(note, "<Note><Title>first</Title>" + child + "<Last/></Note>"),
             QXmlStreamReader::EndElement);
    QCOMPARE(note.children, (QStringList{"Title", "Other", "Last"}));
    QCOMPARE(note.title, QString("first"));

    LenientNote another;
    QVERIFY(another.SetXmlString("<Note>" + child + "<Title>behind</Title></Note>", true));
    QCOMPARE(another.children, (QStringList{"Other", "Title"}));
    QCOMPARE(another.title, QString("behind"));
}

void XmlReadingTest::loopGoesOnBehindADeeperEndElement()
{
    HastyNote note;
    QXmlStreamReader reader(
        "<Box><Note><Other><a/><b>text</b></Other><Title>last</Title></Note><After/></Box>");
    reader.readNextStartElement();
    reader.readNextStartElement();
    note.ProcessXml(reader);

    QCOMPARE(note.children, (QStringList{"Other", "b", "Title"}));
    QCOMPARE(note.title, QString("last"));
    QVERIFY(reader.isEndElement());
    QCOMPARE(reader.name().toString(), QString("Note"));
    QVERIFY(reader.readNextStartElement());
    QCOMPARE(reader.name().toString(), QString("After"));
}

void XmlReadingTest::nestedObjects()
{
    Binder binder;
    binder.title = "binder";
    binder.note = Note("inner", "body");
    const QString text = document("<Binder Version=\"1.0\">\n"
                                  "    <Title>binder</Title>\n"
                                  "    <Note Version=\"1.0\">\n"
                                  "        <Title>inner</Title>\n"
                                  "        <Body>body</Body>\n"
                                  "    </Note>\n"
                                  "</Binder>\n");
    QCOMPARE(binder.GetXmlString(), text);

    Binder back;
    QVERIFY(back.SetXmlString(text, true));
    QCOMPARE(back.fields(), binder.fields());
    QCOMPARE(back.note.fields(), binder.note.fields());

    Binder noteFirst;
    QVERIFY(noteFirst.SetXmlString(
        "<Binder Version=\"1\"><Note Version=\"2\"><Title>inner</Title></Note><Title>binder</Title></Binder>",
        true));
    QCOMPARE(noteFirst.fields(), (QStringList{"1", QString(), "binder", QString()}));
    QCOMPARE(noteFirst.note.fields(), (QStringList{"2", QString(), "inner", QString()}));
}

void XmlReadingTest::nestedObjectOfTheSameName()
{
    Binder binder;
    binder.SetObjectName("Note");
    QVERIFY(binder.SetXmlString("<Note><Note><Title>inner</Title></Note><Title>outer</Title></Note>", true));
    QCOMPARE(binder.note.title, QString("inner"));
    QCOMPARE(binder.title, QString("outer"));
}

void XmlReadingTest::unknownTags_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("title"); ///< read until then
    QTest::addColumn<QString>("innerTitle");

    QTest::newRow("first") << "<Binder><X/><Title>a</Title></Binder>"
                           << "Unknown Tag 'X' in 'Binder'."
                           << ""
                           << "";
    QTest::newRow("last") << "<Binder><Title>a</Title><X/></Binder>"
                          << "Unknown Tag 'X' in 'Binder'."
                          << "a"
                          << "";
    QTest::newRow("lower case") << "<Binder><title>a</title></Binder>"
                                << "Unknown Tag 'title' in 'Binder'."
                                << ""
                                << "";
    QTest::newRow("inside the nested object")
        << "<Binder><Title>a</Title><Note><Title>b</Title><Y/></Note></Binder>"
        << "Unknown Tag 'Y' in 'Note'."
        << "a"
        << "b";
    QTest::newRow("behind the nested object") << "<Binder><Note><Title>b</Title></Note><Z>text</Z></Binder>"
                                              << "Unknown Tag 'Z' in 'Binder'."
                                              << ""
                                              << "b";
    QTest::newRow("before malformed XML") << "<Binder><X></Binder>"
                                          << "Unknown Tag 'X' in 'Binder'."
                                          << ""
                                          << "";
}

void XmlReadingTest::unknownTags()
{
    QFETCH(QString, text);
    QFETCH(QString, message);
    QFETCH(QString, title);
    QFETCH(QString, innerTitle);

    Binder binder;
    QCOMPARE(messageOf([&] { process(binder, text); }), message);
    QCOMPARE(binder.title, title);
    QCOMPARE(binder.note.title, innerTitle);
}

void XmlReadingTest::untouchedDescendantsAreNotUnknown()
{
    class LenientBinder : public Binder {
    protected:
        void ProcessXmlStartElement(QXmlStreamReader &reader) override
        {
            if (reader.name() != QLatin1String("Other"))
                Binder::ProcessXmlStartElement(reader);
        }
    };
    LenientBinder binder;
    QVERIFY(
        binder.SetXmlString("<Binder><Other><X/><Note><Y/></Note></Other><Title>a</Title></Binder>", true));
    QCOMPARE(binder.title, QString("a"));
}

void XmlReadingTest::baseLeavesEveryChildUntouched()
{
    BareDocument document;
    QXmlStreamReader reader(QStringLiteral("<Bare>a<b><Bare>c</Bare></b><d/></Bare><e/>"));
    reader.readNextStartElement();
    document.ProcessXml(reader);
    QVERIFY(reader.isEndElement());
    QCOMPARE(reader.characterOffset(), 39); // the first of the two elements
    QVERIFY(!reader.hasError());
}

void XmlReadingTest::malformedChildrenEndTheLoop_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("error");

    QTest::newRow("cut off behind a child")
        << "<Note><Title>a</Title>" << int(QXmlStreamReader::PrematureEndOfDocumentError);
    QTest::newRow("cut off in a child")
        << "<Note><Title>a</Title><Other>b" << int(QXmlStreamReader::PrematureEndOfDocumentError);
    QTest::newRow("cut off in a start element")
        << "<Note><Title>a</Title><Oth" << int(QXmlStreamReader::PrematureEndOfDocumentError);
    QTest::newRow("crossed") << "<Note><Title>a</Title><Other><b></Other></b></Note>"
                             << int(QXmlStreamReader::NotWellFormedError);
    QTest::newRow("wrong end") << "<Note><Title>a</Title></Other>"
                               << int(QXmlStreamReader::NotWellFormedError);
    QTest::newRow("unknown entity") << "<Note><Title>a</Title>&nothing;</Note>"
                                    << int(QXmlStreamReader::NotWellFormedError);
    QTest::newRow("bare ampersand") << "<Note><Title>a</Title><Other>b & c</Other></Note>"
                                    << int(QXmlStreamReader::NotWellFormedError);
    QTest::newRow("child inside a text") << "<Note><Title>a</Title><Title>a<b/></Title></Note>"
                                         << int(QXmlStreamReader::UnexpectedElementError);
}

void XmlReadingTest::malformedChildrenEndTheLoop()
{
    QFETCH(QString, text);
    QFETCH(int, error);

    LenientNote note;
    QXmlStreamReader reader(text);
    reader.readNextStartElement();
    note.ProcessXml(reader);
    QCOMPARE(static_cast<int>(reader.error()), error);
    QVERIFY(note.title.startsWith("a"));

    LenientNote another;
    QVERIFY(!another.SetXmlString(text, true));
    QVERIFY(!another.SetXmlString(text, false));
}

void XmlReadingTest::textValues_data()
{
    QTest::addColumn<QString>("element");
    QTest::addColumn<QString>("text");

    QTest::newRow("text") << "<T>text</T>"
                          << "text";
    QTest::newRow("empty") << "<T></T>"
                           << "";
    QTest::newRow("empty element") << "<T/>"
                                   << "";
    QTest::newRow("blanks") << "<T>  a\n\tb </T>"
                            << "  a\n\tb ";
    QTest::newRow("entities") << "<T>&lt;&amp;&gt;&quot;&apos;</T>"
                              << "<&>\"'";
    QTest::newRow("character references") << "<T>&#65;&#x42;&#13;</T>"
                                          << "AB\r";
    QTest::newRow("CDATA") << "<T><![CDATA[<b>&amp;</b>]]></T>"
                           << "<b>&amp;</b>";
    QTest::newRow("CDATA in text") << "<T>a<![CDATA[<b>]]>c</T>"
                                   << "a<b>c";
    QTest::newRow("comment") << "<T>a<!-- b -->c</T>"
                             << "ac";
    QTest::newRow("instruction") << "<T>a<?b?>c</T>"
                                 << "ac";
    QTest::newRow("attributes") << "<T x=\"y\">text</T>"
                                << "text";
}

void XmlReadingTest::textValues()
{
    QFETCH(QString, element);
    QFETCH(QString, text);

    QXmlStreamReader reader("<Box>" + element + "<After/></Box>");
    reader.readNextStartElement();
    reader.readNextStartElement();
    QCOMPARE(Note::GetTextValue(reader), text);
    QVERIFY(reader.isEndElement());
    QCOMPARE(reader.name().toString(), QString("T"));
    QVERIFY(!reader.hasError());
    QVERIFY(reader.readNextStartElement());
    QCOMPARE(reader.name().toString(), QString("After"));
}

void XmlReadingTest::textValueOfAnElementWithChildren()
{
    QXmlStreamReader reader("<T>a<b>c</b></T>");
    reader.readNextStartElement();
    (void)Note::GetTextValue(reader);
    QCOMPARE(reader.error(), QXmlStreamReader::UnexpectedElementError);
}

void XmlReadingTest::placesAreThoseOfTheDocument_data()
{
    QTest::addColumn<QString>("declaration");
    QTest::addColumn<int>("length");
    for (const int length : {10, 20000, 200000}) {
        for (const char *declaration : {"", "<?xml version=\"1.0\"?>", "<?xml version=\"1.0\"?>\n",
                                        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"})
            QTest::addRow("%s, %d", declaration, length) << declaration << length;
    }
}

// Offset, line and column that a derived class sees are those of the text, however long it is.
void XmlReadingTest::placesAreThoseOfTheDocument()
{
    QFETCH(QString, declaration);
    QFETCH(int, length);
    class Placed : public Note {
    public:
        qint64 offset = 0;
        qint64 line = 0;
        qint64 column = 0;

        void ProcessXml(QXmlStreamReader &reader) override
        {
            offset = reader.characterOffset();
            line = reader.lineNumber();
            column = reader.columnNumber();
            Note::ProcessXml(reader);
        }
    };
    const QString root = "<Note Version=\"1\">";
    const QString text = declaration + root + "<Title>" + QString(length, 'x') + "</Title></Note>";
    Placed note;
    QVERIFY(note.SetXmlString(text, true));
    const int end = declaration.size() + root.size();
    const int lineStart = declaration.lastIndexOf('\n') + 1;
    QCOMPARE(note.offset, qint64(end));
    QCOMPARE(note.line, qint64(declaration.contains('\n') ? 2 : 1));
    QCOMPARE(note.column, qint64(end - lineStart));
}

void XmlReadingTest::readDocument_data()
{
    QTest::addColumn<QString>("text");

    const QString element = CompleteDocument.section('\n', 1);
    QTest::newRow("as written") << CompleteDocument;
    QTest::newRow("no declaration") << element;
    QTest::newRow("other encoding declared") << "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>" + element;
    QTest::newRow("blanks behind") << CompleteDocument + " \n\t\r\n";
    QTest::newRow("comment behind") << CompleteDocument + "<!-- end -->";
    QTest::newRow("instruction behind") << CompleteDocument + "<?end?>";
    QTest::newRow("comment in front") << "<!-- begin -->" + element;
    QTest::newRow("document type") << "<!DOCTYPE Note>" + element;
    QTest::newRow("entity of its own")
        << "<!DOCTYPE Note [<!ENTITY more \"more\">]>" + QString(element).replace("more", "&more;");
    QTest::newRow("one line") << QString(CompleteDocument).remove("\n    ").remove('\n');
}

void XmlReadingTest::readDocument()
{
    QFETCH(QString, text);

    for (const bool validate : {true, false}) {
        Note note;
        QVERIFY(note.SetXmlString(text, validate));
        QCOMPARE(note.fields(), CompleteFields);
    }
}

void XmlReadingTest::longDocuments_data()
{
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("title");

    const QString declaration = "<?xml version=\"1.0\"?>";
    const QString otherEncoding = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n";
    const QString title = QString::fromUtf8("Gr\xC3\xB6\xC3\x9F"
                                            "e \xF0\x9F\x93\xA1");
    const QString note = "<Note><Title>" + title + "</Title>";
    const auto add = [&title](const char *name, const QString &text) {
        QTest::newRow(name) << text << title;
    };
    add("as written", declaration + '\n' + note);
    add("CR LF", declaration + "\r\n" + note);
    add("CR", declaration + '\r' + note);
    add("blank behind the declaration", declaration + " \n" + note);
    add("one line", declaration + note);
    add("no declaration", note);
    add("blank line", '\n' + note);
    add("other encoding declared", otherEncoding + note);
    add("byte order mark", QChar(0xFEFF) + declaration + '\n' + note);
    add("standalone", "<?xml version='1.0' standalone='yes' ?>\n" + note);
    add("style sheet", "<?xml-stylesheet href=\"note.xsl\"?>\n" + note);
    add("style sheet behind", declaration + "<?xml-stylesheet href=\"note.xsl\"?>\n" + note);
    add("comment", "<!-- <?xml version=\"1.0\"?>\n -->" + note);
    add("comment behind", declaration + "<!-- ?>\n -->" + note);
    add("document type", declaration + "\n<!DOCTYPE Note [<!ENTITY more \"?>\n\">]>\n" + note);
    add("long declaration", "<?xml version=\"1.0\"" + QString(300, ' ') + "?>\n" + note);
    QTest::newRow("instruction in a text") << "<Note><Title>a<?instruction?>\nb</Title>"
                                           << "a\nb";
    QTest::newRow("instruction in a text of the first line")
        << declaration + "<Note><Title>a<?instruction?>\nb</Title>"
        << "a\nb";
    QTest::newRow("text that looks like a declaration") << "<Note><Title>xml?>\nb</Title>"
                                                        << "xml?>\nb";
}

/// What helps Qt to read long documents faster shows in the character offset alone.
void XmlReadingTest::longDocuments()
{
    QFETCH(QString, start);
    QFETCH(QString, title);

    class PlacedNote : public Note {
    public:
        void ProcessXml(QXmlStreamReader &reader) override
        {
            line = reader.lineNumber();
            column = reader.columnNumber();
            Note::ProcessXml(reader);
        }
        qint64 line = -1;
        qint64 column = -1;
    };

    const QString end = "</Body></Note>\n";
    for (const int size : {16383, 16384, 40000}) {
        QString text = start + "\n<Body>";
        const QString body(size - static_cast<int>(text.size() + end.size()), 'b');
        text += body + end;
        QXmlStreamReader reader(text);
        reader.readNextStartElement();

        PlacedNote note;
        QVERIFY(note.SetXmlString(text, true));
        QCOMPARE(note.title, title);
        QCOMPARE(note.body, body);
        QCOMPARE(note.line, reader.lineNumber());
        QCOMPARE(note.column, reader.columnNumber());

        Note cut;
        QVERIFY(!cut.SetXmlString(text.left(text.size() - 10), true));
        QCOMPARE(cut.title, title);
        QVERIFY(!Note().SetXmlString(text + 'x', true));
    }
}

void XmlReadingTest::refusedDocuments_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("null") << QString();
    QTest::newRow("empty") << "";
    QTest::newRow("blank") << " \n";
    QTest::newRow("word") << "Note";
    QTest::newRow("declaration only") << "<?xml version=\"1.0\"?>";
    QTest::newRow("comment only") << "<!-- Note -->";
    QTest::newRow("blank before the declaration") << ' ' + CompleteDocument;
    QTest::newRow("text in front") << "x" + CompleteDocument.section('\n', 1);
    QTest::newRow("text behind") << CompleteDocument + "x";
    QTest::newRow("second root") << CompleteDocument + "<Note/>";
    QTest::newRow("document twice") << CompleteDocument + CompleteDocument;
    QTest::newRow("end element behind") << CompleteDocument + "</Note>";
    QTest::newRow("open comment behind") << CompleteDocument + "<!-- ";
    QTest::newRow("NUL behind") << CompleteDocument + QChar(0);
    QTest::newRow("long, blank before the declaration")
        << ' ' + CompleteDocument + "<!--" + QString(40000, '.') + "-->";
    QTest::newRow("long, declaration open")
        << "<?xml version=\"1.0\"\n" + CompleteDocument.section('\n', 1) + QString(40000, ' ');
    QTest::newRow("version 2.0")
        << QString(CompleteDocument).replace("xml version=\"1.0\"", "xml version=\"2.0\"");
    QTest::newRow("attribute twice") << "<Note Version=\"1\" Version=\"2\"><Title>a</Title></Note>";
    QTest::newRow("control character") << QString("<Note><Title>") + QChar(1) + "</Title></Note>";
}

void XmlReadingTest::refusedDocuments()
{
    QFETCH(QString, text);

    for (const bool validate : {true, false}) {
        Note note("title", "body");
        QVERIFY(!note.SetXmlString(text, validate));
    }
}

void XmlReadingTest::truncatedDocuments()
{
    const auto complete = CompleteDocument.lastIndexOf('>') + 1;
    for (int length = 0; length < complete; ++length) {
        for (const bool validate : {true, false}) {
            Note note;
            QVERIFY2(!note.SetXmlString(CompleteDocument.left(length), validate),
                     qPrintable(CompleteDocument.left(length)));
        }
    }
    Note note;
    QVERIFY(note.SetXmlString(CompleteDocument.left(complete), true));
}

void XmlReadingTest::otherRootElement_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("other") << "Memo";
    QTest::newRow("lower case") << "note";
    QTest::newRow("longer") << "Notes";
    QTest::newRow("child") << "Title";
}

void XmlReadingTest::otherRootElement()
{
    QFETCH(QString, name);
    const QString text = QString(CompleteDocument).replace("<Note", '<' + name).replace("/Note", '/' + name);

    Note note("title", "body");
    const QStringList before = note.fields();
    QVERIFY(!note.SetXmlString(text, true));
    QCOMPARE(note.fields(), before);

    QVERIFY(note.SetXmlString(text, false));
    QCOMPARE(note.fields(), CompleteFields);

    // Even where the object would throw, the name comes first.
    const QString unknown = QString("<%1><X/></%1>").arg(name);
    QVERIFY(!note.SetXmlString(unknown, true));
    QCOMPARE(messageOf([&] { (void)note.SetXmlString(unknown, false); }),
             QString("Unknown Tag 'X' in 'Note'."));
}

void XmlReadingTest::exceptionsPassThrough()
{
    for (const bool validate : {true, false}) {
        Note note;
        QCOMPARE(messageOf([&] {
                     (void)note.SetXmlString("<Note Version=\"5\"><Title>a</Title><X/><Body>b</Body></Note>",
                                             validate);
                 }),
                 QString("Unknown Tag 'X' in 'Note'."));
        QCOMPARE(note.fields(), (QStringList{"5", QString(), "a", QString()}));
    }
}

void XmlReadingTest::readingNeverResets()
{
    Note note("title", "body");
    note.label = "blue";
    QVERIFY(note.SetXmlString("<Note Version=\"1.0\"><Body>new</Body></Note>", true));
    QCOMPARE(note.fields(), (QStringList{"1.0", "blue", "title", "new"}));

    QVERIFY(note.SetXmlString("<Note/>", true));
    QCOMPARE(note.fields(), (QStringList{"", "blue", "title", "new"}));

    // A document of an incomplete object is read as any other.
    Note incomplete;
    QVERIFY(incomplete.SetXmlString("<Note><Body>new</Body></Note>", true));
    QVERIFY(!incomplete.HasData());
}

QTEST_GUILESS_MAIN(XmlReadingTest)
#include "XmlReadingTest.moc"
