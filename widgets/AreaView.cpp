#include "widgets/AreaView.h"

#include <inspection/Document.h>
#include <inspection/report/AreaDrawing_p.h>
#include <inspection/SaidTexts_p.h>
#include <models/OpenDocument.h>
#include <widgets/AreaMapPainter_p.h>
#include <widgets/AreaPoints_p.h>

#include <QAccessible>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace KORMAK {

using namespace Widgets;
using Inspection::AreaOutline;

namespace {

constexpr double Pole = 90;
constexpr double Turn = 360;
constexpr double Base = 10;
constexpr double Reach = 10; ///< pixels from a point within which the mouse takes hold of it
constexpr double ZoomOfKey = 1.5;

QPointF positionOf(const QMouseEvent &event)
{
#if QT_VERSION_MAJOR < 6
    return event.localPos();
#else
    return event.position();
#endif
}

/// Of latitude and longitude while a point is moved by the mouse: finer than what can be seen.
int decimalsFor(const MapView &view)
{
    constexpr double PartOfPixel = 0.25;
    constexpr int Most = 9;
    return std::clamp(static_cast<int>(std::ceil(-std::log10(PartOfPixel / view.pixelsPerDegree()))), 0,
                      Most);
}

/// Round, and some pixels long.
double stepFor(const MapView &view)
{
    constexpr double Pixels = 12;
    const double most = Pixels / view.pixelsPerDegree();
    const double power = std::pow(Base, std::floor(std::log10(most)));
    const double factor = most / power;
    constexpr double Two = 2;
    constexpr double Five = 5;
    return power * (factor >= Five ? Five : factor >= Two ? Two : 1);
}

/// \a degrees and \a step more, without the noise of adding in binary.
QString steppedText(double degrees, double step)
{
    const int decimals = std::max(decimalsOf(degrees), decimalsOf(std::abs(step)));
    return degreesText(degrees + step, decimals);
}

double distance(const QPointF &a, const QPointF &b)
{
    return std::hypot(a.x() - b.x(), a.y() - b.y());
}

double distanceToLine(const QPointF &point, const QPointF &from, const QPointF &to)
{
    const QPointF along = to - from;
    const double length = QPointF::dotProduct(along, along);
    const double share =
        length == 0 ? 0 : std::clamp(QPointF::dotProduct(point - from, along) / length, 0.0, 1.0);
    return distance(point, from + share * along);
}

} // namespace

struct AreaView::Private {
    /// A move that the document has not yet.
    struct Move {
        int index;
        PlaceText place;
    };
    enum class Drag : qint32 { None, Pressed, Point, Map };

    AreaView &widget;
    QPointer<OpenDocument> document = {};
    QString path = QStringLiteral("Area");
    AreaPoints points = {};
    MapView view = MapView(QSizeF());
    bool isWhole = true; ///< the view follows the area
    int selected = -1;
    std::optional<Move> move = std::nullopt;
    Drag drag = Drag::None;
    int pressed = -1; ///< the point that the mouse was pressed on
    QPointF pressedAt = {};
    QPointF grip = {}; ///< from the mouse to the point that is dragged
    QPixmap earth = {};
    std::optional<MapView> earthView = std::nullopt;

    /// Room for the longest captions, so that the map keeps its size.
    [[nodiscard]] int captionHeight() const
    {
        constexpr int Characters = 150;
        constexpr int Least = 2;
        constexpr int Most = 5;
        constexpr int Gap = 4;
        const int needed = Characters * widget.fontMetrics().averageCharWidth();
        const int lines = std::clamp(needed / std::max(1, widget.width()) + 1, Least, Most);
        return lines * widget.fontMetrics().lineSpacing() + 2 * Gap;
    }
    [[nodiscard]] QSizeF mapSize() const
    {
        return {static_cast<double>(widget.width()),
                static_cast<double>(std::max(1, widget.height() - captionHeight()))};
    }
    [[nodiscard]] bool isEditable() const { return document && points.isKnown(); }

