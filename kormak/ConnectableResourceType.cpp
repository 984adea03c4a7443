#include "kormak/ConnectableResourceType.h"

#include <kormak/Vocabularies_p.h>
#include <objectbase/Constants_p.h>
#include <objectbase/Debug_p.h>

namespace KORMAK {

namespace ConnectableResourceType {

namespace {

[[maybe_unused]] constexpr auto LogLevels = TESSEL::LogLevelNames;

constexpr TESSEL::VocabularyRow<ConnectableResourceTypeValue> Rows[] = {
    {DDCIPCVoiceHF, u"DDC IPC Voice HF"},
    {DDCIPCVoiceVUHF, u"DDC IPC Voice V/UHF"},
    {DDCIPCDataTransmissionHF, u"DDC IPC Data Transmission HF"},
    {DDCIPCDataTransmissionVUHF, u"DDC IPC Data Transmission V/UHF"},
    {DDCIPCClassifierHF, u"DDC IPC Classifier HF"},
    {DDCIPCClassifierVUHF, u"DDC IPC Classifier V/UHF"},
};
constexpr TESSEL::Vocabulary ConnectableResourceTypes{Rows, u"undefined"};

} // namespace

QString ConnectableResourceTypeToName(ConnectableResourceTypeValue value)
{
    return ConnectableResourceTypes.nameOf(value);
}

ConnectableResourceTypeValue NameToConnectableResourceType(const QString &name)
{
    return ConnectableResourceTypes.valueOf(name);
}

ConnectableResourceTypeValue GetInvalidConnectableResourceType()
{
    return ConnectableResourceTypes.invalid();
}

bool IsValidConnectableResourceType(ConnectableResourceTypeValue value)
{
    return ConnectableResourceTypes.isValid(value);
}

bool IsHFResource(const ConnectableResourceTypeValue &value)
{
    return value == DDCIPCVoiceHF || value == DDCIPCDataTransmissionHF || value == DDCIPCClassifierHF;
}

bool IsVUHFResource(const ConnectableResourceTypeValue &value)
{
    return value == DDCIPCVoiceVUHF || value == DDCIPCDataTransmissionVUHF || value == DDCIPCClassifierVUHF;
}

QDebug operator<<(QDebug debug, ConnectableResourceTypeValue value)
{
    return TESSEL::printName(debug, ConnectableResourceTypes.table(), value);
}

} // namespace ConnectableResourceType

TESSEL::NameTable connectableResources()
{
    return ConnectableResourceType::ConnectableResourceTypes.table();
}

} // namespace KORMAK
