// A property that does not hold must be noticed: areas with one fault each.
#include <fuzz/BinaryProperties.h>

#include <QtTest>

#include <functional>

namespace {

using Check = std::function<void()>;

/// Carries a faulty class into the properties.
template <class Area>
struct Faulty : Area {
};

struct Faultless : TESSEL::Area { };

struct ThrowingOtherwise : TESSEL::Area {
    void ProcessXml(QXmlStreamReader & /*reader*/) override { throw std::out_of_range("other"); }
};

struct IncompleteInItsOwnEyes : TESSEL::Area {
    using Area::Check;
    void Check() const override { throw TESSEL::TesselException("Area: Please set Colour"); }
};

struct WritingNothing : TESSEL::Area {
    void GetXml(QXmlStreamWriter & /*writer*/) const override { }
};

struct GrowingWhenRead : TESSEL::Area {
    void ProcessXml(QXmlStreamReader &reader) override
    {
        Area::ProcessXml(reader);
        SetName(GetName() + '+');
    }
};

struct RefusingWhatItWrites : TESSEL::Area {
    void GetXml(QXmlStreamWriter &writer) const override
    {
        writer.writeStartElement("Area");
        writer.writeEmptyElement("Colour");
        writer.writeEndElement();
    }
};

struct LosingWhenCopied : TESSEL::Area {
    LosingWhenCopied() = default;
    LosingWhenCopied(const LosingWhenCopied &other) : Area(other) { GetCoordinate().clear(); }
    LosingWhenCopied &operator=(const LosingWhenCopied &other) = default;
};

struct LosingWhenAssigned : TESSEL::Area {
    LosingWhenAssigned() = default;
    LosingWhenAssigned(const LosingWhenAssigned &other) = default;
    LosingWhenAssigned &operator=(const LosingWhenAssigned &other)
    {
        SetName(other.GetName());
        return *this;
    }
};

struct NeverEqual : TESSEL::Area {
    bool operator==(const NeverEqual & /*other*/) const { return false; }
    bool operator!=(const NeverEqual & /*other*/) const { return true; }
};

struct AlwaysEqual : TESSEL::Area {
    bool operator==(const AlwaysEqual & /*other*/) const { return true; }
    bool operator!=(const AlwaysEqual & /*other*/) const { return false; }
};

struct EqualAndUnequal : TESSEL::Area {
    bool operator!=(const EqualAndUnequal & /*other*/) const { return true; }
};

struct TakingAnyText : TESSEL::Area {
    bool SetXmlString(const QString &text, bool validate) override
    {
        return Area::SetXmlString(text, validate) || !text.isEmpty();
    }
};

struct TakingAnyRoot : TESSEL::Area {
    bool SetXmlString(const QString &text, bool /*validate*/) override
    {
        return Area::SetXmlString(text, false);
    }
};

struct TouchedByAnotherRoot : TESSEL::Area {
    bool SetXmlString(const QString &text, bool validate) override
    {
        const bool taken = Area::SetXmlString(text, validate);
        if (!taken)
            SetName("touched");
        return taken;
    }
};

struct TakingDamagedForms : TESSEL::Area {
    bool SetBinaryRepresentation(QByteArray &data) override
    {
        return Area::SetBinaryRepresentation(data) || data.size() > Fuzz::BinaryParts::HeadSize;
    }
    using Area::SetBinaryRepresentation;
};

struct TouchedByDamagedForms : TESSEL::Area {
    bool SetBinaryRepresentation(QDataStream &stream) override
    {
        const bool taken = Area::SetBinaryRepresentation(stream);
        if (!taken)
            SetName("touched");
        return taken;
    }
    using Area::SetBinaryRepresentation;
};

struct SilentAboutDamage : TESSEL::Area {
    void SetBinary(QDataStream &stream, int /*version*/) override { (void)SetBinaryRepresentation(stream); }
};

struct ReadingNoFiles : TESSEL::Area {
    bool LoadBinary(QFile * /*file*/) override { return false; }
};

struct WritingDamagedForms : TESSEL::Area {
    QByteArray GetCompressedBinaryRepresentationAsQByteArray(int level) override
    {
        return Area::GetCompressedBinaryRepresentationAsQByteArray(level).chopped(1);
    }
};

/// Takes whatever is as long as the last form that it wrote.
struct MissingFlippedBits : TESSEL::Area {
    QByteArray GetCompressedBinaryRepresentationAsQByteArray(int level) override
    {
        const QByteArray form = Area::GetCompressedBinaryRepresentationAsQByteArray(level);
        lastSize() = form.size();
        return form;
    }
    bool SetBinaryRepresentation(QByteArray &data) override
    {
        return Area::SetBinaryRepresentation(data) || data.size() == lastSize();
    }
    using Area::SetBinaryRepresentation;

private:
    static qint64 &lastSize()
    {
        static qint64 size = 0;
        return size;
    }
};

} // namespace

