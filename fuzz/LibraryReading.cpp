#include "fuzz/LibraryReading.h"

#include <fuzz/Properties.h>
#include <inspection/Kinds.h>
#include <objectbase/QtCompat_p.h>

namespace Fuzz {

namespace {

constexpr int ByteOrderMarkSize = 3;

} // namespace

LibraryReading::LibraryReading(const QByteArray &bytes, const TESSEL::ReadingLimits &limits)
{
    const QString text = TESSEL::decodeUtf8(bytes);
    const QString kind = rootOf(text);
    // A text that is not what the bytes say is not read, though the library would take what it decodes to.
    if (!KORMAK::GetDocumentKinds().contains(kind) || text.contains(QChar(QChar::Null))
        || !bytes.endsWith(text.toUtf8()) || bytes.size() - text.toUtf8().size() > ByteOrderMarkSize)
        return;
    object = TestSupport::newObject(kind);
    object->SetReadingLimits(limits);
    isRead = readingOf([&] { return object->SetXmlString(text, true); }).outcome == Reading::Taken;
    isAccepted = isRead
        && readingOf([&] {
               object->Check();
               return true;
           }).outcome
            == Reading::Taken;
}

} // namespace Fuzz
