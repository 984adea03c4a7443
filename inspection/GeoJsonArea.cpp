#include "inspection/GeoJsonArea_p.h"

#include <inspection/FieldText_p.h>
#include <inspection/JsonObject_p.h>
#include <inspection/QuotedText_p.h>
#include <inspection/report/AreaParts_p.h>
#include <objectbase/TesselException.h>

#include <QJsonArray>

#include <algorithm>
#include <cmath>
#include <optional>

namespace KORMAK::Inspection {

namespace {

using Shape = AreaOutline::Shape;

constexpr double MostLatitude = 90;
constexpr double MostLongitude = 180;

QString memberOf(const QString &place, const QString &name)
{
    return place.isEmpty() ? name : place + QLatin1Char('.') + name;
}

QString elementOf(const QString &place, int index)
{
    return place + QStringLiteral("[%1]").arg(index);
}

[[noreturn]] void fail(const QString &place, const QString &message)
{
    throw TESSEL::TesselException(
        oneLine(place.isEmpty() ? message : place + QStringLiteral(": ") + message));
}

class Reader {
public:
    GeoJsonArea area;

    void read(const QJsonObject &whole)
    {
        const QString type = typeOf(whole, {});
        if (type == QLatin1String("FeatureCollection"))
            readCollection(whole);
        else if (type == QLatin1String("Feature"))
            readFeature(whole, {});
        else
            readGeometry(whole, {});
    }

private:
    std::optional<QVector<TESSEL::Coordinate>> outline; ///< as a property has it
    QString outlinePlace;

    static QString typeOf(const QJsonObject &object, const QString &place)
    {
        const QJsonValue crs = object.value(QStringLiteral("crs"));
        if (!crs.isUndefined())
            fail(memberOf(place, QStringLiteral("crs")),
                 QStringLiteral("only coordinates of WGS 84 without this member can be read"));
        const QJsonValue type = object.value(QStringLiteral("type"));
        if (!type.isString())
            fail(memberOf(place, QStringLiteral("type")), QStringLiteral("is no text"));
        return type.toString();
    }

    /// What is not \a known is not read. A bounding box follows from the coordinates.
    void ignoreOthers(const QJsonObject &object, const QString &place, const QStringList &known)
    {
        for (auto member = object.begin(); member != object.end(); ++member) {
            if (!known.contains(member.key()) && member.key() != QLatin1String("bbox"))
                area.ignored += memberOf(place, oneLine(member.key()));
        }
    }

    void readCollection(const QJsonObject &collection)
    {
        const QString place = QStringLiteral("features");
        ignoreOthers(collection, {}, {QStringLiteral("type"), place});
        const QJsonValue features = collection.value(place);
        if (!features.isArray())
            fail(place, QStringLiteral("is no array"));
        const QJsonArray all = features.toArray();
        if (all.size() != 1)
            fail(place, QStringLiteral("holds %1 features, not one").arg(all.size()));
        const QString first = elementOf(place, 0);
        if (!all.at(0).isObject())
            fail(first, QStringLiteral("is no object"));
        const QJsonObject feature = all.at(0).toObject();
        if (typeOf(feature, first) != QLatin1String("Feature"))
            fail(memberOf(first, QStringLiteral("type")), QStringLiteral("is not \"Feature\""));
        readFeature(feature, first);
    }

    void readFeature(const QJsonObject &feature, const QString &place)
    {
        const QString geometryName = QStringLiteral("geometry");
        const QString propertiesName = QStringLiteral("properties");
        ignoreOthers(feature, place, {QStringLiteral("type"), geometryName, propertiesName});
        const QJsonValue properties = feature.value(propertiesName);
        if (properties.isObject())
            readProperties(properties.toObject(), memberOf(place, propertiesName));
        else if (!properties.isNull() && !properties.isUndefined())
            fail(memberOf(place, propertiesName), QStringLiteral("is no object"));
        const QJsonValue geometry = feature.value(geometryName);
        if (geometry.isObject())
            readGeometry(geometry.toObject(), memberOf(place, geometryName));
        else if (!geometry.isNull())
            fail(memberOf(place, geometryName), QStringLiteral("is no object"));
        else if (outline)
            area.ignored += outlinePlace;
    }

