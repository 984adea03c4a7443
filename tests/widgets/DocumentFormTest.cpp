#include <models/OpenDocument.h>
#include <tests/support/Pictures.h>
#include <tests/support/ShownDocument.h>
#include <widgets/AreaView.h>
#include <widgets/DocumentForm.h>
#include <widgets/NumberEdit.h>

#include <QAbstractScrollArea>
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextDocument>
#include <QtTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <memory>

using KORMAK::DocumentEdit;
using KORMAK::DocumentForm;
using KORMAK::OpenDocument;
using KORMAK::ValueEdit;
using TestSupport::example;
using TestSupport::faultyJob;
using TestSupport::workflowWithPoints;

namespace {

const QString Antenna = "jobs/surveillance-mc-hf";
const QString Workflow = "settings/automatic-workflow-with-area";
const QString Generation = "settings/activity-generation";

struct Form : TestSupport::Shown<DocumentForm> {
    explicit Form(const QByteArray &text) : Shown(text, {620, 700}) { }
    explicit Form(const QString &name) : Form(example(name)) { }

    template <class Control>
    [[nodiscard]] Control *control(const QString &path) const
    {
        return qobject_cast<Control *>(form.GetControl(path));
    }
    [[nodiscard]] ValueEdit *line(const QString &path) const { return control<ValueEdit>(path); }
    [[nodiscard]] QPlainTextEdit *prose(const QString &path) const { return control<QPlainTextEdit>(path); }
    [[nodiscard]] QComboBox *names(const QString &path) const { return control<QComboBox>(path); }
    [[nodiscard]] QCheckBox *box(const QString &path) const { return control<QCheckBox>(path); }
    [[nodiscard]] QPushButton *button(const QString &name) const
    {
        const auto all = form.findChildren<QPushButton *>();
        for (QPushButton *const one : all) {
            if (one->accessibleName() == name && one->isVisible())
                return one;
        }
        return nullptr;
    }
    void type(const QString &path, const QString &text) const
    {
        QWidget *const control = form.GetControl(path);
        control->setFocus();
        QTest::keyClick(control, Qt::Key_A, Qt::ControlModifier);
        if (text.isEmpty())
            QTest::keyClick(control, Qt::Key_Delete);
        else
            QTest::keyClicks(control, text);
    }
    void enter(const QString &path, const QString &text) const
    {
        type(path, text);
        QTest::keyClick(form.GetControl(path), Qt::Key_Return);
    }
    void choose(const QString &path, const QString &name) const
    {
        QComboBox *const all = names(path);
        const int index = all->findText(name);
        all->setCurrentIndex(index);
        Q_EMIT all->activated(index);
    }
    [[nodiscard]] QString text(const QString &path) const
    {
        return document.GetDocument().GetField(path).GetText();
    }

    DocumentForm &form = widget;
};

} // namespace

class DocumentFormTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everySettableFieldHasAControl_data();
    void everySettableFieldHasAControl();
    void showingChangesNothing_data();
    void showingChangesNothing();
    void numbers();
    void numbersKeepTheirDigits();
    void limitsDoNotClamp();
    void unreadableStaysAsTyped();
    void emptyMeansNotSet_data();
    void emptyMeansNotSet();
    void texts();
    void textsKeepTheirCharacters();
    void names();
    void unknownNameStays();
    void booleansHaveThreeStates();
    void dates_data();
    void dates();
    void whatIsNotUnderstoodStaysToBeSeen();
    void requirements();
    void findingsStandAtTheirFields();
    void openEditsAreTaken_data();
    void openEditsAreTaken();
    void openEditsThatAreNoValue();
    void changesFromElsewhere();
    void changesFromElsewhereLeaveTyping();
    void escapeBringsTheValueBack();
    void refusedValueIsGivenUp();
    void refusedStays_data();
    void refusedStays();
    void unreadableIsToldBelow_data();
    void unreadableIsToldBelow();
    void sameValueInOtherWords();
    void wheelNeedsTheFocus_data();
    void wheelNeedsTheFocus();
    void tabOrder();
    void rightToLeft_data();
    void rightToLeft();
    void largeFonts();
    void accessibleNames();
    void decimalComma();
    void listsGrowAndShrink();
    void longLists();
    void elementsFarDown();
    void findingsOfElements();
    void findingsWithoutAField();
    void firstElement();
    void entriesOfEnumerations();
    void fieldsThatComeAndGo();
    void textsAreNoTags();
    void mapAndFieldsShowTheSame();
    void showField_data();
    void showField();
    void currentField();
    void documentsThatCannotBeRead();
    void openEditsAreNotOfAnotherDocument();
    void movesOnTheMapAreNotOfAnotherDocument();
    void noDocument();
    void pictures();
};

void DocumentFormTest::initTestCase()
{
    QApplication::setStyle("Fusion");
    QLocale::setDefault(QLocale::c());
}

void DocumentFormTest::everySettableFieldHasAControl_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : {Antenna, Workflow, Generation, QString("jobs/exciter-hf"),
                                QString("settings/activity-generation-1.0")})
        QTest::newRow(qPrintable(name)) << name;
}

void DocumentFormTest::everySettableFieldHasAControl()
{
    QFETCH(const QString, name);
    const Form form(name);
    const QVector<KORMAK::Field> fields = form.document.GetDocument().GetFields();
    int count = 0;
    for (const KORMAK::Field &field : fields) {
        if (!field.IsSettable() || !field.IsInDocuments())
            continue;
        ++count;
        QVERIFY2(form.form.GetControl(field.GetPath()), qPrintable(field.GetPath()));
    }
    QVERIFY(count > 0);
}

void DocumentFormTest::showingChangesNothing_data()
{
    everySettableFieldHasAControl_data();
    QTest::newRow("faults") << QString();
}

