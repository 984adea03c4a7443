#include "OpenReceiver.h"

#include <tests/support/Pictures.h>
#include <widgets/Binding.h>
#include <widgets/FrequencyEdit.h>
#include <widgets/ParameterEdit.h>
#include <widgets/ValueMark_p.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QSpinBox>
#include <QtTest>
#include <QVBoxLayout>
#include <QWheelEvent>

using namespace KORMAK;
using OpenReceiver::said;

namespace {

using Action = DocumentEdit::Change::Action;

void change(OpenDocument &document, const char *path, const char *text)
{
    QCOMPARE(document.Change({{Action::Set, path, text}}, DocumentEdit::NewFindings::Accepted).size(), 0);
}

template <class Control>
Control &add(QWidget &window, const char *name)
{
    auto *const control = new Control(&window);
    control->setObjectName(name);
    control->setLocale(QLocale("en_GB"));
    if (window.layout())
        window.layout()->addWidget(control);
    return *control;
}

void turnWheel(QWidget &widget, int angle)
{
    const QPointF middle = QRectF(widget.rect()).center();
    QWheelEvent event(middle, widget.mapToGlobal(middle.toPoint()), {}, {0, angle}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&widget, &event);
}

} // namespace

class BindingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void checkBox();
    void comboBox();
    void spinBox();
    void spinBoxOutsideTheLimits();
    void doubleSpinBox();
    void slider();
    void dateTimeEdit();
    void momentThatIsFinerThanMilliseconds();
    void lineEdit();
    void frequencyEdit();
    void parameterEdit();
    void disabledParameter();
    void messages_data();
    void messages();
    void nameWithOtherCharacters();
    void openEdits();
    void typingStays();
    void valueThatNoDocumentHolds();
    void otherDocument();
    void boundAgain();
    void endings();
    void wheelWithoutFocus();
    void otherBytesStay();
    void disabledWhileTyping_data();
    void disabledWhileTyping();
    void goneWhileTyping();
    void otherTypeWhileTyping();
    void otherDocumentDropsWhatIsTyped();
    void unreadableInStepBoxes_data();
    void unreadableInStepBoxes();
    void refusedTextStays();
    void marks_data();
    void marks();
    void markOfASlider();
    void accessibleNames();
    void controlsThatFollowEachOther();
    void windowThatEndsWithTheChange();
    void documentThatEndsWithTheRefusal();
    void boundAgainByAChange();
    void mirrored();
    void pictures();

private:
    void show(QWidget &window) const;

    std::unique_ptr<OpenDocument> document;
};

void BindingTest::init()
{
    document = std::make_unique<OpenDocument>();
    document->SetText(OpenReceiver::all());
}

void BindingTest::checkBox()
{
    QWidget window;
    auto &box = add<QCheckBox>(window, "kormak_Muted");
    QCOMPARE(Bind(window, *document), QStringList());
    QVERIFY(!box.isChecked());
    box.click();
    QCOMPARE(said(*document, "Parameter[Muted].Boolean.Value"), QString("true"));
    change(*document, "Parameter[Muted].Boolean.Value", "false");
    QVERIFY(!box.isChecked());
}

void BindingTest::comboBox()
{
    QWidget window;
    auto &box = add<QComboBox>(window, "kormak_AGC_Mode");
    QCOMPARE(Bind(window, *document), QStringList());
    QCOMPARE(box.count(), 3);
    QCOMPARE(box.currentText(), QString("Fast"));
    box.setCurrentIndex(2);
    QCOMPARE(said(*document, "Parameter[AGC Mode].Enum.DefaultValue.Name"), QString("Slow"));
    change(*document, "Parameter[AGC Mode].Enum.EnumValue[0].Name", "None");
    QCOMPARE(box.itemText(0), QString("None"));
    QCOMPARE(box.currentText(), QString("Slow"));
}

void BindingTest::spinBox()
{
    QWidget window;
    auto &box = add<QSpinBox>(window, "kormak_Gain");
    auto &kilohertz = add<QSpinBox>(window, "kormak_Other");
    kilohertz.setObjectName("other");
    QCOMPARE(Bind(window, *document), QStringList());
    QCOMPARE(box.value(), 10);
    QCOMPARE(box.minimum(), 0);
    QCOMPARE(box.maximum(), 30);
    QCOMPARE(box.suffix(), QString(QChar(0xA0)) + "dB");
    box.setValue(12);
    QCOMPARE(said(*document, "Parameter[Gain].Integer.Default"), QString("12"));
    change(*document, "Parameter[Gain].Integer.Default", "-7");
    QCOMPARE(box.value(), -7);
}

void BindingTest::spinBoxOutsideTheLimits()
{
    change(*document, "Parameter[Gain].Integer.Default", "80");
    QWidget window;
    auto &box = add<QSpinBox>(window, "kormak_Gain");
    QCOMPARE(Bind(window, *document), QStringList());
    QCOMPARE(box.value(), 80);
    QCOMPARE(said(*document, "Parameter[Gain].Integer.Default"), QString("80"));
}

