#ifndef KORMAK_MODELS_OPENDOCUMENT_H
#define KORMAK_MODELS_OPENDOCUMENT_H

#include <inspection/Document.h>
#include <inspection/DocumentEdit.h>
#include <inspection/Finding.h>
#include <models/models_export.h>
#include <objectbase/ReadingLimits.h>

#include <QByteArray>
#include <QMetaType>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>

namespace KORMAK {

/// A document that is open for editing: its text, what it says, and the changes that are made to it.
///
/// \snippet docs/ModelsSnippetsTest.cpp OpenDocument
///
/// What a change does not concern stays byte for byte, as DocumentEdit promises. Several views and editors
/// can share one: each makes its changes here, and hears of those of the others. It belongs to one thread, as
/// every QObject.
///
/// Signals are sent when everything has its new state, in the order ModifiedChanged(), Changed(),
/// TextChanged(). A slot must not change the document again; who wants to do so does it later.
class MODELS_EXPORT OpenDocument : public QObject {
    Q_OBJECT
    /// IsModified()
    Q_PROPERTY(bool modified READ IsModified NOTIFY ModifiedChanged)

public:
    /// No document: its text is empty, it has no kind and no findings.
    explicit OpenDocument(QObject *parent = nullptr);
    ~OpenDocument() override;

    /// Another document, which is not modified. Whatever \a text is, it is held; what is wrong with it,
    /// GetDocument() tells. Edits that are open are dropped. \a limits hold for all that is read from now on.
    void SetText(const QByteArray &text, const TESSEL::ReadingLimits &limits = {});
    /// The text as it stands. Edits that are open in editors are not in it, see TakeOpenEdits().
    [[nodiscard]] QByteArray GetText() const;
    /// What the text says. The reference is valid as long as this object, and shows each change.
    [[nodiscard]] const Document &GetDocument() const noexcept;

    /// Whether the text is another one than it was at SetText() or at the last SetUnmodified().
    [[nodiscard]] bool IsModified() const;
    /// The text is saved as it stands.
    void SetUnmodified();

    /// Makes \a changes in one step, all of them or none.
    /// \return empty when they are made, or nothing was to be changed; else why they are not, as
    /// DocumentEdit::GetFindings()
    QVector<Finding> Change(const QVector<DocumentEdit::Change> &changes,
                            DocumentEdit::NewFindings newFindings = DocumentEdit::NewFindings::Refused);
    /// Takes \a text, another state of the same document, for undo. A text of another kind, or one that is
    /// not read to its end, counts as another document, but the document is then modified.
    void Restore(const QByteArray &text);

    /// Lets editors take what people have typed and not yet finished, as one does before saving: they make
    /// their changes now, while OpenEditsWanted() is sent.
    /// \return everything that was refused meanwhile by Change() or Refuse(); empty: all of it is taken
    QVector<Finding> TakeOpenEdits();
    /// An editor cannot make a value of the field called \a path of what people have typed: Refused() tells
    /// it, and so does TakeOpenEdits() when that is going on.
    void Refuse(const QString &path, const QString &message);

Q_SIGNALS:
    /// It is another document.
    void Replaced();
    /// The text has changed. \a paths are those of the fields, parameters and elements of lists that say
    /// something else now, came or went, as Difference::GetPath(); they may be none.
    void Changed(const QStringList &paths);
    /// Change() has made \a after of \a before, which undo is to give back. Restore() does not send it.
    void TextChanged(const QByteArray &before, const QByteArray &after);
    /// A change was not made.
    void Refused(const QVector<KORMAK::Finding> &findings);
    /// IsModified() is now \a modified.
    void ModifiedChanged(bool modified);
    /// Editors that hold an edit which is not taken yet are to take it now, by Change(), or to Refuse() it.
    void OpenEditsWanted();

private:
    struct Private;

    MODELS_NO_EXPORT void take(const QByteArray &text, Document document);
    MODELS_NO_EXPORT void refuse(const QVector<Finding> &findings);

    const std::unique_ptr<Private> d;
};

} // namespace KORMAK

Q_DECLARE_METATYPE(KORMAK::Finding)

#endif
