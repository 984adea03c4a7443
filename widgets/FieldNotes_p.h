// Not installed. What stands below a field that something is wrong with.
#ifndef KORMAK_WIDGETS_FIELDNOTES_P_H
#define KORMAK_WIDGETS_FIELDNOTES_P_H

#include <widgets/ValueMark_p.h>

#include <QStringList>
#include <QWidget>

QT_BEGIN_NAMESPACE
class QLabel;
QT_END_NAMESPACE

namespace KORMAK::Widgets {

/// Lines of text, with a sign for how much they matter. Not to be seen without any.
class FieldNotes : public QWidget {
public:
    explicit FieldNotes(QWidget *parent);

    void show(const QStringList &lines, ValueMark mark);
    [[nodiscard]] QString text() const;

protected:
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void setColors();

    QLabel *const label;
    ValueMark mark = ValueMark::None;
    bool isColoring = false;
};

/// Where lines begin, whatever the direction of their text.
[[nodiscard]] Qt::Alignment leadingSide(const QWidget &widget);

} // namespace KORMAK::Widgets

#endif
