// Not installed. Where versions of Qt differ, the difference stands here.
#ifndef TESSEL_QTCOMPAT_P_H
#define TESSEL_QTCOMPAT_P_H

#include <QCalendar>
#include <QLibraryInfo>
#include <QString>
#include <QTextStream>
#include <QVersionNumber>
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

/// Qt 6 before 6.5 reads long documents and writes to a QString slower than it could. Asked of the Qt that
/// runs: later ones differ in how they look for lone surrogates.
[[nodiscard]] inline bool isEarlyQt6()
{
    static const bool isEarly =
        QLibraryInfo::version() >= QVersionNumber(6) && QLibraryInfo::version() < QVersionNumber(6, 5);
    return isEarly;
}

/// A reader of a document. Early Qt 6 makes its buffer for the current text anew at every token, a tenth of
/// all reading, as long as no text was longer than what the buffer starts with. Blanks at the end of the
/// declaration's line make it longer once: lines and columns stay, the character offset does not.
class DocumentReader : public QXmlStreamReader {
public:
    explicit DocumentReader(const QString &text) : DocumentReader(text, placeOfBlanks(text)) { }

private:
    using Size = decltype(QString().size());

    DocumentReader(const QString &text, Size place) : QXmlStreamReader(text.left(place))
    {
        constexpr Size StartOfBuffer = 256;
        if (place == text.size())
            return;
        addData(QString(StartOfBuffer + 1, u' '));
        addData(QString::fromRawData(text.constData() + place, text.size() - place));
    }

    /// Behind the declaration of a long document; the end of others, and where more stands on its line.
    static Size placeOfBlanks(const QString &text)
    {
        constexpr Size LongDocument = 16384; // the blanks take as long as they save in a sixth of it
        constexpr Size LongestDeclaration = 256;
        const QLatin1String declarationEnd("?>");
        if (!isEarlyQt6() || text.size() < LongDocument || !text.startsWith(QLatin1String("<?xml")))
            return text.size();
        const Size end = text.left(LongestDeclaration).indexOf(declarationEnd);
        const Size behind = end + static_cast<Size>(declarationEnd.size());
        const bool isLineEnd = text.at(behind) == u'\n' || text.at(behind) == u'\r';
        return end >= 0 && isLineEnd ? behind : text.size();
    }
};

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
