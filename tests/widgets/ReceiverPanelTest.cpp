#include "OpenReceiver.h"

#include <models/ParameterModel.h>
#include <tests/support/Pictures.h>
#include <widgets/ParameterEdit.h>
#include <widgets/ReceiverPanel.h>

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QToolTip>
#include <QtTest>
#include <QWheelEvent>

using namespace KORMAK;
using OpenReceiver::said;

namespace {

using Action = DocumentEdit::Change::Action;

constexpr int NameColumn = ParameterModel::UniqueNameColumn;
constexpr int ValueColumn = ParameterModel::ValueColumn;
constexpr int DefaultColumn = ParameterModel::DefaultColumn;
constexpr int LimitsColumn = ParameterModel::MinimumColumn;

/// A panel in a window that has the focus.
struct Shown {
    OpenDocument document;
    std::unique_ptr<ReceiverPanel> panel;

    explicit Shown(const QByteArray &text)
    {
        document.SetText(text);
        panel = std::make_unique<ReceiverPanel>(document);
        panel->setLocale(QLocale("en_GB"));
        panel->resize(900, 700);
        panel->show();
        panel->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(panel.get()));
    }

    [[nodiscard]] QTableView &view() const { return *panel->findChild<QTableView *>(); }
    [[nodiscard]] QAbstractItemModel &rows() const { return *view().model(); }
    /// One that is closed is hidden until it is destroyed.
    [[nodiscard]] ParameterEdit *editor() const
    {
        for (ParameterEdit *const found : view().viewport()->findChildren<ParameterEdit *>()) {
            if (found->isVisible())
                return found;
        }
        return nullptr;
    }
    [[nodiscard]] QLineEdit *line() const { return editor() ? editor()->findChild<QLineEdit *>() : nullptr; }

    [[nodiscard]] QModelIndex index(const char *name, int column = ValueColumn) const
    {
        for (int row = 0; row < rows().rowCount(); ++row) {
            const QModelIndex found = rows().index(row, column);
            if (found.data(ParameterModel::UniqueNameRole).toString() == name)
                return found;
        }
        return {};
    }
    [[nodiscard]] QString text(const char *name, int column = ValueColumn) const
    {
        return index(name, column).data().toString().replace(QChar(0xA0), ' ').replace(QChar(0x202F), ' ');
    }
    [[nodiscard]] QStringList names() const
    {
        QStringList found;
        for (int row = 0; row < rows().rowCount(); ++row)
            found += rows().index(row, NameColumn).data(ParameterModel::UniqueNameRole).toString();
        return found;
    }
    [[nodiscard]] QString counts() const { return panel->findChild<QLabel *>()->text(); }

    void click(const char *name, int column = ValueColumn) const
    {
        view().scrollTo(index(name, column));
        const QRect cell = view().visualRect(index(name, column));
        // Below the heading of a group, at the beginning, where boxes are.
        const QPoint place = view().layoutDirection() == Qt::LeftToRight
            ? QPoint(cell.left() + 14, cell.bottom() - 14)
            : QPoint(cell.right() - 14, cell.bottom() - 14);
        QTest::mouseClick(view().viewport(), Qt::LeftButton, {}, place);
    }
    void type(const char *name, const QString &typed) const
    {
        click(name);
        QVERIFY(line());
        line()->selectAll();
        QTest::keyClicks(line(), typed);
    }
};

void change(OpenDocument &document, const char *path, const char *text)
{
    QCOMPARE(document.Change({{Action::Set, path, text}}, DocumentEdit::NewFindings::Accepted).size(), 0);
}

void turnWheel(QWidget &widget, const QPoint &place, int angle)
{
    QWheelEvent event(place, widget.mapToGlobal(place), {}, {0, angle}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&widget, &event);
}

/// Adds what \a document refuses to \a told.
void listenToRefusals(OpenDocument &document, QStringList &told)
{
    QObject::connect(&document, &OpenDocument::Refused, &document, [&told](const QVector<Finding> &findings) {
        for (const Finding &finding : findings)
            told += finding.GetPath() + ": " + finding.GetMessage();
    });
}

} // namespace

class ReceiverPanelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shows();
    void groups();
    void groupsOfTheApplication();
    void search();
    void changedOnly();
    void oneGroup();
    void numbersAreTyped();
    void checkBoxes();
    void choices();
    void disabledAndLists();
    void decimalsAreNotCutOff();
    void outsideTheLimits();
    void whatIsNoValueStays();
    void openEdits();
    void wheel();
    void restoring();
    void changesFromElsewhere();
    void typingStaysWhenOthersChange();
    void tabOrder();
    void keys();
    void accessibility();
    void goingToAParameter();
    void otherDocuments();
    void bytes();
    void mirrored();
    void longTexts();
    void columnsFitValues();
    void locales();
    void manyParameters();
    void draftOfAParameterThatGoes();
    void editorOfAParameterThatGoes();
    void disabledWhileTyping();
    void otherTypeWhileTyping();
    void refusedTextStays();
    void editedRowStays();
    void menu();
    void menuOfAPanelThatEnds();
    void panelThatEndsWithTheChange();
    void pictures();
};

