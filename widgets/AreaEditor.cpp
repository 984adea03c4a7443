#include "widgets/AreaEditor_p.h"

#include <inspection/Document.h>
#include <inspection/SaidFields_p.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace KORMAK::Widgets {

namespace {

constexpr double Pole = 90;
constexpr double Turn = 360;

/// \a degrees and \a step more, without the noise of adding in binary.
QString steppedText(double degrees, double step)
{
    const int decimals = std::max(decimalsOf(degrees), decimalsOf(std::abs(step)));
    return degreesText(degrees + step, decimals);
}

PlaceText placeText(const TESSEL::Coordinate &place, int decimals)
{
    return {degreesText(place.GetLatitude(), decimals), degreesText(place.GetLongitude(), decimals)};
}

} // namespace

void AreaEditor::setArea(OpenDocument *document, const QString &path)
{
    opened = document;
    areaPath = path;
    reset();
}

bool AreaEditor::update()
{
    const AreaPoints former =
        std::exchange(all, opened ? AreaPoints(opened->GetDocument(), areaPath) : AreaPoints());
    const auto now = current < 0 ? current : all.indexOf(current, former);
    if (!now)
        move.reset();
    setSelected(now.value_or(std::min(current, all.count() - 1)));
    changed();
    return now.has_value();
}

void AreaEditor::reset()
{
    move.reset();
    all = opened ? AreaPoints(opened->GetDocument(), areaPath) : AreaPoints();
    setSelected(-1);
    changed();
}

QVector<TESSEL::Coordinate> AreaEditor::coordinates() const
{
    return move ? all.moved(current, move->coordinate()) : all.coordinates();
}

void AreaEditor::select(int index)
{
    const int wanted = index >= 0 && index < all.count() ? index : -1;
    if (wanted != current)
        takeMove();
    setSelected(wanted < all.count() ? wanted : -1);
}

void AreaEditor::setSelected(int index)
{
    if (std::exchange(current, index) == index)
        return;
    selectionChanged(index);
    changed();
}

void AreaEditor::moveTo(const PlaceText &place)
{
    if (current < 0 || !isEditable())
        return;
    move = place;
    changed();
}

void AreaEditor::moveBy(double north, double east)
{
    if (current < 0 || !isEditable())
        return;
    const TESSEL::Coordinate &point = all.at(current);
    PlaceText to =
        move.value_or(PlaceText{degreesText(point.GetLatitude(), decimalsOf(point.GetLatitude())),
                                degreesText(point.GetLongitude(), decimalsOf(point.GetLongitude()))});
    const TESSEL::Coordinate from = coordinates().at(current);
    if (north != 0) {
        to.latitude = steppedText(from.GetLatitude(), north);
        if (std::abs(to.latitude.toDouble()) > std::max(Pole, std::abs(from.GetLatitude())))
            return;
    }
    if (east != 0) {
        to.longitude = steppedText(from.GetLongitude(), east);
        const double longitude = to.longitude.toDouble();
        if (std::abs(longitude) > Turn / 2)
            to.longitude = steppedText(longitude, longitude > 0 ? -Turn : Turn);
    }
    moveTo(to);
}

void AreaEditor::takeMove()
{
    if (!move)
        return;
    const PlaceText place = *std::exchange(move, std::nullopt);
    (void)change(all.move(current, place)); // where it is refused, the point is where it was
    changed();
}

void AreaEditor::giveUpMove()
{
    move.reset();
    changed();
}

void AreaEditor::insert(int index, const TESSEL::Coordinate &place, int decimals)
{
    takeMove();
    if (isEditable() && change(all.insert(index, placeText(place, decimals), said())) && index < all.count())
        setSelected(index);
}

void AreaEditor::remove(int index)
{
    takeMove();
    if (!isEditable() || index < 0 || index >= all.count())
        return;
    const int next = std::min(index, all.count() - 2);
    if (change(all.remove(index, said())) && next < all.count())
        setSelected(next);
}

/// \return it is made
bool AreaEditor::change(const AreaPoints::Changes &changes)
{
    return opened && !changes.isEmpty()
        && opened->Change(changes, DocumentEdit::NewFindings::Accepted).isEmpty();
}

QHash<QString, QString> AreaEditor::said() const
{
    return Inspection::SaidFields(opened->GetText()).texts();
}

} // namespace KORMAK::Widgets
