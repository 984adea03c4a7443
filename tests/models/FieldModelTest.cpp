#include "OpenExample.h"

#include <inspection/FieldNode.h>
#include <models/FieldModel.h>

using namespace KORMAK;
using namespace OpenExample;

namespace {

/// All paths below \a parent, in the order of a tree that is open.
QStringList pathsBelow(const QAbstractItemModel &model, const QModelIndex &parent = {})
{
    QStringList paths;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        paths += index.data(FieldModel::PathRole).toString();
        paths += pathsBelow(model, index);
    }
    return paths;
}

QVariant dataAt(const FieldModel &model, const QString &path, int role)
{
    return model.GetIndex(path).data(role);
}

const char *const Workflow = "settings/automatic-workflow-with-area.xml";

} // namespace

class FieldModelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isATreeOfAllFields_data();
    void isATreeOfAllFields();
    void showsFields();
    void tellsWhatFieldsMayHold();
    void tellsWhatListsMayHold();
    void hasTitles();
    void isCalledForQml();
    void setsValues_data();
    void setsValues();
    void refusesValues_data();
    void refusesValues();
    void refusesNewFindingsWhenTold();
    void unsets();
    void onlyValuesCanBeEdited();
    void tellsFindings();
    void findingsOfListsStayAtTheList();
    void findsPlaces();
    void findsPlacesOfFindings();
    void changesKeepIndexes();
    void listElementsComeAndGo();
    void parametersComeAndGo();
    void fieldsComeAndGoWithTheirType();
    void whatIsNotOpenIsNotUpdated();
    void tellsWhenFindingsComeAndGo();
    void isResetByAnotherDocument();
};

void FieldModelTest::isATreeOfAllFields_data()
{
    QTest::addColumn<QString>("example");

    for (const char *folder : {"jobs", "settings", "receivers"}) {
        for (const QString &name : TestSupport::namesIn(QString(EXAMPLES_DIR) + '/' + folder, {"*.xml"}))
            QTest::newRow(qPrintable(name)) << QString(folder) + '/' + name;
    }
}

void FieldModelTest::isATreeOfAllFields()
{
    QFETCH(QString, example);

    Open document(example);
    Tested<FieldModel> model(document);
    QStringList values;
    for (const QString &path : pathsBelow(model)) {
        const QModelIndex index = model.GetIndex(path);
        QCOMPARE(index.data(FieldModel::PathRole).toString(), path);
        const bool isValue =
            index.data(FieldModel::KindRole).toInt() == static_cast<int>(FieldNode::Kind::Value);
        QVERIFY2(!isValue || !model.hasChildren(index), qPrintable(path));
        if (isValue)
            values += path;
    }
    QStringList fields;
    for (const Field &field : document.GetDocument().GetFields())
        fields += field.GetPath();
    QCOMPARE(values, fields);
}

void FieldModelTest::showsFields()
{
    Open job("jobs/antenna.xml");
    const Tested<FieldModel> model(job);
    QStringList texts;
    for (const auto column :
         {FieldModel::NameColumn, FieldModel::ValueColumn, FieldModel::UnitColumn, FieldModel::AllowedColumn})
        texts += model.GetIndex("AntennaData.MinimumFrequency", column).data().toString();
    QCOMPARE(texts, (QStringList{"Minimum frequency", "1500000", "Hz", "number in Hz"}));
    QCOMPARE(model.GetIndex("JobHeader.Author", FieldModel::ValueColumn).data().toString(),
             QString("L. Brandt"));
    QCOMPARE(model.GetIndex("AntennaData").data().toString(), QString("Antenna data"));
    for (const auto column : {FieldModel::ValueColumn, FieldModel::UnitColumn, FieldModel::AllowedColumn})
        QCOMPARE(model.GetIndex("AntennaData", column).data().toString(), QString());
    QCOMPARE(toolTip(model.GetIndex("AntennaData.Name")),
             "AntennaData.Name\n"
                 + dataAt(model, "AntennaData.Name", FieldModel::AllowedInWordsRole).toString());
    QCOMPARE(toolTip(model.GetIndex("AntennaData")), QString("AntennaData"));
    QVERIFY(!model.GetIndex("AntennaData").data(Qt::DecorationRole).isValid());
}

