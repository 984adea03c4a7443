#include <tests/support/ToolSupport.h>

#include <QtTest>

using namespace ToolSupport;

class LimitOptionsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void limits_data();
    void limits();
    void ordinaryDocumentsMeetNone();
    void wrongNumbers_data();
    void wrongNumbers();
};

namespace {

QString receiver(const QString &script)
{
    return "<GenericReceiver Version=\"1.0\"><Script>" + script + "</Script></GenericReceiver>";
}

QString attributes(int count)
{
    QString element = "<a";
    for (int i = 0; i < count; ++i)
        element += QString(" b%1=\"\"").arg(i);
    return receiver(element + "/>");
}

/// So many elements in one another.
QString nested(int depth)
{
    const int inScript = depth - 2;
    return receiver(QString("<a>").repeated(inScript) + QString("</a>").repeated(inScript));
}

/// References that stand for so many characters together.
QString expanded(int characters)
{
    return "<!DOCTYPE GenericReceiver [<!ENTITY e \"0123456789\">]>"
        + receiver(QString("&e;").repeated(characters / 10));
}

} // namespace

void LimitOptionsTest::limits_data()
{
    QTest::addColumn<QString>("within");
    QTest::addColumn<QString>("beyond");
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("message");

    QTest::newRow("attributes, as usual")
        << attributes(100) << attributes(101) << QString() << "An element has more than 100 attributes.";
    QTest::newRow("attributes, fewer") << attributes(3) << attributes(4) << "--limit-attributes=3"
                                       << "An element has more than 3 attributes.";
    QTest::newRow("attributes, more") << attributes(500) << attributes(501) << "--limit-attributes=500"
                                      << "An element has more than 500 attributes.";
    QTest::newRow("depth, as usual") << nested(1000) << nested(1001) << QString()
                                     << "Elements stand more than 1000 deep in one another.";
    QTest::newRow("depth, fewer") << nested(5) << nested(6) << "--limit-depth=5"
                                  << "Elements stand more than 5 deep in one another.";
    QTest::newRow("depth, more") << nested(3000) << nested(3001) << "--limit-depth=3000"
                                 << "Elements stand more than 3000 deep in one another.";
    QTest::newRow("entities, as usual") << expanded(1048570) << expanded(1048580) << QString()
                                        << "Entities stand for more than 1048576 characters.";
    QTest::newRow("entities, fewer") << expanded(20) << expanded(30) << "--limit-entities=20"
                                     << "Entities stand for more than 20 characters.";
    QTest::newRow("entities, more") << expanded(2000000) << expanded(2000010) << "--limit-entities=2000000"
                                    << "Entities stand for more than 2000000 characters.";
}

void LimitOptionsTest::limits()
{
    QFETCH(QString, within);
    QFETCH(QString, beyond);
    QFETCH(QString, option);
    QFETCH(QString, message);
    const Folder folder;
    folder.write("within.xml", within.toUtf8());
    folder.write("beyond.xml", beyond.toUtf8());
    const QStringList options = option.isEmpty() ? QStringList() : QStringList{option};
    for (const QStringList &command :
         {QStringList{"check"}, QStringList{"show"}, QStringList{"diff", "within.xml"}}) {
        const Run good = folder.run(command + options + QStringList{"within.xml"});
        QVERIFY2(!good.err.contains("limit"), qPrintable(good.err));
        QCOMPARE(good.status, 0);
        const Run bad = folder.run(command + options + QStringList{"beyond.xml"});
        QCOMPARE(bad.status, command.first() == "diff" ? 2 : 1);
        QVERIFY2(bad.err.startsWith("beyond.xml:1:")
                     && bad.err.contains(": error: " + message + " (--limit-"),
                 qPrintable(bad.err));
    }
    const Run json =
        folder.run(QStringList{"check", "--format", "json"} + options + QStringList{"beyond.xml"});
    QVERIFY2(json.out.contains("\"id\": \"beyond-limit\""), qPrintable(json.out));
    const Run format = folder.run(QStringList{"format", "--in-place"} + options + QStringList{"beyond.xml"});
    QCOMPARE(format.status, 1);
    QVERIFY(format.err.contains(message));
    QCOMPARE(folder.read("beyond.xml"), beyond);
}

void LimitOptionsTest::ordinaryDocumentsMeetNone()
{
    const Folder folder;
    const Run run = folder.run({"check", "-r", EXAMPLES_DIR});
    QVERIFY(!run.err.contains("--limit-"));
    QVERIFY(run.out.contains("good"));
}

void LimitOptionsTest::wrongNumbers_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("number");
    QTest::newRow("no number") << "limit-depth"
                               << "deep";
    QTest::newRow("negative") << "limit-entities"
                              << "-1";
    QTest::newRow("beyond 32 bits") << "limit-attributes"
                                    << "4294967296";
    QTest::newRow("beyond 64 bits") << "limit-entities"
                                    << "9223372036854775808";
    QTest::newRow("empty") << "limit-depth"
                           << "";
}

void LimitOptionsTest::wrongNumbers()
{
    QFETCH(QString, option);
    QFETCH(QString, number);
    const Run run = Folder().run({"check", "--" + option + '=' + number, "none.xml"});
    QCOMPARE(run.status, 2);
    QCOMPARE(run.err.section('\n', 0, 0),
             QString("kormak check: --%1 takes a number from 0, not '%2'").arg(option, number));
}

QTEST_GUILESS_MAIN(LimitOptionsTest)
#include "LimitOptionsTest.moc"
