#ifndef KORMAK_MODELS_FIELDMODEL_H
#define KORMAK_MODELS_FIELDMODEL_H

#include <inspection/Field.h>
#include <models/models_export.h>
#include <models/OpenDocument.h>

#include <QAbstractItemModel>

#include <memory>

namespace KORMAK {

/// The fields of a document that is open, as a tree: fields, the objects and lists that hold them, and the
/// elements of lists.
///
/// \snippet docs/ModelsSnippetsTest.cpp FieldModel
///
/// Values are set by setData() in ValueColumn, or with ValueRole or TextRole anywhere in the row, as
/// OpenDocument::Change() sets them: a text says what Document::SetField() takes, and an invalid QVariant
/// unsets. What is refused, OpenDocument::Refused() tells.
///
/// The model is reset when there is another document; else rows come and go with elements of lists, with
/// parameters and with fields that depend on others, and indexes of all other rows stay valid. What is below
/// a row is looked up when it is first asked for.
class MODELS_EXPORT FieldModel : public QAbstractItemModel {
    Q_OBJECT

public:
    /// What the columns are.
    enum Column : qint32 {
        NameColumn, ///< FieldNode::GetLabel()
        ValueColumn, ///< what it holds, for people, without its unit
        UnitColumn, ///< Field::GetUnit()
        AllowedColumn, ///< Field::GetAllowedInWords()
    };
    Q_ENUM(Column)

    /// What there is to ask of every row, whatever the column. Their names for QML are those without "Role",
    /// beginning with a small letter.
    enum Role : qint32 {
        PathRole = Qt::UserRole + 1, ///< FieldNode::GetPath()
        LabelRole, ///< FieldNode::GetLabel()
        KindRole, ///< FieldNode::Kind as a number
        TypeRole, ///< Field::Type as a number; invalid for all but values
        ValueRole, ///< Field::GetValue()
        TextRole, ///< Field::GetText()
        ShownTextRole, ///< FieldNode::GetShownText()
        UnitRole, ///< Field::GetUnit()
        MinimumRole, ///< Field::GetMinimum(); invalid for all but whole numbers
        MaximumRole, ///< Field::GetMaximum(); invalid for all but whole numbers
        VocabularyRole, ///< the name of the vocabulary, for FindVocabulary(); empty: none
        AllowedRole, ///< Field::GetAllowed()
        AllowedInWordsRole, ///< Field::GetAllowedInWords()
        RequirementRole, ///< Field::Requirement as a number
        SettableRole, ///< Field::IsSettable()
        SetRole, ///< Field::IsSet()
        ElementRole, ///< FieldNode::IsElement()
        ExtensibleRole, ///< FieldNode::IsExtensible()
        /// A QVector<Finding>: those about what is here or below. Findings do not tell which element of a
        /// list they are about; the list has them.
        FindingsRole,
        MessagesRole, ///< the messages of these findings, a QStringList
        SeverityRole, ///< the greatest Finding::Severity among them as a number; -1: there are none
    };
    Q_ENUM(Role)

    /// The fields of \a document, which must outlive the model.
    explicit FieldModel(OpenDocument &document, QObject *parent = nullptr);
    ~FieldModel() override;

    /// What becomes of a value that brings findings about, which many a document needs on its way to being
    /// complete: Accepted at first.
    [[nodiscard]] DocumentEdit::NewFindings GetNewFindings() const noexcept;
    void SetNewFindings(DocumentEdit::NewFindings newFindings) noexcept;

    /// Where \a path stands, as FieldNode::GetPath() calls it; an invalid index where there is no such place.
    [[nodiscard]] Q_INVOKABLE QModelIndex GetIndex(const QString &path,
                                                   KORMAK::FieldModel::Column column = NameColumn) const;
    /// The place that \a finding is about, or the nearest one around it; an invalid index for the document as
    /// a whole.
    [[nodiscard]] QModelIndex GetIndex(const Finding &finding, Column column = NameColumn) const;

    /// \cond
    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex &index) const override;
    using QObject::parent;
    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] bool hasChildren(const QModelIndex &parent = {}) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
    /// \endcond

private:
    struct Node;
    struct Private;

    [[nodiscard]] MODELS_NO_EXPORT Node &nodeAt(const QModelIndex &index) const;
    [[nodiscard]] MODELS_NO_EXPORT QModelIndex indexOf(const Node &node, int column = 0) const;
    [[nodiscard]] MODELS_NO_EXPORT QVariant shownData(const Node &node, int column) const;
    [[nodiscard]] MODELS_NO_EXPORT QString toolTip(const Node &node) const;
    MODELS_NO_EXPORT void reset();
    MODELS_NO_EXPORT void update(const QStringList &paths);
    MODELS_NO_EXPORT void updateBelow(Node &node, const QStringList &paths);
    MODELS_NO_EXPORT void tellFindings(const Node &node, const QStringList &paths);
    MODELS_NO_EXPORT void tellRow(const Node &node);

    const std::unique_ptr<Private> d;
};

} // namespace KORMAK

#endif
