#ifndef KORMAK_WIDGETS_FINDINGSVIEW_H
#define KORMAK_WIDGETS_FINDINGSVIEW_H

#include <widgets/widgets_export.h>

#include <QString>
#include <QWidget>

#include <memory>

namespace KORMAK {

class OpenDocument;

/// The findings of a document, a row of each: how much it matters, what it says and where. When there are
/// none, it says so.
///
/// \snippet docs/FormSnippetsTest.cpp FindingsView
///
/// It follows the document, and the row that is chosen stays chosen while its finding is there. Ctrl+C copies
/// the rows that are chosen as lines of text.
class WIDGETS_EXPORT FindingsView : public QWidget {
    Q_OBJECT

public:
    /// Of no document yet.
    explicit FindingsView(QWidget *parent = nullptr);
    ~FindingsView() override;

    /// Shows the findings of \a document, which may be null and may end before this.
    void SetDocument(OpenDocument *document);
    /// Null without one.
    [[nodiscard]] OpenDocument *GetDocument() const;

    /// How many findings there are.
    [[nodiscard]] int GetCount() const;
    /// What stands in the place of rows when there are none; empty when there are.
    [[nodiscard]] QString GetEmptyText() const;

    /// \cond
    [[nodiscard]] QSize sizeHint() const override;
    /// \endcond

Q_SIGNALS:
    /// A finding was clicked, or chosen with Enter: \a path is that of the very field or object that it is
    /// about, places in lists included, as DocumentForm::ShowField() takes it; empty when it is about the
    /// document as a whole.
    void FieldActivated(const QString &path);

private:
    struct Private;

    const std::unique_ptr<Private> d;
};

} // namespace KORMAK

#endif
