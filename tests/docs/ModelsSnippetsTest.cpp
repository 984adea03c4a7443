// What the pages of the classes in models/ show: each snippet bears the name of its class.

#include <models/OpenDocument.h>
#include <tests/support/Files.h>

#include <QtTest>

namespace {

QByteArray textOfJob()
{
    return TestSupport::bytesOf(QString(EXAMPLES_DIR) + "/jobs/antenna.xml");
}

} // namespace

class ModelsSnippetsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void openDocument();
};

void ModelsSnippetsTest::openDocument()
{
    using Change = KORMAK::DocumentEdit::Change;
    const QByteArray text = textOfJob();
    QStringList changed;
    //! [OpenDocument]
    KORMAK::OpenDocument document;
    QObject::connect(&document, &KORMAK::OpenDocument::Changed,
                     [&changed](const QStringList &paths) { changed += paths; });
    document.SetText(text);
    const QVector<KORMAK::Finding> refused =
        document.Change({{Change::Action::Set, "JobHeader.Author", "M. Keller"}});
    QVERIFY(refused.isEmpty());
    QCOMPARE(changed, QStringList{"JobHeader.Author"});
    QVERIFY(document.IsModified());
    document.Restore(text); // which undoes it
    //! [OpenDocument]
    QVERIFY(!document.IsModified());
}

QTEST_GUILESS_MAIN(ModelsSnippetsTest)

#include "ModelsSnippetsTest.moc"
