// Shows the parameters of a receiver, to be set and saved: panel FILE [--save FILE], which saves at once and
// ends.

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

#include <cstdlib>
#include <iostream>

namespace {

/// What is still open in the panel is taken; bytes that were not changed are saved as they were.
/// \return why it is not saved; empty when it is
QString save(KORMAK::OpenDocument &receiver, const QString &path)
{
    for (const KORMAK::Finding &refused : receiver.TakeOpenEdits())
        return refused.GetPath() + QStringLiteral(": ") + refused.GetMessage();
    const QByteArray text = receiver.GetText();
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.commit())
        return file.errorString();
    receiver.SetUnmodified();
    return {};
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QStringList words = QApplication::arguments();
    QFile file(words.value(1));
    if (words.size() < 2 || !file.open(QIODevice::ReadOnly)) {
        std::cerr << "Usage: panel FILE [--save FILE], as in receiver.xml\n";
        return EXIT_FAILURE;
    }
    KORMAK::OpenDocument receiver;
    receiver.SetText(file.readAll());
    QUndoStack changes;
    KORMAK::ConnectUndo(changes, receiver);

    QMainWindow window;
    window.setCentralWidget(new KORMAK::ReceiverPanel(receiver));
    window.setWindowTitle(words.at(1) + QStringLiteral("[*]"));
    QObject::connect(&receiver, &KORMAK::OpenDocument::ModifiedChanged, &window, &QWidget::setWindowModified);
    QMenu &menu = *window.menuBar()->addMenu(QStringLiteral("&Receiver"));
    QAction &saving = *menu.addAction(QStringLiteral("&Save"));
    saving.setShortcut(QKeySequence::Save);
    QObject::connect(&saving, &QAction::triggered, &window, [&] {
        const QString problem = save(receiver, words.at(1));
        window.statusBar()->showMessage(problem.isEmpty() ? QStringLiteral("Saved") : problem);
    });
    menu.addAction(changes.createUndoAction(&menu));
    menu.addAction(changes.createRedoAction(&menu));
    menu.actions().at(1)->setShortcut(QKeySequence::Undo);
    menu.actions().at(2)->setShortcut(QKeySequence::Redo);
    constexpr QSize Size(900, 640);
    window.resize(Size);
    window.show();
    if (words.value(2) != QStringLiteral("--save"))
        return QApplication::exec();
    const QString problem = save(receiver, words.value(3));
    std::cerr << problem.toStdString();
    return problem.isEmpty() ? EXIT_SUCCESS : EXIT_FAILURE;
}