void FieldModelTest::tellsWhatFieldsMayHold()
{
    Open job("jobs/antenna.xml");
    const Tested<FieldModel> model(job);
    const QString azimuth = "AntennaData.MinimumFrequency";
    QCOMPARE(dataAt(model, azimuth, FieldModel::LabelRole).toString(), QString("Minimum frequency"));
    QCOMPARE(dataAt(model, azimuth, FieldModel::TypeRole).toInt(), static_cast<int>(Field::Type::Double));
    QCOMPARE(dataAt(model, azimuth, FieldModel::ValueRole), QVariant(1.5e6));
    QCOMPARE(dataAt(model, azimuth, FieldModel::TextRole).toString(), QString("1500000"));
    QCOMPARE(dataAt(model, azimuth, FieldModel::UnitRole).toString(), QString("Hz"));
    QVERIFY(!dataAt(model, azimuth, FieldModel::MinimumRole).isValid());
    QVERIFY(!dataAt(model, azimuth, FieldModel::MaximumRole).isValid());
    QVERIFY(dataAt(model, azimuth, FieldModel::SettableRole).toBool());
    QVERIFY(dataAt(model, azimuth, FieldModel::SetRole).toBool());
    QVERIFY(!dataAt(model, azimuth, FieldModel::ElementRole).toBool());
    QCOMPARE(dataAt(model, azimuth, FieldModel::RequirementRole).toInt(),
             static_cast<int>(job.GetDocument().GetField(azimuth).GetRequirement()));
    QCOMPARE(dataAt(model, "JobHeader.Author", FieldModel::RequirementRole).toInt(),
             static_cast<int>(Field::Requirement::Always));
    QCOMPARE(dataAt(model, "JobHeader.JobType", FieldModel::VocabularyRole).toString(), QString("JobType"));
    QCOMPARE(dataAt(model, "JobHeader.JobType", FieldModel::AllowedRole).toStringList(),
             job.GetDocument().GetField("JobHeader.JobType").GetAllowed());
    QVERIFY(!dataAt(model, "JobHeader", FieldModel::TypeRole).isValid());
    QVERIFY(!dataAt(model, "JobHeader", FieldModel::ValueRole).isValid());

    Open receiver("receivers/hf-receiver.xml");
    const Tested<FieldModel> ofReceiver(receiver);
    const QString precision = "Parameter[AGCAttack].Float.Precision";
    QCOMPARE(dataAt(ofReceiver, precision, FieldModel::MinimumRole),
             QVariant(receiver.GetDocument().GetField(precision).GetMinimum()));
    QCOMPARE(dataAt(ofReceiver, precision, FieldModel::MaximumRole),
             QVariant(receiver.GetDocument().GetField(precision).GetMaximum()));
}

void FieldModelTest::tellsWhatListsMayHold()
{
    Open workflow(Workflow);
    const Tested<FieldModel> model(workflow);
    const QModelIndex list = model.GetIndex("Area.Coordinate");
    QCOMPARE(list.data(FieldModel::KindRole).toInt(), static_cast<int>(FieldNode::Kind::List));
    QVERIFY(list.data(FieldModel::ExtensibleRole).toBool());
    QVERIFY(!list.data(FieldModel::ElementRole).toBool());
    QCOMPARE(model.rowCount(list), 3);
    const QModelIndex element = model.GetIndex("Area.Coordinate[1]", FieldModel::ValueColumn);
    QCOMPARE(element.row(), 1);
    QVERIFY(element.data(FieldModel::ElementRole).toBool());
    QCOMPARE(element.data(FieldModel::LabelRole).toString(), QString("1"));
    QVERIFY(!element.data().toString().isEmpty());
    QCOMPARE(element.data(), element.data(FieldModel::ShownTextRole));
}

