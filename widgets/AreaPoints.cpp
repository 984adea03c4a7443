#include "widgets/AreaPoints_p.h"

#include <inspection/Document.h>

#include <QLocale>

#include <algorithm>
#include <cmath>

namespace KORMAK::Widgets {

namespace {

using Action = DocumentEdit::Change::Action;

const QLatin1String Latitude(".Latitude");
const QLatin1String Longitude(".Longitude");

/// What \a text holds, if it says exactly \a value; else the shortest text that does.
QString exactText(double value, const QString &text)
{
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    return isNumber && number == value ? text.trimmed()
                                       : QString::number(value, 'g', QLocale::FloatingPointShortest);
}

} // namespace

QString degreesText(double degrees, int decimals)
{
    QString text = QString::number(degrees, 'f', decimals);
    if (text.contains(QLatin1Char('.'))) {
        while (text.endsWith(QLatin1Char('0')))
            text.chop(1);
        if (text.endsWith(QLatin1Char('.')))
            text.chop(1);
    }
    return text == QLatin1String("-0") ? QStringLiteral("0") : text;
}

int decimalsOf(double value)
{
    const QString text = QString::number(value, 'g', QLocale::FloatingPointShortest);
    const auto point = text.indexOf(QLatin1Char('.'));
    return point < 0 || text.contains(QLatin1Char('e')) ? 0 : static_cast<int>(text.size() - point - 1);
}

AreaPoints::AreaPoints(const Document &document, const QString &path)
    : list(path + QStringLiteral(".Coordinate"))
{
    const QVector<Field> fields = document.GetFields();
    for (const Field &field : fields) {
        const QString name = field.GetPath();
        hasArea = hasArea || name.startsWith(path + QLatin1Char('.'));
        if (name == element(static_cast<int>(all.size())) + Latitude)
            all.append(TESSEL::Coordinate(field.GetValue().toDouble()));
        else if (!all.isEmpty() && name == element(static_cast<int>(all.size()) - 1) + Longitude)
            all.last().SetLongitude(field.GetValue().toDouble());
    }
}

bool AreaPoints::isClosed() const
{
    constexpr int LeastCorners = 3;
    return all.size() > LeastCorners && all.first() == all.last();
}

std::optional<int> AreaPoints::indexOf(int index, const AreaPoints &former) const
{
    const int before = former.count();
    const int now = count();
    if (before == now)
        return index;
    const int fewer = std::min(before, now);
    int first = 0;
    while (first < fewer && all.at(first) == former.all.at(first))
        ++first;
    if (index < first)
        return index;
    int last = 0;
    while (last < fewer && all.at(now - 1 - last) == former.all.at(before - 1 - last))
        ++last;
    if (index >= before - last)
        return index + now - before;
    return std::nullopt;
}

TESSEL::Coordinate AreaPoints::behind(int index) const
{
    constexpr double Turn = 360;
    const TESSEL::Coordinate &from = all.at(index);
    const TESSEL::Coordinate &to = all.at((index + 1) % count());
    const double east = std::remainder(to.GetLongitude() - from.GetLongitude(), Turn);
    return {(from.GetLatitude() + to.GetLatitude()) / 2,
            std::remainder(from.GetLongitude() + east / 2, Turn)};
}

QVector<TESSEL::Coordinate> AreaPoints::moved(int index, const TESSEL::Coordinate &place) const
{
    QVector<TESSEL::Coordinate> coordinates = all;
    coordinates[index] = place;
    if (index == 0 && isClosed())
        coordinates.last() = place;
    return coordinates;
}

AreaPoints::Changes AreaPoints::move(int index, const PlaceText &place) const
{
    Changes changes;
    addMove(changes, index, place);
    if (index == 0 && isClosed())
        addMove(changes, static_cast<int>(all.size()) - 1, place);
    return changes;
}

AreaPoints::Changes AreaPoints::insert(int index, const PlaceText &place,
                                       const QHash<QString, QString> &said) const
{
    // Elements are added behind the last one: it takes the place of that, and so on.
    Changes changes;
    const int last = static_cast<int>(all.size()) - 1;
    const PlaceText added = index > last ? place : textOf(last, said);
    changes.append({Action::Set, list, added.latitude + QLatin1Char(',') + added.longitude});
    for (int i = last; i > index; --i)
        addMove(changes, i, textOf(i - 1, said));
    if (index <= last)
        addMove(changes, index, place);
    return changes;
}

AreaPoints::Changes AreaPoints::remove(int index, const QHash<QString, QString> &said) const
{
    Changes changes;
    if (index == 0 && isClosed())
        addMove(changes, static_cast<int>(all.size()) - 1, textOf(1, said));
    changes.append({Action::Unset, element(index)});
    return changes;
}

QString AreaPoints::element(int index) const
{
    return list + QStringLiteral("[%1]").arg(index);
}

PlaceText AreaPoints::textOf(int index, const QHash<QString, QString> &said) const
{
    return {exactText(all.at(index).GetLatitude(), said.value(element(index) + Latitude)),
            exactText(all.at(index).GetLongitude(), said.value(element(index) + Longitude))};
}

void AreaPoints::addMove(Changes &changes, int index, const PlaceText &place) const
{
    const TESSEL::Coordinate to = place.coordinate();
    if (to.GetLatitude() != all.at(index).GetLatitude())
        changes.append({Action::Set, element(index) + Latitude, place.latitude});
    if (to.GetLongitude() != all.at(index).GetLongitude())
        changes.append({Action::Set, element(index) + Longitude, place.longitude});
}

} // namespace KORMAK::Widgets
