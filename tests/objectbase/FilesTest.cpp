#include <objectbase/ITesselObject.h>
#include <tests/support/Files.h>
#include <tests/support/Objects.h>
#include <tests/support/SampleDocuments.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#include <unistd.h>
#endif

using namespace TESSEL;
using namespace TestSupport;
using namespace SampleDocuments;

namespace {

const QByteArray ByteOrderMark = "\xEF\xBB\xBF";

Note sample()
{
    Note note("Title & more", QString::fromUtf8("Z\xC3\xBCrich \xF0\x9F\x93\xA1"));
    note.version = "2.0";
    note.label = "blue";
    return note;
}

bool mayDoEverything()
{
#ifdef Q_OS_UNIX
    return geteuid() == 0;
#else
    return false;
#endif
}

} // namespace

/// Files of documents. Each test has a folder of its own.
class FilesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void writtenFile();
    void writtenFileIsRead();
    void existingFileIsReplaced();
    void unwritablePlaces_data();
    void unwritablePlaces();
    void folderWithoutPermission();
    void existingFileSurvivesAFullDisk();
    void incompleteObjectTouchesNoFile();
    void invalidObjectTouchesNoFile();
    void unreadablePlaces_data();
    void unreadablePlaces();
    void fileWithoutPermission();
    void contents_data();
    void contents();
    void readingNeverResets();
    void exceptionsPassThrough();
    void closedFileIsClosedAgain();
    void openFileIsReadFromItsPosition();
    void fileThatIsNotOpenForReading();
    void noFile();

private:
    QString path(const QString &name) const { return folder->filePath(name); }
    QString store(const QByteArray &content) const
    {
        return TestSupport::writtenFile(path("stored"), content);
    }
    QStringList files() const
    {
        return QDir(folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    std::unique_ptr<QTemporaryDir> folder;
};

void FilesTest::init()
{
    folder = std::make_unique<QTemporaryDir>();
    QVERIFY(folder->isValid());
}

void FilesTest::cleanup()
{
    folder.reset();
}

void FilesTest::writtenFile()
{
    QVERIFY(sample().SaveXml(path("note.xml")));
    QCOMPARE(bytesOf(path("note.xml")), sample().GetXmlString().toUtf8());
    QCOMPARE(files(), QStringList("note.xml"));
}

void FilesTest::writtenFileIsRead()
{
    const QString name = path(QString::fromUtf8("Z\xC3\xBCrich 1.xml"));
    QVERIFY(sample().SaveXml(name));

    Note note;
    QVERIFY(note.LoadXml(name));
    QCOMPARE(note.fields(), sample().fields());

    QFile file(name);
    Note another;
    QVERIFY(another.LoadXml(&file));
    QCOMPARE(another.fields(), sample().fields());
}

void FilesTest::existingFileIsReplaced()
{
    const QString name = store(QByteArray(10000, 'x'));
    QVERIFY(sample().SaveXml(name));
    QCOMPARE(bytesOf(name), sample().GetXmlString().toUtf8());
    QCOMPARE(files(), QStringList("stored"));
}

void FilesTest::unwritablePlaces_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("missing folder") << "missing/note.xml";
    QTest::newRow("folder") << ".";
    QTest::newRow("file as a folder") << "stored/note.xml";
}

void FilesTest::unwritablePlaces()
{
    QFETCH(QString, name);

    store("content");
    QVERIFY(!sample().SaveXml(path(name)));
    QVERIFY(!sample().SaveXml(QString()));
    QCOMPARE(files(), QStringList("stored"));
    QCOMPARE(bytesOf(path("stored")), QByteArray("content"));
}

void FilesTest::folderWithoutPermission()
{
    if (mayDoEverything())
        QSKIP("This user may write everywhere", ""); // clang asks for a second argument
    const QString name = store("content");
    QFile::setPermissions(folder->path(), QFileDevice::ReadOwner | QFileDevice::ExeOwner);
    const bool saved = sample().SaveXml(path("note.xml"));
    QFile::setPermissions(folder->path(),
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);

    QVERIFY(!saved);
    QCOMPARE(files(), QStringList("stored"));
    QCOMPARE(bytesOf(name), QByteArray("content"));
}

