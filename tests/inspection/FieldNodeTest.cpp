#include "DocumentSamples.h"

#include <inspection/Document.h>
#include <inspection/FieldNode.h>
#include <tests/support/Files.h>

using namespace KORMAK;

Q_DECLARE_METATYPE(FieldNode::Kind)

namespace {

Document example(const QString &name)
{
    return Document::ReadFile(QString(EXAMPLES_DIR) + '/' + name);
}

Document workflow()
{
    return example("settings/automatic-workflow-with-area.xml");
}

QStringList pathsOf(const QVector<FieldNode> &nodes)
{
    QStringList paths;
    for (const FieldNode &node : nodes)
        paths += node.GetPath();
    return paths;
}

/// The place called \a path among what is directly below \a parent.
FieldNode nodeAt(const Document &document, const QString &parent, const QString &path)
{
    const QVector<FieldNode> nodes = document.GetNodes(parent);
    const auto index = pathsOf(nodes).indexOf(path);
    return index < 0 ? FieldNode() : nodes.at(static_cast<int>(index));
}

QStringList valuesBelow(const Document &document, const QString &path)
{
    QStringList paths;
    for (const FieldNode &node : document.GetNodes(path)) {
        paths += node.GetKind() == FieldNode::Kind::Value ? QStringList{node.GetField().GetPath()}
                                                          : valuesBelow(document, node.GetPath());
    }
    return paths;
}

} // namespace

class FieldNodeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void byDefault();
    void treeHoldsEveryField_data();
    void treeHoldsEveryField();
    void isNothingElsewhere_data();
    void isNothingElsewhere();
    void kinds_data();
    void kinds();
    void pathsInFindings();
    void namesWithBrackets();
    void comparison();
    void debugOutput();
};

void FieldNodeTest::byDefault()
{
    const FieldNode node;
    QCOMPARE(node.GetPath() + node.GetPathInFindings() + node.GetLabel() + node.GetShownText(), QString());
    QCOMPARE(node.GetKind(), FieldNode::Kind::Object);
    QVERIFY(!node.IsElement());
    QVERIFY(!node.IsExtensible());
    QCOMPARE(node.GetField(), Field());
    QVERIFY(Document().GetNodes().isEmpty());
    QVERIFY(Document(QByteArray("no document")).GetNodes().isEmpty());
}

void FieldNodeTest::treeHoldsEveryField_data()
{
    QTest::addColumn<QString>("name");

    for (const char *folder : {"jobs", "settings", "receivers"}) {
        for (const QString &name : TestSupport::namesIn(QString(EXAMPLES_DIR) + '/' + folder, {"*.xml"}))
            QTest::newRow(qPrintable(name)) << QString(folder) + '/' + name;
    }
}

void FieldNodeTest::treeHoldsEveryField()
{
    QFETCH(QString, name);

    const Document document = example(name);
    QStringList fields;
    for (const Field &field : document.GetFields())
        fields += field.GetPath();
    QVERIFY(!fields.isEmpty());
    QCOMPARE(valuesBelow(document, {}), fields);
}

void FieldNodeTest::isNothingElsewhere_data()
{
    QTest::addColumn<QString>("path");

    for (const char *path : {"Are", "AreaX", "Area.", "Area.Name", "Area.Name.More", "Area.Coordinate[9]",
                             "Area.Coordinate[0", "Area.Coordinate[0]x", "[0]", ".Area"})
        QTest::newRow(path) << QString(path);
}

void FieldNodeTest::isNothingElsewhere()
{
    QFETCH(QString, path);
    QCOMPARE(pathsOf(workflow().GetNodes(path)), QStringList());
}

void FieldNodeTest::kinds_data()
{
    QTest::addColumn<QString>("example");
    QTest::addColumn<QString>("parent");
    QTest::addColumn<QString>("path");
    QTest::addColumn<FieldNode::Kind>("kind");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<bool>("isElement");
    QTest::addColumn<bool>("isExtensible");

    const QString area = "settings/automatic-workflow-with-area.xml";
    const QString receiver = "receivers/hf-receiver.xml";
    QTest::newRow("field") << "jobs/antenna.xml"
                           << "JobHeader"
                           << "JobHeader.Author" << FieldNode::Kind::Value << "Author"
                           << "L. Brandt" << false << false;
    QTest::newRow("field with a unit")
        << "jobs/antenna.xml"
        << "AntennaData"
        << "AntennaData.Azimuth" << FieldNode::Kind::Value << "Azimuth"
        << example("jobs/antenna.xml").GetField("AntennaData.Azimuth").GetShownText() << false << false;
    QTest::newRow("object") << "jobs/antenna.xml"
                            << ""
                            << "JobHeader" << FieldNode::Kind::Object << "Job header"
                            << "" << false << false;
    QTest::newRow("list") << area << "Area"
                          << "Area.Coordinate" << FieldNode::Kind::List << "Coordinate"
                          << "" << false << true;
    QTest::newRow("map") << receiver << ""
                         << "Parameter" << FieldNode::Kind::Map << "Parameters"
                         << "" << false << true;
    QTest::newRow("element of a map") << receiver << "Parameter"
                                      << "Parameter[AGCMode]" << FieldNode::Kind::Object << "AGCMode"
                                      << "" << true << false;
    QTest::newRow("element of a list")
        << receiver << "Parameter[AGCMode].Enum.EnumValue"
        << "Parameter[AGCMode].Enum.EnumValue[1]" << FieldNode::Kind::Object << "1"
        << "1 Fast (0.1, fast)" << true << false;
}

