// What the library makes of the bytes of a file: what others that read are held against.
#ifndef KORMAK_FUZZ_LIBRARYREADING_H
#define KORMAK_FUZZ_LIBRARYREADING_H

#include <objectbase/ITesselObject.h>
#include <objectbase/ReadingLimits.h>

#include <QByteArray>

#include <memory>

namespace Fuzz {

/// A document that the library read.
struct LibraryReading {
    /// Null when the bytes are not UTF-8, hold a NUL or name a kind of document that is not known.
    std::unique_ptr<TESSEL::ITesselObject> object;
    bool isRead = false;
    bool isAccepted = false; ///< read, and Check() has nothing to say

    explicit LibraryReading(const QByteArray &bytes, const TESSEL::ReadingLimits &limits = {});

    [[nodiscard]] bool isComplete() const { return isAccepted && object->HasData(); }
};

} // namespace Fuzz

#endif