    /// The coordinates as they are drawn: with the move that is going on.
    [[nodiscard]] QVector<TESSEL::Coordinate> coordinates() const
    {
        return move ? points.moved(move->index, move->place.coordinate()) : points.coordinates();
    }

    void fit()
    {
        if (isWhole)
            view = MapView(mapSize(), outlineOnEarth(points.coordinates()));
        widget.update();
    }

    void setView(const MapView &newView)
    {
        view = newView;
        isWhole = false;
        widget.update();
    }

    void read(bool isOther)
    {
        points = document ? AreaPoints(document->GetDocument(), path) : AreaPoints();
        if (isOther) {
            move.reset();
            drag = Drag::None;
            isWhole = true;
        } else if (move && move->index >= points.count()) {
            move.reset();
        }
        if (drag == Drag::Point && pressed >= points.count())
            drag = Drag::None;
        if (pressed >= points.count())
            pressed = -1;
        select(isOther || selected >= points.count() ? -1 : selected);
        if (drag == Drag::None)
            fit();
        tell();
    }

    void select(int index)
    {
        if (std::exchange(selected, index) != index)
            Q_EMIT widget.SelectedPointChanged(index);
        tell();
        widget.update();
    }

    /// Changes of what assistive technology reads.
    void tell()
    {
        const QString caption = widget.GetCaption();
        if (widget.accessibleDescription() != caption)
            widget.setAccessibleDescription(caption);
    }

    void change(const AreaPoints::Changes &changes)
    {
        isWhole = false; // who works at a place wants to stay there
        if (document && !changes.isEmpty())
            document->Change(changes, DocumentEdit::NewFindings::Accepted);
    }

    void takeMove()
    {
        if (!move)
            return;
        const Move taken = *std::exchange(move, std::nullopt);
        change(points.move(taken.index, taken.place));
        widget.update();
    }

    void cancelMove()
    {
        move.reset();
        drag = Drag::None;
        tell();
        widget.update();
    }

    void setMove(int index, const PlaceText &place)
    {
        move = Move{index, place};
        tell();
        widget.update();
    }

    [[nodiscard]] QHash<QString, QString> said() const { return Inspection::saidTexts(document->GetText()); }

    void insert(int index, const TESSEL::Coordinate &place)
    {
        const int decimals = decimalsFor(view);
        change(points.insert(
            index, {degreesText(place.GetLatitude(), decimals), degreesText(place.GetLongitude(), decimals)},
            said()));
        if (index < points.count())
            select(index);
    }

    void remove(int index)
    {
        takeMove();
        if (index < 0 || index >= points.count())
            return;
        const int next = std::min(index, points.count() - 2);
        change(points.remove(index, said()));
        select(next < points.count() ? next : -1);
    }

    /// Behind the point that is selected, half way to the next one.
    void insertBehindSelected()
    {
        takeMove();
        const int count = points.count();
        if (selected < 0 || count < 2) {
            const auto middle = view.place({view.size().width() / 2, view.size().height() / 2});
            if (count == 1) {
                constexpr double Side = 60;
                const auto at = view.position(points.at(0));
                const auto beside = at ? view.place(*at + QPointF(Side, 0)) : std::nullopt;
                insert(1, beside.value_or(middle.value_or(points.at(0))));
            } else if (middle) {
                insert(count, *middle);
            }
            return;
        }
        const TESSEL::Coordinate from = points.at(selected);
        const TESSEL::Coordinate to = points.at((selected + 1) % count);
        const double east = std::remainder(to.GetLongitude() - from.GetLongitude(), Turn);
        insert(selected + 1,
               {(from.GetLatitude() + to.GetLatitude()) / 2,
                std::remainder(from.GetLongitude() + east / 2, Turn)});
    }

    /// On the edge that is nearest to \a position.
    void insertAt(const QPointF &position)
    {
        takeMove();
        const auto place = view.place(position);
        if (!place)
            return;
        const int count = points.count();
        int index = count;
        double least = HUGE_VAL;
        for (int i = 0; count > 2 && i < count; ++i) {
            const auto from = view.position(points.at(i));
            const auto to = view.position(points.at((i + 1) % count));
            const double far = from && to ? distanceToLine(position, *from, *to) : HUGE_VAL;
            if (far < least) {
                least = far;
                index = i + 1;
            }
        }
        insert(index, *place);
    }