/// Neither does going through it with Tab.
void DocumentFormTest::showingChangesNothing()
{
    QFETCH(const QString, name);
    const QByteArray text = name.isEmpty() ? faultyJob() : example(name);
    Form form(text);
    form.form.setFocus();
    for (int i = 0; i < 60; ++i)
        QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : &form.form, Qt::Key_Tab);
    QVERIFY(form.document.TakeOpenEdits().isEmpty());
    QCOMPARE(form.document.GetText(), text);
}

void DocumentFormTest::numbers()
{
    const Form form(Antenna);
    const QString path = "AntennaData.MaximumFrequency";
    QCOMPARE(form.line(path)->GetUnit(), "Hz");
    form.enter(path, "14.2 MHz");
    QCOMPARE(form.text(path), "14200000");
    QByteArray expected = example(Antenna);
    QCOMPARE(form.document.GetText(), expected.replace(">30000000<", ">14200000<"));
}

void DocumentFormTest::numbersKeepTheirDigits()
{
    QByteArray text = example(Antenna);
    text.replace("<Azimuth>0<", "<Azimuth>12.345678901234567<");
    const Form form(text);
    QCOMPARE(form.line("AntennaData.Azimuth")->text(), "12.345678901234567");
    form.line("AntennaData.Azimuth")->setFocus();
    form.line("AntennaData.MinimumFrequency")->setFocus();
    QCOMPARE(form.document.GetText(), text);
}

void DocumentFormTest::limitsDoNotClamp()
{
    const Form job(Antenna);
    job.enter("AntennaData.Azimuth", "400");
    QCOMPARE(job.text("AntennaData.Azimuth"), "400");
    QCOMPARE(job.line("AntennaData.Azimuth")->text(), "400");
    QVERIFY(!job.form.GetNotes("AntennaData.Azimuth").isEmpty());

    const QByteArray text = example(Workflow);
    Form form(text);
    form.enter("Classifiers", "77");
    QCOMPARE(form.line("Classifiers")->text(), "77");
    QVERIFY2(form.form.GetNotes("Classifiers").contains("23"), qPrintable(form.form.GetNotes("Classifiers")));
    QVERIFY(!form.document.TakeOpenEdits().isEmpty()); // not saved without a word
    QCOMPARE(form.document.GetText(), text);
    form.enter("ClassificationTime", "26");
    QCOMPARE(form.line("Classifiers")->text(), "77"); // nor lost by what is done elsewhere
    QVERIFY(!form.form.GetNotes("Classifiers").isEmpty());
    form.enter("Classifiers", "7");
    QCOMPARE(form.text("Classifiers"), "7");
    QCOMPARE(form.form.GetNotes("Classifiers"), QString());
    QVERIFY(form.document.TakeOpenEdits().isEmpty());
}

void DocumentFormTest::unreadableStaysAsTyped()
{
    const Form form(Workflow);
    form.type("ClassificationTime", "soon");
    form.line("Classifiers")->setFocus();
    QCOMPARE(form.line("ClassificationTime")->text(), "soon");
    QVERIFY(!form.line("ClassificationTime")->GetProblem().isEmpty());
    QCOMPARE(form.document.GetText(), example(Workflow));
}

void DocumentFormTest::emptyMeansNotSet_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("element");
    QTest::addColumn<bool>("isLeft");
    for (const bool isLeft : {false, true}) {
        const char *const how = isLeft ? "left" : "Enter";
        QTest::addRow("number, %s", how)
            << "AntennaData.Azimuth" << QByteArray("        <Azimuth>0</Azimuth>\n") << isLeft;
        QTest::addRow("text, %s", how)
            << "JobHeader.Author" << QByteArray("        <Author>M. Keller</Author>\n") << isLeft;
        QTest::addRow("date, %s", how)
            << "JobHeader.Creation" << QByteArray("        <Creation>2026-03-15T22:00:00,000Z</Creation>\n")
            << isLeft;
    }
}

void DocumentFormTest::emptyMeansNotSet()
{
    QFETCH(const QString, path);
    QFETCH(const QByteArray, element);
    QFETCH(const bool, isLeft);
    const Form form(Antenna);
    form.type(path, {});
    if (isLeft)
        form.form.GetControl("AntennaData.MaximumFrequency")->setFocus();
    else
        QTest::keyClick(form.form.GetControl(path), Qt::Key_Return);
    QCOMPARE(form.document.GetText(), example(Antenna).replace(element, ""));
}

