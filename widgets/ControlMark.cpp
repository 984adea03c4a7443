#include "widgets/ControlMark_p.h"

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QAction>
#include <QComboBox>
#include <QEvent>
#include <QIcon>
#include <QIconEngine>
#include <QLineEdit>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionComboBox>

#include <algorithm>
#include <utility>

namespace KORMAK::Widgets {

namespace {

constexpr int Side = 16;

/// Painted anew on each screen, and in the colours of the control.
class MarkIcon : public QIconEngine {
public:
    MarkIcon(ValueMark painted, QPalette ofControl) : mark(painted), palette(std::move(ofControl)) { }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode /*mode*/, QIcon::State /*state*/) override
    {
        // Marks have a size of their own; the pixels of the screen may be smaller.
        painter->save();
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / qreal(Side), rect.height() / qreal(Side));
        paintMark(*painter, {0, 0, Side, Side}, mark, palette);
        painter->restore();
    }
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, picture.rect(), mode, state);
        return picture;
    }
    [[nodiscard]] QIconEngine *clone() const override { return new MarkIcon(*this); }

private:
    ValueMark mark;
    QPalette palette;
};

/// Stands over a control, and leaves the mouse to it.
class Overlay : public QWidget {
public:
    explicit Overlay(QWidget &control) : QWidget(&control)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        control.installEventFilter(this);
    }

    void mark(ValueMark wanted)
    {
        shown = wanted;
        place();
        setVisible(shown != ValueMark::None);
        raise();
        update();
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched == parent()
            && (event->type() == QEvent::Resize || event->type() == QEvent::LayoutDirectionChange))
            place();
        return QWidget::eventFilter(watched, event);
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        paintMark(painter, rect(), shown, palette());
    }

private:
    void place()
    {
        const QWidget &control = *parentWidget();
        QRect room = control.rect();
        if (qobject_cast<const QComboBox *>(&control)) {
            QStyleOptionComboBox option;
            option.initFrom(&control);
            option.subControls = QStyle::SC_All;
            room = control.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField,
                                                   &control);
        }
        QRect spot(0, 0, Side, Side);
        spot.moveCenter(room.center());
        const auto *const slider = qobject_cast<const QAbstractSlider *>(&control);
        const bool isUpright = slider && slider->orientation() == Qt::Vertical;
        // At the end, unless a handle stands there.
        const bool isAtEnd = !slider || !isHandleAtEnd(*slider);
        if (isUpright)
            spot.moveTop(isAtEnd ? room.bottom() - Side : room.top());
        else if (isAtEnd != control.isRightToLeft())
            spot.moveRight(room.right());
        else
            spot.moveLeft(room.left());
        setGeometry(spot);
    }

    [[nodiscard]] static bool isHandleAtEnd(const QAbstractSlider &slider)
    {
        const bool isUpper =
            slider.sliderPosition() > slider.minimum() / 2 + slider.maximum() / 2; // of the range
        const bool isTurned = slider.invertedAppearance() != (slider.orientation() == Qt::Vertical);
        return isUpper != isTurned;
    }

    ValueMark shown = ValueMark::None;
};

QLineEdit *lineOf(QWidget &control)
{
    auto *const line = qobject_cast<QLineEdit *>(&control);
    return line ? line : control.findChild<QLineEdit *>();
}

} // namespace

ControlMark::ControlMark(QWidget &marked)
    : control(&marked), ownDescription(marked.accessibleDescription()), ownWidth(marked.minimumWidth())
{
}

void ControlMark::show(ValueMark mark, const QString &problem)
{
    if (!control)
        return;
    const QString description = problem.isEmpty() ? ownDescription : problem;
    if (control->accessibleDescription() != description)
        control->setAccessibleDescription(description);
    const bool isOther = std::exchange(shown, mark) != mark;
    QLineEdit *const line = lineOf(*control);
    if (!line)
        showOverControl(); // also when it is there: its place may be another one
    else if (isOther)
        showInLine(*line);
    if (inLine)
        inLine->setText(problem);
}

void ControlMark::showInLine(QLineEdit &line)
{
    delete inLine;
    if (shown != ValueMark::None)
        inLine = line.addAction(QIcon(new MarkIcon(shown, line.palette())), QLineEdit::TrailingPosition);
    // Spin boxes are made as wide as their greatest number, and have no room to spare.
    if (qobject_cast<QAbstractSpinBox *>(control)) {
        const int widened = control->sizeHint().width() + 3 * Side / 2;
        control->setMinimumWidth(shown == ValueMark::None ? ownWidth : std::max(ownWidth, widened));
    }
}

void ControlMark::showOverControl()
{
    if (!overControl && shown != ValueMark::None)
        overControl = new Overlay(*control);
    if (overControl)
        static_cast<Overlay *>(overControl.data())->mark(shown);
}

} // namespace KORMAK::Widgets