    /// -1 when there is none.
    [[nodiscard]] int pointAt(const QPointF &position) const
    {
        int found = -1;
        double least = Reach;
        const QVector<TESSEL::Coordinate> all = coordinates();
        for (int i = 0; i < points.count(); ++i) {
            const auto at = isOnEarth(all.at(i)) ? view.position(all.at(i)) : std::nullopt;
            const double far = at ? distance(*at, position) : HUGE_VAL;
            if (far < least || (far == least && i == selected)) {
                least = far;
                found = i;
            }
        }
        return found;
    }

    void step(Qt::Key key, double share)
    {
        const TESSEL::Coordinate from = coordinates().at(selected);
        const double step = stepFor(view) * share;
        PlaceText to = move ? move->place
                            : PlaceText{degreesText(from.GetLatitude(), decimalsOf(from.GetLatitude())),
                                        degreesText(from.GetLongitude(), decimalsOf(from.GetLongitude()))};
        if (key == Qt::Key_Up || key == Qt::Key_Down) {
            const QString latitude = steppedText(from.GetLatitude(), key == Qt::Key_Up ? step : -step);
            if (std::abs(latitude.toDouble()) > std::max(Pole, std::abs(from.GetLatitude())))
                return;
            to.latitude = latitude;
        } else {
            const QString longitude = steppedText(from.GetLongitude(), key == Qt::Key_Right ? step : -step);
            const bool isOver = std::abs(longitude.toDouble()) > Turn / 2;
            to.longitude = isOver ? steppedText(longitude.toDouble(), longitude.toDouble() > 0 ? -Turn : Turn)
                                  : longitude;
        }
        setMove(selected, to);
        keepSeen(to.coordinate());
    }

    /// Moves the map when \a place is at its edge.
    void keepSeen(const TESSEL::Coordinate &place)
    {
        constexpr double Edge = 24;
        const auto at = view.position(place);
        const QRectF inner = QRectF(QPointF(), view.size()).adjusted(Edge, Edge, -Edge, -Edge);
        if (at && !inner.contains(*at))
            setView(view.moved(QRectF(QPointF(), view.size()).center() - *at));
    }

    void pan(Qt::Key key)
    {
        constexpr double Share = 0.1;
        const double x = view.size().width() * Share;
        const double y = view.size().height() * Share;
        setView(view.moved(key == Qt::Key_Left        ? QPointF(x, 0)
                               : key == Qt::Key_Right ? QPointF(-x, 0)
                               : key == Qt::Key_Up    ? QPointF(0, y)
                                                      : QPointF(0, -y)));
    }

    [[nodiscard]] static bool isArrow(int key)
    {
        return key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down;
    }

    /// Whether a press of the key does something.
    [[nodiscard]] bool takes(int key) const
    {
        switch (key) {
        case Qt::Key_Delete:
        case Qt::Key_Backspace:
            return isEditable() && selected >= 0;
        case Qt::Key_Insert:
            return isEditable();
        case Qt::Key_Escape:
            return move || drag == Drag::Point || selected >= 0;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return move.has_value();
        case Qt::Key_Plus:
        case Qt::Key_Equal:
        case Qt::Key_Minus:
        case Qt::Key_Home:
            return true;
        default:
            return isArrow(key);
        }
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers)
    {
        constexpr double Tenth = 0.1;
        switch (key) {
        case Qt::Key_Delete:
        case Qt::Key_Backspace:
            remove(selected);
            break;
        case Qt::Key_Insert:
            insertBehindSelected();
            break;
        case Qt::Key_Escape:
            if (move || drag == Drag::Point)
                cancelMove();
            else
                select(-1);
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            takeMove();
            break;
        case Qt::Key_Plus:
        case Qt::Key_Equal:
            widget.Zoom(ZoomOfKey);
            break;
        case Qt::Key_Minus:
            widget.Zoom(1 / ZoomOfKey);
            break;
        case Qt::Key_Home:
            widget.ShowWholeArea();
            break;
        default:
            if ((modifiers & Qt::ControlModifier) || selected < 0 || !isEditable())
                pan(key);
            else if (drag == Drag::None)
                step(key, modifiers & Qt::ShiftModifier ? Tenth : 1);
        }
    }

