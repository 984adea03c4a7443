#ifndef KORMAK_MODELS_PARAMETERFILTER_H
#define KORMAK_MODELS_PARAMETERFILTER_H

#include <models/models_export.h>

#include <QSortFilterProxyModel>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace KORMAK {

/// The parameters of a ParameterModel that people look for.
///
/// \snippet docs/ModelsSnippetsTest.cpp ParameterFilter
class MODELS_EXPORT ParameterFilter : public QSortFilterProxyModel {
    Q_OBJECT

public:
    /// Which values are shown.
    enum class Show : qint32 {
        All,
        Changed, ///< those that differ from their defaults
    };

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
    [[nodiscard]] QStringList GetGroups() const;

protected:
    /// \cond
    [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex &parent) const override;
    /// \endcond

private:
    struct Private;

    const std::unique_ptr<Private> d;
};

} // namespace KORMAK

#endif
