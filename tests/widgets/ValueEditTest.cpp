#include <widgets/NumberEdit.h>

#include <QAccessible>
#include <QDialog>
#include <QPushButton>
#include <QtTest>
#include <QVBoxLayout>
#include <QWheelEvent>

using KORMAK::NumberEdit;
using KORMAK::ValueEdit;

namespace {

void turnWheel(QWidget &widget, int angle)
{
    const QPointF middle = QRectF(widget.rect()).center();
    QWheelEvent event(middle, widget.mapToGlobal(middle.toPoint()), {}, {0, angle}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&widget, &event);
}

/// Two lines in a window that has the focus.
struct Lines {
    QWidget window;
    NumberEdit *first = new NumberEdit;
    NumberEdit *second = new NumberEdit;

    Lines()
    {
        auto *const layout = new QVBoxLayout(&window);
        layout->addWidget(first);
        layout->addWidget(second);
        for (NumberEdit *const line : {first, second}) {
            line->setLocale(QLocale("en_GB"));
            line->SetValue(qint64(5));
        }
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        first->setFocus();
        QTRY_VERIFY(first->hasFocus());
    }
};

} // namespace

class ValueEditTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void losingFocusTakes();
    void enterTakes();
    void escapeBringsBack();
    void escapeEndsNoDialogue();
    void valuesFromElsewhere();
    void signalsOnce();
    void refusing();
    void refusedStep();
    void wheel();
    void notes();
    void roomForUnitAndMark_data();
    void roomForUnitAndMark();
    void accessibility();
};

void ValueEditTest::losingFocusTakes()
{
    Lines lines;
    lines.first->selectAll();
    QTest::keyClicks(lines.first, "12");
    QVERIFY(lines.first->IsOpen());
    QTest::keyClick(lines.first, Qt::Key_Tab);
    QTRY_VERIFY(lines.second->hasFocus());
    QVERIFY(!lines.first->IsOpen());
    QCOMPARE(lines.first->GetValue(), QVariant(qint64(12)));

    QTest::keyClicks(lines.second, "x");
    QTest::keyClick(lines.second, Qt::Key_Tab);
    QTRY_VERIFY(lines.first->hasFocus());
    QCOMPARE(lines.second->text(), QString("x"));
    QVERIFY(!lines.second->GetProblem().isEmpty());
    QCOMPARE(lines.second->GetValue(), QVariant(qint64(5)));
}

void ValueEditTest::enterTakes()
{
    Lines lines;
    lines.first->selectAll();
    QTest::keyClicks(lines.first, "123456");
    QTest::keyClick(lines.first, Qt::Key_Enter);
    QCOMPARE(lines.first->GetValue(), QVariant(qint64(123456)));
    QCOMPARE(lines.first->text(), QString("123") + QChar(0x202F) + "456");
}

void ValueEditTest::escapeBringsBack()
{
    Lines lines;
    QSignalSpy finished(lines.first, &ValueEdit::Finished);
    QTest::keyClicks(lines.first, "12x");
    QVERIFY(!lines.first->GetProblem().isEmpty());
    QTest::keyClick(lines.first, Qt::Key_Escape);
    QCOMPARE(lines.first->text(), QString("5"));
    QCOMPARE(lines.first->GetProblem(), QString());
    QCOMPARE(finished.count(), 0);
}

