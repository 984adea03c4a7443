#include "inspection/report/MapLabels_p.h"

#include <QtTest>

using namespace KORMAK::Inspection;

class MapLabelsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void boxes_data();
    void boxes();
    void room_data();
    void room();
    void blocked();
    void refusedBoxesTakeNothing();
};

Q_DECLARE_METATYPE(KORMAK::Inspection::LabelAnchor)
Q_DECLARE_METATYPE(KORMAK::Inspection::LabelBox)

namespace {

/// In pixels from the middle of the map.
LabelBox fromMiddle(double left, double top, double right, double bottom)
{
    return {{0.5, left}, {0.5, top}, {0.5, right}, {0.5, bottom}};
}

} // namespace

void MapLabelsTest::boxes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<LabelAnchor>("anchor");
    QTest::addColumn<double>("left");
    QTest::addColumn<double>("right");

    // Two letters of 10 pixels take 13.
    QTest::newRow("start") << "ab" << LabelAnchor::Start << 7.0 << 20.0;
    QTest::newRow("middle") << "ab" << LabelAnchor::Middle << 0.5 << 13.5;
    QTest::newRow("end") << "ab" << LabelAnchor::End << -6.0 << 7.0;
    QTest::newRow("no text") << "" << LabelAnchor::Middle << 7.0 << 7.0;
}

void MapLabelsTest::boxes()
{
    QFETCH(const QString, text);
    QFETCH(const LabelAnchor, anchor);
    QFETCH(const double, left);
    QFETCH(const double, right);

    const LabelBox box = boxOf(text, {0.25, 7}, {0.75, 3}, anchor, 10);
    QCOMPARE(box.left.share, 0.25);
    QCOMPARE(box.right.share, 0.25);
    QCOMPARE(box.top.share, 0.75);
    QCOMPARE(box.bottom.share, 0.75);
    QCOMPARE(box.left.pixels, left);
    QCOMPARE(box.right.pixels, right);
    QCOMPARE(box.top.pixels, -7.0); // above the baseline
    QCOMPARE(box.bottom.pixels, 5.5); // with what hangs below it
}

void MapLabelsTest::room_data()
{
    QTest::addColumn<LabelBox>("box");
    QTest::addColumn<bool>("isTaken");

    const auto add = [](const char *name, const LabelBox &box, bool isTaken) {
        QTest::newRow(name) << box << isTaken;
    };
    // Beside one from -10 to 10 in both directions.
    add("the same place", fromMiddle(-10, -10, 10, 10), false);
    add("within", fromMiddle(-1, -1, 1, 1), false);
    add("around", fromMiddle(-50, -50, 50, 50), false);
    add("over a corner", fromMiddle(9, 9, 30, 20), false);
    add("right of it", fromMiddle(10, -10, 30, 10), true);
    add("left of it", fromMiddle(-30, -10, -10, 10), true);
    add("above it", fromMiddle(-10, -30, 10, -10), true);
    add("below it", fromMiddle(-10, 10, 10, 30), true);
    add("across it", fromMiddle(-30, -5, 30, 5), false);
    add("whole map", {{0, 0}, {0, 0}, {1, 0}, {0.5, -10}}, true);
    add("beyond the left edge", {{0, -0.5}, {0, 0}, {0.1, 0}, {0.1, 0}}, false);
    add("beyond the upper edge", {{0, 0}, {0, -0.5}, {0.1, 0}, {0.1, 0}}, false);
    add("beyond the right edge", {{0.9, 0}, {0.9, 0}, {1, 0.5}, {1, 0}}, false);
    add("beyond the lower edge", {{0.9, 0}, {0.9, 0}, {1, 0}, {1, 0.5}}, false);
    // 0.4 and 60 pixels are beyond the middle less 10 where the map is narrow, and far from it where it is
    // wide.
    add("apart on wide maps only", {{0.2, 0}, {0.5, -5}, {0.4, 60}, {0.5, 5}}, false);
    add("apart on all maps", {{0.2, 0}, {0.5, -5}, {0.4, 10}, {0.5, 5}}, true);
    // A fifth of the width and 300 pixels do not fit on a narrow map.
    add("too long for narrow maps", {{0.2, 0}, {0.1, 0}, {0.2, 300}, {0.2, 0}}, false);
}

void MapLabelsTest::room()
{
    QFETCH(const LabelBox, box);
    QFETCH(const bool, isTaken);

    MapLabels labels;
    QVERIFY(labels.take(fromMiddle(-10, -10, 10, 10)));
    QCOMPARE(labels.take(box), isTaken);
    QVERIFY(!labels.take(box)); // there is no more room for it
}

/// What is drawn there takes its room, also beyond the edges.
void MapLabelsTest::blocked()
{
    MapLabels labels;
    labels.block({{-1, 0}, {-1, 0}, {0.5, 0}, {2, 0}});
    labels.block({{-1, 0}, {-1, 0}, {0.5, 0}, {2, 0}});
    QVERIFY(!labels.take(fromMiddle(-1, 0, 20, 10)));
    QVERIFY(labels.take(fromMiddle(0, 0, 20, 10)));
}

void MapLabelsTest::refusedBoxesTakeNothing()
{
    MapLabels labels;
    QVERIFY(labels.take(fromMiddle(0, 0, 10, 10)));
    QVERIFY(!labels.take(fromMiddle(5, 0, 30, 10)));
    QVERIFY(labels.take(fromMiddle(10, 0, 30, 10)));
}

QTEST_GUILESS_MAIN(MapLabelsTest)
#include "MapLabelsTest.moc"
