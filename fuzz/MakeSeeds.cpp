// Fills a folder with what the fuzzers start from, one folder for each target: the examples, small documents
// of every kind, good and bad, documents with random values, and the binary forms of the complete ones.
#include <QCryptographicHash>
#include <QDirIterator>

#include <cstdio>
#include <fuzz/Targets.h>
#include <tests/RandomDocuments.h>
#include <tests/schemas/SmallDocuments.h>

namespace {

using namespace SchemaSupport;

class Seeds {
public:
    explicit Seeds(const QString &path) : folder(path) { }

    void addDocument(const QString &kind, const QString &document)
    {
        add(kind, document.toUtf8());
        add("Document", document.toUtf8());
        const auto object = newObject(kind);
        try {
            if (object->SetXmlString(document, true) && object->HasData()) {
                add("Binary", object->GetBinaryRepresentationAsQByteArray());
                add("Binary", object->GetCompressedBinaryRepresentationAsQByteArray(9));
            }
        } catch (const TESSEL::TesselException &) {
            // has no binary form
        }
    }

    void add(const QString &target, const QByteArray &input)
    {
        const QString name = QCryptographicHash::hash(input, QCryptographicHash::Sha1).toHex();
        QFile file(folder.filePath(target + '/' + name));
        if (!folder.mkpath(target) || !file.open(QIODevice::WriteOnly) || file.write(input) != input.size())
            throw std::runtime_error(file.fileName().toStdString());
    }

private:
    QDir folder;
};

void addExamples(Seeds &seeds)
{
    QDirIterator file(EXAMPLES_DIR, {"*.xml"}, QDir::Files, QDirIterator::Subdirectories);
    while (file.hasNext()) {
        const QString text = QString::fromUtf8(contentsOf({file.next()}).first());
        QXmlStreamReader reader(text);
        const QString root = reader.readNextStartElement() ? reader.name().toString() : QString();
        if (kinds().contains(root))
            seeds.addDocument(root, text);
        else
            seeds.add("Document", text.toUtf8());
    }
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 2) {
        std::fprintf(stderr, "Usage: %s FOLDER\n", argv[0]);
        return 2;
    }
    Seeds seeds(QFile::decodeName(argv[1]));
    addExamples(seeds);
    const auto small = smallDocuments();
    for (const Rows &rows : small) {
        for (const Row &row : rows)
            seeds.addDocument(row.kind, row.document);
    }
    constexpr quint32 AnySeed = 20260314;
    constexpr int Random = 30;
    TestSupport::RandomDocuments random(AnySeed);
    for (const QString &kind : kinds()) {
        for (int i = 0; i < Random; ++i)
            seeds.addDocument(kind, random.document(kind, i));
    }
    return 0;
}
