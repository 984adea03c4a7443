#include "widgets/Undo.h"

#include <models/OpenDocument.h>

#include <QCryptographicHash>
#include <QPointer>
#include <QUndoCommand>
#include <QUndoStack>

#include <algorithm>
#include <memory>
#include <utility>

namespace KORMAK {

namespace {

using Size = decltype(QByteArray().size());

QByteArray hashOf(const QByteArray &text)
{
    return QCryptographicHash::hash(text, QCryptographicHash::Sha1);
}

/// What leads from one text to another and back, without holding either: documents can be large.
class Step {
public:
    Step(const QByteArray &before, const QByteArray &after)
        : hashBefore(hashOf(before)), hashAfter(hashOf(after))
    {
        const auto begins = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
        offset = static_cast<Size>(begins.first - before.begin());
        const Size mostCommon = std::min(before.size(), after.size()) - offset;
        const auto ends = std::mismatch(before.rbegin(), before.rbegin() + mostCommon, after.rbegin());
        const auto common = static_cast<Size>(ends.first - before.rbegin());
        removed = before.mid(offset, before.size() - common - offset);
        inserted = after.mid(offset, after.size() - common - offset);
    }

    [[nodiscard]] bool isNothing() const { return removed == inserted; }
    [[nodiscard]] bool leadsFrom(const QByteArray &text) const { return hashOf(text) == hashBefore; }
    [[nodiscard]] bool leadsTo(const QByteArray &text) const { return hashOf(text) == hashAfter; }
    [[nodiscard]] bool continues(const Step &former) const { return hashBefore == former.hashAfter; }

    [[nodiscard]] QByteArray before(QByteArray after) const
    {
        return after.replace(offset, inserted.size(), removed);
    }
    [[nodiscard]] QByteArray after(QByteArray before) const
    {
        return before.replace(offset, removed.size(), inserted);
    }

private:
    QByteArray hashBefore;
    QByteArray hashAfter;
    Size offset = 0;
    QByteArray removed;
    QByteArray inserted;
};

class UndoCommand : public QUndoCommand {
public:
    /// Whether it may become a part of the command before it.
    enum class Merging { Allowed, Refused };

    UndoCommand(OpenDocument &changed, QStringList changedPaths, Step made, Merging isMerged)
        : document(&changed), paths(std::move(changedPaths)), step(std::move(made)), merging(isMerged)
    {
        setText(paths.size() == 1 ? QStringLiteral("Change %1").arg(paths.constFirst())
                                  : QStringLiteral("Change %1 fields").arg(paths.size()));
    }

    void undo() override
    {
        if (!document || !step.leadsTo(document->GetText()))
            setObsolete(true);
        else
            document->Restore(step.before(document->GetText()));
    }

    void redo() override
    {
        if (std::exchange(isTaken, false))
            return;
        if (!document || !step.leadsFrom(document->GetText()))
            setObsolete(true);
        else
            document->Restore(step.after(document->GetText()));
    }

    [[nodiscard]] int id() const override { return 1; }

    bool mergeWith(const QUndoCommand *other) override
    {
        const auto *const next = dynamic_cast<const UndoCommand *>(other);
        if (!next || next->merging == Merging::Refused || paths.size() != 1 || paths != next->paths
            || !document || document != next->document || !next->step.continues(step))
            return false;
        const QByteArray after = document->GetText();
        step = Step(step.before(next->step.before(after)), after);
        setObsolete(step.isNothing());
        return true;
    }

private:
    QPointer<OpenDocument> document;
    QStringList paths;
    Step step;
    Merging merging;
    bool isTaken = true; ///< by the stack, which then calls redo() for what has been done
};

/// What the other signals have told of the change whose texts are told last.
struct ChangeTold {
    QStringList paths;
    UndoCommand::Merging merging = UndoCommand::Merging::Allowed;
};

} // namespace

void ConnectUndo(QUndoStack &stack, OpenDocument &document)
{
    const auto told = std::make_shared<ChangeTold>();
    QObject::connect(&document, &OpenDocument::ModifiedChanged, &stack,
                     [told] { told->merging = UndoCommand::Merging::Refused; });
    QObject::connect(&document, &OpenDocument::Changed, &stack,
                     [told](const QStringList &paths) { told->paths = paths; });
    QObject::connect(&document, &OpenDocument::TextChanged, &stack,
                     [told, &stack, &document](const QByteArray &before, const QByteArray &after) {
                         stack.push(
                             new UndoCommand(document, told->paths, Step(before, after), told->merging));
                         told->merging = UndoCommand::Merging::Allowed;
                     });
    QObject::connect(&document, &OpenDocument::Replaced, &stack, [&stack] { stack.clear(); });
}

} // namespace KORMAK
