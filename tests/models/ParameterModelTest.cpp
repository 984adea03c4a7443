#include "OpenExample.h"

#include <kormak/GenericReceiver.h>
#include <models/ParameterModel.h>

using namespace KORMAK;
using namespace OpenExample;

namespace {

QByteArray parameter(const char *name, const char *type, const char *block)
{
    return QByteArray("    <Parameter Version=\"1.0\" UniqueName=\"") + name
        + "\">\n"
          "        <RepresentationName>rx."
        + name
        + "</RepresentationName>\n"
          "        <ValueType>ValueNumericInt</ValueType>\n"
          "        <Multiplier>1000.00</Multiplier>\n"
          "        <Enable>true</Enable>\n"
          "        <ParameterType>"
        + type
        + "</ParameterType>\n"
          "        "
        + block + "\n    </Parameter>\n";
}

/// A receiver with a parameter of each type, called as the type.
QByteArray everyType()
{
    return "<GenericReceiver Version=\"1.0\">\n" + parameter("Boolean", "Boolean", "<Boolean>true</Boolean>")
        + parameter("Double", "Double",
                    "<Double><Minimum>0</Minimum><Maximum>30000000</Maximum><Default>1500000</Default>"
                    "<Precision>3</Precision></Double>")
        + parameter("DoubleList", "DoubleList",
                    "<Double><MaxDoubleListLength>5</MaxDoubleListLength></Double>")
        + parameter("Enum", "Enum",
                    "<Enum><EnumValue Key=\"3\" Name=\"Off\" Identifier=\"off\" Value=\"0.50\"/>"
                    "<EnumValue Key=\"4\" Name=\"On\" Value=\"1.00\" Default=\"true\"/>"
                    "<EnumValue Key=\"5\" Name=\"Auto\" Value=\"2.00\"/></Enum>")
        + parameter("Float", "Float", "<Float><Default>0.1</Default><Precision>1</Precision></Float>")
        + parameter("Integer", "Integer",
                    "<Integer><Minimum>-5</Minimum><Maximum>5</Maximum><Default>2</Default></Integer>")
        + parameter("Long", "Long", "<Long><Default>70000</Default></Long>")
        + parameter("String", "String", "<String><Default>abc</Default></String>")
        + parameter("TimeStamp", "TimeStamp", "<TimeStamp><Default>9007199254740993</Default></TimeStamp>")
        + "</GenericReceiver>\n";
}

struct OpenTypes : Open {
    OpenTypes() : Open("receivers/hf-receiver.xml") { SetText(everyType()); }
};

QVariant dataAt(const ParameterModel &model, const QString &name, int role)
{
    return model.index(model.GetRow(name), 0).data(role);
}

QString shownAt(const ParameterModel &model, const QString &name, ParameterModel::Column column)
{
    return model.index(model.GetRow(name), column).data().toString();
}

bool set(ParameterModel &model, const QString &name, const QVariant &value)
{
    return model.setData(model.index(model.GetRow(name), ParameterModel::ValueColumn), value);
}

} // namespace

class ParameterModelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void hasARowOfEachParameter_data();
    void hasARowOfEachParameter();
    void otherDocumentsHaveNone();
    void showsParameters();
    void toolTipsAreNoHtml();
    void tellsWhatEditorsNeed();
    void hasTitles();
    void isCalledForQml();
    void tellsValues_data();
    void tellsValues();
    void setsValues_data();
    void setsValues();
    void refusesValues_data();
    void refusesValues();
    void marksOneEntry();
    void editsOneParameter();
    void comparesWithTheOpenedDocument();
    void comparesWithAnotherReceiver();
    void comparesEntriesByTheirKeys_data();
    void comparesEntriesByTheirKeys();
    void restoresDefaults();
    void groupsParameters();
    void tellsFindings();
    void keepsIndexes();
    void rowsComeAndGo();
    void tellsWhatChanged();
    void isResetByAnotherDocument();
};

void ParameterModelTest::hasARowOfEachParameter_data()
{
    QTest::addColumn<QString>("name");

    for (const QString &name : TestSupport::namesIn(QString(EXAMPLES_DIR) + "/receivers", {"*.xml"}))
        QTest::newRow(qPrintable(name)) << name;
}