void DocumentFormTest::texts()
{
    const Form form(Antenna);
    form.enter("JobHeader.Author", "Mara & Co");
    QCOMPARE(form.text("JobHeader.Author"), "Mara & Co");
    QPlainTextEdit *const edit = form.prose("JobHeader.Description");
    const int height = edit->height();
    edit->setFocus();
    QTest::keyClicks(edit, "a");
    QTest::keyClick(edit, Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClicks(edit, "b");
    QVERIFY(edit->height() > height);
    QVERIFY(!form.document.GetText().contains("Description"));
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(form.text("JobHeader.Description"), "a\nb");
    QCOMPARE(form.prose("JobHeader.Description"), edit);
}

void DocumentFormTest::textsKeepTheirCharacters()
{
    const QByteArray text = example(Antenna).replace("M. Keller", "M.\u00a0Keller  &#13; x");
    const Form form(text);
    QVERIFY(form.prose("JobHeader.Author")->isReadOnly()); // a carriage return cannot be shown
    const QByteArray other = example(Antenna).replace("M. Keller", "M.\u00a0Keller");
    const Form second(other);
    second.prose("JobHeader.Author")->setFocus();
    QTest::keyClick(second.prose("JobHeader.Author"), Qt::Key_End);
    QTest::keyClicks(second.prose("JobHeader.Author"), "!");
    QTest::keyClick(second.prose("JobHeader.Author"), Qt::Key_Return);
    QCOMPARE(second.text("JobHeader.Author"), QString::fromUtf8("M.\u00a0Keller!"));
}

void DocumentFormTest::names()
{
    const Form form(Antenna);
    QCOMPARE(form.names("JobHeader.JobType")->currentText(), "Surveillance MC HF");
    form.choose("JobHeader.JobType", "Exciter HF");
    QCOMPARE(form.text("JobHeader.JobType"), "Exciter HF");
    form.choose("AntennaData.Polarization", "not set");
    QVERIFY(!form.document.GetText().contains("Polarization"));
    QCOMPARE(form.names("AntennaData.Polarization")->currentIndex(), 0);
}

void DocumentFormTest::unknownNameStays()
{
    const Form form(faultyJob());
    QCOMPARE(form.names("JobHeader.JobType")->currentText(), "\"Surveillance MC SHF\"");
    QVERIFY(form.form.GetNotes("JobHeader.JobType").contains("not a known name"));
    form.choose("JobHeader.JobType", "\"Surveillance MC SHF\"");
    QCOMPARE(form.document.GetText(), faultyJob());
    form.choose("JobHeader.JobType", "Surveillance MC HF");
    QCOMPARE(form.form.GetNotes("JobHeader.JobType"), QString());
    QCOMPARE(form.names("JobHeader.JobType")->findText("\"Surveillance MC SHF\""), -1);
}

void DocumentFormTest::booleansHaveThreeStates()
{
    const Form form(Workflow);
    QCheckBox *const box = form.box("BitstreamClassification");
    QCOMPARE(box->checkState(), Qt::Unchecked);
    QCOMPARE(box->text(), "no");
    box->click();
    QCOMPARE(box->checkState(), Qt::PartiallyChecked);
    QVERIFY(!form.document.GetText().contains("Bitstream"));
    QCOMPARE(box->text(), "not set, counts as no");
    box->click();
    QCOMPARE(box->text(), "yes");
    QVERIFY(form.document.GetText().contains("<BitstreamClassification>true<"));
}

void DocumentFormTest::dates_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("text");
    QTest::newRow("to the minute") << "2026-04-01 07:30"
                                   << "2026-04-01T07:30:00,000Z";
    QTest::newRow("milliseconds") << "2026-04-01 07:30:01.25"
                                  << "2026-04-01T07:30:01,250Z";
    QTest::newRow("as documents have it") << "2026-04-01T07:30:01,250Z"
                                          << "2026-04-01T07:30:01,250Z";
    QTest::newRow("short") << "2026-4-1 7:30"
                           << "2026-04-01T07:30:00,000Z";
    QTest::newRow("no such day") << "2026-02-30 07:30"
                                 << "2026-03-15T22:00:00,000Z";
    QTest::newRow("no date") << "tomorrow"
                             << "2026-03-15T22:00:00,000Z";
}

void DocumentFormTest::dates()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, text);
    const Form form(Antenna);
    QCOMPARE(form.line("JobHeader.Creation")->text(), "2026-03-15 22:00:00");
    QCOMPARE(form.line("JobHeader.Creation")->GetUnit(), "UTC");
    form.enter("JobHeader.Creation", typed);
    QCOMPARE(form.text("JobHeader.Creation"), text);
}

void DocumentFormTest::whatIsNotUnderstoodStaysToBeSeen()
{
    const Form form(faultyJob());
    QCOMPARE(form.line("AntennaData.MinimumFrequency")->placeholderText(), "\"1,5 MHz\"");
    QCOMPARE(form.line("AntennaData.MinimumFrequency")->text(), QString());
    QCOMPARE(form.box("JobHeader.ShowJDH")->checkState(), Qt::PartiallyChecked);
    QCOMPARE(form.box("JobHeader.ShowJDH")->text(), "\"perhaps\"");
    QCOMPARE(form.line("JobHeader.Creation")->placeholderText(), "\"yesterday\"");
    QCOMPARE(form.line("AntennaData.Azimuth")->text(), "400");
    for (const char *const path :
         {"AntennaData.MinimumFrequency", "JobHeader.ShowJDH", "JobHeader.Creation", "AntennaData.Azimuth"})
        QVERIFY2(!form.form.GetNotes(path).isEmpty(), path);
}

void DocumentFormTest::requirements()
{
    const Form form(Antenna);
    QStringList required;
    const auto labels = form.form.findChildren<QLabel *>();
    for (const QLabel *const label : labels) {
        if (label->text().endsWith(" *"))
            required += label->text();
    }
    for (const char *const label : {"Author *", "Creation *", "Job type *", "Resource type *"})
        QVERIFY2(required.contains(label), label);
    for (const char *const label : {"Azimuth *", "Description *", "Polarization *"})
        QVERIFY2(!required.contains(label), label);
    QVERIFY(form.form.GetControl("JobHeader.Author")->toolTip().endsWith("\nRequired"));
    QVERIFY(!form.form.GetControl("AntennaData.Azimuth")->toolTip().contains("Required"));
    const Form workflow(Workflow);
    QVERIFY(workflow.form.GetControl("Classifiers")->toolTip().endsWith("\nRequired in some documents"));
    QVERIFY(form.form.GetControl("AntennaData.Azimuth")->toolTip().contains("number in degrees"));
}

void DocumentFormTest::findingsStandAtTheirFields()
{
    const Form form(faultyJob());
    QCOMPARE(form.form.GetNotes("JobHeader.Author"), "missing");
    form.enter("JobHeader.Author", "M. Keller");
    QCOMPARE(form.form.GetNotes("JobHeader.Author"), QString());
    const Form incomplete(example("faulty/missing-header"));
    QCOMPARE(incomplete.form.GetNotes("JobHeader"), "missing");
}

void DocumentFormTest::openEditsAreTaken_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("text");
    QTest::newRow("number") << "AntennaData.MaximumFrequency"
                            << "20 MHz"
                            << "20000000";
    QTest::newRow("text") << "JobHeader.Author"
                          << "K"
                          << "K";
    QTest::newRow("date") << "JobHeader.Creation"
                          << "2026-04-01 07:30"
                          << "2026-04-01T07:30:00,000Z";
    QTest::newRow("emptied") << "AntennaData.Azimuth"
                             << ""
                             << "";
}

