#ifndef KORMAK_WIDGETS_VALUEEDIT_H
#define KORMAK_WIDGETS_VALUEEDIT_H

#include <widgets/widgets_export.h>

#include <QLineEdit>
#include <QString>
#include <QVariant>

#include <memory>

namespace KORMAK {

/// A line in which people type a value, which is taken when they are done: on Enter, when the line loses the
/// focus, or when Take() is called.
///
/// \snippet docs/WidgetsSnippetsTest.cpp ValueEdit
///
/// What is no value stays as it was typed, is marked, and GetProblem() and the tool tip tell what is wrong
/// with it; so do they of a value that is taken but outside its limits. Nothing is put right or cut off.
/// Escape brings the value back. The unit stands behind the text. The wheel does nothing unless the line has
/// the focus.
class WIDGETS_EXPORT ValueEdit : public QLineEdit {
    Q_OBJECT

public:
    ~ValueEdit() override;

    /// The value that was taken last; invalid for none.
    [[nodiscard]] QVariant GetValue() const;
    /// Shows \a value in the place of what stands there, also of what is being typed. No signal tells of it.
    void SetValue(const QVariant &value);

    /// The unit that is shown behind the text; empty for none.
    [[nodiscard]] QString GetUnit() const;
    void SetUnit(const QString &unit);

    /// Whether something else was typed than the value, and is not taken yet.
    [[nodiscard]] bool IsOpen() const;
    /// Takes what was typed. Finished() tells of it when the value is another one then.
    /// \return false when it is no value, or was refused: it stays as it was typed
    bool Take();
    /// For who heard of Finished() and cannot use the value: what was typed stands there again and is not
    /// taken, \a reason tells why until something else is typed, and the value is that of before.
    void Refuse(const QString &reason);
    /// Forgets what was typed: the value stands there again.
    void Discard();

    /// What is wrong with what stands there, for people; empty when nothing is. First what was typed, then
    /// the value, then the note.
    [[nodiscard]] QString GetProblem() const;
    /// A remark on the value from elsewhere, such as a finding on a document, that marks the line as a
    /// problem of its own does; empty for none.
    [[nodiscard]] QString GetNote() const;
    void SetNote(const QString &note);

    /// \cond
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    /// \endcond

Q_SIGNALS:
    /// Something was typed.
    void Edited();
    /// The value was changed by who uses the line.
    void Finished();

protected:
    /// What a text says.
    struct Reading {
        QVariant value; ///< invalid when it says none
        QString problem; ///< then why
    };

    /// Without a value.
    explicit ValueEdit(QWidget *parent = nullptr);

    /// The value that \a text says, as people type it.
    [[nodiscard]] virtual Reading Read(const QString &text) const = 0;
    /// The text for \a value, which Read() takes for the same value.
    [[nodiscard]] virtual QString Show(const QVariant &value) const = 0;
    /// What is wrong with \a value, such as limits that it is outside of; empty when nothing is.
    [[nodiscard]] virtual QString ProblemOf(const QVariant &value) const;
    /// The next value, \a steps up or down at the place of the cursor; invalid when there is none. May move
    /// the cursor once the value is shown, see PlaceCursor().
    [[nodiscard]] virtual QVariant Step(int steps) const;
    /// The place of the cursor for the value after a step; that of before was \a position, in \a shown.
    [[nodiscard]] virtual int PlaceCursor(const QString &shown, int position) const;

    /// Shows the value anew, when how it is shown has changed. What is being typed stays.
    void Refresh();

    /// \cond
    void changeEvent(QEvent *event) override;
    bool event(QEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    /// \endcond

private:
    struct Private;

    WIDGETS_NO_EXPORT void step(int steps);
    WIDGETS_NO_EXPORT void showValue(const QVariant &value);
    WIDGETS_NO_EXPORT void tell();
    WIDGETS_NO_EXPORT void placeMargins();
    [[nodiscard]] WIDGETS_NO_EXPORT QRect innerRect() const;

    std::unique_ptr<Private> d;
};

} // namespace KORMAK

#endif
