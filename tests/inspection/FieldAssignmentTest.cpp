#include <inspection/FieldAssignment_p.h>
#include <inspection/FieldTable_p.h>
#include <kormak/GenericReceiver.h>

#include <QtTest>

#include <stdexcept>

using namespace KORMAK;
using namespace KORMAK::Inspection;

class FieldAssignmentTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void order();
    void indexes_data();
    void indexes();
    void errors();
    void namesReachTheHandler();
    void fieldsThatDocumentsDoNotHold();
    void explicitFieldsOfTheHandlerWin();
};

namespace {

const FieldTable &parameterFields()
{
    return fieldsOf(TESSEL::DocumentTables::of<Parameter>());
}

QStringList pathsOf(const QStringList &texts)
{
    Parameter parameter;
    QStringList paths;
    for (const FieldAssignment &assignment : assignAll(parameterFields(), texts, &parameter).wanted)
        paths += assignment.path + '=' + assignment.text;
    return paths;
}

QStringList errorsOf(const QStringList &texts)
{
    Parameter parameter;
    return assignAll(parameterFields(), texts, &parameter).errors;
}

template <class Object>
Object made(const QStringList &texts)
{
    Object object;
    const QStringList errors =
        assignAll(fieldsOf(TESSEL::DocumentTables::of<Object>()), texts, &object).errors;
    return errors.isEmpty() ? object : throw std::runtime_error(errors.join('\n').toStdString());
}

} // namespace

void FieldAssignmentTest::order()
{
    QCOMPARE(pathsOf({"ToolTip=t", "Enum.EnumValue[10].Name=k", "Enum.EnumValue[2].Name=c",
                      "Enum.EnumValue=2", "Enum.EnumValue=1", "UniqueName=u", "ParameterType=Enum"}),
             (QStringList{"ParameterType=Enum", "UniqueName=u", "ToolTip=t", "Enum.EnumValue=2",
                          "Enum.EnumValue=1", "Enum.EnumValue[2].Name=c", "Enum.EnumValue[10].Name=k"}));
}

void FieldAssignmentTest::indexes_data()
{
    QTest::addColumn<QString>("index");
    QTest::addColumn<bool>("isTaken");

    for (const char *index : {"0", "7", "10", "2147483647"})
        QTest::newRow(index) << QString(index) << true;
    for (const char *index : {"00", "01", "+0", "-0", "-1", " 0", "0 ", "0x0", "1e0", "a", "2147483648"})
        QTest::newRow(index) << QString(index) << false;
    QTest::newRow("empty") << QString() << false;
    QTest::newRow("digit of another script") << QString(QChar(0x661)) << false;
}

/// One number is written in one way only, so that a field has one path.
void FieldAssignmentTest::indexes()
{
    QFETCH(QString, index);
    QFETCH(bool, isTaken);

    const QStringList texts("Enum.EnumValue[" + index + "].Name=n");
    if (isTaken) {
        QCOMPARE(pathsOf(texts), texts);
        return;
    }
    QCOMPARE(errorsOf(texts),
             QStringList("Enum.EnumValue[" + index + "]: the index of a list is a whole number from 0"));
}

/// What may follow from an error that is told already is not told.
void FieldAssignmentTest::errors()
{
    QCOMPARE(errorsOf({"ParameterType=Enum", "Long.Minimum=1"}),
             QStringList("Long.Minimum: needs ParameterType=Long"));
    QCOMPARE(errorsOf({"ParameterType=long", "Long.Minimum=1", "Multiplier=x", "Sort"}).size(), 3);
    QCOMPARE(errorsOf({"ToolTip=a", "ToolTip=b", "ToolTip=c", "UniqueName=d"}),
             QStringList("ToolTip: is set twice"));
    QCOMPARE(errorsOf({"ParameterType=Enum", "Enum.EnumValue=1", "Enum.EnumValue=1"}), QStringList());

    // What is right is done all the same.
    Parameter parameter;
    QCOMPARE(assignAll(parameterFields(), {"Sort=a", "ToolTip=b"}, &parameter).errors.size(), 1);
    QCOMPARE(parameter.GetToolTip(), QString("b"));
}

void FieldAssignmentTest::namesReachTheHandler()
{
    const auto receiver =
        made<GenericReceiver>({"Parameter[a].RepresentationName=r", "Parameter[a].Multiplier=2",
                               "Parameter[a].ParameterType=Float"});
    const Parameter parameter = receiver.GetParameter("a");
    QCOMPARE(parameter.GetFloatHandler().GetUniqueParameterName(), QString("a"));
    QCOMPARE(parameter.GetFloatHandler().GetRepresentationName(), QString("r"));
    QCOMPARE(parameter.GetFloatHandler().GetMultiplier(), 2.0);
}

void FieldAssignmentTest::fieldsThatDocumentsDoNotHold()
{
    const auto parameter =
        made<Parameter>({"ParameterType=DoubleList", "Double.DoubleList=1,2", "Double.DoubleList=3",
                         "Double.DoubleList[1]=2.5", "Double.Value=4", "Double.UseAsList=true"});
    QCOMPARE(parameter.GetDoubleHandler().GetDoubleList(), (QVector<double>{1, 2.5, 3}));
    QCOMPARE(parameter.GetDoubleHandler().GetValue(), 4.0);
    QCOMPARE(parameter.GetDoubleHandler().IsDoubleList(), true);

    const auto choice = made<Parameter>(
        {"ParameterType=Enum", "Enum.SelectedEnumValue=3,C,c,0.5,true", "Enum.DefaultValue.Name=D"});
    EnumHandler::EnumValue selected;
    selected.Key = 3;
    selected.Name = "C";
    selected.Identifier = "c";
    selected.Value = 0.5;
    selected.Default = "true";
    QCOMPARE(choice.GetEnumHandler().GetSelectedEnumValue() == selected, true);
    QCOMPARE(choice.GetEnumHandler().GetDefaultValue().Name, QString("D"));
}

void FieldAssignmentTest::explicitFieldsOfTheHandlerWin()
{
    const auto parameter = made<Parameter>({"Long.RepresentationName=h", "ParameterType=Long",
                                            "RepresentationName=r", "Long.Multiplier=3", "Multiplier=2"});
    QCOMPARE(parameter.GetRepresenationName(), QString("r"));
    QCOMPARE(parameter.GetLongHandler().GetRepresentationName(), QString("h"));
    QCOMPARE(parameter.GetLongHandler().GetMultiplier(), 3.0);
}

QTEST_GUILESS_MAIN(FieldAssignmentTest)
#include "FieldAssignmentTest.moc"
