#include <objectbase/AntennaData.h>
#include <tests/support/Objects.h>
#include <tests/support/VocabularyChecks.h>

#include <cmath>
#include <limits>

using namespace TESSEL;
using namespace TestSupport;

namespace {

constexpr double NotSet = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinite = std::numeric_limits<double>::infinity();

AntennaData dipole()
{
    AntennaData antenna;
    antenna.SetName("Dipole");
    antenna.SetMinimumFrequency(1.5e6);
    antenna.SetMaximumFrequency(3e7);
    return antenna;
}

AntennaData yagi()
{
    AntennaData antenna = dipole();
    antenna.SetName("Yagi");
    antenna.SetAzimuth(270.25);
    antenna.SetPolarization(AntennaData::Vertical);
    return antenna;
}

VocabularyChecks::Vocabulary<AntennaData::Polarization> polarizations()
{
    return {
        {"Horizontal", "Vertical", "Slant", "Left-Hand Circular", "Right-Hand Circular"},
        "undefined",
        AntennaData::PolarizationToName,
        AntennaData::NameToPolarization,
        AntennaData::IsValidPolarization,
        AntennaData::GetInvalidPolarization,
        {},
    };
}

} // namespace

class AntennaDataTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void polarizationNames_data() { VocabularyChecks::addNames(polarizations()); }
    void polarizationNames() { VocabularyChecks::checkName(polarizations()); }
    void unknownPolarizationNames_data() { VocabularyChecks::addUnknownNames(polarizations()); }
    void unknownPolarizationNames() { VocabularyChecks::checkUnknownName(polarizations()); }
    void polarizationValues_data() { VocabularyChecks::addValues(polarizations()); }
    void polarizationValues() { VocabularyChecks::checkValue(polarizations()); }
    void newAntenna();
    void fields();
    void settersStoreWithoutATest();
    void completeness_data();
    void completeness();
    void anyData_data();
    void anyData();
    void emptyNameIsNoData();
    void reset();
    void comparison_data();
    void comparison();
    void copies();
    void document();
    void elements_data();
    void elements();
    void doublesAreReadBack_data();
    void doublesAreReadBack();
    void readingKeepsWhatIsNotMentioned();
    void readingTakesValuesAsTheyAre_data();
    void readingTakesValuesAsTheyAre();
    void version_data();
    void version();
    void unknownTags_data();
    void unknownTags();
};

void AntennaDataTest::newAntenna()
{
    const AntennaData antenna;
    QCOMPARE(antenna.GetObjectType(), ObjectTypes::AntennaData);
    QCOMPARE(antenna.GetObjectName(), QString("AntennaData"));
    QCOMPARE(antenna.GetVersion(), QString("1.0"));
    QCOMPARE(antenna.GetName(), QString());
    QVERIFY(std::isnan(antenna.GetMinimumFrequency()));
    QVERIFY(std::isnan(antenna.GetMaximumFrequency()));
    QVERIFY(std::isnan(antenna.GetAzimuth()));
    QCOMPARE(static_cast<int>(antenna.GetPolarization()), -1);
    QVERIFY(!antenna.HasData());
    QVERIFY(!antenna.AnyData());
}

void AntennaDataTest::fields()
{
    const AntennaData antenna = yagi();
    QCOMPARE(antenna.GetName(), QString("Yagi"));
    QCOMPARE(antenna.GetMinimumFrequency(), 1.5e6);
    QCOMPARE(antenna.GetMaximumFrequency(), 3e7);
    QCOMPARE(antenna.GetAzimuth(), 270.25);
    QCOMPARE(antenna.GetPolarization(), AntennaData::Vertical);
}

void AntennaDataTest::settersStoreWithoutATest()
{
    AntennaData antenna;
    antenna.SetName("");
    antenna.SetMinimumFrequency(-5);
    antenna.SetMaximumFrequency(-6);
    antenna.SetAzimuth(-1e9);
    antenna.SetPolarization(static_cast<AntennaData::Polarization>(99));

    QCOMPARE(antenna.GetMinimumFrequency(), -5.0);
    QCOMPARE(antenna.GetMaximumFrequency(), -6.0);
    QCOMPARE(antenna.GetAzimuth(), -1e9);
    QCOMPARE(static_cast<int>(antenna.GetPolarization()), 99);
}

