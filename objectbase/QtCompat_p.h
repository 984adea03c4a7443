// Not installed. Where Qt 5 and Qt 6 differ, the difference stands here.
#ifndef TESSEL_QTCOMPAT_P_H
#define TESSEL_QTCOMPAT_P_H

#include <QCalendar>
#include <QString>
#include <QTextStream>
#include <QXmlStreamReader>

namespace TESSEL {

/// Texts in UTF-8; Qt 6 does so by itself.
inline void useUtf8([[maybe_unused]] QTextStream &stream)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    stream.setCodec("UTF-8");
#endif
}

/// All of \a bytes, a QByteArray or a std::string; Qt 5 by itself stops at a NUL.
template <class Bytes>
[[nodiscard]] QString decodeUtf8(const Bytes &bytes)
{
    return QString::fromUtf8(bytes.data(), static_cast<decltype(QString().size())>(bytes.size()));
}

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
/// A reader of a document. Qt 6 makes its buffer for the current text anew at every token, a tenth of all
/// reading, as long as no text was longer than what the buffer starts with. Blanks at the end of the
/// declaration's line make it longer once; lines and columns stay.
class DocumentReader : public QXmlStreamReader {
public:
    explicit DocumentReader(const QString &text) : DocumentReader(text, placeOfBlanks(text)) { }

private:
    DocumentReader(const QString &text, qsizetype place) : QXmlStreamReader(text.left(place))
    {
        constexpr qsizetype StartOfBuffer = 256;
        if (place == text.size())
            return;
        addData(QString(StartOfBuffer + 1, u' '));
        addData(QString::fromRawData(text.constData() + place, text.size() - place));
    }

    /// Behind the declaration of a long document; the end of others, and where more stands on its line.
    static qsizetype placeOfBlanks(const QString &text)
    {
        constexpr qsizetype LongDocument = 16384; // the blanks take as long as they save in a sixth of it
        constexpr qsizetype LongestDeclaration = 256;
        constexpr QStringView DeclarationEnd = u"?>";
        if (text.size() < LongDocument || !text.startsWith(u"<?xml"))
            return text.size();
        const qsizetype end = QStringView(text).left(LongestDeclaration).indexOf(DeclarationEnd);
        const qsizetype behind = end + DeclarationEnd.size();
        const bool isLineEnd = text.at(behind) == u'\n' || text.at(behind) == u'\r';
        return end >= 0 && isLineEnd ? behind : text.size();
    }
};
#else
using DocumentReader = QXmlStreamReader;
#endif

/// Before dates become texts: Qt 5 makes its calendar when one is first asked for, and threads that do so at
/// the same time get none.
inline void prepareCalendar()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    static const QCalendar calendar;
    Q_UNUSED(calendar)
#endif
}

} // namespace TESSEL

#endif
