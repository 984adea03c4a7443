// What the fuzzers change documents by.
#include <fuzz/XmlMutations.h>

#include <QtTest>
#include <QXmlStreamReader>

using Fuzz::XmlMutation;

class XmlMutationsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void changesDocuments_data();
    void changesDocuments();
    void takesAnyBytes();
};

namespace {

constexpr unsigned int Seeds = 200;

/// All kinds of tokens, and twice what mutations add.
const QByteArray Documents[] = {
    "<?xml version=\"1.0\"?>\n<Area Version=\"1.0\"><!--a--><Name x=\"'\">b</Name>\n<Coordinate/></Area>\n",
    "\xEF\xBB\xBF<!DOCTYPE a [<!ENTITY b \"c\">]><a><b xmlns:p=\"urn:p\"><![CDATA[<]]>d&b;</b><?e f?><b>g "
    "&amp; h</b></a>",
    "<a><b><b>1</b></b><c d=\"e\" f='g'>h</c></a>",
};

QString errorIn(const QByteArray &xml)
{
    QXmlStreamReader reader(xml);
    while (!reader.atEnd())
        reader.readNext();
    return reader.errorString();
}

XmlMutation mutationAt(int index)
{
    return static_cast<XmlMutation>(index);
}

} // namespace

void XmlMutationsTest::changesDocuments_data()
{
    QTest::addColumn<int>("mutation");
    QTest::addColumn<QByteArray>("mark"); // what some of the changed documents hold

    const auto row = [](const char *name, XmlMutation mutation, const QByteArray &mark) {
        QTest::newRow(name) << static_cast<int>(mutation) << mark;
    };
    row("namespace", XmlMutation::DeclareNamespace, "<Name xmlns:x=\"urn:x\"");
    row("prefix", XmlMutation::AddPrefix, "<p:Name xmlns:p=\"urn:p\" x=\"'\">b</p:Name>");
    row("document type", XmlMutation::AddDocumentType, "<?xml version=\"1.0\"?><!DOCTYPE a [<!ENTITY");
    row("entity", XmlMutation::ReferToEntity, "<!DOCTYPE a [<!ENTITY b \"b\">]>\n<Area");
    row("entity in place of the text", XmlMutation::ReferToEntity, "<Name x=\"'\">&b;</Name>");
    row("character", XmlMutation::ReferToCharacter, "<Name x=\"'\">&#98;</Name>");
    row("CDATA", XmlMutation::WrapInCData, "<Name x=\"'\"><![CDATA[b]]></Name>");
    row("comment", XmlMutation::AddComment, "<!-- --><Coordinate/>");
    row("instruction", XmlMutation::AddInstruction, "<?a b?></Name>");
    row("blanks", XmlMutation::AddBlanks, "<Name x=\"'\"> \nb\t </Name>");
    row("declaration", XmlMutation::AddDeclaration, "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n<Area");
    row("byte-order mark", XmlMutation::AddByteOrderMark, "\xEF\xBB\xBF<?xml");
    row("encoding", XmlMutation::Encode, QByteArray("\xFE\xFF\0<", 4));
    row("repeated element", XmlMutation::RepeatElement, "<Coordinate/><Coordinate/>");
    row("no element", XmlMutation::RemoveElement, "</Name>\n</Area>");
    row("wrapped element", XmlMutation::WrapElement, "<Unknown><Coordinate/></Unknown>");
    row("attribute", XmlMutation::AddAttribute, "<Coordinate Mode=\"ManualMode\"/>");
    row("no attribute", XmlMutation::RemoveAttribute, "<Area><!--a-->");
    QCOMPARE(static_cast<int>(XmlMutation::Last), static_cast<int>(XmlMutation::RemoveAttribute));
}

void XmlMutationsTest::changesDocuments()
{
    QFETCH(int, mutation);
    QFETCH(QByteArray, mark);

    bool isMarked = false;
    for (const QByteArray &document : Documents) {
        QCOMPARE(errorIn(document), QString());
        for (unsigned int seed = 0; seed < Seeds; ++seed) {
            const QByteArray changed = Fuzz::mutated(document, mutationAt(mutation), seed);
            QCOMPARE(changed, Fuzz::mutated(document, mutationAt(mutation), seed));
            isMarked = isMarked || changed.contains(mark);
            if (Fuzz::keepsWellFormed(mutationAt(mutation)))
                QVERIFY2(errorIn(changed).isEmpty(), errorIn(changed).toUtf8() + '\n' + changed);
        }
    }
    QVERIFY(isMarked);
}

/// What other mutations leave behind may be cut anywhere.
void XmlMutationsTest::takesAnyBytes()
{
    for (const QByteArray &document : Documents) {
        for (int size = 0; size < document.size(); ++size) {
            for (int i = 0; i <= static_cast<int>(XmlMutation::Last); ++i) {
                for (unsigned int seed = 0; seed < 5; ++seed) {
                    const QByteArray changed = Fuzz::mutated(document.left(size), mutationAt(i), seed);
                    QVERIFY(changed.size() < 4 * document.size());
                    (void)Fuzz::mutated(document.mid(size), mutationAt(i), seed);
                }
            }
        }
    }
}

QTEST_GUILESS_MAIN(XmlMutationsTest)
#include "XmlMutationsTest.moc"