void AntennaDataTest::completeness_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<QString>("missing"); ///< empty: complete

    QTest::newRow("complete") << "Dipole" << 1.0 << 2.0 << "";
    QTest::newRow("from zero") << "Dipole" << 0.0 << 1.0 << "";
    QTest::newRow("from minus zero") << "Dipole" << -0.0 << 1.0 << "";
    QTest::newRow("narrowest") << "Dipole" << 1.0 << std::nextafter(1.0, 2.0) << "";
    QTest::newRow("blank as name") << " " << 1.0 << 2.0 << "";
    QTest::newRow("nothing set") << "" << NotSet << NotSet << "Name";
    QTest::newRow("no name") << "" << 1.0 << 2.0 << "Name";
    QTest::newRow("only a name") << "Dipole" << NotSet << NotSet << "MinimumFrequency";
    QTest::newRow("no minimum") << "Dipole" << NotSet << 2.0 << "MinimumFrequency";
    QTest::newRow("negative minimum")
        << "Dipole" << -std::numeric_limits<double>::denorm_min() << 2.0 << "MinimumFrequency";
    QTest::newRow("minimum and maximum negative") << "Dipole" << -2.0 << -3.0 << "MinimumFrequency";
    QTest::newRow("no maximum") << "Dipole" << 1.0 << NotSet << "MaximumFrequency";
    QTest::newRow("maximum as the minimum") << "Dipole" << 1.0 << 1.0 << "MaximumFrequency";
    QTest::newRow("maximum below the minimum") << "Dipole" << 2.0 << 1.0 << "MaximumFrequency";
    QTest::newRow("both zero") << "Dipole" << 0.0 << 0.0 << "MaximumFrequency";
    QTest::newRow("both infinite") << "Dipole" << Infinite << Infinite << "MaximumFrequency";
}

void AntennaDataTest::completeness()
{
    QFETCH(QString, name);
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(QString, missing);

    AntennaData antenna;
    antenna.SetName(name);
    antenna.SetMinimumFrequency(minimum);
    antenna.SetMaximumFrequency(maximum);
    const QString message = missing.isEmpty() ? QString() : "AntennaData: Please set " + missing;

    QCOMPARE(antenna.HasData(), missing.isEmpty());
    QCOMPARE(messageOf([&] { antenna.Check(); }), message);
    QCOMPARE(messageOf([&] { antenna.Check(true); }), message);
    QCOMPARE(messageOf([&] { antenna.Check(false); }), QString());
    QCOMPARE(messageOf([&] { (void)antenna.GetXmlString(); }), message);
    QCOMPARE(elementOf(antenna).isEmpty(), !missing.isEmpty());
}

void AntennaDataTest::anyData_data()
{
    QTest::addColumn<QString>("element");
    QTest::addColumn<bool>("any");

    QTest::newRow("nothing") << "" << false;
    QTest::newRow("name") << "<Name>Dipole</Name>" << true;
    QTest::newRow("minimum") << "<MinimumFrequency>0</MinimumFrequency>" << true;
    QTest::newRow("maximum") << "<MaximumFrequency>0</MaximumFrequency>" << true;
    QTest::newRow("azimuth") << "<Azimuth>0</Azimuth>" << true;
    QTest::newRow("polarization") << "<Polarization>Horizontal</Polarization>" << true;
    QTest::newRow("unknown polarization") << "<Polarization>Sideways</Polarization>" << false;
}

void AntennaDataTest::anyData()
{
    QFETCH(QString, element);
    QFETCH(bool, any);

    AntennaData antenna;
    process(antenna, "<AntennaData>" + element + "</AntennaData>");
    QCOMPARE(antenna.AnyData(), any);
    QVERIFY(!antenna.HasData());
}

void AntennaDataTest::emptyNameIsNoData()
{
    AntennaData antenna;
    antenna.SetName("");
    QVERIFY(!antenna.AnyData());
    AntennaData complete = yagi();
    complete.SetName("");
    QVERIFY(!complete.HasData());
    QCOMPARE(messageOf([&] { complete.Check(); }), QString("AntennaData: Please set Name"));
}

void AntennaDataTest::reset()
{
    AntennaData antenna;
    process(antenna, elementOf(yagi()).replace("\"1.0\"", "\"2.0\""));
    QVERIFY(antenna == yagi());
    antenna.Reset();

    QVERIFY(antenna == AntennaData());
    QVERIFY(!antenna.AnyData());
    QCOMPARE(antenna.GetVersion(), QString("1.0"));
    QCOMPARE(antenna.GetObjectName(), QString("AntennaData"));
}