void FilesTest::existingFileSurvivesAFullDisk()
{
#ifdef Q_OS_UNIX
    const QString name = store("content");
    // A limit on the size of files stands in for a full disk.
    rlimit former{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &former), 0);
    const auto formerHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit = former;
    limit.rlim_cur = 20;
    setrlimit(RLIMIT_FSIZE, &limit);
    const bool saved = sample().SaveXml(name);
    const bool savedElsewhere = sample().SaveXml(path("note.xml"));
    const bool savedLong = Note("title", QString(1000000, 'x')).SaveXml(name);
    setrlimit(RLIMIT_FSIZE, &former);
    std::signal(SIGXFSZ, formerHandler);

    QVERIFY(!saved);
    QVERIFY(!savedLong);
    QVERIFY(!savedElsewhere);
    QCOMPARE(bytesOf(name), QByteArray("content"));
    QCOMPARE(files(), QStringList("stored"));
#else
    QSKIP("The size of files cannot be limited", "");
#endif
}

void FilesTest::incompleteObjectTouchesNoFile()
{
    const QString name = store("content");
    const DraftNote draft(QString(), "body");
    QVERIFY(!draft.SaveXml(name));
    QVERIFY(!draft.SaveXml(path("note.xml")));
    QCOMPARE(bytesOf(name), QByteArray("content"));
    QCOMPARE(files(), QStringList("stored"));
}

void FilesTest::invalidObjectTouchesNoFile()
{
    const QString name = store("content");
    const Note damaged("title", QString(QChar(1)));
    QCOMPARE(messageOf([&] { (void)Note().SaveXml(name); }), QString("Note: Please set Title"));
    QCOMPARE(messageOf([&] { (void)damaged.SaveXml(name); }),
             QString("Note: Text cannot be represented in XML"));
    QCOMPARE(bytesOf(name), QByteArray("content"));
    QCOMPARE(files(), QStringList("stored"));
}

void FilesTest::unreadablePlaces_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("missing file") << "missing.xml";
    QTest::newRow("missing folder") << "missing/note.xml";
    QTest::newRow("folder") << ".";
}

void FilesTest::unreadablePlaces()
{
    QFETCH(QString, name);

    Note note("title");
    const QStringList before = note.fields();
    QFile file(path(name));
    QVERIFY(!note.LoadXml(path(name)));
    QVERIFY(!note.LoadXml(&file));
    QVERIFY(!note.LoadBinary(&file));
    QVERIFY(!file.isOpen());
    QCOMPARE(note.fields(), before);
    QCOMPARE(files(), QStringList());
}

void FilesTest::fileWithoutPermission()
{
    if (mayDoEverything())
        QSKIP("This user may read everything", ""); // clang asks for a second argument
    QVERIFY(sample().SaveXml(path("note.xml")));
    QFile::setPermissions(path("note.xml"), QFileDevice::WriteOwner);
    Note note;
    QVERIFY(!note.LoadXml(path("note.xml")));
}

void FilesTest::contents_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("isRead");

    const QByteArray content = sample().GetXmlString().toUtf8();
    const QByteArray element = content.mid(content.indexOf("<Note"));
    QTest::newRow("as written") << content << true;
    QTest::newRow("byte order mark") << ByteOrderMark + content << true;
    QTest::newRow("byte order mark, no declaration") << ByteOrderMark + element << true;
    QTest::newRow("lines of another system") << QByteArray(content).replace("\n", "\r\n") << true;
    QTest::newRow("encoding declared") << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>" + element << true;
    QTest::newRow("empty") << QByteArray() << false;
    QTest::newRow("byte order mark only") << ByteOrderMark << false;
    QTest::newRow("no XML") << QByteArray("title=Title & more") << false;
    QTest::newRow("cut off") << content.left(content.size() / 2) << false;
    QTest::newRow("something behind") << content + "x" << false;
    QTest::newRow("other root element") << QByteArray(content).replace("Note", "Memo") << false;
    QTest::newRow("UTF-16") << QByteArray(reinterpret_cast<const char *>(sample().GetXmlString().utf16()),
                                          static_cast<int>(sample().GetXmlString().size() * 2))
                            << false;
}

