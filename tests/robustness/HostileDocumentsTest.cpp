// What XML allows, or what only looks like it, to do harm with: entities, references to other files,
// encodings that are not what they say, line ends.
#include <tests/support/ObjectStates.h>
#include <tests/support/Samples.h>
#include <tests/support/ToolSupport.h>

#include <QElapsedTimer>

#include <memory>

#ifdef Q_OS_LINUX
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/inotify.h>
#include <sys/socket.h>
#include <unistd.h>
#endif

using namespace TestSupport;

namespace {

/// A job whose document type has the internal subset \a subset and whose author is \a author.
QString jobWithEntities(const QString &subset, const QString &author)
{
    return "<!DOCTYPE Job [" + subset + "]>\n<Job><JobHeader><JobType>Antenna</JobType><Author>" + author
        + "</Author><Description>behind</Description></JobHeader></Job>";
}

/// Entities e0 to eN, each of which stands \a factor times for the one before.
QString chainOfEntities(int length, int factor)
{
    QString subset = "<!ENTITY e0 \"ha\">";
    for (int i = 1; i <= length; ++i)
        subset += QString("<!ENTITY e%1 \"%2\">").arg(i).arg(QString("&e%1;").arg(i - 1).repeated(factor));
    return subset;
}

QByteArray utf16(const QString &text, bool isBigEndian, bool hasMark)
{
    QByteArray bytes;
    for (const QChar c : (hasMark ? QString(QChar(0xFEFF)) : QString()) + text) {
        const char halves[] = {static_cast<char>(c.unicode() & 0xFF), static_cast<char>(c.unicode() >> 8)};
        bytes += isBigEndian ? halves[1] : halves[0];
        bytes += isBigEndian ? halves[0] : halves[1];
    }
    return bytes;
}

#ifdef Q_OS_LINUX
/// Notices whatever is done with a file.
class Watch {
public:
    explicit Watch(const QString &path)
        : descriptor(inotify_init1(IN_NONBLOCK)),
          isOn(inotify_add_watch(descriptor, path.toLocal8Bit().constData(), IN_ALL_EVENTS) >= 0)
    {
    }
    ~Watch() { close(descriptor); }
    Q_DISABLE_COPY(Watch)

    bool isWatching() const { return isOn; }
    bool hasSeenAnything() const
    {
        char buffer[4096];
        return read(descriptor, buffer, sizeof buffer) > 0;
    }

private:
    int descriptor;
    bool isOn;
};

/// A server on this machine that nobody is expected to call.
class Server {
public:
    Server() : descriptor(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0))
    {
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof address;
        isOn = bind(descriptor, generalAddress(), length) == 0 && listen(descriptor, 5) == 0
            && getsockname(descriptor, generalAddress(), &length) == 0;
    }
    ~Server() { close(descriptor); }
    Q_DISABLE_COPY(Server)

    bool isListening() const { return isOn; }
    QString url() const { return QString("http://127.0.0.1:%1/job.dtd").arg(ntohs(address.sin_port)); }
    bool wasCalled() const
    {
        const int caller = accept(descriptor, nullptr, nullptr);
        if (caller >= 0)
            close(caller);
        return caller >= 0;
    }
    void call()
    {
        const int caller = socket(AF_INET, SOCK_STREAM, 0);
        QCOMPARE(connect(caller, generalAddress(), sizeof address), 0);
        close(caller);
    }

private:
    sockaddr *generalAddress() { return reinterpret_cast<sockaddr *>(&address); }

    sockaddr_in address{};
    int descriptor;
    bool isOn = false;
};
#endif

} // namespace

class HostileDocumentsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void entities_data();
    void entities();
    void nothingElseIsOpened_data();
    void nothingElseIsOpened();
    void encodings_data();
    void encodings();
    void lineEnds_data();
    void lineEnds();
    void whatXmlCannotCarry_data();
    void whatXmlCannotCarry();
};

