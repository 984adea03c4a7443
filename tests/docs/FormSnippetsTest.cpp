// What the pages of the classes in widgets/ show that edit whole documents: each snippet bears the name of
// its class.

#include <models/OpenDocument.h>
#include <tests/support/Files.h>
#include <widgets/AreaView.h>

#include <QtTest>

class FormSnippetsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void areaView();
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

QTEST_MAIN(FormSnippetsTest)

#include "FormSnippetsTest.moc"