    /// Those that were written with the area, and the others. What kind of document it was in, and whether
    /// it crosses itself, is known without them.
    void readProperties(const QJsonObject &properties, const QString &place)
    {
        const QString nameName = QStringLiteral("name");
        const QJsonValue name = properties.value(nameName);
        QStringList known{QStringLiteral("kind"), QStringLiteral("crossesItself")};
        if (name.isString() || name.isNull())
            known += nameName;
        const QString outlineName = QStringLiteral("outline");
        if (const auto positions = outlineIn(properties.value(outlineName))) {
            known += outlineName;
            outline = positions;
            outlinePlace = memberOf(place, outlineName);
        }
        area.name = name.toString();
        area.namePlace = memberOf(place, nameName);
        ignoreOthers(properties, place, known);
    }

    void readGeometry(const QJsonObject &geometry, const QString &place)
    {
        const QString coordinatesName = QStringLiteral("coordinates");
        const QString type = typeOf(geometry, place);
        const QString coordinatesPlace = memberOf(place, coordinatesName);
        const auto coordinates = [&] { return arrayOf(geometry.value(coordinatesName), coordinatesPlace); };
        AreaParts read;
        if (type == QLatin1String("Point")) {
            read = {Shape::Point, {{positionOf(coordinates(), coordinatesPlace)}}};
        } else if (type == QLatin1String("LineString")) {
            read = {Shape::Line, {lineOf(coordinates(), coordinatesPlace)}};
        } else if (type == QLatin1String("Polygon")) {
            read = {Shape::Polygon, {polygonOf(coordinates(), coordinatesPlace)}};
        } else if (type == QLatin1String("MultiLineString")) {
            read = {Shape::Line, allOf(coordinates(), coordinatesPlace, lineOf)};
        } else if (type == QLatin1String("MultiPolygon")) {
            read = {Shape::Polygon, allOf(coordinates(), coordinatesPlace, polygonOf)};
        } else {
            fail(memberOf(place, QStringLiteral("type")),
                 QStringLiteral("%1 is no polygon, line or point").arg(quoted(type)));
        }
        ignoreOthers(geometry, place, {QStringLiteral("type"), coordinatesName});
        if (outline && read.isSame(AreaParts::of(AreaOutline(*outline)))) {
            area.coordinates = *outline;
            return;
        }
        if (outline)
            area.ignored += outlinePlace;
        const auto joined = read.joined();
        if (!joined)
            failToJoin(read, coordinatesPlace);
        area.coordinates = *joined;
    }

    /// The positions of a property that says which outline it is that was cut. Others may call something else
    /// so.
    static std::optional<QVector<TESSEL::Coordinate>> outlineIn(const QJsonValue &value)
    {
        if (!value.isArray())
            return std::nullopt;
        QVector<TESSEL::Coordinate> coordinates;
        const QJsonArray positions = value.toArray();
        for (const QJsonValue &one : positions) {
            const QJsonArray position = one.toArray();
            if (position.size() != 2 || !position.at(0).isDouble() || !position.at(1).isDouble())
                return std::nullopt;
            coordinates += TESSEL::Coordinate(position.at(1).toDouble(), position.at(0).toDouble());
        }
        return coordinates;
    }

    static QJsonArray arrayOf(const QJsonValue &value, const QString &place)
    {
        if (!value.isArray())
            fail(place, QStringLiteral("is no array"));
        return value.toArray();
    }

    template <class Read>
    static std::vector<OutlineRing> allOf(const QJsonArray &values, const QString &place, Read read)
    {
        if (values.isEmpty())
            fail(place, QStringLiteral("is empty"));
        std::vector<OutlineRing> all;
        for (int i = 0; i < values.size(); ++i)
            all.push_back(read(arrayOf(values.at(i), elementOf(place, i)), elementOf(place, i)));
        return all;
    }

