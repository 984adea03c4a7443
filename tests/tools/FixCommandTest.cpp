#include <tests/support/ToolSupport.h>

using namespace ToolSupport;

class FixCommandTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void corrected_data();
    void corrected();
    void uncertain_data();
    void uncertain();
    void certainBesideUncertain();
    void everythingCertain();
    void targets();
};

void FixCommandTest::corrected_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QByteArray>("result");

    const auto add = [](const char *name, const QByteArray &document, const QByteArray &result) {
        QTest::newRow(name) << document << result;
    };
    add("name in another case", jobWith(">Antenna</JobType", ">ANTENNA</JobType"), completeJob());
    add("name a letter away", jobWith(">Antenna</Res", ">Antena</Res"), completeJob());
    add("tag in another case", jobWith("<Author>Mara Lind</Author>", "<author>Mara Lind</author>"),
        completeJob());
    add("root tag in another case", completeJob().replace("<Job ", "<job ").replace("</Job>", "</job>"),
        completeJob());
    add("root tag in another case, and what is found then",
        jobWith("<Author>Mara Lind</Author>", "<author>Mara Lind</author>")
            .replace("<Job ", "<k:JOB xmlns:k='u' ")
            .replace("</Job>", "</k:JOB>"),
        completeJob().replace("<Job ", "<k:Job xmlns:k='u' ").replace("</Job>", "</k:Job>"));
    add("tag with a prefix in another case",
        jobWith("<Author>Mara Lind</Author>", "<k:author xmlns:k=\"u\">Mara Lind</k:author >"),
        jobWith("<Author>Mara Lind</Author>", "<k:Author xmlns:k=\"u\">Mara Lind</k:Author >"));
    add("tag in another case, with what is found in it then",
        jobWith("<Author>Mara Lind</Author>", "<author>Mara Lind</author>")
            .replace("<JobHeader ", "<jobHeader ")
            .replace("</JobHeader>", "</jobHeader>"),
        completeJob());
    add("name that asks for more",
        jobWith(">Antenna</Res", ">antenna</Res")
            .replace("<Name>East", "<name>East")
            .replace("East</Name>", "East</name>"),
        completeJob());
    add("attribute in another case", completeParameter().replace("UniqueName", "uniquename"),
        completeParameter());
    add("comma in a number", jobWith(">1500000<", ">1500000,5<"), jobWith(">1500000<", ">1500000.5<"));
    add("time in another form", jobWith("2026-03-29T00:59:59,250Z", "2026-03-29 00:59:59.250Z"),
        completeJob());
    add("several, one found after the other",
        jobWith("<Author>Mara Lind</Author>", "<author>Mara Lind</author>")
            .replace("<Name>East</Name>", "<name>East</name>"),
        completeJob());
    add("mode that stands where it is not read",
        "<AutomaticWorkflow Version=\"1.0\" Mode=\"ManualMode\">\n    "
        "<Classifiers>2</Classifiers>\n</AutomaticWorkflow>\n",
        "<AutomaticWorkflow Version=\"1.0\">\n    <Mode>ManualMode</Mode>\n    <Classifiers>2</Classifiers>\n"
        "</AutomaticWorkflow>\n");
    add("nothing to do", completeJob(), completeJob());
    add("layout, comments and mark stay",
        "\xEF\xBB\xBF"
            + jobWith(">Antenna</JobType", "> antenna </JobType")
                  .replace("\n", "\r\n")
                  .replace("<Author>", "<!--a--><Author>"),
        "\xEF\xBB\xBF" + completeJob().replace("\n", "\r\n").replace("<Author>", "<!--a--><Author>"));
}

void FixCommandTest::corrected()
{
    QFETCH(QByteArray, document);
    QFETCH(QByteArray, result);

    Folder folder;
    folder.write("in.xml", document);
    const Run run = folder.run({"fix", "in.xml", "-o", "out.xml"});
    QCOMPARE(folder.read("out.xml"), QString::fromUtf8(result));
    QCOMPARE(run.out, QString());
    QCOMPARE(run.err.contains(": corrected: "), document != result);
    QVERIFY2(!run.err.contains(": error: ") && !run.err.contains(": warning: "), qPrintable(run.err));
    QCOMPARE(run.status, 0);
    // Nothing is left to do.
    QCOMPARE(folder.run({"fix", "out.xml"}).out, QString::fromUtf8(result));
}

