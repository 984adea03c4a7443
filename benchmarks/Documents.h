// The documents that are measured, as texts.
#ifndef BENCHMARKS_DOCUMENTS_H
#define BENCHMARKS_DOCUMENTS_H

#include <QString>

namespace Documents {

/// The description of a receiver with many channels, which have the same parameters: those that the receivers
/// in examples/ have, with all nine types in turn. It is laid out as people do, and as they do it names the
/// types of booleans and has the defaults of texts in elements, so that every parameter is complete when it
/// is read.
[[nodiscard]] QString receiver(int parameters);

/// As receiver(), but no label, tool tip, unit or name of an entry is that of another parameter.
[[nodiscard]] QString receiverOfUniqueTexts(int parameters);

/// An enumeration with many entries in a receiver.
[[nodiscard]] QString enumeration(int entries);

/// A receiver with one parameter and many elements that the reader passes over.
[[nodiscard]] QString unknownElements(int elements);

/// An area with many coordinates.
[[nodiscard]] QString area(int coordinates);

[[nodiscard]] QString job();
[[nodiscard]] QString jobHeader();
[[nodiscard]] QString antennaData();
[[nodiscard]] QString automaticWorkflow();
[[nodiscard]] QString activityGeneration();
[[nodiscard]] QString parameter();

} // namespace Documents

#endif
