// Fills a folder with what the fuzzers start from, one folder for each target: the examples, small documents
// of every kind, good and bad, documents with random values, and the binary forms of the complete ones.
#include <fuzz/Targets.h>
#include <tests/support/RandomDocuments.h>
#include <tests/support/SmallDocuments.h>

#include <QCryptographicHash>
#include <QDirIterator>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QTemporaryFile>

#include <cstdio>
#ifdef KORMAK_FUZZES_TOOL
#include <fuzz/ToolProperties.h>
#include <tools/Command.h>
#endif

namespace {

using namespace SchemaSupport;

class Seeds {
public:
    explicit Seeds(const QString &path) : folder(path) { }

    void addDocument(const QString &kind, const QString &document)
    {
        add(kind, document.toUtf8());
        addText(document);
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

    /// For the targets that take documents of every kind.
    void addText(const QString &document)
    {
        add("Document", document.toUtf8());
        texts.insert(document.toUtf8());
        add("ToolDocument", document.toUtf8());
        add("Edit", document.toUtf8());
        add("Inspection", document.toUtf8());
    }

    [[nodiscard]] const QSet<QByteArray> &documents() const { return texts; }

    void add(const QString &target, const QByteArray &input)
    {
        const QString name = QCryptographicHash::hash(input, QCryptographicHash::Sha1).toHex();
        folder.mkpath(target);
        TestSupport::writtenFile(folder.filePath(target + '/' + name), input);
    }

private:
    QDir folder;
    QSet<QByteArray> texts;
};

void addExamples(Seeds &seeds)
{
    QDirIterator file(EXAMPLES_DIR, {"*.xml"}, QDir::Files, QDirIterator::Subdirectories);
    while (file.hasNext()) {
        const QString text = QString::fromUtf8(TestSupport::bytesOf(file.next()));
        const QString root = TestSupport::rootOf(text);
        if (kinds().contains(root))
            seeds.addDocument(root, text);
        else
            seeds.addText(text);
    }
}

#ifdef KORMAK_FUZZES_TOOL

/// Adds "FIELD=VALUE" for each value in \a json, which is called \a path.
void addAssignments(QStringList &lines, const QJsonValue &json, const QString &path)
{
    if (json.isObject()) {
        const QJsonObject fields = json.toObject();
        const bool isMap = path == "Parameter"; // by unique names
        for (auto field = fields.begin(); field != fields.end(); ++field) {
            const QString name = isMap ? '[' + field.key() + ']' : (path.isEmpty() ? "" : ".") + field.key();
            addAssignments(lines, *field, path + name);
        }
    } else if (json.isArray()) {
        const QJsonArray array = json.toArray();
        for (int i = 0; i < array.size(); ++i)
            addAssignments(lines, array.at(i), QStringLiteral("%1[%2]").arg(path).arg(i));
    } else if (!json.isNull()) {
        lines += path + '=' + json.toVariant().toString();
    }
}

/// What "new" takes to make \a document, as far as it can be set.
void addCallOfNew(Seeds &seeds, const QByteArray &document)
{
    QTemporaryFile file;
    if (!file.open() || file.write(document) != document.size() || !file.flush())
        throw std::runtime_error("there is room for temporary files");
    const auto shown = Fuzz::runTool({"show", "--format", "json", file.fileName()});
    if (shown.status != Good)
        return;
    const QJsonObject json = QJsonDocument::fromJson(shown.output).object();
    const QByteArray kind = json.value("kind").toString().toUtf8();
    QStringList lines;
    addAssignments(lines, json.value("fields"), {});
    constexpr int Most = 100;
    if (lines.size() > Most)
        return;
    QByteArray input = kind;
    for (auto count = lines.size() + 1; count != lines.size();) { // some can only be set when others are
        count = lines.size();
        lines.erase(std::remove_if(lines.begin(), lines.end(),
                                   [&input](const QString &line) {
                                       const QByteArray longer = input + '\n' + line.toUtf8();
                                       const bool isTaken =
                                           Fuzz::runTool(Fuzz::callOfNew(longer)).status != Failed;
                                       if (isTaken)
                                           input = longer;
                                       return isTaken;
                                   }),
                    lines.end());
    }
    seeds.add("ToolNew", input);
}

#endif

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
#ifdef KORMAK_FUZZES_TOOL
    for (const QByteArray &document : seeds.documents())
        addCallOfNew(seeds, document);
#endif
    return 0;
}