void FixCommandTest::uncertain_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("remaining");
    QTest::addColumn<int>("status");

    QTest::newRow("unit in a number") << jobWith(">1500000<", ">1.5 MHz<")
                                      << "12:9: warning: Job/AntennaData/MinimumFrequency: \"1.5 MHz\"" << 0;
    QTest::newRow("comma that may stand between thousands")
        << jobWith(">1500000<", ">1,500<") << "12:9: warning: Job/AntennaData/MinimumFrequency: \"1,500\""
        << 0;
    QTest::newRow("missing") << jobWith("<Author>Mara Lind</Author>", "")
                             << "3:5: error: Job/JobHeader/Author: missing" << 1;
    QTest::newRow("unknown element") << jobWith("<Author>", "<Priority/><Author>")
                                     << "5:9: error: Job/JobHeader/Priority: unknown element" << 1;
    QTest::newRow("block whose correction would show an unknown element")
        << completeParameter().replace("</Parameter>", "<DoubleList/><Colour/></Parameter>")
        << "12:1: warning: Parameter[Gain]/DoubleList: a block" << 0;
    const QByteArray twice =
        "<AutomaticWorkflow Version=\"1.0\" Mode=\"ManualMode\"><mode>AutomaticMode</mode>"
        "</AutomaticWorkflow>\n";
    QTest::newRow("two that say the same field")
        << twice << "1:1: warning: AutomaticWorkflow/@Mode: is not read: the mode is read from an element"
        << 1;
    const QByteArray text = QByteArray(completeParameter()).replace("Integer", "String");
    const auto textWith = [&text](const QByteArray &blocks) {
        return text.left(text.indexOf("<String>")) + blocks + text.mid(text.indexOf("</String>") + 9);
    };
    QTest::newRow("two blocks that say the same field")
        << textWith("<String Default=\"x\"/><String><Default>q</Default></String>")
        << "7:5: warning: Parameter[Gain]/String/@Default: is not read" << 0;
    QTest::newRow("two blocks that do not say the same field")
        << textWith("<String Default=\"x\"/><String Default=\"y\"/>")
        << "7:5: warning: Parameter[Gain]/String/@Default: is not read" << 0;
    QTest::newRow("number that is refused")
        << jobWith(">1500000<", ">-0,5<") << "12:9: warning: Job/AntennaData/MinimumFrequency: \"-0,5\"" << 0;
    QTest::newRow("number that makes another one refused")
        << jobWith(">1500000<", ">40000000,5<")
        << "12:9: warning: Job/AntennaData/MinimumFrequency: \"40000000,5\"" << 0;
    const QByteArray parameter = "<Parameter UniqueName=\"a\"><RepresentationName>r</RepresentationName>"
                                 "<ValueType>ValueString</ValueType><ParameterType>String</ParameterType>"
                                 "<String><Default>x</Default></String></Parameter>\n";
    QTest::newRow("tag by which a parameter takes the place of another one")
        << "<GenericReceiver Version=\"1.0\">\n" + parameter
            + QByteArray(parameter)
                  .replace("<Parameter ", "<parameter ")
                  .replace("</Parameter>", "</parameter>")
            + "</GenericReceiver>\n"
        << "3:1: error: GenericReceiver/parameter[a]: unknown element" << 1;
    QTest::newRow("not well-formed") << QByteArray("<Job>") << "1:6: error: " << 1;
}

void FixCommandTest::uncertain()
{
    QFETCH(QByteArray, document);
    QFETCH(QString, remaining);
    QFETCH(int, status);

    Folder folder;
    folder.write("in.xml", document);
    const Run run = folder.run({"fix", "--in-place", "in.xml"});
    QVERIFY2(run.err.startsWith("in.xml:" + remaining), qPrintable(run.err));
    QCOMPARE(run.out, QString());
    QCOMPARE(run.status, status);
    QCOMPARE(folder.read("in.xml"), QString::fromUtf8(document));
}

/// What does not go together with something else is left, and nothing else.
void FixCommandTest::certainBesideUncertain()
{
    Folder folder;
    const QByteArray left = jobWith(">1500000<", ">40000000,5<");
    folder.write("in.xml",
                 QByteArray(left)
                     .replace(">Antenna</JobType", ">antenna</JobType")
                     .replace("</MaximumFrequency>", "</MaximumFrequency><Azimuth>4,5</Azimuth>"));
    const Run run = folder.run({"fix", "--in-place", "in.xml"});
    QCOMPARE(folder.read("in.xml"),
             QString::fromUtf8(QByteArray(left).replace("</MaximumFrequency>",
                                                        "</MaximumFrequency><Azimuth>4.5</Azimuth>")));
    QCOMPARE(run.err.count(": corrected: "), 2);
    QVERIFY2(run.err.contains("in.xml:12:9: warning: Job/AntennaData/MinimumFrequency: \"40000000,5\""),
             qPrintable(run.err));
    QCOMPARE(run.status, 0);
}

/// What is certain is put right even where something else is not.
void FixCommandTest::everythingCertain()
{
    Folder folder;
    folder.write("in.xml",
                 jobWith(">Antenna</JobType", ">antenna</JobType").replace(">1500000<", ">1.5 MHz<"));
    const Run run = folder.run({"fix", "--in-place", "in.xml"});
    QCOMPARE(run.out, QString("in.xml\n"));
    QVERIFY2(run.err.startsWith("in.xml:4:9: corrected: Job/JobHeader/JobType: \"antenna\""),
             qPrintable(run.err));
    QVERIFY2(run.err.contains("in.xml:12:9: warning: Job/AntennaData/MinimumFrequency"), qPrintable(run.err));
    QCOMPARE(run.status, 0);
    QCOMPARE(folder.read("in.xml"), QString::fromUtf8(jobWith(">1500000<", ">1.5 MHz<")));
}

void FixCommandTest::targets()
{
    Folder folder;
    folder.write("a.xml", jobWith(">Antenna</JobType", ">antenna</JobType"));
    folder.write("b.xml", completeJob());
    const Run dry = folder.run({"fix", "--dry-run", "a.xml", "b.xml"});
    QVERIFY2(dry.out.startsWith("--- a.xml\n+++ a.xml\n@@ -1,7 +1,7 @@\n"), qPrintable(dry.out));
    QVERIFY(dry.out.contains("-        <JobType>antenna</JobType>\n+        <JobType>Antenna</JobType>\n"));
    QVERIFY(!dry.out.contains("b.xml"));
    QVERIFY(folder.read("a.xml").contains("antenna"));
    QCOMPARE(folder.run({"fix", "a.xml", "b.xml"}).status, 2);
    QCOMPARE(folder.run({"fix", "none.xml"}).err,
             QString("none.xml: error: cannot be read: No such file or directory\n"));
}

QTEST_GUILESS_MAIN(FixCommandTest)
#include "FixCommandTest.moc"
