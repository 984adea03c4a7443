#include "objectbase/TesselException.h"

#include <objectbase/Constants_p.h>

namespace TESSEL {

namespace {
[[maybe_unused]] constexpr auto LogLevels = LogLevelNames;
} // namespace

TesselBaseException::TesselBaseException(const QString &text) : message(text), utf8Message(text.toUtf8()) { }

TesselBaseException::~TesselBaseException() = default;

const char *TesselBaseException::what() const noexcept
{
    return utf8Message.constData();
}

TesselException::TesselException(const QString &text) : TesselBaseException(text) { }

TesselException::~TesselException() = default;

} // namespace TESSEL
