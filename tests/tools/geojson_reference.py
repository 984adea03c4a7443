"""Compares GeoJSON that the tool made with what Shapely makes of the same coordinates.

Called with a folder; in it are NAME.json, a list of pairs [latitude, longitude], and NAME.geojson. Prints what is wrong.
With --write behind the folder, it writes each NAME.geojson as Shapely cuts the area.
"""

import json
import pathlib
import sys

from shapely import affinity
from shapely.geometry import LineString, Point, Polygon, box, mapping, shape
from shapely.ops import unary_union
from shapely.validation import explain_validity


def unwrapped(coordinates):
    """Longitude before latitude, each longitude at most 180 degrees from the one before it."""
    points = []
    for latitude, longitude in coordinates:
        x = longitude
        if points:
            while x - points[-1][0] > 180:
                x -= 360
            while x - points[-1][0] < -180:
                x += 360
        points.append((x, latitude))
    return points


def numbers(coordinates):
    for one in coordinates:
        yield from numbers(one) if isinstance(one, list) else [one]


def reference(coordinates):
    points = unwrapped(coordinates)
    if len(points) == 1:
        return Point(points)
    if len(points) == 2:
        whole = LineString(points)
    else:
        closed = unwrapped(coordinates + coordinates[:1])
        if abs(closed[-1][0] - closed[0][0]) > 180:
            pole = 90 if sum(p[1] for p in points) >= 0 else -90
            closed += [(closed[-1][0], pole), (closed[0][0], pole)]
        whole = Polygon(closed)
    parts = []
    for turn in range(-2, 3):
        part = whole.intersection(box(-180 + 360 * turn, -90, 180 + 360 * turn, 90))
        part = affinity.translate(part, -360 * turn)
        if not part.is_empty and (whole.area == 0 or part.area > 0):
            parts.append(part)
    return unary_union(parts)


def faults(name, coordinates, feature):
    if feature["type"] != "Feature" or set(feature) != {"type", "properties", "bbox", "geometry"}:
        yield "is no feature with these members"
    geometry = shape(feature["geometry"])
    if not geometry.is_valid:
        yield "is not valid: " + explain_validity(geometry)
    expected = reference(coordinates)
    if geometry.geom_type.removeprefix("Multi") != expected.geom_type.removeprefix("Multi"):
        yield f"is a {geometry.geom_type}, not a {expected.geom_type}"
    if geometry.symmetric_difference(expected.buffer(0) if expected.area else expected).area > 1e-6:
        yield f"is {geometry.wkt}, not {expected.wkt}"
    if geometry.hausdorff_distance(expected) > 1e-6:
        yield f"is away from {expected.wkt}"
    if not box(-180, -90, 180, 90).covers(geometry):
        yield "leaves the world"
    vertices = set(numbers(feature["geometry"]["coordinates"]))
    for latitude, longitude in coordinates:
        if latitude not in vertices or (longitude not in vertices and abs(longitude) != 180):
            yield f"has not exactly {latitude}, {longitude}"
    for polygon in getattr(geometry, "geoms", [geometry]):
        if polygon.geom_type == "Polygon" and (not polygon.exterior.is_ccw or polygon.interiors):
            yield "is not anticlockwise"


def write(folder):
    for path in folder.glob("*.json"):
        geometry = mapping(reference(json.loads(path.read_text())))
        path.with_suffix(".geojson").write_text(json.dumps(geometry))


def main():
    if sys.argv[2:] == ["--write"]:
        write(pathlib.Path(sys.argv[1]))
        return
    count = 0
    for path in sorted(pathlib.Path(sys.argv[1]).glob("*.geojson")):
        count += 1
        coordinates = json.loads(path.with_suffix(".json").read_text())
        for fault in faults(path.stem, coordinates, json.loads(path.read_text())):
            print(f"{path.stem}: {fault}")
    print(f"{count} compared")


main()