void FilesTest::contents()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, isRead);
    const QString name = store(content);

    Note note;
    QCOMPARE(note.LoadXml(name), isRead);
    QFile file(name);
    Note another;
    QCOMPARE(another.LoadXml(&file), isRead);
    if (isRead) {
        QCOMPARE(note.fields(), sample().fields());
        QCOMPARE(another.fields(), sample().fields());
    }
}

void FilesTest::readingNeverResets()
{
    Note note("title", "body");
    QVERIFY(note.LoadXml(store("<Note Version=\"1.0\"><Title>new</Title></Note>")));
    QCOMPARE(note.fields(), (QStringList{"1.0", QString(), "new", "body"}));
}

void FilesTest::exceptionsPassThrough()
{
    const QString name = store("<Note><Title>new</Title><X/></Note>");
    Note note;
    QCOMPARE(messageOf([&] { (void)note.LoadXml(name); }), QString("Unknown Tag 'X' in 'Note'."));
    QFile file(name);
    QCOMPARE(messageOf([&] { (void)note.LoadXml(&file); }), QString("Unknown Tag 'X' in 'Note'."));
    QVERIFY(!file.isOpen());
}

void FilesTest::closedFileIsClosedAgain()
{
    Note note;
    QFile xml(store(sample().GetXmlString().toUtf8()));
    QVERIFY(note.LoadXml(&xml));
    QVERIFY(!xml.isOpen());
    QVERIFY(note.LoadXml(&xml));

    QFile binary(store(sample().GetBinaryRepresentationAsQByteArray()));
    QVERIFY(note.LoadBinary(&binary));
    QVERIFY(!binary.isOpen());
    QVERIFY(note.LoadBinary(&binary));
    QCOMPARE(note.fields(), sample().fields());
}

void FilesTest::openFileIsReadFromItsPosition()
{
    Note note;
    QFile xml(store("header\n" + sample().GetXmlString().toUtf8()));
    QVERIFY(xml.open(QIODevice::ReadOnly));
    QCOMPARE(xml.readLine(), QByteArray("header\n"));
    QVERIFY(note.LoadXml(&xml));
    QCOMPARE(note.fields(), sample().fields());
    QVERIFY(xml.isOpen());
    QVERIFY(xml.atEnd());
    QVERIFY(!note.LoadXml(&xml));
    xml.close();
    QVERIFY(!note.LoadXml(&xml));

    Note another;
    QFile binary(store("header\n" + sample().GetBinaryRepresentationAsQByteArray()));
    QVERIFY(binary.open(QIODevice::ReadWrite));
    QVERIFY(binary.seek(7));
    QVERIFY(another.LoadBinary(&binary));
    QCOMPARE(another.fields(), sample().fields());
    QVERIFY(binary.isOpen());
    binary.close();
    QVERIFY(!another.LoadBinary(&binary));
}

void FilesTest::fileThatIsNotOpenForReading()
{
    Note note("title");
    const QStringList before = note.fields();
    QFile file(store(sample().GetXmlString().toUtf8()));
    QVERIFY(file.open(QIODevice::Append));
    QVERIFY(!note.LoadXml(&file));
    QVERIFY(!note.LoadBinary(&file));
    QVERIFY(file.isOpen());
    QCOMPARE(note.fields(), before);
}

void FilesTest::noFile()
{
    Note note("title");
    QTest::ignoreMessage(QtWarningMsg, "QFSFileEngine::open: No file name specified");
    QVERIFY(!note.LoadXml(QString()));
    QVERIFY(!note.LoadXml(static_cast<QFile *>(nullptr)));
    QVERIFY(!note.LoadBinary(nullptr));
    QCOMPARE(note.title, QString("title"));
}

QTEST_GUILESS_MAIN(FilesTest)
#include "FilesTest.moc"
