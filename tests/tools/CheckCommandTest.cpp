#include "ToolSupport.h"

using namespace ToolSupport;

class CheckCommandTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void good_data();
    void good();
    void faulty_data();
    void faulty();
    void notText_data();
    void notText();
    void unreadable_data();
    void unreadable();
    void fileWithoutPermission();
    void namesOfFiles();
    void standardInput();
    void warnings();
    void allFilesAreGoneThrough_data();
    void allFilesAreGoneThrough();
    void largeDocument();
    void deeplyNestedDocument();
};

void CheckCommandTest::good_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("result");

    const QString complete = "job.xml: Job, complete\n";
    QTest::newRow("complete") << completeJob() << complete;
    QTest::newRow("byte-order mark") << "\xEF\xBB\xBF" + completeJob() << complete;
    QTest::newRow("another encoding declared")
        << jobWith("\"1.0\"?>", "\"1.0\" encoding=\"ISO-8859-1\"?>").replace("Mara", "M\xC3\xA4ra")
        << complete;
    QTest::newRow("without declaration") << jobWith("<?xml version=\"1.0\"?>\n", "") << complete;
    QTest::newRow("comments, instructions and a document type")
        << jobWith("<Job Version", "<!-- a --><?b c?><!DOCTYPE Job><Job Version") << complete;
    QTest::newRow("characters of two, three and four bytes")
        << jobWith("Mara Lind",
                   "\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBD\xF0\x90\x80\x80"
                   "\xF4\x8F\xBF\xBD")
        << complete;
    QTest::newRow("accepted, not complete")
        << jobOnDecoder()
        << "job.xml: Job, not complete: the library accepts it but would write nothing for it\n";
    QTest::newRow("workflow") << completeWorkflow() << "job.xml: AutomaticWorkflow, complete\n";
    QTest::newRow("workflow without a strategy")
        << with(completeWorkflow(), "    <SearchStrategy>LowestLevelFirst</SearchStrategy>\n", "")
        << "job.xml: AutomaticWorkflow, not complete: the library accepts it but would write nothing for "
           "it\n";
    QTest::newRow("activity generation") << completeGeneration() << "job.xml: ActivityGeneration, complete\n";
    QTest::newRow("activity generation in the older form")
        << QByteArray("<ActivityGeneration Version='1.0'>AGMC</ActivityGeneration>")
        << "job.xml: ActivityGeneration, complete\n";
    QTest::newRow("receiver") << completeReceiver() << "job.xml: GenericReceiver, complete\n";
    QTest::newRow("receiver without parameters")
        << QByteArray("<GenericReceiver><Script>x</Script></GenericReceiver>")
        << "job.xml: GenericReceiver, complete\n";
    QTest::newRow("receiver with an incomplete parameter")
        << with(completeReceiver(), "        <ValueType>ValueNumericFloat</ValueType>\n", "")
        << "job.xml: GenericReceiver, not complete: the library accepts it but would write nothing for it\n";
    QTest::newRow("parameter") << completeParameter() << "job.xml: Parameter, complete\n";
}

void CheckCommandTest::good()
{
    QFETCH(QByteArray, document);
    QFETCH(QString, result);

    Folder folder;
    folder.write("job.xml", document);
    const Run run = folder.run({"check", "job.xml"});
    QCOMPARE(run.err, QString());
    QCOMPARE(run.out, result);
    QCOMPARE(run.status, 0);
}

