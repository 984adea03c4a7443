// Not installed. Marks in controls of Qt.
#ifndef KORMAK_WIDGETS_CONTROLMARK_P_H
#define KORMAK_WIDGETS_CONTROLMARK_P_H

#include <widgets/ValueMark_p.h>

#include <QPointer>
#include <QString>

QT_BEGIN_NAMESPACE
class QAction;
class QLineEdit;
class QWidget;
QT_END_NAMESPACE

namespace KORMAK::Widgets {

/// The sign in a control that something is wrong with its value, and what, for who does not see it. The text
/// of a line makes room for it; elsewhere it stands over the control.
class ControlMark {
public:
    /// Nothing is wrong yet. \a marked may be destroyed at any time.
    explicit ControlMark(QWidget &marked);

    /// Marks the control, or takes the mark away.
    void show(ValueMark mark, const QString &problem);

private:
    void showInLine(QLineEdit &line);
    void showOverControl();

    QPointer<QWidget> control;
    QString ownDescription;
    int ownWidth = 0; // the least, without a mark
    ValueMark shown = ValueMark::None;
    QPointer<QAction> inLine;
    QPointer<QWidget> overControl;
};

} // namespace KORMAK::Widgets

#endif