void ReceiverPanelTest::shows()
{
    const Shown shown(OpenReceiver::all());
    QCOMPARE(shown.rows().rowCount(), 9);
    QCOMPARE(shown.text("Bandwidth"), QString("15 kHz"));
    QCOMPARE(shown.text("Bandwidth", LimitsColumn), QString("1 to 80 000 kHz"));
    QCOMPARE(shown.text("Bandwidth", DefaultColumn), QString());
    QCOMPARE(shown.text("AGC Mode"), QString("Fast"));
    QCOMPARE(shown.text("From"), QString("2026-03-14 06:30:00.12 UTC"));
    QCOMPARE(shown.text("Muted"), QString("no"));
    QCOMPARE(shown.text("Comment"), QString("Mast 2"));
    QCOMPARE(shown.counts(), QString("9 parameters"));
}

void ReceiverPanelTest::groups()
{
    const Shown shown(OpenReceiver::example("vuhf-direction-finder.xml"));
    QStringList found;
    for (int row = 0; row < shown.rows().rowCount(); ++row) {
        const QString group = shown.rows().index(row, 0).data(ParameterModel::GroupRole).toString();
        if (found.isEmpty() || found.last() != group)
            found += group;
    }
    QStringList sorted = found;
    sorted.sort();
    sorted.removeDuplicates();
    QCOMPARE(found, sorted); // each once, and in order
    QVERIFY(found.size() > 3);
    QVERIFY(found.contains("rx"));
    // Each has a heading above its first row.
    const auto heightOf = [&shown](const char *name) {
        return shown.view().rowHeight(shown.index(name).row());
    };
    QVERIFY(heightOf("AFC") > heightOf("AFCRange"));
}

void ReceiverPanelTest::groupsOfTheApplication()
{
    Shown shown(OpenReceiver::all());
    shown.panel->GetModel().SetGroups({{"Gain", "Amplifier"}, {"Comment", ""}});
    QCOMPARE(shown.names().first(), QString("Gain"));
    QCOMPARE(shown.names().last(), QString("Comment")); // what has no group
    auto *const groups = shown.panel->findChild<QComboBox *>();
    QTRY_COMPARE(groups->itemText(1), QString("Amplifier"));
    QCOMPARE(groups->itemText(groups->count() - 1), QString("Others"));
}

void ReceiverPanelTest::search()
{
    const Shown shown(OpenReceiver::all());
    shown.panel->SetSearch("gai");
    QCOMPARE(shown.names(), QStringList{"Gain"});
    QCOMPARE(shown.counts(), QString("1 of 9 parameters"));
    shown.panel->SetSearch("nothing is so");
    QCOMPARE(shown.rows().rowCount(), 0);
    shown.panel->SetSearch({});
    QCOMPARE(shown.rows().rowCount(), 9);
    QTest::keyClick(&shown.view(), Qt::Key_F, Qt::ControlModifier);
    auto *const field = shown.panel->findChild<QLineEdit *>();
    QTRY_VERIFY(field->hasFocus());
    QTest::keyClicks(field, "mute");
    QCOMPARE(shown.panel->GetSearch(), QString("mute"));
    QCOMPARE(shown.names(), QStringList{"Muted"});
}

void ReceiverPanelTest::changedOnly()
{
    Shown shown(OpenReceiver::all());
    shown.panel->SetShow(ParameterFilter::Show::Changed);
    QCOMPARE(shown.rows().rowCount(), 0);
    change(shown.document, "Parameter[Gain].Integer.Default", "11");
    QCOMPARE(shown.names(), QStringList{"Gain"});
    QCOMPARE(shown.text("Gain", DefaultColumn), QString("10 dB"));
    change(shown.document, "Parameter[Gain].Integer.Default", "10");
    QCOMPARE(shown.rows().rowCount(), 0);
    shown.panel->SetShow(ParameterFilter::Show::All);
    QCOMPARE(shown.panel->GetShow(), ParameterFilter::Show::All);
    QCOMPARE(shown.rows().rowCount(), 9);
}

void ReceiverPanelTest::oneGroup()
{
    const Shown shown(OpenReceiver::example("vuhf-direction-finder.xml"));
    auto *const groups = shown.panel->findChild<QComboBox *>();
    const int all = shown.rows().rowCount();
    groups->setCurrentIndex(groups->findText("compass"));
    QCOMPARE(shown.names(), QStringList({"CompassOffset", "CompassSource"}));
    groups->setCurrentIndex(0);
    QCOMPARE(shown.rows().rowCount(), all);
}