void BindingTest::doubleSpinBox()
{
    QWidget window;
    auto &level = add<QDoubleSpinBox>(window, "kormak_Level");
    auto &bandwidth = add<QDoubleSpinBox>(window, "kormak_Bandwidth");
    level.setDecimals(1);
    QCOMPARE(Bind(window, *document), QStringList());
    QCOMPARE(level.value(), 0.25);
    QCOMPARE(level.text(), QString("0.25")); // not cut off
    QCOMPARE(bandwidth.value(), 15.0);
    bandwidth.setValue(20);
    QCOMPARE(said(*document, "Parameter[Bandwidth].Double.Default"), QString("20000"));
    change(*document, "Parameter[Bandwidth].Double.Default", "12345.678");
    QCOMPARE(bandwidth.value(), 12.345678);
    QCOMPARE(bandwidth.decimals(), 6);
    change(*document, "Parameter[Bandwidth].Double.Default", "1e-20");
    QVERIFY(!bandwidth.isEnabled()); // more decimals than the control shows
    QVERIFY(!bandwidth.toolTip().isEmpty());
    QCOMPARE(said(*document, "Parameter[Bandwidth].Double.Default").toDouble(), 1e-20);
    change(*document, "Parameter[Bandwidth].Double.Default", "1000");
    QVERIFY(bandwidth.isEnabled());
    QCOMPARE(bandwidth.value(), 1.0);
}

void BindingTest::slider()
{
    QWidget window;
    auto &slider = add<QSlider>(window, "kormak_Gain");
    QCOMPARE(Bind(window, *document), QStringList());
    QCOMPARE(slider.maximum(), 30);
    QCOMPARE(slider.value(), 10);
    slider.setValue(11);
    QCOMPARE(said(*document, "Parameter[Gain].Integer.Default"), QString("11"));
    change(*document, "Parameter[Gain].Integer.Default", "80");
    QCOMPARE(slider.value(), 80);
}

void BindingTest::dateTimeEdit()
{
    QWidget window;
    auto &edit = add<QDateTimeEdit>(window, "kormak_From");
    QCOMPARE(Bind(window, *document), QStringList());
    QCOMPARE(edit.dateTime(), QDateTime({2026, 3, 14}, {6, 30, 0, 120}, Qt::UTC));
    edit.setDateTime(QDateTime({2026, 3, 15}, {6, 30, 0, 1}, Qt::UTC));
    QCOMPARE(said(*document, "Parameter[From].TimeStamp.Default"), QString("1773556200001000"));
}

void BindingTest::momentThatIsFinerThanMilliseconds()
{
    change(*document, "Parameter[From].TimeStamp.Default", "1773469800000001");
    QWidget window;
    auto &edit = add<QDateTimeEdit>(window, "kormak_From");
    QCOMPARE(Bind(window, *document),
             QStringList{"kormak_From: 2026-03-14 06:30:00.000001 cannot be shown here as it is"});
    QVERIFY(!edit.isEnabled());
    QCOMPARE(said(*document, "Parameter[From].TimeStamp.Default"), QString("1773469800000001"));
}

void BindingTest::lineEdit()
{
    QWidget window;
    auto &comment = add<QLineEdit>(window, "kormak_Comment");
    auto &bandwidth = add<QLineEdit>(window, "kormak_Bandwidth");
    bandwidth.setLocale(QLocale("de_DE"));
    QCOMPARE(Bind(window, *document), QStringList());
    QCOMPARE(comment.text(), QString("Mast 2"));
    comment.clear();
    QTest::keyClicks(&comment, "Mast 3");
    QTest::keyClick(&comment, Qt::Key_Return);
    QCOMPARE(said(*document, "Parameter[Comment].String.Default"), QString("Mast 3"));
    bandwidth.clear();
    QTest::keyClicks(&bandwidth, "12,5");
    QTest::keyClick(&bandwidth, Qt::Key_Return);
    QCOMPARE(said(*document, "Parameter[Bandwidth].Double.Default"), QString("12500"));
    QVERIFY(document->GetText().contains("<Default>12500</Default>")); // in the form of documents
    bandwidth.clear();
    QTest::keyClicks(&bandwidth, "wide");
    QTest::keyClick(&bandwidth, Qt::Key_Return);
    QCOMPARE(bandwidth.text(), QString("wide"));
    QVERIFY(bandwidth.toolTip().startsWith("This is not a number\n"));
    QCOMPARE(said(*document, "Parameter[Bandwidth].Double.Default"), QString("12500"));
}

void BindingTest::frequencyEdit()
{
    QWidget window;
    auto &edit = add<FrequencyEdit>(window, "kormak_Bandwidth");
    QCOMPARE(Bind(window, *document), QStringList());
    QCOMPARE(edit.text(), QString("15"));
    QCOMPARE(edit.GetUnit(), QString("kHz"));
    QTest::keyClicks(&edit, "0 Hz");
    QTest::keyClick(&edit, Qt::Key_Return);
    QCOMPARE(said(*document, "Parameter[Bandwidth].Double.Default"), QString("150"));
    QVERIFY(edit.GetProblem().startsWith("Below the minimum"));
    change(*document, "Parameter[Bandwidth].Double.Default", "20000");
    QCOMPARE(edit.text(), QString("20"));
    QCOMPARE(edit.GetProblem(), QString());
}