void CheckCommandTest::faulty_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("complaint"); // behind the name of the file

    QTest::newRow("unknown element") << jobWith("<Name>East</Name>", "<Nam>East</Nam>")
                                     << "11:9: error: Unknown Tag 'Nam' in 'AntennaData'.";
    QTest::newRow("unknown element with attributes on several lines")
        << jobWith("<ResourceType>", "<Extra\n a='>'\n b='1'/><ResourceType>")
        << "9:5: error: Unknown Tag 'Extra' in 'Job'.";
    QTest::newRow("unknown element behind a comment")
        << jobWith("<ResourceType>", "<!-- <Extra> --><Extra/><ResourceType>")
        << "9:21: error: Unknown Tag 'Extra' in 'Job'.";
    QTest::newRow("unknown element behind characters of several code units")
        << jobWith("<Name>East</Name>", "<Name>\xF0\x9F\x93\xA1\xC3\xA4</Name><Nam/>")
        << "11:24: error: Unknown Tag 'Nam' in 'AntennaData'.";
    QTest::newRow("unknown element behind lines of every end")
        << QByteArray("<Job>\r\n\r<JobHeader>\n  <Foo/>") << "4:3: error: Unknown Tag 'Foo' in 'JobHeader'.";
    QTest::newRow("unknown element behind a byte-order mark")
        << QByteArray("\xEF\xBB\xBF<Job><Foo/></Job>") << "1:6: error: Unknown Tag 'Foo' in 'Job'.";
    QTest::newRow("element in a text")
        << jobWith("Mara Lind", "Mara\n<b>Lind</b>") << "6:1: error: Expected character data.";

    QTest::newRow("field of the header missing")
        << jobWithoutAuthor() << "3:5: error: JobHeader: Please set Author";
    QTest::newRow("field of the antenna missing")
        << jobWith("<Name>East</Name>", "") << "10:5: error: AntennaData: Please set Name";
    QTest::newRow("antenna missing") << QByteArray(completeJob())
                                            .replace("AntennaData Version", "JobHeader Version")
                                            .replace("/AntennaData", "/JobHeader")
                                            .replace("<Name>East</Name>", "<Author>East</Author>")
                                            .replace("MinimumFrequency", "Description")
                                            .replace("MaximumFrequency", "Description")
                                     << "2:1: error: AntennaData: Please set Name";
    QTest::newRow("field of the job missing") << jobWith("    <ResourceType>Antenna</ResourceType>\n", "")
                                              << "2:1: error: Job: Please set ResourceType";
    QTest::newRow("empty job") << QByteArray("\n\n  <Job/>") << "3:3: error: JobHeader: Please set Author";

    QTest::newRow("unknown kind") << QByteArray("<!-- <Job> -->\n <Work a='1'>")
                                  << "2:2: error: unknown kind of document 'Work' (" + knownKinds() + ")";
    QTest::newRow("part of a document")
        << QByteArray("<JobHeader/>")
        << "1:1: error: unknown kind of document 'JobHeader' (" + knownKinds() + ")";
    QTest::newRow("kind in another case")
        << QByteArray("<parameter/>")
        << "1:1: error: unknown kind of document 'parameter' (" + knownKinds() + ")";
    QTest::newRow("empty workflow") << QByteArray("\n<AutomaticWorkflow/>")
                                    << "2:1: error: AutomaticWorkflow: Please set WorkflowMode";
    QTest::newRow("mode of a workflow as an attribute")
        << QByteArray("<AutomaticWorkflow Version='1.0' Mode='ManualMode'/>")
        << "1:1: error: AutomaticWorkflow: Please set WorkflowMode";
    QTest::newRow("unknown element in an area")
        << with(completeWorkflow(), "<Coordinate>", "<Centre/><Coordinate>")
        << "11:9: error: Unknown Tag 'Centre' in 'Area'.";
    QTest::newRow("setting of a workflow out of range")
        << with(completeWorkflow(), "<Classifiers>8<", "<Classifiers>24<")
        << "4:5: error: AutomaticWorkflow: Invalid NumberClassifiers '24'";
    QTest::newRow("empty activity generation")
        << QByteArray("<ActivityGeneration Version='2.2'/>")
        << "1:1: error: ActivityGeneration: Please set ActivityGenerationMode";
    QTest::newRow("empty parameter") << QByteArray("\n  <Parameter/>")
                                     << "2:3: error: Parameter: Please set ParameterType";
    QTest::newRow("unknown element in a parameter")
        << with(completeReceiver(), "        <Float>", "        <Colour/><Float>")
        << "18:9: error: Unknown Tag 'Colour' in 'Parameter'.";
    QTest::newRow("unknown element in a receiver")
        << with(completeReceiver(), "</GenericReceiver>", "<Job/></GenericReceiver>")
        << "25:1: error: Unknown Tag 'Job' in 'GenericReceiver'.";
    QTest::newRow("block of a type with a wrong end tag")
        << with(completeParameter(), "</Maximum>", "</Minimum>")
        << "9:29: error: Opening and ending tag mismatch.";
    QTest::newRow("block of a type cut off")
        << completeParameter().left(completeParameter().indexOf("        <Default>"))
        << "10:1: error: Premature end of document.";
    QTest::newRow("block of a type with an element in a number")
        << with(completeParameter(), ">40<", ">\n <b>40</b><") << "10:2: error: Expected character data.";
    QTest::newRow("block of a type in a receiver with an unknown entity")
        << with(completeReceiver(), ">120.000000<", ">&most;<")
        << "20:27: error: Entity 'most' not declared.";
    QTest::newRow("empty file") << QByteArray() << "1:1: error: Premature end of document.";
    QTest::newRow("no element") << QByteArray("<!-- a -->\n") << "2:1: error: Premature end of document.";
    QTest::newRow("no XML") << QByteArray("Job") << "1:1: error: Start tag expected.";
    QTest::newRow("cut off") << completeJob().left(completeJob().indexOf("    <ResourceType>"))
                             << "9:1: error: Premature end of document.";
    QTest::newRow("wrong end tag") << jobWith("</Name>", "</Nam>")
                                   << "11:24: error: Opening and ending tag mismatch.";
    QTest::newRow("text behind the document") << completeJob() + "x"
                                              << "16:1: error: Extra content at end of document.";
    QTest::newRow("unknown entity") << jobWith("Mara Lind", "Mara &amp; &nobody;")
                                    << "5:35: error: Entity 'nobody' not declared.";
    QTest::newRow("character outside XML")
        << jobWith("Mara Lind", "Mara\x01") << "5:21: error: Unexpected ''.";
}

