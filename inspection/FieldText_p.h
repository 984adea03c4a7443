// The values of fields as people read and write them.
#ifndef KORMAK_INSPECTION_FIELDTEXT_P_H
#define KORMAK_INSPECTION_FIELDTEXT_P_H

#include <inspection/FieldTable_p.h>

#include <QString>
#include <QStringList>

#include <optional>
#include <type_traits>

namespace KORMAK::Inspection {

/// With as many digits as tell it from every other number.
[[nodiscard]] QString numberText(double value);
/// With 6 significant digits, as documents say it.
[[nodiscard]] QString numberText(float value);
template <class Integer, std::enable_if_t<std::is_integral_v<Integer>, bool> = true>
[[nodiscard]] QString numberText(Integer value)
{
    return QString::number(value);
}

/// \a value with its unit; nothing when it is not set.
[[nodiscard]] std::optional<QString> shownText(const TextType &type, const FieldValue &value);

/// \a value as valueOfText() reads it, exactly; empty when it is not set.
[[nodiscard]] QString settableText(const TextType &type, const FieldValue &value);

/// The path of the field that a finding with the path \a findingPath is about, but for the indexes in lists:
/// "Parameter[Gain].Integer.Maximum" for "GenericReceiver/Parameter[Gain]/Integer/Maximum".
[[nodiscard]] QString fieldPathOf(const QString &findingPath);

/// What \a text says. \throws FieldError that tells what is allowed
[[nodiscard]] FieldValue valueOfText(const TextType &type, const QString &text);

/// What a text may say: "whole number from 1 to 23", "number in Hz"
[[nodiscard]] QString describe(const TextType &type);

} // namespace KORMAK::Inspection

#endif