void HostileDocumentsTest::entities_data()
{
    QTest::addColumn<QString>("document");
    QTest::addColumn<bool>("isRead");
    QTest::addColumn<QString>("author");

    const auto add = [](const char *name, const QString &subset, const QString &text, bool isRead,
                        const QString &author = {}) {
        QTest::newRow(name) << jobWithEntities(subset, text) << isRead << author;
    };
    // The reader lets an entity of entities stand for at most 4096 characters.
    add("entity", "<!ENTITY a \"Mara &#76;ind\">", "&a;!", true, "Mara Lind!");
    add("entity of entities", chainOfEntities(3, 2), "&e3;", true, QString("ha").repeated(8));
    add("entity of too many entities", chainOfEntities(4, 8), "&e4;", false);
    add("billion laughs", chainOfEntities(10, 10), "&e10;", false);
    add("laughs in an attribute", chainOfEntities(10, 10) + "<!ATTLIST Author a CDATA \"&e10;\">", "x",
        false);
    add("long chain", chainOfEntities(2000, 1), "&e2000;", true, "ha");
    add("long chain of doubles", chainOfEntities(2000, 2), "&e2000;", false);
    add("entity of itself", "<!ENTITY a \"x&a;\">", "&a;", false);
    add("two entities of each other", "<!ENTITY a \"&b;\"><!ENTITY b \"&a;\">", "&a;", false);
    add("entity with elements", "<!ENTITY a \"x</Author><Author>y\">", "&a;", false);
    add("entity that is never used", chainOfEntities(10, 10), "x", true, "x");
    add("parameter entities", "<!ENTITY % a \"<!ENTITY b 'x'>\">%a;", "&b;", true, "x");
    add("many references to a long text", "<!ENTITY a \"" + QString(4000, 'x') + "\">",
        QString("&a;").repeated(250), true, QString(1'000'000, 'x'));
    add("too many references to a long text", "<!ENTITY a \"" + QString(4000, 'x') + "\">",
        QString("&a;").repeated(270), false);
    add("entity as long as may be", "<!ENTITY a \"" + QString(4096, 'x') + "\">", "&a;", true,
        QString(4096, 'x'));
    add("entity longer than may be", "<!ENTITY b \"x\"><!ENTITY a \"" + QString(4097, 'x') + "\">", "&b;",
        false);
}

void HostileDocumentsTest::entities()
{
    QFETCH(QString, document);
    QFETCH(bool, isRead);
    QFETCH(QString, author);

    constexpr int LongestMilliseconds = 10'000;
    QElapsedTimer timer;
    timer.start();
    KORMAK::Job job;
    QCOMPARE(job.SetXmlString(document, true), isRead);
    QVERIFY(timer.elapsed() < LongestMilliseconds);
    if (isRead)
        QVERIFY(job.GetJobHeader().GetAuthor() == author);
    else
        QVERIFY(job.GetJobHeader().GetAuthor().size() <= 4096);
    QCOMPARE(job.GetJobHeader().GetDescription(), isRead ? QString("behind") : QString());
}

void HostileDocumentsTest::nothingElseIsOpened_data()
{
    QTest::addColumn<QString>("documentType"); // %1: the address of something else
    QTest::addColumn<QString>("author");

    QTest::newRow("external subset") << "SYSTEM \"%1\""
                                     << "Mara";
    QTest::newRow("public external subset") << "PUBLIC \"-//A//B\" \"%1\""
                                            << "Mara";
    QTest::newRow("external entity") << "[<!ENTITY a SYSTEM \"%1\">]"
                                     << "&a;";
    QTest::newRow("external entity that is not used") << "[<!ENTITY a SYSTEM \"%1\">]"
                                                      << "Mara";
    QTest::newRow("external parameter entity") << "[<!ENTITY % a SYSTEM \"%1\">%a;]"
                                               << "Mara";
    QTest::newRow("unparsed entity") << "[<!NOTATION n SYSTEM \"%1\"><!ENTITY a SYSTEM \"%1\" NDATA n>]"
                                     << "Mara";
    QTest::newRow("entity of an external subset") << "SYSTEM \"%1\""
                                                  << "&a;";
}

void HostileDocumentsTest::nothingElseIsOpened()
{
#ifdef Q_OS_LINUX
    QFETCH(QString, documentType);
    QFETCH(QString, author);

    ToolSupport::Folder folder;
    folder.write("secret", "<!ENTITY a \"secret\">");
    const QString secret = folder.path("secret");
    Server server;
    QVERIFY(server.isListening());
    const Watch watch(secret);
    QVERIFY(watch.isWatching());

    for (const QString &address : {"file://" + secret, secret, QString("secret"), server.url()}) {
        const QString document = "<!DOCTYPE Job " + QString(documentType).replace("%1", address)
            + "><Job><JobHeader><Author>" + author + "</Author></JobHeader></Job>";
        folder.write("job.xml", document.toUtf8());
        KORMAK::Job job;
        (void)job.SetXmlString(document, true);
        KORMAK::Job loaded;
        (void)loaded.LoadXml(folder.path("job.xml"));
        for (const KORMAK::Job &read : {job, loaded})
            QCOMPARE(read.GetJobHeader().GetAuthor(), author == "Mara" ? author : QString());
        for (const char *command : {"check", "show", "format"}) {
            const ToolSupport::Run run = folder.run({command, "job.xml"});
            QCOMPARE(run.status, QString(command) == "show" ? run.status : 1);
            QVERIFY(!(run.out + run.err).contains("secret\"") || address == "secret");
        }
        QVERIFY(!watch.hasSeenAnything());
        QVERIFY(!server.wasCalled());
    }

    // Anything would have been noticed.
    server.call();
    QVERIFY(server.wasCalled());
    QVERIFY(!folder.read("secret").isEmpty());
    QVERIFY(watch.hasSeenAnything());
#else
    ToolSupport::skip("Files cannot be watched here");
#endif
}

