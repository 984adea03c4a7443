#ifndef KORMAK_WIDGETS_PARAMETEREDIT_H
#define KORMAK_WIDGETS_PARAMETEREDIT_H

#include <widgets/ParameterControl.h>
#include <widgets/widgets_export.h>

#include <QString>
#include <QVariant>
#include <QWidget>

#include <memory>

namespace KORMAK {

class Parameter;

/// The control that a parameter asks for: a check box, a choice, or a line for a number, a frequency, a
/// moment, a text or a list, with its unit, decimals and limits.
///
/// \snippet docs/WidgetsSnippetsTest.cpp ParameterEdit
///
/// What is typed is handled as ValueEdit says. A value that the parameter does not allow is shown and marked.
class WIDGETS_EXPORT ParameterEdit : public QWidget {
    Q_OBJECT

public:
    /// For no parameter, and without a control.
    explicit ParameterEdit(QWidget *parent = nullptr);
    ~ParameterEdit() override;

    /// The parameter that is edited, as it was given.
    [[nodiscard]] const Parameter &GetParameter() const noexcept;
    /// Makes the control that \a parameter asks for, unless it is there, and shows the value. It is called by
    /// the name of the parameter, and its tool tip tells what the parameter's does, and the limits.
    void SetParameter(const Parameter &parameter);
    /// What it is edited with.
    [[nodiscard]] ParameterControl GetControl() const noexcept;

    /// The value: a bool, the index of an entry (-1 for none of them), a qint64, float or double, a QString,
    /// or a list of doubles; invalid when there is none. Of a parameter, that which a document holds of it:
    /// its default, or of a boolean the value.
    [[nodiscard]] QVariant GetValue() const;
    /// Shows \a value in the place of what stands there, also of what is being typed. No signal tells of it.
    void SetValue(const QVariant &value);

    /// Whether something was typed that is not taken yet.
    [[nodiscard]] bool IsOpen() const;
    /// Takes what was typed.
    /// \return false when it is no value, or was refused: it stays as it was typed
    bool Take();
    /// For who heard of Finished() and cannot use the value, as ValueEdit::Refuse(); of a check box or a
    /// choice the value of before stands there again. \a reason tells why until the value is set again.
    void Refuse(const QString &reason);
    /// Forgets what was typed: the value stands there again.
    void Discard();

    /// What is wrong with what stands there, for people; empty when nothing is.
    [[nodiscard]] QString GetProblem() const;
    /// A remark on the value from elsewhere, as ValueEdit::SetNote().
    void SetNote(const QString &note);

Q_SIGNALS:
    /// Something was typed.
    void Edited();
    /// The value was changed by who uses the control.
    void Finished();

protected:
    /// \cond
    void changeEvent(QEvent *event) override;
    bool event(QEvent *event) override;
    /// \endcond

private:
    class Control;
    struct Private;

    WIDGETS_NO_EXPORT void makeControl();
    WIDGETS_NO_EXPORT void tell();

    std::unique_ptr<Private> d;
};

} // namespace KORMAK

#endif
