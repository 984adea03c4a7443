#include "OpenExample.h"

#include <models/ParameterFilter.h>
#include <models/ParameterModel.h>

using namespace KORMAK;
using namespace OpenExample;

namespace {

QStringList namesIn(const QAbstractItemModel &model)
{
    QStringList names;
    for (int row = 0; row < model.rowCount(); ++row)
        names += model.index(row, 0).data(ParameterModel::UniqueNameRole).toString();
    return names;
}

/// The parameters of an example, of which a filter shows some.
struct Filtered {
    Filtered() { filter.setSourceModel(&model); }

    Open receiver{"receivers/hf-receiver.xml"};
    Tested<ParameterModel> model{receiver};
    Tested<ParameterFilter> filter;
};

} // namespace

class ParameterFilterTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void showsAllAtFirst();
    void searches_data();
    void searches();
    void showsWhatChanged();
    void showsAGroup();
    void listsGroups();
    void hasProperties();
};

void ParameterFilterTest::showsAllAtFirst()
{
    Filtered all;
    QCOMPARE(namesIn(all.filter), namesIn(all.model));
    QCOMPARE(all.filter.GetSearch(), QString());
    QCOMPARE(all.filter.GetShow(), ParameterFilter::Show::All);
    QVERIFY(!all.filter.GetGroup());
    QVERIFY(ParameterFilter().GetGroups().isEmpty());
}

void ParameterFilterTest::searches_data()
{
    QTest::addColumn<QString>("search");
    QTest::addColumn<QString>("found");

    QTest::newRow("unique name") << "AGCAtt"
                                 << "AGCAttack";
    QTest::newRow("display name") << "agc attack"
                                  << "AGCAttack";
    QTest::newRow("tool tip") << "hang time in"
                              << "AGCMode";
    QTest::newRow("words in any order") << "  TIME   control "
                                        << "AGCMode";
    QTest::newRow("words of several texts") << "seconds AGCMode"
                                            << "AGCMode";
    QTest::newRow("several") << "agc"
                             << "AGCAttack AGCDecay AGCMode ManualGain";
    QTest::newRow("one word is missing") << "agc engine"
                                         << "";
    QTest::newRow("representation name") << "rx.agc.attack"
                                         << "";
}

void ParameterFilterTest::searches()
{
    QFETCH(QString, search);
    QFETCH(QString, found);

    Filtered all;
    all.filter.SetSearch(search);
    QCOMPARE(all.filter.GetSearch(), search);
    QCOMPARE(namesIn(all.filter).join(' '), found);
    all.filter.SetSearch({});
    QCOMPARE(namesIn(all.filter), namesIn(all.model));
}

void ParameterFilterTest::showsWhatChanged()
{
    Filtered all;
    all.filter.SetShow(ParameterFilter::Show::Changed);
    QCOMPARE(all.filter.GetShow(), ParameterFilter::Show::Changed);
    QCOMPARE(namesIn(all.filter), QStringList());
    all.receiver.set("Parameter[AGCAttack].Float.Default", "3");
    QCOMPARE(namesIn(all.filter), QStringList{"AGCAttack"});
    all.receiver.set("Parameter[AGCAttack].Float.Default", "2");
    QCOMPARE(namesIn(all.filter), QStringList());
}

void ParameterFilterTest::showsAGroup()
{
    Filtered all;
    all.model.SetGroups({{"AGCMode", "Gain"}, {"AGCAttack", "Gain"}, {"AGCDecay", ""}});
    all.filter.SetGroup(QString("Gain"));
    QCOMPARE(all.filter.GetGroup(), std::optional(QString("Gain")));
    QCOMPARE(namesIn(all.filter), (QStringList{"AGCAttack", "AGCMode"}));
    all.filter.SetGroup(QString());
    QCOMPARE(namesIn(all.filter), QStringList{"AGCDecay"});
    all.filter.SetGroup(std::nullopt);
    QCOMPARE(namesIn(all.filter), namesIn(all.model));
}

void ParameterFilterTest::listsGroups()
{
    Filtered all;
    all.model.SetGroups({{"AGCMode", "Gain"}, {"AGCAttack", "Gain"}, {"AGCDecay", ""}});
    all.filter.SetSearch("agc");
    const QStringList groups = all.filter.GetGroups();
    QCOMPARE(groups.first(), QString("Gain"));
    QCOMPARE(groups.last(), QString());
    QCOMPARE(groups.count("Gain"), 1);
    QVERIFY(groups.contains("rx"));
}

void ParameterFilterTest::hasProperties()
{
    Filtered all;
    all.model.SetGroups({{"AGCMode", "Gain"}});
    QStringList told;
    connect(&all.filter, &ParameterFilter::SearchChanged, [&told] { told += "search"; });
    connect(&all.filter, &ParameterFilter::ShowChanged, [&told] { told += "show"; });
    connect(&all.filter, &ParameterFilter::GroupChanged, [&told] { told += "group"; });

    QVERIFY(!all.filter.property("group").isValid());
    QVERIFY(all.filter.setProperty("group", "Gain"));
    QCOMPARE(namesIn(all.filter), QStringList{"AGCMode"});
    QVERIFY(all.filter.setProperty("group", "Gain"));
    QCOMPARE(all.filter.property("group"), QVariant("Gain"));
    QVERIFY(all.filter.setProperty("group", QVariant::fromValue(nullptr)));
    QVERIFY(!all.filter.GetGroup());
    QVERIFY(all.filter.setProperty("group", QString()));
    QCOMPARE(all.filter.GetGroup(), std::optional(QString()));
    QVERIFY(all.filter.setProperty("group", QVariant()));
    QCOMPARE(std::exchange(told, {}), (QStringList{"group", "group", "group", "group"}));

    QVERIFY(all.filter.setProperty("search", "agc"));
    QVERIFY(all.filter.setProperty("search", "agc"));
    QCOMPARE(all.filter.property("search"), QVariant("agc"));
    QVERIFY(all.filter.setProperty("show", QVariant::fromValue(ParameterFilter::Show::Changed)));
    QVERIFY(all.filter.setProperty("show", 1));
    QCOMPARE(all.filter.property("show").toInt(), 1);
    QCOMPARE(told, (QStringList{"search", "show"}));
    QCOMPARE(all.filter.rowCount(), 0);
}

QTEST_GUILESS_MAIN(ParameterFilterTest)

#include "ParameterFilterTest.moc"
