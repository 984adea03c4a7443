#include "tools/SarifLog.h"

#include <tests/support/ToolSupport.h>
#include <tools/FindingRules.h>

#include <QJsonArray>
#include <QRegularExpression>
#include <QStandardPaths>

using namespace KORMAK;
using namespace ToolSupport;

class SarifLogTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isValid_data();
    void isValid();
    void tellsAllFindings();
    void result();
    void uris_data();
    void uris();
    void namesThatAreNotUtf8();
    void rules();
    void status_data();
    void status();
};

namespace {

/// The run in the log that a check makes.
QJsonObject runIn(const QString &log)
{
    return QJsonDocument::fromJson(log.toUtf8()).object()["runs"].toArray().at(0).toObject();
}

} // namespace

void SarifLogTest::isValid_data()
{
    QTest::addColumn<QStringList>("paths");

    QTest::newRow("all examples") << QStringList{"-r", EXAMPLES_DIR};
    QTest::newRow("nothing to tell") << QStringList{EXAMPLES_DIR "/jobs/antenna.xml"};
    QTest::newRow("no such file") << QStringList{"none", "none, too: \"1\"\n%.xml"};
    QTest::newRow("no file in a folder") << QStringList{"."};
}

void SarifLogTest::isValid()
{
    QFETCH(QStringList, paths);

    const Run log = Folder().run(QStringList{"check", "--format", "sarif"} + paths);
    QCOMPARE(log.err, QString());
    QVERIFY(!runIn(log.out).isEmpty());

    const QString python = QStandardPaths::findExecutable("python3");
    QProcess validator;
    validator.start(python,
                    {"-c",
                     "import json, sys\n"
                     "try:\n"
                     "    import jsonschema\n"
                     "except ImportError:\n"
                     "    sys.exit(77)\n"
                     "schema = json.load(open(sys.argv[1], encoding='utf-8'))\n"
                     "jsonschema.validate(json.load(sys.stdin.buffer), schema)\n",
                     SOURCE_DIR "/tests/sarif/sarif-2.1.0-rtm.5.json"});
    const Run validation = validator.waitForStarted() ? ended(validator, log.out.toUtf8()) : Run{77, {}, {}};
    if (validation.status == 77) {
        skip("there is no python3 with jsonschema");
        return;
    }
    QVERIFY2(validation.status == 0, qPrintable(validation.err.right(2000)));
}

/// The same as JSON.
void SarifLogTest::tellsAllFindings()
{
    const Folder folder;
    QList<QJsonObject> findings;
    for (const QJsonObject &line :
         jsonLines(folder.run({"check", "--format", "json", "-r", EXAMPLES_DIR}).out)) {
        if (line["type"] == "finding")
            findings << line;
    }
    const QJsonArray results =
        runIn(folder.run({"check", "--format", "sarif", "-r", EXAMPLES_DIR}).out)["results"].toArray();
    QVERIFY(findings.size() > 40);
    QCOMPARE(static_cast<int>(results.size()), static_cast<int>(findings.size()));
    for (int i = 0; i < findings.size(); ++i) {
        const QJsonObject result = results.at(i).toObject();
        const QJsonObject &finding = findings[i];
        QCOMPARE(result["ruleId"], finding["id"]);
        QCOMPARE(result["level"], finding["severity"]);
        QVERIFY(result["message"].toObject()["text"].toString().startsWith(finding["message"].toString()));
        const QJsonObject location = result["locations"].toArray().at(0).toObject();
        const QJsonObject region = location["physicalLocation"].toObject()["region"].toObject();
        QCOMPARE(region["startLine"].toInt(), finding["line"].toInt());
        QCOMPARE(region["startColumn"].toInt(), finding["column"].toInt());
        QCOMPARE(location["logicalLocations"].toArray().at(0).toObject()["fullyQualifiedName"].toString(),
                 finding["path"].toString());
    }
}