    void dragTo(const QPointF &position)
    {
        constexpr double Start = 4;
        if (drag == Drag::Pressed && distance(position, pressedAt) >= Start)
            drag = pressed >= 0 && isEditable() ? Drag::Point : Drag::Map;
        if (drag == Drag::Map) {
            setView(view.moved(position - pressedAt));
            pressedAt = position;
        } else if (drag == Drag::Point) {
            const QSizeF size = view.size();
            const QPointF inside(std::clamp(position.x(), 0.0, size.width()),
                                 std::clamp(position.y(), 0.0, size.height()));
            if (const auto place = view.place(inside + grip)) {
                const int decimals = decimalsFor(view);
                setMove(pressed,
                        {degreesText(place->GetLatitude(), decimals),
                         degreesText(place->GetLongitude(), decimals)});
            }
        }
    }
};

AreaView::AreaView(QWidget *parent) : QWidget(parent), d(new Private{*this})
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAccessibleName(tr("Map of the area"));
    d->fit();
    d->tell();
}

AreaView::~AreaView() = default;

void AreaView::SetDocument(OpenDocument *document, const QString &path)
{
    if (d->document)
        d->document->disconnect(this);
    d->document = document;
    d->path = path;
    if (document) {
        connect(document, &OpenDocument::Replaced, this, [this] { d->read(true); });
        connect(document, &OpenDocument::Changed, this, [this](const QStringList &paths) {
            const bool isMine = std::any_of(paths.begin(), paths.end(), [this](const QString &changed) {
                return changed.startsWith(d->path);
            });
            if (isMine)
                d->read(false);
        });
        connect(document, &OpenDocument::OpenEditsWanted, this, [this] {
            d->drag = Private::Drag::None;
            d->takeMove();
        });
        connect(document, &QObject::destroyed, this, [this] {
            d->document = nullptr;
            d->read(true);
        });
    }
    d->read(true);
}

OpenDocument *AreaView::GetDocument() const
{
    return d->document;
}

int AreaView::GetSelectedPoint() const noexcept
{
    return d->selected;
}

void AreaView::SetSelectedPoint(int index)
{
    const int wanted = index >= 0 && index < d->points.count() ? index : -1;
    if (wanted != d->selected)
        d->takeMove();
    d->select(wanted < d->points.count() ? wanted : -1);
}

void AreaView::ShowWholeArea()
{
    d->isWhole = true;
    d->fit();
}

void AreaView::Zoom(double factor)
{
    const auto selected =
        d->selected >= 0 ? d->view.position(d->coordinates().at(d->selected)) : std::nullopt;
    const QPointF middle(d->view.size().width() / 2, d->view.size().height() / 2);
    d->setView(d->view.zoomed(factor, selected.value_or(middle)));
}

std::optional<QPointF> AreaView::GetPosition(const TESSEL::Coordinate &place) const
{
    return d->view.position(place);
}

std::optional<TESSEL::Coordinate> AreaView::GetPlace(const QPointF &position) const
{
    return d->view.place(position);
}

