#include "models/FieldModel.h"

#include <models/FindingIndex_p.h>
#include <models/RoleNames_p.h>

#include <QSet>

#include <algorithm>
#include <utility>
#include <vector>

namespace KORMAK {

struct FieldModel::Node {
    FieldNode place = {};
    Node *parent = nullptr;
    int row = 0;
    bool isInList = false; ///< findings do not tell it from its like
    bool isFetched = false;
    std::vector<std::unique_ptr<Node>> children = {};
};

struct FieldModel::Private {
    OpenDocument &document;
    Node root = {};
    FindingIndex findings = FindingIndex(document.GetDocument().GetFindings());
    DocumentEdit::NewFindings newFindings = DocumentEdit::NewFindings::Accepted;

    [[nodiscard]] std::vector<std::unique_ptr<Node>> &childrenOf(Node &node) const
    {
        if (!node.isFetched && (!node.parent || node.place.GetKind() != FieldNode::Kind::Value)) {
            const QVector<FieldNode> places = document.GetDocument().GetNodes(node.place.GetPath());
            for (const FieldNode &place : places)
                node.children.push_back(childOf(node, place, static_cast<int>(node.children.size())));
        }
        node.isFetched = true;
        return node.children;
    }

    [[nodiscard]] static std::unique_ptr<Node> childOf(Node &node, const FieldNode &place, int row)
    {
        return std::make_unique<Node>(
            Node{place, &node, row, node.isInList || node.place.GetKind() == FieldNode::Kind::List});
    }

    static void numberRows(Node &node, int first)
    {
        for (int row = first; row < static_cast<int>(node.children.size()); ++row)
            node.children[static_cast<std::size_t>(row)]->row = row;
    }

    [[nodiscard]] QVector<Finding> findingsOf(const Node &node) const
    {
        return node.isInList ? QVector<Finding>() : findings.at(node.place.GetPathInFindings());
    }
};

FieldModel::FieldModel(OpenDocument &document, QObject *parent)
    : QAbstractItemModel(parent), d(new Private{document})
{
    connect(&document, &OpenDocument::Replaced, this, [this] { reset(); });
    connect(&document, &OpenDocument::Changed, this, [this](const QStringList &paths) { update(paths); });
}

FieldModel::~FieldModel() = default;

DocumentEdit::NewFindings FieldModel::GetNewFindings() const noexcept
{
    return d->newFindings;
}

void FieldModel::SetNewFindings(DocumentEdit::NewFindings newFindings) noexcept
{
    d->newFindings = newFindings;
}

QModelIndex FieldModel::GetIndex(const QString &path, Column column) const
{
    for (Node *node = &d->root; node;) {
        const auto &children = d->childrenOf(*node);
        const auto next = std::find_if(children.begin(), children.end(), [&path](const auto &child) {
            return isPathOrWithin(path, child->place.GetPath());
        });
        node = next == children.end() ? nullptr : next->get();
        if (node && node->place.GetPath() == path)
            return indexOf(*node, column);
    }
    return {};
}

QModelIndex FieldModel::GetIndex(const Finding &finding, Column column) const
{
    const QString path = finding.GetFieldPath();
    Node *node = &d->root;
    for (;;) {
        const auto &children = d->childrenOf(*node);
        const auto next = std::find_if(children.begin(), children.end(), [&path](const auto &child) {
            return !child->isInList && isPathOrWithin(path, child->place.GetPathInFindings());
        });
        if (next == children.end())
            return indexOf(*node, column);
        node = next->get();
    }
}

FieldModel::Node &FieldModel::nodeAt(const QModelIndex &index) const
{
    return index.isValid() ? *static_cast<Node *>(index.internalPointer()) : d->root;
}

QModelIndex FieldModel::indexOf(const Node &node, int column) const
{
    return node.parent ? createIndex(node.row, column, const_cast<Node *>(&node)) : QModelIndex();
}

QModelIndex FieldModel::index(int row, int column, const QModelIndex &parent) const
{
    if (parent.column() > 0 || row < 0 || column < 0 || column > AllowedColumn)
        return {};
    const auto &children = d->childrenOf(nodeAt(parent));
    return static_cast<std::size_t>(row) < children.size()
        ? createIndex(row, column, children.at(static_cast<std::size_t>(row)).get())
        : QModelIndex();
}

QModelIndex FieldModel::parent(const QModelIndex &index) const
{
    return index.isValid() ? indexOf(*nodeAt(index).parent) : QModelIndex();
}

int FieldModel::rowCount(const QModelIndex &parent) const
{
    return parent.column() > 0 ? 0 : static_cast<int>(d->childrenOf(nodeAt(parent)).size());
}

int FieldModel::columnCount(const QModelIndex & /*parent*/) const
{
    return AllowedColumn + 1;
}

bool FieldModel::hasChildren(const QModelIndex &parent) const
{
    return rowCount(parent) > 0;
}

Qt::ItemFlags FieldModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractItemModel::flags(index);
    return index.column() == ValueColumn && nodeAt(index).place.GetField().IsSettable()
        ? flags | Qt::ItemIsEditable
        : flags;
}

