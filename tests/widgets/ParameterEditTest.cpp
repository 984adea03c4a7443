#include <kormak/Parameter.h>
#include <tests/support/Pictures.h>
#include <widgets/FrequencyEdit.h>
#include <widgets/ParameterEdit.h>

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QtTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <limits>

using KORMAK::EnumHandler;
using KORMAK::Parameter;
using KORMAK::ParameterControl;
using KORMAK::ParameterEdit;
using KORMAK::ParameterType;

Q_DECLARE_METATYPE(KORMAK::ParameterControl)
Q_DECLARE_METATYPE(KORMAK::ParameterType)
Q_DECLARE_METATYPE(KORMAK::Parameter::ValueType)
Q_DECLARE_METATYPE(KORMAK::Parameter::ControlType)

namespace {

Parameter parameterOf(ParameterType type, const QString &suffix = {}, double multiplier = 1)
{
    Parameter parameter;
    parameter.SetParameterType(type);
    parameter.SetUniqueParameterName("Name");
    parameter.SetDisplayName("Display name");
    parameter.SetDisplaySuffix(suffix);
    parameter.SetMultiplier(multiplier);
    return parameter;
}

Parameter enumeration(const QStringList &names, int chosen)
{
    Parameter parameter = parameterOf(ParameterType::Enum);
    int key = 10;
    for (const QString &name : names)
        parameter.GetEnumHandler().AppendEnumValue({key++, name, name.left(1), 0.5, {}});
    if (chosen >= 0)
        parameter.GetEnumHandler().SetDefaultValue(parameter.GetEnumHandler().GetEnumList().at(chosen));
    return parameter;
}

Parameter moment(qint64 value, const QString &unit = QString::fromUtf8("µs"))
{
    Parameter parameter = parameterOf(ParameterType::TimeStamp, unit);
    parameter.SetControlType(Parameter::VCTimeEdit);
    parameter.GetTimeStampHandler().SetDefault(value);
    return parameter;
}

Parameter list(const QVector<double> &values, int most)
{
    Parameter parameter = parameterOf(ParameterType::DoubleList, "MHz", 1e6);
    parameter.SetValueType(Parameter::ValueFrequency);
    QVector<double> copy = values;
    parameter.GetDoubleHandler().SetUseAsList(true);
    parameter.GetDoubleHandler().SetDoubleList(copy);
    parameter.GetDoubleHandler().SetMaxDoubleListLength(most);
    return parameter;
}

QLineEdit &lineOf(const ParameterEdit &edit)
{
    return *edit.findChild<QLineEdit *>();
}

bool take(ParameterEdit &edit, const QString &text)
{
    lineOf(edit).setText(text);
    return edit.Take();
}

} // namespace

class ParameterEditTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void controls_data();
    void controls();
    void values_data();
    void values();
    void checkBox();
    void choice();
    void choiceOutsideTheEntries();
    void equalEntries();
    void rangeOfTheType_data();
    void rangeOfTheType();
    void wheelWithoutFocus();
    void numberTakesWhatTheParameterSays();
    void text();
    void moments_data();
    void moments();
    void momentsThatAreRefused_data();
    void momentsThatAreRefused();
    void momentSteps();
    void lists();
    void otherParameter();
    void otherParameterBySignal();
    void refusing();
    void destroyedWhileOpen();
    void names();
    void locales();
    void pictures();
};

