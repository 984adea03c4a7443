// What the pages of the classes in models/ show: each snippet bears the name of its class.

#include <models/FieldModel.h>
#include <models/FindingModel.h>
#include <models/OpenDocument.h>
#include <models/ParameterFilter.h>
#include <models/ParameterModel.h>
#include <tests/support/Files.h>

#include <QtTest>

namespace {

QByteArray textOfJob()
{
    return TestSupport::bytesOf(QString(EXAMPLES_DIR) + "/jobs/antenna.xml");
}

QByteArray textOfReceiver()
{
    return TestSupport::bytesOf(QString(EXAMPLES_DIR) + "/receivers/hf-receiver.xml");
}

} // namespace

class ModelsSnippetsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void fieldModel();
    void findingModel();
    void openDocument();
    void parameterFilter();
    void parameterModel();
    void save();
};

void ModelsSnippetsTest::fieldModel()
{
    KORMAK::OpenDocument document;
    document.SetText(textOfJob());
    //! [FieldModel]
    KORMAK::FieldModel model(document); // for a QTreeView, or a view of QML
    const QModelIndex author = model.GetIndex("JobHeader.Author", KORMAK::FieldModel::ValueColumn);
    QVERIFY(model.setData(author, "M. Keller"));
    QCOMPARE(author.data().toString(), QString("M. Keller"));
    //! [FieldModel]
    QCOMPARE(document.GetText(), textOfJob().replace("L. Brandt", "M. Keller"));
}

void ModelsSnippetsTest::findingModel()
{
    using Change = KORMAK::DocumentEdit::Change;
    KORMAK::OpenDocument document;
    document.SetText(textOfJob());
    //! [FindingModel]
    const KORMAK::FindingModel model(document); // for a QTableView, or a view of QML
    document.Change({{Change::Action::Unset, "JobHeader.Author", {}}},
                    KORMAK::DocumentEdit::NewFindings::Accepted);
    const QModelIndex first = model.index(0, KORMAK::FindingModel::MessageColumn);
    QCOMPARE(first.data(KORMAK::FindingModel::FieldPathRole).toString(), QString("JobHeader.Author"));
    //! [FindingModel]
    QCOMPARE(model.rowCount(), 1);
}

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

void ModelsSnippetsTest::parameterFilter()
{
    KORMAK::OpenDocument document;
    document.SetText(textOfReceiver());
    //! [ParameterFilter]
    KORMAK::ParameterModel model(document);
    KORMAK::ParameterFilter filter;
    filter.setSourceModel(&model);
    filter.SetSearch("agc attack");
    QCOMPARE(filter.rowCount(), 1);
    //! [ParameterFilter]
}

void ModelsSnippetsTest::parameterModel()
{
    using KORMAK::ParameterModel;
    KORMAK::OpenDocument document;
    document.SetText(textOfReceiver());
    //! [ParameterModel]
    ParameterModel model(document);
    const QModelIndex mode = model.index(model.GetRow("AGCMode"), ParameterModel::ValueColumn);
    QCOMPARE(mode.data().toString(), QString("Medium"));
    QVERIFY(model.setData(mode, "Fast")); // an entry of an enumeration, by its name
    QVERIFY(mode.data(ParameterModel::ChangedRole).toBool());
    QVERIFY(model.RestoreDefaults().isEmpty());
    QCOMPARE(mode.data().toString(), QString("Medium"));
    //! [ParameterModel]
}

void ModelsSnippetsTest::save()
{
    KORMAK::OpenDocument document;
    document.SetText(textOfJob());
    QObject::connect(&document, &KORMAK::OpenDocument::OpenEditsWanted,
                     [&document] { document.Refuse("AntennaData.Azimuth", "is no angle"); });
    QStringList messages;
    //! [save]
    const QVector<KORMAK::Finding> refused = document.TakeOpenEdits();
    for (const KORMAK::Finding &finding : refused)
        messages += finding.GetPath() + ": " + finding.GetMessage();
    //! [save]
    QCOMPARE(messages, QStringList{"AntennaData.Azimuth: is no angle"});
}

QTEST_GUILESS_MAIN(ModelsSnippetsTest)

#include "ModelsSnippetsTest.moc"
