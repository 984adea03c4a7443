#include <objectbase/ITesselObject.h>
#include <objectbase/ReadingLimits.h>
#include <tests/support/Objects.h>
#include <tests/support/SampleDocuments.h>

#include <QBuffer>
#include <QCryptographicHash>
#include <QDataStream>
#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>

#include <functional>

using namespace TESSEL;
using namespace TestSupport;
using namespace SampleDocuments;

namespace {

using Write = std::function<QByteArray(Note &)>;
using Read = std::function<bool(Note &, const QByteArray &)>;

Note sample()
{
    Note note("Title & more", QString::fromUtf8("Z\xC3\xBCrich\r\n"));
    note.version = "2.0";
    note.label = "blue";
    return note;
}

/// What \a write puts into a stream.
template <class WriteToStream>
QByteArray written(WriteToStream write)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    write(stream);
    return stream.status() == QDataStream::Ok ? bytes : QByteArray();
}

QByteArray binaryOf(Note note)
{
    return note.GetBinaryRepresentationAsQByteArray();
}

QByteArray compressedOf(Note note)
{
    return note.GetCompressedBinaryRepresentationAsQByteArray(9);
}

bool readThroughSetBinary(Note &note, const QByteArray &bytes)
{
    QDataStream stream(bytes);
    note.SetBinary(stream, 1);
    return stream.status() == QDataStream::Ok;
}

bool readFromByteArray(Note &note, QByteArray bytes)
{
    return note.SetBinaryRepresentation(bytes);
}

bool readFromStream(Note &note, const QByteArray &bytes)
{
    QDataStream stream(bytes);
    return note.SetBinaryRepresentation(stream);
}

bool readFromFile(Note &note, const QByteArray &bytes)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("note"));
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush()
        && (file.close(), note.LoadBinary(&file));
}

struct WriteOperation {
    const char *name;
    Write write;
};

const QVector<WriteOperation> &writeOperations()
{
    static const QVector<WriteOperation> operations{
        {"GetBinary, plain",
         [](Note &note) { return written([&](QDataStream &s) { QVERIFY(note.GetBinary(s, 1, false)); }); }},
        {"GetBinary, compressed",
         [](Note &note) { return written([&](QDataStream &s) { QVERIFY(note.GetBinary(s, 1, true)); }); }},
        {"GetBinary, another version",
         [](Note &note) { return written([&](QDataStream &s) { QVERIFY(note.GetBinary(s, 99, true)); }); }},
        {"GetBinaryRepresentation",
         [](Note &note) { return written([&](QDataStream &s) { note.GetBinaryRepresentation(s); }); }},
        {"GetBinaryRepresentationAsQByteArray",
         [](Note &note) { return note.GetBinaryRepresentationAsQByteArray(); }},
        {"GetCompressedBinaryRepresentation",
         [](Note &note) {
             return written([&](QDataStream &s) { note.GetCompressedBinaryRepresentation(s, 5); });
         }},
        {"GetCompressedBinaryRepresentation, level 0",
         [](Note &note) {
             return written([&](QDataStream &s) { note.GetCompressedBinaryRepresentation(s, 0); });
         }},
        {"GetCompressedBinaryRepresentationAsQByteArray, usual level",
         [](Note &note) { return note.GetCompressedBinaryRepresentationAsQByteArray(-1); }},
        {"GetCompressedBinaryRepresentationAsQByteArray, best level",
         [](Note &note) { return note.GetCompressedBinaryRepresentationAsQByteArray(9); }},
        {"GetCompressedBinaryRepresentationAsQByteArray, level too high",
         [](Note &note) { return note.GetCompressedBinaryRepresentationAsQByteArray(100); }},
        {"GetCompressedBinaryRepresentationAsQByteArray, level too low",
         [](Note &note) { return note.GetCompressedBinaryRepresentationAsQByteArray(-100); }},
    };
    return operations;
}

struct ReadOperation {
    const char *name;
    Read read;
};

const QVector<ReadOperation> &readOperations()
{
    static const QVector<ReadOperation> operations{
        {"SetBinary", readThroughSetBinary},
        {"SetBinaryRepresentation, byte array", readFromByteArray},
        {"SetBinaryRepresentation, stream", readFromStream},
        {"LoadBinary", readFromFile},
    };
    return operations;
}

/// A binary form, put together by hand.
struct Form {
    quint32 magic = 0x54534C42;
    quint16 version = 1;
    quint16 flags = 0;
    QByteArray name = "Note";
    QByteArray payload;
    qint64 claimedNameSize = -1; ///< negative: the true one
    qint64 claimedPayloadSize = -1;

