#include <kormak/ConnectableResourceType.h>
#include <tests/support/VocabularyChecks.h>

using namespace KORMAK;
using ConnectableResourceType::ConnectableResourceTypeValue;

class ConnectableResourceTypeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void names_data();
    void names();
    void unknownNames_data();
    void unknownNames();
    void values_data();
    void values();
    void enumerators();
    void bands_data();
    void bands();
};

namespace {

VocabularyChecks::Vocabulary<ConnectableResourceTypeValue> connectableResources()
{
    return {{"DDC IPC Voice HF", "DDC IPC Voice V/UHF", "DDC IPC Data Transmission HF",
             "DDC IPC Data Transmission V/UHF", "DDC IPC Classifier HF", "DDC IPC Classifier V/UHF"},
            "undefined",
            ConnectableResourceType::ConnectableResourceTypeToName,
            ConnectableResourceType::NameToConnectableResourceType,
            ConnectableResourceType::IsValidConnectableResourceType,
            ConnectableResourceType::GetInvalidConnectableResourceType,
            {}};
}

} // namespace

void ConnectableResourceTypeTest::names_data()
{
    VocabularyChecks::addNames(connectableResources());
}

void ConnectableResourceTypeTest::names()
{
    VocabularyChecks::checkName(connectableResources());
}

void ConnectableResourceTypeTest::unknownNames_data()
{
    VocabularyChecks::addUnknownNames(connectableResources());
    QTest::newRow("without its slash") << "DDC IPC Voice VUHF";
}

void ConnectableResourceTypeTest::unknownNames()
{
    VocabularyChecks::checkUnknownName(connectableResources());
}

void ConnectableResourceTypeTest::values_data()
{
    VocabularyChecks::addValues(connectableResources());
}

void ConnectableResourceTypeTest::values()
{
    VocabularyChecks::checkValue(connectableResources());
}

void ConnectableResourceTypeTest::enumerators()
{
    using namespace ConnectableResourceType;
    QCOMPARE(NameToConnectableResourceType("DDC IPC Voice HF"), DDCIPCVoiceHF);
    QCOMPARE(NameToConnectableResourceType("DDC IPC Voice V/UHF"), DDCIPCVoiceVUHF);
    QCOMPARE(NameToConnectableResourceType("DDC IPC Data Transmission HF"), DDCIPCDataTransmissionHF);
    QCOMPARE(NameToConnectableResourceType("DDC IPC Data Transmission V/UHF"), DDCIPCDataTransmissionVUHF);
    QCOMPARE(NameToConnectableResourceType("DDC IPC Classifier HF"), DDCIPCClassifierHF);
    QCOMPARE(NameToConnectableResourceType("DDC IPC Classifier V/UHF"), DDCIPCClassifierVUHF);
    QCOMPARE(GetInvalidConnectableResourceType(), Invalid);
}

void ConnectableResourceTypeTest::bands_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("isHF");
    QTest::addColumn<bool>("isVUHF");

    QTest::newRow("voice HF") << 0 << true << false;
    QTest::newRow("voice V/UHF") << 1 << false << true;
    QTest::newRow("data HF") << 2 << true << false;
    QTest::newRow("data V/UHF") << 3 << false << true;
    QTest::newRow("classifier HF") << 4 << true << false;
    QTest::newRow("classifier V/UHF") << 5 << false << true;
    QTest::newRow("not set") << -1 << false << false;
    QTest::newRow("even, negative") << -2 << false << false;
    QTest::newRow("even, behind the last") << 6 << false << false;
    QTest::newRow("odd, behind the last") << 7 << false << false;
    QTest::newRow("the first in the low byte") << 256 << false << false;
    QTest::newRow("the second in the low byte") << 257 << false << false;
}

void ConnectableResourceTypeTest::bands()
{
    QFETCH(int, value);
    const auto resource = static_cast<ConnectableResourceTypeValue>(value);
    QTEST(ConnectableResourceType::IsHFResource(resource), "isHF");
    QTEST(ConnectableResourceType::IsVUHFResource(resource), "isVUHF");
}

QTEST_GUILESS_MAIN(ConnectableResourceTypeTest)
#include "ConnectableResourceTypeTest.moc"