void HostileDocumentsTest::encodings_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("isLoaded");
    QTest::addColumn<QString>("author");
    QTest::addColumn<QString>("complaint"); // of the tool; it is stricter than the library

    const QByteArray job = ToolSupport::completeJob();
    const QString text = QString::fromUtf8(job);
    const QByteArray declared = QByteArray(job).replace("\"1.0\"?>", "\"1.0\" encoding=\"UTF-16\"?>");
    const auto author = [](const QByteArray &bytes) { return ToolSupport::jobWith("Mara Lind", bytes); };
    const auto replaced = QString(QChar(QChar::ReplacementCharacter));
    const auto notUtf8 = [](const char *place, const char *byte) {
        return QString("%1: error: byte 0x%2 is not UTF-8").arg(place, byte);
    };

    QTest::newRow("UTF-8") << job << true << "Mara Lind"
                           << "";
    QTest::newRow("UTF-8 with a mark") << "\xEF\xBB\xBF" + job << true << "Mara Lind"
                                       << "";
    QTest::newRow("UTF-8 that says it is UTF-16")
        << declared << true << "Mara Lind"
        << "1:31: warning: the encoding UTF-16 is declared, but the text is read as UTF-8";
    QTest::newRow("UTF-16, little endian, with a mark")
        << utf16(text, false, true) << false << "" << notUtf8("1:1", "ff");
    QTest::newRow("UTF-16, big endian, with a mark")
        << utf16(text, true, true) << false << "" << notUtf8("1:1", "fe");
    QTest::newRow("UTF-16, little endian") << utf16(text, false, false) << false << ""
                                           << "1:2: error: the text holds a NUL byte";
    QTest::newRow("UTF-16, big endian") << utf16(text, true, false) << false << ""
                                        << "1:1: error: the text holds a NUL byte";
    QTest::newRow("UTF-16 that says so")
        << utf16(QString::fromUtf8(declared), false, true) << false << "" << notUtf8("1:1", "ff");
    // The library takes a replacement character for what is no UTF-8.
    QTest::newRow("Latin-1") << author("J\xFCrg") << true << 'J' + replaced + "rg" << notUtf8("5:18", "fc");
    QTest::newRow("surrogate in UTF-8")
        << author("a\xED\xA0\x80z") << true << 'a' + replaced.repeated(3) + 'z' << notUtf8("5:18", "ed");
    QTest::newRow("byte that never is in UTF-8")
        << author("a\xFFz") << true << 'a' + replaced + 'z' << notUtf8("5:18", "ff");
    QTest::newRow("NUL in a text") << author(QByteArray("a\0z", 3)) << false << "a"
                                   << "5:18: error: the text holds a NUL byte";
    QTest::newRow("NUL behind the document") << job + '\0' << false << "Mara Lind"
                                             << "16:1: error: the text holds a NUL byte";
    QTest::newRow("NUL bytes alone") << QByteArray(1000, '\0') << false << ""
                                     << "1:1: error: the text holds a NUL byte";
}

void HostileDocumentsTest::encodings()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, isLoaded);
    QFETCH(QString, author);
    QFETCH(QString, complaint);

    ToolSupport::Folder folder;
    folder.write("job.xml", bytes);
    KORMAK::Job job;
    const bool answer = job.LoadXml(folder.path("job.xml"));
    QCOMPARE(answer, isLoaded);
    QVERIFY(isLoaded ? job.GetJobHeader().GetAuthor() == author
                     : author.startsWith(job.GetJobHeader().GetAuthor())); // what came before the fault
    const ToolSupport::Run run = folder.run({"check", "job.xml"});
    const QString fault = run.err.section("; it ", 0, 0).trimmed(); // without what it may be
    QCOMPARE(fault, complaint.isEmpty() ? QString() : "job.xml:" + complaint);
    QCOMPARE(run.status, complaint.contains(": error: ") ? 1 : 0);
}