void FieldModelTest::hasTitles()
{
    Open job("jobs/antenna.xml");
    const Tested<FieldModel> model(job);
    QStringList titles;
    for (int column = 0; column < model.columnCount(); ++column)
        titles += model.headerData(column, Qt::Horizontal).toString();
    QCOMPARE(titles, (QStringList{"Field", "Value", "Unit", "Allowed"}));
    QVERIFY(!model.headerData(0, Qt::Vertical).isValid());
    QVERIFY(!model.headerData(0, Qt::Horizontal, Qt::DecorationRole).isValid());
}

void FieldModelTest::isCalledForQml()
{
    Open job("jobs/antenna.xml");
    const auto names = FieldModel(job).roleNames();
    const QList<QByteArray> all = names.values();
    for (const QByteArray &name : all)
        QCOMPARE(all.count(name), 1);
    QCOMPARE(names.value(FieldModel::PathRole), QByteArray("path"));
    QCOMPARE(names.value(FieldModel::AllowedInWordsRole), QByteArray("allowedInWords"));
    QCOMPARE(names.value(FieldModel::SeverityRole), QByteArray("severity"));
}

void FieldModelTest::setsValues_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<int>("role");
    QTest::addColumn<QString>("text");

    QTest::newRow("text") << "JobHeader.Author" << QVariant("M. Keller") << int(Qt::EditRole) << "M. Keller";
    QTest::newRow("number") << "AntennaData.Azimuth" << QVariant(0.1) << int(Qt::EditRole) << "0.1";
    QTest::newRow("single precision")
        << "AntennaData.Azimuth" << QVariant(0.5F) << int(FieldModel::ValueRole) << "0.5";
    QTest::newRow("number as text") << "AntennaData.Azimuth" << QVariant("1e2") << int(Qt::EditRole) << "100";
    QTest::newRow("whole number") << "AntennaData.Azimuth" << QVariant(7) << int(Qt::EditRole) << "7";
    QTest::newRow("date") << "JobHeader.Creation"
                          << QVariant(QDateTime({2026, 5, 1}, {12, 30, 0, 5}, QTimeZone::utc()))
                          << int(Qt::EditRole) << "2026-05-01T12:30:00,005Z";
    QTest::newRow("for QML") << "JobHeader.Author" << QVariant("M. Keller") << int(FieldModel::TextRole)
                             << "M. Keller";
}

void FieldModelTest::setsValues()
{
    QFETCH(QString, path);
    QFETCH(QVariant, value);
    QFETCH(int, role);
    QFETCH(QString, text);

    Open job("jobs/antenna.xml");
    Tested<FieldModel> model(job);
    QVERIFY(model.setData(model.GetIndex(path, FieldModel::ValueColumn), value, role));
    QCOMPARE(dataAt(model, path, FieldModel::TextRole).toString(), text);
    DocumentEdit edit(OpenExample::text("jobs/antenna.xml"),
                      {{Open::Action::Set, path, Field::TextOf(value)}});
    QCOMPARE(job.GetText(), edit.GetText());
}

void FieldModelTest::refusesValues_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("role");
    QTest::addColumn<int>("refusals");

    QTest::newRow("no number") << "AntennaData.Azimuth" << QVariant("north") << int(FieldModel::ValueColumn)
                               << int(Qt::EditRole) << 1;
    QTest::newRow("no name") << "JobHeader.JobType" << QVariant("Search") << int(FieldModel::ValueColumn)
                             << int(Qt::EditRole) << 1;
    QTest::newRow("other column") << "JobHeader.Author" << QVariant("M") << int(FieldModel::NameColumn)
                                  << int(Qt::EditRole) << 0;
    QTest::newRow("other role") << "JobHeader.Author" << QVariant("M") << int(FieldModel::ValueColumn)
                                << int(FieldModel::PathRole) << 0;
    QTest::newRow("object") << "JobHeader" << QVariant("M") << int(FieldModel::ValueColumn)
                            << int(Qt::EditRole) << 0;
}