void BindingTest::parameterEdit()
{
    QWidget window;
    auto &mode = add<ParameterEdit>(window, "kormak_AGC_Mode");
    auto &gain = add<ParameterEdit>(window, "kormak_Gain");
    QCOMPARE(Bind(window, *document), QStringList());
    QCOMPARE(mode.GetControl(), ParameterControl::Choice);
    mode.findChild<QComboBox *>()->setCurrentIndex(0);
    QCOMPARE(said(*document, "Parameter[AGC Mode].Enum.DefaultValue.Name"), QString("Off"));
    auto *const line = gain.findChild<QLineEdit *>();
    line->selectAll();
    QTest::keyClicks(line, "31");
    QTest::keyClick(line, Qt::Key_Return);
    QCOMPARE(said(*document, "Parameter[Gain].Integer.Default"), QString("31"));
    QVERIFY(gain.GetProblem().startsWith("Above the maximum of 30"));
}

void BindingTest::disabledParameter()
{
    QWidget window;
    auto &box = add<QSpinBox>(window, "kormak_Disabled");
    QCOMPARE(Bind(window, *document), QStringList());
    QVERIFY(!box.isEnabled());
    QCOMPARE(box.value(), 5);
    document->Restore(document->GetText().replace("<Enable>false</Enable>", "<Enable>true</Enable>"));
    QVERIFY(box.isEnabled());
}

void BindingTest::messages_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("message");

    QTest::newRow("no such parameter") << "QSpinBox"
                                       << "Gian"
                                       << "there is no parameter Gian";
    QTest::newRow("no control") << "QLabel"
                                << "Gain"
                                << "a QLabel cannot show a parameter";
    QTest::newRow("other control") << "QCheckBox"
                                   << "Gain"
                                   << "a QCheckBox is nothing for a parameter of the type Integer";
    QTest::newRow("moment in a spin box") << "QSpinBox"
                                          << "From"
                                          << "a QSpinBox is nothing for a parameter of the type TimeStamp";
    QTest::newRow("list in a line") << "QLineEdit"
                                    << "Sectors"
                                    << "a QLineEdit is nothing for a parameter of the type DoubleList";
}

void BindingTest::messages()
{
    QFETCH(QString, className);
    QFETCH(QString, name);
    QFETCH(QString, message);
    QWidget window;
    const QByteArray objectName = "kormak_" + name.toLatin1();
    QWidget *child = nullptr;
    if (className == "QSpinBox")
        child = &add<QSpinBox>(window, objectName);
    else if (className == "QLabel")
        child = &add<QLabel>(window, objectName);
    else if (className == "QCheckBox")
        child = &add<QCheckBox>(window, objectName);
    else
        child = &add<QLineEdit>(window, objectName);
    const QByteArray before = document->GetText();
    QCOMPARE(Bind(window, *document), QStringList{objectName + ": " + message});
    if (className != "QLabel") {
        QVERIFY(!child->isEnabled());
        QCOMPARE(child->toolTip(), message);
    }
    QCOMPARE(document->GetText(), before);
}

void BindingTest::nameWithOtherCharacters()
{
    using OpenReceiver::limits;
    using OpenReceiver::parameter;
    document->SetText(OpenReceiver::receiver(parameter("a.b", "Integer", limits("0", "9", "1"))
                                             + parameter("c d", "Integer", limits("0", "9", "2"))
                                             + parameter("c-d", "Integer", limits("0", "9", "3"))
                                             + parameter("x]y", "Integer", limits("0", "9", "4"))));
    QWidget window;
    auto &one = add<QSpinBox>(window, "kormak_a_b");
    auto &two = add<QSpinBox>(window, "kormak_c_d");
    auto &bracket = add<QSpinBox>(window, "kormak_x_y");
    QCOMPARE(Bind(window, *document), QStringList{"kormak_c_d: there is no parameter c_d"}); // which of both?
    QCOMPARE(one.value(), 1);
    QVERIFY(!two.isEnabled());
    bracket.setValue(7);
    QCOMPARE(said(*document, "Parameter[x\\]y].Integer.Default"), QString("7"));
}

void BindingTest::openEdits()
{
    QWidget window;
    auto &edit = add<ParameterEdit>(window, "kormak_Gain");
    auto &comment = add<QLineEdit>(window, "kormak_Comment");
    auto &bandwidth = add<FrequencyEdit>(window, "kormak_Bandwidth");
    QCOMPARE(Bind(window, *document), QStringList());
    edit.findChild<QLineEdit *>()->selectAll();
    QTest::keyClicks(edit.findChild<QLineEdit *>(), "22");
    QTest::keyClicks(&comment, " and 3");
    bandwidth.selectAll();
    QTest::keyClicks(&bandwidth, "wide");
    const auto refused = document->TakeOpenEdits();
    QCOMPARE(said(*document, "Parameter[Gain].Integer.Default"), QString("22"));
    QCOMPARE(said(*document, "Parameter[Comment].String.Default"), QString("Mast 2 and 3"));
    QCOMPARE(refused.size(), 1);
    QCOMPARE(refused.at(0).GetMessage(), QString("This is not a number"));
    QVERIFY(refused.at(0).GetPath().contains("Bandwidth"));
    QCOMPARE(bandwidth.text(), QString("wide"));
}

