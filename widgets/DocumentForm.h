#ifndef KORMAK_WIDGETS_DOCUMENTFORM_H
#define KORMAK_WIDGETS_DOCUMENTFORM_H

#include <widgets/widgets_export.h>

#include <QString>
#include <QWidget>

#include <memory>

namespace KORMAK {

class OpenDocument;

/// A form with all fields of a document that can be set, under headings by what they belong to.
///
/// \snippet docs/FormSnippetsTest.cpp DocumentForm
///
/// It follows the document: each field has the control that its type asks for, with its unit, what it may be
/// set to in its tool tip, an asterisk where no document is complete without it, and below it what findings
/// say of it. An area has its map, see AreaView. Elements of lists can be added and removed; of long lists,
/// more are shown on demand.
///
/// A value is taken when its control is left or on Enter, one change of the document each, also when findings
/// come of it; Escape brings the former value back. What cannot be read or is refused stays as it was typed,
/// with the reason below it. Who empties a line, chooses "not set" or the middle state of a check box takes
/// the field out of the document: what it counts as then stands there. What the document says and the library
/// does not understand stays to be seen. Changes from elsewhere appear at once, but do not touch what is
/// being typed. The wheel changes nothing that does not have the focus.
class WIDGETS_EXPORT DocumentForm : public QWidget {
    Q_OBJECT

public:
    /// Empty until there is a document.
    explicit DocumentForm(QWidget *parent = nullptr);
    ~DocumentForm() override;

    /// Shows and changes \a document, which may be null and may end before this.
    void SetDocument(OpenDocument *document);
    /// Null without one.
    [[nodiscard]] OpenDocument *GetDocument() const;

    /// Scrolls to the field called \a path, as Field::GetPath() or Finding::GetFieldPath() calls it, and
    /// gives it the focus; to what it would belong to when it is not there. \return false when there is
    /// nothing of the kind
    bool ShowField(const QString &path);
    /// The field that has the focus; empty for none.
    [[nodiscard]] QString GetCurrentField() const;
    /// The control of the field called \a path, or the map of the area called so; null when there is none.
    [[nodiscard]] QWidget *GetControl(const QString &path) const;
    /// What stands below the field called \a path: why what was typed is not taken, and what findings say; a
    /// line each, empty for nothing.
    [[nodiscard]] QString GetNotes(const QString &path) const;

    /// \cond
    [[nodiscard]] QSize sizeHint() const override;
    /// \endcond

Q_SIGNALS:
    /// GetCurrentField() is now \a path.
    void CurrentFieldChanged(const QString &path);

protected:
    /// \cond
    void changeEvent(QEvent *event) override;
    /// \endcond

private:
    struct Private;

    const std::unique_ptr<Private> d;
};

} // namespace KORMAK

#endif
