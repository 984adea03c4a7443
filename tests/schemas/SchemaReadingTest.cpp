// The schemas, held against the reader: small documents that both take or refuse, and the few on which they
// differ.
#include <objectbase/Converters.h>
#include <tests/support/RowNames.h>
#include <tests/support/SmallDocuments.h>

#include <QtTest>

using namespace KORMAK;
using namespace TESSEL;
using namespace SchemaSupport;

Q_DECLARE_METATYPE(Verdict)

class SchemaReadingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void documents_data();
    void documents();
    void numbers_data();
    void numbers();
    void dates_data();
    void dates();
};

namespace {

bool readerTakes(const QString &kind, const QString &document)
{
    const auto object = newObject(kind);
    bool taken = false;
    const QString message = TestSupport::messageOf([&] { taken = object->SetXmlString(document, true); });
    return taken && message.isNull();
}

/// \a texts as documents of \a kind: whether the schema takes each.
QList<bool> schemaTakes(const QString &kind, const QStringList &texts)
{
    QList<QByteArray> documents;
    for (const QString &text : texts)
        documents << text.toUtf8();
    QList<bool> verdicts;
    for (const QString &complaint : complaints(kind, documents))
        verdicts << complaint.isEmpty();
    return verdicts;
}

/// Numbers in all the ways that people write them. None of them is 0 when it is read.
QStringList numberTexts()
{
    return {
        "5",        "+5",    "-5",         "--5",        "+-5",         " 5 ",         "\t5\n",      "5.",
        "5.0",      ".5",    "+.5",        "-.5",        ".",           "1.5.2",       "5e1",        "5E1",
        "5e+1",     "5e-2",  "5e",         "e5",         "5e1.5",       "1e38",        "3.4e38",     "3.5e38",
        "-3.5e38",  "1e308", "1.8e308",    "-1.8e308",   "nan",         "NaN",         "NAN",        "+nan",
        "-nan",     " nan ", "inf",        "INF",        "Inf",         "+inf",        "-inf",       " inf ",
        "infinity", "0x10",  "1,000",      "1'000",      "1 000",       "5,5",         "",           " ",
        "five",     "5 Hz",  "5f",         "5_0",        "$5",          "\u0665",      "\uff15",     "05",
        "007",      "1e5",   "2147483647", "2147483648", "-2147483648", "-2147483649", "4294967297", "1e400",
        "-1e400",   "5;",    "true",       "Infinity",   "1/2",         "5%"};
}

} // namespace

void SchemaReadingTest::initTestCase()
{
    QVERIFY2(obstacle().isEmpty(), obstacle());
}

void SchemaReadingTest::documents_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("document");
    QTest::addColumn<Verdict>("verdict");
    QTest::addColumn<bool>("isValid");

    const QMap<QString, Rows> rows = smallDocuments();
    for (auto kind = rows.begin(); kind != rows.end(); ++kind) {
        QStringList texts;
        for (const Row &row : kind.value())
            texts << row.document;
        QList<bool> valid = schemaTakes(kind.key(), texts);
        for (const Row &row : kind.value())
            QTest::newRow(qPrintable(row.kind + ": " + row.name))
                << row.kind << row.document << row.verdict << valid.takeFirst();
    }
}

void SchemaReadingTest::documents()
{
    QFETCH(QString, kind);
    QFETCH(QString, document);
    QFETCH(Verdict, verdict);
    QFETCH(bool, isValid);

    QCOMPARE(readerTakes(kind, document), verdict == Taken || verdict == ReaderOnly);
    QCOMPARE(isValid, verdict == Taken || verdict == SchemaOnly);
}

void SchemaReadingTest::numbers_data()
{
    QTest::addColumn<bool>("isValid");
    QTest::addColumn<bool>("meansSomething");

    const auto add = [](const char *type, const QString &kind, const QString &form, auto value) {
        const QStringList texts = numberTexts();
        QStringList documents;
        for (const QString &text : texts)
            documents << form.arg(text);
        const QList<bool> valid = schemaTakes(kind, documents);
        for (int i = 0; i < texts.size(); ++i) {
            const auto object = newObject(kind);
            QVERIFY(object->SetXmlString(documents[i], true));
            QTest::newRow(QByteArray(type) + ' ' + RowNames::quoted(texts[i]))
                << valid[i] << (value(*object) != 0);
        }
    };
    add("double", "Area", "<Area><Coordinate><Latitude>%1</Latitude></Coordinate></Area>",
        [](const ITesselObject &object) {
            return dynamic_cast<const Area &>(object).GetCoordinate().first().GetLatitude();
        });
    add("float", "ActivityGeneration",
        "<ActivityGeneration><SessionCloseTime>%1</SessionCloseTime></ActivityGeneration>",
        [](const ITesselObject &object) {
            return dynamic_cast<const ActivityGenerationData &>(object).GetSessionCloseTime();
        });
    add("integer", "ActivityGeneration",
        "<ActivityGeneration><ClassFinalScore>%1</ClassFinalScore></ActivityGeneration>",
        [](const ITesselObject &object) {
            return dynamic_cast<const ActivityGenerationData &>(object).GetClassFinalScore();
        });
    const auto entryOf = [](const ITesselObject &object) {
        return dynamic_cast<const Parameter &>(object).GetEnumHandler().GetEnumList().first();
    };
    add("double in an attribute", "Parameter",
        "<Parameter><Enum><EnumValue Value=\"%1\"/></Enum></Parameter>",
        [&](const ITesselObject &object) { return entryOf(object).Value; });
    add("integer in an attribute", "Parameter", "<Parameter><Enum><EnumValue Key=\"%1\"/></Enum></Parameter>",
        [&](const ITesselObject &object) { return entryOf(object).Key; });
}