void BindingTest::typingStays()
{
    QWidget window;
    auto &edit = add<FrequencyEdit>(window, "kormak_Bandwidth");
    auto &comment = add<QLineEdit>(window, "kormak_Comment");
    auto &gain = add<QSpinBox>(window, "kormak_Gain");
    QCOMPARE(Bind(window, *document), QStringList());
    QTest::keyClicks(&edit, "000");
    QTest::keyClicks(&comment, "!");
    change(*document, "Parameter[Gain].Integer.Default", "3");
    QCOMPARE(gain.value(), 3);
    QCOMPARE(edit.text(), QString("15000"));
    QCOMPARE(comment.text(), QString("Mast 2!"));
    edit.Discard();
    QCOMPARE(edit.text(), QString("15"));
}

void BindingTest::valueThatNoDocumentHolds()
{
    QWidget window;
    auto &comment = add<QLineEdit>(window, "kormak_Comment");
    QCOMPARE(Bind(window, *document), QStringList());
    comment.setText(QString("a") + QChar(1)); // XML has no place for it
    comment.setModified(true);
    const auto refused = document->TakeOpenEdits();
    QCOMPARE(refused.size(), 1);
    QVERIFY(!comment.toolTip().isEmpty());
    QCOMPARE(comment.text(), QString("a") + QChar(1));
    QCOMPARE(said(*document, "Parameter[Comment].String.Default"), QString("Mast 2"));
}

void BindingTest::otherDocument()
{
    using OpenReceiver::limits;
    using OpenReceiver::parameter;
    QWidget window;
    auto &gain = add<QSpinBox>(window, "kormak_Gain");
    auto &muted = add<QCheckBox>(window, "kormak_Muted");
    QCOMPARE(Bind(window, *document), QStringList());
    document->SetText(OpenReceiver::receiver(parameter("Gain", "Long", limits("-5", "5", "4"))));
    QCOMPARE(gain.value(), 4);
    QCOMPARE(gain.minimum(), -5);
    QVERIFY(!muted.isEnabled());
    QCOMPARE(muted.toolTip(), QString("there is no parameter Muted"));
    document->SetText(OpenReceiver::all());
    QVERIFY(muted.isEnabled());
    QCOMPARE(gain.value(), 10);
}

void BindingTest::boundAgain()
{
    OpenDocument other;
    other.SetText(OpenReceiver::all());
    QWidget window;
    auto &gain = add<QSpinBox>(window, "kormak_Gain");
    QCOMPARE(Bind(window, *document), QStringList());
    QCOMPARE(Bind(window, other), QStringList());
    gain.setValue(20);
    QCOMPARE(said(other, "Parameter[Gain].Integer.Default"), QString("20"));
    QCOMPARE(said(*document, "Parameter[Gain].Integer.Default"), QString("10"));
}

void BindingTest::endings()
{
    auto window = std::make_unique<QWidget>();
    auto *const gain = &add<QSpinBox>(*window, "kormak_Gain");
    auto *const comment = &add<QLineEdit>(*window, "kormak_Comment");
    QCOMPARE(Bind(*window, *document), QStringList());
    delete comment;
    change(*document, "Parameter[Gain].Integer.Default", "3");
    QVERIFY(document->TakeOpenEdits().isEmpty());
    QCOMPARE(gain->value(), 3);
    document.reset();
    gain->setValue(4);
    window.reset();
}

void BindingTest::wheelWithoutFocus()
{
    QWidget window;
    new QVBoxLayout(&window);
    auto &other = add<QLineEdit>(window, "other");
    auto &gain = add<QSpinBox>(window, "kormak_Gain");
    auto &level = add<QDoubleSpinBox>(window, "kormak_Level");
    auto &mode = add<QComboBox>(window, "kormak_AGC_Mode");
    auto &from = add<QDateTimeEdit>(window, "kormak_From");
    auto &slider = add<QSlider>(window, "kormak_Disabled");
    document->SetText(OpenReceiver::all().replace("<Enable>false</Enable>", "<Enable>true</Enable>"));
    QCOMPARE(Bind(window, *document), QStringList());
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    other.setFocus();
    const QByteArray before = document->GetText();
    for (QWidget *const control : QList<QWidget *>{&gain, &level, &mode, &from, &slider}) {
        turnWheel(*control, 120);
        turnWheel(*control, -240);
        QVERIFY(!control->hasFocus());
    }
    QCOMPARE(document->GetText(), before);
    gain.setFocus();
    QTRY_VERIFY(gain.hasFocus());
    turnWheel(gain, 120);
    QCOMPARE(gain.value(), 11);
}

