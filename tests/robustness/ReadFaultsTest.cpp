// Files whose reading fails in the middle, and files that are longer than 32 bits count: nothing is read as a
// shorter file.
#include <kormak/GenericReceiver.h>
#include <kormak/Job.h>
#include <tests/support/Objects.h>

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <cerrno>
#include <functional>
#include <limits>
#include <new>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// The file that fails, and the bytes that can be read of it.
struct {
    ino_t file = 0;
    qint64 readable = 0;
    int failures = 0;
} fault;

bool isFaulty(int descriptor)
{
    struct stat status { };
    return fault.file != 0 && fstat(descriptor, &status) == 0 && status.st_ino == fault.file;
}

} // namespace

/// In place of the C library's, for the whole program.
extern "C" ssize_t read(int descriptor, void *buffer, size_t size)
{
    const bool fails = isFaulty(descriptor);
    if (fails)
        size = std::min(size, static_cast<size_t>(fault.readable));
    if (fails && size == 0) {
        ++fault.failures;
        errno = EIO;
        return -1;
    }
    const ssize_t count = syscall(SYS_read, descriptor, buffer, size);
    if (fails && count > 0)
        fault.readable -= count;
    return count;
}

using namespace TestSupport;

namespace {

constexpr qint64 Everything = std::numeric_limits<qint64>::max();

using Read = std::function<bool(const QString &)>; // false, or a TesselException, when the file is not read

const QVector<std::pair<const char *, Read>> &operations()
{
    static const QVector<std::pair<const char *, Read>> list{
        {"LoadXml, path", [](const QString &path) { return KORMAK::GenericReceiver().LoadXml(path); }},
        {"LoadXml, file",
         [](const QString &path) {
             QFile file(path);
             return KORMAK::GenericReceiver().LoadXml(&file);
         }},
        {"LoadXml, open file",
         [](const QString &path) {
             QFile file(path);
             return file.open(QIODevice::ReadOnly) && KORMAK::GenericReceiver().LoadXml(&file);
         }},
        {"LoadBinary",
         [](const QString &path) {
             QFile file(path);
             return KORMAK::GenericReceiver().LoadBinary(&file);
         }},
        {"Load",
         [](const QString &path) {
             QString text = "before";
             try {
                 KORMAK::GenericReceiver().Load(path, text);
             } catch (const TESSEL::TesselException &) {
                 if (text != "before")
                     return true;
                 throw;
             }
             return true;
         }},
        {"ImportXML",
         [](const QString &path) {
             KORMAK::GenericReceiver().ImportXML(path);
             return true;
         }},
    };
    return list;
}

bool isReadBy(const Read &read, const QString &path)
{
    try {
        return read(path);
    } catch (const TESSEL::TesselException &exception) {
        if (exception.GetErrorMessage() != "Can't open file for reading: '" + path + '\'')
            qWarning("%s", exception.what());
        return false;
    }
}

} // namespace

class ReadFaultsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void nothingShorterIsRead_data();
    void nothingShorterIsRead();
    void message();
    void longerThan32BitsCount_data();
    void longerThan32BitsCount();

private:
    [[nodiscard]] QString write(const QByteArray &bytes) const;

    std::unique_ptr<QTemporaryDir> folder;
};

void ReadFaultsTest::init()
{
    folder = std::make_unique<QTemporaryDir>();
    fault = {};
}

void ReadFaultsTest::cleanup()
{
    fault = {};
}

QString ReadFaultsTest::write(const QByteArray &bytes) const
{
    const QString path = folder->filePath("receiver");
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() ? path : QString();
}