void ParameterEditTest::controls_data()
{
    QTest::addColumn<ParameterType>("type");
    QTest::addColumn<Parameter::ValueType>("valueType");
    QTest::addColumn<Parameter::ControlType>("controlType");
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<ParameterControl>("control");

    using P = Parameter;
    using C = ParameterControl;
    using T = ParameterType;
    QTest::newRow("no type") << T::Invalid << P::ValueBoolean << P::InvalidControlType << "" << C::None;
    QTest::newRow("boolean") << T::Boolean << P::ValueBoolean << P::InvalidControlType << "" << C::CheckBox;
    QTest::newRow("enumeration") << T::Enum << P::ValueSelection << P::VCLineEdit << "" << C::Choice;
    QTest::newRow("text") << T::String << P::ValueString << P::VCLineEdit << "" << C::Text;
    QTest::newRow("moment") << T::TimeStamp << P::ValueNumericInt64 << P::VCTimeEdit << "ms" << C::Moment;
    QTest::newRow("moment, micro") << T::TimeStamp << P::ValueNumericInt64 << P::VCTimeEdit
                                   << QString(QChar(0x3BC)) + "s" << C::Moment;
    QTest::newRow("moment without a unit")
        << T::TimeStamp << P::ValueNumericInt64 << P::VCTimeEdit << "" << C::Number;
    QTest::newRow("moment as a number")
        << T::TimeStamp << P::ValueNumericInt64 << P::InvalidControlType << "ms" << C::Number;
    QTest::newRow("time that is no moment")
        << T::Integer << P::ValueNumericInt << P::VCTimeEdit << "ms" << C::Number;
    for (const T type : {T::Integer, T::Long, T::Float, T::Double}) {
        const auto name = [type](const char *text) {
            return QByteArray(text) + ' ' + KORMAK::ParameterTypeToName(type).toLatin1();
        };
        QTest::newRow(name("number")) << type << P::ValueNumericInt << P::VCLineEdit << "dB" << C::Number;
        QTest::newRow(name("frequency"))
            << type << P::ValueFrequency << P::InvalidControlType << "Hz" << C::Frequency;
        QTest::newRow(name("frequency by its control"))
            << type << P::ValueNumericFloat << P::VCFrequency << "Hz" << C::Frequency;
        QTest::newRow(name("frequency in a line"))
            << type << P::ValueNumericFloat << P::VCLineEditFrequency << "" << C::Frequency;
    }
    QTest::newRow("numbers") << T::DoubleList << P::ValueFloatList << P::InvalidControlType << ""
                             << C::NumberList;
    QTest::newRow("frequencies") << T::DoubleList << P::ValueFrequency << P::InvalidControlType << ""
                                 << C::FrequencyList;
    QTest::newRow("frequencies by their control")
        << T::DoubleList << P::ValueFloatList << P::VCLineEditFrequency << "" << C::FrequencyList;
}

void ParameterEditTest::controls()
{
    QFETCH(ParameterType, type);
    QFETCH(Parameter::ValueType, valueType);
    QFETCH(Parameter::ControlType, controlType);
    QFETCH(QString, suffix);
    QFETCH(ParameterControl, control);
    Parameter parameter = parameterOf(type);
    parameter.SetValueType(valueType);
    parameter.SetControlType(controlType);
    Parameter withSuffix = parameter;
    withSuffix.SetDisplaySuffix(suffix);
    if (suffix.size() == 2 && suffix.at(0) == QChar(0x3BC)) // set as documents can have it
        QVERIFY(withSuffix.SetXmlString(
            QString("<Parameter Version=\"1.0\"><DisplaySuffix>%1</DisplaySuffix></Parameter>").arg(suffix),
            true));
    QCOMPARE(KORMAK::ParameterControlOf(withSuffix), control);
    ParameterEdit edit;
    edit.SetParameter(withSuffix);
    QCOMPARE(edit.GetControl(), control);
    QCOMPARE(edit.findChild<QCheckBox *>() != nullptr, control == ParameterControl::CheckBox);
    QCOMPARE(edit.findChild<QComboBox *>() != nullptr, control == ParameterControl::Choice);
    QCOMPARE(edit.findChild<KORMAK::FrequencyEdit *>() != nullptr, control == ParameterControl::Frequency);
    QCOMPARE(edit.GetValue().isValid(),
             control != ParameterControl::None && control != ParameterControl::Choice);
}

void ParameterEditTest::values_data()
{
    QTest::addColumn<ParameterType>("type");
    QTest::addColumn<QVariant>("value");

    QTest::newRow("boolean") << ParameterType::Boolean << QVariant(true);
    QTest::newRow("integer") << ParameterType::Integer << QVariant(qint64(-7));
    QTest::newRow("long") << ParameterType::Long << QVariant(qint64(2147483647));
    QTest::newRow("time stamp") << ParameterType::TimeStamp << QVariant(std::numeric_limits<qint64>::min());
    QTest::newRow("float") << ParameterType::Float << QVariant(0.1F);
    QTest::newRow("double") << ParameterType::Double << QVariant(123456789.123456);
    QTest::newRow("text") << ParameterType::String << QVariant(QString("two\nlines"));
    QTest::newRow("list") << ParameterType::DoubleList << QVariant(QVariantList{1.5, -2.0});
}