void BindingTest::otherBytesStay()
{
    QWidget window;
    auto &gain = add<QSpinBox>(window, "kormak_Gain");
    QCOMPARE(Bind(window, *document), QStringList());
    const QByteArray before = document->GetText();
    gain.setValue(11);
    QByteArray expected = before;
    expected.replace("<Maximum>30</Maximum><Default>10</Default>",
                     "<Maximum>30</Maximum><Default>11</Default>");
    QCOMPARE(document->GetText(), expected);
}

void BindingTest::show(QWidget &window) const
{
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
}

void BindingTest::disabledWhileTyping_data()
{
    QTest::addColumn<QString>("className");
    QTest::newRow("line") << "QLineEdit";
    QTest::newRow("control of the parameter") << "ParameterEdit";
}

void BindingTest::disabledWhileTyping()
{
    QFETCH(QString, className);
    QWidget window;
    new QVBoxLayout(&window);
    QWidget *control = nullptr;
    if (className == "QLineEdit")
        control = &add<QLineEdit>(window, "kormak_Comment");
    else
        control = &add<ParameterEdit>(window, "kormak_Comment");
    QCOMPARE(Bind(window, *document), QStringList());
    show(window);
    auto *const line =
        className == "QLineEdit" ? static_cast<QLineEdit *>(control) : control->findChild<QLineEdit *>();
    line->setFocus();
    QTRY_VERIFY(line->hasFocus());
    line->selectAll();
    QTest::keyClicks(line, "Mast 3");
    QStringList told;
    connect(document.get(), &OpenDocument::Refused, &window, [&told](const QVector<Finding> &findings) {
        told += findings.at(0).GetPath() + ": " + findings.at(0).GetMessage();
    });
    QSignalSpy changes(document.get(), &OpenDocument::Changed);
    QByteArray disabled = document->GetText();
    disabled.replace("UniqueName=\"Comment\">", "UniqueName=\"Comment\"><Enable>false</Enable>");
    document->Restore(disabled);
    QCOMPARE(document->GetText(), disabled); // nothing is written into it
    QCOMPARE(changes.count(), 1);
    QVERIFY(!control->isEnabled());
    QCOMPARE(line->text(), QString("Mast 2"));
    QCOMPARE(told,
             QStringList{"Parameter[Comment].String.Default: "
                         "\"Mast 3\" is not taken: the parameter is disabled now"});
    QVERIFY(document->TakeOpenEdits().isEmpty()); // it stands in the way of nothing
}

void BindingTest::goneWhileTyping()
{
    QWidget window;
    auto &comment = add<QLineEdit>(window, "kormak_Comment");
    QCOMPARE(Bind(window, *document), QStringList());
    QTest::keyClicks(&comment, "!");
    QSignalSpy told(document.get(), &OpenDocument::Refused);
    QCOMPARE(document->Change({{Action::Unset, "Parameter[Comment]", {}}}).size(), 0);
    QCOMPARE(told.count(), 1);
    QCOMPARE(told.at(0).at(0).value<QVector<Finding>>().at(0).GetMessage(),
             QString("\"Mast 2!\" is not taken: there is no parameter Comment"));
    QVERIFY(!comment.isEnabled());
    QVERIFY(document->TakeOpenEdits().isEmpty());
}

void BindingTest::otherTypeWhileTyping()
{
    QWidget window;
    auto &gain = add<ParameterEdit>(window, "kormak_Gain");
    QCOMPARE(Bind(window, *document), QStringList());
    QTest::keyClicks(gain.findChild<QLineEdit *>(), "0");
    QVERIFY(gain.IsOpen());
    QSignalSpy told(document.get(), &OpenDocument::Refused);
    QByteArray other = document->GetText();
    const auto begin = other.indexOf("<ParameterType>Integer", other.indexOf("UniqueName=\"Gain\""));
    other.replace(begin, other.indexOf("</Integer>", begin) + 10 - begin,
                  "<ParameterType>String</ParameterType><String/>");
    document->Restore(other);
    QCOMPARE(document->GetText(), other);
    QCOMPARE(gain.GetControl(), ParameterControl::Text);
    QVERIFY(!gain.IsOpen());
    QCOMPARE(told.count(), 1);
    QCOMPARE(told.at(0).at(0).value<QVector<Finding>>().at(0).GetMessage(),
             QString("\"100\" is not taken: the parameter has another type now"));
}

void BindingTest::otherDocumentDropsWhatIsTyped()
{
    QWidget window;
    auto &comment = add<QLineEdit>(window, "kormak_Comment");
    auto &bandwidth = add<FrequencyEdit>(window, "kormak_Bandwidth");
    auto &level = add<ParameterEdit>(window, "kormak_Level");
    auto &gain = add<QSpinBox>(window, "kormak_Gain");
    QCOMPARE(Bind(window, *document), QStringList());
    QTest::keyClicks(&comment, "!");
    QTest::keyClicks(&bandwidth, "wide");
    QTest::keyClicks(level.findChild<QLineEdit *>(), "loud");
    gain.selectAll();
    QTest::keyClicks(&gain, "12");
    QSignalSpy told(document.get(), &OpenDocument::Refused);
    document->SetText(OpenReceiver::all());
    QCOMPARE(comment.text(), QString("Mast 2"));
    QCOMPARE(bandwidth.text(), QString("15"));
    QCOMPARE(level.findChild<QLineEdit *>()->text(), QString("0.25"));
    QCOMPARE(gain.cleanText(), QString("10"));
    QVERIFY(document->TakeOpenEdits().isEmpty());
    QCOMPARE(document->GetText(), OpenReceiver::all());
    QCOMPARE(told.count(), 0);
}

