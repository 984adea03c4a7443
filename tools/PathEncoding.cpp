#include "tools/PathEncoding.h"

#include <inspection/ParsedDocument_p.h>
#include <inspection/QuotedText_p.h>

using namespace KORMAK::Inspection;

namespace {

constexpr ushort FirstByte = 0xDC80; ///< for 0x80
constexpr ushort LastByte = 0xDCFF;
constexpr char ByteOrderMark[] = "\xEF\xBB\xBF";
constexpr int MarkSize = sizeof ByteOrderMark - 1;

bool isByte(const QString &text, int index)
{
    const ushort unit = text.at(index).unicode();
    return unit >= FirstByte && unit <= LastByte && (index == 0 || !text.at(index - 1).isHighSurrogate());
}

char byteOf(QChar c)
{
    return static_cast<char>(c.unicode() & 0xFFU);
}

/// All of \a text put together again: what is UTF-8 by \a ofText, the bytes that are not by \a ofByte.
template <class Result, class OfText, class OfByte>
Result converted(const QString &text, OfText ofText, OfByte ofByte)
{
    Result result;
    int begin = 0; // of what is not converted yet
    for (int i = 0; i < text.size(); ++i) {
        if (!isByte(text, i))
            continue;
        result += ofText(text.mid(begin, i - begin));
        result += ofByte(byteOf(text.at(i)));
        begin = i + 1;
    }
    return result += ofText(text.mid(begin));
}

/// Of UTF-8, with the byte-order marks that Qt leaves out where they come first.
QString textOf(const QByteArray &utf8)
{
    QString text;
    int begin = 0;
    for (; utf8.mid(begin, MarkSize) == ByteOrderMark; begin += MarkSize)
        text += QChar(QChar::ByteOrderMark);
    return text + QString::fromUtf8(utf8.mid(begin));
}

} // namespace

QString PathEncoding::decoded(const QByteArray &bytes)
{
    QString path;
    for (const char *at = bytes.constBegin(); at != bytes.constEnd();) {
        const auto rest = static_cast<int>(bytes.constEnd() - at);
        const auto size = static_cast<int>(firstByteOutsideUtf8(QByteArray::fromRawData(at, rest)));
        path += textOf(QByteArray(at, size));
        at += size;
        if (at != bytes.constEnd())
            path += QChar(static_cast<ushort>(FirstByte - 0x80U + static_cast<uchar>(*at++)));
    }
    return path;
}

QByteArray PathEncoding::encoded(const QString &path)
{
    return converted<QByteArray>(
        path, [](const QString &text) { return text.toUtf8(); }, [](char byte) { return byte; });
}

bool PathEncoding::isUtf8(const QString &path)
{
    for (int i = 0; i < path.size(); ++i) {
        if (isByte(path, i))
            return false;
    }
    return true;
}

QString PathEncoding::shown(const QString &text)
{
    return converted<QString>(text, oneLine, [](char byte) {
        return QStringLiteral("\\x%1").arg(static_cast<uchar>(byte), 2, 16, QLatin1Char('0'));
    });
}

std::filesystem::path PathEncoding::toNative(const QString &path)
{
#ifdef Q_OS_WIN
    return path.toStdWString();
#else
    return encoded(path).toStdString();
#endif
}

QString PathEncoding::fromNative(const std::filesystem::path &path)
{
#ifdef Q_OS_WIN
    return QString::fromStdWString(path.wstring());
#else
    return decoded(QByteArray::fromStdString(path.string()));
#endif
}