void DocumentFormTest::openEditsAreTaken()
{
    QFETCH(const QString, path);
    QFETCH(const QString, typed);
    QFETCH(const QString, text);
    Form form(Antenna);
    form.type(path, typed);
    QVERIFY(!form.document.IsModified());
    QVERIFY(form.document.TakeOpenEdits().isEmpty());
    QCOMPARE(form.text(path), text);
}

void DocumentFormTest::openEditsThatAreNoValue()
{
    Form form(Antenna);
    form.type("AntennaData.Azimuth", "north");
    const QVector<KORMAK::Finding> refused = form.document.TakeOpenEdits();
    QCOMPARE(refused.size(), 1);
    QCOMPARE(refused[0].GetPath(), "AntennaData.Azimuth");
    QVERIFY(!refused[0].GetMessage().isEmpty());
    QCOMPARE(form.line("AntennaData.Azimuth")->text(), "north");
}

void DocumentFormTest::changesFromElsewhere()
{
    Form form(Antenna);
    QVERIFY(form.document
                .Change({{DocumentEdit::Change::Action::Set, "JobHeader.Author", "Other"},
                         {DocumentEdit::Change::Action::Set, "AntennaData.Azimuth", "45"},
                         {DocumentEdit::Change::Action::Set, "AntennaData.Polarization", "Slant"},
                         {DocumentEdit::Change::Action::Set, "JobHeader.ShowJDH", "false"}})
                .isEmpty());
    QCOMPARE(form.prose("JobHeader.Author")->toPlainText(), "Other");
    QCOMPARE(form.line("AntennaData.Azimuth")->text(), "45");
    QCOMPARE(form.names("AntennaData.Polarization")->currentText(), "Slant");
    QCOMPARE(form.box("JobHeader.ShowJDH")->checkState(), Qt::Unchecked);
    form.document.SetText(example(Generation));
    QVERIFY(!form.form.GetControl("JobHeader.Author"));
    QVERIFY(form.form.GetControl("Autostart"));
}

void DocumentFormTest::changesFromElsewhereLeaveTyping()
{
    Form form(Antenna);
    form.type("AntennaData.Azimuth", "12");
    form.line("AntennaData.Azimuth")->setCursorPosition(1);
    QVERIFY(form.document
                .Change({{DocumentEdit::Change::Action::Set, "JobHeader.Author", "Other"},
                         {DocumentEdit::Change::Action::Set, "AntennaData.Azimuth", "45"}})
                .isEmpty());
    QCOMPARE(form.line("AntennaData.Azimuth")->text(), "12");
    QCOMPARE(form.line("AntennaData.Azimuth")->cursorPosition(), 1);
    QVERIFY(form.line("AntennaData.Azimuth")->hasFocus());
    QCOMPARE(form.prose("JobHeader.Author")->toPlainText(), "Other");
    QTest::keyClick(form.line("AntennaData.Azimuth"), Qt::Key_Escape);
    QCOMPARE(form.line("AntennaData.Azimuth")->text(), "45");
    form.type("JobHeader.Author", "Mara");
    QVERIFY(
        form.document.Change({{DocumentEdit::Change::Action::Set, "JobHeader.Author", "Third"}}).isEmpty());
    QCOMPARE(form.prose("JobHeader.Author")->toPlainText(), "Mara");
}

void DocumentFormTest::escapeBringsTheValueBack()
{
    const Form form(Antenna);
    form.type("JobHeader.Author", "X");
    QTest::keyClick(form.prose("JobHeader.Author"), Qt::Key_Escape);
    QCOMPARE(form.prose("JobHeader.Author")->toPlainText(), "M. Keller");
    form.type("JobHeader.Creation", "X");
    QTest::keyClick(form.line("JobHeader.Creation"), Qt::Key_Escape);
    QCOMPARE(form.line("JobHeader.Creation")->text(), "2026-03-15 22:00:00");
    QVERIFY(!form.document.IsModified());
}

void DocumentFormTest::refusedValueIsGivenUp()
{
    const Form form(Workflow);
    form.enter("Classifiers", "77");
    QVERIFY(!form.form.GetNotes("Classifiers").isEmpty());
    QTest::keyClick(form.line("Classifiers"), Qt::Key_Escape);
    QCOMPARE(form.line("Classifiers")->text(), "8");
    QCOMPARE(form.form.GetNotes("Classifiers"), QString());
}

void DocumentFormTest::refusedStays_data()
{
    QTest::addColumn<QByteArray>("former");
    QTest::addColumn<QByteArray>("entity");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("typed");
    const QByteArray creation = "<Creation>2026-03-15T22:00:00,000Z</Creation>";
    const QByteArray azimuth = "<Azimuth>0</Azimuth>";
    const QByteArray description = "<Description>former</Description>";
    QTest::newRow("date") << creation << creation << "JobHeader.Creation"
                          << "2026-04-01 07:30:00";
    QTest::newRow("emptied date") << creation << creation << "JobHeader.Creation" << QString();
    QTest::newRow("number") << azimuth << azimuth << "AntennaData.Azimuth"
                            << "77";
    QTest::newRow("emptied number") << azimuth << azimuth << "AntennaData.Azimuth" << QString();
    QTest::newRow("text") << creation << creation + description << "JobHeader.Description"
                          << "other";
}