void FieldModelTest::refusesValues()
{
    QFETCH(QString, path);
    QFETCH(QVariant, value);
    QFETCH(int, column);
    QFETCH(int, role);
    QFETCH(int, refusals);

    Open job("jobs/antenna.xml");
    Tested<FieldModel> model(job);
    const QSignalSpy refused(&job, &OpenDocument::Refused);
    const QModelIndex index = model.GetIndex(path, static_cast<FieldModel::Column>(column));
    QVERIFY(!model.setData(index, value, role));
    QCOMPARE(refused.size(), refusals);
    QCOMPARE(job.GetText(), OpenExample::text("jobs/antenna.xml"));
    QVERIFY(!model.setData({}, value, role));
}

void FieldModelTest::refusesNewFindingsWhenTold()
{
    Open job("jobs/antenna.xml");
    Tested<FieldModel> model(job);
    const QModelIndex author = model.GetIndex("JobHeader.Author", FieldModel::ValueColumn);
    QCOMPARE(model.GetNewFindings(), DocumentEdit::NewFindings::Accepted);
    model.SetNewFindings(DocumentEdit::NewFindings::Refused);
    QCOMPARE(model.GetNewFindings(), DocumentEdit::NewFindings::Refused);
    QVERIFY(!model.setData(author, QVariant()));
    model.SetNewFindings(DocumentEdit::NewFindings::Accepted);
    QVERIFY(model.setData(author, QVariant()));
}

void FieldModelTest::unsets()
{
    Open job("jobs/antenna.xml");
    Tested<FieldModel> model(job);
    QVERIFY(model.setData(model.GetIndex("JobHeader.Author", FieldModel::ValueColumn), QVariant()));
    QVERIFY(!dataAt(model, "JobHeader.Author", FieldModel::SetRole).toBool());
    QVERIFY(!job.GetText().contains("<Author>"));
}

void FieldModelTest::onlyValuesCanBeEdited()
{
    Open job("jobs/antenna.xml");
    const Tested<FieldModel> model(job);
    for (const QString &path : pathsBelow(model)) {
        for (int column = 0; column < model.columnCount(); ++column) {
            const QModelIndex index = model.GetIndex(path, static_cast<FieldModel::Column>(column));
            const bool isEditable =
                column == FieldModel::ValueColumn && index.data(FieldModel::SettableRole).toBool();
            QCOMPARE(index.flags().testFlag(Qt::ItemIsEditable), isEditable);
            QVERIFY(index.flags().testFlag(Qt::ItemIsEnabled));
        }
    }
}

void FieldModelTest::tellsFindings()
{
    Open job("faulty/missing-author.xml");
    const Tested<FieldModel> model(job);
    const QVector<Finding> all = job.GetDocument().GetFindings();
    QCOMPARE(all.size(), 1);
    for (const char *path : {"JobHeader.Author", "JobHeader"}) {
        QCOMPARE(dataAt(model, path, FieldModel::FindingsRole).value<QVector<Finding>>(), all);
        QCOMPARE(dataAt(model, path, FieldModel::MessagesRole).toStringList(),
                 QStringList{all.at(0).GetMessage()});
        QCOMPARE(dataAt(model, path, FieldModel::SeverityRole).toInt(), 1);
        QVERIFY(toolTip(model.GetIndex(path)).endsWith(all.at(0).GetMessage()));
    }
    for (const char *path : {"JobHeader.Description", "AntennaData"}) {
        QVERIFY(dataAt(model, path, FieldModel::FindingsRole).value<QVector<Finding>>().isEmpty());
        QCOMPARE(dataAt(model, path, FieldModel::SeverityRole).toInt(), -1);
    }
}

