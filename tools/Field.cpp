#include "tools/Field.h"

#include <QDateTime>
#include <QLocale>

#include <cmath>
#include <utility>

namespace {

constexpr struct {
    double hertz;
    QStringView unit;
} FrequencyUnits[] = {{1e9, u"GHz"}, {1e6, u"MHz"}, {1e3, u"kHz"}};

/// Enough for a frequency in any unit, and few enough to hide what the division adds.
constexpr int DigitsInUnit = 15;

constexpr int FloatDigits = 6;

QString plainNumber(double value)
{
    constexpr double MostWhole = 1e15;
    const bool isWhole = std::abs(value) < MostWhole && value == std::floor(value);
    return isWhole ? QString::number(value, 'f', 0)
                   : QString::number(value, 'g', QLocale::FloatingPointShortest);
}

QString withUnit(const QString &number, QStringView unit)
{
    return number + QLatin1Char(' ') + unit.toString();
}

} // namespace

Field group(const QString &label, std::vector<Field> fields)
{
    return {label, QString(), std::move(fields)};
}

FieldValue textValue(const QString &text)
{
    return text.isEmpty() ? std::nullopt : FieldValue(text);
}

FieldValue yesOrNo(bool value)
{
    return value ? QStringLiteral("yes") : QStringLiteral("no");
}

FieldValue number(float value)
{
    return QString::number(static_cast<double>(value), 'g', FloatDigits);
}

FieldValue number(double value)
{
    return plainNumber(value);
}

FieldValue dateValue(const QDateTime &dateTime)
{
    if (!dateTime.isValid())
        return std::nullopt;
    return dateTime.toUTC().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz 'UTC'"));
}

FieldValue quantity(double value, QStringView unit)
{
    return std::isnan(value) ? std::nullopt : FieldValue(withUnit(plainNumber(value), unit));
}

FieldValue frequency(double hertz)
{
    FieldValue text = quantity(hertz, u"Hz");
    for (const auto &row : FrequencyUnits) {
        if (std::abs(hertz) >= row.hertz && std::isfinite(hertz)) {
            const QString number = QString::number(hertz / row.hertz, 'g', DigitsInUnit);
            return *text + QStringLiteral(" (%1)").arg(withUnit(number, row.unit));
        }
    }
    return text;
}
