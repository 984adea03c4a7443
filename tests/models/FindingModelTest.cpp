#include "OpenExample.h"

#include <models/FindingModel.h>

using namespace KORMAK;
using namespace OpenExample;

namespace {

/// The shown texts of a row, one of each column.
QStringList shown(const FindingModel &model, int row)
{
    QStringList texts;
    for (int column = 0; column < model.columnCount(); ++column)
        texts += model.index(row, column).data().toString();
    return texts;
}

} // namespace

class FindingModelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void showsFindings();
    void tellsEverythingOfAFinding();
    void hasTitles();
    void isCalledForQml();
    void followsChanges();
    void keepsRowsThatStay();
    void isResetByAnotherDocument();
};

void FindingModelTest::showsFindings()
{
    Open job("faulty/missing-author.xml");
    Tested<FindingModel> model(job);
    const QVector<Finding> findings = job.GetDocument().GetFindings();
    QVERIFY(!findings.isEmpty());
    QCOMPARE(model.rowCount(), static_cast<int>(findings.size()));
    for (int row = 0; row < model.rowCount(); ++row) {
        const Finding &finding = findings.at(row);
        const QString severity = finding.GetSeverity() == Finding::Severity::Error ? "Error" : "Warning";
        const QString place = QString("line %1, column %2").arg(finding.GetLine()).arg(finding.GetColumn());
        QCOMPARE(
            shown(model, row),
            (QStringList{severity, finding.GetMessage(), place, finding.GetPath(), finding.GetSuggestion()}));
    }
    QCOMPARE(toolTip(model.index(0, FindingModel::MessageColumn)), findings.at(0).GetMessage());
    QVERIFY(!model.index(0, FindingModel::PlaceColumn).data(Qt::ToolTipRole).isValid());
    QVERIFY(!model.index(0, 0).data(Qt::DecorationRole).isValid());
    QCOMPARE(model.rowCount(model.index(0, 0)) + model.columnCount(model.index(0, 0)), 0);
}

void FindingModelTest::tellsEverythingOfAFinding()
{
    Open job("faulty/missing-author.xml");
    const Tested<FindingModel> model(job);
    const Finding finding = job.GetDocument().GetFindings().at(0);
    const QModelIndex index = model.index(0, FindingModel::RemedyColumn);
    QCOMPARE(index.data(FindingModel::SeverityRole).toInt(), static_cast<int>(finding.GetSeverity()));
    QCOMPARE(index.data(FindingModel::MessageRole).toString(), finding.GetMessage());
    QCOMPARE(index.data(FindingModel::PathRole).toString(), QString("Job/JobHeader/Author"));
    QCOMPARE(index.data(FindingModel::FieldPathRole).toString(), QString("JobHeader.Author"));
    QCOMPARE(index.data(FindingModel::LineRole).toLongLong(), finding.GetLine());
    QCOMPARE(index.data(FindingModel::ColumnRole).toLongLong(), finding.GetColumn());
    QCOMPARE(index.data(FindingModel::IdRole).toString(), QString("missing-element"));
    QCOMPARE(index.data(FindingModel::RemedyRole).toString(), finding.GetSuggestion());
    QCOMPARE(index.data(FindingModel::AllowedRole).toStringList(), finding.GetAllowed());
    QCOMPARE(index.data(FindingModel::FindingRole).value<Finding>(), finding);
}

void FindingModelTest::hasTitles()
{
    Open job("faulty/missing-author.xml");
    const Tested<FindingModel> model(job);
    QStringList titles;
    for (int column = 0; column < model.columnCount(); ++column)
        titles += model.headerData(column, Qt::Horizontal).toString();
    QCOMPARE(titles, (QStringList{"Severity", "Message", "Place", "Path", "Remedy"}));
    QCOMPARE(model.headerData(0, Qt::Vertical).toInt(), 1);
    QVERIFY(!model.headerData(model.columnCount(), Qt::Horizontal).isValid());
    QVERIFY(!model.headerData(-1, Qt::Horizontal).isValid());
    QVERIFY(!model.headerData(0, Qt::Horizontal, Qt::DecorationRole).isValid());
}

void FindingModelTest::isCalledForQml()
{
    Open job("faulty/missing-author.xml");
    const auto names = FindingModel(job).roleNames();
    const QList<QByteArray> all = names.values();
    for (const QByteArray &name : all)
        QCOMPARE(all.count(name), 1);
    QCOMPARE(names.value(FindingModel::SeverityRole), QByteArray("severity"));
    QCOMPARE(names.value(FindingModel::FieldPathRole), QByteArray("fieldPath"));
    QCOMPARE(names.value(FindingModel::FindingRole), QByteArray("finding"));
    QCOMPARE(names.value(Qt::DisplayRole), QByteArray("display"));
}

void FindingModelTest::followsChanges()
{
    Open job("jobs/antenna.xml");
    Tested<FindingModel> model(job);
    QCOMPARE(model.rowCount(), 0);
    Told told(model);
    job.unset("JobHeader.Author");
    QCOMPARE(told.taken(), QStringList{"inserted 0"});
    QCOMPARE(model.index(0, FindingModel::PathColumn).data().toString(), QString("Job/JobHeader/Author"));
    job.set("JobHeader.Author", "M. Keller");
    QCOMPARE(told.taken(), QStringList{"removed 0"});
}

void FindingModelTest::keepsRowsThatStay()
{
    Open job("jobs/antenna.xml");
    job.unset("AntennaData.Name");
    Tested<FindingModel> model(job);
    const QPersistentModelIndex ofName(model.index(0, 0));
    const qint64 line = ofName.data(FindingModel::LineRole).toLongLong();
    Told told(model);
    job.unset("JobHeader.Author");
    QCOMPARE(ofName.row(), 1);
    QCOMPARE(ofName.data(FindingModel::FieldPathRole).toString(), QString("AntennaData.Name"));
    QCOMPARE(ofName.data(FindingModel::LineRole).toLongLong(), line - 1);
    QCOMPARE(told.taken(), (QStringList{"inserted 0", "changed 1"}));
    job.set("JobHeader.Author", "M. Keller");
    QCOMPARE(ofName.row(), 0);
    QCOMPARE(told.taken(), (QStringList{"removed 0", "changed 0"}));
}

void FindingModelTest::isResetByAnotherDocument()
{
    Open job("jobs/antenna.xml");
    Tested<FindingModel> model(job);
    Told told(model);
    job.SetText("no document");
    QCOMPARE(told.taken(), QStringList{"reset"});
    QCOMPARE(model.rowCount(), 1);
    QCOMPARE(model.index(0, 0).data(FindingModel::IdRole).toString(), QString("not-well-formed"));
}

QTEST_GUILESS_MAIN(FindingModelTest)

#include "FindingModelTest.moc"