namespace Fuzz {

template <class Area>
struct Kind<Faulty<Area>> : Kind<TESSEL::Area> {
};

} // namespace Fuzz

Q_DECLARE_METATYPE(Check)

class PropertiesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void faultsAreNoticed_data();
    void faultsAreNoticed();
};

void PropertiesTest::faultsAreNoticed_data()
{
    QTest::addColumn<Check>("check");
    QTest::addColumn<QString>("violation"); // empty: none

    const QByteArray document = TestSupport::wholeArea().toUtf8();
    const QByteArray withNan = QByteArray(document).replace("53.55", "nan");
    const QByteArray malformed = document.chopped(1);
    const QByteArray form =
        TESSEL::Area(Fuzz::sampleOf<Faulty<Faultless>>()).GetBinaryRepresentationAsQByteArray();
    const QByteArray damaged = QByteArray(form).replace("53.55", "53.56");
    const QByteArray cut = form.chopped(1);
    const QByteArray longer = form + '\0';

    const auto row = [](const char *name, Check check, const char *violation) {
        QTest::newRow(name) << std::move(check) << QString(violation);
    };
    const auto xml = [](auto area, const QByteArray &input) {
        return [input] { Fuzz::checkXml<Faulty<decltype(area)>>(input); };
    };
    const auto binary = [](auto area, const QByteArray &input) {
        return [input] { Fuzz::checkBinary<Faulty<decltype(area)>>(input); };
    };

    for (const QByteArray &input : {document, withNan, malformed, QByteArray("<Other/>"), QByteArray()})
        row("no fault, " + input, xml(Faultless(), input), "");
    for (const QByteArray &input : {form, damaged, cut, longer, QByteArray()})
        row("no fault, form " + input.toPercentEncoding(), binary(Faultless(), input), "");

    row("throws otherwise", xml(ThrowingOtherwise(), document), "other");
    row("complains though complete", xml(IncompleteInItsOwnEyes(), document), "nothing to complain of");
    row("writes nothing", xml(WritingNothing(), document), "an object is written when it is complete");
    row("grows when read", xml(GrowingWhenRead(), document), "what was read back is written as before");
    row("refuses what it writes", xml(RefusingWhatItWrites(), document), "merged when it is written");
    row("loses when copied", xml(LosingWhenCopied(), document), "a copy is written as the original");
    row("loses when assigned", xml(LosingWhenAssigned(), document), "a copy is written as the original");
    row("never equal", xml(NeverEqual(), document), "a copy equals the original");
    row("equal despite a NaN", xml(AlwaysEqual(), withNan), "a copy equals the original");
    row("equal and unequal", xml(EqualAndUnequal(), document), "unequal is the opposite of equal");
    row("takes any text", xml(TakingAnyText(), malformed), "only well-formed documents are taken");
    row("takes any root", xml(TakingAnyRoot(), "<Other/>"), "another root element is not taken");
    row("touched by another root", xml(TouchedByAnotherRoot(), "<Other/>"),
        "another root element leaves the object as it was");
    row("takes damaged forms", binary(TakingDamagedForms(), damaged), "a form is read as its XML");
    row("takes longer forms", binary(TakingDamagedForms(), longer), "when the form fills them");
    row("touched by damaged forms", binary(TouchedByDamagedForms(), damaged), "a form is read as its XML");
    row("silent about damage", binary(SilentAboutDamage(), damaged), "a form is read as its XML");
    row("reads no files", binary(ReadingNoFiles(), form), "a form is read as its XML");
    row("writes damaged forms", binary(WritingDamagedForms(), form), "what was written is read");
    row("misses a flipped bit", binary(MissingFlippedBits(), form), "a damaged form is not taken");
}

void PropertiesTest::faultsAreNoticed()
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

QTEST_GUILESS_MAIN(PropertiesTest)
#include "PropertiesTest.moc"
