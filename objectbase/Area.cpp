#include "objectbase/Area.h"

#include <objectbase/Constants_p.h>
#include <objectbase/Debug_p.h>
#include <objectbase/DocumentRows_p.h>
#include <objectbase/DocumentXml_p.h>

#include <algorithm>

namespace TESSEL {

namespace {

[[maybe_unused]] constexpr auto LogLevels = LogLevelNames;

/// The table of the corners.
struct CoordinateXml {
    static constexpr Row elements[] = {
        Rows::checkedElement<&Coordinate::GetLatitude, &Coordinate::SetLatitude>(u"Latitude")
            .expected()
            .in(u"degrees"),
        Rows::checkedElement<&Coordinate::GetLongitude, &Coordinate::SetLongitude>(u"Longitude")
            .expected()
            .in(u"degrees"),
    };
    static constexpr ObjectTable table{u"Area", {}, elements}; // messages name the area
    static const ObjectTable &get() { return table; }
};

} // namespace

struct Area::Xml {
    static bool hasName(const Area &area) { return !area.name.isEmpty(); }

    static void readCoordinate(void *object, QXmlStreamReader &reader)
    {
        auto &area = *static_cast<Area *>(object);
        Coordinate coordinate;
        constexpr int WithCoordinate = 2;
        while (reader.readNextStartElement()) {
            Nesting(area, reader, WithCoordinate).count(QXmlStreamReader::StartElement);
            if (reader.hasError())
                break;
            readChild(CoordinateXml::table, &coordinate, area, reader);
        }
        area.coordinates.append(coordinate);
    }
    static void writeCoordinates(const void *object, QXmlStreamWriter &writer, const QString &tag)
    {
        for (const Coordinate &coordinate : static_cast<const Area *>(object)->coordinates)
            writeElement(CoordinateXml::table, &coordinate, writer, tag);
    }
    static constexpr Part coordinates =
        Rows::listPart<&Area::coordinates, &Area::coordinates, CoordinateXml::get>(readCoordinate,
                                                                                   writeCoordinates);

    static void begin(void *object) { static_cast<Area *>(object)->coordinates.clear(); }

    static constexpr Row attributes[] = {
        Rows::attribute<&Area::version>(TagVersion),
    };
    static constexpr Row elements[] = {
        Rows::element<&Area::name, &Area::SetName>(u"Name").required<hasName>(),
        Rows::partElement(u"Coordinate", Row::Content::Object, coordinates), // one element each
    };
    static constexpr ObjectTable table{u"Area", attributes, elements, {}, {}, true, begin};
};

const ObjectTable &Area::table()
{
    return Xml::table;
}

Area::Area() : ITesselObject(ObjectTypes::Area)
{
    Area::Reset();
}

Area::Area(const Area &other) = default;

Area &Area::operator=(const Area &other) = default;

Area::~Area() = default;

void Area::SetName(const QString &text)
{
    name = text;
}

void Area::AddCoordinate(const Coordinate &coordinate)
{
    coordinates.append(coordinate);
}

bool Area::operator==(const Area &other) const
{
    // Not the operator of the list, which takes lists that share their data for equal even when they hold a
    // NaN.
    return name == other.name
        && std::equal(coordinates.begin(), coordinates.end(), other.coordinates.begin(),
                      other.coordinates.end());
}

bool Area::HasData() const
{
    return isComplete<Xml>(this);
}

bool Area::AnyData() const
{
    return !name.isEmpty() || !coordinates.isEmpty();
}

void Area::Reset()
{
    version = defaultVersion();
    name.clear();
    coordinates.clear();
}

void Area::Check() const
{
    if (!HasData())
        checkRequired(Xml::table, this, *this);
}

const QString &Area::GetVersion() const
{
    return version;
}

void Area::GetXml(QXmlStreamWriter &writer) const
{
    if (HasData())
        writeElement(Xml::table, this, writer, GetObjectName());
}

void Area::ProcessXml(QXmlStreamReader &reader)
{
    Xml::begin(this);
    readAttributes(Xml::table, this, reader);
    ITesselObject::ProcessXml(reader);
}

void Area::ProcessXmlStartElement(QXmlStreamReader &reader)
{
    readChild(Xml::table, this, *this, reader);
}

QDebug operator<<(QDebug debug, const Area &object)
{
    return printDocument(debug, object);
}

} // namespace TESSEL