void CheckCommandTest::faulty()
{
    QFETCH(QByteArray, document);
    QFETCH(QString, complaint);

    Folder folder;
    folder.write("job.xml", document);
    const Run run = folder.run({"check", "job.xml"});
    QCOMPARE(run.err, "job.xml:" + complaint + "\n");
    QCOMPARE(run.out, QString());
    QCOMPARE(run.status, 1);
}

void CheckCommandTest::notText_data()
{
    QTest::addColumn<QByteArray>("text"); // behind four characters of the second line
    QTest::addColumn<QString>("message");

    QTest::newRow("Latin-1") << QByteArray("\xE4r") << "byte 0xe4 is not UTF-8";
    QTest::newRow("continuation alone") << QByteArray("\x80") << "byte 0x80 is not UTF-8";
    QTest::newRow("overlong in two bytes") << QByteArray("\xC1\xBF") << "byte 0xc1 is not UTF-8";
    QTest::newRow("overlong in three bytes") << QByteArray("\xE0\x9F\xBF") << "byte 0xe0 is not UTF-8";
    QTest::newRow("overlong in four bytes") << QByteArray("\xF0\x8F\xBF\xBF") << "byte 0xf0 is not UTF-8";
    QTest::newRow("surrogate") << QByteArray("\xED\xA0\x80") << "byte 0xed is not UTF-8";
    QTest::newRow("behind the last character") << QByteArray("\xF4\x90\x80\x80") << "byte 0xf4 is not UTF-8";
    QTest::newRow("never in UTF-8") << QByteArray("\xFF") << "byte 0xff is not UTF-8";
    QTest::newRow("third byte wrong") << QByteArray("\xE2\x82(") << "byte 0xe2 is not UTF-8";
    QTest::newRow("fourth byte missing") << QByteArray("\xF0\x9F\x93") << "byte 0xf0 is not UTF-8";
    QTest::newRow("NUL") << QByteArray(1, '\0') << "the text holds a NUL byte";
    QTest::newRow("NUL before a wrong byte") << QByteArray("\0\xFF", 2) << "the text holds a NUL byte";
}

