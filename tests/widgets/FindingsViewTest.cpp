#include <models/OpenDocument.h>
#include <tests/support/Pictures.h>
#include <tests/support/ShownDocument.h>
#include <widgets/DocumentForm.h>
#include <widgets/FindingsView.h>

#include <QAbstractItemView>
#include <QClipboard>
#include <QLabel>
#include <QtTest>
#include <QVBoxLayout>

#include <memory>

using KORMAK::DocumentEdit;
using KORMAK::DocumentForm;
using KORMAK::FindingsView;
using KORMAK::OpenDocument;
using TestSupport::example;
using TestSupport::faultyJob;
using TestSupport::workflowWithPoints;

namespace {

struct View : TestSupport::Shown<FindingsView> {
    explicit View(const QByteArray &text) : Shown(text, {700, 200}) { }

    [[nodiscard]] QAbstractItemView *rows() const { return view.findChild<QAbstractItemView *>(); }
    [[nodiscard]] QModelIndex cell(int row, int column) const { return rows()->model()->index(row, column); }
    [[nodiscard]] int rowOf(const QString &path) const
    {
        for (int row = 0; row < view.GetCount(); ++row) {
            if (cell(row, 3).data().toString() == path)
                return row;
        }
        return -1;
    }

    FindingsView &view = widget;
};

} // namespace

class FindingsViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void rows();
    void emptyStates();
    void followsTheDocument();
    void clicksAndKeysActivate();
    void showsTheFieldOfAForm();
    void showsElementsOfLists_data();
    void showsElementsOfLists();
    void showsParametersByTheirNames();
    void copies();
    void longMessagesWrap();
    void documentThatEnds();
    void accessible();
    void pictures();
};

void FindingsViewTest::initTestCase()
{
    QApplication::setStyle("Fusion");
    QLocale::setDefault(QLocale::c());
}

void FindingsViewTest::rows()
{
    const View view(faultyJob());
    const auto findings = view.document.GetDocument().GetFindings();
    QVERIFY(findings.size() >= 3);
    QCOMPARE(view.view.GetCount(), findings.size());
    for (int row = 0; row < findings.size(); ++row)
        QCOMPARE(view.cell(row, 1).data().toString(), findings[row].GetMessage());
    QVERIFY(view.rows()->isVisible());
    QCOMPARE(view.view.GetEmptyText(), QString());
}

void FindingsViewTest::emptyStates()
{
    const View view(example("jobs/antenna"));
    QCOMPARE(view.view.GetEmptyText(), "Nothing is wrong with this document.");
    QVERIFY(!view.rows()->isVisible());
    const QLabel *const label = view.view.findChild<QLabel *>();
    QVERIFY(label && label->isVisible());
    QCOMPARE(label->text(), view.view.GetEmptyText());
    const FindingsView none;
    QCOMPARE(none.GetEmptyText(), "No document is open.");
    QCOMPARE(none.GetCount(), 0);
}

void FindingsViewTest::followsTheDocument()
{
    View view(faultyJob());
    const int before = view.view.GetCount();
    view.rows()->setCurrentIndex(view.cell(view.rowOf("Job/AntennaData/Azimuth"), 0));
    QVERIFY(view.document
                .Change({{DocumentEdit::Change::Action::Set, "JobHeader.Author", "K"}},
                        DocumentEdit::NewFindings::Accepted)
                .isEmpty());
    QCOMPARE(view.view.GetCount(), before - 1);
    QCOMPARE(view.rows()->currentIndex().row(), view.rowOf("Job/AntennaData/Azimuth"));
    view.document.SetText(example("jobs/antenna"));
    QVERIFY(!view.view.GetEmptyText().isEmpty());
    QVERIFY(!view.rows()->isVisible());
    view.document.SetText(faultyJob());
    QVERIFY(view.rows()->isVisible());
}