void BindingTest::unreadableInStepBoxes_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("reason");
    QTest::newRow("nothing in a spin box") << "QSpinBox"
                                           << "Gain"
                                           << ""
                                           << "There is no number";
    QTest::newRow("a sign alone") << "QDoubleSpinBox"
                                  << "Level"
                                  << "-"
                                  << "This is not a number";
    QTest::newRow("below the minimum") << "QDoubleSpinBox"
                                       << "Bandwidth"
                                       << "0" << QString("Below the minimum of 1") + QChar(0xA0) + "kHz";
    QTest::newRow("month 0") << "QDateTimeEdit"
                             << "From"
                             << "2026-0-14 06:30:00.120"
                             << "There is no such day or time";
}

void BindingTest::unreadableInStepBoxes()
{
    QFETCH(QString, className);
    QFETCH(QString, name);
    QFETCH(QString, text);
    QFETCH(QString, reason);
    QWidget window;
    new QVBoxLayout(&window);
    QAbstractSpinBox *box = nullptr;
    const QByteArray objectName = "kormak_" + name.toLatin1();
    if (className == "QSpinBox")
        box = &add<QSpinBox>(window, objectName);
    else if (className == "QDoubleSpinBox")
        box = &add<QDoubleSpinBox>(window, objectName);
    else
        box = &add<QDateTimeEdit>(window, objectName);
    auto &other = add<QLineEdit>(window, "other");
    QCOMPARE(Bind(window, *document), QStringList());
    show(window);
    box->setFocus();
    QTRY_VERIFY(box->hasFocus());
    const QByteArray before = document->GetText();
    auto *const line = box->findChild<QLineEdit *>();
    const QString shown = box->text();
    const auto typed = [line] { return line->text().section(QChar(0xA0), 0, 0); }; // without the unit
    if (auto *const moment = qobject_cast<QDateTimeEdit *>(box)) {
        moment->setSelectedSection(QDateTimeEdit::MonthSection);
        QTest::keyClick(box, Qt::Key_0);
    } else {
        line->setText(text);
        line->setModified(true);
    }
    QCOMPARE(typed(), text);
    QVERIFY(!box->hasAcceptableInput());
    const auto refused = document->TakeOpenEdits();
    QCOMPARE(refused.size(), 1);
    QCOMPARE(refused.at(0).GetMessage(), reason);
    QVERIFY(refused.at(0).GetPath().startsWith("Parameter[" + name + "]."));
    QCOMPARE(typed(), text);
    QVERIFY(box->toolTip().startsWith(reason));
    QCOMPARE(box->accessibleDescription(), reason);

    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Up, Qt::Key_PageDown}) {
        QTest::keyClick(box, key);
        QCOMPARE(typed(), text);
    }
    turnWheel(*box, 120);
    QCOMPARE(typed(), text);
    QTest::mouseClick(box, Qt::LeftButton, {}, {box->width() - 5, 5}); // the arrow
    QCOMPARE(typed(), text);

    QSignalSpy told(document.get(), &OpenDocument::Refused);
    other.setFocus();
    QTRY_COMPARE(told.count(), 1); // what it was is told, and the value stands there again
    QCOMPARE(box->text(), shown);
    QVERIFY(document->TakeOpenEdits().isEmpty());
    QCOMPARE(document->GetText(), before);
}

void BindingTest::refusedTextStays()
{
    QWidget window;
    auto &comment = add<ParameterEdit>(window, "kormak_Comment");
    QCOMPARE(Bind(window, *document), QStringList());
    auto *const line = comment.findChild<QLineEdit *>();
    const QString typed = QString("a") + QChar(1); // XML has no place for it
    line->setText(typed);
    for (int i = 0; i < 2; ++i) { // as long as it stands there
        const auto refused = document->TakeOpenEdits();
        QCOMPARE(refused.size(), 1);
        QCOMPARE(line->text(), typed);
        QVERIFY(comment.IsOpen());
        QVERIFY(comment.GetProblem().startsWith(refused.at(0).GetMessage()));
    }
    change(*document, "Parameter[Gain].Integer.Default", "3");
    QCOMPARE(line->text(), typed);
    comment.Discard();
    QCOMPARE(line->text(), QString("Mast 2"));
    QCOMPARE(comment.GetProblem(), QString());
    QVERIFY(document->TakeOpenEdits().isEmpty());
}

void BindingTest::marks_data()
{
    QTest::addColumn<QString>("className");
    QTest::newRow("spin box") << "QSpinBox";
    QTest::newRow("spin box with decimals") << "QDoubleSpinBox";
    QTest::newRow("slider") << "QSlider";
    QTest::newRow("line") << "QLineEdit";
}