    QByteArray toBytes() const
    {
        const QByteArray header = written([this](QDataStream &stream) {
            stream << magic << version << flags
                   << static_cast<quint32>(claimedNameSize < 0 ? name.size() : claimedNameSize)
                   << static_cast<quint32>(claimedPayloadSize < 0 ? payload.size() : claimedPayloadSize);
        });
        return header + QCryptographicHash::hash(header + name + payload, QCryptographicHash::Sha256) + name
            + payload;
    }
};

Form plainForm(const QByteArray &xml)
{
    Form form;
    form.payload = xml;
    return form;
}

/// A compressed form that says of its text that it has \a claimedSize bytes.
Form compressedForm(const QByteArray &xml, quint32 claimedSize)
{
    Form form;
    form.flags = 1;
    form.payload = qCompress(xml);
    qToBigEndian(claimedSize, form.payload.data());
    return form;
}

const QByteArray ShortXml = "<Note Version=\"7\"><Title>crafted</Title></Note>";

/// The greatest amount of address space that the process has had so far, in bytes; 0 where it cannot be told.
qint64 greatestMemory()
{
    QFile status("/proc/self/status");
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith("VmPeak:"))
            return line.mid(7).trimmed().split(' ').first().toLongLong() * 1024;
    }
    return 0;
}

/// Takes no data at all.
class FullDevice : public QIODevice {
public:
    FullDevice() { open(QIODevice::WriteOnly | QIODevice::Unbuffered); }

protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *, qint64) override { return -1; }
};

} // namespace

Q_DECLARE_METATYPE(Write)
Q_DECLARE_METATYPE(Read)

class BinaryFormTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyFormIsReadByEveryOperation_data();
    void everyFormIsReadByEveryOperation();
    void layout();
    void compressionLevels();
    void streamSettingsDoNotMatter();
    void formsInOneStream();
    void readingNeverResets();
    void exceptionsPassThrough();
    void refused_data();
    void refused();
    void truncatedForms_data();
    void truncatedForms();
    void everyFlippedBitIsNoticed_data();
    void everyFlippedBitIsNoticed();
    void onlyTheByteArrayMustEnd();
    void statusOfTheStream();
    void greatestCompression();
    void claimedSizesCostNoMemory_data();
    void claimedSizesCostNoMemory();
    void incompleteObjectsWriteNothing();
    void invalidObjectsThrow();
    void failingDevice();
    void otherNames();
};

void BinaryFormTest::everyFormIsReadByEveryOperation_data()
{
    QTest::addColumn<Write>("write");
    QTest::addColumn<Read>("read");

    for (const WriteOperation &writing : writeOperations()) {
        for (const ReadOperation &reading : readOperations())
            QTest::addRow("%s; %s", writing.name, reading.name) << writing.write << reading.read;
    }
}

void BinaryFormTest::everyFormIsReadByEveryOperation()
{
    QFETCH(Write, write);
    QFETCH(Read, read);

    Note note = sample();
    const QByteArray bytes = write(note);
    QVERIFY(!bytes.isEmpty());
    QCOMPARE(note.fields(), sample().fields());

    Note back;
    QVERIFY(read(back, bytes));
    QCOMPARE(back.fields(), sample().fields());
}

// Stored data must stay readable.
void BinaryFormTest::layout()
{
    const QByteArray xml = sample().GetXmlString().toUtf8();
    QCOMPARE(binaryOf(sample()), plainForm(xml).toBytes());

    Form compressed;
    compressed.flags = 1;
    compressed.payload = qCompress(xml, 9);
    QCOMPARE(compressedOf(sample()), compressed.toBytes());

    Note back;
    QVERIFY(readFromByteArray(back, plainForm(ShortXml).toBytes()));
    QCOMPARE(back.fields(), (QStringList{"7", QString(), "crafted", QString()}));
}

void BinaryFormTest::compressionLevels()
{
    QString body;
    for (int i = 0; i < 3000; ++i)
        body += QString::number(i * i) + ' ';
    Note note("title", body);
    const auto sizeAt = [&note](int level) {
        return note.GetCompressedBinaryRepresentationAsQByteArray(level).size();
    };

    QCOMPARE(note.GetCompressedBinaryRepresentationAsQByteArray(0),
             note.GetBinaryRepresentationAsQByteArray());
    QVERIFY(sizeAt(1) < sizeAt(0));
    QVERIFY(sizeAt(9) < sizeAt(1));
    QVERIFY(sizeAt(-1) < sizeAt(1));
    QCOMPARE(written([&](QDataStream &stream) { (void)note.GetBinary(stream, 1, false); }).size(), sizeAt(0));
    QCOMPARE(written([&](QDataStream &stream) { (void)note.GetBinary(stream, 1, true); }).size(), sizeAt(-1));
}

