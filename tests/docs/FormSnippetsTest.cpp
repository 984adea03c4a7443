// What the pages of the classes in widgets/ show that edit whole documents: each snippet bears the name of
// its class.

#include <models/OpenDocument.h>
#include <tests/support/Files.h>
#include <widgets/AreaView.h>
#include <widgets/DocumentForm.h>
#include <widgets/FindingsView.h>

#include <QtTest>

class FormSnippetsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void areaView();
    void documentForm();
    void findingsView();
};

void FormSnippetsTest::areaView()
{
    const QByteArray text =
        TestSupport::bytesOf(QString(EXAMPLES_DIR) + "/settings/automatic-workflow-with-area.xml");
    //! [AreaView]
    KORMAK::OpenDocument document;
    document.SetText(text);
    KORMAK::AreaView map;
    map.SetDocument(&document, QStringLiteral("Area"));
    map.SetSelectedPoint(2);
    map.show();
    //! [AreaView]
    QVERIFY2(map.GetCaption().startsWith("Point 3 of 3: latitude 54.9"), qPrintable(map.GetCaption()));
}

void FormSnippetsTest::documentForm()
{
    const QByteArray text = TestSupport::bytesOf(QString(EXAMPLES_DIR) + "/jobs/surveillance-mc-hf.xml");
    //! [DocumentForm]
    KORMAK::OpenDocument document;
    document.SetText(text);
    KORMAK::DocumentForm form;
    form.SetDocument(&document);
    form.show();
    form.ShowField(QStringLiteral("AntennaData.Azimuth"));
    // ... and before the text is saved:
    if (document.TakeOpenEdits().isEmpty())
        form.setWindowTitle(document.GetDocument().GetState());
    //! [DocumentForm]
    QVERIFY(form.GetControl("AntennaData.Azimuth"));
    QCOMPARE(form.windowTitle(), "Job, complete");
}

void FormSnippetsTest::findingsView()
{
    const QByteArray text = TestSupport::bytesOf(QString(EXAMPLES_DIR) + "/faulty/missing-author.xml");
    KORMAK::OpenDocument document;
    document.SetText(text);
    KORMAK::DocumentForm form;
    form.SetDocument(&document);
    //! [FindingsView]
    KORMAK::FindingsView findings;
    findings.SetDocument(&document);
    QObject::connect(&findings, &KORMAK::FindingsView::FieldActivated, &form,
                     &KORMAK::DocumentForm::ShowField);
    findings.show();
    //! [FindingsView]
    QCOMPARE(findings.GetCount(), 1);
}

QTEST_MAIN(FormSnippetsTest)

#include "FormSnippetsTest.moc"