void FieldNodeTest::kinds()
{
    QFETCH(QString, example);
    QFETCH(QString, parent);
    QFETCH(QString, path);
    QFETCH(FieldNode::Kind, kind);
    QFETCH(QString, label);
    QFETCH(QString, shown);
    QFETCH(bool, isElement);
    QFETCH(bool, isExtensible);

    const FieldNode node = nodeAt(::example(example), parent, path);
    QCOMPARE(node.GetPath(), path);
    QCOMPARE(node.GetKind(), kind);
    QCOMPARE(node.GetLabel(), label);
    QCOMPARE(node.GetShownText(), shown);
    QCOMPARE(node.IsElement(), isElement);
    QCOMPARE(node.IsExtensible(), isExtensible);
    QCOMPARE(node.GetField().GetPath(), kind == FieldNode::Kind::Value ? path : QString());
}

void FieldNodeTest::pathsInFindings()
{
    QCOMPARE(nodeAt(workflow(), "Area.Coordinate[1]", "Area.Coordinate[1].Latitude").GetPathInFindings(),
             QString("Area.Coordinate.Latitude"));
    const Document job(TestSupport::bytesOf(QString(EXAMPLES_DIR) + "/faulty/missing-author.xml"));
    QCOMPARE(job.GetFindings().at(0).GetFieldPath(),
             nodeAt(job, "JobHeader", "JobHeader.Author").GetPathInFindings());
}

void FieldNodeTest::namesWithBrackets()
{
    const QString longName = QString(150, 'x') + "]\\" + QString(150, 'y');
    Document receiver = example("receivers/hf-receiver.xml");
    receiver.SetField("Parameter[a\\]\\\\b].ParameterType", "Integer");
    receiver.SetField("Parameter[" + QString(longName).replace('\\', "\\\\").replace(']', "\\]")
                          + "].ParameterType",
                      "Integer");
    const FieldNode named = nodeAt(receiver, "Parameter", "Parameter[a\\]\\\\b]");
    QCOMPARE(named.GetLabel(), QString("a]\\b"));
    QCOMPARE(named.GetPathInFindings(), QString("Parameter[a]\\b]"));
    QVERIFY(!receiver.GetNodes(named.GetPath()).isEmpty());
    bool isFound = false;
    for (const FieldNode &node : receiver.GetNodes("Parameter")) {
        isFound = isFound || node.GetLabel() == longName;
        QVERIFY(node.GetPathInFindings().size() < 220);
    }
    QVERIFY(isFound);
}

void FieldNodeTest::comparison()
{
    Document job = example("jobs/antenna.xml");
    const FieldNode author = nodeAt(job, "JobHeader", "JobHeader.Author");
    QVERIFY(author == nodeAt(example("jobs/antenna.xml"), "JobHeader", "JobHeader.Author"));
    QVERIFY(author != nodeAt(job, "JobHeader", "JobHeader.Description"));
    job.SetField("JobHeader.Author", "M. Keller");
    QVERIFY(author != nodeAt(job, "JobHeader", "JobHeader.Author"));
    QVERIFY(FieldNode() == FieldNode());

    Document area = workflow();
    const FieldNode element = nodeAt(area, "Area.Coordinate", "Area.Coordinate[0]");
    area.SetField("Area.Coordinate[0].Latitude", "1");
    QVERIFY(element != nodeAt(area, "Area.Coordinate", "Area.Coordinate[0]"));
}

void FieldNodeTest::debugOutput()
{
    QString text;
    QDebug(&text).nospace() << nodeAt(workflow(), "Area", "Area.Coordinate");
    QCOMPARE(text, QString("FieldNode(List Area.Coordinate)"));
}

QTEST_GUILESS_MAIN(FieldNodeTest)

#include "FieldNodeTest.moc"
