#include "objectbase/Area.h"

#include <objectbase/Constants_p.h>
#include <objectbase/XmlForm_p.h>

#include <algorithm>

namespace TESSEL {

namespace {

[[maybe_unused]] constexpr auto LogLevels = LogLevelNames;

constexpr QStringView TagLatitude = u"Latitude";
constexpr QStringView TagLongitude = u"Longitude";

Coordinate readCoordinate(const Area &area, QXmlStreamReader &reader)
{
    Coordinate coordinate;
    constexpr int WithCoordinate = 2;
    while (reader.readNextStartElement()) {
        Nesting(area, reader, WithCoordinate).count(QXmlStreamReader::StartElement);
        if (reader.hasError())
            break;
        double degrees = 0;
        if (reader.name() == TagLatitude) {
            fromText(elementText(reader), degrees);
            coordinate.SetLatitude(degrees);
        } else if (reader.name() == TagLongitude) {
            fromText(elementText(reader), degrees);
            coordinate.SetLongitude(degrees);
        } else {
            throwUnknownTag(area, reader.name());
        }
    }
    return coordinate;
}

void writeCoordinate(const Coordinate &coordinate, QXmlStreamWriter &writer, const QString &tag)
{
    writer.writeStartElement(tag);
    writer.writeTextElement(borrowed(TagLatitude), toText(coordinate.GetLatitude()));
    writer.writeTextElement(borrowed(TagLongitude), toText(coordinate.GetLongitude()));
    writer.writeEndElement();
}

} // namespace

struct Area::Xml {
    static void readNextCoordinate(Area &area, QXmlStreamReader &reader)
    {
        area.coordinates.append(readCoordinate(area, reader));
    }

    static void writeCoordinates(const Area &area, QXmlStreamWriter &writer, const QString &tag)
    {
        for (const Coordinate &coordinate : area.coordinates)
            writeCoordinate(coordinate, writer, tag);
    }

    static constexpr XmlAttribute<Area> attributes[] = {
        attribute<&Area::version>(TagVersion),
    };
    static constexpr XmlElement<Area> elements[] = {
        element<&Area::name>(u"Name"),
        {u"Coordinate", readNextCoordinate, writeCoordinates}, // one element each
    };
};

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
    return !name.isEmpty();
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
    if (HasData())
        return;
    if (name.isEmpty())
        throwPleaseSet(*this, u"Name");
}

const QString &Area::GetVersion() const
{
    return version;
}

void Area::GetXml(QXmlStreamWriter &writer) const
{
    writeDocument<Xml>(*this, writer);
}

void Area::ProcessXml(QXmlStreamReader &reader)
{
    coordinates.clear();
    readDocument<Xml>(*this, reader);
}

void Area::ProcessXmlStartElement(QXmlStreamReader &reader)
{
    readChild<Xml>(*this, reader);
}

} // namespace TESSEL
