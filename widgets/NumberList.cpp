#include "widgets/NumberList_p.h"

#include <QCoreApplication>
#include <QStringList>

namespace KORMAK::Widgets {

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("KORMAK::ParameterEdit", text);
}

} // namespace

NumberFormat::Reading readList(const NumberFormat &format, const QString &text)
{
    QStringList parts = text.split(QLatin1Char(';'));
    if (parts.last().trimmed().isEmpty()) // nothing, or a semicolon at the end
        parts.removeLast();
    QVariantList values;
    for (const QString &part : std::as_const(parts)) {
        const auto [value, problem] = format.read(part);
        if (!value.isValid())
            return {{}, translated("Value %1: %2").arg(values.size() + 1).arg(problem)};
        values += value;
    }
    return {values, {}};
}

QString showList(const NumberFormat &format, const QVariantList &values)
{
    QStringList parts;
    for (const QVariant &value : values)
        parts += format.show(value);
    return parts.join(QStringLiteral("; "));
}

QString problemOfList(const NumberFormat &format, const QVariantList &values, int mostValues)
{
    if (mostValues > 0 && values.size() > mostValues)
        return translated("%1 values, but at most %2 are allowed").arg(values.size()).arg(mostValues);
    for (decltype(values.size()) i = 0; i < values.size(); ++i) {
        const QString problem = format.problemOf(values.at(i));
        if (!problem.isEmpty())
            return translated("Value %1: %2").arg(i + 1).arg(problem);
    }
    return {};
}

} // namespace KORMAK::Widgets
