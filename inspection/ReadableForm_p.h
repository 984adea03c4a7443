// The form of a document that is read back as the object that it was written for: everything stands where it
// is read, in as many digits as it takes. What the library writes does not always: the mode of a workflow,
// the type of a boolean parameter and the default of a string stand where other systems look for them.
#ifndef KORMAK_INSPECTION_READABLEFORM_P_H
#define KORMAK_INSPECTION_READABLEFORM_P_H

#include <inspection/DocumentKind_p.h>
#include <inspection/EditScope_p.h>

#include <QByteArray>

#include <optional>

namespace KORMAK::Inspection {

/// A whole document, be the object complete or not. Nothing when a text in it holds what XML cannot carry.
/// Of objects in a map only those in the \a scope stand in it, as they would in the whole.
[[nodiscard]] std::optional<QByteArray>
readableForm(const DocumentKind &kind, const TESSEL::ITesselObject &object, const EditScope &scope = {});

/// Whether XML can carry \a text.
[[nodiscard]] bool isRepresentable(const QString &text);

/// The same to be looked at only: with a replacement for what XML cannot carry, and without versions, since
/// an object is taken for one of the version that is written.
[[nodiscard]] QByteArray draftOf(const DocumentKind &kind, const TESSEL::ITesselObject &object);

} // namespace KORMAK::Inspection

#endif
