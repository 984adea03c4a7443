// Not installed. Counts how deep elements stand in one another while a document is read, and hands the limits
// of an object on to the objects that it owns.
#ifndef TESSEL_NESTING_P_H
#define TESSEL_NESTING_P_H

#include <objectbase/ITesselObject.h>
#include <objectbase/objectbase_export.h>
#include <objectbase/ReadingLimits.h>

#include <QXmlStreamReader>

namespace TESSEL {

[[nodiscard]] inline QString depthMessage(int most)
{
    return QStringLiteral("Elements stand more than %1 deep in one another.").arg(most);
}

/// The elements that are open. One more than the limit of the object is an error of the reader.
class Nesting {
public:
    /// \a open elements stand around what is read next; 1 is the object's own.
    Nesting(const ITesselObject &object, QXmlStreamReader &xmlReader, int open)
        : reader(xmlReader), most(object.GetReadingLimits().GetDepth()), depth(object.outerElements + open)
    {
    }

    void count(QXmlStreamReader::TokenType token)
    {
        if (token == QXmlStreamReader::StartElement && ++depth > most)
            reader.raiseError(depthMessage(most));
        else if (token == QXmlStreamReader::EndElement)
            --depth;
    }

    /// An element that was counted has been read to its end elsewhere.
    void leave() { --depth; }

    /// Reads to the end of the current element, which is counted already.
    void skipElement()
    {
        const int outside = depth - 1;
        while (depth > outside && !reader.atEnd())
            count(reader.readNext());
    }

private:
    QXmlStreamReader &reader;
    int most;
    int depth;
};

/// While one lives, \a owned is read within the limits of \a owner.
class OwnedReading {
public:
    OBJECTBASE_EXPORT OwnedReading(const ITesselObject &owner, ITesselObject &owned);
    OBJECTBASE_EXPORT ~OwnedReading();
    OwnedReading(const OwnedReading &) = delete;
    OwnedReading &operator=(const OwnedReading &) = delete;

private:
    ITesselObject &object;
    ITesselObject::OwnLimits ownLimits;
    quint16 outerElements;
};

/// Reads the element of an object that \a owner owns.
inline void readOwned(const ITesselObject &owner, ITesselObject &owned, QXmlStreamReader &reader)
{
    const OwnedReading reading(owner, owned);
    owned.ProcessXml(reader);
}

} // namespace TESSEL

#endif
