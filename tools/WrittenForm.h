#ifndef KORMAK_TOOLS_WRITTENFORM_H
#define KORMAK_TOOLS_WRITTENFORM_H

#include <QString>
#include <QStringView>

namespace TESSEL {
class ITesselObject;
}

/// The text of the attribute or child element called \a name in what \a object writes; empty when it writes
/// none. For what an object holds and has no getter for.
[[nodiscard]] QString writtenText(const TESSEL::ITesselObject &object, QStringView name);

#endif