void AntennaDataTest::comparison_data()
{
    QTest::addColumn<QString>("element"); ///< read on top of an antenna with every field set
    QTest::addColumn<bool>("isEqual");

    QTest::newRow("nothing changed") << "<AntennaData Version=\"1.0\"/>" << true;
    QTest::newRow("version") << "<AntennaData Version=\"2.0\"/>" << true;
    QTest::newRow("name") << "<AntennaData><Name>yagi</Name></AntennaData>" << false;
    QTest::newRow("minimum") << "<AntennaData><MinimumFrequency>1500000.5</MinimumFrequency></AntennaData>"
                             << false;
    QTest::newRow("maximum") << "<AntennaData><MaximumFrequency>30000001</MaximumFrequency></AntennaData>"
                             << false;
    QTest::newRow("azimuth") << "<AntennaData><Azimuth>270</Azimuth></AntennaData>" << false;
    QTest::newRow("azimuth not set") << "<AntennaData><Azimuth>nan</Azimuth></AntennaData>" << false;
    QTest::newRow("polarization") << "<AntennaData><Polarization>Slant</Polarization></AntennaData>" << false;
    QTest::newRow("polarization not set") << "<AntennaData><Polarization/></AntennaData>" << false;
}

void AntennaDataTest::comparison()
{
    QFETCH(QString, element);
    QFETCH(bool, isEqual);

    const AntennaData antenna = yagi();
    AntennaData other = yagi();
    process(other, element);
    QCOMPARE(antenna == other, isEqual);
    QCOMPARE(other == antenna, isEqual);
    QCOMPARE(antenna != other, !isEqual);
    QVERIFY(AntennaData() == AntennaData());
    QVERIFY(AntennaData() != antenna);
}

void AntennaDataTest::copies()
{
    AntennaData original = yagi();
    process(original, "<AntennaData Version=\"2.0\"/>");
    original.SetValidate(false);
    const AntennaData copy(original);
    AntennaData assigned;
    assigned = original;
    original.Reset();

    for (const AntennaData &antenna : {copy, assigned}) {
        QVERIFY(antenna == yagi());
        QCOMPARE(antenna.GetVersion(), QString("2.0"));
        QCOMPARE(antenna.GetObjectName(), QString("AntennaData"));
        QCOMPARE(antenna.GetObjectType(), ObjectTypes::AntennaData);
        QCOMPARE(antenna.GetValidate(), false);
    }
}

void AntennaDataTest::document()
{
    const QString text = TestSupport::document("<AntennaData Version=\"1.0\">\n"
                                               "    <Name>Yagi</Name>\n"
                                               "    <MinimumFrequency>1500000</MinimumFrequency>\n"
                                               "    <MaximumFrequency>30000000</MaximumFrequency>\n"
                                               "    <Azimuth>270.25</Azimuth>\n"
                                               "    <Polarization>Vertical</Polarization>\n"
                                               "</AntennaData>\n");
    QCOMPARE(yagi().GetXmlString(), text);

    AntennaData antenna;
    QVERIFY(antenna.SetXmlString(text, true));
    QVERIFY(antenna == yagi());
    QCOMPARE(antenna.GetXmlString(), text);
}

void AntennaDataTest::elements_data()
{
    QTest::addColumn<double>("azimuth");
    QTest::addColumn<int>("polarization");
    QTest::addColumn<QString>("written");

    QTest::newRow("neither") << NotSet << -1 << "";
    QTest::newRow("azimuth") << 0.0 << -1 << "<Azimuth>0</Azimuth>";
    QTest::newRow("polarization") << NotSet << 0 << "<Polarization>Horizontal</Polarization>";
    QTest::newRow("both") << -0.5 << 4
                          << "<Azimuth>-0.5</Azimuth><Polarization>Right-Hand Circular</Polarization>";
    QTest::newRow("polarization that does not exist") << NotSet << 5 << "";
}

void AntennaDataTest::elements()
{
    QFETCH(double, azimuth);
    QFETCH(int, polarization);
    QFETCH(QString, written);

    AntennaData antenna = dipole();
    antenna.SetAzimuth(azimuth);
    antenna.SetPolarization(static_cast<AntennaData::Polarization>(polarization));
    QCOMPARE(elementOf(antenna),
             "<AntennaData Version=\"1.0\"><Name>Dipole</Name><MinimumFrequency>1500000</MinimumFrequency>"
             "<MaximumFrequency>30000000</MaximumFrequency>"
                 + written + "</AntennaData>");
}