void ParameterEditTest::values()
{
    QFETCH(ParameterType, type);
    QFETCH(QVariant, value);
    ParameterEdit edit;
    edit.SetParameter(parameterOf(type));
    QSignalSpy finished(&edit, &ParameterEdit::Finished);
    edit.SetValue(value);
    QCOMPARE(edit.GetValue(), value);
    QVERIFY(!edit.IsOpen());
    QVERIFY(edit.Take());
    QCOMPARE(edit.GetValue(), value);
    QCOMPARE(finished.count(), 0);
}

void ParameterEditTest::checkBox()
{
    ParameterEdit edit;
    edit.SetParameter(parameterOf(ParameterType::Boolean));
    QSignalSpy finished(&edit, &ParameterEdit::Finished);
    QCOMPARE(edit.GetValue(), QVariant(false));
    QTest::keyClick(edit.findChild<QCheckBox *>(), Qt::Key_Space);
    QCOMPARE(edit.GetValue(), QVariant(true));
    QCOMPARE(finished.count(), 1);
    edit.SetNote("said twice");
    QCOMPARE(edit.GetProblem(), QString("said twice"));
    QCOMPARE(edit.findChild<QCheckBox *>()->accessibleDescription(), QString("said twice"));
}

void ParameterEditTest::choice()
{
    ParameterEdit edit;
    edit.SetParameter(enumeration({"Off", "Fast", "Slow"}, 1));
    auto *const box = edit.findChild<QComboBox *>();
    QCOMPARE(box->currentText(), QString("Fast"));
    QCOMPARE(edit.GetValue(), QVariant(qint64(1)));
    QCOMPARE(box->itemData(2, Qt::ToolTipRole).toString(), QString("12, S"));
    QSignalSpy finished(&edit, &ParameterEdit::Finished);
    QTest::keyClick(box, Qt::Key_Down);
    QCOMPARE(edit.GetValue(), QVariant(qint64(2)));
    QCOMPARE(finished.count(), 1);
    QCOMPARE(edit.GetProblem(), QString());
}

void ParameterEditTest::choiceOutsideTheEntries()
{
    Parameter parameter = enumeration({"Off", "On"}, 0);
    parameter.GetEnumHandler().SetDefaultValue({99, "Other", {}, 0, {}});
    ParameterEdit edit;
    edit.SetParameter(parameter);
    auto *const box = edit.findChild<QComboBox *>();
    QCOMPARE(box->currentIndex(), -1);
    QCOMPARE(box->placeholderText(), QString("Other"));
    QCOMPARE(edit.GetValue(), QVariant(qint64(-1)));
    QCOMPARE(edit.GetProblem(), QString("This is none of the entries"));
    box->setCurrentIndex(1);
    QCOMPARE(edit.GetProblem(), QString());
}

void ParameterEditTest::equalEntries()
{
    Parameter parameter = parameterOf(ParameterType::Enum);
    EnumHandler &handler = parameter.GetEnumHandler();
    for (int i = 0; i < 3; ++i)
        handler.AppendEnumValue({1, "Same", {}, 0.5, "true"});
    handler.SetDefaultValue(handler.GetEnumList().at(0));
    ParameterEdit edit;
    edit.SetParameter(parameter);
    QCOMPARE(edit.GetValue().toInt(), 2); // documents say that it is the last one that is marked
    handler.GetEnumList().fill({1, "Same", {}, 0.5, {}});
    handler.SetDefaultValue(handler.GetEnumList().at(0));
    edit.SetParameter(parameter);
    QCOMPARE(edit.GetValue().toInt(), 0);
}

void ParameterEditTest::rangeOfTheType_data()
{
    QTest::addColumn<ParameterType>("type");
    QTest::addColumn<double>("multiplier");
    QTest::addColumn<QString>("least");
    QTest::addColumn<QString>("most");
    QTest::addColumn<QString>("below");
    QTest::addColumn<QString>("above");
    // The numbers of both have 32 bits.
    for (const ParameterType type : {ParameterType::Integer, ParameterType::Long}) {
        const QByteArray name = KORMAK::ParameterTypeToName(type).toLatin1();
        QTest::newRow(name.constData()) << type << 1.0 << "-2147483648"
                                        << "2147483647"
                                        << "-2147483649"
                                        << "2147483648";
        QTest::newRow((name + " in thousands").constData()) << type << 1000.0 << "-2147483"
                                                            << "2147483"
                                                            << "-2147484"
                                                            << "2147484";
    }
    QTest::newRow("TimeStamp") << ParameterType::TimeStamp << 1.0 << "-9223372036854775808"
                               << "9223372036854775807"
                               << "-9223372036854775809"
                               << "9223372036854775808";
}