/// What cannot be changed in the text, such as what an entity holds, counts as open until it is given up.
void DocumentFormTest::refusedStays()
{
    QFETCH(const QByteArray, former);
    QFETCH(const QByteArray, entity);
    QFETCH(const QString, path);
    QFETCH(const QString, typed);
    QByteArray text = example(Antenna).replace(former, "&e;");
    text.replace("<Job ", "<!DOCTYPE Job [<!ENTITY e \"" + entity + "\">]>\n<Job ");
    Form form(text);
    QWidget *const control = form.form.GetControl(path);
    QVERIFY2(control, qPrintable(form.document.GetDocument().GetState()));
    const auto shown = [control] {
        const auto *const prose = qobject_cast<QPlainTextEdit *>(control);
        return prose ? prose->toPlainText() : qobject_cast<QLineEdit *>(control)->text();
    };
    const QString before = shown();
    QVERIFY(!before.isEmpty());
    form.enter(path, typed);
    QCOMPARE(form.document.GetText(), text);
    QCOMPARE(shown(), typed);
    QVERIFY(!form.form.GetNotes(path).isEmpty());
    form.document.Restore(text.replace("M. Keller", "Mara"));
    QCOMPARE(form.prose("JobHeader.Author")->toPlainText(), "Mara");
    QCOMPARE(shown(), typed);
    QVERIFY(!form.form.GetNotes(path).isEmpty());
    QVERIFY(!form.document.TakeOpenEdits().isEmpty()); // not saved without a word
    QCOMPARE(shown(), typed);
    control->setFocus();
    QTest::keyClick(control, Qt::Key_Escape);
    QCOMPARE(shown(), before);
    QCOMPARE(form.form.GetNotes(path), QString());
    QVERIFY(form.document.TakeOpenEdits().isEmpty());
}

void DocumentFormTest::unreadableIsToldBelow_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("number") << "AntennaData.Azimuth";
    QTest::newRow("date") << "JobHeader.Creation";
}

void DocumentFormTest::unreadableIsToldBelow()
{
    QFETCH(const QString, path);
    const Form form(Antenna);
    const QString before = form.line(path)->text();
    form.type(path, "soon");
    QCOMPARE(form.form.GetNotes(path), QString()); // not while it is being typed
    form.form.GetControl("AntennaData.Name")->setFocus();
    QVERIFY(!form.form.GetNotes(path).isEmpty());
    QCOMPARE(form.line(path)->text(), "soon");
    form.enter(path, before);
    QCOMPARE(form.form.GetNotes(path), QString());
    QCOMPARE(form.document.GetText(), example(Antenna));
    form.enter(path, "soon");
    QVERIFY(!form.form.GetNotes(path).isEmpty());
    QTest::keyClick(form.line(path), Qt::Key_Escape);
    QCOMPARE(form.form.GetNotes(path), QString());
    QCOMPARE(form.line(path)->text(), before);
}

void DocumentFormTest::sameValueInOtherWords()
{
    const Form form(Antenna);
    form.enter("AntennaData.MaximumFrequency", "30e6");
    QCOMPARE(form.document.GetText(), example(Antenna));
    QVERIFY(!form.line("AntennaData.MaximumFrequency")->text().contains('e'));
}

void DocumentFormTest::wheelNeedsTheFocus_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("path");
    QTest::newRow("number") << Antenna << "AntennaData.Azimuth";
    QTest::newRow("names") << Antenna << "AntennaData.Polarization";
    QTest::newRow("text") << Antenna << "JobHeader.Author";
    QTest::newRow("date") << Antenna << "JobHeader.Creation";
    QTest::newRow("boolean") << Antenna << "JobHeader.ShowJDH";
    QTest::newRow("map") << Workflow << "Area";
}