void ReceiverPanelTest::numbersAreTyped()
{
    Shown shown(OpenReceiver::all());
    shown.type("Gain", "12");
    QTest::keyClick(shown.line(), Qt::Key_Return);
    QTRY_VERIFY(!shown.editor());
    QCOMPARE(said(shown.document, "Parameter[Gain].Integer.Default"), QString("12"));
    QCOMPARE(shown.text("Gain"), QString("12 dB"));
    shown.type("Gain", "13");
    QTest::keyClick(shown.line(), Qt::Key_Escape);
    QVERIFY(shown.editor());
    QCOMPARE(shown.line()->text(), QString("12"));
    QTest::keyClick(shown.line(), Qt::Key_Escape);
    QTRY_VERIFY(!shown.editor());
    QCOMPARE(said(shown.document, "Parameter[Gain].Integer.Default"), QString("12"));
    shown.type("Gain", "14");
    shown.panel->findChild<QLineEdit *>()->setFocus(); // the search
    QTRY_VERIFY(!shown.editor());
    QCOMPARE(said(shown.document, "Parameter[Gain].Integer.Default"), QString("14"));
}

void ReceiverPanelTest::checkBoxes()
{
    Shown shown(OpenReceiver::all());
    shown.click("Muted");
    QCOMPARE(said(shown.document, "Parameter[Muted].Boolean.Value"), QString("true"));
    QCOMPARE(shown.text("Muted"), QString("yes"));
    QTest::keyClick(shown.editor()->findChild<QCheckBox *>(), Qt::Key_Space);
    QCOMPARE(said(shown.document, "Parameter[Muted].Boolean.Value"), QString("false"));
}

void ReceiverPanelTest::choices()
{
    Shown shown(OpenReceiver::all());
    shown.click("AGC Mode");
    auto *const box = shown.editor()->findChild<QComboBox *>();
    QVERIFY(box->view()->isVisible());
    box->hidePopup();
    box->setCurrentIndex(2);
    QCOMPARE(said(shown.document, "Parameter[AGC Mode].Enum.DefaultValue.Name"), QString("Slow"));
    QCOMPARE(shown.text("AGC Mode"), QString("Slow"));
    QCOMPARE(shown.text("AGC Mode", DefaultColumn), QString("Fast"));
}

void ReceiverPanelTest::disabledAndLists()
{
    Shown shown(OpenReceiver::all());
    shown.click("Disabled");
    QVERIFY(!shown.editor());
    QVERIFY(!(shown.rows().flags(shown.index("Disabled")) & Qt::ItemIsEditable));
    shown.click("Sectors");
    QVERIFY(!shown.editor());
    QVERIFY(shown.index("Sectors").data(Qt::ToolTipRole).toString().contains("Documents do not hold"));
}

void ReceiverPanelTest::decimalsAreNotCutOff()
{
    Shown shown(OpenReceiver::all());
    QCOMPARE(shown.text("Level"), QString("0.25")); // its precision is 1
    change(shown.document, "Parameter[Bandwidth].Double.Default", "12345.678901");
    QCOMPARE(shown.text("Bandwidth"), QString("12.345678901 kHz"));
    shown.click("Bandwidth");
    QCOMPARE(shown.line()->text(), QString("12.345678901"));
    QTest::keyClick(shown.line(), Qt::Key_Return);
    QTRY_VERIFY(!shown.editor());
    QCOMPARE(said(shown.document, "Parameter[Bandwidth].Double.Default"), QString("12345.678901"));
}

void ReceiverPanelTest::outsideTheLimits()
{
    Shown shown(OpenReceiver::all());
    shown.type("Gain", "80");
    QTest::keyClick(shown.line(), Qt::Key_Return);
    QTRY_VERIFY(!shown.editor());
    QCOMPARE(said(shown.document, "Parameter[Gain].Integer.Default"), QString("80"));
    QCOMPARE(shown.text("Gain"), QString("80 dB"));
    const QString finding = shown.document.GetDocument().GetFindings().at(0).GetMessage();
    QCOMPARE(shown.index("Gain").data(Qt::AccessibleDescriptionRole).toString(), finding);
    QVERIFY(shown.index("Gain").data(Qt::ToolTipRole).toString().startsWith(finding));
}

