// What a program would use in place of the library: each reads the document into the same fields and writes
// the same document from them. Where a library works on UTF-8, it is given and gives UTF-8, so that it pays
// for no conversion.
#ifndef BENCHMARKS_ALTERNATIVES_H
#define BENCHMARKS_ALTERNATIVES_H

#include "Lean.h"

#include <memory>
#include <string>

/// Code for QXmlStreamReader and QXmlStreamWriter.
namespace HandWritten {
[[nodiscard]] Lean::Receiver read(const QString &document);
[[nodiscard]] QString write(const Lean::Receiver &receiver);
} // namespace HandWritten

/// QDomDocument and what takes the fields out of it and puts them in.
namespace Dom {
[[nodiscard]] Lean::Receiver read(const QString &document);
[[nodiscard]] QString write(const Lean::Receiver &receiver);
} // namespace Dom

/// pugixml and what takes the fields out of its tree and puts them in.
namespace Pugixml {
[[nodiscard]] Lean::Receiver read(const std::string &document);
[[nodiscard]] std::string write(const Lean::Receiver &receiver);
} // namespace Pugixml

/// The XML archive of Boost.Serialization, a format of its own with the same fields.
namespace BoostArchive {
[[nodiscard]] Lean::Receiver read(const std::string &document);
[[nodiscard]] std::string write(const Lean::Receiver &receiver);
} // namespace BoostArchive

/// The classes that CodeSynthesis XSD makes of the schemas.
namespace XsdTree {

class Tree;
struct Deleter {
    void operator()(Tree *tree) const;
};
using Owned = std::unique_ptr<Tree, Deleter>;

/// Into the classes that are made, whose numbers are still texts and whose blocks are nodes of a DOM; to go
/// on from there to the fields is not counted.
[[nodiscard]] Owned read(const std::string &document);
[[nodiscard]] std::string write(const Tree &tree);
[[nodiscard]] Lean::Receiver receiverOf(const Tree &tree);

/// Keeps the XML parser's library initialised.
class Library {
public:
    Library();
    ~Library();
};

} // namespace XsdTree

#endif
