// Not installed. The content of a file, all of it or nothing: whatever cannot be read to its end, or is
// longer than the Qt at hand can hold, is not read as a shorter file.
#ifndef TESSEL_FILECONTENT_P_H
#define TESSEL_FILECONTENT_P_H

#include <objectbase/QtCompat_p.h>

#include <QByteArray>
#include <QFile>

#include <algorithm>
#include <optional>
#include <utility>

namespace TESSEL {

/// What stands in \a file, which is open, from its position on.
[[nodiscard]] inline std::optional<QByteArray> contentOf(QFile &file)
{
    constexpr qint64 Step = 1 << 20;
    QByteArray content;
    if (!file.isReadable() || file.size() - file.pos() > MostBytes)
        return std::nullopt;
    content.reserve(static_cast<TextSize>(std::max<qint64>(file.size() - file.pos(), 0) + Step));
    qint64 filled = 0;
    qint64 count = 0;
    do {
        filled += count;
        if (filled > MostBytes - Step)
            return std::nullopt;
        content.resize(static_cast<TextSize>(filled + Step));
        count = file.read(content.data() + filled, Step);
    } while (count > 0);
    if (count < 0 || file.error() != QFileDevice::NoError)
        return std::nullopt;
    content.resize(static_cast<TextSize>(filled));
    return content;
}

} // namespace TESSEL

#endif
