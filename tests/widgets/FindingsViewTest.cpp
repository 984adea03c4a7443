#include <models/OpenDocument.h>
#include <tests/support/Files.h>
#include <tests/support/Pictures.h>
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

namespace {

QByteArray example(const QString &name)
{
    return TestSupport::bytesOf(QString(EXAMPLES_DIR) + "/" + name + ".xml");
}

QByteArray faultyJob()
{
    QByteArray text = example("jobs/surveillance-mc-hf");
    text.replace("Surveillance MC HF", "Surveillance MC SHF");
    text.replace("        <Author>M. Keller</Author>\n", "");
    text.replace("<Azimuth>0<", "<Azimuth>400<");
    return text;
}

struct View {
    explicit View(const QByteArray &text)
    {
        document.SetText(text);
        view.SetDocument(&document);
        view.resize(700, 200);
        view.show();
        QApplication::setActiveWindow(&view);
        QVERIFY2(QTest::qWaitForWindowExposed(&view), "no window");
    }

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

    OpenDocument document;
    FindingsView view;
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
