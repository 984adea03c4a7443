#include "widgets/AreaView.h"

#include <models/OpenDocument.h>
#include <widgets/AreaCaption_p.h>
#include <widgets/AreaEditor_p.h>
#include <widgets/AreaMapPainter_p.h>
#include <widgets/TextSize_p.h>

#include <QAccessible>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QPointer>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace KORMAK {

using namespace Widgets;

namespace {

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

bool isArrow(int key)
{
    return key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down;
}

} // namespace

struct AreaView::Private {
    enum class Drag : qint32 { None, Pressed, Point, Map };

    AreaView &widget;
    AreaEditor editor = {};
    MapView view = MapView(QSizeF());
    bool isWhole = true; ///< the view follows the area
    bool isDone = false; ///< Escape has let go of the point: Tab leaves the map
    Drag drag = Drag::None;
    QPointF pressedAt = {};
    QPointF grip = {}; ///< from the mouse to the point that is dragged
    QPointer<QMenu> menu = {};
    QPixmap earth = {};
    std::optional<MapView> earthView = std::nullopt;

    /// Room for the longest captions, so that the map keeps its size.
    [[nodiscard]] int captionHeight() const
    {
        constexpr int Characters = 80; // of each of its two sentences
        constexpr int Most = 3;
        constexpr int Gap = 4;
        const int needed = sizeOfText(widget, Characters, 1).width();
        const int width = std::max(1, widget.width() - 2 * Gap);
        const int lines = 2 * std::clamp((needed + width - 1) / width, 1, Most);
        return sizeOfText(widget, 1, lines).height() + 2 * Gap;
    }
    [[nodiscard]] QSizeF mapSize() const
    {
        return {static_cast<double>(widget.width()),
                static_cast<double>(std::max(1, widget.height() - captionHeight()))};
    }
    [[nodiscard]] const AreaPoints &points() const { return editor.points(); }

    // Seeing

    void fit()
    {
        if (isWhole)
            view = MapView(mapSize(), outlineOnEarth(points().coordinates()));
        widget.update();
    }