QVariant FieldModel::shownData(const Node &node, int column) const
{
    const Field field = node.place.GetField();
    switch (column) {
    case NameColumn:
        return node.place.GetLabel();
    case ValueColumn:
        return field.GetUnit().isEmpty() ? node.place.GetShownText() : field.GetText();
    case UnitColumn:
        return field.GetUnit();
    case AllowedColumn:
        return node.place.GetKind() == FieldNode::Kind::Value ? field.GetAllowedInWords() : QString();
    default:
        return {};
    }
}

QString FieldModel::toolTip(const Node &node) const
{
    QStringList lines = messagesOf(d->findingsOf(node));
    lines.prepend(node.place.GetPath());
    if (node.place.GetField().IsSettable())
        lines.insert(1, node.place.GetField().GetAllowedInWords());
    return toolTipOf(lines.join(QLatin1Char('\n')));
}

QVariant FieldModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const Node &node = nodeAt(index);
    const FieldNode &place = node.place;
    const bool isValue = place.GetKind() == FieldNode::Kind::Value;
    const Field field = place.GetField();
    const bool isInteger = isValue && field.GetType() == Field::Type::Integer;
    switch (role) {
    case Qt::DisplayRole:
        return shownData(node, index.column());
    case Qt::EditRole:
        return index.column() == ValueColumn && isValue ? field.GetValue() : shownData(node, index.column());
    case Qt::ToolTipRole:
        return toolTip(node);
    case PathRole:
        return place.GetPath();
    case LabelRole:
        return place.GetLabel();
    case KindRole:
        return static_cast<qint32>(place.GetKind());
    case TypeRole:
        return isValue ? QVariant(static_cast<qint32>(field.GetType())) : QVariant();
    case ValueRole:
        return field.GetValue();
    case TextRole:
        return field.GetText();
    case ShownTextRole:
        return place.GetShownText();
    case UnitRole:
        return field.GetUnit();
    case MinimumRole:
        return isInteger ? QVariant(field.GetMinimum()) : QVariant();
    case MaximumRole:
        return isInteger ? QVariant(field.GetMaximum()) : QVariant();
    case VocabularyRole:
        return field.GetVocabulary().GetName();
    case AllowedRole:
        return field.GetAllowed();
    case AllowedInWordsRole:
        return isValue ? field.GetAllowedInWords() : QString();
    case RequirementRole:
        return static_cast<qint32>(field.GetRequirement());
    case SettableRole:
        return field.IsSettable();
    case SetRole:
        return field.IsSet();
    case ElementRole:
        return place.IsElement();
    case ExtensibleRole:
        return place.IsExtensible();
    case FindingsRole:
        return QVariant::fromValue(d->findingsOf(node));
    case MessagesRole:
        return messagesOf(d->findingsOf(node));
    case SeverityRole:
        return severityOf(d->findingsOf(node));
    default:
        return {};
    }
}

