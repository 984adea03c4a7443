// Not installed. The content of a file, all of it or nothing: whatever cannot be read to its end, or is
// longer than the Qt at hand can hold, is not read as a shorter file; and no file is written in part.
#ifndef TESSEL_FILECONTENT_P_H
#define TESSEL_FILECONTENT_P_H

#include <objectbase/QtCompat_p.h>

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QString>

#include <algorithm>
#include <optional>
#include <utility>

namespace TESSEL {

/// What stands in \a file, which is open, from its position on.
[[nodiscard]] inline std::optional<QByteArray> contentOf(QIODevice &file)
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
    const auto *const disk = qobject_cast<const QFileDevice *>(&file);
    if (count < 0 || (disk && disk->error() != QFileDevice::NoError))
        return std::nullopt;
    content.resize(static_cast<TextSize>(filled));
    return content;
}

/// Writes \a text in UTF-8 to the file \a path. Nothing when it is written, else why it is not: a file that
/// stood there before is still there then, unchanged.
[[nodiscard]] inline std::optional<QString> failureToSave(const QString &text, const QString &path)
{
    if (const QFileInfo place(path); place.exists() && !place.isFile())
        return QStringLiteral("it is no file"); // a device or a pipe would give way to one
    const auto bytes = encodeUtf8(text);
    if (!bytes)
        return QStringLiteral("the text is too long");
    QSaveFile file(path);
    // commit() alone would put a file in place that a full disk has cut short.
    const bool isSaved = file.open(QIODevice::WriteOnly) && file.write(*bytes) == bytes->size()
        && file.flush() && file.commit();
    return isSaved ? std::nullopt : std::optional(file.errorString());
}

} // namespace TESSEL

#endif