void ParameterEditTest::rangeOfTheType()
{
    QFETCH(ParameterType, type);
    QFETCH(double, multiplier);
    QFETCH(QString, least);
    QFETCH(QString, most);
    QFETCH(QString, below);
    QFETCH(QString, above);
    ParameterEdit edit;
    edit.setLocale(QLocale("en_GB"));
    edit.SetParameter(parameterOf(type, "Hz", multiplier));
    const auto factor = static_cast<qint64>(multiplier);
    for (const QString &text : {least, most}) {
        QVERIFY(take(edit, text));
        QCOMPARE(edit.GetValue(), QVariant(text.toLongLong() * factor));
    }
    for (const QString &text : {below, above}) {
        QVERIFY(!take(edit, text));
        QCOMPARE(lineOf(edit).text(), text);
        QCOMPARE(edit.GetValue(), QVariant(most.toLongLong() * factor)); // of before
        QCOMPARE(edit.GetProblem(), QString("This number is too large to be held"));
    }
}

void ParameterEditTest::wheelWithoutFocus()
{
    QWidget window;
    auto *const layout = new QVBoxLayout(&window);
    auto *const choice = new ParameterEdit;
    auto *const other = new ParameterEdit;
    layout->addWidget(other);
    layout->addWidget(choice);
    choice->SetParameter(enumeration({"Off", "Fast", "Slow"}, 1));
    other->SetParameter(parameterOf(ParameterType::Integer));
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    other->setFocus();
    auto *const box = choice->findChild<QComboBox *>();
    const auto turn = [box] {
        const QPointF middle = QRectF(box->rect()).center();
        QWheelEvent event(middle, box->mapToGlobal(middle.toPoint()), {}, {0, -120}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(box, &event);
    };
    turn();
    QCOMPARE(box->currentIndex(), 1);
    QVERIFY(!box->hasFocus());
    choice->setFocus();
    QTRY_VERIFY(box->hasFocus());
    turn();
    QCOMPARE(box->currentIndex(), 2);
}

void ParameterEditTest::numberTakesWhatTheParameterSays()
{
    Parameter parameter = parameterOf(ParameterType::Double, "kHz", 1000);
    parameter.SetValueType(Parameter::ValueFrequency);
    parameter.GetDoubleHandler().SetPrecision(1);
    parameter.GetDoubleHandler().SetMinimum(1000);
    parameter.GetDoubleHandler().SetMaximum(80e6);
    parameter.GetDoubleHandler().SetDefault(15000);
    ParameterEdit edit;
    edit.setLocale(QLocale("de_DE"));
    edit.SetParameter(parameter);
    QCOMPARE(lineOf(edit).text(), QString("15,0"));
    QVERIFY(take(edit, "12,3456"));
    QCOMPARE(lineOf(edit).text(), QString("12,3456"));
    QCOMPARE(edit.GetValue(), QVariant(12345.6));
    QVERIFY(take(edit, "145 MHz"));
    QCOMPARE(edit.GetValue(), QVariant(145e6));
    QCOMPARE(edit.GetProblem(),
             QString("Above the maximum of 80") + QChar(0x202F) + "000" + QChar(0xA0) + "kHz");
    QVERIFY(!take(edit, "x"));
    QCOMPARE(edit.GetValue(), QVariant(145e6));
    edit.Discard();
    QCOMPARE(lineOf(edit).text(), QString("145") + QChar(0x202F) + "000,0");

    Parameter whole = parameterOf(ParameterType::Long);
    whole.GetLongHandler().SetDefault(5);
    edit.SetParameter(whole);
    QVERIFY(!take(edit, "2147483648"));
    QVERIFY(!take(edit, "0,5"));
    QVERIFY(take(edit, "-2147483648")); // beyond what the type's limits are said to be, and yet held
    QCOMPARE(edit.GetValue(), QVariant(qint64(-2147483648LL)));
}

void ParameterEditTest::text()
{
    Parameter parameter = parameterOf(ParameterType::String);
    parameter.GetStringHandler().SetDefault("Mast 2");
    ParameterEdit edit;
    edit.SetParameter(parameter);
    QCOMPARE(lineOf(edit).text(), QString("Mast 2"));
    QSignalSpy finished(&edit, &ParameterEdit::Finished);
    QVERIFY(take(edit, ""));
    QCOMPARE(edit.GetValue(), QVariant(QString()));
    QVERIFY(take(edit, "  blanks  "));
    QCOMPARE(edit.GetValue(), QVariant(QString("  blanks  ")));
    QCOMPARE(finished.count(), 2);
}

void ParameterEditTest::moments_data()
{
    QTest::addColumn<QString>("unit");
    QTest::addColumn<qint64>("value");
    QTest::addColumn<QString>("shown");

    const QString us = QString::fromUtf8("µs");
    QTest::newRow("beginning") << us << qint64(0) << "1970-01-01 00:00:00";
    QTest::newRow("microseconds") << us << qint64(1773469800000001) << "2026-03-14 06:30:00.000001";
    QTest::newRow("seconds") << "s" << qint64(1773469800) << "2026-03-14 06:30:00";
    QTest::newRow("milliseconds") << "ms" << qint64(1773469800120) << "2026-03-14 06:30:00.12";
    QTest::newRow("nanoseconds") << "ns" << qint64(1773469800000000007) << "2026-03-14 06:30:00.000000007";
    QTest::newRow("before 1970") << us << qint64(-1) << "1969-12-31 23:59:59.999999";
    QTest::newRow("first year") << "s" << qint64(-62135596800) << "0001-01-01 00:00:00";
    QTest::newRow("last year") << "s" << qint64(253402300799) << "9999-12-31 23:59:59";
    QTest::newRow("beyond the years")
        << "s" << qint64(253402300800)
        << QString("253 402 300 800 s")
               .replace(' ', QChar(0x202F))
               .replace(QString(QChar(0x202F)) + "s", QString(QChar(0xA0)) + "s");
    QTest::newRow("64 bits") << us << std::numeric_limits<qint64>::max()
                             << QString("9 223 372 036 854 775 807").replace(' ', QChar(0x202F)) + QChar(0xA0)
            + us;
}

void ParameterEditTest::moments()
{
    QFETCH(QString, unit);
    QFETCH(qint64, value);
    QFETCH(QString, shown);
    ParameterEdit edit;
    edit.setLocale(QLocale("en_GB"));
    edit.SetParameter(moment(value, unit));
    QCOMPARE(lineOf(edit).text(), shown);
    QCOMPARE(edit.findChild<KORMAK::ValueEdit *>()->GetUnit(),
             shown.endsWith('s') ? QString() : QString("UTC"));
    QCOMPARE(edit.GetProblem(), QString());
    QVERIFY(take(edit, shown + ' '));
    QCOMPARE(edit.GetValue(), QVariant(value));
}

void ParameterEditTest::momentsThatAreRefused_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("problem");

    const QString none = "This is no date and time such as 2026-03-14 06:30:00";
    QTest::newRow("word") << "tomorrow" << none;
    QTest::newRow("number") << "20260314" << none;
    QTest::newRow("other order") << "14.03.2026" << none;
    QTest::newRow("no such day") << "2026-02-30 00:00:00"
                                 << "There is no such day or time";
    QTest::newRow("no such hour") << "2026-02-03 24:30:00"
                                  << "There is no such day or time";
    QTest::newRow("finer than held") << "2026-03-14 06:30:00.0000001"
                                     << "Only whole numbers can be held";
}

