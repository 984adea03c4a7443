#include "inspection/Remedy_p.h"

#include <kormak/Vocabularies_p.h>
#include <objectbase/Vocabularies_p.h>

#include <QtTest>

#include <algorithm>

using namespace KORMAK;
using namespace KORMAK::Inspection;
using TESSEL::TextType;
using Kind = TextType::Kind;

Q_DECLARE_METATYPE(TextType)

class RemedyTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void guesses_data();
    void guesses();
    void everyNameInAnotherCase();
    void excerpts_data();
    void excerpts();
    void texts_data();
    void texts();
    void manySuggestions();
    void questions();
};

namespace {

const QStringList Resources = TESSEL::resourceTypes().names();

TextType ofType(Kind kind)
{
    TextType type;
    type.kind = kind;
    return type;
}

/// What is found of a \a text that is not of the \a type.
FindingData suggested(const TextType &type, const QString &text)
{
    FindingData finding{0, "wrong"};
    finding.found = text;
    suggestText(finding, type);
    return finding;
}

} // namespace

void RemedyTest::guesses_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<bool>("isCertain");

    const auto add = [](const QString &text, const QStringList &names = {}, bool isCertain = false) {
        QTest::newRow(qPrintable(text)) << text << names << isCertain;
    };
    add("antenna", {"Antenna"}, true);
    add("DDC V/uhf", {"DDC V/UHF"}, true);
    add(" \n Antenna\t", {"Antenna"}, true);
    add("Antena", {"Antenna"}, true);
    add("Antennna", {"Antenna"}, true);
    add("Antemna", {"Antenna"}, true);
    add("Atnenna", {"Antenna"}, true);
    add("ntenna", {"Antenna"});
    add("antena", {"Antenna"}); // by case and a letter
    add("Aetnnna");
    add("Atenn");
    add("Antennas 1");
    add("");
    add("A");
    add(" ");
    // What differs by a capital may be something else.
    add("Tuner VHF", {"Tuner HF"});
    add("Tuner V/HF", {"Tuner V/UHF"});
    add("Tuner VUHF", {"Tuner V/UHF"}, true);
    add("Tuner F", {"Tuner HF"});
    add("Antenna2", {"Antenna"});
    add(QString(100000, 'x'));
}

void RemedyTest::guesses()
{
    QFETCH(QString, text);
    QFETCH(QStringList, names);
    QFETCH(bool, isCertain);

    const Guess guess = guessOf(text, Resources);
    QCOMPARE(guess.names, names);
    QCOMPARE(guess.isCertain, isCertain);
}

void RemedyTest::everyNameInAnotherCase()
{
    for (const QString &name : Resources) {
        const Guess guess = guessOf(name.toUpper(), Resources);
        QCOMPARE(guess.names, QStringList(name));
        QVERIFY(guess.isCertain);
        QCOMPARE(nameInOtherCase(name.toLower(), Resources), name);
    }
    QCOMPARE(nameInOtherCase("antena", Resources), QString());
    QCOMPARE(nameInOtherCase("antenna ", Resources), QString()); // no element is called so
    const Guess several = guessOf("EDem", energyChannels().names());
    QCOMPARE(several.names, (QStringList{"ADem", "DDem"}));
    QVERIFY(!several.isCertain);
    QVERIFY(!guessOf("aa", {"Aa", "aA"}).isCertain);
    QCOMPARE(nameInOtherCase("aa", {"Aa", "aA"}), QString());
}

void RemedyTest::excerpts_data()
{
    QTest::addColumn<QStringList>("all");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<int>("more");

    const QStringList five = TESSEL::polarizations().names();
    QTest::newRow("few") << five << "Vertikal" << five << 0;
    QTest::newRow("none") << QStringList() << "x" << QStringList() << 0;
    QTest::newRow("many, no text") << Resources << "" << QStringList(Resources.mid(0, 4)) << 46;
    QTest::newRow("begun") << Resources << "Antenna M"
                           << QStringList{"Antenna", "Antenna Matrix", "Antenna Rotator", "Tuner HF"} << 46;
    QTest::newRow("in another case") << Resources << "RECORDER"
                                     << QStringList{"IF Recorder", "Decoder", "Audio Recorder",
                                                    "Morse Decoder"}
                                     << 46;
    QTest::newRow("long") << Resources
                          << "Antenna" + QString(100000, ' ')
            + 'x' << QStringList{"Antenna Matrix", "Antenna Rotator", "Antenna", "Wideband Receiver HF"}
                          << 46;
}

void RemedyTest::excerpts()
{
    QFETCH(QStringList, all);
    QFETCH(QString, text);
    QFETCH(QStringList, names);
    QFETCH(int, more);

    const NameExcerpt excerpt = excerptOf(all, text);
    QCOMPARE(excerpt.names, names);
    QCOMPARE(excerpt.more, more);
}

