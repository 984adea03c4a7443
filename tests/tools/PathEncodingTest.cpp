#include "tools/PathEncoding.h"

#include <QtTest>

class PathEncodingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void paths_data();
    void paths();
    void anyBytes();
    void longText();
};

void PathEncodingTest::paths_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<bool>("isUtf8");

    const auto add = [](const char *name, const QByteArray &bytes, const QString &path, const QString &shown,
                        bool isUtf8) { QTest::newRow(name) << bytes << path << shown << isUtf8; };
    const auto byte = [](ushort value) { return QString(QChar(static_cast<ushort>(0xDC00 + value))); };
    const QString umlaut = QString::fromUtf8("\xC3\xBC");
    const QString sign = QString::fromUtf8("\xF0\x9F\x93\xA1");
    const QString mark(QChar(0xFEFF));
    add("empty", "", "", "", true);
    add("ASCII", "jobs/a \\n.xml", "jobs/a \\n.xml", "jobs/a \\n.xml", true);
    add("UTF-8", "\xC3\xBC\xF0\x9F\x93\xA1", umlaut + sign, umlaut + sign, true);
    add("Latin-1",
        "Pr\xFC"
        "fung\xE4.xml",
        "Pr" + byte(0xFC) + "fung" + byte(0xE4) + ".xml", "Pr\\xfcfung\\xe4.xml", false);
    add("part of a character", "\xC3\xBC\xC3", umlaut + byte(0xC3), umlaut + "\\xc3", false);
    add("behind a character of two code units", "\xF0\x9F\x93\xA1\x80", sign + byte(0x80), sign + "\\x80",
        false);
    add("surrogate in UTF-8", "\xED\xB3\xBC", byte(0xED) + byte(0xB3) + byte(0xBC), "\\xed\\xb3\\xbc", false);
    add("byte-order marks",
        "\xEF\xBB\xBF\xEF\xBB\xBF"
        "a\xFF\xEF\xBB\xBF",
        mark + mark + 'a' + byte(0xFF) + mark, "\\ufeff\\ufeffa\\xff\\ufeff", false);
    add("what steers terminals", "a\n\x1B\xFF\n", "a\n\x1B" + byte(0xFF) + '\n', "a\\n\\u001b\\xff\\n",
        false);
}

void PathEncodingTest::paths()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, path);
    QFETCH(QString, shown);
    QFETCH(bool, isUtf8);

    QCOMPARE(PathEncoding::decoded(bytes), path);
    QCOMPARE(PathEncoding::encoded(path), bytes);
    QCOMPARE(PathEncoding::shown(path), shown);
    QCOMPARE(PathEncoding::isUtf8(path), isUtf8);
    QCOMPARE(PathEncoding::fromNative(PathEncoding::toNative(path)), path);
}

/// No two names become one.
void PathEncodingTest::anyBytes()
{
    for (int first = 1; first < 256; ++first) {
        for (int second = 1; second < 256; ++second) {
            const QByteArray bytes{QByteArray(1, static_cast<char>(first)) + static_cast<char>(second)};
            for (const QByteArray &name : {bytes, "\xE2" + bytes, bytes + "\xF0\x9F\x93\xA1"})
                QCOMPARE(PathEncoding::encoded(PathEncoding::decoded(name)), name);
        }
    }
}

/// As long as a call can be.
void PathEncodingTest::longText()
{
    const QByteArray bytes = QByteArray("\xFC\xC3\xBC").repeated(100000);
    QCOMPARE(PathEncoding::encoded(PathEncoding::decoded(bytes)), bytes);
}

QTEST_GUILESS_MAIN(PathEncodingTest)
#include "PathEncodingTest.moc"