void ParameterEditTest::momentsThatAreRefused()
{
    QFETCH(QString, typed);
    QFETCH(QString, problem);
    ParameterEdit edit;
    edit.SetParameter(moment(5));
    QVERIFY(!take(edit, typed));
    QCOMPARE(edit.GetProblem(), problem);
    QCOMPARE(edit.GetValue(), QVariant(qint64(5)));
    QCOMPARE(lineOf(edit).text(), typed);
}

void ParameterEditTest::momentSteps()
{
    Parameter parameter = moment(1773469800000001);
    parameter.GetTimeStampHandler().SetMaximum(1773469800000001);
    ParameterEdit edit;
    edit.SetParameter(parameter);
    QLineEdit &line = lineOf(edit);
    const auto stepped = [&line](int position, Qt::Key key) {
        line.setCursorPosition(position);
        QTest::keyClick(&line, key);
        return line.text();
    };
    QCOMPARE(stepped(2, Qt::Key_Up), QString("2027-03-14 06:30:00.000001"));
    QVERIFY(edit.GetProblem().startsWith("After 2026-03-14 06:30:00.000001"));
    QCOMPARE(stepped(2, Qt::Key_Down), QString("2026-03-14 06:30:00.000001"));
    QCOMPARE(edit.GetProblem(), QString());
    QCOMPARE(stepped(6, Qt::Key_Down), QString("2026-02-14 06:30:00.000001"));
    QCOMPARE(stepped(9, Qt::Key_Up), QString("2026-02-15 06:30:00.000001"));
    QCOMPARE(stepped(12, Qt::Key_Up), QString("2026-02-15 07:30:00.000001"));
    QCOMPARE(stepped(15, Qt::Key_Up), QString("2026-02-15 07:31:00.000001"));
    QCOMPARE(stepped(18, Qt::Key_Down), QString("2026-02-15 07:30:59.000001"));
    QCOMPARE(stepped(26, Qt::Key_Up), QString("2026-02-15 07:30:59.000002"));
    QCOMPARE(stepped(21, Qt::Key_Up), QString("2026-02-15 07:30:59.100002"));
}

