#ifndef TESSEL_AREA_H
#define TESSEL_AREA_H

#include <objectbase/Coordinate.h>
#include <objectbase/ITesselObject.h>
#include <objectbase/objectbase_export.h>

#include <QString>
#include <QVector>

namespace TESSEL {

/// A named area on the earth: the corners of a polygon, in order. Complete when it has a name.
///
/// \snippet docs/ObjectbaseSnippetsTest.cpp Area
class OBJECTBASE_EXPORT Area : public ITesselObject {
public:
    Area();
    Area(const Area &other);
    Area &operator=(const Area &other);
    ~Area() override;

    /// Mandatory.
    [[nodiscard]] const QString &GetName() const noexcept { return name; }
    void SetName(const QString &text);

    /// The corners in order; any number of them, none included.
    [[nodiscard]] QVector<Coordinate> &GetCoordinate() noexcept { return coordinates; }
    [[nodiscard]] const QVector<Coordinate> &GetCoordinate() const noexcept { return coordinates; }
    void AddCoordinate(const Coordinate &coordinate);

    /// Name and coordinates are equal; the version is not compared.
    [[nodiscard]] bool operator==(const Area &other) const;
    [[nodiscard]] bool operator!=(const Area &other) const { return !(*this == other); }

    [[nodiscard]] bool HasData() const override;
    /// True when there is a name or a coordinate.
    [[nodiscard]] bool AnyData() const;
    void Reset() override;
    using ITesselObject::Check;
    /// \throws TesselException "...: Please set Name"
    void Check() const override;
    [[nodiscard]] const QString &GetVersion() const override;

    /// \cond
    void GetXml(QXmlStreamWriter &writer) const override;
    /// \endcond
    /// Reads the element. Its coordinates replace those that the area held.
    void ProcessXml(QXmlStreamReader &reader) override;

protected:
    /// \cond
    void ProcessXmlStartElement(QXmlStreamReader &reader) override;
    /// \endcond

private:
    friend class TESSEL::DocumentTables;
    struct OBJECTBASE_NO_EXPORT Xml;

    [[nodiscard]] static const TESSEL::ObjectTable &table();

    QString version;
    QString name;
    QVector<Coordinate> coordinates;
};

/// Writes the name of the object and all of its fields that are set, in a line.
OBJECTBASE_EXPORT QDebug operator<<(QDebug debug, const Area &object);

} // namespace TESSEL

#endif
