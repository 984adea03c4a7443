#ifndef KORMAK_MODELS_PARAMETERMODEL_H
#define KORMAK_MODELS_PARAMETERMODEL_H

#include <inspection/Document.h>
#include <models/models_export.h>
#include <models/OpenDocument.h>

#include <QAbstractTableModel>
#include <QHash>

#include <memory>

namespace KORMAK {

/// The parameters of a receiver that is open, a row of each in the order of their unique names; one row of a
/// document that is a single parameter, none of others.
///
/// \snippet docs/ModelsSnippetsTest.cpp ParameterModel
///
/// A document holds one value of a parameter, which it calls the default (\ref document_parameter_values). It
/// is the value here; what it is compared with is the value in another receiver: the one that was there at
/// first, or the one that SetDefaults() gives. Values of lists of numbers no document holds.
///
/// Values are set by setData() in ValueColumn, or with ValueRole anywhere in the row. What is refused,
/// OpenDocument::Refused() tells. Rows come and go with parameters; indexes of all others stay valid.
class MODELS_EXPORT ParameterModel : public QAbstractTableModel {
    Q_OBJECT

public:
    /// What the columns are. Values, defaults and limits are shown as ParameterSummary has them.
    enum Column : qint32 {
        UniqueNameColumn,
        RepresentationNameColumn,
        DisplayNameColumn,
        TypeColumn,
        ValueColumn,
        DefaultColumn,
        MinimumColumn,
        MaximumColumn,
        UnitColumn,
        EnabledColumn,
    };
    Q_ENUM(Column)

    /// What there is to ask of every row, whatever the column. Their names for QML are those without "Role",
    /// beginning with a small letter. Numbers are in the stored unit.
    enum Role : qint32 {
        PathRole = Qt::UserRole + 1, ///< of the parameter in the document: "Parameter[Gain]"
        ValuePathRole, ///< of the field that is the value: "Parameter[Gain].Integer.Default"; or empty
        UniqueNameRole, ///< the unique name
        RepresentationNameRole, ///< the representation name
        NameRole, ///< for users: the display name or, where there is none, the unique name
        GroupRole, ///< as SetGroups() says, else GroupOf()
        ToolTipRole, ///< the tool tip of the parameter
        EnabledRole, ///< whether it is enabled
        ParameterTypeRole, ///< ParameterType as a number
        ValueTypeRole, ///< Parameter::ValueType as a number
        ControlTypeRole, ///< Parameter::ControlType as a number
        /// bool, qint64, float, double or QString; of an enumeration the place of its entry in EntriesRole,
        /// -1 for none; of a list of numbers a QVariantList. An entry can be set by its name, too.
        ValueRole,
        DefaultRole, ///< the value that it is compared with; invalid: there is none
        ChangedRole, ///< whether the two differ
        ShownValueRole, ///< the value as users see it, with its unit
        ShownDefaultRole, ///< the default as users see it, with its unit
        MinimumRole, ///< as ValueRole; invalid: there is none
        MaximumRole, ///< as ValueRole; invalid: there is none
        DivisorRole, ///< DivisorOf(): what numbers are divided by to be shown
        PrecisionRole, ///< decimals of float and double; -1 for other types
        UnitRole, ///< the display suffix
        MaximumLengthRole, ///< of a list of numbers; invalid for other types
        EntriesRole, ///< of an enumeration: a QVariantMap of key, name, identifier and value for each
        EntryNamesRole, ///< of an enumeration: the names alone, a QStringList
        SettableRole, ///< whether documents can hold its value
        FindingsRole, ///< a QVector<Finding>: those about it
        MessagesRole, ///< the messages of these findings, a QStringList
        SeverityRole, ///< the greatest Finding::Severity among them as a number; -1: there are none
    };
    Q_ENUM(Role)

    /// The parameters of \a document, which must outlive the model.
    explicit ParameterModel(OpenDocument &document, QObject *parent = nullptr);
    ~ParameterModel() override;

    /// The receiver whose values are the defaults. It is the document as it is when the model is made, and
    /// each other document as it is opened. A parameter that it does not have, or has of another type, has no
    /// default, nor has an enumeration whose list has no entry with the key of the default.
    [[nodiscard]] const Document &GetDefaults() const noexcept;
    void SetDefaults(const Document &receiver);

    /// The groups of parameters by their unique names; of what is not in it, GroupOf() tells the group.
    [[nodiscard]] const QHash<QString, QString> &GetGroups() const noexcept;
    void SetGroups(const QHash<QString, QString> &groups);

    /// What becomes of a value that brings findings about: Accepted at first.
    [[nodiscard]] DocumentEdit::NewFindings GetNewFindings() const noexcept;
    void SetNewFindings(DocumentEdit::NewFindings newFindings) noexcept;

    /// The row of the parameter called \a uniqueName; -1: there is none.
    [[nodiscard]] Q_INVOKABLE int GetRow(const QString &uniqueName) const;
    /// Gives all values their defaults that differ from them, in one step; those of disabled parameters, too.
    /// \return empty when it is done; else why it is not
    Q_INVOKABLE QVector<KORMAK::Finding> RestoreDefaults();

    /// \cond
    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
    /// \endcond

private:
    struct Private;

    MODELS_NO_EXPORT void reset();
    MODELS_NO_EXPORT void update(const QStringList &paths);
    MODELS_NO_EXPORT void tellAll();
    MODELS_NO_EXPORT void tellRow(int row);

    const std::unique_ptr<Private> d;
};

} // namespace KORMAK

#endif