void SarifLogTest::result()
{
    const Inspection::FindingData finding{
        0,  "an \"a\"", "Job/@Autor", FindingId::UnknownAttribute, Finding::Severity::Warning,
        {}, {"Version"}};
    const QString withPlace =
        R"x({"ruleId": "unknown-attribute", "ruleIndex": %1, "level": "warning", )x"
        R"x("message": {"text": "an \"a\" (allowed: Version)"}, "locations": [{"physicalLocation": )x"
        R"x({"artifactLocation": {"uri": "a.xml"}, "region": {"startLine": 3, "startColumn": 5}}, )x"
        R"x("logicalLocations": [{"fullyQualifiedName": "Job/@Autor", "kind": "attribute"}]}]})x";
    QCOMPARE(QString(SarifLog::result("a.xml", finding, Inspection::TextPosition{3, 5})),
             withPlace.arg(FindingRules::indexOf(FindingId::UnknownAttribute)));
    const QString withoutPlace =
        R"x({"ruleId": "unreadable", "ruleIndex": %1, "level": "error", "message": {"text": "no"}, )x"
        R"x("locations": [{"physicalLocation": {"artifactLocation": {"uri": "-"}}}]})x";
    const QByteArray unreadable =
        SarifLog::result("-", {0, "no", {}, FindingId::Unreadable, Finding::Severity::Error}, std::nullopt);
    QCOMPARE(QString(unreadable), withoutPlace.arg(FindingRules::indexOf(FindingId::Unreadable)));
}

void SarifLogTest::uris_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("uri");

    QTest::newRow("relative") << "jobs/a.xml"
                              << "jobs/a.xml";
    QTest::newRow("from here") << "./jobs/a.xml"
                               << "jobs/a.xml";
    QTest::newRow("from above") << "../a.xml"
                                << "../a.xml";
    QTest::newRow("absolute") << "/srv/a b.xml"
                              << "file:///srv/a%20b.xml";
    QTest::newRow("special") << "a:b%c#d?e\n.xml"
                             << "a%3Ab%25c%23d%3Fe%0A.xml";
    QTest::newRow("beyond ASCII") << QString::fromUtf8("\xC3\xA4.xml") << "%C3%A4.xml";
}

void SarifLogTest::uris()
{
    QFETCH(QString, path);
    QFETCH(QString, uri);

    const QByteArray result =
        SarifLog::result(path, {0, "a", {}, FindingId::BadValue, Finding::Severity::Error}, std::nullopt);
    const QJsonObject location = QJsonDocument::fromJson(result)
                                     .object()["locations"]
                                     .toArray()
                                     .at(0)
                                     .toObject()["physicalLocation"]
                                     .toObject();
    QCOMPARE(location["artifactLocation"].toObject()["uri"].toString(), uri);
}

void SarifLogTest::namesThatAreNotUtf8()
{
#ifdef Q_OS_UNIX
    QProcess shell;
    shell.start("/bin/sh", {"-c", "'" KORMAK_TOOL "' check --format sarif \"$(printf 'n\\374.xml')\""});
    QVERIFY(ended(shell).out.contains("\"uri\": \"n%FC.xml\""));
#else
    skip("names of files are UTF-8 here");
#endif
}

/// Each id that the help lists, and no other.
void SarifLogTest::rules()
{
    const Folder folder;
    const QString help = folder.run({"check", "--help"}).out;
    const QString list = help.mid(help.indexOf("id is one of ")).section('.', 0, 0).mid(13);
    QCOMPARE(FindingRules::ids(), list.simplified().split(", "));
    QJsonArray told = runIn(folder.run({"check", "--format", "sarif", "none"}).out)["tool"]
                          .toObject()["driver"]
                          .toObject()["rules"]
                          .toArray();
    QCOMPARE(static_cast<int>(told.size()), static_cast<int>(FindingRules::ids().size()));
    for (int i = 0; i < told.size(); ++i) {
        QCOMPARE(told.at(i).toObject()["id"].toString(), FindingRules::ids()[i]);
        QCOMPARE(FindingRules::indexOf(FindingRules::ids()[i]), i);
        QVERIFY(told.at(i).toObject()["shortDescription"].toObject()["text"].toString().endsWith('.'));
    }
    QCOMPARE(FindingRules::indexOf(u"lost"), -1);
}

void SarifLogTest::status_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("status");

    QTest::newRow("good") << QStringList{"good.xml"} << 0;
    QTest::newRow("at fault") << QStringList{"good.xml", "bad.xml"} << 1;
    QTest::newRow("unreadable") << QStringList{"bad.xml", "none.xml"} << 2;
    QTest::newRow("quiet") << QStringList{"-q", "good.xml"} << 0;
}

void SarifLogTest::status()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, status);

    const Folder folder;
    folder.write("good.xml", completeJob());
    folder.write("bad.xml", jobWithoutAuthor());
    const Run run = folder.run(QStringList{"check", "--format", "sarif"} + arguments);
    QCOMPARE(run.status, status);
    const QJsonObject invocation = runIn(run.out)["invocations"].toArray().at(0).toObject();
    QCOMPARE(invocation["exitCode"].toInt(-1), status);
    QCOMPARE(invocation["executionSuccessful"].toBool(), status != 2);
}

QTEST_GUILESS_MAIN(SarifLogTest)
#include "SarifLogTest.moc"
