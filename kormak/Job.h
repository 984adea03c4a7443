#ifndef KORMAK_JOB_H
#define KORMAK_JOB_H

#include <kormak/JobHeader.h>
#include <kormak/kormak_export.h>
#include <objectbase/AntennaData.h>
#include <objectbase/ITesselObject.h>
#include <objectbase/ResourceType.h>

#include <QString>

namespace KORMAK {

/// A job of the monitoring system: its header, the resource that it runs on and, for the antenna resource,
/// the antenna.
///
/// \snippet docs/KormakSnippetsTest.cpp Job
///
/// Only a job on the antenna resource is ever complete. A job on another resource passes Check(), but no
/// element is written for it.
class KORMAK_EXPORT Job : public TESSEL::ITesselObject {
public:
    Job();
    Job(const Job &other);
    Job &operator=(const Job &other);
    ~Job() override;

    /// Mandatory, in that the header must be complete.
    [[nodiscard]] JobHeader &GetJobHeader() noexcept { return jobHeader; }
    [[nodiscard]] const JobHeader &GetJobHeader() const noexcept { return jobHeader; }
    void SetJobHeader(const JobHeader &header);

    /// Reachable on every resource; they count on the antenna resource only.
    [[nodiscard]] TESSEL::AntennaData &GetAntennaData() noexcept { return antennaData; }
    [[nodiscard]] const TESSEL::AntennaData &GetAntennaData() const noexcept { return antennaData; }
    /// \throws TesselException "Antenna data cannot be set for resource '...' in '...'." when the resource
    /// type is not the antenna; the antenna data are then unchanged
    void SetAntennaData(const TESSEL::AntennaData &data);

    /// Mandatory.
    [[nodiscard]] TESSEL::ResourceType::ResourceTypeValue GetResourceType() const noexcept
    {
        return resourceType;
    }
    /// Stores any value. Antenna data stay as they are; on another resource than the antenna they are neither
    /// written nor compared.
    void SetResourceType(const TESSEL::ResourceType::ResourceTypeValue &value);

    /// Compares header, version, resource type and, for the antenna resource, the antenna data.
    [[nodiscard]] bool operator==(const Job &other) const;
    [[nodiscard]] bool operator!=(const Job &other) const { return !(*this == other); }

    /// The header is complete, the resource type is the antenna, and the antenna data are complete.
    [[nodiscard]] bool HasData() const override;
    [[nodiscard]] bool AnyData() const;
    void Reset() override;
    using ITesselObject::Check;
    /// \throws TesselException as JobHeader::Check(), then "...: Please set ResourceType", then, for the
    /// antenna resource, as TESSEL::AntennaData::Check()
    void Check() const override;
    [[nodiscard]] const QString &GetVersion() const override;

    /// \cond
    void GetXml(QXmlStreamWriter &writer) const override;
    void ProcessXml(QXmlStreamReader &reader) override;
    [[nodiscard]] QString GetXmlString() const override;
    /// \endcond

protected:
    /// True when a job on resource \a type has antenna data.
    [[nodiscard]] bool IsValidAntennaData(TESSEL::ResourceType::ResourceTypeValue type) const;

    /// \cond
    void ProcessXmlStartElement(QXmlStreamReader &reader) override;
    /// \endcond

private:
    friend class TESSEL::DocumentTables;
    struct KORMAK_NO_EXPORT Xml;

    [[nodiscard]] static const TESSEL::ObjectTable &table();

    QString version;
    JobHeader jobHeader;
    TESSEL::AntennaData antennaData;
    TESSEL::ResourceType::ResourceTypeValue resourceType;
};

/// Writes the name of the object and all of its fields that are set, in a line.
KORMAK_EXPORT QDebug operator<<(QDebug debug, const Job &object);

} // namespace KORMAK

#endif