void FieldModelTest::findingsOfListsStayAtTheList()
{
    Open workflow(Workflow);
    workflow.SetText(workflow.GetText().replace("<Latitude>", "<Latitude>x"));
    const Tested<FieldModel> model(workflow);
    QCOMPARE(dataAt(model, "Area.Coordinate", FieldModel::MessagesRole).toStringList().size(), 3);
    QCOMPARE(dataAt(model, "Area.Coordinate[0]", FieldModel::SeverityRole).toInt(), -1);
    QCOMPARE(dataAt(model, "Area.Coordinate[0].Latitude", FieldModel::SeverityRole).toInt(), -1);
}

void FieldModelTest::findsPlaces()
{
    Open workflow(Workflow);
    const Tested<FieldModel> model(workflow);
    for (const char *path :
         {"Area", "Area.Name", "Area.Coordinate", "Area.Coordinate[2]", "Area.Coordinate[2].Longitude"}) {
        const QModelIndex index = model.GetIndex(path, FieldModel::UnitColumn);
        QCOMPARE(index.data(FieldModel::PathRole).toString(), QString(path));
        QCOMPARE(index.column(), int(FieldModel::UnitColumn));
    }
    for (const char *path : {"", "Are", "Area.", "Area.Engine", "Area.Coordinate[3]", "Area.Name.More"})
        QVERIFY2(!model.GetIndex(QString(path)).isValid(), path);
}

void FieldModelTest::findsPlacesOfFindings()
{
    Open job("faulty/missing-author.xml");
    const Tested<FieldModel> model(job);
    QCOMPARE(model.GetIndex(job.GetDocument().GetFindings().at(0)), model.GetIndex("JobHeader.Author"));
    QCOMPARE(model.GetIndex(Finding::NotEdited("JobHeader.Engine", {})), model.GetIndex("JobHeader"));
    QVERIFY(!model.GetIndex(Finding::NotEdited("Engine", {})).isValid());
    QVERIFY(!model.GetIndex(Finding()).isValid());

    Open workflow(Workflow);
    const Tested<FieldModel> ofWorkflow(workflow);
    QCOMPARE(ofWorkflow.GetIndex(Finding::NotEdited("Area.Coordinate.Latitude", {})),
             ofWorkflow.GetIndex("Area.Coordinate"));
}

void FieldModelTest::changesKeepIndexes()
{
    Open job("jobs/antenna.xml");
    Tested<FieldModel> model(job);
    const QStringList before = pathsBelow(model);
    QList<QPersistentModelIndex> indexes;
    for (const QString &path : before)
        indexes += model.GetIndex(path);
    Told told(model);
    job.set("JobHeader.Author", "M. Keller");
    QCOMPARE(told.taken(), QStringList{QString("changed %1").arg(model.GetIndex("JobHeader.Author").row())});
    QCOMPARE(pathsBelow(model), before);
    for (int i = 0; i < before.size(); ++i)
        QCOMPARE(indexes.at(i).data(FieldModel::PathRole).toString(), before.at(i));
}

void FieldModelTest::listElementsComeAndGo()
{
    Open workflow(Workflow);
    Tested<FieldModel> model(workflow);
    const QPersistentModelIndex list(model.GetIndex("Area.Coordinate"));
    const QPersistentModelIndex last(model.GetIndex("Area.Coordinate[2]"));
    pathsBelow(model);
    Told told(model);
    workflow.set("Area.Coordinate", "10,20");
    QCOMPARE(told.taken(), QStringList{"inserted 3"});
    QCOMPARE(model.rowCount(list), 4);
    QCOMPARE(dataAt(model, "Area.Coordinate[3].Longitude", FieldModel::ValueRole), QVariant(20.0));
    workflow.unset("Area.Coordinate[3]");
    QCOMPARE(told.taken(), QStringList{"removed 3"});
    QCOMPARE(last.row(), 2);
    workflow.unset("Area.Coordinate[0]");
    QCOMPARE(model.rowCount(list), 2);
    QVERIFY(!last.isValid());
}