void ParameterModelTest::hasARowOfEachParameter()
{
    QFETCH(QString, name);

    Open receiver("receivers/" + name);
    Tested<ParameterModel> model(receiver);
    const auto object = receiver.GetDocument().Get<GenericReceiver>();
    QVERIFY(object);
    const QStringList names = object->GetParameterList().keys();
    QCOMPARE(model.rowCount(), static_cast<int>(names.size()));
    for (int row = 0; row < model.rowCount(); ++row) {
        QCOMPARE(model.index(row, ParameterModel::UniqueNameColumn).data().toString(), names.at(row));
        QCOMPARE(model.GetRow(names.at(row)), row);
        const QString path = model.index(row, 0).data(ParameterModel::ValuePathRole).toString();
        if (!path.isEmpty())
            (void)receiver.GetDocument().GetField(path); // which throws when there is none
    }
    QCOMPARE(model.GetRow("Engine"), -1);
    QCOMPARE(model.rowCount(model.index(0, 0)) + model.columnCount(model.index(0, 0)), 0);
}

void ParameterModelTest::otherDocumentsHaveNone()
{
    Open job("jobs/antenna.xml");
    QCOMPARE(ParameterModel(job).rowCount(), 0);
    job.SetText("no document");
    QCOMPARE(ParameterModel(job).rowCount(), 0);
    OpenDocument none;
    QCOMPARE(ParameterModel(none).rowCount(), 0);
}

void ParameterModelTest::showsParameters()
{
    Open receiver("receivers/hf-receiver.xml");
    const Tested<ParameterModel> model(receiver);
    const QString name = "AGCAttack";
    QStringList texts;
    for (int column = 0; column < model.columnCount(); ++column)
        texts += shownAt(model, name, static_cast<ParameterModel::Column>(column));
    QCOMPARE(texts,
             (QStringList{"AGCAttack", "rx.agc.attack", "AGC attack", "Float", "2\u00a0ms", "2\u00a0ms",
                          "0.1\u00a0ms", "100\u00a0ms", "ms", "yes"}));
    QCOMPARE(toolTip(model.index(model.GetRow("AGCMode"), 0)),
             QString("Automatic gain control; the value is the hang time in seconds"));
    QCOMPARE(shownAt(model, "AGCMode", ParameterModel::ValueColumn), QString("Medium"));
    QVERIFY(!dataAt(model, name, Qt::DecorationRole).isValid());

    const Qt::ItemFlags flags = model.index(0, ParameterModel::ValueColumn).flags();
    QVERIFY(flags.testFlag(Qt::ItemIsEditable));
    QVERIFY(!model.index(0, ParameterModel::DefaultColumn).flags().testFlag(Qt::ItemIsEditable));
}

void ParameterModelTest::toolTipsAreNoHtml()
{
    Open receiver("receivers/hf-receiver.xml");
    const QString text = "<b>loud</b> & \"long\"";
    receiver.set("Parameter[AGCMode].ToolTip", text);
    const Tested<ParameterModel> model(receiver);
    QCOMPARE(toolTip(model.index(model.GetRow("AGCMode"), 0)), text);
    QCOMPARE(dataAt(model, "AGCMode", ParameterModel::ToolTipRole).toString(), text);
    QCOMPARE(dataAt(model, "AGCAttack", Qt::ToolTipRole).toString(), QString());
}

