#include "inspection/EditScope_p.h"

#include <inspection/HeldFields_p.h>

namespace KORMAK::Inspection {

EditScope::EditScope(const QStringList &paths) : isWhole(false)
{
    for (QString path : paths) {
        for (QString around = parentOf(path); !around.isEmpty(); around = parentOf(path))
            path = around;
        steps.insert(path);
    }
}

} // namespace KORMAK::Inspection