void BinaryFormTest::streamSettingsDoNotMatter()
{
    QByteArray bytes;
    {
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        stream.setByteOrder(QDataStream::LittleEndian);
        stream.setVersion(QDataStream::Qt_4_0);
        sample().GetBinaryRepresentation(stream);
    }
    QCOMPARE(bytes, binaryOf(sample()));

    QDataStream stream(bytes);
    stream.setByteOrder(QDataStream::LittleEndian);
    Note back;
    QVERIFY(back.SetBinaryRepresentation(stream));
    QCOMPARE(back.fields(), sample().fields());
}

void BinaryFormTest::formsInOneStream()
{
    QByteArray bytes;
    {
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        stream << quint32(42);
        QVERIFY(Note("first").GetBinary(stream, 1, true));
        Note("second").GetBinaryRepresentation(stream);
        stream << QString("between");
        Note("third").GetCompressedBinaryRepresentation(stream, 9);
    }

    QDataStream stream(bytes);
    quint32 number = 0;
    QString text;
    stream >> number;
    QCOMPARE(number, quint32(42));
    Note note;
    QVERIFY(note.SetBinaryRepresentation(stream));
    QCOMPARE(note.title, QString("first"));
    note.SetBinary(stream, 1);
    QCOMPARE(note.title, QString("second"));
    stream >> text;
    QCOMPARE(text, QString("between"));
    QVERIFY(note.SetBinaryRepresentation(stream));
    QCOMPARE(note.title, QString("third"));
    QCOMPARE(stream.status(), QDataStream::Ok);
    QVERIFY(stream.atEnd());

    QVERIFY(!note.SetBinaryRepresentation(stream));
    QCOMPARE(note.title, QString("third"));
}

void BinaryFormTest::readingNeverResets()
{
    Note target("old title", "old body");
    target.label = "blue";
    QVERIFY(readFromByteArray(target, binaryOf(Note("new title"))));
    QCOMPARE(target.fields(), (QStringList{"1.0", "blue", "new title", "old body"}));
}

void BinaryFormTest::exceptionsPassThrough()
{
    const QByteArray bytes = plainForm("<Note><Title>crafted</Title><X/></Note>").toBytes();
    for (const ReadOperation &reading : readOperations()) {
        Note note;
        QCOMPARE(messageOf([&] { reading.read(note, bytes); }), QString("Unknown Tag 'X' in 'Note'."));
        QCOMPARE(note.title, QString("crafted"));
    }
}

