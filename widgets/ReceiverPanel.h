#ifndef KORMAK_WIDGETS_RECEIVERPANEL_H
#define KORMAK_WIDGETS_RECEIVERPANEL_H

#include <models/ParameterFilter.h>
#include <widgets/widgets_export.h>

#include <QString>
#include <QWidget>

#include <memory>

namespace KORMAK {

class OpenDocument;
class ParameterModel;

/// All parameters of a receiver, to be looked for and set.
///
/// \snippet docs/WidgetsSnippetsTest.cpp ReceiverPanel
///
/// They stand in groups, each with the control that it asks for (ParameterControl). What differs from its
/// default is marked, and the default can be brought back, of one parameter or of all. Disabled parameters
/// are there, but cannot be set; so are lists, whose values documents do not hold. What is wrong with a
/// value stands as a mark in its row, and in the tool tip. What is typed and is no value stays where it was
/// typed until it is put right or Escape is pressed, and so does what is refused;
/// OpenDocument::TakeOpenEdits() tells of it. The row stays meanwhile, whatever is looked for. What was typed
/// for a parameter that is disabled or goes away is dropped, which OpenDocument::Refused() tells.
///
/// Tab goes from one value to the next, F2 or typing begins to edit, Ctrl+F goes to the search.
class WIDGETS_EXPORT ReceiverPanel : public QWidget {
    Q_OBJECT

public:
    /// The parameters of \a receiver, which must outlive the panel.
    explicit ReceiverPanel(OpenDocument &receiver, QWidget *parent = nullptr);
    ~ReceiverPanel() override;

    /// The parameters, to which an application may give groups and defaults of its own.
    [[nodiscard]] ParameterModel &GetModel() noexcept;

    /// The words that are looked for, as ParameterFilter::GetSearch().
    [[nodiscard]] QString GetSearch() const;
    void SetSearch(const QString &words);

    /// Whether all parameters are shown or those that differ from their defaults.
    [[nodiscard]] ParameterFilter::Show GetShow() const;
    void SetShow(ParameterFilter::Show show);

    /// The unique name of the parameter that is the current one; empty when there is none.
    [[nodiscard]] QString GetCurrentParameter() const;
    /// Goes to the parameter called \a uniqueName; what hides it is no longer looked for.
    /// \return false when there is no such parameter
    bool ShowParameter(const QString &uniqueName);

    /// Gives all parameters their defaults that differ from them.
    void RestoreDefaults();

Q_SIGNALS:
    /// Another parameter is the current one.
    void CurrentParameterChanged(const QString &uniqueName);

protected:
    /// \cond
    void changeEvent(QEvent *event) override;
    /// \endcond

private:
    struct Private;

    WIDGETS_NO_EXPORT void updateRows();
    WIDGETS_NO_EXPORT void updateRowsLater();
    WIDGETS_NO_EXPORT void updateCounts();
    WIDGETS_NO_EXPORT void takeOpenEdits();
    WIDGETS_NO_EXPORT void takeDraft(const QString &name, bool isTold);
    WIDGETS_NO_EXPORT void keepTyped(const QModelIndex &parent, int first, int last);
    WIDGETS_NO_EXPORT void dropLost();
    WIDGETS_NO_EXPORT void clicked(const QModelIndex &index);
    WIDGETS_NO_EXPORT void showMenu(const QPoint &position);

    std::unique_ptr<Private> d;
};

} // namespace KORMAK

#endif