bool FieldModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const bool isEdit = role == Qt::EditRole && index.column() == ValueColumn;
    if (!index.isValid() || !(isEdit || role == ValueRole || role == TextRole)
        || nodeAt(index).place.GetKind() != FieldNode::Kind::Value)
        return false;
    const QString path = nodeAt(index).place.GetPath();
    using Change = DocumentEdit::Change;
    const Change change = value.isValid() ? Change{Change::Action::Set, path, Field::TextOf(value)}
                                          : Change{Change::Action::Unset, path};
    return d->document.Change({change}, d->newFindings).isEmpty();
}

QVariant FieldModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static constexpr QStringView Titles[] = {u"Field", u"Value", u"Unit", u"Allowed"};
    return role == Qt::DisplayRole && orientation == Qt::Horizontal ? titleAt(Titles, section) : QVariant();
}

QHash<int, QByteArray> FieldModel::roleNames() const
{
    return withRoleNames<Role>(QAbstractItemModel::roleNames());
}

void FieldModel::reset()
{
    beginResetModel();
    d->root = {};
    d->findings = FindingIndex(d->document.GetDocument().GetFindings());
    endResetModel();
}

void FieldModel::update(const QStringList &paths)
{
    FindingIndex findings(d->document.GetDocument().GetFindings());
    const QStringList told = d->findings.differences(findings);
    d->findings = std::move(findings);
    if (!paths.isEmpty())
        updateBelow(d->root, paths);
    if (!told.isEmpty())
        tellFindings(d->root, told);
}

/// Goes through the former places below \a node and those of today side by side; both are in the order of the
/// document. Only what \a paths are about can be another one.
void FieldModel::updateBelow(Node &node, const QStringList &paths)
{
    if (!node.isFetched)
        return;
    const QVector<FieldNode> places = d->document.GetDocument().GetNodes(node.place.GetPath());
    QSet<QString> now;
    for (const FieldNode &place : places)
        now.insert(place.GetPath());
    auto &children = node.children;
    for (std::size_t i = 0; i < children.size();) {
        if (now.contains(children[i]->place.GetPath())) {
            ++i;
            continue;
        }
        const int row = static_cast<int>(i);
        beginRemoveRows(indexOf(node), row, row);
        children.erase(children.begin() + row);
        Private::numberRows(node, row);
        endRemoveRows();
    }
    for (int row = 0; row < static_cast<int>(places.size()); ++row) {
        const FieldNode &place = places.at(row);
        const auto at = children.begin() + row;
        if (at == children.end() || (*at)->place.GetPath() != place.GetPath()) {
            beginInsertRows(indexOf(node), row, row);
            children.insert(at, Private::childOf(node, place, row));
            Private::numberRows(node, row);
            endInsertRows();
            continue;
        }
        Node &child = **at;
        const QString own = place.GetPath();
        if (std::none_of(paths.begin(), paths.end(), [&own](const QString &changed) {
                return isPathOrWithin(changed, own) || isPathOrWithin(own, changed);
            }))
            continue;
        if (std::exchange(child.place, place) != place)
            tellRow(child);
        updateBelow(child, paths);
    }
}

void FieldModel::tellFindings(const Node &node, const QStringList &paths)
{
    for (const auto &child : node.children) {
        const QString own = child->place.GetPathInFindings();
        if (child->isInList || std::none_of(paths.begin(), paths.end(), [&own](const QString &told) {
                return isPathOrWithin(told, own);
            }))
            continue;
        tellRow(*child);
        tellFindings(*child, paths);
    }
}

void FieldModel::tellRow(const Node &node)
{
    Q_EMIT dataChanged(indexOf(node, NameColumn), indexOf(node, AllowedColumn));
}

} // namespace KORMAK