void ParameterModelTest::tellsWhatEditorsNeed()
{
    Open receiver("receivers/hf-receiver.xml");
    const Tested<ParameterModel> model(receiver);
    const QString name = "AGCAttack";
    QCOMPARE(dataAt(model, name, ParameterModel::PathRole).toString(), QString("Parameter[AGCAttack]"));
    QCOMPARE(dataAt(model, name, ParameterModel::ValuePathRole).toString(),
             QString("Parameter[AGCAttack].Float.Default"));
    QCOMPARE(dataAt(model, name, ParameterModel::NameRole).toString(), QString("AGC attack"));
    QCOMPARE(dataAt(model, name, ParameterModel::UniqueNameRole).toString(), name);
    QCOMPARE(dataAt(model, name, ParameterModel::RepresentationNameRole).toString(),
             QString("rx.agc.attack"));
    QCOMPARE(dataAt(model, name, ParameterModel::GroupRole).toString(), QString("rx"));
    QCOMPARE(dataAt(model, name, ParameterModel::UnitRole).toString(), QString("ms"));
    QCOMPARE(dataAt(model, name, ParameterModel::ShownValueRole).toString(), QString("2\u00a0ms"));
    QCOMPARE(dataAt(model, name, ParameterModel::ShownDefaultRole).toString(), QString("2\u00a0ms"));
    QCOMPARE(dataAt(model, name, ParameterModel::DivisorRole).toDouble(), 1.0);
    QCOMPARE(dataAt(model, name, ParameterModel::ParameterTypeRole).toInt(), int(ParameterType::Float));
    QCOMPARE(dataAt(model, name, ParameterModel::ValueTypeRole).toInt(), int(Parameter::ValueNumericFloat));
    QCOMPARE(dataAt(model, name, ParameterModel::ControlTypeRole).toInt(),
             int(Parameter::InvalidControlType));
    QCOMPARE(dataAt(model, "Attenuation", ParameterModel::ControlTypeRole).toInt(),
             int(Parameter::VCLineEdit));
    QCOMPARE(dataAt(model, name, ParameterModel::EnabledRole).toBool(), true);
    QCOMPARE(dataAt(model, name, ParameterModel::ToolTipRole).toString(), QString());
    QVERIFY(!dataAt(model, name, ParameterModel::MaximumLengthRole).isValid());
    QVERIFY(dataAt(model, name, ParameterModel::EntriesRole).toList().isEmpty());

    const QVariantList entries = dataAt(model, "AGCMode", ParameterModel::EntriesRole).toList();
    QCOMPARE(entries.size(), 4);
    QCOMPARE(entries.at(1).toMap(),
             (QVariantMap{{"key", 1}, {"name", "Fast"}, {"identifier", "fast"}, {"value", 0.1}}));
    QCOMPARE(dataAt(model, "AGCMode", ParameterModel::EntryNamesRole).toStringList(),
             (QStringList{"Off", "Fast", "Medium", "Slow"}));
}

void ParameterModelTest::hasTitles()
{
    OpenTypes receiver;
    const Tested<ParameterModel> model(receiver);
    QStringList titles;
    for (int column = 0; column < model.columnCount(); ++column)
        titles += model.headerData(column, Qt::Horizontal).toString();
    QCOMPARE(titles.join(", "),
             QString("Unique name, Representation name, Display name, Type, Value, Default, "
                     "Minimum, Maximum, Unit, Enabled"));
    QCOMPARE(model.headerData(2, Qt::Vertical).toInt(), 3);
    QVERIFY(!model.headerData(0, Qt::Horizontal, Qt::DecorationRole).isValid());
}

void ParameterModelTest::isCalledForQml()
{
    OpenTypes receiver;
    const auto names = ParameterModel(receiver).roleNames();
    const QList<QByteArray> all = names.values();
    for (const QByteArray &name : all)
        QCOMPARE(all.count(name), 1);
    QCOMPARE(names.value(ParameterModel::ToolTipRole), QByteArray("toolTip"));
    QCOMPARE(names.value(ParameterModel::ShownValueRole), QByteArray("shownValue"));
    QCOMPARE(names.value(ParameterModel::NameRole), QByteArray("name"));
}

void ParameterModelTest::tellsValues_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QVariant>("minimum");
    QTest::addColumn<QVariant>("maximum");
    QTest::addColumn<int>("precision");
    QTest::addColumn<QString>("path");

    const QVariant none;
    QTest::newRow("Boolean") << QVariant(true) << none << none << -1 << "Boolean.Value";
    QTest::newRow("Double") << QVariant(1.5e6) << QVariant(0.0) << QVariant(3e7) << 3 << "Double.Default";
    QTest::newRow("DoubleList") << QVariant(QVariantList()) << none << none << 2 << "";
    QTest::newRow("Enum") << QVariant(1) << none << none << -1 << "";
    QTest::newRow("Float") << QVariant(0.1F) << none << none << 1 << "Float.Default";
    QTest::newRow("Integer") << QVariant(2LL) << QVariant(-5LL) << QVariant(5LL) << -1 << "Integer.Default";
    QTest::newRow("Long") << QVariant(70000LL) << QVariant(-2147483647LL) << QVariant(2147483647LL) << -1
                          << "Long.Default";
    QTest::newRow("String") << QVariant("abc") << none << none << -1 << "String.Default";
    QTest::newRow("TimeStamp") << QVariant(9007199254740993LL) << QVariant(std::numeric_limits<qint64>::min())
                               << QVariant(std::numeric_limits<qint64>::max()) << -1 << "TimeStamp.Default";
}