    static double degreesOf(const QJsonValue &value, QStringView name, double most, const QString &place)
    {
        if (!value.isDouble())
            fail(place, QStringLiteral("the %1 is no number").arg(name.toString()));
        const double degrees = value.toDouble();
        if (!(std::abs(degrees) <= most)) {
            fail(place,
                 QStringLiteral("the %1 %2 is not from -%3 to %3")
                     .arg(name.toString(), numberText(degrees), numberText(most)));
        }
        return degrees;
    }

    static OutlinePoint positionOf(const QJsonArray &position, const QString &place)
    {
        if (position.size() != 2) {
            fail(place,
                 position.size() > 2 ? QStringLiteral("has an altitude, which no area has")
                                     : QStringLiteral("is no position"));
        }
        const double longitude = degreesOf(position.at(0), u"longitude", MostLongitude, place);
        return {longitude, degreesOf(position.at(1), u"latitude", MostLatitude, place)};
    }

    static OutlineRing positionsOf(const QJsonArray &positions, const QString &place)
    {
        OutlineRing ring;
        for (int i = 0; i < positions.size(); ++i) {
            const QString at = elementOf(place, i);
            ring.push_back(positionOf(arrayOf(positions.at(i), at), at));
        }
        return ring;
    }

    static OutlineRing lineOf(const QJsonArray &positions, const QString &place)
    {
        if (positions.size() != 2) {
            fail(place,
                 QStringLiteral("holds %1 positions: an area is a polygon, a line between two positions or a "
                                "point")
                     .arg(positions.size()));
        }
        return positionsOf(positions, place);
    }

    static OutlineRing polygonOf(const QJsonArray &rings, const QString &place)
    {
        if (rings.isEmpty())
            fail(place, QStringLiteral("is empty"));
        if (rings.size() > 1)
            fail(elementOf(place, 1), QStringLiteral("is a hole, which no area has"));
        const QString ringPlace = elementOf(place, 0);
        OutlineRing ring = positionsOf(arrayOf(rings.at(0), ringPlace), ringPlace);
        constexpr std::size_t LeastPositions = 4;
        if (ring.size() < LeastPositions)
            fail(ringPlace, QStringLiteral("holds %1 positions, not 4 or more").arg(ring.size()));
        if (!(ring.front() == ring.back()))
            fail(ringPlace, QStringLiteral("does not end where it begins"));
        ring.erase(std::unique(ring.begin(), ring.end()), ring.end());
        while (ring.size() > 1 && ring.front() == ring.back())
            ring.pop_back();
        return ring;
    }

    [[noreturn]] static void failToJoin(const AreaParts &parts, const QString &place)
    {
        for (const OutlineRing &ring : parts.parts) {
            for (std::size_t i = 0; i < ring.size(); ++i) {
                const OutlinePoint &a = ring[i];
                const OutlinePoint &b = ring[(i + 1) % ring.size()];
                const bool isLong = std::abs(a.longitude - b.longitude) > MostLongitude;
                const bool isAtPole = a.latitude == b.latitude && std::abs(a.latitude) == MostLatitude;
                if (isLong && !isAtPole) {
                    fail(place,
                         QStringLiteral("leads over more than 180 degrees of longitude, from %1 to %2; what "
                                        "crosses 180 degrees has to be cut there")
                             .arg(numberText(a.longitude), numberText(b.longitude)));
                }
            }
        }
        fail(place,
             parts.parts.size() > 1
                 ? QStringLiteral("cannot be joined: the parts are not those of one outline that was cut "
                                  "at 180 degrees")
                 : QStringLiteral("encloses nothing that an area could be"));
    }
};

} // namespace

GeoJsonArea readGeoJsonArea(const QByteArray &json)
{
    Reader reader;
    reader.read(jsonObjectOf(json));
    return std::move(reader.area);
}

} // namespace KORMAK::Inspection