void BindingTest::marks()
{
    QFETCH(QString, className);
    QWidget window;
    new QVBoxLayout(&window);
    QWidget *control = nullptr;
    if (className == "QSpinBox")
        control = &add<QSpinBox>(window, "kormak_Gain");
    else if (className == "QDoubleSpinBox")
        control = &add<QDoubleSpinBox>(window, "kormak_Gain");
    else if (className == "QSlider")
        control = &add<QSlider>(window, "kormak_Gain");
    else
        control = &add<QLineEdit>(window, "kormak_Gain");
    control->setAccessibleDescription("of the amplifier");
    QCOMPARE(Bind(window, *document), QStringList());
    show(window);
    const QImage without = control->grab().toImage();
    const QString tip = control->toolTip();
    change(*document, "Parameter[Gain].Integer.Default", "80");
    const QString problem = QString("Above the maximum of 30") + QChar(0xA0) + "dB";
    QCOMPARE(control->accessibleDescription(), problem);
    QVERIFY(control->toolTip().startsWith(problem));
    const QColor warning = Widgets::colorOf(Widgets::ValueMark::Warning, control->palette());
    const auto count = [&warning](const QImage &image) {
        int found = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                found += image.pixelColor(x, y).rgb() == warning.rgb() ? 1 : 0;
        }
        return found;
    };
    QCOMPARE(count(without), 0);
    QCoreApplication::processEvents();
    // As large as anywhere, also where the pixels are small.
    const qreal scale = control->devicePixelRatioF();
    QVERIFY(count(control->grab().toImage()) > 50 * scale * scale);
    change(*document, "Parameter[Gain].Integer.Default", "10");
    QCoreApplication::processEvents();
    QCOMPARE(count(control->grab().toImage()), 0);
    QCOMPARE(control->accessibleDescription(), QString("of the amplifier"));
    QCOMPARE(control->toolTip(), tip);
}

void BindingTest::markOfASlider()
{
    QWidget window;
    auto &slider = add<QSlider>(window, "kormak_Gain");
    slider.setOrientation(Qt::Horizontal);
    slider.resize(200, 30);
    QCOMPARE(Bind(window, *document), QStringList());
    const auto middle = [&slider] { return slider.findChild<QWidget *>()->geometry().center().x(); };
    change(*document, "Parameter[Gain].Integer.Default", "80"); // the handle stands at the right
    QVERIFY(middle() < 100);
    change(*document, "Parameter[Gain].Integer.Default", "-80");
    QVERIFY(middle() > 100);
    slider.setLayoutDirection(Qt::RightToLeft);
    QVERIFY(middle() < 100);
}

void BindingTest::accessibleNames()
{
    QWidget window;
    auto &gain = add<QSpinBox>(window, "kormak_Gain");
    auto &level = add<QDoubleSpinBox>(window, "kormak_Level");
    auto &comment = add<QLineEdit>(window, "kormak_Comment");
    QLabel label("Remarks", &window);
    label.setBuddy(&comment);
    level.setAccessibleName("Own name");
    QCOMPARE(Bind(window, *document), QStringList());
    QCOMPARE(gain.accessibleName(), QString("Gain"));
    QCOMPARE(level.accessibleName(), QString("Own name"));
    QCOMPARE(comment.accessibleName(), QString()); // its label tells it
}

void BindingTest::controlsThatFollowEachOther()
{
    QWidget window;
    auto &gain = add<QSpinBox>(window, "kormak_Gain");
    auto &level = add<QDoubleSpinBox>(window, "kormak_Level");
    int depth = 0; // of changes that are being told
    int deepest = 0;
    connect(document.get(), &OpenDocument::Changed, &window, [&] { deepest = std::max(deepest, ++depth); });
    QCOMPARE(Bind(window, *document), QStringList());
    connect(document.get(), &OpenDocument::Changed, &window, [&] { --depth; });
    connect(&gain, QOverload<int>::of(&QSpinBox::valueChanged), &level, &QDoubleSpinBox::setValue);
    change(*document, "Parameter[Gain].Integer.Default", "7");
    QTRY_COMPARE(said(*document, "Parameter[Level].Float.Default"), QString("7"));
    QCOMPARE(level.value(), 7.0);
    QCOMPARE(deepest, 1); // one after the other
}

void BindingTest::windowThatEndsWithTheChange()
{
    auto *const window = new QWidget;
    auto &comment = add<QLineEdit>(*window, "kormak_Comment");
    auto &bandwidth = add<FrequencyEdit>(*window, "kormak_Bandwidth");
    QCOMPARE(Bind(*window, *document), QStringList());
    QTest::keyClicks(&comment, "!");
    QTest::keyClicks(&bandwidth, "000");
    const QPointer<QWidget> guard(window);
    connect(document.get(), &OpenDocument::Changed, document.get(), [&guard] { delete guard.data(); });
    QVERIFY(document->TakeOpenEdits().isEmpty());
    QVERIFY(!guard);
    QCOMPARE(said(*document, "Parameter[Comment].String.Default"), QString("Mast 2!"));
}