    void setView(const MapView &newView)
    {
        view = newView;
        isWhole = false;
        widget.update();
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

    /// What is to be seen or heard has changed.
    void tell()
    {
        const QString caption = widget.GetCaption();
        if (widget.accessibleDescription() != caption)
            widget.setAccessibleDescription(caption);
        widget.update();
    }

    // Changing. Who works at a place wants to stay there.

    void read(bool isOther)
    {
        // Its entries are about what was there.
        if (menu)
            menu->close();
        bool isThere = false;
        if (isOther) {
            isWhole = true;
            editor.reset();
        } else {
            isThere = editor.update();
        }
        if (!isThere)
            drag = Drag::None;
        if (drag == Drag::None)
            fit();
    }

    void takeMove()
    {
        isWhole = isWhole && !editor.isMoving();
        editor.takeMove();
    }

    void giveUpMove()
    {
        drag = Drag::None;
        editor.giveUpMove();
    }

    void insert(int index, const TESSEL::Coordinate &place)
    {
        isWhole = false;
        editor.insert(index, place, view.decimals());
    }

    void remove(int index)
    {
        isWhole = false;
        editor.remove(index);
    }

    /// Behind the point that is selected, half way to the next one.
    void insertBehindSelected()
    {
        takeMove();
        const int count = points().count();
        const auto middle = view.place({view.size().width() / 2, view.size().height() / 2});
        if (editor.selected() >= 0 && count > 1) {
            insert(editor.selected() + 1, points().behind(editor.selected()));
        } else if (count == 1) {
            constexpr double Side = 60;
            const auto at = view.position(points().at(0));
            const auto beside = at ? view.place(*at + QPointF(Side, 0)) : std::nullopt;
            insert(1, beside.value_or(middle.value_or(points().at(0))));
        } else if (middle) {
            insert(count, *middle);
        }
    }

    /// On the edge that is nearest to \a position.
    void insertAt(const QPointF &position)
    {
        takeMove();
        const auto place = view.place(position);
        if (!place)
            return;
        const int count = points().count();
        int index = count;
        double least = HUGE_VAL;
        for (int i = 0; count > 2 && i < count; ++i) {
            const auto from = view.position(points().at(i));
            const auto to = view.position(points().at((i + 1) % count));
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
        const QVector<TESSEL::Coordinate> all = editor.coordinates();
        for (int i = 0; i < points().count(); ++i) {
            const auto at = isOnEarth(all.at(i)) ? view.position(all.at(i)) : std::nullopt;
            const double far = at ? distance(*at, position) : HUGE_VAL;
            if (far < least || (far == least && i == editor.selected())) {
                least = far;
                found = i;
            }
        }
        return found;
    }

    // Keys

    /// Whether a press of the key does something.
    [[nodiscard]] bool takes(int key, Qt::KeyboardModifiers modifiers) const
    {
        if (modifiers & (Qt::AltModifier | Qt::MetaModifier))
            return false;
        const bool isPlain = !(modifiers & Qt::ControlModifier);
        switch (key) {
        case Qt::Key_Delete:
        case Qt::Key_Backspace:
            return isPlain && editor.isEditable() && editor.selected() >= 0;
        case Qt::Key_Insert:
            return isPlain && editor.isEditable();
        case Qt::Key_Escape:
            return isPlain && (editor.isMoving() || drag == Drag::Point || editor.selected() >= 0);
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return isPlain && editor.isMoving();
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
        switch (key) {
        case Qt::Key_Delete:
        case Qt::Key_Backspace:
            takeMove();
            remove(editor.selected());
            break;
        case Qt::Key_Insert:
            insertBehindSelected();
            break;
        case Qt::Key_Escape:
            if (editor.isMoving() || drag == Drag::Point) {
                giveUpMove();
            } else {
                editor.select(-1);
                isDone = true;
            }
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
            if ((modifiers & Qt::ControlModifier) || editor.selected() < 0 || !editor.isEditable())
                pan(key);
            else if (drag == Drag::None)
                step(key, modifiers);
        }
    }

    void step(Qt::Key key, Qt::KeyboardModifiers modifiers)
    {
        constexpr double Tenth = 0.1;
        const double step = view.step() * (modifiers & Qt::ShiftModifier ? Tenth : 1);
        const double north = key == Qt::Key_Up ? step : key == Qt::Key_Down ? -step : 0;
        const double east = key == Qt::Key_Right ? step : key == Qt::Key_Left ? -step : 0;
        editor.moveBy(north, east);
        keepSeen(editor.coordinates().at(editor.selected()));
    }

    // Mouse

    void dragTo(const QPointF &position)
    {
        constexpr double Start = 4;
        if (drag == Drag::Pressed && distance(position, pressedAt) >= Start)
            drag = editor.selected() >= 0 && editor.isEditable() ? Drag::Point : Drag::Map;
        if (drag == Drag::Map) {
            setView(view.moved(position - pressedAt));
            pressedAt = position;
        } else if (drag == Drag::Point) {
            const QSizeF size = view.size();
            const QPointF inside(std::clamp(position.x(), 0.0, size.width()),
                                 std::clamp(position.y(), 0.0, size.height()));
            if (const auto place = view.place(inside + grip)) {
                const int decimals = view.decimals();
                editor.moveTo({degreesText(place->GetLatitude(), decimals),
                               degreesText(place->GetLongitude(), decimals)});
            }
        }
    }

    /// It is open beside what goes on: the document may change meanwhile, and the map be destroyed.
    void openMenu(const QPoint &globalPosition, const std::optional<QPointF> &mouse)
    {
        const int index = mouse ? pointAt(*mouse) : editor.selected();
        delete menu;
        menu = new QMenu(&widget);
        menu->setAttribute(Qt::WA_DeleteOnClose);
        const auto add = [this](const QString &text, auto what) {
            QAction *const action = menu->addAction(text);
            connect(action, &QAction::triggered, &widget, what);
            return action;
        };
        add(AreaView::tr("&Add Point"), [this, mouse] {
            mouse ? insertAt(*mouse) : insertBehindSelected();
        })->setEnabled(editor.isEditable());
        add(AreaView::tr("&Remove Point"), [this, index] {
            takeMove();
            remove(index);
        })->setEnabled(editor.isEditable() && index >= 0);
        menu->addSeparator();
        add(AreaView::tr("Zoom &In"), [this] { widget.Zoom(ZoomOfKey); });
        add(AreaView::tr("Zoom &Out"), [this] { widget.Zoom(1 / ZoomOfKey); });
        add(AreaView::tr("&Whole Area"), [this] { widget.ShowWholeArea(); });
        menu->popup(globalPosition);
    }
};

AreaView::AreaView(QWidget *parent) : QWidget(parent), d(new Private{*this})
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAccessibleName(tr("Map of the area"));
    d->editor.selectionChanged = [this](int index) {
        d->isDone = false;
        Q_EMIT SelectedPointChanged(index);
    };
    d->editor.changed = [this] { d->tell(); };
    d->fit();
    d->tell();
}

AreaView::~AreaView() = default;

void AreaView::SetDocument(OpenDocument *document, const QString &path)
{
    if (d->editor.document())
        d->editor.document()->disconnect(this);
    d->editor.setArea(document, path);
    if (document) {
        connect(document, &OpenDocument::Replaced, this, [this] { d->read(true); });
        connect(document, &OpenDocument::Changed, this, [this](const QStringList &paths) {
            const bool isMine = std::any_of(paths.begin(), paths.end(), [this](const QString &changed) {
                return changed.startsWith(d->editor.path());
            });
            if (isMine)
                d->read(false);
        });
        connect(document, &OpenDocument::OpenEditsWanted, this, [this] {
            d->drag = Private::Drag::None;
            d->takeMove();
        });
        connect(document, &QObject::destroyed, this, [this] {
            d->editor.setArea(nullptr, d->editor.path());
            d->read(true);
        });
    }
    d->read(true);
}

OpenDocument *AreaView::GetDocument() const
{
    return d->editor.document();
}

int AreaView::GetSelectedPoint() const noexcept
{
    return d->editor.selected();
}

void AreaView::SetSelectedPoint(int index)
{
    if (index != d->editor.selected()) {
        d->takeMove();
        if (d->drag == Private::Drag::Point)
            d->drag = Private::Drag::None;
    }
    d->editor.select(index);
}

void AreaView::ShowWholeArea()
{
    d->isWhole = true;
    d->fit();
}

void AreaView::Zoom(double factor)
{
    const int selected = d->editor.selected();
    const QRectF map(QPointF(), d->view.size());
    const auto at = selected >= 0 ? d->view.position(d->editor.coordinates().at(selected)) : std::nullopt;
    d->setView(d->view.zoomed(factor, at && map.contains(*at) ? *at : map.center()));
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
    return areaCaption(d->editor, locale());
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
    if (event->reason() == QContextMenuEvent::Mouse) {
        d->openMenu(event->globalPos(), QPointF(event->pos()));
        return;
    }
    const int selected = d->editor.selected();
    const auto at = selected >= 0 ? d->view.position(d->editor.coordinates().at(selected)) : std::nullopt;
    d->openMenu(mapToGlobal(at ? at->toPoint() : rect().center()), std::nullopt);
}

bool AreaView::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        // What a key does here comes before the shortcuts of the window.
        const auto *const key = static_cast<QKeyEvent *>(event);
        if (!(key->modifiers() & Qt::ControlModifier) && d->takes(key->key(), key->modifiers()))
            event->accept();
    }
    return QWidget::event(event);
}

