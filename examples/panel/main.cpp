// Shows the parameters of a receiver, to be set and saved: panel FILE. With the name of a copy, panel FILE
// COPY, it saves that and ends.
#include <models/OpenDocument.h>
#include <widgets/ReceiverPanel.h>
#include <widgets/Undo.h>

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QSaveFile>
#include <QStatusBar>
#include <QUndoStack>

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QString path = QApplication::arguments().value(1);
    const QString copy = QApplication::arguments().value(2);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qCritical("Usage: panel FILE [COPY], as in receiver.xml");
        return 1;
    }
    KORMAK::OpenDocument receiver;
    receiver.SetText(file.readAll());

    QMainWindow window;
    window.setWindowTitle(path + QStringLiteral("[*]"));
    window.setCentralWidget(new KORMAK::ReceiverPanel(receiver));
    QObject::connect(&receiver, &KORMAK::OpenDocument::ModifiedChanged, &window, &QWidget::setWindowModified);
    const auto save = [&](const QString &to) {
        QSaveFile saved(to);
        const bool isTaken = receiver.TakeOpenEdits().isEmpty(); // else it is marked in the panel
        const bool isSaved = isTaken && saved.open(QIODevice::WriteOnly)
            && saved.write(receiver.GetText()) >= 0 && saved.commit();
        if (isSaved)
            receiver.SetUnmodified();
        window.statusBar()->showMessage(isSaved       ? QStringLiteral("Saved")
                                            : isTaken ? saved.errorString()
                                                      : QStringLiteral("What was typed is no value"));
        return isSaved;
    };
    QUndoStack changes;
    KORMAK::ConnectUndo(changes, receiver);
    QMenu &menu = *window.menuBar()->addMenu(QStringLiteral("&Receiver"));
    menu.addAction(QStringLiteral("&Save"), &window, [&] { save(path); })->setShortcut(QKeySequence::Save);
    menu.addAction(changes.createUndoAction(&menu));
    menu.addAction(changes.createRedoAction(&menu));
    menu.actions().at(1)->setShortcut(QKeySequence::Undo);
    menu.actions().at(2)->setShortcut(QKeySequence::Redo);
    window.show();
    return copy.isEmpty() ? QApplication::exec() : save(copy) ? 0 : 1;
}
