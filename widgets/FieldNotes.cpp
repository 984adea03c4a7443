#include "widgets/FieldNotes_p.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

namespace KORMAK::Widgets {

Qt::Alignment leadingSide(const QWidget &widget)
{
    return Qt::AlignVCenter | Qt::AlignAbsolute | (widget.isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft);
}

FieldNotes::FieldNotes(QWidget *parent) : QWidget(parent), label(new QLabel(this))
{
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(label);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setFocusPolicy(Qt::NoFocus);
    hide();
}

void FieldNotes::show(const QStringList &lines, ValueMark newMark)
{
    constexpr int Sign = 18;
    mark = newMark;
    layout()->setContentsMargins(isRightToLeft() ? 0 : Sign, 0, isRightToLeft() ? Sign : 0, 2);
    label->setAlignment(leadingSide(*this));
    label->setText(lines.join(QLatin1Char('\n')));
    setColors();
    setVisible(!lines.isEmpty());
    update();
}

QString FieldNotes::text() const
{
    return label->text();
}

void FieldNotes::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !isColoring)
        setColors();
}

void FieldNotes::paintEvent(QPaintEvent * /*event*/)
{
    constexpr int Size = 14;
    QPainter painter(this);
    const int top = (fontMetrics().lineSpacing() - Size) / 2;
    paintMark(painter, {isRightToLeft() ? width() - Size : 0, std::max(0, top), Size, Size}, mark, palette());
}

void FieldNotes::setColors()
{
    isColoring = true;
    QPalette colors = QApplication::palette(label);
    colors.setColor(QPalette::WindowText, colorOf(mark, palette()));
    label->setPalette(colors);
    isColoring = false;
}

} // namespace KORMAK::Widgets
