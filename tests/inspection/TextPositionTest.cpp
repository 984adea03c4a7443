#include "inspection/TextPosition_p.h"

#include <QtTest>

using namespace KORMAK::Inspection;

class TextPositionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void position_data();
    void position();
    void inAnyOrder();
};

void TextPositionTest::position_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("offset");
    QTest::addColumn<QString>("position");

    QTest::newRow("start") << QByteArray("ab") << 0 << "1:1";
    QTest::newRow("of no text") << QByteArray() << 0 << "1:1";
    QTest::newRow("character") << QByteArray("ab") << 1 << "1:2";
    QTest::newRow("end") << QByteArray("ab") << 2 << "1:3";
    QTest::newRow("behind the end") << QByteArray("ab") << 9 << "1:3";
    QTest::newRow("line feed itself") << QByteArray("a\nb") << 1 << "1:2";
    QTest::newRow("behind a line feed") << QByteArray("a\nb") << 2 << "2:1";
    QTest::newRow("behind a carriage return") << QByteArray("a\rb") << 2 << "2:1";
    QTest::newRow("behind both") << QByteArray("a\r\nb") << 3 << "2:1";
    QTest::newRow("behind several") << QByteArray("\n\r\r\n\nb") << 5 << "5:1";
    QTest::newRow("behind two bytes") << QByteArray("\xC3\xA4z") << 2 << "1:2";
    QTest::newRow("behind four bytes") << QByteArray("\xF0\x9D\x84\x9Ez") << 4 << "1:2";
}

void TextPositionTest::position()
{
    QFETCH(QByteArray, text);
    QFETCH(int, offset);
    QFETCH(QString, position);

    QCOMPARE(toText(TextPositions(text).at(offset)), position);
}

void TextPositionTest::inAnyOrder()
{
    TextPositions positions("ab\ncd\nef");
    QStringList found;
    for (const int offset : {7, 7, 4, 5, 0, 8})
        found += toText(positions.at(offset));
    QCOMPARE(found, QStringList({"3:2", "3:2", "2:2", "2:3", "1:1", "3:3"}));
}

QTEST_GUILESS_MAIN(TextPositionTest)

#include "TextPositionTest.moc"