void ReceiverPanelTest::whatIsNoValueStays()
{
    Shown shown(OpenReceiver::all());
    const QByteArray before = shown.document.GetText();
    shown.type("Gain", "loud");
    QTest::keyClick(shown.line(), Qt::Key_Return);
    QVERIFY(shown.editor()); // to be put right at once
    QTest::keyClick(shown.line(), Qt::Key_Tab);
    QTRY_COMPARE(shown.view().currentIndex().data(ParameterModel::UniqueNameRole).toString(),
                 QString("Level"));
    QCOMPARE(shown.text("Gain"), QString("loud"));
    QCOMPARE(shown.index("Gain").data(Qt::AccessibleDescriptionRole).toString(),
             QString("This is not a number"));
    QCOMPARE(shown.document.GetText(), before);
    shown.panel->SetSearch("Level");
    shown.panel->SetSearch({});
    QCOMPARE(shown.text("Gain"), QString("loud"));
    shown.click("Gain");
    QCOMPARE(shown.line()->text(), QString("loud"));
    QTest::keyClick(shown.line(), Qt::Key_Escape);
    QCOMPARE(shown.line()->text(), QString("10"));
    QTest::keyClick(shown.line(), Qt::Key_Escape);
    QTRY_VERIFY(!shown.editor());
    QCOMPARE(shown.text("Gain"), QString("10 dB"));
    QCOMPARE(shown.index("Gain").data(Qt::AccessibleDescriptionRole).toString(), QString());
}

void ReceiverPanelTest::openEdits()
{
    Shown shown(OpenReceiver::all());
    shown.type("Gain", "12");
    QVERIFY(shown.document.TakeOpenEdits().isEmpty());
    QCOMPARE(said(shown.document, "Parameter[Gain].Integer.Default"), QString("12"));
    shown.type("Level", "loud");
    const auto refused = shown.document.TakeOpenEdits();
    QCOMPARE(refused.size(), 1);
    QCOMPARE(refused.at(0).GetMessage(), QString("This is not a number"));
    QCOMPARE(shown.text("Level"), QString("loud"));
    shown.click("Comment");
    QCOMPARE(shown.document.TakeOpenEdits().size(), 1); // it still stands there
    shown.panel->RestoreDefaults();
    QVERIFY(shown.document.TakeOpenEdits().isEmpty());
}

void ReceiverPanelTest::wheel()
{
    Shown shown(OpenReceiver::example("vuhf-direction-finder.xml"));
    const QByteArray before = shown.document.GetText();
    for (const char *const name : {"AFC", "Attenuation", "AntennaHeight"}) {
        shown.view().scrollTo(shown.index(name));
        turnWheel(*shown.view().viewport(), shown.view().visualRect(shown.index(name)).center(), -120);
    }
    QCOMPARE(shown.document.GetText(), before);
    QVERIFY(shown.view().verticalScrollBar()->value() > 0);
    QVERIFY(!shown.editor());
}

void ReceiverPanelTest::restoring()
{
    Shown shown(OpenReceiver::all());
    const QByteArray before = shown.document.GetText();
    change(shown.document, "Parameter[Gain].Integer.Default", "11");
    change(shown.document, "Parameter[Comment].String.Default", "Mast 3");
    change(shown.document, "Parameter[Level].Float.Default", "7");
    shown.click("Gain", DefaultColumn);
    QCOMPARE(said(shown.document, "Parameter[Gain].Integer.Default"), QString("10"));
    QCOMPARE(said(shown.document, "Parameter[Comment].String.Default"), QString("Mast 3"));
    shown.click("Bandwidth", DefaultColumn); // nothing to restore
    QVERIFY(!shown.editor());
    for (auto *const button : shown.panel->findChildren<QPushButton *>())
        button->click();
    QCOMPARE(shown.document.GetText(), before);
}

void ReceiverPanelTest::changesFromElsewhere()
{
    Shown shown(OpenReceiver::all());
    shown.click("Gain");
    change(shown.document, "Parameter[Gain].Integer.Default", "20");
    QCOMPARE(shown.line()->text(), QString("20"));
    change(shown.document, "Parameter[Level].Float.Default", "7");
    QCOMPARE(shown.text("Level"), QString("7.0"));
    QCOMPARE(shown.document.Change({{Action::Unset, "Parameter[Muted]", {}}}).size(), 0);
    QCOMPARE(shown.rows().rowCount(), 8);
    QCOMPARE(shown.counts(), QString("8 parameters"));
}

void ReceiverPanelTest::typingStaysWhenOthersChange()
{
    Shown shown(OpenReceiver::all());
    shown.type("Gain", "2");
    change(shown.document, "Parameter[Level].Float.Default", "7");
    change(shown.document, "Parameter[Gain].Integer.Default", "20");
    QVERIFY(shown.editor());
    QCOMPARE(shown.line()->text(), QString("2"));
    QTest::keyClicks(shown.line(), "5");
    QTest::keyClick(shown.line(), Qt::Key_Return);
    QCOMPARE(said(shown.document, "Parameter[Gain].Integer.Default"), QString("25"));
}

