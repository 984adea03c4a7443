#include "tools/XmlPlaces.h"

#include <QXmlStreamReader>

#include <vector>

namespace {

QString opening(QXmlStreamReader::TokenType token)
{
    switch (token) {
    case QXmlStreamReader::Comment:
        return QStringLiteral("<!--");
    case QXmlStreamReader::ProcessingInstruction:
        return QStringLiteral("<?");
    case QXmlStreamReader::DTD:
        return QStringLiteral("<!DOCTYPE");
    default:
        return QStringLiteral("<");
    }
}

} // namespace

qsizetype startOfToken(const QXmlStreamReader &reader, const QString &text)
{
    return text.lastIndexOf(opening(reader.tokenType()), static_cast<int>(reader.characterOffset()) - 1);
}

qsizetype elementReadAt(const QString &text, qsizetype offset)
{
    std::vector<qsizetype> open;
    QXmlStreamReader reader(text);
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement())
            open.push_back(startOfToken(reader, text));
        if (reader.characterOffset() >= offset && !open.empty())
            return open.back();
        if (reader.isEndElement())
            open.pop_back();
    }
    return 0;
}

qsizetype elementNamed(const QString &text, QStringView name)
{
    qsizetype root = -1;
    QXmlStreamReader reader(text);
    while (reader.readNext() != QXmlStreamReader::Invalid && !reader.atEnd()) {
        if (!reader.isStartElement())
            continue;
        const qsizetype start = startOfToken(reader, text);
        if (reader.name() == name)
            return start;
        if (root < 0)
            root = start;
    }
    return root;
}

qsizetype placeOfError(const QXmlStreamReader &reader, const QString &text)
{
    const auto offset = static_cast<qsizetype>(reader.characterOffset());
    switch (reader.error()) {
    case QXmlStreamReader::UnexpectedElementError:
    case QXmlStreamReader::CustomError:
        return elementReadAt(text, offset);
    case QXmlStreamReader::PrematureEndOfDocumentError:
        return offset;
    default:
        return qMax<qsizetype>(offset - 1, 0); // the last character that it read
    }
}
