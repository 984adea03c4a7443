// Makes the rows of the tables in Field.h:
//     using Row = FieldRows<JobHeader>;
//     constexpr FieldRow Rows[] = {
//         Row::value<&JobHeader::GetAuthor, &JobHeader::SetAuthor>(u"Author", u"Author"),
//     };
// Getters and predicates are member functions, members or functions that take the object; so are setters,
// with the value as second argument.
#ifndef KORMAK_TOOLS_FIELDROWS_H
#define KORMAK_TOOLS_FIELDROWS_H

#include <tools/Field.h>

#include <optional>
#include <type_traits>

namespace FieldRowDetail {

template <class Type>
struct Plain {
    using Value = Type;
};
template <class Type>
struct Plain<std::optional<Type>> {
    using Value = Type;
};

template <class Value>
constexpr FieldForm formOf()
{
    using Type = FieldForm::Type;
    FieldForm form;
    if constexpr (std::is_same_v<Value, bool>) {
        form.type = Type::Bool;
    } else if constexpr (std::is_enum_v<Value>) {
        form.type = Type::Name;
    } else if constexpr (std::is_integral_v<Value>) {
        form.type = Type::Integer;
        form.least = static_cast<qint64>(std::numeric_limits<Value>::min());
        form.most = static_cast<qint64>(std::numeric_limits<Value>::max());
    } else if constexpr (std::is_same_v<Value, float>) {
        form.type = Type::Float;
    } else if constexpr (std::is_same_v<Value, double>) {
        form.type = Type::Double;
    } else if constexpr (std::is_same_v<Value, QDateTime>) {
        form.type = Type::Date;
    }
    return form;
}

template <class Value>
FieldValue toField(const Value &value)
{
    if constexpr (std::is_same_v<Value, QString>)
        return value.isEmpty() ? FieldValue() : FieldValue(value);
    else if constexpr (std::is_same_v<Value, QDateTime>)
        return value.isValid() ? FieldValue(value) : FieldValue();
    else if constexpr (std::is_enum_v<Value>)
        return static_cast<qint64>(value) < 0 ? FieldValue() : FieldValue(static_cast<qint64>(value));
    else if constexpr (std::is_integral_v<Value> && !std::is_same_v<Value, bool>)
        return static_cast<qint64>(value);
    else
        return value;
}

template <class Value>
FieldValue toField(const std::optional<Value> &value)
{
    return value ? toField(*value) : FieldValue();
}

template <class Value>
Value fromField(const FieldValue &value)
{
    if constexpr (std::is_enum_v<Value> || (std::is_integral_v<Value> && !std::is_same_v<Value, bool>))
        return static_cast<Value>(std::get<qint64>(value));
    else if constexpr (std::is_same_v<Value, QString>)
        return isSet(value) ? std::get<QString>(value) : QString();
    else
        return std::get<Value>(value);
}

} // namespace FieldRowDetail

template <class Object>
struct FieldRows {
    /// A row with what only some have.
    struct Row : FieldRow {
        template <auto Predicate>
        [[nodiscard]] constexpr Row existsIf(QStringView call = {}) const
        {
            Row row = *this;
            row.exists = holds<Predicate>;
            row.condition = call;
            return row;
        }
        template <auto Predicate>
        [[nodiscard]] constexpr Row shownIf() const
        {
            Row row = *this;
            row.isShown = holds<Predicate>;
            return row;
        }
        template <auto Remark>
        [[nodiscard]] constexpr Row remarked() const
        {
            Row row = *this;
            row.remark = [](const void *object) { return Remark(constant(object)); };
            return row;
        }
        [[nodiscard]] constexpr Row neverShown() const
        {
            Row row = *this;
            row.shown = Row::Shown::Never;
            return row;
        }
        [[nodiscard]] constexpr Row shownIfSet() const
        {
            Row row = *this;
            row.shown = Row::Shown::IfSet;
            return row;
        }
        [[nodiscard]] constexpr Row in(QStringView unit) const
        {
            Row row = *this;
            row.form.unit = unit;
            return row;
        }
        [[nodiscard]] constexpr Row from(qint64 least, qint64 most) const
        {
            Row row = *this;
            row.form.least = least;
            row.form.most = most;
            return row;
        }
        [[nodiscard]] constexpr Row limit() const
        {
            Row row = *this;
            row.form.isLimit = true;
            return row;
        }
        [[nodiscard]] constexpr Row prose() const
        {
            Row row = *this;
            row.isProse = true;
            return row;
        }
        /// Other setters go by this field.
        [[nodiscard]] constexpr Row setFirst() const
        {
            Row row = *this;
            row.rank = -1;
            return row;
        }
        /// Other setters hand on to this field.
        [[nodiscard]] constexpr Row setLast() const
        {
            Row row = *this;
            row.rank = 1;
            return row;
        }
    };