void SchemaReadingTest::numbers()
{
    QFETCH(bool, isValid);
    QFETCH(bool, meansSomething);

    QCOMPARE(isValid, meansSomething);
}

void SchemaReadingTest::dates_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isValid");

    const QStringList texts{"2026-03-29T00:59:59,250Z",
                            "2026-03-29T23:59:59,999Z",
                            "2026-03-29T24:00:00,000Z",
                            "2026-03-29T00:60:00,000Z",
                            "2026-03-29T00:00:60,000Z",
                            "2026-03-29T00:00:00.000Z",
                            "2026-03-29T00:00:00Z",
                            "2026-03-29T00:00:00,0Z",
                            "2026-03-29T00:00:00,0000Z",
                            "2026-03-29T00:00:00,000",
                            "2026-03-29T00:00:00,000z",
                            "2026-03-29T00:00:00,000+01:00",
                            "2026-03-29 00:00:00,000Z",
                            "2026-3-29T00:00:00,000Z",
                            "26-03-29T00:00:00,000Z",
                            " 2026-03-29T00:00:00,000Z",
                            "2026-03-29T00:00:00,000Z\n",
                            "+2026-03-29T00:00:00,000Z",
                            "2026-01-31T00:00:00,000Z",
                            "2026-01-32T00:00:00,000Z",
                            "2026-01-00T00:00:00,000Z",
                            "2026-04-30T00:00:00,000Z",
                            "2026-04-31T00:00:00,000Z",
                            "2026-12-31T00:00:00,000Z",
                            "2026-13-01T00:00:00,000Z",
                            "2026-00-01T00:00:00,000Z",
                            "2026-02-28T00:00:00,000Z",
                            "2026-02-29T00:00:00,000Z",
                            "2024-02-29T00:00:00,000Z",
                            "2024-02-30T00:00:00,000Z",
                            "1900-02-29T00:00:00,000Z",
                            "2000-02-29T00:00:00,000Z",
                            "2100-02-29T00:00:00,000Z",
                            "0004-02-29T00:00:00,000Z",
                            "0100-02-29T00:00:00,000Z",
                            "0400-02-29T00:00:00,000Z",
                            "10000-02-29T00:00:00,000Z",
                            "10100-02-29T00:00:00,000Z",
                            "12345-01-01T00:00:00,000Z",
                            "12345-02-29T00:00:00,000Z",
                            "12344-02-29T00:00:00,000Z",
                            "02026-01-01T00:00:00,000Z",
                            "0000-01-01T00:00:00,000Z",
                            "0001-01-01T00:00:00,000Z",
                            "-0001-01-01T00:00:00,000Z",
                            "-0001-02-29T00:00:00,000Z",
                            "-0001-02-30T00:00:00,000Z",
                            "-0000-01-01T00:00:00,000Z",
                            "-12345-06-30T00:00:00,000Z",
                            "-12345-06-31T00:00:00,000Z",
                            "--2026-01-01T00:00:00,000Z",
                            "\u0662026-01-01T00:00:00,000Z",
                            "2026-01-01T00:00:00,00\u0660Z",
                            "yesterday",
                            ""};
    QStringList documents;
    for (const QString &text : texts)
        documents << "<JobHeader><Creation>" + text + "</Creation></JobHeader>";
    QList<bool> valid = schemaTakes("JobHeader", documents);
    for (const QString &text : texts)
        QTest::newRow(RowNames::quoted(text)) << text << valid.takeFirst();
}

void SchemaReadingTest::dates()
{
    QFETCH(QString, text);
    QFETCH(bool, isValid);

    QCOMPARE(isValid, Converters::ToDateTime(text).isValid());
}

QTEST_GUILESS_MAIN(SchemaReadingTest)

#include "SchemaReadingTest.moc"
