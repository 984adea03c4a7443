#include "objectbase/DocumentWriter_p.h"

#include <objectbase/Constants_p.h>
#include <objectbase/QtCompat_p.h>
#include <objectbase/Text_p.h>

namespace TESSEL {

namespace {

[[maybe_unused]] constexpr auto LogLevels = LogLevelNames;

/// True when \a text holds surrogates or carriage returns. Looks at every character, so that it is done many
/// at a time; hardly a document holds one.
bool needsCloserLook(const QString &text)
{
    constexpr char16_t SurrogateMask = 0xF800;
    constexpr char16_t Surrogates = 0xD800;
    const auto *characters = reinterpret_cast<const char16_t *>(text.constData());
    unsigned short found = 0; // as wide as a character: twice as many at a time as with an int
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = characters[i];
        found |= static_cast<unsigned short>((c & SurrogateMask) == Surrogates || c == u'\r' ? 1 : 0);
    }
    return found != 0;
}

/// Qt's writer hands lone surrogates on as they are when it writes to a QString.
bool hasLoneSurrogate(const QString &text)
{
    for (auto c = text.begin(); c != text.end(); ++c) {
        if (!c->isSurrogate())
            continue;
        if (!c->isHighSurrogate() || ++c == text.end() || !c->isLowSurrogate())
            return true;
    }
    return false;
}

} // namespace

DocumentWriter::DocumentWriter() : writer(&text)
{
    if (isEarlyQt6())
        writer.setDevice(&sink.emplace());
    writer.setAutoFormatting(true);
    writer.writeStartDocument();
    if (sink)
        sink->bytes = R"(<?xml version="1.0"?>)"; // Qt names the encoding, which a QString does not have
}

std::optional<QString> DocumentWriter::finish()
{
    writer.writeEndDocument();
    if (sink)
        text = decodeUtf8(sink->bytes);
    const bool isSpecial = sink ? sink->bytes.find('\r') != std::string::npos : needsCloserLook(text);
    if (writer.hasError() || (isSpecial && hasLoneSurrogate(text)))
        return std::nullopt;
    if (isSpecial) // a bare carriage return would be read back as a line feed; in attributes Qt writes the
                   // reference
        text.replace(u'\r', borrowed(u"&#13;"));
    return std::move(text);
}

} // namespace TESSEL