void AntennaDataTest::doublesAreReadBack_data()
{
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");

    QTest::newRow("third") << 1.0 / 3 << 2.0 / 3;
    QTest::newRow("neighbours") << 1e7 << std::nextafter(1e7, 2e7);
    QTest::newRow("microwave") << 1234567890.1234567 << 9876543210.9876543;
    QTest::newRow("extremes") << std::numeric_limits<double>::denorm_min()
                              << std::numeric_limits<double>::max();
    QTest::newRow("minus zero") << -0.0 << 0.1;
    QTest::newRow("no upper end") << 1e16 << Infinite;
}

void AntennaDataTest::doublesAreReadBack()
{
    QFETCH(double, minimum);
    QFETCH(double, maximum);

    AntennaData antenna = dipole();
    antenna.SetMinimumFrequency(minimum);
    antenna.SetMaximumFrequency(maximum);
    antenna.SetAzimuth(-maximum);
    AntennaData back;
    QVERIFY(back.SetXmlString(antenna.GetXmlString(), true));

    QVERIFY(back.GetMinimumFrequency() == minimum);
    QCOMPARE(std::signbit(back.GetMinimumFrequency()), std::signbit(minimum));
    QVERIFY(back.GetMaximumFrequency() == maximum);
    QVERIFY(back.GetAzimuth() == -maximum);
}

void AntennaDataTest::readingKeepsWhatIsNotMentioned()
{
    AntennaData antenna = yagi();
    QCOMPARE(process(antenna, "<AntennaData Version=\"1.0\"><Azimuth>5</Azimuth></AntennaData>"),
             QXmlStreamReader::EndElement);
    AntennaData expected = yagi();
    expected.SetAzimuth(5);
    QVERIFY(antenna == expected);
}

void AntennaDataTest::readingTakesValuesAsTheyAre_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("frequency");

    QTest::newRow("negative") << "-5" << -5.0;
    QTest::newRow("exponent") << "1.5E6" << 1.5e6;
    QTest::newRow("blanks around") << " 7 " << 7.0;
    QTest::newRow("empty") << "" << 0.0;
    QTest::newRow("unit") << "7 Hz" << 0.0;
    QTest::newRow("too large") << "1e400" << 0.0;
}

void AntennaDataTest::readingTakesValuesAsTheyAre()
{
    QFETCH(QString, text);
    QFETCH(double, frequency);

    AntennaData antenna;
    process(
        antenna,
        QString("<AntennaData><MaximumFrequency>%1</MaximumFrequency><MinimumFrequency>%1</MinimumFrequency>"
                "<Azimuth>%1</Azimuth></AntennaData>")
            .arg(text));
    QCOMPARE(antenna.GetMinimumFrequency(), frequency);
    QCOMPARE(antenna.GetMaximumFrequency(), frequency);
    QCOMPARE(antenna.GetAzimuth(), frequency);
}

void AntennaDataTest::version_data()
{
    QTest::addColumn<QString>("element");
    QTest::addColumn<QString>("version");

    QTest::newRow("given") << "<AntennaData Version=\"2.5\"/>"
                           << "2.5";
    QTest::newRow("absent") << "<AntennaData/>"
                            << "";
    QTest::newRow("upper case") << "<AntennaData VERSION=\"2.5\"/>"
                                << "";
}

void AntennaDataTest::version()
{
    QFETCH(QString, element);
    QFETCH(QString, version);

    AntennaData antenna = dipole();
    process(antenna, element);
    QCOMPARE(antenna.GetVersion(), version);
    QVERIFY(elementOf(antenna).startsWith(QString("<AntennaData Version=\"%1\"><Name>").arg(version)));
}

void AntennaDataTest::unknownTags_data()
{
    QTest::addColumn<QString>("tag");

    QTest::newRow("other") << "Gain";
    QTest::newRow("lower case") << "azimuth";
    QTest::newRow("own name") << "AntennaData";
    QTest::newRow("attribute") << "Version";
}

void AntennaDataTest::unknownTags()
{
    QFETCH(QString, tag);

    AntennaData antenna;
    const QString element =
        QString("<AntennaData><Name>Yagi</Name><%1>1</%1><Azimuth>5</Azimuth></AntennaData>").arg(tag);
    QCOMPARE(messageOf([&] { process(antenna, element); }),
             QString("Unknown Tag '%1' in 'AntennaData'.").arg(tag));
    QCOMPARE(antenna.GetName(), QString("Yagi"));
    QVERIFY(std::isnan(antenna.GetAzimuth()));
}

QTEST_GUILESS_MAIN(AntennaDataTest)
#include "AntennaDataTest.moc"
