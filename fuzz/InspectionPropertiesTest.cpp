// A property that does not hold must be noticed: documents with one fault each.
#include <fuzz/InspectionProperties.h>

#include <QtTest>

#include <functional>

namespace {

using Check = std::function<void()>;
using KORMAK::Difference;
using KORMAK::Document;
using KORMAK::Field;
using KORMAK::Finding;

struct Faultless : Document {
    using Document::Document;
};

struct AcceptingAnything : Document {
    using Document::Document;
    static bool IsAccepted() { return true; }
};

struct AcceptingNothing : Document {
    using Document::Document;
    static bool IsAccepted() { return false; }
};

struct AcceptingBeyondLimits : Document {
    AcceptingBeyondLimits() = default;
    explicit AcceptingBeyondLimits(const TESSEL::ITesselObject &object) : Document(object) { }
    explicit AcceptingBeyondLimits(const QByteArray &text, const TESSEL::ReadingLimits & /*limits*/ = {})
        : Document(text)
    {
    }
};

struct CompleteAlways : Document {
    using Document::Document;
    static bool IsComplete() { return true; }
};

struct OfAnotherKind : Document {
    using Document::Document;
    static QString GetKind() { return "Parameter"; }
};

/// Reads a text as another one.
struct ReadingOtherwise : Document {
    ReadingOtherwise() = default;
    explicit ReadingOtherwise(const TESSEL::ITesselObject &object) : Document(object) { }
    explicit ReadingOtherwise(QByteArray text, const TESSEL::ReadingLimits &limits = {})
        : Document(text.replace("<Author>Mara Lind<", "<Author>Nils<"), limits)
    {
    }
};

/// Tells the findings of its text as they are changed.
template <class Change>
struct Telling : Document {
    using Document::Document;
    [[nodiscard]] QVector<Finding> GetFindings() const { return Change::of(Document::GetFindings()); }
};

struct NothingAtAll {
    static QVector<Finding> of(const QVector<Finding> & /*findings*/) { return {}; }
};

struct WithOneThatSaysNothing {
    static QVector<Finding> of(const QVector<Finding> &findings) { return findings + QVector<Finding>(1); }
};

struct WithBrokenJson : Document {
    using Document::Document;
    [[nodiscard]] QByteArray GetFindingsJson(const QString &file) const
    {
        return Document::GetFindingsJson(file).replace('}', ' ');
    }
};

struct WithOtherJson : Document {
    using Document::Document;
    [[nodiscard]] QByteArray GetFindingsJson(const QString &file) const
    {
        return Document::GetFindingsJson(file).replace("\"error\"", "\"warning\"");
    }
};

struct WithShortJson : Document {
    using Document::Document;
    [[nodiscard]] QByteArray GetFindingsJson(const QString &file) const
    {
        return Document::GetFindingsJson(file).split('\n').constFirst() + '\n';
    }
};

struct WithoutFieldsInJson : Document {
    using Document::Document;
    [[nodiscard]] QByteArray GetFieldsJson() const
    {
        return Document::GetFieldsJson().replace("\"fields\"", "\"others\"");
    }
};

struct WithTheStateOfAnother : Document {
    using Document::Document;
    [[nodiscard]] QString GetState() const { return Document::GetState().replace(", not", ","); }
};

struct WithoutFields : Document {
    using Document::Document;
    static QVector<Field> GetFields() { return {}; }
};

struct WithFieldsTwice : Document {
    using Document::Document;
    [[nodiscard]] QVector<Field> GetFields() const { return Document::GetFields() + Document::GetFields(); }
};

struct FindingAnotherField : Document {
    using Document::Document;
    [[nodiscard]] Field GetField(const QString & /*path*/) const { return Document::GetField("Version"); }
};

struct ThrowingOtherwise : Document {
    using Document::Document;
    [[noreturn]] static QVector<Finding> GetLosses() { throw std::out_of_range("other"); }
};

struct SettingOtherwise : Document {
    using Document::Document;
    void SetField(const QString &path, const QString &text)
    {
        Document::SetField(path, path == "JobHeader.Author" ? text + '+' : text);
    }
};

struct SettingTogetherOtherwise : Document {
    using Document::Document;
    void SetFields(QVector<Setting> settings)
    {
        for (Setting &setting : settings)
            setting.second += setting.first == "JobHeader.Author" ? "+" : "";
        Document::SetFields(settings);
    }
};

struct DifferingFromItself : Document {
    using Document::Document;
    static QVector<Difference> Compare(const Document &a, const Document &b)
    {
        return &a == &b ? QVector<Difference>(1) : Document::Compare(a, b);
    }
};

/// Loses the description without a word.
struct SilentAboutLosses : Document {
    SilentAboutLosses() = default;
    explicit SilentAboutLosses(const TESSEL::ITesselObject &object) : Document(object) { }
    explicit SilentAboutLosses(QByteArray text, const TESSEL::ReadingLimits &limits = {})
        : Document(text.startsWith("<?xml") ? text.replace("first", "last") : text, limits)
    {
    }
};

struct SilentAboutErrors : Document {
    using Document::Document;
    [[nodiscard]] QVector<Finding> GetLosses() const
    {
        return GetObject() ? QVector<Finding>() : Document::GetLosses();
    }
    [[nodiscard]] QByteArray GetLossesJson(const QString &file) const
    {
        return GetObject() ? QByteArray() : Document::GetLossesJson(file);
    }
};

struct ForgettingWhenCopied : Document {
    using Document::Document;
    ForgettingWhenCopied() = default;
    ForgettingWhenCopied(const ForgettingWhenCopied & /*other*/) : Document() { }
    ForgettingWhenCopied &operator=(const ForgettingWhenCopied &other) = default;
};

struct KeepingWhenAssigned : Document {
    using Document::Document;
    KeepingWhenAssigned() = default;
    KeepingWhenAssigned(const KeepingWhenAssigned &other) = default;
    KeepingWhenAssigned &operator=(const KeepingWhenAssigned & /*other*/) { return *this; } // NOLINT
};

/// Of an object, it is another one.
struct WithAnotherObject : Document {
    WithAnotherObject() = default;
    explicit WithAnotherObject(const QByteArray &text, const TESSEL::ReadingLimits &limits = {})
        : Document(text, limits)
    {
    }
    explicit WithAnotherObject(const TESSEL::ITesselObject &object) : Document(object)
    {
        SetField("JobHeader.Author", "Nils");
    }
};

} // namespace