void AreaView::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    const int count = d->points().count();
    d->isDone = false;
    if (event->reason() == Qt::TabFocusReason && count > 0)
        d->editor.select(0);
    else if (event->reason() == Qt::BacktabFocusReason && count > 0)
        d->editor.select(count - 1);
    update();
}

bool AreaView::focusNextPrevChild(bool next)
{
    const int selected = d->editor.selected();
    const int to = selected + (next ? 1 : -1);
    const bool isLeft =
        selected < 0 ? !next || d->isDone : to < 0; // Escape, then Tab: nobody goes through a thousand points
    if (!isVisible() || !hasFocus() || isLeft || to >= d->points().count())
        return QWidget::focusNextPrevChild(next);
    SetSelectedPoint(to);
    d->keepSeen(d->points().at(to));
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
    if (d->takes(event->key(), event->modifiers()))
        d->press(static_cast<Qt::Key>(event->key()), event->modifiers());
    else
        QWidget::keyPressEvent(event);
}

void AreaView::mouseDoubleClickEvent(QMouseEvent *event)
{
    const QPointF position = positionOf(*event);
    d->drag = Private::Drag::None;
    if (event->button() == Qt::LeftButton && d->editor.isEditable() && d->pointAt(position) < 0
        && QRectF(QPointF(), d->view.size()).contains(position))
        d->insertAt(position);
}

void AreaView::mouseMoveEvent(QMouseEvent *event)
{
    const QPointF position = positionOf(*event);
    if (event->buttons() & Qt::LeftButton)
        d->dragTo(position);
    else
        setCursor(d->editor.isEditable() && d->pointAt(position) >= 0 ? Qt::PointingHandCursor
                                                                      : Qt::ArrowCursor);
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
    d->pressedAt = position;
    const auto at = index >= 0 ? d->view.position(d->editor.coordinates().at(index)) : std::nullopt;
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
    const QVector<TESSEL::Coordinate> coordinates = d->editor.coordinates();
    paintArea(painter, d->view, look, coordinates, {d->points().count(), d->editor.selected(), hasFocus()});
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
