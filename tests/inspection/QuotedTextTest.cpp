#include "inspection/QuotedText_p.h"

#include <QtTest>

using namespace KORMAK::Inspection;

class QuotedTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void oneLine_data();
    void oneLine();
    void shortened_data();
    void shortened();
};

void QuotedTextTest::oneLine_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("line");

    const auto add = [](const char *name, const QString &text, const QString &line) {
        QTest::newRow(name) << text << line;
    };
    const QString plain = QString::fromUtf8("M\xC3\xA4r \\n \xF0\x9F\x93\xA1");
    add("empty", "", "");
    add("nothing to escape", plain, plain);
    add("ends of lines", "a\r\nb", "a\\r\\nb");
    add("control characters", QString("\t\x1B[2J\x7F") + QChar(0x9B), "\\t\\u001b[2J\\u007f\\u009b");
    add("separators", QString("a") + QChar(0x2028) + QChar(0x2029), "a\\u2028\\u2029");
    add("direction of writing", QString("a") + QChar(0x202E) + "lmx" + QChar(0x2066) + QChar(0x200F),
        "a\\u202elmx\\u2066\\u200f");
    add("what is not seen", QString("a") + QChar(0x200B) + QChar(0xFEFF) + QChar(0xAD),
        "a\\u200b\\ufeff\\u00ad");
    add("what is not seen, of two code units", QString::fromUtf8("a\xF3\xA0\x81\x81z"), "a\\udb40\\udc41z");
    add("halves of characters", QString(QChar(0xDC00)) + "a" + QChar(0xD800), "\\udc00a\\ud800");
    add("at both ends", "\na\n", "\\na\\n");
}

void QuotedTextTest::oneLine()
{
    QFETCH(QString, text);
    QFETCH(QString, line);

    QCOMPARE(KORMAK::Inspection::oneLine(text), line);
    QCOMPARE(quoted(text), '"' + line + '"');
}

void QuotedTextTest::shortened_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");

    const QString end(QChar(0x2026));
    const QString sign = QString::fromUtf8("\xF0\x9F\x93\xA1");
    QTest::newRow("longest") << QString(200, 'a') << QString(200, 'a');
    QTest::newRow("longer") << QString(201, 'a') << QString(200, 'a') + end;
    QTest::newRow("character of two code units at the end")
        << QString(199, 'a') + sign << QString(199, 'a') + end;
    QTest::newRow("character of two code units before the end")
        << QString(198, 'a') + sign + 'b' << QString(198, 'a') + sign + end;
}

void QuotedTextTest::shortened()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);

    QCOMPARE(KORMAK::Inspection::shortened(text), expected);
}

QTEST_GUILESS_MAIN(QuotedTextTest)
#include "QuotedTextTest.moc"
