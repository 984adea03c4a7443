#include "inspection/AreaGeoJson_p.h"

#include <inspection/Json_p.h>
#include <inspection/report/AreaOutline_p.h>
#include <inspection/report/AreaParts_p.h>
#include <kormak/AutomaticWorkflow.h>
#include <objectbase/Area.h>
#include <objectbase/Text_p.h>

#include <QStringList>

namespace KORMAK::Inspection {

namespace {

using Shape = AreaOutline::Shape;

QString listOf(const QStringList &texts)
{
    return QLatin1Char('[') + texts.join(QStringLiteral(", ")) + QLatin1Char(']');
}

QString positionText(double longitude, double latitude)
{
    return listOf({TESSEL::shortestText(longitude), TESSEL::shortestText(latitude)});
}

QStringList positionsOf(const OutlineRing &points)
{
    QStringList positions;
    for (const OutlinePoint &point : points)
        positions += positionText(point.longitude, point.latitude);
    return positions;
}

QStringList positionsOf(const QVector<TESSEL::Coordinate> &coordinates)
{
    QStringList positions;
    for (const TESSEL::Coordinate &coordinate : coordinates)
        positions += positionText(coordinate.GetLongitude(), coordinate.GetLatitude());
    return positions;
}

QString closedRing(const OutlineRing &ring)
{
    constexpr int Least = 4; // also of what encloses nothing
    QStringList positions = positionsOf(ring);
    do {
        positions += positions.constFirst();
    } while (positions.size() < Least);
    return listOf({listOf(positions)});
}

/// One of \a type, or several of the type that begins with "Multi".
void writeGeometry(JsonWriter &json, const QString &type, const QStringList &coordinates)
{
    const bool isOne = coordinates.size() == 1;
    json.member(u"type", jsonText(isOne ? type : QStringLiteral("Multi") + type));
    json.member(u"coordinates", isOne ? coordinates.constFirst() : listOf(coordinates));
}

void writeGeometry(JsonWriter &json, const AreaOutline &outline)
{
    QStringList coordinates;
    switch (outline.shape()) {
    case Shape::None:
        break;
    case Shape::Point:
        writeGeometry(json, QStringLiteral("Point"), positionsOf(outline.points()));
        break;
    case Shape::Line:
        for (const OutlineRing &line : outline.lines())
            coordinates += listOf(positionsOf(line));
        writeGeometry(json, QStringLiteral("LineString"), coordinates);
        break;
    case Shape::Polygon:
        for (const OutlineRing &polygon : outline.polygons())
            coordinates += closedRing(polygon);
        writeGeometry(json, QStringLiteral("Polygon"), coordinates);
        break;
    }
}

} // namespace

const TESSEL::Area *areaOf(const TESSEL::ITesselObject &document)
{
    const auto *const workflow = dynamic_cast<const AutomaticWorkflow *>(&document);
    return workflow ? &workflow->GetArea() : nullptr;
}

QString noAreaIn(const QString &kind)
{
    return QStringLiteral("a document of the kind %1 has no area").arg(kind);
}

QString areaGeoJson(const TESSEL::Area &area, const QString &kind)
{
    const AreaOutline outline(area.GetCoordinate());
    if (!outline.error().isEmpty())
        throw FieldError{outline.error()};
    JsonWriter json(JsonWriter::Layout::Indented);
    json.beginObject();
    json.member(u"type", jsonText(u"Feature"));
    json.key(u"properties");
    json.beginObject();
    json.member(u"name", jsonTextOrNull(area.GetName()));
    json.member(u"kind", jsonText(kind));
    const auto crosses = outline.crossesItself();
    json.member(u"crossesItself", crosses ? jsonBool(*crosses) : QStringLiteral("null"));
    if (!AreaParts::of(outline).joined())
        json.member(u"outline", listOf(positionsOf(area.GetCoordinate())));
    json.endObject();
    if (outline.shape() == Shape::None) {
        json.member(u"geometry", QStringLiteral("null"));
    } else {
        const Extent extent = outline.extent();
        json.member(u"bbox",
                    listOf({TESSEL::shortestText(extent.west), TESSEL::shortestText(extent.south),
                            TESSEL::shortestText(extent.east), TESSEL::shortestText(extent.north)}));
        json.key(u"geometry");
        json.beginObject();
        writeGeometry(json, outline);
        json.endObject();
    }
    json.endObject();
    return json.text();
}

} // namespace KORMAK::Inspection