void ParameterModelTest::tellsValues()
{
    QFETCH(QVariant, value);
    QFETCH(QVariant, minimum);
    QFETCH(QVariant, maximum);
    QFETCH(int, precision);
    QFETCH(QString, path);

    OpenTypes receiver;
    const Tested<ParameterModel> model(receiver);
    const QString name = QTest::currentDataTag();
    QCOMPARE(dataAt(model, name, ParameterModel::ValueRole), value);
    QCOMPARE(dataAt(model, name, ParameterModel::ValueRole).userType(), value.userType());
    QCOMPARE(dataAt(model, name, ParameterModel::DefaultRole), value);
    QCOMPARE(model.index(model.GetRow(name), ParameterModel::ValueColumn).data(Qt::EditRole), value);
    QCOMPARE(dataAt(model, name, ParameterModel::MinimumRole), minimum);
    QCOMPARE(dataAt(model, name, ParameterModel::MaximumRole), maximum);
    QCOMPARE(dataAt(model, name, ParameterModel::PrecisionRole).toInt(), precision);
    QCOMPARE(dataAt(model, name, ParameterModel::DivisorRole).toDouble(), 1000.0);
    QCOMPARE(dataAt(model, name, ParameterModel::ValuePathRole).toString(),
             path.isEmpty() ? QString() : "Parameter[" + name + "]." + path);
    QCOMPARE(dataAt(model, name, ParameterModel::SettableRole).toBool(), name != "DoubleList");
    QCOMPARE(dataAt(model, name, ParameterModel::MaximumLengthRole),
             name == "DoubleList" ? QVariant(5) : QVariant());
    QVERIFY(!dataAt(model, name, ParameterModel::ChangedRole).toBool());
}

void ParameterModelTest::setsValues_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QVariant>("held");
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");

    QTest::newRow("boolean") << "Boolean" << QVariant(false) << QVariant(false)
                             << QByteArray("<Boolean>true<") << QByteArray("<Boolean>false<");
    QTest::newRow("double") << "Double" << QVariant(1.4263e7) << QVariant(1.4263e7) << QByteArray(">1500000<")
                            << QByteArray(">14263000<");
    QTest::newRow("float") << "Float" << QVariant(0.2F) << QVariant(0.2F) << QByteArray(">0.1<")
                           << QByteArray(">0.2<");
    QTest::newRow("integer") << "Integer" << QVariant(-3) << QVariant(-3LL) << QByteArray(">2<")
                             << QByteArray(">-3<");
    QTest::newRow("beyond its limits")
        << "Integer" << QVariant(77) << QVariant(77LL) << QByteArray(">2<") << QByteArray(">77<");
    QTest::newRow("long") << "Long" << QVariant(5LL) << QVariant(5LL) << QByteArray(">70000<")
                          << QByteArray(">5<");
    QTest::newRow("text") << "String" << QVariant("x & y") << QVariant("x & y") << QByteArray(">abc<")
                          << QByteArray(">x &amp; y<");
    QTest::newRow("64 bits") << "TimeStamp" << QVariant(9007199254740995LL) << QVariant(9007199254740995LL)
                             << QByteArray(">9007199254740993<") << QByteArray(">9007199254740995<");
    QTest::newRow("as a text") << "Integer" << QVariant("4") << QVariant(4LL) << QByteArray(">2<")
                               << QByteArray(">4<");
}

void ParameterModelTest::setsValues()
{
    QFETCH(QString, name);
    QFETCH(QVariant, value);
    QFETCH(QVariant, held);
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);

    OpenTypes receiver;
    Tested<ParameterModel> model(receiver);
    QCOMPARE(everyType().count(before), 1);
    QVERIFY(set(model, name, value));
    QCOMPARE(receiver.GetText(), everyType().replace(before, after));
    QCOMPARE(dataAt(model, name, ParameterModel::ValueRole), held);
    QVERIFY(dataAt(model, name, ParameterModel::ChangedRole).toBool());
    QVERIFY(model.setData(model.index(model.GetRow(name), 0),
                          dataAt(model, name, ParameterModel::DefaultRole), ParameterModel::ValueRole));
    QCOMPARE(receiver.GetText(), everyType());
}