Q_DECLARE_METATYPE(Check)

class InspectionPropertiesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void faultsAreNoticed_data();
    void faultsAreNoticed();
};

void InspectionPropertiesTest::faultsAreNoticed_data()
{
    QTest::addColumn<Check>("check");
    QTest::addColumn<QString>("violation"); // empty: none

    // Nothing in it is worth a warning.
    const QByteArray document = TestSupport::wholeJob().replace("perhaps", "true").toUtf8();
    const QByteArray suspicious = QByteArray(document).replace("</Author>", "</Author>\n<!-- -->\nx");
    const QByteArray incomplete = "<Job Version=\"1.0\">x<JobHeader>x</JobHeader></Job>";
    const QByteArray malformed = document.chopped(1);
    const QByteArray deep = "<Area><a><b><c/></b></a></Area>";

    const auto row = [](const char *name, auto faulty, const QByteArray &input, const char *violation) {
        const Check check = [input] { Fuzz::checkInspection<decltype(faulty)>(input); };
        QTest::newRow(name) << check << QString(violation);
    };
    for (const QByteArray &input :
         {document, suspicious, incomplete, malformed, deep, QByteArray("\xFF"), QByteArray("<a/>"),
          QByteArray("<Job/>\0", 7), QByteArray(), "\xEF\xBB\xBF" + document})
        row("no fault, " + input.toPercentEncoding(), Faultless(), input, "");

    row("accepts anything", AcceptingAnything(), malformed, "what the library accepts is accepted");
    row("accepts nothing", AcceptingNothing(), document, "what the library accepts is accepted");
    row("accepts what is beyond limits", AcceptingBeyondLimits(),
        TestSupport::wholeGenericReceiver().toUtf8(), "what the library accepts is accepted");
    row("is complete always", CompleteAlways(), incomplete, "what the library has read completely");
    row("is of another kind", OfAnotherKind(), malformed, "the kind is that of the root element");
    row("reads otherwise", ReadingOtherwise(), document, "the object is the one that the library reads");
    row("tells nothing", Telling<NothingAtAll>(), malformed, "an error is what the library refuses");
    row("tells what says nothing", Telling<WithOneThatSaysNothing>(), document, "a finding says what it is");
    row("with broken JSON", WithBrokenJson(), malformed, "JSON is an object");
    row("with other JSON", WithOtherJson(), malformed, "JSON tells what the findings do");
    row("with short JSON", WithShortJson(), malformed, "JSON tells as much as the findings");
    row("without fields in JSON", WithoutFieldsInJson(), document, "JSON has all members");
    row("with the state of another", WithTheStateOfAnother(), incomplete, "the state tells whether");
    row("without fields", WithoutFields(), document, "an object has fields");
    row("with fields twice", WithFieldsTwice(), document, "a path leads to one field");
    row("finds another field", FindingAnotherField(), document, "a field is found by its path");
    row("throws otherwise", ThrowingOtherwise(), document, "other");
    row("sets otherwise", SettingOtherwise(), document, "stays as it is: JobHeader.Author");
    row("sets together otherwise", SettingTogetherOtherwise(), document, "fields hold what they are set to");
    row("differs from itself", DifferingFromItself(), document, "a document does not differ from itself");
    row("silent about losses", SilentAboutLosses(), document, "nothing that was said is changed");
    row("silent about errors", SilentAboutErrors(), incomplete, "what cannot be written is told");
    row("forgets when copied", ForgettingWhenCopied(), document, "a copy tells what the original does");
    row("keeps when assigned", KeepingWhenAssigned(), document, "what is assigned takes the place");
    row("with another object", WithAnotherObject(), document, "the object is the one");

    const auto places = [](const char *name, const QVector<Finding> &findings, const QByteArray &text,
                           const char *violation) {
        const Check check = [findings, text] { Fuzz::checkPlaces(findings, text); };
        QTest::newRow(name) << check << QString(violation);
    };
    const QByteArray text = "<Job>\r\n\rx<a/>\n<b/></Job>";
    const QVector<Finding> findings = Document(text).GetFindings();
    QVERIFY(findings.size() > 2);
    QVector<Finding> backwards = findings;
    std::reverse(backwards.begin(), backwards.end());
    places("no fault, places", findings, text, "");
    places("without places", Document::New("Job").GetFindings(), text, "has a place in the text");
    places("places behind the text", findings, text.left(5), "has a place in the text");
    places("places backwards", backwards, text, "stand in the order");
    places("places in other lines", findings, QByteArray(text.size(), ' '), "lines are counted");
    const Check none = [findings] { Fuzz::checkHaveNoPlaces(findings); };
    QTest::newRow("places in an object") << none << "has no place";
}

void InspectionPropertiesTest::faultsAreNoticed()
{
    QFETCH(Check, check);
    QFETCH(QString, violation);

    QString actual;
    try {
        check();
    } catch (const std::exception &exception) {
        actual = exception.what();
    }
    QVERIFY2(violation.isEmpty() ? actual.isEmpty() : actual.contains(violation), qPrintable(actual));
}

QTEST_GUILESS_MAIN(InspectionPropertiesTest)
#include "InspectionPropertiesTest.moc"
