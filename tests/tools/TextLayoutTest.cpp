#include "tools/TextLayout.h"

#include <QtTest>

class TextLayoutTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void twoColumns();
    void wrapped_data();
    void wrapped();
};

void TextLayoutTest::twoColumns()
{
    QCOMPARE(TextLayout::twoColumns({{"a", "1"}, {"long", "2 3"}, {"", "4"}}, "  "),
             QString("  a     1\n  long  2 3\n        4\n"));
    QCOMPARE(TextLayout::twoColumns({{"a", "1"}}), QString("a  1\n"));
    QCOMPARE(TextLayout::twoColumns({}), QString());
}

void TextLayoutTest::wrapped_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("lines");

    const QString half(39, 'x');
    QTest::newRow("short") << "a b"
                           << "a b\n";
    QTest::newRow("as long as a line") << half + ' ' + half << half + ' ' + half + '\n';
    QTest::newRow("longer") << half + ' ' + half + 'x' << half + '\n' + half + "x\n";
    QTest::newRow("one word") << QString(100, 'x') + " a" << QString(100, 'x') + "\na\n";
    QTest::newRow("paragraphs") << "a\n\nb"
                                << "a\n\nb\n";
    QTest::newRow("as it stands") << "  " + half + "  " + half << "  " + half + "  " + half + '\n';
}

void TextLayoutTest::wrapped()
{
    QFETCH(QString, text);
    QFETCH(QString, lines);

    QCOMPARE(TextLayout::wrapped(text), lines);
}

QTEST_GUILESS_MAIN(TextLayoutTest)
#include "TextLayoutTest.moc"