void ReceiverPanelTest::tabOrder()
{
    const Shown shown(OpenReceiver::all());
    const auto current = [&shown] {
        return shown.view().currentIndex().data(ParameterModel::UniqueNameRole).toString();
    };
    QTest::keyClick(shown.panel->focusWidget() ? shown.panel->focusWidget() : shown.panel.get(), Qt::Key_Tab);
    shown.click("Bandwidth");
    QStringList visited;
    for (int i = 0; i < 6 && shown.editor(); ++i) {
        visited += current();
        QTest::keyClick(shown.editor()->focusProxy(), Qt::Key_Tab);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    // What is disabled, and lists, are passed over.
    QCOMPARE(visited, QStringList({"Bandwidth", "Comment", "From", "Gain", "Level", "Muted"}));
    QTRY_VERIFY(!shown.editor());
    shown.click("Level");
    QTest::keyClick(shown.line(), Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(current(), QString("Gain"));

    // From control to control, and out of the panel again.
    QStringList order;
    QWidget *widget = shown.panel->findChild<QLineEdit *>();
    for (int i = 0; i < 20 && order.size() < 5; ++i) {
        if (widget->focusPolicy() & Qt::TabFocus && widget->isVisible()
            && widget->parent() == shown.panel.get())
            order += widget->metaObject()->className();
        widget = widget->nextInFocusChain();
    }
    QCOMPARE(order.at(0), QString("QLineEdit"));
    QCOMPARE(order.at(1), QString("QCheckBox")); // there is one group alone: nothing to choose
    QCOMPARE(order.at(2), QString("QTableView"));
    QCOMPARE(order.at(3), QString("QPushButton"));
}

void ReceiverPanelTest::keys()
{
    Shown shown(OpenReceiver::all());
    shown.view().setFocus();
    shown.view().setCurrentIndex(shown.index("Gain", NameColumn));
    QTest::keyClick(&shown.view(), Qt::Key_Return);
    QVERIFY(shown.line());
    QTest::keyClick(shown.line(), Qt::Key_Up); // the digit at the cursor
    QCOMPARE(said(shown.document, "Parameter[Gain].Integer.Default"), QString("11"));
    QTest::keyClick(shown.line(), Qt::Key_Return);
    QTRY_VERIFY(!shown.editor());
    QTest::keyClick(&shown.view(), Qt::Key_Down);
    QCOMPARE(shown.panel->GetCurrentParameter(), QString("Level"));
    shown.view().setCurrentIndex(shown.index("Gain"));
    QTest::keyClicks(&shown.view(), "2"); // typing begins to edit
    QVERIFY(shown.line());
    QCOMPARE(shown.line()->text(), QString("2"));
}

void ReceiverPanelTest::accessibility()
{
    const Shown shown(OpenReceiver::all());
    QAccessibleInterface *const table = QAccessible::queryAccessibleInterface(&shown.view());
    QVERIFY(table);
    QCOMPARE(table->text(QAccessible::Name), QString("Parameters"));
    QCOMPARE(shown.index("Gain").data(Qt::AccessibleTextRole).toString(),
             QString("Gain: 10") + QChar(0xA0) + "dB");
    for (const QWidget *const child : {static_cast<QWidget *>(shown.panel->findChild<QLineEdit *>()),
                                       static_cast<QWidget *>(shown.panel->findChild<QComboBox *>())})
        QVERIFY(!child->accessibleName().isEmpty());
    shown.click("Gain");
    QCOMPARE(shown.line()->accessibleName(), QString("Gain"));
}

void ReceiverPanelTest::goingToAParameter()
{
    const Shown shown(OpenReceiver::example("vuhf-direction-finder.xml"));
    QSignalSpy told(shown.panel.get(), &ReceiverPanel::CurrentParameterChanged);
    QVERIFY(shown.panel->ShowParameter("CompassOffset"));
    QCOMPARE(shown.panel->GetCurrentParameter(), QString("CompassOffset"));
    QCOMPARE(told.count(), 1);
    QCOMPARE(told.at(0).at(0).toString(), QString("CompassOffset"));
    shown.panel->SetSearch("AFC");
    QVERIFY(shown.panel->ShowParameter("Frequency"));
    QCOMPARE(shown.panel->GetSearch(), QString());
    QVERIFY(shown.view().viewport()->rect().contains(shown.view().visualRect(shown.index("Frequency"))));
    QVERIFY(!shown.panel->ShowParameter("Frequenz"));
}

void ReceiverPanelTest::otherDocuments()
{
    Shown shown(OpenReceiver::all());
    shown.type("Gain", "loud");
    shown.document.SetText(OpenReceiver::example("vuhf-tuner.xml"));
    QVERIFY(shown.rows().rowCount() > 0);
    QVERIFY(shown.document.TakeOpenEdits().isEmpty());
    shown.document.SetText("<Job Version=\"1.0\"/>");
    QCOMPARE(shown.rows().rowCount(), 0);
    QCOMPARE(shown.counts(), QString("0 parameters"));
    shown.document.SetText("nothing");
    QCOMPARE(shown.rows().rowCount(), 0);
}

void ReceiverPanelTest::bytes()
{
    Shown shown(OpenReceiver::all());
    QByteArray expected = shown.document.GetText();
    shown.panel->setLocale(QLocale("de_DE"));
    shown.type("Bandwidth", "12,5");
    QTest::keyClick(shown.line(), Qt::Key_Return);
    QTRY_VERIFY(!shown.editor());
    QCOMPARE(shown.text("Bandwidth"), QString("12,5 kHz"));
    expected.replace("<Default>15000</Default>", "<Default>12500</Default>");
    QCOMPARE(shown.document.GetText(), expected);
}

void ReceiverPanelTest::mirrored()
{
    Shown shown(OpenReceiver::all());
    shown.panel->setLayoutDirection(Qt::RightToLeft);
    shown.click("Muted");
    QCOMPARE(said(shown.document, "Parameter[Muted].Boolean.Value"), QString("true"));
    shown.click("Gain");
    QVERIFY(shown.line());
    QCOMPARE(shown.line()->layoutDirection(), Qt::RightToLeft);
    QVERIFY(shown.line()->textMargins().left() > 0); // where the unit stands
    const auto left = [&shown](int column) {
        return shown.view().visualRect(shown.index("Gain", column)).left();
    };
    QVERIFY(left(NameColumn) > left(ValueColumn));
    QVERIFY(left(ValueColumn) > left(DefaultColumn));
    shown.line()->selectAll();
    QTest::keyClicks(shown.line(), "-7");
    QTest::keyClick(shown.line(), Qt::Key_Return);
    QCOMPARE(said(shown.document, "Parameter[Gain].Integer.Default"), QString("-7"));
    shown.click("Gain");
    QCOMPARE(shown.line()->text(), QString(QChar(0x200E)) + "-7"); // the sign before the number
}

void ReceiverPanelTest::longTexts()
{
    const QString text(80, 'm');
    Shown shown(OpenReceiver::all().replace("Mast 2", text.toLatin1()));
    shown.view().scrollTo(shown.index("Comment"));
    const auto tipOf = [&shown](const char *name) {
        const QPoint place = shown.view().visualRect(shown.index(name)).center();
        QHelpEvent event(QEvent::ToolTip, place, shown.view().viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(shown.view().viewport(), &event);
        return QToolTip::text();
    };
    QVERIFY(tipOf("Comment").startsWith(text + "\n\n"));
    QVERIFY(tipOf("Gain").startsWith("0 to 30"));
}

void ReceiverPanelTest::columnsFitValues()
{
    // The greatest number of 64 bits stands there whole, with its unit.
    Shown shown(OpenReceiver::all().replace("1773469800120000", "9223372036854775807"));
    const QModelIndex index = shown.index("From");
    QVERIFY(shown.view().columnWidth(ValueColumn) >= shown.view().sizeHintForIndex(index).width());
    shown.click("From");
    const QLineEdit &line = *shown.line();
    const QMargins margins = line.textMargins();
    QVERIFY(line.fontMetrics().horizontalAdvance(line.text()) + margins.left() + margins.right()
            <= line.width());
}

void ReceiverPanelTest::locales()
{
    const Shown shown(OpenReceiver::all());
    QCOMPARE(shown.text("Level"), QString("0.25"));
    shown.panel->setLocale(QLocale("de_DE"));
    QCOMPARE(shown.text("Level"), QString("0,25"));
}

void ReceiverPanelTest::manyParameters()
{
    using OpenReceiver::limits;
    using OpenReceiver::parameter;
    QByteArray parameters;
    for (int i = 0; i < 10000; ++i)
        parameters += parameter(("P" + QByteArray::number(i)).constData(), "Integer", limits("0", "9", "1"));
    OpenDocument document;
    document.SetText(OpenReceiver::receiver(parameters));
    QElapsedTimer timer;
    timer.start();
    ReceiverPanel panel(document);
    panel.resize(900, 700);
    panel.grab();
    qInfo() << "10000 parameters in ms" << timer.elapsed();
    QVERIFY(panel.findChildren<ParameterEdit *>().isEmpty()); // no control before one is asked for
    QCOMPARE(panel.findChild<QTableView *>()->model()->rowCount(), 10000);
}

void ReceiverPanelTest::draftOfAParameterThatGoes()
{
    Shown shown(OpenReceiver::all());
    QStringList told;
    listenToRefusals(shown.document, told);
    shown.type("Gain", "loud");
    QTest::keyClick(shown.line(), Qt::Key_Tab);
    QCOMPARE(shown.text("Gain"), QString("loud"));
    QCOMPARE(shown.document.Change({{Action::Unset, "Parameter[Gain]", {}}}).size(), 0);
    QCOMPARE(
        told,
        QStringList{"Parameter[Gain].Integer.Default: \"loud\" is not taken: there is no parameter Gain"});
    QVERIFY(shown.document.TakeOpenEdits().isEmpty());
}

void ReceiverPanelTest::editorOfAParameterThatGoes()
{
    Shown shown(OpenReceiver::all());
    QStringList told;
    listenToRefusals(shown.document, told);
    shown.type("Gain", "12");
    QCOMPARE(shown.document.Change({{Action::Unset, "Parameter[Gain]", {}}}).size(), 0);
    QVERIFY(!shown.editor());
    QCOMPARE(told,
             QStringList{"Parameter[Gain].Integer.Default: \"12\" is not taken: there is no parameter Gain"});
    QVERIFY(shown.document.TakeOpenEdits().isEmpty());
}

void ReceiverPanelTest::disabledWhileTyping()
{
    Shown shown(OpenReceiver::all());
    QStringList told;
    listenToRefusals(shown.document, told);
    shown.type("Gain", "12");
    QByteArray disabled = shown.document.GetText();
    disabled.replace("UniqueName=\"Gain\">", "UniqueName=\"Gain\"><Enable>false</Enable>");
    shown.document.Restore(disabled);
    QTRY_VERIFY(!shown.editor());
    QCOMPARE(shown.document.GetText(), disabled);
    QCOMPARE(
        told,
        QStringList{"Parameter[Gain].Integer.Default: \"12\" is not taken: the parameter is disabled now"});
    QCOMPARE(shown.text("Gain"), QString("10 dB"));
    QVERIFY(shown.document.TakeOpenEdits().isEmpty());
    QCOMPARE(shown.document.GetText(), disabled);
}

void ReceiverPanelTest::otherTypeWhileTyping()
{
    Shown shown(OpenReceiver::all());
    shown.type("Gain", "loud");
    QByteArray other = shown.document.GetText();
    const auto begin = other.indexOf("<ParameterType>Integer", other.indexOf("UniqueName=\"Gain\""));
    other.replace(begin, other.indexOf("</Integer>", begin) + 10 - begin,
                  "<ParameterType>String</ParameterType><String/>");
    QStringList told;
    listenToRefusals(shown.document, told);
    shown.document.Restore(other);
    QTRY_VERIFY(!shown.editor());
    QCOMPARE(
        told,
        QStringList{
            "Parameter[Gain].String.Default: \"loud\" is not taken: the parameter has another type now"});
    QCOMPARE(shown.document.GetText(), other);
    QVERIFY(shown.document.TakeOpenEdits().isEmpty());
    shown.click("Gain");
    QCOMPARE(shown.editor()->GetControl(), ParameterControl::Text);
}

void ReceiverPanelTest::refusedTextStays()
{
    Shown shown(OpenReceiver::all());
    QStringList told;
    listenToRefusals(shown.document, told);
    const QByteArray before = shown.document.GetText();
    const QString typed = QString("a") + QChar(1); // XML has no place for it
    shown.type("Comment", "a");
    shown.line()->setText(typed);
    QTest::keyClick(shown.line(), Qt::Key_Return);
    QCOMPARE(told.size(), 1);
    QVERIFY(shown.editor());
    QCOMPARE(shown.line()->text(), typed);
    QCOMPARE(shown.document.TakeOpenEdits().size(), 1);
    shown.click("Gain");
    QCOMPARE(shown.text("Comment"), typed);
    const QString reason = told.at(0).section(": ", 1);
    QCOMPARE(shown.index("Comment").data(Qt::AccessibleDescriptionRole).toString(), reason);
    QCOMPARE(shown.document.TakeOpenEdits().size(), 1); // it still stands there
    shown.click("Comment");
    QCOMPARE(shown.line()->text(), typed);
    QTest::keyClick(shown.line(), Qt::Key_Escape);
    QCOMPARE(shown.line()->text(), QString("Mast 2"));
    QVERIFY(shown.document.TakeOpenEdits().isEmpty());
    QCOMPARE(shown.document.GetText(), before);
}

void ReceiverPanelTest::editedRowStays()
{
    Shown shown(OpenReceiver::all());
    change(shown.document, "Parameter[Gain].Integer.Default", "11");
    shown.panel->SetShow(ParameterFilter::Show::Changed);
    QCOMPARE(shown.names(), QStringList{"Gain"});
    shown.type("Gain", "12");
    change(shown.document, "Parameter[Gain].Integer.Default", "10"); // which is the default
    shown.panel->SetSearch("Level");
    QVERIFY(shown.editor());
    QCOMPARE(shown.line()->text(), QString("12"));
    QCOMPARE(shown.names(), QStringList{"Gain"});
    QTest::keyClick(shown.line(), Qt::Key_Return);
    QCOMPARE(said(shown.document, "Parameter[Gain].Integer.Default"), QString("12"));
    QTRY_COMPARE(shown.names(), QStringList()); // nothing holds it any more
    shown.panel->SetSearch({});
    QCOMPARE(shown.names(), QStringList{"Gain"});
    shown.type("Gain", "loud");
    QTest::keyClick(shown.line(), Qt::Key_Tab);
    change(shown.document, "Parameter[Gain].Integer.Default", "10");
    QCOMPARE(shown.names(), QStringList{"Gain"}); // as long as that stands there
    shown.panel->RestoreDefaults();
    QTRY_COMPARE(shown.names(), QStringList());
}

void ReceiverPanelTest::menu()
{
    Shown shown(OpenReceiver::all());
    change(shown.document, "Parameter[Gain].Integer.Default", "11");
    change(shown.document, "Parameter[Level].Float.Default", "7");
    const auto open = [&shown] {
        Q_EMIT shown.view().customContextMenuRequested(shown.view().visualRect(shown.index("Gain")).center());
        return shown.panel->findChild<QMenu *>();
    };
    QPointer<QMenu> menu = open();
    QVERIFY(menu);
    QVERIFY(menu->isVisible());
    // The row is another one when the choice is made.
    QCOMPARE(shown.document.Change({{Action::Unset, "Parameter[AGC Mode]", {}}}).size(), 0);
    menu->actions().at(0)->trigger();
    QCOMPARE(said(shown.document, "Parameter[Gain].Integer.Default"), QString("10"));
    QCOMPARE(said(shown.document, "Parameter[Level].Float.Default"), QString("7"));
    menu->close();
    QTRY_VERIFY(!menu);
    menu = open();
    QVERIFY(!menu->actions().at(0)->isEnabled());
    shown.document.SetText(OpenReceiver::receiver({}));
    menu->actions().at(0)->setEnabled(true);
    menu->actions().at(0)->trigger(); // of nothing
    menu->close();
    QTRY_VERIFY(!menu);
}

void ReceiverPanelTest::menuOfAPanelThatEnds()
{
    Shown shown(OpenReceiver::all());
    change(shown.document, "Parameter[Gain].Integer.Default", "11");
    Q_EMIT shown.view().customContextMenuRequested(shown.view().visualRect(shown.index("Gain")).center());
    const QPointer<QMenu> menu = shown.panel->findChild<QMenu *>();
    QVERIFY(menu);
    shown.panel.reset();
    QVERIFY(!menu);
}

void ReceiverPanelTest::panelThatEndsWithTheChange()
{
    Shown shown(OpenReceiver::all());
    shown.type("Level", "loud");
    QTest::keyClick(shown.line(), Qt::Key_Tab);
    shown.type("Gain", "12");
    connect(&shown.document, &OpenDocument::Changed, &shown.document, [&shown] {
        if (shown.panel)
            shown.panel.reset();
    });
    QVERIFY(shown.document.TakeOpenEdits().isEmpty());
    QCOMPARE(said(shown.document, "Parameter[Gain].Integer.Default"), QString("12"));
}

void ReceiverPanelTest::pictures()
{
    OpenDocument document;
    document.SetText(OpenReceiver::example("vuhf-direction-finder.xml"));
    const QByteArray text = document.GetText();
    const auto make = [&document, &text]() -> std::unique_ptr<QWidget> {
        document.SetText(text);
        auto panel = std::make_unique<ReceiverPanel>(document);
        panel->setLocale(QLocale("en_GB"));
        return panel;
    };
    QVERIFY(TestSupport::takePictures("receiver-panel", {820, 560}, make));
    const auto goToChanged = [&document](QWidget &panel) {
        change(document, "Parameter[DemodulationBandwidth].Long.Default", "30000000");
        change(document, "Parameter[Attenuation].Integer.Default", "20");
        change(document, "Parameter[ReferenceTrim].Double.Default", "-2.5");
        change(document, "Parameter[GainControl].Enum.EnumValue[1].Default", "true");
        static_cast<ReceiverPanel &>(panel).ShowParameter("Attenuation");
    };
    QVERIFY(TestSupport::takePictures("receiver-panel-changed", {820, 560}, make, goToChanged));
    const auto edit = [](QWidget &panel) {
        static_cast<ReceiverPanel &>(panel).ShowParameter("FrequencyStep");
        auto &view = *panel.findChild<QTableView *>();
        QTest::keyClick(&view, Qt::Key_Return);
        const auto edits = view.viewport()->findChildren<ParameterEdit *>();
        QVERIFY(!edits.isEmpty());
        QTest::keyClicks(edits.last()->focusProxy(), "12.5 quarts");
    };
    QVERIFY(TestSupport::takePictures("receiver-panel-edit", {820, 560}, make, edit));
}

QTEST_MAIN(ReceiverPanelTest)
#include "ReceiverPanelTest.moc"