void FieldModelTest::parametersComeAndGo()
{
    Open receiver("receivers/hf-receiver.xml");
    Tested<FieldModel> model(receiver);
    const QPersistentModelIndex second(model.GetIndex("Parameter[AGCDecay]"));
    const int count = model.rowCount(model.GetIndex("Parameter"));
    Told told(model);
    receiver.unset("Parameter[AGCAttack]");
    QCOMPARE(told.taken(), QStringList{"removed 0"});
    QCOMPARE(second.row(), 0);
    receiver.change({{Open::Action::Set, "Parameter[0\\]b].ParameterType", "Integer"}});
    QCOMPARE(told.taken().filter("inserted"), QStringList{"inserted 0"});
    QCOMPARE(model.rowCount(model.GetIndex("Parameter")), count);
    QCOMPARE(second.row(), 1);
}

void FieldModelTest::fieldsComeAndGoWithTheirType()
{
    Open receiver("receivers/hf-receiver.xml");
    Tested<FieldModel> model(receiver);
    const QModelIndex parameter = model.GetIndex("Parameter[AGCAttack]");
    QVERIFY(model.GetIndex("Parameter[AGCAttack].Float.Minimum").isValid());
    pathsBelow(model, parameter);
    receiver.set("Parameter[AGCAttack].ParameterType", "Integer");
    QVERIFY(model.GetIndex("Parameter[AGCAttack].Integer.Minimum").isValid());
    QStringList fields;
    for (const Field &field : receiver.GetDocument().GetFields())
        fields += field.GetPath();
    for (const QString &path : pathsBelow(model, parameter)) {
        if (dataAt(model, path, FieldModel::KindRole).toInt() == static_cast<int>(FieldNode::Kind::Value))
            QVERIFY2(fields.contains(path), qPrintable(path));
    }
}

void FieldModelTest::whatIsNotOpenIsNotUpdated()
{
    Open job("jobs/antenna.xml");
    const FieldModel model(job); // not watched, which would ask for everything
    QVERIFY(model.rowCount() > 0);
    Told told(model);
    job.set("JobHeader.Author", "M. Keller");
    QCOMPARE(told.taken(), QStringList());
    QCOMPARE(dataAt(model, "JobHeader.Author", FieldModel::TextRole).toString(), QString("M. Keller"));
}

void FieldModelTest::tellsWhenFindingsComeAndGo()
{
    Open job("jobs/antenna.xml");
    Tested<FieldModel> model(job);
    QSet<QString> changed;
    connect(&model, &FieldModel::dataChanged, &model, [&changed](const QModelIndex &index) {
        changed.insert(index.data(FieldModel::PathRole).toString());
    });
    pathsBelow(model);
    job.unset("JobHeader.Author");
    QCOMPARE(changed, (QSet<QString>{"JobHeader", "JobHeader.Author"}));
    QCOMPARE(dataAt(model, "JobHeader", FieldModel::SeverityRole).toInt(), 1);
    changed.clear();
    job.set("JobHeader.Author", "M. Keller");
    QCOMPARE(changed, (QSet<QString>{"JobHeader", "JobHeader.Author"}));
    QCOMPARE(dataAt(model, "JobHeader", FieldModel::SeverityRole).toInt(), -1);
}

void FieldModelTest::isResetByAnotherDocument()
{
    Open document("jobs/antenna.xml");
    Tested<FieldModel> model(document);
    Told told(model);
    document.SetText(OpenExample::text(Workflow));
    QCOMPARE(told.taken(), QStringList{"reset"});
    QVERIFY(model.GetIndex("Area.Coordinate").isValid());
    document.SetText("no document");
    QCOMPARE(model.rowCount(), 0);
}

QTEST_GUILESS_MAIN(FieldModelTest)

#include "FieldModelTest.moc"