void BindingTest::documentThatEndsWithTheRefusal()
{
    QWidget window;
    auto &comment = add<QLineEdit>(window, "kormak_Comment");
    QCOMPARE(Bind(window, *document), QStringList());
    comment.setText(QString("a") + QChar(1));
    comment.setModified(true);
    connect(document.get(), &OpenDocument::Refused, &window, [this] { document.reset(); });
    QTest::keyClick(&comment, Qt::Key_Return);
    QVERIFY(!document);
    QCOMPARE(comment.text(), QString("a") + QChar(1));
    QTest::keyClicks(&comment, "b"); // it is connected with nothing
    QTest::keyClick(&comment, Qt::Key_Return);
}

void BindingTest::boundAgainByAChange()
{
    OpenDocument other;
    other.SetText(OpenReceiver::all().replace("<ToolTip>", "<ToolTip>other "));
    QWidget window;
    auto &gain = add<QSpinBox>(window, "kormak_Gain");
    gain.setToolTip("of the application");
    QCOMPARE(Bind(window, *document), QStringList());
    bool isDone = false;
    connect(document.get(), &OpenDocument::Changed, &window, [&] {
        if (!std::exchange(isDone, true))
            QCOMPARE(Bind(window, other), QStringList());
    });
    gain.setValue(12);
    QCOMPARE(said(*document, "Parameter[Gain].Integer.Default"), QString("12"));
    QCOMPARE(gain.value(), 10); // of the other one
    QCOMPARE(gain.toolTip(), QString("of the application"));
    gain.setValue(13);
    QCOMPARE(said(*document, "Parameter[Gain].Integer.Default"), QString("12"));
    QCOMPARE(said(other, "Parameter[Gain].Integer.Default"), QString("13"));
}

void BindingTest::mirrored()
{
    QWidget window;
    new QVBoxLayout(&window);
    window.setLayoutDirection(Qt::RightToLeft);
    auto &gain = add<QSpinBox>(window, "kormak_Gain");
    auto &line = add<QLineEdit>(window, "kormak_Level");
    auto &from = add<QDateTimeEdit>(window, "kormak_From");
    QCOMPARE(Bind(window, *document), QStringList());
    show(window);
    change(*document, "Parameter[Gain].Integer.Default", "-7");
    change(*document, "Parameter[Level].Float.Default", "-12.5");
    QCoreApplication::processEvents();
    QCOMPARE(gain.value(), -7);
    QCOMPARE(gain.cleanText(), QString("-7"));
    // The sign stands before the number, as from left to right.
    QCOMPARE(line.text(), QString(QChar(0x200E)) + "-12.5");
    for (QWidget *const control : {static_cast<QWidget *>(&gain), static_cast<QWidget *>(&line)}) {
        QVERIFY(control->isRightToLeft());
        const auto *const button = control->findChild<QAbstractButton *>(); // the mark
        QVERIFY(button);
        QVERIFY(button->mapTo(control, button->rect().center()).x() < control->width() / 2);
    }
    QCOMPARE(from.text(), QString("2026-03-14 06:30:00.120")); // not from its end
    window.setLayoutDirection(Qt::LeftToRight);
    QCOMPARE(line.text(), QString("-12.5"));
    window.setLayoutDirection(Qt::RightToLeft);
    line.setLocale(QLocale("de_DE"));
    QCOMPARE(line.text(), QString(QChar(0x200E)) + "-12,5");
    line.clear();
    QTest::keyClicks(&line, "-3");
    QTest::keyClick(&line, Qt::Key_Return);
    QCOMPARE(said(*document, "Parameter[Level].Float.Default"), QString("-3"));
}

void BindingTest::pictures()
{
    document->SetText(OpenReceiver::all());
    const auto make = [this]() -> std::unique_ptr<QWidget> {
        auto window = std::make_unique<QWidget>();
        auto *const form = new QFormLayout(window.get());
        const auto addRow = [form](QWidget *control, const char *name) {
            control->setObjectName(QString("kormak_") + name);
            control->setLocale(QLocale("en_GB"));
            form->addRow(control->metaObject()->className(), control);
        };
        addRow(new QSpinBox, "Gain");
        form->itemAt(form->rowCount() - 1, QFormLayout::FieldRole)
            ->widget()
            ->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        addRow(new QSlider(Qt::Horizontal), "Gain");
        addRow(new QLineEdit, "Gain");
        addRow(new FrequencyEdit, "Gain");
        addRow(new ParameterEdit, "Gain");
        addRow(new QDoubleSpinBox, "Level");
        addRow(new QLineEdit, "Bandwidth");
        addRow(new QDateTimeEdit, "From");
        addRow(new QComboBox, "AGC_Mode");
        addRow(new QCheckBox("Muted"), "Muted");
        addRow(new QLineEdit, "Disabled");
        change(*document, "Parameter[Gain].Integer.Default", "-80");
        change(*document, "Parameter[Level].Float.Default", "12.25");
        static_cast<void>(Bind(*window, *document));
        return window;
    };
    QVERIFY(TestSupport::takePictures("bound-controls", {420, 420}, make));
}

QTEST_MAIN(BindingTest)
#include "BindingTest.moc"
