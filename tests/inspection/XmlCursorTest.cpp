#include "inspection/XmlCursor_p.h"

#include <QtTest>

using namespace KORMAK::Inspection;

class XmlCursorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void order_data();
    void order();
    void skipping();
    void brokenText_data();
    void brokenText();
};

namespace {

/// The starts and ends that a cursor comes to.
QString stepsOf(const XmlTree &tree)
{
    XmlCursor cursor(tree);
    QString steps;
    do
        steps += (cursor.isAtEnd() ? "/" : "") + tree.name(cursor.element()) + ' ';
    while (cursor.next());
    return steps.trimmed();
}

} // namespace

void XmlCursorTest::order_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("steps");

    QTest::newRow("one element") << "<a/>"
                                 << "a /a";
    QTest::newRow("children") << "<a>1<b/>2<c>3</c></a>"
                              << "a b /b c /c /a";
    QTest::newRow("nested") << "<a><b><c/></b><d><e/><f/></d></a>"
                            << "a b c /c /b d e /e f /f /d /a";
    QTest::newRow("broken off") << "<a><b><c/><d>"
                                << "a b c /c d /d /b /a";
}

void XmlCursorTest::order()
{
    QFETCH(QString, text);
    QFETCH(QString, steps);

    QCOMPARE(stepsOf(XmlTree(text.toUtf8())), steps);
}

void XmlCursorTest::skipping()
{
    const XmlTree tree("<a><b><c/></b><d/></a>");
    XmlCursor cursor(tree);
    QVERIFY(cursor.next());
    cursor.skip();
    QVERIFY(cursor.isAtEnd());
    QCOMPARE(tree.name(cursor.element()), QString("b"));
    QVERIFY(cursor.next());
    QCOMPARE(tree.name(cursor.element()), QString("d"));
    QVERIFY(!cursor.isAtEnd());
}

void XmlCursorTest::brokenText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isBroken");
    QTest::addColumn<QString>("brokenIn");

    QTest::newRow("whole") << "<a><b/></a>" << false << "";
    QTest::newRow("in a text") << "<a><b>x" << true << "a/b";
    QTest::newRow("between elements") << "<a><b/>" << true << "a";
    QTest::newRow("wrong end") << "<a><b></a>" << true << "a/b";
    QTest::newRow("behind the root") << "<a/>x" << true << "";
    QTest::newRow("nothing") << "" << true << "";
    QTest::newRow("namespace declared twice in the root") << "<a xmlns='x' xmlns='x'/>" << true << "";
    QTest::newRow("namespace declared twice in a child")
        << "<a><b xmlns:p='x' c='1' xmlns:p='y'><d/></b></a>" << true << "a";
    QTest::newRow("namespace declared twice in an entity")
        << "<!DOCTYPE a [<!ENTITY e \"<b xmlns='x' xmlns='x'/>\">]><a>&e;</a>" << true << "a";
    QTest::newRow("one namespace declared in two elements")
        << "<a xmlns='x'><b xmlns='x'/></a>" << false << "";
    QTest::newRow("attribute given twice by two prefixes")
        << "<a xmlns:p='x' xmlns:q='x'><b p:c='' q:c=''/></a>" << true << "a";
    QTest::newRow("unknown prefix") << "<a><p:b/></a>" << true << "a";
}

void XmlCursorTest::brokenText()
{
    QFETCH(QString, text);
    QFETCH(bool, isBroken);
    QFETCH(QString, brokenIn);

    const XmlTree tree(text.toUtf8());
    QCOMPARE(tree.isBroken(), isBroken);
    QCOMPARE(tree.path(tree.brokenIn()), brokenIn);
    QVERIFY(tree.hasRoot() || isBroken);
}

QTEST_GUILESS_MAIN(XmlCursorTest)
#include "XmlCursorTest.moc"