void BinaryFormTest::refused_data()
{
    QTest::addColumn<QByteArray>("bytes");

    Note other = sample();
    other.SetObjectName("Memo");
    Note longer = sample();
    longer.SetObjectName("Notes");
    const auto changed = [](const std::function<void(Form &)> &change) {
        Form form = plainForm(ShortXml);
        change(form);
        return form.toBytes();
    };
    const auto truthful = static_cast<quint32>(ShortXml.size());

    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("XML") << ShortXml;
    QTest::newRow("zeros") << QByteArray(200, '\0');
    QTest::newRow("ones") << QByteArray(200, '\xFF');
    QTest::newRow("name of the same length") << binaryOf(other);
    QTest::newRow("name of the same length, compressed") << compressedOf(other);
    QTest::newRow("longer name") << binaryOf(longer);
    QTest::newRow("lower case name") << changed([](Form &form) { form.name = "note"; });
    QTest::newRow("no name") << changed([](Form &form) { form.name.clear(); });
    QTest::newRow("other magic number") << changed([](Form &form) { form.magic ^= 1; });
    QTest::newRow("version 0") << changed([](Form &form) { form.version = 0; });
    QTest::newRow("version 2") << changed([](Form &form) { form.version = 2; });
    QTest::newRow("unknown flag") << changed([](Form &form) { form.flags = 2; });
    QTest::newRow("plain text marked as compressed") << changed([](Form &form) { form.flags = 1; });
    QTest::newRow("compressed text not marked")
        << changed([](Form &form) { form.payload = qCompress(ShortXml); });
    QTest::newRow("empty text") << plainForm({}).toBytes();
    QTest::newRow("malformed XML") << plainForm("<Note><Title>crafted</Title>").toBytes();
    QTest::newRow("malformed at the very end") << plainForm(ShortXml + "<").toBytes();
    QTest::newRow("crossed elements") << plainForm("<Note><Title>crafted</Note></Title>").toBytes();
    QTest::newRow("other root element") << plainForm("<Memo><Title>crafted</Title></Memo>").toBytes();
    QTest::newRow("text one byte shorter than it should be")
        << changed([](Form &form) { form.claimedPayloadSize = form.payload.size() + 1; });
    QTest::newRow("compressed, size too small by one") << compressedForm(ShortXml, truthful - 1).toBytes();
    QTest::newRow("compressed, size too large by one") << compressedForm(ShortXml, truthful + 1).toBytes();
    QTest::newRow("compressed, size 0") << compressedForm(ShortXml, 0).toBytes();
    Form damaged = compressedForm(ShortXml, truthful);
    damaged.payload[damaged.payload.size() / 2] = damaged.payload[damaged.payload.size() / 2] ^ 0x55;
    QTest::newRow("compressed, damaged before the checksum") << damaged.toBytes();
    damaged = compressedForm(ShortXml, truthful);
    damaged.payload.truncate(3);
    QTest::newRow("compressed, three bytes") << damaged.toBytes();
    damaged.payload.clear();
    QTest::newRow("compressed, no bytes") << damaged.toBytes();
    QTest::newRow("compressed, malformed XML") << compressedForm("<Note>", 6).toBytes();
}

void BinaryFormTest::refused()
{
    QFETCH(QByteArray, bytes);

    for (const ReadOperation &reading : readOperations()) {
        Note note("title", "body");
        const QStringList before = note.fields();
        QVERIFY2(!reading.read(note, bytes), reading.name);
        QCOMPARE(note.fields(), before);
    }
}

void BinaryFormTest::truncatedForms_data()
{
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("plain") << binaryOf(sample());
    QTest::newRow("compressed") << compressedOf(sample());
}

void BinaryFormTest::truncatedForms()
{
    QFETCH(QByteArray, bytes);

    Note note("title", "body");
    const QStringList before = note.fields();
    for (int size = 0; size < bytes.size(); ++size) {
        const QByteArray truncated = bytes.left(size);
        QVERIFY(!readThroughSetBinary(note, truncated));
        QVERIFY(!readFromByteArray(note, truncated));
        QVERIFY(!readFromStream(note, truncated));
        QCOMPARE(note.fields(), before);
    }
}

void BinaryFormTest::everyFlippedBitIsNoticed_data()
{
    truncatedForms_data();
}

void BinaryFormTest::everyFlippedBitIsNoticed()
{
    QFETCH(QByteArray, bytes);

    Note note("title", "body");
    const QStringList before = note.fields();
    for (int bit = 0; bit < bytes.size() * 8; ++bit) {
        QByteArray damaged = bytes;
        damaged[bit / 8] = static_cast<char>(damaged[bit / 8] ^ (1 << (bit % 8)));
        QVERIFY2(!readFromByteArray(note, damaged), qPrintable(QString("bit %1").arg(bit)));
        QVERIFY2(!readFromStream(note, damaged), qPrintable(QString("bit %1").arg(bit)));
        QVERIFY2(!readThroughSetBinary(note, damaged), qPrintable(QString("bit %1").arg(bit)));
        QCOMPARE(note.fields(), before);
    }
}

void BinaryFormTest::onlyTheByteArrayMustEnd()
{
    const QByteArray bytes = binaryOf(sample()) + '\0';
    Note note("title");
    const QStringList before = note.fields();
    QVERIFY(!readFromByteArray(note, bytes));
    QVERIFY(!readFromFile(note, bytes));
    QCOMPARE(note.fields(), before);

    QVERIFY(readFromStream(note, bytes));
    QCOMPARE(note.fields(), sample().fields());
}

