// Views of QML show the models by the names of their roles, and set values through them.

#include "OpenExample.h"

#include <models/FieldModel.h>
#include <models/FindingModel.h>
#include <models/ParameterFilter.h>
#include <models/ParameterModel.h>

#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlError>
#include <QQuickItem>
#include <QQuickView>

using namespace KORMAK;
using namespace OpenExample;

namespace {

/// What shows models, which it knows by the names.
class View {
public:
    View(const QString &file, const QMap<QString, QAbstractItemModel *> &models)
    {
        QObject::connect(view.engine(), &QQmlEngine::warnings, &view, [this](const QList<QQmlError> &told) {
            for (const QQmlError &error : told)
                errors += error.toString();
        });
        for (auto model = models.begin(); model != models.end(); ++model)
            view.rootContext()->setContextProperty(model.key(), model.value());
        view.setSource(QUrl::fromLocalFile(QString(SOURCE_DIR) + "/tests/models/" + file));
        for (const QQmlError &error : view.errors())
            errors += error.toString();
        view.show();
    }

    [[nodiscard]] QQuickItem &root() { return *view.rootObject(); }
    [[nodiscard]] int count() { return root().property("count").toInt(); }
    [[nodiscard]] QString textAt(int row)
    {
        QQuickItem *item = nullptr;
        QMetaObject::invokeMethod(view.rootObject(), "itemAtIndex", Q_RETURN_ARG(QQuickItem *, item),
                                  Q_ARG(int, row));
        return item ? item->property("text").toString() : QString("no item");
    }
    void call(const char *function, int row, const QVariant &value)
    {
        QMetaObject::invokeMethod(view.rootObject(), function, Q_ARG(QVariant, row), Q_ARG(QVariant, value));
    }
    QVariant call(const char *function)
    {
        QVariant result;
        QMetaObject::invokeMethod(view.rootObject(), function, Q_RETURN_ARG(QVariant, result));
        return result;
    }
    QVariant call(const char *function, const QVariant &value)
    {
        QVariant result;
        QMetaObject::invokeMethod(view.rootObject(), function, Q_RETURN_ARG(QVariant, result),
                                  Q_ARG(QVariant, value));
        return result;
    }

    QStringList errors;

private:
    QQuickView view;
};

} // namespace

class QmlViewsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void showsFields();
    void showsParameters();
    void showsWhatIsLookedFor();
};

void QmlViewsTest::showsFields()
{
    Open parameter("jobs/antenna.xml");
    parameter.SetText("<Parameter Version=\"1.0\" UniqueName=\"Gain\">\n"
                      "    <RepresentationName>rx.gain</RepresentationName>\n"
                      "    <DisplayName>North</DisplayName>\n    <Multiplier>2.00</Multiplier>\n"
                      "</Parameter>\n");
    FieldModel model(parameter);
    View view("Fields.qml", {{"fieldModel", &model}});
    QCOMPARE(view.errors, QStringList());
    QVERIFY(model.rowCount() > 3);
    QCOMPARE(view.count(), model.rowCount());
    const int name = model.GetIndex("DisplayName").row();
    QTRY_COMPARE(view.textAt(name), QString("Display name: North"));
    view.call("setText", name, "South");
    QCOMPARE(parameter.GetDocument().GetField("DisplayName").GetText(), QString("South"));
    QCOMPARE(view.textAt(name), QString("Display name: South"));
    view.call("setText", model.GetIndex("Multiplier").row(), "high");
    QCOMPARE(parameter.GetDocument().GetField("Multiplier").GetValue(), QVariant(2.0));
    QCOMPARE(view.errors, QStringList());
}

void QmlViewsTest::showsParameters()
{
    Open receiver("receivers/hf-receiver.xml");
    ParameterModel model(receiver);
    View view("Parameters.qml", {{"parameterModel", &model}});
    QCOMPARE(view.errors, QStringList());
    QCOMPARE(view.count(), model.rowCount());
    const int row = model.GetRow("AGCMode");
    QTRY_COMPARE(view.textAt(row), QString("AGC: Medium"));
    view.call("setValue", row, "Fast");
    QCOMPARE(view.textAt(row), QString("AGC: Fast"));
    receiver.unset("Parameter[AGCAttack]");
    QTRY_COMPARE(view.count(), model.rowCount());
    QTRY_COMPARE(view.textAt(row - 1), QString("AGC: Fast"));
    QCOMPARE(view.errors, QStringList());
}

void QmlViewsTest::showsWhatIsLookedFor()
{
    qmlRegisterType<ParameterFilter>("Kormak", 1, 0, "ParameterFilter");
    Open receiver("receivers/hf-receiver.xml");
    receiver.set("Parameter[AGCMode].DisplayName", "Speed");
    ParameterModel parameters(receiver);
    FindingModel findings(receiver);
    View view("Filter.qml", {{"parameterModel", &parameters}, {"findingModel", &findings}});
    QCOMPARE(view.errors, QStringList());
    QCOMPARE(view.count(), parameters.rowCount());
    QVERIFY(view.call("groups").toStringList().contains("rx"));

    view.root().setProperty("search", "agc attack");
    QTRY_COMPARE(view.count(), 1);
    QTRY_COMPARE(view.call("parameterAt", 0).toString(), QString("AGC attack: 2\u00A0ms"));
    view.root().setProperty("search", "");
    view.call("showGroup", QString("none"));
    QTRY_COMPARE(view.count(), 0);
    view.call("showGroup", QVariant());
    QTRY_COMPARE(view.count(), parameters.rowCount());

    receiver.set("Parameter[AGCAttack].Float.Default", "3");
    view.call("showChanged");
    QTRY_COMPARE(view.count(), 1);
    QCOMPARE(view.call("rowOf", "AGCAttack").toInt(), parameters.GetRow("AGCAttack"));
    view.call("restore");
    QTRY_COMPARE(view.count(), 0);

    QCOMPARE(view.root().property("findings").toInt(), 0);
    receiver.unset("Parameter[AGCAttack].RepresentationName");
    QTRY_COMPARE(view.root().property("findings").toInt(), findings.rowCount());
    QVERIFY(findings.rowCount() > 0);
    QTRY_COMPARE(view.call("messageAt", 0).toString(),
                 findings.index(0, 0).data(FindingModel::FieldPathRole).toString() + ": "
                     + findings.index(0, 0).data(FindingModel::MessageRole).toString());
    QCOMPARE(view.errors, QStringList());
}

QTEST_MAIN(QmlViewsTest)

#include "QmlViewsTest.moc"
