#include "inspection/FieldNode.h"

#include <inspection/FieldNodes_p.h>
#include <inspection/QuotedText_p.h>
#include <objectbase/Debug_p.h>
#include <objectbase/NoDestructor_p.h>

#include <utility>

namespace KORMAK {

using namespace Inspection;

struct FieldNode::Private {
    FieldNodeData content;
};

FieldNode::FieldNode() = default;

const FieldNode::Private &FieldNode::data() const
{
    static const TESSEL::NoDestructor<Private> none{Private{{Kind::Object, {}, {}, {}}}};
    return d ? *d : *none;
}

FieldNode::Kind FieldNode::GetKind() const noexcept
{
    return data().content.kind;
}

QString FieldNode::GetPath() const
{
    return data().content.path;
}

QString FieldNode::GetPathInFindings() const
{
    return data().content.pathInFindings;
}

QString FieldNode::GetLabel() const
{
    return data().content.label;
}

bool FieldNode::IsElement() const noexcept
{
    return data().content.isElement;
}

bool FieldNode::IsExtensible() const noexcept
{
    return data().content.isExtensible;
}

Field FieldNode::GetField() const
{
    return data().content.field;
}

QString FieldNode::GetShownText() const
{
    return GetKind() == Kind::Value ? data().content.field.GetShownText() : data().content.shownText;
}

bool FieldNode::operator==(const FieldNode &other) const
{
    const FieldNodeData &a = data().content;
    const FieldNodeData &b = other.data().content;
    return d == other.d
        || (a.kind == b.kind && a.path == b.path && a.label == b.label && a.isElement == b.isElement
            && a.isExtensible == b.isExtensible && a.field == b.field && a.shownText == b.shownText);
}

namespace Inspection {

FieldNode FieldNodeMaker::made(FieldNodeData data)
{
    FieldNode node;
    node.d = std::make_shared<const FieldNode::Private>(FieldNode::Private{std::move(data)});
    return node;
}

} // namespace Inspection

namespace {

constexpr TESSEL::VocabularyRow<FieldNode::Kind> KindRows[] = {
    {FieldNode::Kind::Value, u"Value"},
    {FieldNode::Kind::Object, u"Object"},
    {FieldNode::Kind::List, u"List"},
    {FieldNode::Kind::Map, u"Map"},
};
constexpr TESSEL::Vocabulary Kinds{KindRows};

} // namespace

QDebug operator<<(QDebug debug, FieldNode::Kind value)
{
    return TESSEL::printName(debug, Kinds.table(), value);
}

QDebug operator<<(QDebug debug, const FieldNode &node)
{
    const QString kind = Kinds.table().find(static_cast<qint32>(node.GetKind()))->name.toString();
    return TESSEL::printText(debug, QStringLiteral("FieldNode(%1 %2)").arg(kind, oneLine(node.GetPath())));
}

} // namespace KORMAK
