// Which rows a table has, and in which order.
#ifndef KORMAK_TOOLS_TABLEFILTER_H
#define KORMAK_TOOLS_TABLEFILTER_H

#include <tools/TableFields.h>

#include <QString>

#include <map>

namespace Table {

/// What 'FIELD OP VALUE' asks of a row.
class Condition {
public:
    /// \throws UsageError when \a text is no condition, or asks for what the field can never hold
    Condition(const QString &text, const QString &part);

    [[nodiscard]] const FieldName &field() const noexcept { return name; }
    [[nodiscard]] bool holdsFor(const Subject &subject) const;

private:
    enum class Operator {
        Equal,
        NotEqual,
        Less,
        LessOrEqual,
        Greater,
        GreaterOrEqual,
        Contains,
        Set,
        NotSet
    };

    [[nodiscard]] static FieldName fieldOf(const QString &text, const QString &part);
    void readOperator(const QString &rest);
    void readValue();
    [[nodiscard]] bool comparesOrder() const;

    FieldName name;
    Operator op = Operator::Set;
    QString valueText;
    /// What the value is for a field of a type; without those types that have no such value.
    std::map<const KORMAK::Inspection::TextType *, KORMAK::Inspection::FieldValue> values;
};

/// Whether \a a stands before \a b in a sorted table: numbers by their size, dates by time, texts by their
/// characters; what is not set is behind everything.
[[nodiscard]] bool comesBefore(const Cell &a, const Cell &b);

} // namespace Table

#endif