void RemedyTest::texts_data()
{
    QTest::addColumn<TextType>("type");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("suggestion"); // empty: none

    const auto add = [](Kind kind, const QString &text, const QString &suggestion = {}) {
        QTest::newRow(qPrintable(text)) << ofType(kind) << text << suggestion;
    };
    add(Kind::Boolean, "FALSE", "false");
    add(Kind::Boolean, " true", "true");
    add(Kind::Boolean, "yes");
    add(Kind::Boolean, "1");

    add(Kind::Double, "1,5", "1.5");
    add(Kind::Double, " -0,125e3 ", "-0.125e3");
    add(Kind::Double, ",5", ".5");
    add(Kind::Double, "1,5000", "1.5000");
    add(Kind::Double, "0,500", "0.500");
    add(Kind::Float, "1500,000", "1500.000");
    add(Kind::Double, "1,500");
    add(Kind::Float, "-12,345");
    add(Kind::Double, "1,500,000");
    add(Kind::Double, "1,5.0");
    add(Kind::Double, "1,5 Hz");
    add(Kind::Double, ",");
    add(Kind::Integer, "2,0");

    add(Kind::DateTime, "2024-05-01 10:00:00Z", "2024-05-01T10:00:00,000Z");
    add(Kind::DateTime, "2024-05-01T10:00:00Z", "2024-05-01T10:00:00,000Z");
    add(Kind::DateTime, "2024-05-01T10:00:00.25Z", "2024-05-01T10:00:00,250Z");
    add(Kind::DateTime, "2024-05-01t10:00:00,250000z", "2024-05-01T10:00:00,250Z");
    add(Kind::DateTime, "2024-05-01 10:00 UTC", "2024-05-01T10:00:00,000Z");
    add(Kind::DateTime, "\n2024-05-01T10:00:00,000Z\n", "2024-05-01T10:00:00,000Z");
    add(Kind::DateTime, "2024-01-01 00:30:00+01:00", "2023-12-31T23:30:00,000Z");
    add(Kind::DateTime, "2024-05-01 10:00:00 -0530", "2024-05-01T15:30:00,000Z");
    add(Kind::DateTime, "2024-05-01T10:00:00+02", "2024-05-01T08:00:00,000Z");
    add(Kind::DateTime, "2024-03-31 02:30:00Z",
        "2024-03-31T02:30:00,000Z"); // no local time in much of Europe
    add(Kind::DateTime, "2024-05-01T10:00:00+14:00", "2024-04-30T20:00:00,000Z");
    add(Kind::DateTime, "2024-05-01T10:00:00-12:00", "2024-05-01T22:00:00,000Z");
    add(Kind::DateTime, "0001-01-01T05:00:00+05:00", "0001-01-01T00:00:00,000Z");
    add(Kind::DateTime, "9999-12-31T18:59:59-05:00", "9999-12-31T23:59:59,000Z");
    add(Kind::DateTime, "2024-05-01T10:00:00+14:01");
    add(Kind::DateTime, "2024-05-01T10:00:00+99:00");
    add(Kind::DateTime, "2024-05-01T10:00:00-99:59");
    add(Kind::DateTime, "0001-01-01T00:00:00+05:00");
    add(Kind::DateTime, "9999-12-31T23:59:59-05:00");
    add(Kind::DateTime, "0000-05-01T10:00:00Z");
    add(Kind::DateTime, "2024-05-01 10:00:00");
    add(Kind::DateTime, "2024-05-01");
    add(Kind::DateTime, "2024-05-01Z");
    add(Kind::DateTime, "2024-05-01 10:00:00.1234Z"); // not to the millisecond
    add(Kind::DateTime, "2024-02-30 10:00:00Z");
    add(Kind::DateTime, "2024-05-01 24:00:00Z");
    add(Kind::DateTime, "2024-05-01 10:00:00 CET");
    add(Kind::DateTime, "01.05.2024 10:00:00Z");
    add(Kind::DateTime, "1714557600");
    add(Kind::DateTime, "now");
    add(Kind::LongLong, "1,5");
}

void RemedyTest::texts()
{
    QFETCH(TextType, type);
    QFETCH(QString, text);
    QFETCH(QString, suggestion);

    const FindingData finding = suggested(type, text);
    QCOMPARE(finding.suggestion, suggestion);
    QCOMPARE(finding.correction,
             suggestion.isEmpty() ? Finding::Correction::None : Finding::Correction::Text);
    QCOMPARE(finding.message,
             suggestion.isEmpty() ? QString("wrong") : "wrong; did you mean \"" + suggestion + "\"?");
}

/// Each as if it was the only one, however often and in whatever order the texts come.
void RemedyTest::manySuggestions()
{
    TextType resource = ofType(Kind::Name);
    resource.names = TESSEL::resourceTypes;
    TextType job = ofType(Kind::Name);
    job.names = jobTypes;
    TextSuggestions suggestions;
    for (int i = 0; i < 1000; ++i) {
        for (const TextType &type : {resource, job, ofType(Kind::Double), ofType(Kind::Boolean)}) {
            for (const QString &text : {QString("antenna"), QString("Search MC"), QString("1,5"),
                                        QString("True"), QString::number(i)}) {
                FindingData finding{0, "wrong"};
                finding.found = text;
                suggestions.add(finding, type);
                const FindingData expected = suggested(type, text);
                QCOMPARE(finding.message, expected.message);
                QCOMPARE(finding.allowed, expected.allowed);
                QCOMPARE(finding.vocabulary, expected.vocabulary);
                QCOMPARE(finding.suggestion, expected.suggestion);
                QVERIFY(finding.correction == expected.correction);
            }
        }
    }
}

void RemedyTest::questions()
{
    QCOMPARE(question({}), QString());
    QCOMPARE(question({"A", "B"}), QString("; did you mean \"A\" or \"B\"?"));

    TextType type = ofType(Kind::Name);
    type.names = energyChannels;
    const FindingData finding = suggested(type, "EDem");
    QCOMPARE(finding.message, QString("wrong; did you mean \"ADem\" or \"DDem\"?"));
    QCOMPARE(finding.correction, Finding::Correction::None);
    QCOMPARE(finding.allowed, energyChannels().names());
    QCOMPARE(finding.vocabulary, QStringView(u"EnergyActivityGenerationChannel"));
}

QTEST_GUILESS_MAIN(RemedyTest)
#include "RemedyTest.moc"