QString AreaView::GetCaption() const
{
    if (!d->document || !d->points.isKnown())
        return d->document ? tr("The document has no area.") : QString();
    const QVector<TESSEL::Coordinate> coordinates = d->coordinates();
    if (d->points.count() == 0)
        return tr("The area has no points yet.") + QLatin1Char('\n')
            + tr("A double click or Insert adds one.");
    const AreaOutline outline(coordinates);
    QString first;
    if (d->selected >= 0) {
        const TESSEL::Coordinate &place = coordinates.at(d->selected);
        const auto number = [](double value) {
            return QString::number(value, 'g', QLocale::FloatingPointShortest);
        };
        const QChar degree(0xB0);
        first = tr("Point %1 of %2: latitude %3, longitude %4")
                    .arg(QString::number(d->selected + 1), QString::number(d->points.count()),
                         number(place.GetLatitude()) + degree, number(place.GetLongitude()) + degree);
        if (d->move)
            first += tr(" (moving)");
    } else if (outline.error().isEmpty()) {
        first = extentText(outline) + QLatin1Char('.');
    }
    const QString second = outline.error().isEmpty() ? remarkOn(outline) : outline.error() + QLatin1Char('.');
    const QStringList lines{first, second};
    QStringList told;
    std::copy_if(lines.begin(), lines.end(), std::back_inserter(told),
                 [](const QString &line) { return !line.isEmpty(); });
    return localised(told.join(QLatin1Char('\n')), locale());
}

QSize AreaView::sizeHint() const
{
    constexpr int Width = 480;
    constexpr int Height = 360;
    return {Width, Height + d->captionHeight()};
}

QSize AreaView::minimumSizeHint() const
{
    constexpr int Width = 240;
    constexpr int Height = 160;
    return {Width, Height + d->captionHeight()};
}

void AreaView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    const QEvent::Type type = event->type();
    if (type == QEvent::PaletteChange || type == QEvent::StyleChange || type == QEvent::LocaleChange
        || type == QEvent::FontChange || type == QEvent::EnabledChange) {
        d->earthView.reset();
        d->view = d->view.resized(d->mapSize());
        d->fit();
        d->tell();
    }
}

void AreaView::contextMenuEvent(QContextMenuEvent *event)
{
    const bool isByMouse = event->reason() == QContextMenuEvent::Mouse;
    const QPointF position(event->pos());
    const int index = isByMouse ? d->pointAt(position) : d->selected;
    QMenu menu(this);
    QAction *const add = menu.addAction(tr("&Add Point"));
    add->setEnabled(d->isEditable());
    QAction *const remove = menu.addAction(tr("&Remove Point"));
    remove->setEnabled(d->isEditable() && index >= 0);
    menu.addSeparator();
    QAction *const zoomIn = menu.addAction(tr("Zoom &In"));
    QAction *const zoomOut = menu.addAction(tr("Zoom &Out"));
    QAction *const whole = menu.addAction(tr("&Whole Area"));
    const QAction *const chosen = menu.exec(event->globalPos());
    if (chosen == nullptr)
        return;
    if (chosen == add)
        isByMouse ? d->insertAt(position) : d->insertBehindSelected();
    else if (chosen == remove)
        d->remove(index);
    else if (chosen == zoomIn)
        Zoom(ZoomOfKey);
    else if (chosen == zoomOut)
        Zoom(1 / ZoomOfKey);
    else if (chosen == whole)
        ShowWholeArea();
}

bool AreaView::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        // What a key does here comes before the shortcuts of the window.
        const auto *const key = static_cast<QKeyEvent *>(event);
        const bool isPlain = !(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
        if (isPlain && d->takes(key->key()))
            event->accept();
    }
    return QWidget::event(event);
}

void AreaView::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    if (event->reason() == Qt::TabFocusReason && d->points.count() > 0)
        d->select(0);
    else if (event->reason() == Qt::BacktabFocusReason && d->points.count() > 0)
        d->select(d->points.count() - 1);
    update();
}

bool AreaView::focusNextPrevChild(bool next)
{
    const int to = d->selected + (next ? 1 : -1);
    if (!isVisible() || !hasFocus() || to < 0 || to >= d->points.count() || (d->selected < 0 && !next))
        return QWidget::focusNextPrevChild(next);
    SetSelectedPoint(to);
    d->keepSeen(d->points.at(to));
    return true;
}

void AreaView::focusOutEvent(QFocusEvent *event)
{
    if (event->reason() != Qt::PopupFocusReason && d->drag == Private::Drag::None)
        d->takeMove();
    QWidget::focusOutEvent(event);
    update();
}

