#include "inspection/EditScope_p.h"

#include <QtTest>

using namespace KORMAK::Inspection;

class EditScopeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void wholeDocument();
    void steps_data();
    void steps();
};

void EditScopeTest::wholeDocument()
{
    QVERIFY(EditScope().holds("Parameter[Gain]"));
    QVERIFY(EditScope().holds(""));
}

void EditScopeTest::steps_data()
{
    QTest::addColumn<QStringList>("paths");
    QTest::addColumn<QString>("step");
    QTest::addColumn<bool>("isHeld");

    const auto add = [](const char *name, const QStringList &paths, const QString &step, bool isHeld) {
        QTest::newRow(name) << paths << step << isHeld;
    };
    add("no path", {}, "Parameter[Gain]", false);
    add("object", {"Parameter[Gain]"}, "Parameter[Gain]", true);
    add("field of it", {"Parameter[Gain].ToolTip"}, "Parameter[Gain]", true);
    add("deep in it", {"Parameter[Gain].Enum.EnumValue[0].Key"}, "Parameter[Gain]", true);
    add("field that leads through it", {"Parameter[Gain].ToolTip"}, "Parameter[Gain].ToolTip", false);
    add("another", {"Parameter[Gain].ToolTip"}, "Parameter[Level]", false);
    add("name that begins the same", {"Parameter[Gain 2].ToolTip"}, "Parameter[Gain]", false);
    add("second path", {"Version", "Parameter[Gain].ToolTip"}, "Parameter[Gain]", true);
    add("point in a name", {"Parameter[a.b].ToolTip"}, "Parameter[a.b]", true);
    add("part of such a name", {"Parameter[a.b].ToolTip"}, "Parameter[a", false);
    add("bracket in a name", {"Parameter[a\\].b].ToolTip"}, "Parameter[a\\].b]", true);
    add("key of an entry", {"Parameter[Gain].Enum.EnumValue[Key=7].Name"}, "Parameter[Gain]", true);
}

void EditScopeTest::steps()
{
    QFETCH(const QStringList, paths);
    QFETCH(const QString, step);
    QFETCH(const bool, isHeld);

    QCOMPARE(EditScope(paths).holds(step), isHeld);
}

QTEST_GUILESS_MAIN(EditScopeTest)
#include "EditScopeTest.moc"
