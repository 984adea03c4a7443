#include "DocumentSamples.h"

#include <inspection/Finding.h>

#include <limits>

using namespace KORMAK;
using namespace DocumentSamples;

Q_DECLARE_METATYPE(Finding::Limit)

class FindingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void byDefault();
    void everything();
    void places_data();
    void places();
    void limits_data();
    void limits();
    void comparison();
    void idsOfExamples();
};

namespace {

Finding firstOf(const QByteArray &text, const TESSEL::ReadingLimits &limits = {})
{
    const QVector<Finding> findings = Document(text, limits).GetFindings();
    return findings.isEmpty() ? Finding() : findings.constFirst();
}

} // namespace

void FindingTest::byDefault()
{
    const Finding finding;
    QCOMPARE(finding.GetSeverity(), Finding::Severity::Warning);
    QCOMPARE(finding.GetId() + finding.GetMessage() + finding.GetPath() + finding.GetFound(), QString());
    QVERIFY(!finding.HasPlace());
    QVERIFY(!finding.HasFound());
    QCOMPARE(finding.GetOffset(), -1);
    QCOMPARE(finding.GetLine() + finding.GetColumn(), 0);
    QCOMPARE(finding.GetLimit(), Finding::Limit::None);
    QVERIFY(finding.GetAllowed().isEmpty());
    QCOMPARE(finding, Finding());

    Finding moved = firstOf("<Job/>");
    const Finding taken = std::move(moved);
    QVERIFY(taken != Finding());
    QCOMPARE(moved, Finding()); // NOLINT: what is moved from is as new
}

void FindingTest::everything()
{
    const Document document = example("faulty/job-type-in-lower-case.xml");
    QCOMPARE(document.GetFindings().size(), 1);
    const Finding finding = document.GetFindings().constFirst();
    QCOMPARE(finding.GetSeverity(), Finding::Severity::Error);
    QCOMPARE(finding.GetId(), FindingId::BadValue.toString());
    QCOMPARE(finding.GetMessage(),
             QString("\"surveillance mc hf\" is not a known name; it reads as \"not set\""));
    QCOMPARE(finding.GetPath(), QString("Job/JobHeader/JobType"));
    QVERIFY(finding.HasPlace());
    QCOMPARE(finding.GetLine(), 4);
    QCOMPARE(finding.GetColumn(), 9);
    QVERIFY(contentOf(EXAMPLES_DIR "/faulty/job-type-in-lower-case.xml")
                .mid(static_cast<int>(finding.GetOffset()))
                .startsWith("<JobType>"));
    QVERIFY(finding.HasFound());
    QCOMPARE(finding.GetFound(), QString("surveillance mc hf"));
    QCOMPARE(finding.GetAllowed(), FindVocabulary("JobType").GetNames());
    QCOMPARE(finding.GetComplaint(), QString("JobHeader: Please set JobType"));
}

void FindingTest::places_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<qint64>("offset");
    QTest::addColumn<qint64>("line");
    QTest::addColumn<qint64>("column");

    QTest::newRow("start") << QByteArray("<X/>") << qint64(0) << qint64(1) << qint64(1);
    QTest::newRow("line") << QByteArray("\n\n <X/>") << qint64(3) << qint64(3) << qint64(2);
    QTest::newRow("lines of two characters")
        << QByteArray("<!---->\r\n <X/>") << qint64(10) << qint64(2) << qint64(2);
    QTest::newRow("characters of several bytes")
        << QByteArray("<!--\xC3\xA9\xE2\x82\xAC--><X/>") << qint64(12) << qint64(1) << qint64(10);
    QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBF<X/>") << qint64(3) << qint64(1) << qint64(1);
    QTest::newRow("not UTF-8 behind a mark")
        << QByteArray("\xEF\xBB\xBF<Job>\xFF</Job>") << qint64(8) << qint64(1) << qint64(6);
    QTest::newRow("NUL") << QByteArray("<Job/>\n\0", 8) << qint64(7) << qint64(2) << qint64(1);
    QTest::newRow("empty") << QByteArray() << qint64(0) << qint64(1) << qint64(1);
}

void FindingTest::places()
{
    QFETCH(QByteArray, text);
    QFETCH(qint64, offset);
    QFETCH(qint64, line);
    QFETCH(qint64, column);

    const Finding finding = firstOf(text);
    QVERIFY(finding.HasPlace());
    QCOMPARE(finding.GetOffset(), offset);
    QCOMPARE(finding.GetLine(), line);
    QCOMPARE(finding.GetColumn(), column);
}

void FindingTest::limits_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<Finding::Limit>("limit");

    QTest::newRow("none") << QByteArray("<X/>") << Finding::Limit::None;
    QTest::newRow("attributes") << QByteArray("<Job a='' b='' c=''/>") << Finding::Limit::Attributes;
    QTest::newRow("depth") << QByteArray("<GenericReceiver><Script><b><c/></b></Script></GenericReceiver>")
                           << Finding::Limit::Depth;
    QTest::newRow("entities") << QByteArray("<!DOCTYPE Job [<!ENTITY a 'bbbb'>]><Job>&a;</Job>")
                              << Finding::Limit::Entities;
}

void FindingTest::limits()
{
    QFETCH(QByteArray, text);
    QFETCH(Finding::Limit, limit);

    TESSEL::ReadingLimits reading;
    reading.SetAttributes(2);
    reading.SetDepth(3);
    reading.SetEntityCharacters(3);
    reading.SetEntityFactor(0);
    const Finding finding = firstOf(text, reading);
    QCOMPARE(finding.GetLimit(), limit);
    QCOMPARE(finding.GetId() == FindingId::BeyondLimit, limit != Finding::Limit::None);
    QVERIFY(!finding.GetMessage().contains("--"));
    QCOMPARE(firstOf(text).GetLimit(), Finding::Limit::None);
}

void FindingTest::comparison()
{
    const Finding finding = firstOf("<Job/>");
    QVERIFY(finding == firstOf("<Job/>"));
    QVERIFY(finding != firstOf(" <Job/>")); // elsewhere
    QVERIFY(finding != firstOf("<Job>x</Job>"));
    QVERIFY(finding != Document::New("Job").GetFindings().constFirst());
}

/// Each is documented, and no finding has another.
void FindingTest::idsOfExamples()
{
    const QList<QStringView> known{FindingId::BadValue,         FindingId::BeyondLimit,
                                   FindingId::Encoding,         FindingId::Lost,
                                   FindingId::LostComment,      FindingId::MisplacedElement,
                                   FindingId::MissingAttribute, FindingId::MissingElement,
                                   FindingId::NotReadBack,      FindingId::NotWellFormed,
                                   FindingId::Refused,          FindingId::Repeated,
                                   FindingId::StrayText,        FindingId::Suspicious,
                                   FindingId::UnknownAttribute, FindingId::UnknownElement,
                                   FindingId::UnknownKind,      FindingId::Unread};
    QStringList ids;
    for (const QString &path : examples()) {
        const Document document(contentOf(path));
        for (const Finding &finding : document.GetFindings() + document.GetLosses()) {
            QVERIFY2(known.contains(QStringView(finding.GetId())), qPrintable(finding.GetId()));
            QVERIFY(!finding.GetMessage().isEmpty());
            ids += finding.GetId();
        }
    }
    ids.removeDuplicates();
    QVERIFY2(ids.size() >= 9, qPrintable(ids.join(' ')));
}

QTEST_GUILESS_MAIN(FindingTest)
#include "FindingTest.moc"