    /// A field that no setter reaches.
    template <auto Getter>
    [[nodiscard]] static constexpr Row value(QStringView key, QStringView label)
    {
        Row row;
        row.key = key;
        row.label = label;
        row.form = FieldRowDetail::formOf<ValueOf<Getter>>();
        row.get = [](const void *object) {
            return FieldRowDetail::toField(std::invoke(Getter, constant(object)));
        };
        return row;
    }
    template <auto Getter, auto Setter>
    [[nodiscard]] static constexpr Row value(QStringView key, QStringView label)
    {
        Row row = value<Getter>(key, label);
        row.set = [](void *object, const FieldValue &value) {
            std::invoke(Setter, variable(object), FieldRowDetail::fromField<ValueOf<Getter>>(value));
        };
        return row;
    }

    /// Values of a vocabulary.
    template <auto Getter, auto... Setter>
    [[nodiscard]] static constexpr Row name(QStringView key, QStringView label, const NameList &names)
    {
        Row row = value<Getter, Setter...>(key, label);
        row.form.names = &names;
        return row;
    }

    /// A public member.
    template <auto Member>
    [[nodiscard]] static constexpr Row member(QStringView key, QStringView label)
    {
        Row row = value<Member>(key, label);
        row.set = [](void *object, const FieldValue &value) {
            variable(object).*Member = FieldRowDetail::fromField<ValueOf<Member>>(value);
        };
        return row;
    }

    [[nodiscard]] static constexpr Row parts(QStringView key, QStringView label, const FieldParts &parts)
    {
        Row row;
        row.key = key;
        row.label = label;
        row.parts = &parts;
        return row;
    }

    /// An object that \a Getter gives, and whose change \a Change brings about: a function that takes the
    /// object and what to do with the part.
    template <auto Getter, auto Change>
    [[nodiscard]] static constexpr FieldParts one(const FieldTable &table)
    {
        return {
            FieldParts::Kind::One,
            table,
            [](const void *object) {
                return std::vector<FieldPart>{{QString(), &std::invoke(Getter, constant(object))}};
            },
            [](void *object, const QString & /*key*/, const FieldChange &work) {
                Change(variable(object), work);
            },
        };
    }

    /// The elements of a list; \a Append takes the object, and adds a new element.
    template <auto Getter, auto Elements, auto Append>
    [[nodiscard]] static constexpr FieldParts list(const FieldTable &table)
    {
        return {
            FieldParts::Kind::List,
            table,
            [](const void *object) {
                std::vector<FieldPart> all;
                for (const auto &element : std::invoke(Getter, constant(object)))
                    all.push_back({QString::number(static_cast<int>(all.size())), &element});
                return all;
            },
            [](void *object, const QString &key, const FieldChange &work) {
                const int index = key.toInt();
                if (index == Elements(variable(object)).size())
                    Append(variable(object));
                if (index >= Elements(variable(object)).size()) {
                    throw FieldError{QStringLiteral("there are only %1 elements before it")
                                         .arg(Elements(variable(object)).size())};
                }
                work(&Elements(variable(object))[index]);
            },
        };
    }

private:
    template <auto Getter>
    using ValueOf = typename FieldRowDetail::Plain<
        std::decay_t<std::invoke_result_t<decltype(Getter), const Object &>>>::Value;

    static const Object &constant(const void *object) { return *static_cast<const Object *>(object); }
    static Object &variable(void *object) { return *static_cast<Object *>(object); }

    template <auto Predicate>
    static bool holds(const void *object)
    {
        return std::invoke(Predicate, constant(object));
    }
};

#endif
