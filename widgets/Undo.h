#ifndef KORMAK_WIDGETS_UNDO_H
#define KORMAK_WIDGETS_UNDO_H

#include <widgets/widgets_export.h>

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QUndoStack;
QT_END_NAMESPACE

namespace KORMAK {

class OpenDocument;

/// Makes a command on \a stack of every change of \a document: undoing it gives the former bytes back. The
/// commands are called after the field, "Change JobHeader.Author". Changes of one field that follow each
/// other are one command, unless the document was saved between them. Another document empties the stack.
///
/// What is undone is compared with what was done: where OpenDocument::Restore() has been called by others,
/// commands that no longer fit are dropped and change nothing. Both may be destroyed in any order.
WIDGETS_EXPORT void ConnectUndo(QUndoStack &stack, OpenDocument &document);

} // namespace KORMAK

#endif
