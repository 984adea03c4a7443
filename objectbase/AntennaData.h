#ifndef TESSEL_ANTENNADATA_H
#define TESSEL_ANTENNADATA_H

#include <objectbase/ITesselObject.h>
#include <objectbase/objectbase_export.h>

#include <QString>

namespace TESSEL {

/// The antenna of a job: its name, the range of frequencies it covers and, where they are known, the
/// direction it looks in and its polarization. Setters store whatever they are given; Check() tells what is
/// missing.
///
/// \snippet docs/ObjectbaseSnippetsTest.cpp AntennaData
class OBJECTBASE_EXPORT AntennaData : public ITesselObject {
public:
    /// The names are in \ref vocabulary_polarization.
    enum Polarization : qint32 {
        InvalidPolarization = -1,
        Horizontal,
        Vertical,
        Slant,
        LeftHandCircular,
        RightHandCircular,
    };

    AntennaData();
    AntennaData(const AntennaData &other);
    AntennaData &operator=(const AntennaData &other);
    ~AntennaData() override;

    /// Mandatory.
    [[nodiscard]] const QString &GetName() const noexcept { return name; }
    void SetName(const QString &text);

    /// Hz, 0 or more. Mandatory; NaN: not set.
    [[nodiscard]] double GetMinimumFrequency() const noexcept { return minimumFrequency; }
    void SetMinimumFrequency(double hertz);

    /// Hz, greater than the minimum. Mandatory; NaN: not set.
    [[nodiscard]] double GetMaximumFrequency() const noexcept { return maximumFrequency; }
    void SetMaximumFrequency(double hertz);

    /// Degrees clockwise from north. Optional; NaN: not set.
    [[nodiscard]] double GetAzimuth() const noexcept { return azimuth; }
    void SetAzimuth(double degrees);

    /// Optional; InvalidPolarization: not set.
    [[nodiscard]] Polarization GetPolarization() const noexcept { return polarization; }
    void SetPolarization(Polarization value);

    /// The name of \a value, or "undefined" when it is not valid.
    [[nodiscard]] static QString PolarizationToName(Polarization value);
    /// The value whose name is exactly \a name (case-sensitive), or InvalidPolarization.
    [[nodiscard]] static Polarization NameToPolarization(const QString &name);
    [[nodiscard]] static bool IsValidPolarization(Polarization value);
    [[nodiscard]] static Polarization GetInvalidPolarization();

    /// All fields are equal, two that are not set included; the version is not compared.
    [[nodiscard]] bool operator==(const AntennaData &other) const;
    [[nodiscard]] bool operator!=(const AntennaData &other) const { return !(*this == other); }

    [[nodiscard]] bool HasData() const override;
    /// True when at least one field is set.
    [[nodiscard]] bool AnyData() const;
    void Reset() override;
    using ITesselObject::Check;
    /// \throws TesselException "...: Please set Name", "...: Please set MinimumFrequency" or
    /// "...: Please set MaximumFrequency", in this order
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
    struct OBJECTBASE_NO_EXPORT Xml;

    [[nodiscard]] static const TESSEL::ObjectTable &table();

    [[nodiscard]] OBJECTBASE_NO_EXPORT bool isMinimumFrequencyValid() const;
    [[nodiscard]] OBJECTBASE_NO_EXPORT bool isMaximumFrequencyValid() const;

    QString version;
    QString name;
    double minimumFrequency;
    double maximumFrequency;
    double azimuth;
    Polarization polarization;
};

/// Writes the name of \a value, or its number when it has none.
OBJECTBASE_EXPORT QDebug operator<<(QDebug debug, AntennaData::Polarization value);

/// Writes the name of the object and all of its fields that are set, in a line.
OBJECTBASE_EXPORT QDebug operator<<(QDebug debug, const AntennaData &object);

} // namespace TESSEL

#endif