void ParameterEditTest::lists()
{
    ParameterEdit edit;
    edit.setLocale(QLocale("de_DE"));
    edit.SetParameter(list({7.1e6, 14.263e6}, 3));
    QCOMPARE(lineOf(edit).text(), QString("7,10; 14,263"));
    QVERIFY(take(edit, "7,1; 145 MHz; 6G;"));
    QCOMPARE(edit.GetValue(), QVariant(QVariantList({7.1e6, 145e6, 6e9})));
    QCOMPARE(edit.GetProblem(), QString());
    QVERIFY(take(edit, "1; 2; 3; 4"));
    QCOMPARE(edit.GetValue().toList().size(), 4); // marked, not cut off
    QCOMPARE(edit.GetProblem(), QString("4 values, but at most 3 are allowed"));
    QVERIFY(!take(edit, "1; x"));
    QCOMPARE(edit.GetProblem(), QString("Value 2: This is not a number"));
    QVERIFY(!take(edit, "1;; 2"));
    QCOMPARE(edit.GetProblem(), QString("Value 2: There is no number"));
    QVERIFY(take(edit, ""));
    QCOMPARE(edit.GetValue(), QVariant(QVariantList()));
    QCOMPARE(edit.GetProblem(), QString());
}

void ParameterEditTest::otherParameter()
{
    ParameterEdit edit;
    edit.SetParameter(parameterOf(ParameterType::Integer));
    lineOf(edit).setText("12");
    QVERIFY(edit.IsOpen());
    QPointer<QLineEdit> former = &lineOf(edit);
    edit.SetParameter(parameterOf(ParameterType::Boolean));
    QVERIFY(!edit.findChild<QLineEdit *>());
    QCoreApplication::sendPostedEvents(former, QEvent::DeferredDelete);
    QVERIFY(former.isNull());
    QVERIFY(!edit.IsOpen());
    QCOMPARE(edit.focusProxy(), edit.findChild<QCheckBox *>());
    edit.SetParameter(Parameter());
    QCOMPARE(edit.GetControl(), ParameterControl::None);
    QVERIFY(!edit.GetValue().isValid());
    QVERIFY(edit.Take());
}

void ParameterEditTest::otherParameterBySignal()
{
    ParameterEdit edit;
    edit.SetParameter(parameterOf(ParameterType::Boolean));
    auto *const box = edit.findChild<QCheckBox *>();
    connect(&edit, &ParameterEdit::Finished, &edit,
            [&edit] { edit.SetParameter(parameterOf(ParameterType::Integer)); });
    const QPointer<QCheckBox> former(box);
    box->click(); // which still has to paint itself
    QVERIFY(former);
    QCOMPARE(edit.GetControl(), ParameterControl::Number);
    QCoreApplication::sendPostedEvents(box, QEvent::DeferredDelete);
    QVERIFY(!former);
}

