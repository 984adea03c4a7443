#include "DocumentSamples.h"

#include <inspection/Vocabulary.h>
#include <kormak/JobType.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace KORMAK;

class VocabularyTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void none();
    void all_data();
    void all();
    void jobTypes();
    void neverWritten();
};

void VocabularyTest::none()
{
    for (const Vocabulary &vocabulary : {Vocabulary(), FindVocabulary("jobtype"), FindVocabulary({})}) {
        QVERIFY(vocabulary.IsNull());
        QCOMPARE(vocabulary.GetName() + vocabulary.GetDescription(), QString());
        QVERIFY(vocabulary.GetEntries().isEmpty());
        QVERIFY(vocabulary.GetNames().isEmpty());
        QCOMPARE(vocabulary.GetJson(), QByteArray("[]"));
        QCOMPARE(vocabulary, Vocabulary());
    }
}

void VocabularyTest::all_data()
{
    QTest::addColumn<QString>("name");

    QCOMPARE(GetVocabularies().size(), 15);
    for (const Vocabulary &vocabulary : GetVocabularies())
        QTest::newRow(qPrintable(vocabulary.GetName())) << vocabulary.GetName();
}

void VocabularyTest::all()
{
    QFETCH(QString, name);

    const Vocabulary vocabulary = FindVocabulary(name);
    QVERIFY(!vocabulary.IsNull());
    QVERIFY(vocabulary != Vocabulary());
    QCOMPARE(vocabulary.GetName(), name);
    QVERIFY(!vocabulary.GetDescription().isEmpty());
    const QVector<Vocabulary::Entry> entries = vocabulary.GetEntries();
    const QJsonArray json = QJsonDocument::fromJson(vocabulary.GetJson()).array();
    QVERIFY(!entries.isEmpty());
    QCOMPARE(static_cast<int>(json.size()), static_cast<int>(entries.size()));
    QStringList names;
    for (int i = 0; i < entries.size(); ++i) {
        QVERIFY(i == 0 || entries[i - 1].value < entries[i].value);
        QVERIFY(!entries[i].name.isEmpty());
        names += entries[i].name;
        const QJsonObject object = json.at(i).toObject();
        QCOMPARE(object.value("value").toInt(), entries[i].value);
        QCOMPARE(object.value("name").toString(), entries[i].name);
        QCOMPARE(object.value("written").toString(), entries[i].written);
    }
    QCOMPARE(vocabulary.GetNames(), names);
#ifdef KORMAK_TOOL
    QCOMPARE(vocabulary.GetJson() + '\n', DocumentSamples::toolOutput({"list", "--format", "json", name}));
#endif
}

void VocabularyTest::jobTypes()
{
    const QVector<Vocabulary::Entry> entries = FindVocabulary("JobType").GetEntries();
    QCOMPARE(entries.size(), 22);
    for (const Vocabulary::Entry &entry : entries)
        QCOMPARE(JobType::NameToJobType(entry.name), static_cast<JobType::JobTypeValue>(entry.value));
    Vocabulary::Entry other = entries[0];
    QVERIFY(other == entries[0]);
    other.written += 'x';
    QVERIFY(other != entries[0]);
}

void VocabularyTest::neverWritten()
{
    const QVector<Vocabulary::Entry> entries = FindVocabulary("ParameterType").GetEntries();
    QStringList silent;
    for (const Vocabulary::Entry &entry : entries) {
        if (entry.written.isEmpty())
            silent += entry.name;
    }
    QCOMPARE(silent, QStringList("Boolean"));
}

QTEST_GUILESS_MAIN(VocabularyTest)
#include "VocabularyTest.moc"