void CheckCommandTest::notText()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, message);

    const QByteArray begin = "<Job>\n\xC3\xA4\xF0\x9F\x93\xA1xy";
    for (const QByteArray &end : {QByteArray(), QByteArray("</Job>\xFF")}) {
        Folder folder;
        folder.write("job.xml", begin + text + end);
        const Run run = folder.run({"check", "job.xml"});
        QCOMPARE(run.err, "job.xml:2:5: error: " + message + "\n");
        QCOMPARE(run.status, 1);
    }
}

void CheckCommandTest::unreadable_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason");

    QTest::newRow("missing") << "none.xml"
                             << "No such file or directory";
    QTest::newRow("in a missing folder") << "none/job.xml"
                                         << "No such file or directory";
    QTest::newRow("folder") << "."
                            << "it is a folder";
    QTest::newRow("empty name") << ""
                                << "No file name specified";
    QTest::newRow("below a file") << "job.xml/job.xml"
                                  << "Not a directory";
    QTest::newRow("link to itself") << "loop"
                                    << "Too many levels of symbolic links";
}

void CheckCommandTest::unreadable()
{
    QFETCH(QString, name);
    QFETCH(QString, reason);

    Folder folder;
    folder.write("job.xml", completeJob());
    QVERIFY(QFile::link("loop", folder.path("loop")));
    const Run run = folder.run({"check", name});
    QCOMPARE(run.err, name + ": error: cannot be read: " + reason + "\n");
    QCOMPARE(run.out, QString());
    QCOMPARE(run.status, 2);
}

void CheckCommandTest::fileWithoutPermission()
{
    Folder folder;
    folder.write("job.xml", completeJob());
    QVERIFY(QFile::setPermissions(folder.path("job.xml"), QFile::WriteOwner));
    if (QFile(folder.path("job.xml")).open(QIODevice::ReadOnly)) {
        skip("this user may read everything");
        return;
    }
    const Run run = folder.run({"check", "job.xml"});
    QCOMPARE(run.err, QString("job.xml: error: cannot be read: Permission denied\n"));
    QCOMPARE(run.status, 2);
}

void CheckCommandTest::namesOfFiles()
{
    const QString name = QString::fromUtf8("l\xC3\xA4ngs %1 -.xml");
    Folder folder;
    folder.environment.insert("LC_ALL", "C.UTF-8");
    folder.write(name, jobWithoutAuthor());
    folder.write("-x", completeJob());
    const Run run = folder.run({"check", "--", name, "-x", folder.path("-x")});
    QCOMPARE(run.err, name + ":3:5: error: JobHeader: Please set Author\n");
    QCOMPARE(run.out, "-x: Job, complete\n" + folder.path("-x") + ": Job, complete\n");
    QCOMPARE(run.status, 1);
}

void CheckCommandTest::standardInput()
{
    const Folder folder;
    const Run good = folder.run({"check", "-"}, completeJob());
    QCOMPARE(good.out, QString("-: Job, complete\n"));
    QCOMPARE(good.err, QString());
    QCOMPARE(good.status, 0);
    const Run faulty = folder.run({"check", "-"}, jobWithoutAuthor());
    QCOMPARE(faulty.out, QString());
    QCOMPARE(faulty.err, QString("-:3:5: error: JobHeader: Please set Author\n"));
    QCOMPARE(faulty.status, 1);
}

