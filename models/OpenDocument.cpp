#include "models/OpenDocument.h"

#include <utility>

namespace KORMAK {

struct OpenDocument::Private {
    QByteArray text = {};
    QByteArray unmodifiedText = {};
    TESSEL::ReadingLimits limits = {};
    Document document = {};
    bool isModified = false; ///< as it was told
    QVector<Finding> *refusals = nullptr; ///< of a TakeOpenEdits() that is going on
};

OpenDocument::OpenDocument(QObject *parent) : QObject(parent), d(std::make_unique<Private>())
{
    // QML and queued connections of Qt 5 look it up by this name.
    qRegisterMetaType<QVector<Finding>>("QVector<KORMAK::Finding>");
}

OpenDocument::~OpenDocument() = default;

void OpenDocument::SetText(const QByteArray &text, const TESSEL::ReadingLimits &limits)
{
    d->document = Document(text, limits);
    d->text = text;
    d->limits = limits;
    d->unmodifiedText = text;
    const bool wasModified = std::exchange(d->isModified, false);
    if (wasModified)
        Q_EMIT ModifiedChanged(false);
    Q_EMIT Replaced();
}

QByteArray OpenDocument::GetText() const
{
    return d->text;
}

const Document &OpenDocument::GetDocument() const noexcept
{
    return d->document;
}

bool OpenDocument::IsModified() const
{
    return d->isModified;
}

void OpenDocument::SetUnmodified()
{
    d->unmodifiedText = d->text;
    if (std::exchange(d->isModified, false))
        Q_EMIT ModifiedChanged(false);
}

QVector<Finding> OpenDocument::Change(const QVector<DocumentEdit::Change> &changes,
                                      DocumentEdit::NewFindings newFindings)
{
    const DocumentEdit edit(d->text, changes, newFindings, d->limits);
    if (!edit.IsDone()) {
        refuse(edit.GetFindings());
        return edit.GetFindings();
    }
    const QByteArray before = d->text;
    const QByteArray after = edit.GetText();
    if (after != before) {
        take(after, Document(after, d->limits));
        Q_EMIT TextChanged(before, after);
    }
    return {};
}

void OpenDocument::Restore(const QByteArray &text)
{
    if (text != d->text)
        take(text, Document(text, d->limits));
}

void OpenDocument::take(const QByteArray &text, Document document)
{
    const Document former = std::exchange(d->document, std::move(document));
    d->text = text;
    const bool isModified = text != d->unmodifiedText;
    if (std::exchange(d->isModified, isModified) != isModified)
        Q_EMIT ModifiedChanged(isModified);
    if (!former.GetObject() || !d->document.GetObject() || former.GetKind() != d->document.GetKind()) {
        Q_EMIT Replaced();
        return;
    }
    QStringList paths;
    const QVector<Difference> differences = Document::Compare(former, d->document);
    for (const Difference &difference : differences)
        paths += difference.GetPath();
    Q_EMIT Changed(paths);
}

QVector<Finding> OpenDocument::TakeOpenEdits()
{
    QVector<Finding> refusals;
    QVector<Finding> *const outer = std::exchange(d->refusals, &refusals);
    Q_EMIT OpenEditsWanted();
    d->refusals = outer;
    return refusals;
}

void OpenDocument::Refuse(const QString &path, const QString &message)
{
    refuse({Finding::NotEdited(path, message)});
}

void OpenDocument::refuse(const QVector<Finding> &findings)
{
    if (d->refusals)
        *d->refusals += findings;
    Q_EMIT Refused(findings);
}

} // namespace KORMAK