void BinaryFormTest::statusOfTheStream()
{
    const QByteArray good = binaryOf(sample());
    Note other = sample();
    other.SetObjectName("Memo");
    Note note;

    QDataStream whole(good);
    note.SetBinary(whole, 1);
    QCOMPARE(whole.status(), QDataStream::Ok);
    note.SetBinary(whole, 1);
    QCOMPARE(whole.status(), QDataStream::ReadCorruptData);

    QDataStream anotherVersion(good);
    note.SetBinary(anotherVersion, 99);
    QCOMPARE(anotherVersion.status(), QDataStream::Ok);

    for (const QByteArray &bad :
         {QByteArray(), good.left(10), good.chopped(1), binaryOf(other), plainForm("<Note>").toBytes()}) {
        QDataStream stream(bad);
        note.SetBinary(stream, 1);
        QCOMPARE(stream.status(), QDataStream::ReadCorruptData);
    }
}

/// As far as it goes, for a reader that allows it.
void BinaryFormTest::greatestCompression()
{
    constexpr int Size = 20'000'000;
    const Note note("title", QString(Size, 'x'));
    Form form;
    form.flags = 1;
    form.payload = qCompress(note.GetXmlString().toUtf8(), 9);
    QVERIFY(Size / form.payload.size() > 1015);
    ReadingLimits limits;
    limits.SetExpandedBytes(2 * Size);
    Note back;
    back.SetReadingLimits(limits);
    QVERIFY(readFromByteArray(back, form.toBytes()));
    QCOMPARE(back.body.size(), note.body.size());
}

void BinaryFormTest::claimedSizesCostNoMemory_data()
{
    QTest::addColumn<QByteArray>("bytes");

    Form form = plainForm(ShortXml);
    form.claimedPayloadSize = 0x7FFFFFF0;
    QTest::newRow("text of 2 GiB") << form.toBytes();
    form.claimedPayloadSize = 0xFFFFFFFF;
    QTest::newRow("text of 4 GiB") << form.toBytes();
    form = plainForm(ShortXml);
    form.claimedNameSize = 0x7FFFFFF0;
    QTest::newRow("name of 2 GiB") << form.toBytes();
    QTest::newRow("compressed text of 1 GiB") << compressedForm(ShortXml, 0x40000000).toBytes();
    QTest::newRow("compressed text of 4 GiB") << compressedForm(ShortXml, 0xFFFFFFFF).toBytes();
}

void BinaryFormTest::claimedSizesCostNoMemory()
{
    QFETCH(QByteArray, bytes);

    constexpr qint64 Plenty = 256 * 1024 * 1024;
    const qint64 before = greatestMemory();
    Note note("title");
    QVERIFY(!readFromByteArray(note, bytes));
    QVERIFY(!readFromStream(note, bytes));
    QVERIFY(greatestMemory() - before < Plenty);
    QCOMPARE(note.title, QString("title"));
}

void BinaryFormTest::incompleteObjectsWriteNothing()
{
    DraftNote draft(QString(), "body");
    QCOMPARE(draft.GetBinaryRepresentationAsQByteArray(), QByteArray());
    QCOMPARE(draft.GetCompressedBinaryRepresentationAsQByteArray(9), QByteArray());

    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    QVERIFY(!draft.GetBinary(stream, 1, false));
    QVERIFY(!draft.GetBinary(stream, 1, true));
    draft.GetBinaryRepresentation(stream);
    draft.GetCompressedBinaryRepresentation(stream, 9);
    QCOMPARE(bytes, QByteArray());
    QCOMPARE(stream.status(), QDataStream::Ok);
}

void BinaryFormTest::invalidObjectsThrow()
{
    Note damaged("title", QString(QChar(1)));
    Note incomplete;
    const QVector<std::pair<Note *, QString>> objects{
        {&incomplete, "Note: Please set Title"},
        {&damaged, "Note: Text cannot be represented in XML"},
    };
    for (const auto &[note, message] : objects) {
        for (const WriteOperation &writing : writeOperations())
            QCOMPARE(messageOf([&, object = note] { writing.write(*object); }), message);
    }
}

void BinaryFormTest::failingDevice()
{
    FullDevice device;
    QDataStream stream(&device);
    QVERIFY(!sample().GetBinary(stream, 1, false));
    QVERIFY(!sample().GetBinary(stream, 1, true));
}

void BinaryFormTest::otherNames()
{
    Note note = sample();
    note.SetObjectName(QString::fromUtf8("Notiz\xC3\xBC"
                                         "bersicht"));
    const QByteArray bytes = binaryOf(note);

    Note back;
    QVERIFY(!readFromByteArray(back, bytes));
    back.SetObjectName(note.GetObjectName());
    QVERIFY(readFromByteArray(back, bytes));
    QCOMPARE(back.fields(), note.fields());
}

QTEST_GUILESS_MAIN(BinaryFormTest)
#include "BinaryFormTest.moc"