void AreaView::keyPressEvent(QKeyEvent *event)
{
    const bool isForMap = !(event->modifiers() & (Qt::AltModifier | Qt::MetaModifier));
    if (isForMap && d->takes(event->key()))
        d->press(static_cast<Qt::Key>(event->key()), event->modifiers());
    else
        QWidget::keyPressEvent(event);
}

void AreaView::mouseDoubleClickEvent(QMouseEvent *event)
{
    const QPointF position = positionOf(*event);
    d->drag = Private::Drag::None;
    if (event->button() == Qt::LeftButton && d->isEditable() && d->pointAt(position) < 0
        && QRectF(QPointF(), d->view.size()).contains(position))
        d->insertAt(position);
}

void AreaView::mouseMoveEvent(QMouseEvent *event)
{
    const QPointF position = positionOf(*event);
    if (event->buttons() & Qt::LeftButton)
        d->dragTo(position);
    else
        setCursor(d->isEditable() && d->pointAt(position) >= 0 ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void AreaView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        QWidget::mousePressEvent(event);
        return;
    }
    const QPointF position = positionOf(*event);
    const int index = d->pointAt(position);
    SetSelectedPoint(index);
    d->drag = Private::Drag::Pressed;
    d->pressed = index;
    d->pressedAt = position;
    const auto at = index >= 0 ? d->view.position(d->coordinates().at(index)) : std::nullopt;
    d->grip = at ? *at - position : QPointF();
}

void AreaView::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const bool isMoved = d->drag == Private::Drag::Point;
    d->drag = Private::Drag::None;
    if (isMoved)
        d->takeMove();
}

void AreaView::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    QFont small = font();
    constexpr double Share = 0.9;
    if (small.pointSizeF() > 0)
        small.setPointSizeF(small.pointSizeF() * Share);
    const MapLook look{palette(), small, locale()};
    const double ratio = devicePixelRatioF();
    const bool isKept = d->earthView && d->earth.devicePixelRatio() == ratio && d->earthView->isSame(d->view);
    if (!isKept) {
        d->earth = QPixmap((d->view.size() * ratio).toSize());
        d->earth.setDevicePixelRatio(ratio);
        QPainter onEarth(&d->earth);
        paintEarth(onEarth, d->view, look);
        d->earthView.emplace(d->view);
    }
    const QRectF map(QPointF(), d->view.size());
    painter.drawPixmap(QPointF(), d->earth);
    painter.setClipRect(map);
    const QVector<TESSEL::Coordinate> coordinates = d->coordinates();
    paintArea(painter, d->view, look, coordinates, {d->points.count(), d->selected, hasFocus()});
    painter.setClipping(false);

    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(hasFocus() ? QPen(palette().color(QPalette::Highlight), 2)
                              : QPen(palette().color(QPalette::Mid), 1));
    painter.setBrush(Qt::NoBrush);
    const double inset = hasFocus() ? 1 : 0;
    painter.drawRect(map.adjusted(inset, inset, -1 - inset, -1 - inset));

    painter.setFont(font());
    painter.setPen(palette().color(QPalette::WindowText));
    constexpr int Gap = 4;
    const QRect caption = rect().adjusted(Gap, static_cast<int>(map.bottom()) + Gap, -Gap, 0);
    const QString text = GetCaption();
    // It stands on the side where lines begin, and runs as its own language does.
    const auto side = isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft;
    painter.setLayoutDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    painter.drawText(caption, static_cast<int>(side | Qt::AlignTop | Qt::AlignAbsolute) | Qt::TextWordWrap,
                     text);
}

void AreaView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    d->view = d->view.resized(d->mapSize());
    d->fit();
}

void AreaView::wheelEvent(QWheelEvent *event)
{
    if (!hasFocus() || event->angleDelta().y() == 0) {
        event->ignore(); // what is scrolled past is not changed
        return;
    }
    constexpr double Notch = 120;
    const double notches = event->angleDelta().y() / Notch;
    d->setView(d->view.zoomed(std::pow(ZoomOfKey, notches), event->position()));
    event->accept();
}

} // namespace KORMAK
