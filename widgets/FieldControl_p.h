// Not installed. The controls of a form: one for each kind of field.
#ifndef KORMAK_WIDGETS_FIELDCONTROL_P_H
#define KORMAK_WIDGETS_FIELDCONTROL_P_H

#include <inspection/Field.h>

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <utility>

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
    /// Takes what people have set the field to; nothing: it is not set. \return why it is not taken; empty
    /// when it is
    using Setter = std::function<QString(const std::optional<QString> &text)>;

    /// The control for the type of \a field. Its widget belongs to \a parent.
    [[nodiscard]] static std::unique_ptr<FieldControl> make(const Field &field, QWidget *parent,
                                                            const Setter &setter);
    /// Fields of equal keys can share a control, one after the other.
    [[nodiscard]] static QString keyOf(const Field &field);

    explicit FieldControl(Setter fieldSetter) : setter(std::move(fieldSetter)) { }
    FieldControl(const FieldControl &) = delete;
    FieldControl &operator=(const FieldControl &) = delete;
    virtual ~FieldControl() = default;

    [[nodiscard]] virtual QWidget &widget() const = 0;
    /// Shows \a state; what is being typed stays.
    virtual void show(const FieldState &state) = 0;
    /// Whether something was typed that the document does not have.
    [[nodiscard]] virtual bool isOpen() const { return false; }
    /// Hands over what was typed. \return why it is no value that could be; empty when it is, whether or not
    /// it is taken then
    virtual QString take() { return {}; }
    /// Why what people did last is not taken; empty when it is.
    [[nodiscard]] const QString &refusal() const noexcept { return refused; }
    /// How high its first line is, which its label stands beside.
    [[nodiscard]] virtual int lineHeight() const;

    std::function<void()> refusalChanged; ///< called after refusal() has changed; may be empty

protected:
    /// \return it is taken
    bool set(const std::optional<QString> &text);
    void setRefusal(const QString &reason);

private:
    const Setter setter;
    QString refused;
};

} // namespace KORMAK::Widgets

#endif