void FindingsViewTest::clicksAndKeysActivate()
{
    const View view(faultyJob());
    QSignalSpy spy(&view.view, &FindingsView::FieldActivated);
    const QModelIndex author = view.cell(view.rowOf("Job/JobHeader/Author"), 1);
    QTest::mouseClick(view.rows()->viewport(), Qt::LeftButton, {}, view.rows()->visualRect(author).center());
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy[0][0].toString(), "JobHeader.Author");
    view.rows()->setCurrentIndex(view.cell(view.rowOf("Job/AntennaData/Azimuth"), 0));
    QCOMPARE(spy.count(), 1); // going through the rows leads nowhere
    QTest::keyClick(view.rows(), Qt::Key_Return);
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy[1][0].toString(), "AntennaData.Azimuth");
}

void FindingsViewTest::showsTheFieldOfAForm()
{
    View view(faultyJob());
    DocumentForm form;
    form.SetDocument(&view.document);
    form.show();
    QApplication::setActiveWindow(&form);
    connect(&view.view, &FindingsView::FieldActivated, &form, &DocumentForm::ShowField);
    for (int row = 0; row < view.view.GetCount(); ++row) {
        view.rows()->setCurrentIndex(view.cell(row, 0));
        QTest::keyClick(view.rows(), Qt::Key_Enter);
        const QString path = view.document.GetDocument().GetFindings()[row].GetFieldPath();
        if (!path.isEmpty())
            QCOMPARE(form.GetCurrentField(), path);
    }
}

void FindingsViewTest::showsElementsOfLists_data()
{
    QTest::addColumn<QByteArray>("former");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("field");
    const auto add = [](const char *name, const char *former, const char *text, const char *field) {
        QTest::newRow(name) << QByteArray(former) << QByteArray(text) << field;
    };
    add("implausible", "<Latitude>0.7<", "<Latitude>97<", "Area.Coordinate[7].Latitude");
    add("far down", "<Latitude>12.3<", "<Latitude>97<", "Area.Coordinate[123].Latitude");
    add("unreadable", "<Latitude>12.3<", "<Latitude>north<", "Area.Coordinate[123].Latitude");
    add("missing", "<Latitude>19.9</Latitude>", "", "Area.Coordinate[199].Latitude");
    add("unknown attribute", "<Coordinate><Latitude>0.3<", "<Coordinate Unit='degrees'><Latitude>0.3<",
        "Area.Coordinate[3].Latitude");
}

/// A click shows the very field and gives it the focus, also in elements of lists that are not shown yet.
void FindingsViewTest::showsElementsOfLists()
{
    QFETCH(const QByteArray, former);
    QFETCH(const QByteArray, text);
    QFETCH(const QString, field);
    OpenDocument document;
    document.SetText("\xEF\xBB\xBF" + workflowWithPoints(200).replace(former, text));
    QWidget window;
    auto *const layout = new QVBoxLayout(&window);
    auto *const form = new DocumentForm;
    auto *const view = new FindingsView;
    layout->addWidget(form);
    layout->addWidget(view);
    form->SetDocument(&document);
    view->SetDocument(&document);
    connect(view, &FindingsView::FieldActivated, form, &DocumentForm::ShowField);
    window.resize(620, 600);
    window.show();
    QApplication::setActiveWindow(&window);
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    auto *const rows = view->findChild<QAbstractItemView *>();
    const QVector<KORMAK::Finding> findings = document.GetDocument().GetFindings();
    int row = 0;
    while (row < findings.size() && !findings[row].GetFieldPath().startsWith("Area.Coordinate"))
        ++row;
    const QModelIndex cell = rows->model()->index(row, 1);
    QVERIFY(cell.isValid());
    QApplication::processEvents();
    rows->scrollTo(cell, QAbstractItemView::PositionAtTop);
    const QRect seen = rows->visualRect(cell) & rows->viewport()->rect();
    QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, seen.center());
    QCOMPARE(form->GetCurrentField(), field);
    QWidget *const control = form->GetControl(field);
    QVERIFY(control && control->hasFocus());
    QCOMPARE(control->visibleRegion().boundingRect().height(), control->height());
}

