#include "models/ParameterRows_p.h"

#include <kormak/GenericReceiver.h>
#include <objectbase/QtCompat_p.h>

#include <algorithm>
#include <utility>

namespace KORMAK {

namespace {

constexpr QStringView Map = u"Parameter[";

/// As paths have it between brackets.
QString escapedKey(QString key)
{
    return key.replace(QLatin1Char('\\'), QStringLiteral("\\\\"))
        .replace(QLatin1Char(']'), QStringLiteral("\\]"));
}

/// Up to the bracket that ends it.
QString keyIn(const QString &path)
{
    QString key;
    bool isEscaped = false;
    const QString rest = path.mid(static_cast<TESSEL::TextSize>(Map.size()));
    for (const QChar c : rest) {
        if (!isEscaped && c == QLatin1Char(']'))
            break;
        isEscaped = !isEscaped && c == QLatin1Char('\\');
        if (!isEscaped)
            key += c;
    }
    return key;
}

} // namespace

ParameterRows::ParameterRows(Document ofDocument) : document(std::move(ofDocument))
{
    if (const auto *const receiver = dynamic_cast<const GenericReceiver *>(document.GetObject())) {
        isReceiver = true;
        const auto &parameters = receiver->GetParameterList();
        rows.reserve(static_cast<std::size_t>(parameters.size()));
        for (auto one = parameters.begin(); one != parameters.end(); ++one)
            rows.push_back({one.key(), &one.value()});
    } else if (const auto *const single = dynamic_cast<const Parameter *>(document.GetObject())) {
        rows.push_back({single->GetUniqueParameterName(), single});
    }
}

int ParameterRows::find(const QString &key) const
{
    const auto found =
        std::lower_bound(rows.begin(), rows.end(), key,
                         [](const Row &row, const QString &wanted) { return row.key < wanted; });
    return found != rows.end() && found->key == key ? static_cast<int>(found - rows.begin()) : -1;
}

const Parameter *ParameterRows::parameter(const QString &key) const
{
    const int row = find(key);
    return row < 0 ? nullptr : at(row).parameter;
}

QString ParameterRows::path(int row) const
{
    return isReceiver ? Map.toString() + escapedKey(at(row).key) + QLatin1Char(']') : QString();
}

int ParameterRows::rowOf(const QString &path) const
{
    if (!isReceiver)
        return rows.empty() ? -1 : 0;
    return path.startsWith(Map) ? find(keyIn(path)) : -1;
}

} // namespace KORMAK
