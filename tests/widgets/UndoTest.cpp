#include <models/OpenDocument.h>
#include <tests/support/Files.h>
#include <widgets/Undo.h>

#include <QtTest>
#include <QUndoStack>

#include <memory>

using KORMAK::ConnectUndo;
using KORMAK::OpenDocument;
using Change = KORMAK::DocumentEdit::Change;
using Action = Change::Action;

namespace {

QByteArray jobText()
{
    return TestSupport::bytesOf(QString(EXAMPLES_DIR) + "/jobs/antenna.xml");
}

/// A job that is open, with a stack for its changes.
struct Editing {
    Editing()
    {
        ConnectUndo(stack, document);
        document.SetText(jobText());
    }

    /// Sets a field; the text that comes of it.
    QByteArray set(const QString &path, const QString &text)
    {
        const auto refused = document.Change({{Action::Set, path, text}});
        if (!refused.isEmpty())
            qFatal("%s", qPrintable(refused.at(0).GetMessage()));
        return document.GetText();
    }

    OpenDocument document;
    QUndoStack stack;
};

} // namespace

class UndoTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void givesFormerBytesBack();
    void changesInOneStepAreOneCommand();
    void successiveChangesOfAFieldAreOneCommand();
    void changesOfOtherFieldsAreNot();
    void changesBeforeAndAfterSavingAreNot();
    void changesThereAndBackAreNone();
    void refusedChangesAreNoCommand();
    void anotherDocumentEmptiesTheStack();
    void whatNoLongerFitsIsDropped_data();
    void whatNoLongerFitsIsDropped();
    void outlivesTheDocument();
    void documentOutlivesTheStack();
};

void UndoTest::givesFormerBytesBack()
{
    Editing job;
    QList<QByteArray> states{jobText()};
    states += job.set("JobHeader.Author", "M. Keller");
    states += job.set("AntennaData.Azimuth", "10.5");
    job.document.Change({{Action::Unset, "JobHeader.Description", {}}});
    states += job.document.GetText();
    states += job.set("JobHeader.Author", QString::fromUtf8("Ø"));
    QCOMPARE(job.stack.count(), 4);
    for (int round = 0; round < 2; ++round) {
        for (int i = 4; i > 0; --i) {
            QCOMPARE(job.document.GetText(), states.at(i));
            job.stack.undo();
        }
        QCOMPARE(job.document.GetText(), jobText());
        QVERIFY(!job.document.IsModified());
        for (int i = 0; i < 4; ++i) {
            QCOMPARE(job.document.GetText(), states.at(i));
            job.stack.redo();
        }
    }
    QCOMPARE(job.document.GetText(), states.last());
    QCOMPARE(job.stack.count(), 4);
}

void UndoTest::changesInOneStepAreOneCommand()
{
    Editing job;
    job.document.Change(
        {{Action::Set, "JobHeader.Author", "M. Keller"}, {Action::Set, "AntennaData.Azimuth", "10.5"}});
    QCOMPARE(job.stack.count(), 1);
    QCOMPARE(job.stack.undoText(), QString("Change 2 fields"));
    job.stack.undo();
    QCOMPARE(job.document.GetText(), jobText());
}

void UndoTest::successiveChangesOfAFieldAreOneCommand()
{
    Editing job;
    job.set("JobHeader.Author", "M");
    job.set("JobHeader.Author", "M. K");
    const QByteArray last = job.set("JobHeader.Author", "M. Keller");
    QCOMPARE(job.stack.count(), 1);
    QCOMPARE(job.stack.undoText(), QString("Change JobHeader.Author"));
    job.stack.undo();
    QCOMPARE(job.document.GetText(), jobText());
    job.stack.redo();
    QCOMPARE(job.document.GetText(), last);
}

void UndoTest::changesOfOtherFieldsAreNot()
{
    Editing job;
    job.set("JobHeader.Author", "M. Keller");
    job.set("AntennaData.Azimuth", "10.5");
    job.set("JobHeader.Author", "A. Keller");
    QCOMPARE(job.stack.count(), 3);

    for (const char *author : {"C", "D"}) {
        job.document.Change(
            {{Action::Set, "JobHeader.Author", author}, {Action::Set, "AntennaData.Name", author}});
    }
    QCOMPARE(job.stack.count(), 5);
}

void UndoTest::changesBeforeAndAfterSavingAreNot()
{
    Editing job;
    const QByteArray saved = job.set("JobHeader.Author", "M. Keller");
    job.document.SetUnmodified();
    job.set("JobHeader.Author", "A. Keller");
    QCOMPARE(job.stack.count(), 2);
    job.stack.undo();
    QCOMPARE(job.document.GetText(), saved);
    QVERIFY(!job.document.IsModified());
    job.stack.undo();
    QCOMPARE(job.document.GetText(), jobText());
    QVERIFY(job.document.IsModified());
}

void UndoTest::changesThereAndBackAreNone()
{
    Editing job;
    job.set("AntennaData.Azimuth", "10.5");
    const QByteArray before = job.set("JobHeader.Author", "M");
    job.set("AntennaData.Name", "North");
    job.set("AntennaData.Name", "Log-periodic North");
    QCOMPARE(job.document.GetText(), before);
    QCOMPARE(job.stack.count(), 2);
    job.stack.undo();
    job.stack.undo();
    QCOMPARE(job.document.GetText(), jobText());
}

void UndoTest::refusedChangesAreNoCommand()
{
    Editing job;
    QVERIFY(!job.document.Change({{Action::Set, "AntennaData.Azimuth", "north"}}).isEmpty());
    QVERIFY(job.document.Change({{Action::Set, "JobHeader.Author", "L. Brandt"}}).isEmpty());
    QCOMPARE(job.stack.count(), 0);
}

void UndoTest::anotherDocumentEmptiesTheStack()
{
    Editing job;
    job.set("JobHeader.Author", "M. Keller");
    job.document.SetText(jobText());
    QCOMPARE(job.stack.count(), 0);
}

void UndoTest::whatNoLongerFitsIsDropped_data()
{
    QTest::addColumn<bool>("isUndone");

    QTest::newRow("undo") << false;
    QTest::newRow("redo") << true;
}

void UndoTest::whatNoLongerFitsIsDropped()
{
    QFETCH(bool, isUndone);

    Editing job;
    job.set("JobHeader.Author", "M. Keller");
    if (isUndone)
        job.stack.undo();
    const QByteArray other = jobText() + "<!-- checked -->";
    job.document.Restore(other);
    if (isUndone)
        job.stack.redo();
    else
        job.stack.undo();
    QCOMPARE(job.document.GetText(), other);
    QCOMPARE(job.stack.count(), 0);
}

void UndoTest::outlivesTheDocument()
{
    QUndoStack stack;
    {
        OpenDocument document;
        document.SetText(jobText());
        ConnectUndo(stack, document);
        document.Change({{Action::Set, "JobHeader.Author", "M. Keller"}});
        document.Change({{Action::Set, "AntennaData.Name", "North"}});
        stack.undo();
        QCOMPARE(stack.count(), 2);
    }
    stack.redo();
    stack.undo();
    QCOMPARE(stack.count(), 0);
}

void UndoTest::documentOutlivesTheStack()
{
    OpenDocument document;
    {
        QUndoStack stack;
        ConnectUndo(stack, document);
        document.SetText(jobText());
    }
    QVERIFY(document.Change({{Action::Set, "JobHeader.Author", "M. Keller"}}).isEmpty());
}

QTEST_GUILESS_MAIN(UndoTest)

#include "UndoTest.moc"