void CheckCommandTest::warnings()
{
    Folder folder;
    folder.write("a.xml",
                 with(completeReceiver(), ">-20.000000<", ">200<").replace("Key=\"2\"", "Key=\"1\""));
    folder.write("b.xml", with(completeParameter(), ">20<", ">50<").replace("Gain", "G&#10;ain%1"));
    folder.write("c.xml",
                 with(completeParameter(), "    <Integer>", "    <Foo/><Integer>").replace(">20<", ">50<"));
    const Run run = folder.run({"check", "a.xml", "b.xml", "c.xml"});
    QCOMPARE(
        run.err,
        QString("a.xml:10:13: warning: Parameter 'Filter': the entries 'Narrow' and 'Wide' have the same "
                "key\n"
                "a.xml:19:13: warning: Parameter 'Level': the minimum 200 is above the maximum 120\n"
                "b.xml:10:9: warning: Parameter 'G\\nain%1': the default 50 is above the maximum 40\n"
                "c.xml:7:5: error: Unknown Tag 'Foo' in 'Parameter'.\n"));
    QCOMPARE(run.out, QString("a.xml: GenericReceiver, complete\nb.xml: Parameter, complete\n"));
    QCOMPARE(run.status, 1);

    const Run suspicious = folder.run({"check", "a.xml", "b.xml"});
    QCOMPARE(suspicious.out, run.out);
    QCOMPARE(suspicious.status, 0);
}

void CheckCommandTest::allFilesAreGoneThrough_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<int>("status");

    QTest::newRow("good") << QStringList{"good.xml", "good.xml"} << 0;
    QTest::newRow("good, faulty") << QStringList{"good.xml", "faulty.xml"} << 1;
    QTest::newRow("faulty, good") << QStringList{"faulty.xml", "good.xml"} << 1;
    QTest::newRow("good, missing") << QStringList{"good.xml", "missing.xml"} << 2;
    QTest::newRow("faulty, missing, good") << QStringList{"faulty.xml", "missing.xml", "good.xml"} << 2;
    QTest::newRow("missing, good, faulty") << QStringList{"missing.xml", "good.xml", "faulty.xml"} << 2;
}

void CheckCommandTest::allFilesAreGoneThrough()
{
    QFETCH(QStringList, names);
    QFETCH(int, status);

    Folder folder;
    folder.write("good.xml", completeJob());
    folder.write("faulty.xml", jobWithoutAuthor());
    QString out;
    QString err;
    for (const QString &name : names) {
        if (name == "good.xml")
            out += "good.xml: Job, complete\n";
        else if (name == "faulty.xml")
            err += "faulty.xml:3:5: error: JobHeader: Please set Author\n";
        else
            err += "missing.xml: error: cannot be read: No such file or directory\n";
    }
    const Run run = folder.run(QStringList{"check"} + names);
    QCOMPARE(run.out, out);
    QCOMPARE(run.err, err);
    QCOMPARE(run.status, status);
}

void CheckCommandTest::largeDocument()
{
    constexpr int Lines = 800000;
    const QByteArray line = "fifty megabytes of text in lines that are sixty-four bytes long\n";
    Folder folder;
    folder.write("good.xml", jobWith("Mara Lind", line.repeated(Lines)));
    folder.write("faulty.xml", jobWith("Mara Lind", line.repeated(Lines)).replace("<Name>", "<Nam/><Name>"));
    const Run run = folder.run({"check", "good.xml", "faulty.xml"});
    QCOMPARE(run.out, QString("good.xml: Job, complete\n"));
    QCOMPARE(run.err,
             QString("faulty.xml:%1:9: error: Unknown Tag 'Nam' in 'AntennaData'.\n").arg(Lines + 11));
    QCOMPARE(run.status, 1);
}

void CheckCommandTest::deeplyNestedDocument()
{
    constexpr int Depth = 500000;
    Folder folder;
    folder.write("job.xml", QByteArray("<Job>").repeated(Depth) + QByteArray("</Job>").repeated(Depth));
    const Run run = folder.run({"check", "job.xml"});
    QCOMPARE(run.err, QString("job.xml:1:6: error: Unknown Tag 'Job' in 'Job'.\n"));
    QCOMPARE(run.status, 1);
}

QTEST_GUILESS_MAIN(CheckCommandTest)
#include "CheckCommandTest.moc"