/// Names that are long are cut in findings, and some have characters that paths escape.
void FindingsViewTest::showsParametersByTheirNames()
{
    const QString name = QString(300, 'n') + "].x";
    const View view("<GenericReceiver Version='1.0'><Parameter UniqueName='" + name.toUtf8()
                    + "'><ParameterType>Integer</ParameterType><Integer><Default>one</Default></Integer>"
                      "</Parameter></GenericReceiver>");
    QSignalSpy spy(&view.view, &FindingsView::FieldActivated);
    for (int row = 0; row < view.view.GetCount(); ++row) {
        if (!view.cell(row, 3).data().toString().endsWith("/Default"))
            continue;
        view.rows()->setCurrentIndex(view.cell(row, 0));
        QTest::keyClick(view.rows(), Qt::Key_Enter);
    }
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy[0][0].toString(), "Parameter[" + QString(300, 'n') + "\\].x].Integer.Default");
    QCOMPARE(view.document.GetDocument().GetField(spy[0][0].toString()).GetLabel(), "Default");
}

void FindingsViewTest::copies()
{
    const View view(faultyJob());
    view.rows()->setCurrentIndex(view.cell(view.rowOf("Job/JobHeader/Author"), 0));
    QTest::keyClick(view.rows(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), "Error: line 3, column 5: Job/JobHeader/Author: missing");
}

void FindingsViewTest::longMessagesWrap()
{
    View view(faultyJob());
    const QModelIndex message = view.cell(view.rowOf("Job/JobHeader/JobType"), 1);
    const auto lines = [&view, &message] {
        return view.rows()->visualRect(message).height() / view.rows()->fontMetrics().lineSpacing();
    };
    view.view.resize(3000, 300);
    QTRY_COMPARE(lines(), 1);
    view.view.resize(520, 300);
    QTRY_VERIFY(lines() > 1);
}

void FindingsViewTest::documentThatEnds()
{
    FindingsView view;
    {
        OpenDocument document;
        document.SetText(faultyJob());
        view.SetDocument(&document);
        QCOMPARE(view.GetDocument(), &document);
        QVERIFY(view.GetCount() > 0);
    }
    QCOMPARE(view.GetDocument(), nullptr);
    QCOMPARE(view.GetEmptyText(), "No document is open.");
}

void FindingsViewTest::accessible()
{
    const View view(faultyJob());
    QCOMPARE(view.rows()->accessibleName(), "Findings");
    QVERIFY(view.cell(0, 0).data().toString() == "Error" || view.cell(0, 0).data().toString() == "Warning");
    QCOMPARE(view.view.focusProxy(), view.rows());
}

void FindingsViewTest::pictures()
{
    OpenDocument document;
    const auto make = [&document]() -> std::unique_ptr<QWidget> {
        auto view = std::make_unique<FindingsView>();
        view->SetDocument(&document);
        return view;
    };
    document.SetText(faultyJob());
    QVERIFY(TestSupport::takePictures("findings", {700, 180}, make));
    const auto both = [&document]() -> std::unique_ptr<QWidget> {
        auto window = std::make_unique<QWidget>();
        auto *const layout = new QVBoxLayout(window.get());
        auto *const form = new DocumentForm;
        auto *const view = new FindingsView;
        form->SetDocument(&document);
        view->SetDocument(&document);
        layout->addWidget(form, 3);
        layout->addWidget(view, 1);
        return window;
    };
    QVERIFY(TestSupport::takePictures("form-and-findings", {700, 640}, both));
    document.SetText(example("jobs/antenna"));
    QVERIFY(TestSupport::takePictures("findings-none", {700, 100}, make));
}

QTEST_MAIN(FindingsViewTest)

#include "FindingsViewTest.moc"