void HostileDocumentsTest::lineEnds_data()
{
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("inText");
    QTest::addColumn<QString>("inAttribute");

    QTest::newRow("line feed") << "a\nb"
                               << "a\nb"
                               << "a b";
    QTest::newRow("carriage return") << "a\rb"
                                     << "a\nb"
                                     << "a b";
    QTest::newRow("both") << "a\r\nb"
                          << "a\nb"
                          << "a b";
    QTest::newRow("both, the wrong way round") << "a\n\rb"
                                               << "a\n\nb"
                                               << "a  b";
    QTest::newRow("tabulator") << "a\tb"
                               << "a\tb"
                               << "a b";
    QTest::newRow("references") << "a&#13;&#10;&#9;b"
                                << "a\r\n\tb"
                                << "a\r\n\tb";
    QTest::newRow("reference and line feed") << "a&#xD;\nb"
                                             << "a\r\nb"
                                             << "a\r b";
}

void HostileDocumentsTest::lineEnds()
{
    QFETCH(QString, written);
    QFETCH(QString, inText);
    QFETCH(QString, inAttribute);

    KORMAK::Parameter parameter;
    QVERIFY(parameter.SetXmlString("<Parameter UniqueName=\"" + written + "\"><RepresentationName>" + written
                                       + "</RepresentationName><ValueType>ValueString</ValueType>"
                                         "<ParameterType>Integer</ParameterType></Parameter>",
                                   true));
    QCOMPARE(parameter.GetRepresenationName(), inText);
    QCOMPARE(parameter.GetUniqueParameterName(), inAttribute);

    KORMAK::Parameter again;
    QVERIFY(again.SetXmlString(parameter.GetXmlString(), true));
    QCOMPARE(again.GetRepresenationName(), inText);
    QCOMPARE(again.GetUniqueParameterName(), inAttribute);
}

void HostileDocumentsTest::whatXmlCannotCarry_data()
{
    QTest::addColumn<QString>("text");

    for (const ushort code :
         {0x0, 0x1, 0x8, 0xB, 0xC, 0xE, 0x1F, 0xD800, 0xDBFF, 0xDC00, 0xDFFF, 0xFFFE, 0xFFFF}) {
        const QString name = QString("U+%1").arg(code, 4, 16, QLatin1Char('0'));
        QTest::newRow(qPrintable(name)) << QString(QChar(code));
        QTest::newRow(qPrintable(name + " in a text")) << "a" + QString(QChar(code)) + 'z';
    }
    QTest::newRow("surrogates in the wrong order") << QString(QChar(0xDC00)) + QChar(0xD800);
}

void HostileDocumentsTest::whatXmlCannotCarry()
{
    QFETCH(QString, text);

    TESSEL::Area area;
    area.SetName(text);
    TESSEL::AntennaData antenna;
    antenna.SetName(text);
    antenna.SetMinimumFrequency(1);
    antenna.SetMaximumFrequency(2);
    KORMAK::JobHeader header;
    header.SetJobType(KORMAK::JobType::Antenna);
    header.SetAuthor(text);
    header.SetCreation(QDateTime::fromMSecsSinceEpoch(0, Qt::UTC));
    KORMAK::JobHeader described = header;
    described.SetAuthor("a");
    described.SetDescription(text);
    KORMAK::AutomaticWorkflow workflow;
    workflow.SetWorkflowMode(KORMAK::AutomaticWorkflow::AutomaticMode);
    workflow.SetSearchStrategy(KORMAK::AutomaticWorkflow::LowestIdFirst);
    workflow.GetArea() = area;
    KORMAK::Parameter representation = completeParameter(2, "a", text);
    KORMAK::Parameter unique = completeParameter(2, text, "a");
    KORMAK::Parameter displayed = completeParameter(2);
    displayed.SetDisplayName(text);
    KORMAK::Parameter withTip = completeParameter(2);
    withTip.SetToolTip(text);
    KORMAK::Parameter choice = completeParameter(7);
    choice.GetEnumHandler().GetEnumList()[0].Identifier = text;
    KORMAK::Parameter withDefault = completeParameter(3);
    withDefault.GetStringHandler().SetDefault(text);
    KORMAK::GenericReceiver receiver;
    receiver.AddParameter(choice);

    const ToolSupport::Folder folder;
    for (const TESSEL::ITesselObject *object : std::initializer_list<const TESSEL::ITesselObject *>{
             &area, &antenna, &header, &described, &workflow, &representation, &unique, &displayed, &withTip,
             &choice, &withDefault, &receiver}) {
        const QString message = object->GetObjectName() + ": Text cannot be represented in XML";
        const State before = stateOf(*object);
        QVERIFY(object->HasData());
        QCOMPARE(messageOf([&] { (void)object->GetXmlString(); }), message);
        QCOMPARE(messageOf([&] { (void)object->SaveXml(folder.path("x.xml")); }), message);
        QCOMPARE(stateOf(*object), before);
    }
    QCOMPARE(folder.names(), QStringList());
}

QTEST_GUILESS_MAIN(HostileDocumentsTest)
#include "HostileDocumentsTest.moc"