void ReadFaultsTest::nothingShorterIsRead_data()
{
    QTest::addColumn<int>("operation");
    QTest::addColumn<qint64>("readable");

    for (int i = 0; i < operations().size(); ++i) {
        for (const qint64 readable : {0, 1, 100, 16384, 70'000, 1 << 20, 3'000'000})
            QTest::addRow("%s, %lld bytes", operations()[i].first, static_cast<long long>(readable))
                << i << readable;
    }
}

void ReadFaultsTest::nothingShorterIsRead()
{
    QFETCH(int, operation);
    QFETCH(qint64, readable);

    const auto &[name, read] = operations()[operation];
    constexpr int Blanks = 3'000'100;
    // What is left of the document is well-formed, and a form is whole, wherever reading breaks off behind
    // it.
    KORMAK::GenericReceiver receiver;
    QByteArray bytes = "<GenericReceiver Version=\"1.0\"/>" + QByteArray(Blanks, ' ');
    if (qstrcmp(name, "LoadBinary") == 0) {
        KORMAK::Parameter parameter;
        parameter.SetParameterType(KORMAK::ParameterType::Long);
        parameter.SetValueType(KORMAK::Parameter::ValueNumericInt);
        parameter.SetUniqueParameterName("a");
        parameter.SetRepresenationName(QString(Blanks, 'x'));
        receiver.AddParameter(parameter);
        bytes = receiver.GetBinaryRepresentationAsQByteArray();
    }
    const QString path = write(bytes);
    QVERIFY(isReadBy(read, path));

    struct stat status { };
    QCOMPARE(stat(path.toLocal8Bit().constData(), &status), 0);
    fault.file = status.st_ino;
    fault.readable = readable;
    QVERIFY(!isReadBy(read, path));
    QVERIFY(fault.failures > 0);

    fault.readable = Everything;
    QVERIFY(isReadBy(read, path));
}

void ReadFaultsTest::message()
{
    const QString path = write("<GenericReceiver/>" + QByteArray(100'000, ' '));
    struct stat status { };
    QCOMPARE(stat(path.toLocal8Bit().constData(), &status), 0);
    fault.file = status.st_ino;
    fault.readable = 50'000;
    const QString expected = "Can't open file for reading: '" + path + '\'';
    QString text = "before";
    QCOMPARE(messageOf([&] { KORMAK::GenericReceiver().Load(path, text); }), expected);
    QCOMPARE(text, QString("before"));
    fault.readable = 50'000;
    QCOMPARE(messageOf([&] { KORMAK::GenericReceiver().ImportXML(path); }), expected);
}

void ReadFaultsTest::longerThan32BitsCount_data()
{
    QTest::addColumn<int>("operation");
    QTest::addColumn<qint64>("hole");

    for (int i = 0; i < operations().size(); ++i) {
        for (const qint64 gibibytes : {2, 4, 8})
            QTest::addRow("%s, %d GiB", operations()[i].first, static_cast<int>(gibibytes))
                << i << (gibibytes << 30);
    }
}

/// The document or form at the start of the file is what a size that has lost its upper bits would leave.
void ReadFaultsTest::longerThan32BitsCount()
{
    QFETCH(int, operation);
    QFETCH(qint64, hole);
#ifdef KORMAK_SANITIZED
    hole = 0;
    QSKIP("Sanitizers need the address space", ""); // clang asks for a second argument
#endif

    const auto &[name, read] = operations()[operation];
    KORMAK::GenericReceiver receiver;
    const QByteArray bytes = qstrcmp(name, "LoadBinary") == 0 ? receiver.GetBinaryRepresentationAsQByteArray()
                                                              : QByteArray("<GenericReceiver/>");
    const QString path = write(bytes);
    QVERIFY(isReadBy(read, path));
    if (truncate(path.toLocal8Bit().constData(), hole + bytes.size()) != 0)
        QSKIP("Files cannot be as long here", "");

    const pid_t child = fork();
    if (child == 0) {
        constexpr rlim_t Memory = 1U << 30U;
        const rlimit limit{Memory, Memory};
        setrlimit(RLIMIT_AS, &limit);
        bool isRead = false;
        try {
            isRead = isReadBy(read, path);
        } catch (const std::bad_alloc &) {
        }
        _exit(isRead ? 1 : 0);
    }
    int status = 0;
    QCOMPARE(waitpid(child, &status, 0), child);
    QCOMPARE(status, 0);
}

QTEST_GUILESS_MAIN(ReadFaultsTest)
#include "ReadFaultsTest.moc"
