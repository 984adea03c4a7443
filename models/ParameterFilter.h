#ifndef KORMAK_MODELS_PARAMETERFILTER_H
#define KORMAK_MODELS_PARAMETERFILTER_H

#include <models/models_export.h>

#include <QSortFilterProxyModel>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>
#include <optional>

namespace KORMAK {

/// The parameters of a ParameterModel that people look for.
///
/// \snippet docs/ModelsSnippetsTest.cpp ParameterFilter
class MODELS_EXPORT ParameterFilter : public QSortFilterProxyModel {
    Q_OBJECT
    /// GetSearch()
    Q_PROPERTY(QString search READ GetSearch WRITE SetSearch NOTIFY SearchChanged)
    /// GetShow()
    Q_PROPERTY(KORMAK::ParameterFilter::Show show READ GetShow WRITE SetShow NOTIFY ShowChanged)
    /// GetGroup(): a text, or undefined for all
    Q_PROPERTY(QVariant group READ groupProperty WRITE setGroupProperty NOTIFY GroupChanged)

public:
    /// Which values are shown.
    enum class Show : qint32 {
        All,
        Changed, ///< those that differ from their defaults
    };
    Q_ENUM(Show)

    /// Shows all. The model is set with setSourceModel().
    explicit ParameterFilter(QObject *parent = nullptr);
    ~ParameterFilter() override;

    /// Parameters that have every word of it in their unique name, their display name or their tool tip,
    /// capital or not; all of them when it is empty.
    [[nodiscard]] QString GetSearch() const;
    void SetSearch(const QString &words);

    /// All at first.
    [[nodiscard]] Show GetShow() const noexcept;
    /// See GetShow().
    void SetShow(Show show);

    /// The one group that is shown; nothing: all are.
    [[nodiscard]] std::optional<QString> GetGroup() const;
    void SetGroup(const std::optional<QString> &group);

    /// The groups of all parameters of the source, each once, sorted; the empty one, of those that have none,
    /// is the last.
    [[nodiscard]] Q_INVOKABLE QStringList GetGroups() const;

Q_SIGNALS:
    /// GetSearch() is another one.
    void SearchChanged();
    /// GetShow() is another one.
    void ShowChanged();
    /// GetGroup() is another one.
    void GroupChanged();

protected:
    /// \cond
    [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex &parent) const override;
    /// \endcond

private:
    struct Private;

    [[nodiscard]] MODELS_NO_EXPORT QVariant groupProperty() const;
    MODELS_NO_EXPORT void setGroupProperty(const QVariant &group);

    const std::unique_ptr<Private> d;
};

} // namespace KORMAK

#endif
