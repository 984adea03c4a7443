// Views of QML show the models by the names of their roles, and set values through them.

#include "OpenExample.h"

#include <models/FieldModel.h>
#include <models/ParameterModel.h>

#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlError>
#include <QQuickItem>
#include <QQuickView>

using namespace KORMAK;
using namespace OpenExample;

namespace {

/// A ListView that shows a model.
class View {
public:
    View(const QString &file, const QString &name, QAbstractItemModel &model)
    {
        QObject::connect(view.engine(), &QQmlEngine::warnings, &view, [this](const QList<QQmlError> &told) {
            for (const QQmlError &error : told)
                errors += error.toString();
        });
        view.rootContext()->setContextProperty(name, &model);
        view.setSource(QUrl::fromLocalFile(QString(SOURCE_DIR) + "/tests/models/" + file));
        for (const QQmlError &error : view.errors())
            errors += error.toString();
        view.show();
    }

    [[nodiscard]] int count() { return view.rootObject()->property("count").toInt(); }
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
};

void QmlViewsTest::showsFields()
{
    Open parameter("jobs/antenna.xml");
    parameter.SetText("<Parameter Version=\"1.0\" UniqueName=\"Gain\">\n"
                      "    <RepresentationName>rx.gain</RepresentationName>\n"
                      "    <DisplayName>North</DisplayName>\n    <Multiplier>2.00</Multiplier>\n"
                      "</Parameter>\n");
    FieldModel model(parameter);
    View view("Fields.qml", "fieldModel", model);
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
    View view("Parameters.qml", "parameterModel", model);
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

QTEST_MAIN(QmlViewsTest)

#include "QmlViewsTest.moc"
