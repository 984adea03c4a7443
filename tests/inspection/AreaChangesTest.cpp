#include <inspection/AreaChanges_p.h>
#include <inspection/AreaGeoJson_p.h>
#include <inspection/Document.h>
#include <objectbase/Area.h>
#include <objectbase/TesselException.h>

#include <QtTest>

using namespace KORMAK;
using namespace KORMAK::Inspection;
using Coordinates = QVector<TESSEL::Coordinate>;

Q_DECLARE_METATYPE(TESSEL::Coordinate)
Q_DECLARE_METATYPE(Coordinates)

namespace {

QString textOf(const QVector<DocumentEdit::Change> &changes)
{
    QStringList texts;
    for (const DocumentEdit::Change &change : changes) {
        texts += change.action == DocumentEdit::Change::Action::Unset ? '-' + change.path
                                                                      : change.path + '=' + change.text;
    }
    return texts.join(' ');
}

QByteArray workflow(const Coordinates &coordinates, const QByteArray &name = "<Name>a</Name>")
{
    QByteArray text = "<AutomaticWorkflow>\n<Mode>ManualMode</Mode>\n<Area>" + name + "\n";
    int number = 0;
    for (const TESSEL::Coordinate &coordinate : coordinates) {
        text += "<Coordinate><!-- " + QByteArray::number(number++) + " --><Latitude>"
            + QByteArray::number(coordinate.GetLatitude(), 'g', 17) + "</Latitude><Longitude>"
            + QByteArray::number(coordinate.GetLongitude(), 'g', 17) + "</Longitude></Coordinate>\n";
    }
    return text + "</Area></AutomaticWorkflow>";
}

QByteArray geoJsonOf(const QByteArray &workflow)
{
    const Document document(workflow);
    return areaGeoJson(*areaOf(*document.GetObject()), document.GetKind()).toUtf8();
}

} // namespace

class AreaChangesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void coordinates_data();
    void coordinates();
    void names();
    void comments();
    void refused();
};

void AreaChangesTest::coordinates_data()
{
    QTest::addColumn<Coordinates>("former");
    QTest::addColumn<Coordinates>("wanted");
    QTest::addColumn<QString>("text");

    const Coordinates square{{0, 0}, {0, 9}, {9, 9}, {9, 0}};
    const auto add = [](const char *name, const Coordinates &former, const Coordinates &wanted,
                        const QString &text) { QTest::newRow(name) << former << wanted << text; };
    add("the same", square, square, "");
    add("begun elsewhere", square, {{9, 9}, {9, 0}, {0, 0}, {0, 9}}, "");
    add("the other way round", square, {{0, 9}, {0, 0}, {9, 0}, {9, 9}}, "");
    add("closed", {{0, 0}, {0, 9}, {9, 9}, {9, 0}, {0, 0}}, square, "");
    add("a coordinate twice", {{0, 0}, {0, 9}, {0, 9}, {9, 9}, {9, 0}}, square, "");
    add("on 180 from the other side", {{0, 170}, {0, -180}, {9, 170}}, {{0, 170}, {0, 180}, {9, 170}}, "");
    add("nothing, still", {}, {}, "");
    add("moved", square, {{0, 0}, {0, 8.5}, {9, 9}, {9, 0}}, "L[1].Longitude=8.5");
    add("moved, begun elsewhere and the other way round", square, {{9, 9}, {0, 8.5}, {0, 0}, {9, 0}},
        "L[1].Longitude=8.5");
    add("the first one moved", square, {{9, 0}, {1, 2}, {0, 9}, {9, 9}}, "L[0].Latitude=1 L[0].Longitude=2");
    add("closed, moved", {{0, 0}, {0, 9}, {9, 9}, {9, 0}, {0, 0}}, {{0, 0}, {0, 9}, {9, 9}, {8, 0}},
        "L[3].Latitude=8");
    add("one less", square, {{0, 0}, {9, 9}, {9, 0}}, "-L[1]");
    add("one more at the end", square, {{0, 0}, {0, 9}, {9, 9}, {9, 0}, {4, -1}}, "L=4,-1");
    add("one more between", square, {{0, 0}, {0, 9}, {5, 9.5}, {9, 9}, {9, 0}},
        "L[2].Latitude=5 L[2].Longitude=9.5 L[3].Longitude=9 L=9,0");
    add("others", {{0, 0}, {0, 9}, {9, 9}}, {{1, 20}}, "L[0].Latitude=1 L[0].Longitude=20 -L[1] -L[2]");
    add("none", {{0, 0}, {0, 9}}, {}, "-L[0] -L[1]");
    add("from none", {}, {{0.1, -20}, {1e-7, 3}, {2, 3}}, "L=0.1,-20 L=1e-07,3 L=2,3");
    add("nowhere on the earth", {{0, 0}, {91, 9}, {9, 9}}, {{0, 0}, {90, 9}, {9, 9}}, "L[1].Latitude=90");
}