void ParameterModelTest::refusesValues_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariant>("value");

    QTest::newRow("no number") << "Integer" << QVariant("many");
    QTest::newRow("no boolean") << "Boolean" << QVariant("maybe");
    QTest::newRow("no place of an entry") << "Enum" << QVariant(3);
    QTest::newRow("negative place of an entry") << "Enum" << QVariant(-1);
    QTest::newRow("no name of an entry") << "Enum" << QVariant("Sometimes");
    QTest::newRow("nothing of an enumeration") << "Enum" << QVariant();
    QTest::newRow("list") << "DoubleList" << QVariant(QVariantList{1.5});
}

void ParameterModelTest::refusesValues()
{
    QFETCH(QString, name);
    QFETCH(QVariant, value);

    OpenTypes receiver;
    Tested<ParameterModel> model(receiver);
    const QSignalSpy refused(&receiver, &OpenDocument::Refused);
    QVERIFY(!set(model, name, value));
    QCOMPARE(refused.size(), 1);
    const Finding finding = refused.at(0).at(0).value<QVector<Finding>>().at(0);
    const QString told = finding.GetFieldPath() + ' ' + finding.GetMessage();
    QVERIFY2(told.contains("Parameter[" + name + "]"), qPrintable(told));
    QVERIFY(!finding.GetMessage().isEmpty());
    QCOMPARE(receiver.GetText(), everyType());
    QVERIFY(!model.setData({}, value));
    QVERIFY(!model.setData(model.index(0, ParameterModel::TypeColumn), value));
    QCOMPARE(refused.size(), 1);
}

void ParameterModelTest::marksOneEntry()
{
    OpenTypes receiver;
    Tested<ParameterModel> model(receiver);
    QVERIFY(set(model, "Enum", "Auto"));
    QCOMPARE(dataAt(model, "Enum", ParameterModel::ValueRole), QVariant(2));
    QCOMPARE(shownAt(model, "Enum", ParameterModel::ValueColumn), QString("Auto"));
    QVERIFY(dataAt(model, "Enum", ParameterModel::ChangedRole).toBool());
    QVERIFY(set(model, "Enum", 0));
    QCOMPARE(shownAt(model, "Enum", ParameterModel::ValueColumn), QString("Off"));
    QCOMPARE(receiver.GetText().count("Default=\"true\""), 1);
    QVERIFY(set(model, "Enum", 0));
    QVERIFY(set(model, "Enum", 1));
    QVERIFY(!dataAt(model, "Enum", ParameterModel::ChangedRole).toBool());
}

void ParameterModelTest::editsOneParameter()
{
    Open document("receivers/hf-receiver.xml");
    document.SetText(parameter("Gain", "Integer", "<Integer><Default>2</Default></Integer>").trimmed());
    Tested<ParameterModel> model(document);
    QCOMPARE(model.rowCount(), 1);
    QCOMPARE(dataAt(model, "Gain", ParameterModel::PathRole).toString(), QString());
    QCOMPARE(dataAt(model, "Gain", ParameterModel::ValuePathRole).toString(), QString("Integer.Default"));
    QVERIFY(set(model, "Gain", 7));
    QCOMPARE(dataAt(model, "Gain", ParameterModel::ValueRole), QVariant(7LL));
    document.unset("RepresentationName");
    QCOMPARE(dataAt(model, "Gain", ParameterModel::SeverityRole).toInt(), 1);
}

void ParameterModelTest::comparesWithTheOpenedDocument()
{
    OpenTypes receiver;
    Tested<ParameterModel> model(receiver);
    QCOMPARE(model.GetDefaults().GetKind(), QString("GenericReceiver"));
    QVERIFY(set(model, "Integer", 3));
    receiver.SetUnmodified();
    QVERIFY(dataAt(model, "Integer", ParameterModel::ChangedRole).toBool());
    QCOMPARE(dataAt(model, "Integer", ParameterModel::DefaultRole), QVariant(2LL));
    QCOMPARE(shownAt(model, "Integer", ParameterModel::DefaultColumn), QString("0.002"));
    receiver.set("Parameter[New].ParameterType", "Integer");
    QVERIFY(!dataAt(model, "New", ParameterModel::DefaultRole).isValid());
    QVERIFY(!dataAt(model, "New", ParameterModel::ChangedRole).toBool());
    QCOMPARE(shownAt(model, "New", ParameterModel::DefaultColumn), QString());
    QCOMPARE(dataAt(model, "New", ParameterModel::ShownDefaultRole).toString(), QString());
    receiver.set("Parameter[Long].ParameterType", "Integer");
    QVERIFY(!dataAt(model, "Long", ParameterModel::DefaultRole).isValid());
    receiver.SetText(receiver.GetText());
    QVERIFY(!dataAt(model, "Integer", ParameterModel::ChangedRole).toBool());
}