void ParameterEditTest::refusing()
{
    ParameterEdit edit;
    edit.SetParameter(parameterOf(ParameterType::Boolean));
    edit.SetValue(false);
    connect(&edit, &ParameterEdit::Finished, &edit, [&edit] { edit.Refuse("It is locked"); });
    edit.findChild<QCheckBox *>()->click();
    QCOMPARE(edit.GetValue(), QVariant(false));
    QCOMPARE(edit.GetProblem(), QString("It is locked"));
    QCOMPARE(edit.findChild<QCheckBox *>()->accessibleDescription(), QString("It is locked"));
    edit.SetValue(true);
    QCOMPARE(edit.GetProblem(), QString());
    edit.SetParameter(parameterOf(ParameterType::Integer));
    lineOf(edit).setText("12");
    QVERIFY(!edit.Take());
    QCOMPARE(lineOf(edit).text(), QString("12"));
    QCOMPARE(edit.GetProblem(), QString("It is locked"));
}

void ParameterEditTest::destroyedWhileOpen()
{
    QWidget window;
    auto *const edit = new ParameterEdit(&window);
    edit->SetParameter(parameterOf(ParameterType::Integer));
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    edit->setFocus();
    QTRY_VERIFY(lineOf(*edit).hasFocus());
    QTest::keyClicks(&lineOf(*edit), "5");
    QSignalSpy finished(edit, &ParameterEdit::Finished);
    delete edit;
    QCOMPARE(finished.count(), 0);
}

void ParameterEditTest::names()
{
    Parameter parameter = parameterOf(ParameterType::Integer, "dB");
    parameter.SetToolTip("How strong");
    parameter.GetIntegerHandler().SetMinimum(-10);
    parameter.GetIntegerHandler().SetMaximum(20000);
    ParameterEdit edit;
    edit.setLocale(QLocale("en_GB"));
    edit.SetParameter(parameter);
    QCOMPARE(lineOf(edit).accessibleName(), QString("Display name"));
    QCOMPARE(lineOf(edit).toolTip(),
             QString("How strong\n-10 to 20_000~dB").replace('~', QChar(0xA0)).replace('_', QChar(0x202F)));
}

void ParameterEditTest::locales()
{
    Parameter parameter = parameterOf(ParameterType::Double);
    parameter.GetDoubleHandler().SetDefault(1.5);
    ParameterEdit edit;
    edit.setLocale(QLocale("en_GB"));
    edit.SetParameter(parameter);
    QCOMPARE(lineOf(edit).text(), QString("1.50"));
    edit.setLocale(QLocale("de_DE"));
    QCOMPARE(lineOf(edit).text(), QString("1,50"));
    QCOMPARE(edit.GetValue(), QVariant(1.5));
}

void ParameterEditTest::pictures()
{
    const auto make = []() -> std::unique_ptr<QWidget> {
        auto window = std::make_unique<QWidget>();
        auto *const layout = new QFormLayout(window.get());
        const auto add = [layout](const QString &name, const Parameter &parameter, const QString &note = {}) {
            auto *const edit = new ParameterEdit;
            edit->setLocale(QLocale("en_GB"));
            edit->SetParameter(parameter);
            edit->SetNote(note);
            layout->addRow(name, edit);
            return edit;
        };
        Parameter frequency = parameterOf(ParameterType::Double, "Hz");
        frequency.SetValueType(Parameter::ValueFrequency);
        frequency.GetDoubleHandler().SetPrecision(0);
        frequency.GetDoubleHandler().SetDefault(100e6);
        add("Frequency", frequency);
        frequency.GetDoubleHandler().SetMaximum(30e6);
        add("Above the maximum", frequency);
        lineOf(*add("Not a number", parameterOf(ParameterType::Integer, "dB"))).setText("loud");
        Parameter level = parameterOf(ParameterType::Float, "dBm");
        level.GetFloatHandler().SetDefault(-73.25F);
        add("Level", level);
        add("AGC", enumeration({"Off", "Fast", "Slow"}, 1));
        add("With a note", enumeration({"Off", "Fast", "Slow"}, 1), "said twice");
        add("Muted", parameterOf(ParameterType::Boolean));
        add("Measure from", moment(1773469800000001));
        add("Frequencies", list({7.1e6, 14.263e6, 145e6}, 4));
        Parameter text = parameterOf(ParameterType::String);
        text.GetStringHandler().SetDefault("Mast 2, bearing mark at 12.4 degrees");
        add("Comment", text);
        add("Disabled", frequency)->setEnabled(false);
        return window;
    };
    QVERIFY(TestSupport::takePictures("parameter-edit", {420, 320}, make));
}

QTEST_MAIN(ParameterEditTest)
#include "ParameterEditTest.moc"
