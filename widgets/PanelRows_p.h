// Not installed. The parameters of a receiver as the rows of a panel: by groups, in the words of people.
#ifndef KORMAK_WIDGETS_PANELROWS_P_H
#define KORMAK_WIDGETS_PANELROWS_P_H

#include <kormak/Parameter.h>
#include <models/ParameterFilter.h>
#include <models/ParameterModel.h>

#include <QHash>
#include <QLocale>
#include <QString>
#include <QVector>

#include <optional>
#include <vector>

namespace KORMAK {

namespace Widgets {

/// What was typed for a parameter and is not taken: it is no value, or was refused.
struct Draft {
    QString text;
    QString problem;
    QString path; ///< of the value
    ParameterType type = ParameterType::Invalid; ///< of the parameter as it was typed
};

class PanelRows : public ParameterFilter {
public:
    // The columns of the model that stand for those of the panel.
    static constexpr int NameColumn = ParameterModel::UniqueNameColumn;
    static constexpr int ValueColumn = ParameterModel::ValueColumn;
    static constexpr int DefaultColumn = ParameterModel::DefaultColumn;
    static constexpr int LimitsColumn = ParameterModel::MinimumColumn;

    PanelRows(ParameterModel &model, OpenDocument &receiver, QObject *parent);

    [[nodiscard]] const Parameter *parameter(const QModelIndex &index) const;
    [[nodiscard]] QString uniqueName(const QModelIndex &index) const;
    /// Whether its value can be edited.
    [[nodiscard]] bool isEditable(const QModelIndex &index) const;
    /// Whether a group begins with the row.
    [[nodiscard]] bool isFirstOfGroup(int row) const;
    [[nodiscard]] QString groupOf(int row) const;
    /// What is wrong with the value, for people; empty when nothing is.
    [[nodiscard]] QString problemOf(const QModelIndex &index) const;

    [[nodiscard]] const QHash<QString, Draft> &drafts() const { return typed; }
    [[nodiscard]] Draft draft(const QModelIndex &index) const { return typed.value(uniqueName(index)); }
    [[nodiscard]] bool hasDraft(const QModelIndex &index) const { return typed.contains(uniqueName(index)); }
    void setDraft(const QModelIndex &index, const Draft &draft);
    /// As setDraft(), of a row that is going away.
    void keepDraft(const QString &uniqueName, const Draft &draft) { typed.insert(uniqueName, draft); }
    void removeDraft(const QModelIndex &index);
    void clearDrafts();
    /// Forgets the drafts of parameters that can be set no longer. \return them, with the problem that they
    /// are lost
    [[nodiscard]] QVector<Draft> takeLostDrafts();

    /// Sets the value. \return why it is refused; empty when it is not
    [[nodiscard]] QString setValue(const QModelIndex &index, const QVariant &value);
    /// The parameter that is being edited, whose row stays whatever is looked for; empty for none.
    void setEdited(const QString &uniqueName);

    void setLocale(const QLocale &locale);
    [[nodiscard]] const QLocale &locale() const { return language; }

    [[nodiscard]] QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

protected:
    [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex &parent) const override;
    [[nodiscard]] bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;

private:
    /// The groups of the rows of the model, and their order.
    struct Groups {
        std::vector<QString> names;
        std::vector<int> ranks;
    };

    [[nodiscard]] const Groups &groups() const;
    [[nodiscard]] QString text(const QModelIndex &index) const;
    [[nodiscard]] QString toolTip(const QModelIndex &index) const;

    /// Lets the rows go that stay no longer.
    void filterLater(const QStringList &uniqueNames);

    const ParameterModel &parameters;
    OpenDocument &document;
    QLocale language;
    QHash<QString, Draft> typed;
    QString edited;
    mutable std::optional<Groups> known; // until the rows change: sorting asks often
};

} // namespace Widgets

} // namespace KORMAK

#endif
