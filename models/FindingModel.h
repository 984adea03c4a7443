#ifndef KORMAK_MODELS_FINDINGMODEL_H
#define KORMAK_MODELS_FINDINGMODEL_H

#include <models/models_export.h>
#include <models/OpenDocument.h>

#include <QAbstractTableModel>

#include <memory>

namespace KORMAK {

/// The findings of a document that is open, a row of each in their order. It follows every change: rows of
/// findings that stay stay.
///
/// \snippet docs/ModelsSnippetsTest.cpp FindingModel
class MODELS_EXPORT FindingModel : public QAbstractTableModel {
    Q_OBJECT

public:
    /// What the columns are.
    enum Column : qint32 {
        SeverityColumn, ///< "Error" or "Warning"
        MessageColumn, ///< Finding::GetMessage()
        PlaceColumn, ///< "line 3, column 5"; empty without a place
        PathColumn, ///< Finding::GetPath()
        RemedyColumn, ///< Finding::GetSuggestion()
    };
    Q_ENUM(Column)

    /// What there is to ask of every row, whatever the column. Their names for QML are those without "Role",
    /// beginning with a small letter.
    enum Role : qint32 {
        SeverityRole = Qt::UserRole + 1, ///< Finding::Severity as a number: 0 is a warning, 1 an error
        MessageRole, ///< Finding::GetMessage()
        PathRole, ///< Finding::GetPath()
        FieldPathRole, ///< Finding::GetFieldPath()
        LineRole, ///< Finding::GetLine()
        ColumnRole, ///< Finding::GetColumn()
        IdRole, ///< Finding::GetId()
        RemedyRole, ///< Finding::GetSuggestion()
        AllowedRole, ///< Finding::GetAllowed()
        FindingRole, ///< the Finding
    };
    Q_ENUM(Role)

    /// The findings of \a document, which must outlive the model.
    explicit FindingModel(OpenDocument &document, QObject *parent = nullptr);
    ~FindingModel() override;

    /// \cond
    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
    /// \endcond

private:
    struct Private;

    MODELS_NO_EXPORT void reset();
    MODELS_NO_EXPORT void update();
    MODELS_NO_EXPORT void removeRowsBetween(int first, int end);

    const std::unique_ptr<Private> d;
};

} // namespace KORMAK

#endif