void ParameterModelTest::comparesWithAnotherReceiver()
{
    OpenTypes receiver;
    Tested<ParameterModel> model(receiver);
    Told told(model);
    model.SetDefaults(Document(everyType().replace(">2<", ">4<")));
    QCOMPARE(told.taken(), QStringList{"changed 0-8"});
    QCOMPARE(dataAt(model, "Integer", ParameterModel::DefaultRole), QVariant(4LL));
    QVERIFY(dataAt(model, "Integer", ParameterModel::ChangedRole).toBool());
    QVERIFY(!dataAt(model, "Long", ParameterModel::ChangedRole).toBool());
    model.SetDefaults(Document());
    QVERIFY(!dataAt(model, "Integer", ParameterModel::ChangedRole).toBool());
}

void ParameterModelTest::comparesEntriesByTheirKeys_data()
{
    QTest::addColumn<QByteArray>("entries");
    QTest::addColumn<QVariant>("standard");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<bool>("isChanged");

    QTest::newRow("another order") << QByteArray(
        "<EnumValue Key=\"5\" Name=\"Auto\" Value=\"2.00\" Default=\"true\"/>"
        "<EnumValue Key=\"4\" Name=\"On\" Value=\"1.00\"/>")
                                   << QVariant(2) << "Auto" << true;
    QTest::newRow("another name") << QByteArray("<EnumValue Key=\"4\" Name=\"Yes\" Value=\"1.00\"/>")
                                  << QVariant(1) << "Yes" << false;
    QTest::newRow("a key twice") << QByteArray(
        "<EnumValue Key=\"9\" Name=\"Off\" Value=\"0.00\"/>"
        "<EnumValue Key=\"3\" Name=\"Off\" Value=\"0.00\" Default=\"true\"/>")
                                 << QVariant(0) << "Off" << true;
    QTest::newRow("no such key") << QByteArray("<EnumValue Key=\"9\" Name=\"On\" Value=\"1.00\"/>")
                                 << QVariant() << "" << false;
    QTest::newRow("no entries") << QByteArray() << QVariant() << "" << false;
}

void ParameterModelTest::comparesEntriesByTheirKeys()
{
    QFETCH(QByteArray, entries);
    QFETCH(QVariant, standard);
    QFETCH(QString, shown);
    QFETCH(bool, isChanged);

    OpenTypes receiver;
    Tested<ParameterModel> model(receiver);
    model.SetDefaults(Document("<GenericReceiver Version=\"1.0\">\n"
                               + parameter("Enum", "Enum", "<Enum>" + entries + "</Enum>")
                               + "</GenericReceiver>\n"));
    QCOMPARE(dataAt(model, "Enum", ParameterModel::DefaultRole), standard);
    QCOMPARE(dataAt(model, "Enum", ParameterModel::ShownDefaultRole).toString(), shown);
    QCOMPARE(dataAt(model, "Enum", ParameterModel::ChangedRole).toBool(), isChanged);
    QVERIFY(model.RestoreDefaults().isEmpty());
    QCOMPARE(dataAt(model, "Enum", ParameterModel::ValueRole), standard.isValid() ? standard : QVariant(1));
    QVERIFY(!dataAt(model, "Enum", ParameterModel::ChangedRole).toBool());
}

void ParameterModelTest::restoresDefaults()
{
    Open receiver("receivers/hf-receiver.xml");
    receiver.SetText(
        everyType().replace("<ParameterType>String<", "<Enable>false</Enable><ParameterType>String<"));
    QVERIFY(receiver.GetText().contains("<Enable>false"));
    Tested<ParameterModel> model(receiver);
    QVERIFY(model.RestoreDefaults().isEmpty());
    QVERIFY(set(model, "Integer", 3));
    QVERIFY(set(model, "Enum", 0));
    QVERIFY(set(model, "String", "x"));
    const QSignalSpy changes(&receiver, &OpenDocument::TextChanged);
    QVERIFY(model.RestoreDefaults().isEmpty());
    QCOMPARE(changes.size(), 1);
    for (int row = 0; row < model.rowCount(); ++row)
        QVERIFY(!model.index(row, 0).data(ParameterModel::ChangedRole).toBool());
}