void DocumentFormTest::wheelNeedsTheFocus()
{
    QFETCH(const QString, name);
    QFETCH(const QString, path);
    const Form form(name);
    QWidget *const control = form.form.GetControl(path);
    QVERIFY(control);
    control->clearFocus();
    const auto *const scrolling = qobject_cast<QAbstractScrollArea *>(control);
    QWidget *const target = scrolling ? scrolling->viewport() : control;
    const QPointF at(5, 5);
    QWheelEvent event(at, QPointF(target->mapToGlobal(at.toPoint())), {}, {0, -120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(target, &event);
    QCOMPARE(form.document.GetText(), example(name));
    QVERIFY(!event.isAccepted()); // the form scrolls
}

void DocumentFormTest::tabOrder()
{
    const Form form(Antenna);
    form.form.GetControl("ResourceType")->setFocus();
    QStringList order;
    for (int i = 0; i < 10; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        order += form.form.GetCurrentField();
    }
    QCOMPARE(order.join(", "),
             "JobHeader.JobType, JobHeader.Author, JobHeader.Creation, JobHeader.ShowJDH, "
             "JobHeader.Description, AntennaData.Name, AntennaData.MinimumFrequency, "
             "AntennaData.MaximumFrequency, AntennaData.Azimuth, AntennaData.Polarization");
}

void DocumentFormTest::rightToLeft_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("name") << "JobHeader.JobType";
    QTest::newRow("text") << "JobHeader.Author";
    QTest::newRow("date") << "JobHeader.Creation";
    QTest::newRow("boolean") << "JobHeader.ShowJDH";
    QTest::newRow("number") << "AntennaData.MinimumFrequency";
}

/// Labels stand where lines begin, controls beside them and what findings say below, on the same side.
void DocumentFormTest::rightToLeft()
{
    QFETCH(const QString, path);
    Form form(faultyJob());
    QWidget *const control = form.form.GetControl(path);
    const auto label = [&form, control] {
        const auto labels = form.form.findChildren<QLabel *>();
        const auto found = std::find_if(labels.begin(), labels.end(),
                                        [control](const QLabel *one) { return one->buddy() == control; });
        return found == labels.end() ? nullptr : *found;
    }();
    const auto notes = [&form, path] {
        const auto labels = form.form.findChildren<QLabel *>();
        const auto found = std::find_if(labels.begin(), labels.end(), [&](const QLabel *one) {
            return one->isVisible() && one->text() == form.form.GetNotes(path);
        });
        return found == labels.end() ? nullptr : *found;
    }();
    QVERIFY(label && notes);
    const auto placeOf = [&form](const QWidget *widget) {
        return QRect(widget->mapTo(&form.form, QPoint()), widget->size());
    };
    QVERIFY(placeOf(label).right() < placeOf(control).left());
    QCOMPARE(placeOf(notes->parentWidget()).left(), placeOf(control).left());
    QVERIFY(label->alignment() & Qt::AlignLeft);
    QVERIFY2(qAbs(placeOf(label).center().y() - placeOf(control).center().y()) <= 1,
             qPrintable(QString("%1+%2 beside %3+%4")
                            .arg(placeOf(label).top())
                            .arg(label->height())
                            .arg(placeOf(control).top())
                            .arg(control->height())));
    form.form.setLayoutDirection(Qt::RightToLeft);
    QApplication::processEvents();
    QVERIFY(placeOf(label).left() > placeOf(control).right());
    QCOMPARE(placeOf(notes->parentWidget()).right(), placeOf(control).right());
    QVERIFY(label->alignment() & Qt::AlignRight);
    QVERIFY(notes->alignment() & Qt::AlignRight);
    QVERIFY(placeOf(notes).right() < placeOf(notes->parentWidget()).right() - 14); // the sign is there
}

/// Nothing is cut off, however large the font is.
void DocumentFormTest::largeFonts()
{
    Form form(faultyJob());
    QFont font = form.form.font();
    font.setPointSizeF(font.pointSizeF() * 2);
    form.form.setFont(font);
    form.form.resize(1200, 1300);
    QApplication::processEvents();
    const auto labels = form.form.findChildren<QLabel *>();
    for (const QLabel *const label : labels) {
        if (label->isVisible() && !label->text().isEmpty())
            QVERIFY2(label->height() >= label->heightForWidth(label->width())
                         && (label->wordWrap() || label->width() >= label->sizeHint().width()),
                     qPrintable(label->text()));
    }
    for (const KORMAK::Field &field : form.document.GetDocument().GetFields()) {
        const QWidget *const control = form.form.GetControl(field.GetPath());
        if (!control)
            continue;
        const QSize least = control->minimumSizeHint();
        QVERIFY2(control->height() >= least.height() && control->width() >= least.width(),
                 qPrintable(field.GetPath()));
        if (qobject_cast<const QLineEdit *>(control))
            QVERIFY(control->width() >= 30 * control->fontMetrics().averageCharWidth());
    }
}

void DocumentFormTest::accessibleNames()
{
    const Form form(faultyJob());
    QCOMPARE(form.form.GetControl("JobHeader.Author")->accessibleName(), "Author, required");
    QCOMPARE(form.form.GetControl("AntennaData.Azimuth")->accessibleName(), "Azimuth in degrees");
    QCOMPARE(form.form.GetControl("JobHeader.Author")->accessibleDescription(), "missing");
    for (const KORMAK::Field &field : form.document.GetDocument().GetFields()) {
        QWidget *const control = form.form.GetControl(field.GetPath());
        if (!control)
            continue;
        QAccessibleInterface *const face = QAccessible::queryAccessibleInterface(control);
        QVERIFY(face);
        QVERIFY2(!face->text(QAccessible::Name).isEmpty(), qPrintable(field.GetPath()));
    }
}

void DocumentFormTest::decimalComma()
{
    Form form(Generation);
    form.form.setLocale(QLocale(QLocale::German, QLocale::Germany));
    QCOMPARE(form.line("LevelMinBurstDuration")->text(), "0,2");
    form.enter("LevelMinBurstDuration", "0,25");
    QVERIFY(form.document.GetText().contains("<LevelMinBurstDuration>0.25<"));
}

void DocumentFormTest::listsGrowAndShrink()
{
    const Form form(Workflow);
    const QByteArray before = form.document.GetText();
    QPushButton *const add = form.button("Add Coordinate");
    QVERIFY(add);
    add->click();
    QCOMPARE(form.text("Area.Coordinate[3].Latitude"), "54.9");
    QVERIFY(form.form.GetControl("Area.Coordinate[3].Longitude"));
    QCOMPARE(form.form.GetCurrentField(), "Area.Coordinate[3].Latitude");
    QPushButton *const remove = form.button("Remove Coordinate 4");
    QVERIFY(remove);
    remove->click();
    QCOMPARE(form.document.GetText(), before);
    form.type("Area.Coordinate[2].Latitude", "54.5");
    form.button("Remove Coordinate 1")->click(); // what is open moves up with its element
    QCOMPARE(form.text("Area.Coordinate[1].Latitude"), "54.5");
    QVERIFY(!form.form.GetControl("Area.Coordinate[2].Latitude"));
    QApplication::processEvents();
}

void DocumentFormTest::longLists()
{
    const Form form(workflowWithPoints(120));
    QVERIFY(form.form.GetControl("Area.Coordinate[49].Latitude"));
    QVERIFY(!form.form.GetControl("Area.Coordinate[50].Latitude"));
    const auto buttons = form.form.findChildren<QPushButton *>();
    for (QPushButton *const button : buttons) {
        if (button->text() == "Show 50 more")
            button->click();
    }
    QVERIFY(form.form.GetControl("Area.Coordinate[99].Latitude"));
    QVERIFY(!form.form.GetControl("Area.Coordinate[100].Latitude"));
    QCOMPARE(form.form.GetCurrentField(), "Area.Coordinate[50].Latitude");
}

/// What is far down a long list is shown with those around it, and what is between stays away.
void DocumentFormTest::elementsFarDown()
{
    const QString path = "Area.Coordinate[1234].Longitude";
    Form form(workflowWithPoints(2000));
    QVERIFY(form.form.ShowField(path));
    QVERIFY(form.form.GetControl(path)->hasFocus());
    QCOMPARE(form.form.GetControl(path)->visibleRegion().boundingRect().height(),
             form.form.GetControl(path)->height());
    QVERIFY(form.form.GetControl("Area.Coordinate[1200].Latitude"));
    QVERIFY(!form.form.GetControl("Area.Coordinate[1199].Latitude"));
    QVERIFY(!form.form.GetControl("Area.Coordinate[1250].Latitude"));
    form.enter(path, "5.5");
    QCOMPARE(form.text(path), "5.5");
    // Those around it can be shown, too.
    const auto more = [&form] {
        QList<QPushButton *> found;
        const auto buttons = form.form.findChildren<QPushButton *>();
        for (QPushButton *const one : buttons) {
            if (one->isVisible() && one->text() == "Show 50 more")
                found += one;
        }
        return found;
    };
    QCOMPARE(more().size(), 2);
    more().last()->click();
    QApplication::processEvents();
    QVERIFY(form.form.GetControl("Area.Coordinate[99].Latitude")
            || form.form.GetControl("Area.Coordinate[1299].Latitude"));
    QCOMPARE(more().size(), 2);
}

void DocumentFormTest::findingsOfElements()
{
    QByteArray text = workflowWithPoints(120);
    text.replace("<Latitude>0.7<", "<Latitude>97<");
    text.replace("<Latitude>0.9<", "<Latitude>97<");
    text.replace("<Latitude>11.8<", "<Latitude>98<");
    Form form(text);
    for (int i = 0; i < 50; ++i) {
        const QString notes = form.form.GetNotes(QString("Area.Coordinate[%1].Latitude").arg(i));
        QCOMPARE(notes.isEmpty(), i != 7 && i != 9);
    }
    // Of what is not shown, the list tells.
    QVERIFY2(form.form.GetNotes("Area.Coordinate").startsWith("[118].Latitude: "),
             qPrintable(form.form.GetNotes("Area.Coordinate")));
    QVERIFY(form.form.ShowField("Area.Coordinate[118]"));
    QCOMPARE(form.form.GetNotes("Area.Coordinate"), QString());
    QVERIFY(!form.form.GetNotes("Area.Coordinate[118].Latitude").isEmpty());
    form.enter("Area.Coordinate[9].Latitude", "0.9");
    QCOMPARE(form.form.GetNotes("Area.Coordinate[9].Latitude"), QString());
    QVERIFY(!form.form.GetNotes("Area.Coordinate[7].Latitude").isEmpty());
}

void DocumentFormTest::findingsWithoutAField()
{
    QByteArray text = workflowWithPoints(9);
    text.replace("<Coordinate><Latitude>0.3<", "<Coordinate Unit='degrees'>near<Latitude>0.3<");
    const Form form(text);
    const QStringList notes = form.form.GetNotes("Area.Coordinate[3]").split('\n');
    QVERIFY2(notes.size() == 2 && notes[0].startsWith("Unit: "), qPrintable(notes.join('|')));
    QCOMPARE(form.form.GetNotes("Area.Coordinate[2]"), QString());
}

void DocumentFormTest::firstElement()
{
    const Form form(workflowWithPoints(0));
    form.button("Add Coordinate")->click();
    QCOMPARE(form.form.GetNotes("Area.Coordinate"), QString());
    QVERIFY(form.form.GetControl("Area.Coordinate[0].Latitude"));
    QVERIFY(form.form.GetControl("Area.Coordinate[0].Latitude")->hasFocus());
}

void DocumentFormTest::entriesOfEnumerations()
{
    const Form form(
        QByteArray("<Parameter Version=\"1.0\" UniqueName=\"a\"><ParameterType>Enum</ParameterType><Enum>"
                   "<EnumValue Key=\"7\" Name=\"B\" Value=\"1.5\"/></Enum></Parameter>"));
    form.button("Add EnumValue") ? form.button("Add EnumValue")->click() : form.button("Add Entry")->click();
    QCOMPARE(form.text("Enum.EnumValue[1].Key"), "8");
    form.enter("Enum.EnumValue[1].Name", "C");
    QVERIFY(form.document.GetText().contains("<EnumValue Key=\"8\" Name=\"C\" Value=\"0\"/>"));
}

void DocumentFormTest::fieldsThatComeAndGo()
{
    const Form form(
        QByteArray("<Parameter Version=\"1.0\" UniqueName=\"a\"><ParameterType>Integer</ParameterType>"
                   "</Parameter>"));
    QVERIFY(form.form.GetControl("Integer.Minimum"));
    form.choose("ParameterType", "Float");
    QVERIFY(!form.form.GetControl("Integer.Minimum"));
    QVERIFY(form.form.GetControl("Float.Minimum"));
    QVERIFY(!form.form.GetControl("Float.RepresentationName")); // which documents do not say
    QApplication::processEvents();
}

void DocumentFormTest::textsAreNoTags()
{
    const Form form(
        QByteArray("<GenericReceiver Version=\"1.0\"><Parameter UniqueName=\"&lt;b&gt;x&lt;/b&gt;\"/>"
                   "</GenericReceiver>"));
    const auto labels = form.form.findChildren<QLabel *>();
    QVERIFY(std::any_of(labels.begin(), labels.end(),
                        [](const QLabel *label) { return label->text() == "<b>x</b>"; }));
    for (const QLabel *const label : labels) {
        QVERIFY(label->textFormat() == Qt::PlainText || !Qt::mightBeRichText(label->text()));
        QVERIFY2(!label->toolTip().contains("<b>"), qPrintable(label->toolTip()));
    }
    const Form job(example(Antenna).replace("<ShowJDH>true<", "<ShowJDH>a &amp; b<"));
    QCOMPARE(job.box("JobHeader.ShowJDH")->text(), "\"a && b\"");
}

void DocumentFormTest::mapAndFieldsShowTheSame()
{
    const Form form(Workflow);
    auto *const map = form.control<KORMAK::AreaView>("Area");
    QVERIFY(map);
    form.enter("Area.Coordinate[1].Latitude", "55.5");
    map->SetSelectedPoint(1);
    QVERIFY(map->GetCaption().contains("latitude 55.5"));
    map->setFocus();
    QTest::keyClick(map, Qt::Key_Delete);
    QVERIFY(!form.form.GetControl("Area.Coordinate[2].Latitude"));
    QCOMPARE(form.line("Area.Coordinate[1].Latitude")->text(), "54.9");
}

void DocumentFormTest::showField_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("current");
    QTest::newRow("field") << "Area.Coordinate[2].Longitude"
                           << "Area.Coordinate[2].Longitude";
    QTest::newRow("element") << "Area.Coordinate[2]"
                             << "Area.Coordinate[2].Latitude";
    QTest::newRow("object") << "Area"
                            << "Area.Name";
    QTest::newRow("what is not there") << "Area.Name.Nothing"
                                       << "Area.Name";
    QTest::newRow("as findings call it") << "Area.Coordinate.Longitude"
                                         << "Area.Coordinate[0].Longitude";
}

