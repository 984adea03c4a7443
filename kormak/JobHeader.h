#ifndef KORMAK_JOBHEADER_H
#define KORMAK_JOBHEADER_H

#include <kormak/ConnectableResourceType.h>
#include <kormak/JobType.h>
#include <kormak/kormak_export.h>
#include <objectbase/ITesselObject.h>

#include <QDateTime>
#include <QString>

namespace KORMAK {

/// The administrative head of a job: what kind of job it is, who wrote it and when, whether its data header
/// is to be shown, and a free description.
///
/// \snippet docs/KormakSnippetsTest.cpp JobHeader
///
/// The connectable resource of a search job can neither be set nor read, only copied, while a search job
/// needs it to be complete: such a header is never written, and a document that holds the resource is not
/// read. Receiving systems rely on both.
class KORMAK_EXPORT JobHeader : public TESSEL::ITesselObject {
public:
    JobHeader();
    JobHeader(const JobHeader &other);
    JobHeader &operator=(const JobHeader &other);
    ~JobHeader() override;

    /// Mandatory.
    [[nodiscard]] JobType::JobTypeValue GetJobType() const noexcept { return jobType; }
    /// \throws TesselException "...: Invalid JobType '...'"; the job type is then unchanged
    void SetJobType(const JobType::JobTypeValue &value);

    /// ConnectableResourceType::Invalid: nothing sets it; see the class.
    [[nodiscard]] ConnectableResourceType::ConnectableResourceTypeValue
    GetConnectableResource() const noexcept
    {
        return connectableResource;
    }

    /// Mandatory.
    [[nodiscard]] const QString &GetAuthor() const noexcept { return author; }
    void SetAuthor(const QString &text);

    /// Mandatory.
    [[nodiscard]] const QDateTime &GetCreation() const noexcept { return creation; }
    void SetCreation(const QDateTime &dateTime);

    /// Optional.
    [[nodiscard]] const QString &GetDescription() const noexcept { return description; }
    void SetDescription(const QString &text);

    /// Whether the job's data header is to be shown: true exactly when the flag's text is "true". A document
    /// may hold any text there; it is kept and written back as it was.
    [[nodiscard]] bool GetShowJDH() const;
    void SetShowJDH(bool show);

    /// Compares job type, creation in whole seconds, description, author, GetShowJDH() and version. The
    /// connectable resource is not compared. Creations that are invalid or do not fit into 32 unsigned bits
    /// of seconds since 1970 are all alike.
    [[nodiscard]] bool operator==(const JobHeader &other) const;
    [[nodiscard]] bool operator!=(const JobHeader &other) const { return !(*this == other); }

    /// Author, creation, data-header flag and job type are there, and for a search job the connectable
    /// resource.
    [[nodiscard]] bool HasData() const override;
    /// True when at least one field but the connectable resource holds something. A new header shows the data
    /// header, so this is true for it, too.
    [[nodiscard]] bool AnyData() const;
    void Reset() override;
    using ITesselObject::Check;
    /// \throws TesselException "...: Please set " followed by Author, Creation, JobType or
    /// ConnectableRessource, in this order
    void Check() const override;
    [[nodiscard]] const QString &GetVersion() const override;

    /// \cond
    void GetXml(QXmlStreamWriter &writer) const override;
    void ProcessXml(QXmlStreamReader &reader) override;

protected:
    void ProcessXmlStartElement(QXmlStreamReader &reader) override;
    /// \endcond

private:
    friend class TESSEL::DocumentTables;
    struct KORMAK_NO_EXPORT Xml;

    [[nodiscard]] static const TESSEL::ObjectTable &table();

    [[nodiscard]] KORMAK_NO_EXPORT bool IsSearchMCJob() const;
    [[nodiscard]] KORMAK_NO_EXPORT bool
    IsValidConnectableRessource(const ConnectableResourceType::ConnectableResourceTypeValue &value) const;

    JobType::JobTypeValue jobType;
    ConnectableResourceType::ConnectableResourceTypeValue connectableResource;
    QString version;
    QString author;
    QDateTime creation;
    QString description;
    QString showJDH; // as text, so that whatever a document held is written back
};

/// Writes the name of the object and all of its fields that are set, in a line.
KORMAK_EXPORT QDebug operator<<(QDebug debug, const JobHeader &object);

} // namespace KORMAK

#endif
