// Not installed. The controls of a form: one for each kind of field.
#ifndef KORMAK_WIDGETS_FIELDCONTROL_P_H
#define KORMAK_WIDGETS_FIELDCONTROL_P_H

#include <inspection/Field.h>

#include <QString>

#include <functional>
#include <memory>
#include <optional>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace KORMAK::Widgets {

/// A field, and what the document says of it.
struct FieldState {
    Field field;
    std::optional<QString> said = std::nullopt; ///< letter by letter; nothing: it is not in the document
    bool isBad = false; ///< a finding objects to that

    /// Whether the document says something that is understood.
    [[nodiscard]] bool isUnderstood() const;
};

class FieldControl {
public:
    /// Takes what people have set the field to; nothing: it is not set. \return it is taken
    using Setter = std::function<bool(const std::optional<QString> &text)>;

    /// The control for the type of \a field. Its widget belongs to \a parent.
    [[nodiscard]] static std::unique_ptr<FieldControl> make(const Field &field, QWidget *parent,
                                                            const Setter &setter);
    /// Fields of equal keys can share a control, one after the other.
    [[nodiscard]] static QString keyOf(const Field &field);

    FieldControl() = default;
    FieldControl(const FieldControl &) = delete;
    FieldControl &operator=(const FieldControl &) = delete;
    virtual ~FieldControl() = default;

    [[nodiscard]] virtual QWidget &widget() const = 0;
    /// Shows \a state; what is being typed stays.
    virtual void show(const FieldState &state) = 0;
    /// Shows the state that was given last in the place of what was typed.
    virtual void discard() = 0;
    /// Whether something was typed that the document does not have.
    [[nodiscard]] virtual bool isOpen() const { return false; }
    /// Hands over what was typed. \return why it cannot; empty when it can, whether or not it is taken then
    virtual QString take() { return {}; }
    /// \a problem is what is wrong with the field; empty for nothing.
    virtual void mark(const QString & /*problem*/) { }
    /// How high its first line is, which its label stands beside.
    [[nodiscard]] virtual int lineHeight() const;

    std::function<void()> givenUp; ///< called when a value that was refused is given up; may be empty
};

} // namespace KORMAK::Widgets

#endif