void DocumentFormTest::showField()
{
    QFETCH(const QString, path);
    QFETCH(const QString, current);
    Form form(Workflow);
    form.form.resize(620, 240);
    QApplication::processEvents();
    QVERIFY(form.form.ShowField(path));
    QCOMPARE(form.form.GetCurrentField(), current);
    QWidget *const control = form.form.GetControl(current);
    const QRect seen = control->visibleRegion().boundingRect();
    if (path != "Area") // whose heading is seen, and its map
        QCOMPARE(seen.height(), control->height());
    QVERIFY(!form.form.ShowField("Nothing"));
}

void DocumentFormTest::currentField()
{
    const Form form(Antenna);
    QSignalSpy spy(&form.form, &DocumentForm::CurrentFieldChanged);
    form.form.GetControl("JobHeader.Author")->setFocus();
    form.form.GetControl("AntennaData.Azimuth")->setFocus();
    QCOMPARE(form.form.GetCurrentField(), "AntennaData.Azimuth");
    QCOMPARE(spy.last().at(0).toString(), "AntennaData.Azimuth");
}

void DocumentFormTest::documentsThatCannotBeRead()
{
    Form form(example("faulty/truncated"));
    QVERIFY(!form.form.GetControl("JobHeader.Author"));
    const auto labels = form.form.findChildren<QLabel *>();
    QVERIFY(std::any_of(labels.begin(), labels.end(), [&form](const QLabel *label) {
        return label->isVisible() && !label->text().isEmpty()
            && label->text() == form.document.GetDocument().GetState();
    }));
    form.document.Restore(example(Antenna));
    QVERIFY(form.form.GetControl("JobHeader.Author"));
}

