// What tests and fuzzers set a field to, so that it changes.
#ifndef KORMAK_OTHERTEXT_H
#define KORMAK_OTHERTEXT_H

#include <inspection/Field.h>

namespace TestSupport {

/// A text that \a field can be set to and does not hold: the next name, the other limit, or what a document
/// has to escape.
inline QString otherText(const KORMAK::Field &field)
{
    const QStringList allowed = field.GetAllowed();
    for (const QString &text : allowed) {
        if (text != field.GetText())
            return text;
    }
    switch (field.GetType()) {
    case KORMAK::Field::Type::Integer:
        return QString::number(field.GetText() == QString::number(field.GetMinimum()) ? field.GetMaximum()
                                                                                      : field.GetMinimum());
    case KORMAK::Field::Type::Float:
    case KORMAK::Field::Type::Double:
        return field.GetText() == QLatin1String("0.75") ? QStringLiteral("1.25") : QStringLiteral("0.75");
    case KORMAK::Field::Type::DateTime:
        return field.GetText() == QLatin1String("2026-03-29T00:59:59,000Z") ? "2026-03-29T00:59:58Z"
                                                                            : "2026-03-29T00:59:59Z";
    default:
        return field.GetText() + QStringLiteral(" <&>\"']]>\n");
    }
}

} // namespace TestSupport

#endif