void AreaChangesTest::coordinates()
{
    QFETCH(const Coordinates, former);
    QFETCH(const Coordinates, wanted);
    QTEST(textOf(coordinateChanges("L", former, wanted)), "text");

    // And in a document, as GeoJSON.
    const QByteArray text = workflow(former);
    const QByteArray geoJson = geoJsonOf(workflow(wanted));
    const auto read = DocumentEdit::ReadArea(geoJson, text);
    const DocumentEdit edit(text, read.changes, DocumentEdit::NewFindings::Accepted);
    QVERIFY(edit.IsDone());
    QCOMPARE(geoJsonOf(edit.GetText()).contains("\"geometry\": null"), wanted.isEmpty());
    QVERIFY(DocumentEdit::ReadArea(geoJson, edit.GetText()).changes.isEmpty());
    QVERIFY(coordinateChanges("L", areaOf(*Document(edit.GetText()).GetObject())->GetCoordinate(), wanted)
                .isEmpty());
}

void AreaChangesTest::names()
{
    const Coordinates triangle{{0, 0}, {0, 9}, {9, 9}};
    const QByteArray geoJson = geoJsonOf(workflow(triangle, "<Name>Sea</Name>"));

    const auto named = DocumentEdit::ReadArea(geoJson, workflow(triangle, "<Name>Sea</Name>"));
    QVERIFY(named.changes.isEmpty());
    QVERIFY(named.ignored.isEmpty());

    const auto other = DocumentEdit::ReadArea(geoJson, workflow(triangle));
    QVERIFY(other.changes.isEmpty());
    QCOMPARE(other.ignored, QStringList("properties.name"));

    const auto unnamed = DocumentEdit::ReadArea(geoJson, workflow(triangle, {}));
    QCOMPARE(textOf(unnamed.changes), QString("Area.Name=Sea"));
    QVERIFY(unnamed.ignored.isEmpty());
}

/// Those of coordinates that stay are left alone.
void AreaChangesTest::comments()
{
    const QByteArray text = workflow({{0, 0}, {0, 9}, {9, 9}, {9, 0}});
    const QByteArray geoJson = geoJsonOf(workflow({{0, 0}, {9, 9}, {9, 0}}));
    const DocumentEdit edit(text, DocumentEdit::ReadArea(geoJson, text).changes);
    QVERIFY(edit.IsDone());
    QCOMPARE(edit.GetText(),
             QByteArray(text).replace("<Coordinate><!-- 1 --><Latitude>0</Latitude><Longitude>9</Longitude>"
                                      "</Coordinate>\n",
                                      ""));
}

void AreaChangesTest::refused()
{
    const QByteArray geoJson = geoJsonOf(workflow({{1, 2}}));
    const auto message = [&geoJson](const QByteArray &text) {
        try {
            (void)DocumentEdit::ReadArea(geoJson, text);
        } catch (const TESSEL::TesselException &exception) {
            return exception.GetErrorMessage();
        }
        return QString();
    };
    QCOMPARE(message("<Job/>"), QString("a document of the kind Job has no area"));
    QVERIFY(!message("<Job>").isEmpty());
    QVERIFY(!message("").isEmpty());
    QCOMPARE(message(workflow({{1, 2}})), QString());
}

QTEST_GUILESS_MAIN(AreaChangesTest)
#include "AreaChangesTest.moc"