void ValueEditTest::escapeEndsNoDialogue()
{
    QDialog dialog;
    auto *const layout = new QVBoxLayout(&dialog);
    auto *const line = new NumberEdit;
    layout->addWidget(line);
    line->SetValue(qint64(5));
    dialog.show();
    dialog.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    line->setFocus();
    QTest::keyClicks(line, "1");
    QTest::keyClick(line, Qt::Key_Escape);
    QVERIFY(dialog.isVisible());
    QCOMPARE(line->text(), QString("5"));
    QTest::keyClick(line, Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
}

void ValueEditTest::valuesFromElsewhere()
{
    NumberEdit edit;
    QSignalSpy finished(&edit, &ValueEdit::Finished);
    QSignalSpy edited(&edit, &ValueEdit::Edited);
    edit.SetValue(qint64(7));
    QCOMPARE(edit.text(), QString("7"));
    edit.setText("x");
    edit.SetValue(qint64(8));
    QCOMPARE(edit.text(), QString("8"));
    QCOMPARE(edit.GetProblem(), QString());
    edit.SetValue({});
    QCOMPARE(edit.text(), QString());
    QVERIFY(!edit.IsOpen());
    QCOMPARE(finished.count(), 0);
    QCOMPARE(edited.count(), 0);
}

void ValueEditTest::signalsOnce()
{
    NumberEdit edit;
    edit.SetValue(qint64(1));
    QSignalSpy finished(&edit, &ValueEdit::Finished);
    QSignalSpy edited(&edit, &ValueEdit::Edited);
    QTest::keyClicks(&edit, "23");
    QCOMPARE(edited.count(), 2);
    QCOMPARE(finished.count(), 0);
    QVERIFY(edit.Take());
    QVERIFY(edit.Take());
    QCOMPARE(finished.count(), 1);
    edit.setText("123 "); // the same again
    QVERIFY(edit.Take());
    QCOMPARE(edit.text(), QString("123"));
    QCOMPARE(finished.count(), 1);
}

void ValueEditTest::refusing()
{
    Lines lines;
    NumberEdit &line = *lines.first;
    bool isLocked = true;
    QSignalSpy finished(&line, &ValueEdit::Finished);
    connect(&line, &ValueEdit::Finished, &line, [&] {
        if (isLocked)
            line.Refuse("It is locked");
    });
    line.selectAll();
    QTest::keyClicks(&line, "12");
    QVERIFY(!line.Take());
    QCOMPARE(line.text(), QString("12"));
    QCOMPARE(line.GetValue(), QVariant(qint64(5)));
    QVERIFY(line.IsOpen());
    QCOMPARE(line.GetProblem(), QString("It is locked"));
    QCOMPARE(line.accessibleDescription(), QString("It is locked"));
    QVERIFY(!line.Take()); // it is asked each time
    QCOMPARE(finished.count(), 2);
    QTest::keyClicks(&line, "3");
    QCOMPARE(line.GetProblem(), QString()); // not of this
    QTest::keyClick(&line, Qt::Key_Escape);
    QCOMPARE(line.text(), QString("5"));
    QCOMPARE(line.GetProblem(), QString());
    isLocked = false;
    line.setText("14");
    QVERIFY(line.Take());
    QCOMPARE(line.GetValue(), QVariant(qint64(14)));
}

void ValueEditTest::refusedStep()
{
    Lines lines;
    NumberEdit &line = *lines.first;
    connect(&line, &ValueEdit::Finished, &line, [&line] { line.Refuse("It is locked"); });
    QTest::keyClick(&line, Qt::Key_Up);
    QCOMPARE(line.text(), QString("6"));
    QVERIFY(line.IsOpen());
    QCOMPARE(line.GetValue(), QVariant(qint64(5)));
    QCOMPARE(line.GetProblem(), QString("It is locked"));
}

void ValueEditTest::wheel()
{
    Lines lines;
    turnWheel(*lines.second, 120);
    QCOMPARE(lines.second->GetValue(), QVariant(qint64(5)));
    QVERIFY(!lines.second->hasFocus());
    turnWheel(*lines.first, 120);
    QCOMPARE(lines.first->GetValue(), QVariant(qint64(6)));
    turnWheel(*lines.first, -60);
    QCOMPARE(lines.first->GetValue(), QVariant(qint64(6)));
    turnWheel(*lines.first, -60);
    QCOMPARE(lines.first->GetValue(), QVariant(qint64(5)));
}

void ValueEditTest::notes()
{
    NumberEdit edit;
    edit.SetValue(qint64(1));
    edit.SetNote("hardly meant");
    QCOMPARE(edit.GetProblem(), QString("hardly meant"));
    edit.SetLimits(qint64(2), {});
    QVERIFY(edit.GetProblem().startsWith("Below"));
    edit.setText("x");
    QCOMPARE(edit.GetProblem(), QString("This is not a number"));
    edit.setText("3");
    QCOMPARE(edit.GetProblem(), QString("hardly meant"));
    edit.SetNote({});
    QCOMPARE(edit.GetProblem(), QString());
    QCOMPARE(edit.GetNote(), QString());
}

void ValueEditTest::roomForUnitAndMark_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");

    QTest::newRow("left to right") << Qt::LeftToRight;
    QTest::newRow("right to left") << Qt::RightToLeft;
}

void ValueEditTest::roomForUnitAndMark()
{
    QFETCH(Qt::LayoutDirection, direction);
    NumberEdit edit;
    edit.setLayoutDirection(direction);
    const auto behind = [&edit, direction] {
        return direction == Qt::LeftToRight ? edit.textMargins().right() : edit.textMargins().left();
    };
    const auto before = [&edit, direction] {
        return direction == Qt::LeftToRight ? edit.textMargins().left() : edit.textMargins().right();
    };
    QCOMPARE(behind(), 0);
    edit.SetUnit("MHz");
    const int unitOnly = behind();
    QVERIFY(unitOnly >= edit.fontMetrics().horizontalAdvance("MHz"));
    const int width = edit.sizeHint().width();
    edit.SetNote("marked");
    QVERIFY(behind() > unitOnly);
    QVERIFY(edit.sizeHint().width() > width);
    QCOMPARE(before(), 0);
}

void ValueEditTest::accessibility()
{
    NumberEdit edit;
    edit.setAccessibleName("Gain");
    edit.SetUnit("dB");
    edit.SetLimits(qint64(0), qint64(10));
    edit.SetValue(qint64(80));
    QAccessibleInterface *const interface = QAccessible::queryAccessibleInterface(&edit);
    QVERIFY(interface);
    QCOMPARE(interface->text(QAccessible::Name), QString("Gain"));
    QCOMPARE(interface->text(QAccessible::Value), QString("80"));
    QCOMPARE(interface->text(QAccessible::Description), edit.GetProblem());
}

QTEST_MAIN(ValueEditTest)
#include "ValueEditTest.moc"
