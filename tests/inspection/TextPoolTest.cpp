#include "inspection/TextPool_p.h"

#include <QStringList>
#include <QtTest>

using namespace KORMAK::Inspection;

class TextPoolTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void texts_data();
    void texts();
    void manyTexts();
    void equalTextsShareAPlace();
};

void TextPoolTest::texts_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("empty") << QString();
    QTest::newRow("letter") << "a";
    QTest::newRow("last of one byte") << QString(QChar(0xFF));
    QTest::newRow("first of two bytes") << QString(QChar(0x100));
    QTest::newRow("byte-order mark") << QString(QChar(0xFEFF)) + "a";
    QTest::newRow("no character") << QString(QChar(0xFFFF));
    QTest::newRow("two units") << QString::fromUtf8("\xF0\x9D\x84\x9E");
    for (const int length : {126, 127, 128, 100'000}) {
        QTest::newRow(qPrintable(QString("%1 of one byte").arg(length))) << QString(length, 'x');
        QTest::newRow(qPrintable(QString("%1 of two bytes").arg(length))) << QString(length, QChar(0x3A9));
    }
}

void TextPoolTest::texts()
{
    QFETCH(QString, text);

    TextPool pool;
    QVERIFY(pool.put(u"before") != TextPool::Empty);
    const TextPool::Id id = pool.put(text);
    QVERIFY(pool.put(u"behind") != id);
    QCOMPARE(pool.text(id), text);
    TextPool::Room room;
    QCOMPARE(pool.text(id, room).toString(), text);
    QCOMPARE(pool.text(id, room).isNull(), text.isEmpty());
    QCOMPARE(id == TextPool::Empty, text.isEmpty());
}

/// More than there is room for where recent ones are looked up, and than fit into one piece of memory.
void TextPoolTest::manyTexts()
{
    constexpr int Count = 100'000;
    const auto textOf = [](int number) {
        return QString::number(number) + QString(number % 100, number % 3 == 0 ? QChar(0x3A9) : QChar('x'));
    };
    TextPool pool;
    std::vector<TextPool::Id> ids;
    for (int i = 0; i < Count; ++i)
        ids.push_back(pool.put(textOf(i)));
    for (int i = 0; i < Count; ++i)
        QCOMPARE(pool.text(ids[static_cast<std::size_t>(i)]), textOf(i));
}

void TextPoolTest::equalTextsShareAPlace()
{
    TextPool pool;
    const TextPool::Id id = pool.put(u"true");
    QVERIFY(pool.put(u"false") != id);
    QCOMPARE(pool.put(u"true"), id);
    QVERIFY(pool.put(QString::fromUtf8("tru\xC4\x95")) != id);
}

QTEST_GUILESS_MAIN(TextPoolTest)
#include "TextPoolTest.moc"
