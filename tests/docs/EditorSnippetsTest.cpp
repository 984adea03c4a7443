// What the page on the widgets shows of programs that edit documents: each snippet is run here.

#include <models/OpenDocument.h>
#include <models/ParameterModel.h>
#include <tests/support/ShownDocument.h>
#include <widgets/AreaView.h>
#include <widgets/Binding.h>
#include <widgets/DocumentForm.h>
#include <widgets/FindingsView.h>
#include <widgets/FrequencyEdit.h>
#include <widgets/ReceiverPanel.h>
#include <widgets/Undo.h>

#include <QCheckBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QMenu>
#include <QSaveFile>
#include <QSplitter>
#include <QTemporaryDir>
#include <QtTest>
#include <QUndoStack>

namespace {

//! [save]
/// \return why it is not saved; empty when it is
QString save(KORMAK::OpenDocument &document, const QString &path)
{
    const QVector<KORMAK::Finding> refused = document.TakeOpenEdits();
    if (!refused.isEmpty()) // the controls are still marked
        return refused.first().GetPath() + QStringLiteral(": ") + refused.first().GetMessage();
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(document.GetText()) < 0 || !file.commit())
        return file.errorString();
    document.SetUnmodified();
    return {};
}
//! [save]

} // namespace

class EditorSnippetsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void panel();
    void form();
    void map();
    void bound();
    void saving();
    void undo();
};

void EditorSnippetsTest::panel()
{
    const QByteArray text = TestSupport::example("receivers/vuhf-direction-finder");
    //! [panel]
    KORMAK::OpenDocument receiver;
    receiver.SetText(text); // the bytes of the file
    KORMAK::ReceiverPanel panel(receiver);
    panel.show();
    //! [panel]
    QVERIFY(panel.GetModel().rowCount() > 0);
}

void EditorSnippetsTest::form()
{
    const QByteArray text = TestSupport::faultyJob();
    //! [form]
    KORMAK::OpenDocument job;
    job.SetText(text);
    KORMAK::DocumentForm form;
    form.SetDocument(&job);
    KORMAK::FindingsView findings;
    findings.SetDocument(&job);
    QObject::connect(&findings, &KORMAK::FindingsView::FieldActivated, &form,
                     &KORMAK::DocumentForm::ShowField);
    //! [form]
    QVERIFY(findings.GetCount() > 0);
    Q_EMIT findings.FieldActivated("JobHeader.Author");
    QCOMPARE(form.GetNotes("JobHeader.Author"), "missing");
}

void EditorSnippetsTest::map()
{
    const QByteArray text = TestSupport::example("settings/automatic-workflow-with-area");
    //! [map]
    KORMAK::OpenDocument workflow;
    workflow.SetText(text);
    KORMAK::AreaView map;
    map.SetDocument(&workflow);
    //! [map]
    map.SetSelectedPoint(0);
    QCOMPARE(map.GetSelectedPoint(), 0);
}

void EditorSnippetsTest::bound()
{
    KORMAK::OpenDocument receiver;
    receiver.SetText("<GenericReceiver Version='1.0'><Parameter UniqueName='Frequency'><ValueType>"
                     "ValueNumericDouble</ValueType><DisplaySuffix>Hz</DisplaySuffix><ParameterType>Double"
                     "</ParameterType><Double><Default>100</Default></Double></Parameter></GenericReceiver>");
    //! [bound]
    QWidget dialog;
    auto *const layout = new QFormLayout(&dialog);
    auto *const frequency = new KORMAK::FrequencyEdit;
    frequency->setObjectName(QStringLiteral("kormak_Frequency"));
    layout->addRow(QStringLiteral("Frequency"), frequency);
    const QStringList problems = KORMAK::Bind(dialog, receiver); // controls without a parameter, for example
    //! [bound]
    QCOMPARE(problems, QStringList());
    frequency->setText("145 MHz");
    QVERIFY(frequency->Take());
    QCOMPARE(receiver.GetDocument().GetField("Parameter[Frequency].Double.Default").GetText(), "145000000");
}

void EditorSnippetsTest::saving()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("job.xml");
    TestSupport::Shown<KORMAK::DocumentForm> shown(TestSupport::example("jobs/surveillance-mc-hf"),
                                                   {600, 600});
    auto *const azimuth = qobject_cast<QLineEdit *>(shown.widget.GetControl("AntennaData.Azimuth"));
    azimuth->setFocus();
    azimuth->selectAll();
    QTest::keyClicks(azimuth, "north");
    QVERIFY(save(shown.document, path).startsWith("AntennaData.Azimuth: "));
    QVERIFY(!QFile::exists(path));
    azimuth->selectAll();
    QTest::keyClicks(azimuth, "12");
    QCOMPARE(save(shown.document, path), QString());
    QVERIFY(!shown.document.IsModified());
    QVERIFY(TestSupport::bytesOf(path).contains("<Azimuth>12<"));
    QVERIFY(!save(shown.document, folder.filePath("nowhere/job.xml")).isEmpty());
}

void EditorSnippetsTest::undo()
{
    using Change = KORMAK::DocumentEdit::Change;
    const QByteArray text = TestSupport::example("jobs/surveillance-mc-hf");
    KORMAK::OpenDocument job;
    job.SetText(text);
    QMenu menu;
    //! [undo]
    QUndoStack changes;
    KORMAK::ConnectUndo(changes, job);
    menu.addAction(changes.createUndoAction(&menu));
    menu.addAction(changes.createRedoAction(&menu));
    //! [undo]
    QVERIFY(job.Change({{Change::Action::Set, "JobHeader.Author", "L. Brandt"}}).isEmpty());
    QCOMPARE(menu.actions().first()->text(), "Undo Change JobHeader.Author");
    menu.actions().first()->trigger();
    QCOMPARE(job.GetText(), text);
}

QTEST_MAIN(EditorSnippetsTest)

#include "EditorSnippetsTest.moc"