/// What is being typed is of the document that was there, not of the next one.
void DocumentFormTest::openEditsAreNotOfAnotherDocument()
{
    Form form(Antenna);
    QWidget *const author = form.form.GetControl("JobHeader.Author");
    author->setFocus();
    QTest::keyClicks(author, "typed");
    ValueEdit *const azimuth = form.line("AntennaData.Azimuth");
    azimuth->setFocus();
    azimuth->selectAll();
    QTest::keyClicks(azimuth, "17");
    const QByteArray other = example("jobs/surveillance-mc-hf");
    form.document.SetText(other);
    QCOMPARE(form.document.GetText(), other);
    QVERIFY(form.document.TakeOpenEdits().isEmpty());
    QCOMPARE(form.document.GetText(), other);
    QVERIFY(form.form.GetControl("JobHeader.Author"));
}

void DocumentFormTest::movesOnTheMapAreNotOfAnotherDocument()
{
    OpenDocument document;
    document.SetText(example(Workflow));
    QWidget window;
    auto *const form = new DocumentForm;
    auto *const line = new QLineEdit; // which the focus goes to
    auto *const layout = new QVBoxLayout(&window);
    layout->addWidget(form);
    layout->addWidget(line);
    form->SetDocument(&document);
    window.show();
    QApplication::setActiveWindow(&window);
    auto *const map = qobject_cast<KORMAK::AreaView *>(form->GetControl("Area"));
    QVERIFY(map);
    map->setFocus();
    map->SetSelectedPoint(1);
    QTest::keyClick(map, Qt::Key_Up);
    QVERIFY(map->GetCaption().contains("(moving)"));
    const QByteArray other = example(Workflow).replace("German Bight", "Bight");
    document.SetText(other);
    QVERIFY(line->hasFocus());
    QCOMPARE(document.GetText(), other);
    QVERIFY(document.TakeOpenEdits().isEmpty());
    QCOMPARE(document.GetText(), other);
}

void DocumentFormTest::noDocument()
{
    DocumentForm form;
    form.show();
    QCOMPARE(form.GetDocument(), nullptr);
    QVERIFY(!form.ShowField("JobHeader"));
    {
        OpenDocument document;
        document.SetText(example(Antenna));
        form.SetDocument(&document);
        QVERIFY(form.ShowField("JobHeader"));
    }
    QCOMPARE(form.GetDocument(), nullptr);
    QCOMPARE(form.GetControl("JobHeader.Author"), nullptr);
    QCOMPARE(form.GetCurrentField(), QString());
    QVERIFY(!form.grab().isNull());
}

void DocumentFormTest::pictures()
{
    OpenDocument document;
    const auto make = [&document]() -> std::unique_ptr<QWidget> {
        auto form = std::make_unique<DocumentForm>();
        form->SetDocument(&document);
        return form;
    };
    document.SetText(example(Antenna));
    QVERIFY(TestSupport::takePictures("form-job", {560, 520}, make));
    document.SetText(faultyJob());
    QVERIFY(TestSupport::takePictures("form-findings", {560, 660}, make));
    document.SetText(example(Workflow));
    QVERIFY(TestSupport::takePictures("form-workflow", {560, 1100}, make));
    document.SetText(example(Generation));
    QVERIFY(TestSupport::takePictures("form-generation", {560, 760}, make));
    document.SetText(example("receivers/vuhf-direction-finder"));
    QVERIFY(TestSupport::takePictures("form-receiver", {560, 760}, make));
    document.SetText(example("faulty/truncated"));
    QVERIFY(TestSupport::takePictures("form-unreadable", {560, 200}, make));
}

QTEST_MAIN(DocumentFormTest)

#include "DocumentFormTest.moc"