void ParameterModelTest::groupsParameters()
{
    OpenTypes receiver;
    Tested<ParameterModel> model(receiver);
    Told told(model);
    model.SetGroups({{"Enum", "Modes"}, {"Long", ""}});
    QCOMPARE(told.taken(), QStringList{"changed 0-8"});
    QCOMPARE(model.GetGroups().size(), 2);
    QCOMPARE(dataAt(model, "Enum", ParameterModel::GroupRole).toString(), QString("Modes"));
    QCOMPARE(dataAt(model, "Long", ParameterModel::GroupRole).toString(), QString());
    QCOMPARE(dataAt(model, "Float", ParameterModel::GroupRole).toString(), QString("rx"));
}

void ParameterModelTest::tellsFindings()
{
    OpenTypes receiver;
    const QString longName(300, 'x');
    receiver.SetText(everyType()
                         .replace("<Default>2<", "<Default>two<")
                         .replace("UniqueName=\"Long\"", "UniqueName=\"" + longName.toLatin1() + '"')
                         .replace("<Default>70000<", "<Default>many<"));
    const Tested<ParameterModel> model(receiver);
    QCOMPARE(dataAt(model, "Integer", ParameterModel::MessagesRole).toStringList().size(), 1);
    QVERIFY(dataAt(model, "Integer", ParameterModel::SeverityRole).toInt() >= 0);
    QCOMPARE(dataAt(model, "Integer", ParameterModel::FindingsRole).value<QVector<Finding>>().size(), 1);
    QCOMPARE(dataAt(model, longName, ParameterModel::MessagesRole).toStringList().size(), 1);
    QCOMPARE(dataAt(model, "Float", ParameterModel::SeverityRole).toInt(), -1);
}

void ParameterModelTest::keepsIndexes()
{
    OpenTypes receiver;
    Tested<ParameterModel> model(receiver);
    const QPersistentModelIndex index(model.index(model.GetRow("Integer"), 0));
    receiver.unset("Parameter[Boolean]");
    receiver.unset("Parameter[Enum]");
    QCOMPARE(index.data(ParameterModel::UniqueNameRole).toString(), QString("Integer"));
    receiver.set("Parameter[Aa].ParameterType", "Integer");
    QCOMPARE(index.data(ParameterModel::UniqueNameRole).toString(), QString("Integer"));
    receiver.unset("Parameter[Integer]");
    QVERIFY(!index.isValid());
}

void ParameterModelTest::rowsComeAndGo()
{
    OpenTypes receiver;
    Tested<ParameterModel> model(receiver);
    Told told(model);
    receiver.change({{Open::Action::Unset, "Parameter[Boolean]", {}},
                     {Open::Action::Unset, "Parameter[TimeStamp]", {}},
                     {Open::Action::Set, "Parameter[Zoom].ParameterType", "Integer"}});
    const QStringList lines = told.taken();
    QCOMPARE(lines.filter("removed"), (QStringList{"removed 0", "removed 7"}));
    QCOMPARE(lines.filter("inserted"), QStringList{"inserted 7"});
    receiver.Restore(everyType());
    QCOMPARE(model.rowCount(), 9);
    QCOMPARE(dataAt(model, "TimeStamp", ParameterModel::ValueRole), QVariant(9007199254740993LL));
}

void ParameterModelTest::tellsWhatChanged()
{
    OpenTypes receiver;
    Tested<ParameterModel> model(receiver);
    Told told(model);
    receiver.set("Parameter[Integer].Integer.Default", "4");
    QCOMPARE(told.taken(), QStringList{"changed 5"});
    receiver.set("Parameter[Float].DisplayName", "Fine");
    QCOMPARE(told.taken(), QStringList{"changed 4"});
    QCOMPARE(dataAt(model, "Float", ParameterModel::NameRole).toString(), QString("Fine"));
    receiver.unset("Parameter[Enum].RepresentationName");
    QCOMPARE(told.taken(), QStringList{"changed 3"});
}

void ParameterModelTest::isResetByAnotherDocument()
{
    OpenTypes receiver;
    Tested<ParameterModel> model(receiver);
    Told told(model);
    receiver.SetText(OpenExample::text("jobs/antenna.xml"));
    QCOMPARE(told.taken(), QStringList{"reset"});
    QCOMPARE(model.rowCount(), 0);
    model.SetGroups({});
    QCOMPARE(told.taken(), QStringList());
}

QTEST_GUILESS_MAIN(ParameterModelTest)

#include "ParameterModelTest.moc"
