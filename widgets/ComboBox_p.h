// Not installed. A choice among names.
#ifndef KORMAK_WIDGETS_COMBOBOX_P_H
#define KORMAK_WIDGETS_COMBOBOX_P_H

#include <QComboBox>
#include <QWheelEvent>

namespace KORMAK::Widgets {

/// Chooses only what was meant: the wheel scrolls what is around, unless the control has the focus.
class ComboBox : public QComboBox {
public:
    explicit ComboBox(QWidget *parent) : QComboBox(parent) { setFocusPolicy(Qt::StrongFocus); }

protected:
    void wheelEvent(QWheelEvent *event) override
    {
        if (hasFocus())
            QComboBox::wheelEvent(event);
        else
            event->ignore();
    }
};

} // namespace KORMAK::Widgets

#endif
