// Not installed. A line of a form: its controls, and what they show.
#ifndef KORMAK_WIDGETS_FORMROW_P_H
#define KORMAK_WIDGETS_FORMROW_P_H

#include <inspection/Finding.h>
#include <widgets/FieldControl_p.h>
#include <widgets/FieldOutline_p.h>

#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>
#include <memory>
#include <optional>

QT_BEGIN_NAMESPACE
class QGridLayout;
class QLabel;
class QPushButton;
QT_END_NAMESPACE

namespace KORMAK {

class AreaView;
class OpenDocument;

namespace Widgets {

class FieldNotes;

class FormRow {
public:
    /// What people do in it.
    struct Actions {
        FieldControl::Setter set; ///< the field
        std::function<void()> press; ///< the button, which adds, removes or shows more
    };
    /// What a finding says of the field or object.
    struct Note {
        Finding finding;
        QString place; ///< in the object; empty: all of it
    };

    /// Its widgets belong to \a page.
    FormRow(OutlineLine outlineLine, QWidget *page, OpenDocument *document, Actions rowActions);
    FormRow(const FormRow &) = delete;
    FormRow &operator=(const FormRow &) = delete;
    ~FormRow();

    /// Lines of equal keys can share a row, one after the other.
    [[nodiscard]] static QString keyOf(const OutlineLine &line);

    [[nodiscard]] const OutlineLine &line() const noexcept { return outlineLine; }
    void setLine(const OutlineLine &line) { outlineLine = line; }
    [[nodiscard]] QString path() const { return outlineLine.node.GetPath(); }
    /// Whether it stands for its path: what is not shown, and maps, stand beside what does.
    [[nodiscard]] bool isPlace() const;

    /// Null in lines that have no field.
    [[nodiscard]] FieldControl *control() const { return fieldControl.get(); }
    /// Of its field or its map; null for neither.
    [[nodiscard]] QWidget *editor() const;
    /// What can take the focus; null for nothing.
    [[nodiscard]] QWidget *focusTarget() const;
    /// What is to be seen of it when it is shown.
    [[nodiscard]] QWidget *place() const;

    /// Puts its widgets into \a grid, from the line \a at on, which is the next one then.
    void arrange(QGridLayout &grid, int &at) const;
    /// Shows the line in a document that says \a said of it and has \a newNotes.
    void show(const std::optional<QString> &said, const QVector<Note> &newNotes);
    /// Shows why what was done with the button is not taken; empty: it is.
    void setRefusal(const QString &reason);
    /// What stands below it.
    [[nodiscard]] QString notesText() const;

    /// Its line is gone. What was typed is no longer of this document; what is sending a signal may be among
    /// its widgets, which live until that is over.
    void retire();
    [[nodiscard]] bool isRetired() const noexcept { return retired; }

private:
    void makeControl(QWidget *page);
    void makeHeading(QWidget *page);
    void makeMore(QWidget *page);
    void showLabel();
    void showHeading();
    void showNotes();

    OutlineLine outlineLine;
    const Actions actions;
    QLabel *label = nullptr; ///< or the heading
    QPushButton *button = nullptr;
    QWidget *bar = nullptr; ///< around a heading and its button
    std::unique_ptr<FieldControl> fieldControl;
    AreaView *map = nullptr;
    FieldNotes *notes = nullptr;
    QString refusal;
    QStringList messages; ///< of findings
    bool hasError = false; ///< among them
    bool retired = false;
};

} // namespace Widgets

} // namespace KORMAK

#endif
