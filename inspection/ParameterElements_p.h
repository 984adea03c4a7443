// The "Parameter" elements of a document, each with the parameter that was read from it.
#ifndef KORMAK_INSPECTION_PARAMETERELEMENTS_P_H
#define KORMAK_INSPECTION_PARAMETERELEMENTS_P_H

#include <inspection/FindingData_p.h>
#include <inspection/XmlTree_p.h>
#include <kormak/Parameter.h>

#include <QString>
#include <QStringView>

#include <limits>
#include <vector>

namespace KORMAK {
class GenericReceiver;
} // namespace KORMAK

namespace KORMAK::Inspection {

class ParameterElement {
public:
    const XmlTree &tree;
    XmlTree::Index index;
    const KORMAK::Parameter &parameter;
    bool isInReceiver;
    bool hasReplaced; ///< an element before it has the same unique name
    unsigned childTypes; ///< the types that children are called by, a bit each

    /// Whether a child is called by the name of \a type.
    [[nodiscard]] bool hasChildOf(ParameterType type) const { return (childTypes & bitOf(type)) != 0; }
    /// Whether a child is called by the name of another type than these.
    [[nodiscard]] bool hasChildBeside(ParameterType one, ParameterType other) const
    {
        return (childTypes & ~bitOf(one) & ~bitOf(other)) != 0;
    }
    /// 0 for what is no type: a program can set any number.
    [[nodiscard]] static constexpr unsigned bitOf(ParameterType type)
    {
        const auto number = static_cast<unsigned>(type);
        return number < std::numeric_limits<unsigned>::digits ? 1U << number : 0;
    }

    [[nodiscard]] bool hasBlock() const;

    /// The elements called \a name in the blocks of the parameter's type, at any depth, as reading finds
    /// them.
    [[nodiscard]] std::vector<XmlTree::Index> inBlocks(QStringView name) const;
    [[nodiscard]] bool isInBlocks(QStringView name) const;

    /// At \a element.
    [[nodiscard]] FindingData finding(XmlTree::Index element, const QString &message) const;
    /// At the last of the elements called \a name in the blocks, at the last block, or at the parameter,
    /// whichever there is.
    [[nodiscard]] FindingData findingInBlocks(QStringView name, const QString &message) const;
    /// At the last block or at the parameter.
    [[nodiscard]] FindingData findingAtBlock(const QString &message) const;

private:
    template <class Work>
    bool anyBlock(Work work) const;
    template <class Work>
    bool anyInBlocks(QStringView name, Work work) const;
    [[nodiscard]] std::vector<XmlTree::Index> blocks() const;
};

/// In any order. An element is left out when a later one has taken its place, and when its
/// parameter was not read.
[[nodiscard]] std::vector<ParameterElement> parameterElements(const KORMAK::GenericReceiver &receiver,
                                                              const XmlTree &tree);
[[nodiscard]] std::vector<ParameterElement> parameterElements(const KORMAK::Parameter &parameter,
                                                              const XmlTree &tree);

} // namespace KORMAK::Inspection

#endif
