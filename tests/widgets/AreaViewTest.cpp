#include <models/OpenDocument.h>
#include <tests/support/Files.h>
#include <tests/support/Pictures.h>
#include <widgets/AreaView.h>
#include <widgets/Undo.h>

#include <QAccessible>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QScreen>
#include <QtTest>
#include <QUndoStack>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <memory>

using KORMAK::AreaView;
using KORMAK::DocumentEdit;
using KORMAK::OpenDocument;

using Places = QVector<QPair<QByteArray, QByteArray>>; // as they are written
Q_DECLARE_METATYPE(Places)

namespace {

QByteArray coordinate(const QPair<QByteArray, QByteArray> &place, const QByteArray &comment = {})
{
    return "        <Coordinate>" + comment + "\n            <Latitude>" + place.first
        + "</Latitude>\n            <Longitude>" + place.second + "</Longitude>\n        </Coordinate>\n";
}

QByteArray workflow(const Places &places)
{
    QByteArray text =
        "<?xml version=\"1.0\"?>\n<AutomaticWorkflow Version=\"1.0\">\n    <Mode>AutomaticMode</Mode>\n"
        "    <SearchStrategy>LowestIdFirst</SearchStrategy>\n"
        "    <Area Version=\"1.0\"><!-- of the sea -->\n        <Name>Bight</Name>\n";
    for (const auto &place : places)
        text += coordinate(place);
    return text + "    </Area>\n</AutomaticWorkflow>\n";
}

const Places Triangle{{"53.550", "7.10"}, {" 55.0625 ", "6.4"}, {"+54.9", "8.3e0"}};
const Places ClosedRing{{"53", "7.0"}, {"55", "6"}, {"54", "9"}, {"53", "7.00"}};
const Places AcrossDateLine{{"60", "175"}, {"60", "-170"}, {"50", "-170"}, {"50", "175"}};
const Places RoundPole{{"70", "0"}, {"70", "90"}, {"70", "180"}, {"70", "-90"}};
const Places Bowtie{{"50", "0"}, {"54", "6"}, {"50", "6"}, {"54", "0"}};

/// A view in a window of its own, beside a line that can take the focus.
struct Window {
    explicit Window(const Places &places) : Window(workflow(places)) { }
    explicit Window(const QByteArray &text)
    {
        document.SetText(text);
        auto *const layout = new QVBoxLayout(&widget);
        view = new AreaView;
        other = new QLineEdit;
        layout->addWidget(view);
        layout->addWidget(other);
        view->SetDocument(&document);
        widget.resize(640, 560);
        widget.show();
        QApplication::setActiveWindow(&widget);
        QVERIFY2(QTest::qWaitForWindowExposed(&widget), "no window");
        view->setFocus();
    }

    [[nodiscard]] QPoint point(int index) const
    {
        const QString path = QString("Area.Coordinate[%1].").arg(index);
        const KORMAK::Document &now = document.GetDocument();
        const auto at = view->GetPosition({now.GetField(path + "Latitude").GetValue().toDouble(),
                                           now.GetField(path + "Longitude").GetValue().toDouble()});
        return at ? at->toPoint() : QPoint(-1, -1);
    }
    [[nodiscard]] QString text(int index, const QString &name) const
    {
        return document.GetDocument().GetField(QString("Area.Coordinate[%1].").arg(index) + name).GetText();
    }
    void drag(const QPoint &from, const QPoint &to) const
    {
        QTest::mousePress(view, Qt::LeftButton, {}, from);
        moveMouse((from + to) / 2);
        moveMouse(to);
        QTest::mouseRelease(view, Qt::LeftButton, {}, to);
    }
    /// With the button held, which QTest::mouseMove() does not say.
    void moveMouse(const QPoint &to) const
    {
        QMouseEvent event(QEvent::MouseMove, QPointF(to), QPointF(view->mapToGlobal(to)), Qt::NoButton,
                          Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view, &event);
    }
    void keys(std::initializer_list<Qt::Key> all) const
    {
        for (const Qt::Key key : all)
            QTest::keyClick(view, key);
    }
    void openMenu(const QPoint &at) const
    {
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, view->mapToGlobal(at));
        QApplication::sendEvent(view, &event);
    }
    [[nodiscard]] QMenu *menu() const { return view->findChild<QMenu *>(); }
    [[nodiscard]] QAction *entry(const QString &text) const
    {
        const auto actions = menu()->actions();
        for (QAction *const action : actions) {
            if (action->text().remove('&') == text)
                return action;
        }
        return nullptr;
    }
    void choose(const QString &text) const
    {
        menu()->setActiveAction(entry(text));
        QTest::keyClick(menu(), Qt::Key_Return);
        QApplication::processEvents();
    }
    /// \return it was taken
    bool wheel(int notches) const
    {
        const QPointF at(view->rect().center());
        QWheelEvent event(at, QPointF(view->mapToGlobal(at.toPoint())), {}, {0, 120 * notches}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        event.setAccepted(false);
        QApplication::sendEvent(view, &event);
        return event.isAccepted();
    }

    OpenDocument document;
    QWidget widget;
    AreaView *view = nullptr;
    QLineEdit *other = nullptr;
};

/// The lines in which \a a and \a b differ, which have equally many.
QVector<int> changedLines(const QByteArray &a, const QByteArray &b)
{
    const QList<QByteArray> before = a.split('\n');
    const QList<QByteArray> after = b.split('\n');
    QVector<int> lines;
    for (int i = 0; i < qMax(before.size(), after.size()); ++i) {
        if (before.value(i) != after.value(i))
            lines += i;
    }
    return lines;
}

} // namespace

class AreaViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void captions_data();
    void captions();
    void captionsHaveRoom_data();
    void captionsHaveRoom();
    void allOfTheAreaIsSeen_data();
    void allOfTheAreaIsSeen();
    void insideIsFilled_data();
    void insideIsFilled();
    void draggingMovesOnePoint();
    void aClickMovesNothing();
    void escapeGivesUpDragging();
    void tabGoesFromPointToPoint();
    void keysMoveOnePoint();
    void escapeGivesUpKeys();
    void whatTakesAMove_data();
    void whatTakesAMove();
    void stepsAreDecimal();
    void noStepBeyondThePole();
    void stepsCrossTheDateLine();
    void insertKeepsTheOthers_data();
    void insertKeepsTheOthers();
    void firstPoints();
    void doubleClickAddsToTheNearestEdge();
    void deleteRemovesAPoint();
    void closedOutlinesStayClosed();
    void undo();
    void wheelNeedsTheFocus();
    void mapIsDraggedAndShownWhole();
    void changesFromElsewhere();
    void pointsThatGoWhileOneIsDragged_data();
    void pointsThatGoWhileOneIsDragged();
    void pointsThatGoLeaveTheSelection();
    void contextMenu();
    void changesBelowAnOpenMenu();
    void menuKey();
    void escapeLeadsOutOfTheMap();
    void anotherDocument();
    void noDocument();
    void noAreaInTheDocument();
    void placesBesideTheEarth();
    void crossesTheDateLine();
    void decimalComma();
    void accessible();
    void shortcutsDoNotTakeItsKeys();
    void pictures();
};

void AreaViewTest::initTestCase()
{
    QApplication::setStyle("Fusion");
    QLocale::setDefault(QLocale::c());
}

void AreaViewTest::captions_data()
{
    QTest::addColumn<Places>("places");
    QTest::addColumn<QString>("caption");
    QTest::newRow("none") << Places() << "The area has no points yet.\nA double click or Insert adds one.";
    QTest::newRow("one") << Places{{"1", "2"}}
                         << QString::fromUtf8(
                                "1°\u00a0N, 2°\u00a0E.\nThe area is one point: it encloses nothing.");
    QTest::newRow("crosses itself") << Bowtie << "crosses itself";
    QTest::newRow("two") << Places{{"1", "2"}, {"2", "2"}} << "line between two points";
    QTest::newRow("pole") << RoundPole << "round the pole";
    QTest::newRow("date line") << AcrossDateLine << QString::fromUtf8("175°\u00a0E to 170°\u00a0W");
    QTest::newRow("nowhere") << Places{{"1", "2"}, {"95", "2"}, {"3", "3"}}
                             << "Coordinate[1]: latitude 95 is not from -90 to 90.";
}

void AreaViewTest::captions()
{
    QFETCH(const Places, places);
    QFETCH(const QString, caption);
    const Window window(places);
    QVERIFY2(window.view->GetCaption().contains(caption), qPrintable(window.view->GetCaption()));
}

void AreaViewTest::captionsHaveRoom_data()
{
    captions_data();
}

void AreaViewTest::captionsHaveRoom()
{
    QFETCH(const Places, places);
    const Window window(places);
    for (const int width : {320, 400, 480, 560, 640, 800, 1000}) {
        window.view->resize(width, 500);
        const int room = window.view->minimumSizeHint().height() - 160; // which is the map's
        const QRect needed = window.view->fontMetrics().boundingRect(
            QRect(0, 0, width - 8, 500), Qt::TextWordWrap, window.view->GetCaption());
        QVERIFY2(needed.height() + 4 <= room,
                 qPrintable(QString("%1 of %2 at %3").arg(needed.height()).arg(room).arg(width)));
    }
}

void AreaViewTest::allOfTheAreaIsSeen_data()
{
    QTest::addColumn<Places>("places");
    QTest::newRow("triangle") << Triangle;
    QTest::newRow("across 180 degrees") << AcrossDateLine;
    QTest::newRow("round the pole") << RoundPole;
    QTest::newRow("crosses itself") << Bowtie;
    QTest::newRow("line") << Places{{"1", "2"}, {"2", "2"}};
    QTest::newRow("point at the pole") << Places{{"-90", "2"}};
}

void AreaViewTest::allOfTheAreaIsSeen()
{
    QFETCH(const Places, places);
    const Window window(places);
    const QColor area(0xb3, 0x26, 0x1e);
    const QImage image = window.view->grab().toImage();
    for (int i = 0; i < places.size(); ++i) {
        QVERIFY(window.view->rect().contains(window.point(i)));
        QCOMPARE(image.pixelColor(window.point(i) * image.devicePixelRatio()), area);
    }
    const auto middle = window.view->GetPlace(QPointF(window.point(0)));
    QVERIFY(middle);
    QVERIFY(qAbs(middle->GetLatitude() - places[0].first.toDouble()) < 0.5);
}

void AreaViewTest::insideIsFilled_data()
{
    QTest::addColumn<Places>("places");
    QTest::addColumn<QVector<double>>("inside"); // latitudes of the Atlantic, 30 degrees west
    QTest::addColumn<QVector<double>>("outside");

    QTest::newRow("band round the earth")
        << Places{{"10", "-180"}, {"10", "-60"}, {"10", "60"},   {"10", "180"},
                  {"-10", "180"}, {"-10", "60"}, {"-10", "-60"}, {"-10", "-180"}}
        << QVector<double>{5, -5} << QVector<double>{15, 40, -20, -50};
    QTest::newRow("all but the Pacific")
        << Places{{"85", "-100"}, {"85", "0"}, {"85", "100"}, {"-85", "100"}, {"-85", "0"}, {"-85", "-100"}}
        << QVector<double>{5, -5, 40, -50} << QVector<double>{};
    QTest::newRow("the north") << Places{{"-20", "0"}, {"-20", "120"}, {"60", "-120"}}
                               << QVector<double>{10, 40} << QVector<double>{-10, -40};
}

/// However large the area is, and wherever the map has been moved.
void AreaViewTest::insideIsFilled()
{
    QFETCH(const Places, places);
    QFETCH(const QVector<double>, inside);
    QFETCH(const QVector<double>, outside);
    Window window(places);
    const auto isReddish = [&window](double latitude, bool &isSeen) {
        const auto at = window.view->GetPosition({latitude, -30});
        const QImage image = window.view->grab().toImage();
        const QPoint pixel = at ? at->toPoint() * image.devicePixelRatio() : QPoint(-1, -1);
        isSeen = image.rect().contains(pixel);
        const QColor color = isSeen ? image.pixelColor(pixel) : QColor();
        return color.red() > color.green() + 10;
    };
    int seen = 0;
    for (const QPoint &by : {QPoint(0, 0), QPoint(150, 0), QPoint(-300, 60), QPoint(0, -150)}) {
        const QPoint corner(5, 5);
        window.drag(corner, corner + by);
        for (const QVector<double> &latitudes : {inside, outside}) {
            for (const double latitude : latitudes) {
                bool isSeen = false;
                const bool isFilled = isReddish(latitude, isSeen);
                seen += isSeen;
                if (isSeen)
                    QVERIFY2(isFilled == inside.contains(latitude), qPrintable(QString::number(latitude)));
            }
        }
    }
    QVERIFY(seen >= 4);
}

void AreaViewTest::draggingMovesOnePoint()
{
    const Window window(Triangle);
    const QByteArray before = window.document.GetText();
    QSignalSpy changes(&window.document, &OpenDocument::TextChanged);
    const QPoint from = window.point(1);
    const QPoint to = from + QPoint(30, 40);
    const auto wanted = window.view->GetPlace(QPointF(to));
    QVERIFY(wanted);
    window.drag(from, to);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changedLines(before, window.document.GetText()), (QVector<int>{11, 12}));
    QVERIFY(qAbs(window.text(1, "Latitude").toDouble() - wanted->GetLatitude()) < 0.02);
    QVERIFY(qAbs(window.text(1, "Longitude").toDouble() - wanted->GetLongitude()) < 0.02);
    QVERIFY(window.text(1, "Latitude").size() <= 7); // no more digits than can be seen
    QVERIFY((window.point(1) - to).manhattanLength() <= 2);
    QCOMPARE(window.view->GetSelectedPoint(), 1);
}

void AreaViewTest::aClickMovesNothing()
{
    const Window window(Triangle);
    const QByteArray before = window.document.GetText();
    QSignalSpy selections(window.view, &AreaView::SelectedPointChanged);
    window.drag(window.point(2), window.point(2) + QPoint(2, 1));
    QCOMPARE(window.document.GetText(), before);
    QCOMPARE(selections.count(), 1);
    QCOMPARE(selections.at(0).at(0).toInt(), 2);
    QTest::mouseClick(window.view, Qt::LeftButton, {}, QPoint(3, 3));
    QCOMPARE(window.view->GetSelectedPoint(), -1);
}

void AreaViewTest::escapeGivesUpDragging()
{
    const Window window(Triangle);
    const QByteArray before = window.document.GetText();
    const QPoint from = window.point(0);
    QTest::mousePress(window.view, Qt::LeftButton, {}, from);
    window.moveMouse(from + QPoint(50, 0));
    QVERIFY(window.view->GetCaption().contains("(moving)"));
    window.keys({Qt::Key_Escape});
    QTest::mouseRelease(window.view, Qt::LeftButton, {}, from + QPoint(50, 0));
    QCOMPARE(window.document.GetText(), before);
    QVERIFY(!window.view->GetCaption().contains("(moving)"));
}

void AreaViewTest::tabGoesFromPointToPoint()
{
    const Window window(Triangle);
    window.other->setFocus();
    QTest::keyClick(window.other, Qt::Key_Tab); // round to the first
    QVERIFY(window.view->hasFocus());
    QCOMPARE(window.view->GetSelectedPoint(), 0);
    window.keys({Qt::Key_Tab, Qt::Key_Tab});
    QCOMPARE(window.view->GetSelectedPoint(), 2);
    window.keys({Qt::Key_Backtab});
    QCOMPARE(window.view->GetSelectedPoint(), 1);
    window.keys({Qt::Key_Tab, Qt::Key_Tab});
    QVERIFY(window.other->hasFocus());
    QTest::keyClick(window.other, Qt::Key_Backtab);
    QVERIFY(window.view->hasFocus());
    QCOMPARE(window.view->GetSelectedPoint(), 2);
}

void AreaViewTest::keysMoveOnePoint()
{
    const Window window(Triangle);
    const QByteArray before = window.document.GetText();
    QSignalSpy changes(&window.document, &OpenDocument::TextChanged);
    window.view->SetSelectedPoint(0);
    window.keys({Qt::Key_Up, Qt::Key_Up, Qt::Key_Down, Qt::Key_Up});
    QCOMPARE(window.document.GetText(), before);
    window.keys({Qt::Key_Return});
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changedLines(before, window.document.GetText()), (QVector<int>{7})); // longitude stays as it is
    QVERIFY(window.text(0, "Latitude").toDouble() > 53.55);
    QTest::keyClick(window.view, Qt::Key_Left, Qt::ShiftModifier);
    window.keys({Qt::Key_Return});
    QCOMPARE(changedLines(before, window.document.GetText()), (QVector<int>{7, 8}));
    QVERIFY(window.text(0, "Longitude").toDouble() < 7.1);
    QVERIFY(window.text(0, "Longitude").toDouble() > 7.05);
}

void AreaViewTest::escapeGivesUpKeys()
{
    const Window window(Triangle);
    const QByteArray before = window.document.GetText();
    window.view->SetSelectedPoint(2);
    window.keys({Qt::Key_Right, Qt::Key_Escape, Qt::Key_Return});
    QCOMPARE(window.document.GetText(), before);
    QCOMPARE(window.view->GetSelectedPoint(), 2);
    window.keys({Qt::Key_Escape});
    QCOMPARE(window.view->GetSelectedPoint(), -1);
}

void AreaViewTest::whatTakesAMove_data()
{
    QTest::addColumn<QString>("what");
    for (const char *const what : {"enter", "tab", "focus", "save", "insert", "click"})
        QTest::newRow(what) << what;
}

void AreaViewTest::whatTakesAMove()
{
    QFETCH(const QString, what);
    Window window(Triangle);
    window.view->SetSelectedPoint(1);
    window.keys({Qt::Key_Down});
    QCOMPARE(window.text(1, "Latitude"), "55.0625");
    if (what == "enter")
        window.keys({Qt::Key_Enter});
    else if (what == "tab")
        window.keys({Qt::Key_Tab});
    else if (what == "focus")
        window.other->setFocus();
    else if (what == "save")
        QVERIFY(window.document.TakeOpenEdits().isEmpty());
    else if (what == "insert")
        window.keys({Qt::Key_Insert});
    else
        QTest::mouseClick(window.view, Qt::LeftButton, {}, window.point(0));
    QVERIFY(window.text(1, "Latitude").toDouble() < 55.06);
}

void AreaViewTest::stepsAreDecimal()
{
    const Window window(Triangle);
    window.view->SetSelectedPoint(0);
    for (int i = 0; i < 7; ++i)
        window.keys({Qt::Key_Up});
    window.keys({Qt::Key_Return});
    QVERIFY2(window.text(0, "Latitude").size() <= 5, qPrintable(window.text(0, "Latitude")));
}

void AreaViewTest::noStepBeyondThePole()
{
    const Window window({{"89.99", "0"}, {"80", "90"}, {"80", "-90"}});
    const QByteArray before = window.document.GetText();
    window.view->SetSelectedPoint(0);
    window.keys({Qt::Key_Up, Qt::Key_Up, Qt::Key_Return});
    QCOMPARE(window.document.GetText(), before);
}

void AreaViewTest::stepsCrossTheDateLine()
{
    const Window window({{"10", "179.9"}, {"15", "170"}, {"15", "175"}});
    window.view->SetSelectedPoint(0);
    window.keys({Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Return});
    const double longitude = window.text(0, "Longitude").toDouble();
    QVERIFY2(longitude > -180 && longitude < -178, qPrintable(window.text(0, "Longitude")));
    QVERIFY(window.text(0, "Longitude").size() <= 7);
    window.keys({Qt::Key_Left, Qt::Key_Left, Qt::Key_Left, Qt::Key_Return});
    QCOMPARE(window.text(0, "Longitude"), "179.9");
}

void AreaViewTest::insertKeepsTheOthers_data()
{
    QTest::addColumn<int>("selected");
    QTest::addColumn<double>("latitude");
    QTest::addColumn<double>("longitude");
    QTest::newRow("behind the first") << 0 << 54.30625 << 6.75;
    QTest::newRow("behind the second") << 1 << 54.98125 << 7.35;
    QTest::newRow("behind the last") << 2 << 54.225 << 7.7;
}

void AreaViewTest::insertKeepsTheOthers()
{
    QFETCH(const int, selected);
    QFETCH(const double, latitude);
    QFETCH(const double, longitude);
    const Window window(Triangle);
    window.view->SetSelectedPoint(selected);
    window.keys({Qt::Key_Insert});
    QCOMPARE(window.view->GetSelectedPoint(), selected + 1);
    const QString newLatitude = window.text(selected + 1, "Latitude");
    const QString newLongitude = window.text(selected + 1, "Longitude");
    QVERIFY(qAbs(newLatitude.toDouble() - latitude) < 0.01);
    QVERIFY(qAbs(newLongitude.toDouble() - longitude) < 0.01);
    Places places = Triangle;
    if (selected == 0)
        places[1].first = "55.0625"; // the blanks around it are of the place where it stood
    if (selected < 2)
        places[2] = {"54.9", "8.3"}; // of the element that is new
    places.insert(selected + 1, {newLatitude.toUtf8(), newLongitude.toUtf8()});
    QCOMPARE(window.document.GetText(), workflow(places));
}

void AreaViewTest::firstPoints()
{
    const Window window(Places{});
    window.keys({Qt::Key_Insert});
    QCOMPARE(window.view->GetSelectedPoint(), 0);
    window.keys({Qt::Key_Insert, Qt::Key_Insert});
    QCOMPARE(window.view->GetSelectedPoint(), 2);
    QVERIFY(window.text(0, "Longitude") != window.text(1, "Longitude"));
    QVERIFY(!window.view->GetCaption().contains("no points"));
    window.keys({Qt::Key_Delete, Qt::Key_Delete, Qt::Key_Delete});
    QCOMPARE(window.view->GetSelectedPoint(), -1);
    QCOMPARE(window.document.GetText(), workflow({}));
}

void AreaViewTest::doubleClickAddsToTheNearestEdge()
{
    const Window window(Triangle);
    const QPoint at = (window.point(1) + window.point(2)) / 2 + QPoint(0, -6);
    QTest::mouseDClick(window.view, Qt::LeftButton, {}, at);
    QCOMPARE(window.view->GetSelectedPoint(), 2);
    QVERIFY((window.point(2) - at).manhattanLength() <= 2);
    QCOMPARE(window.text(3, "Longitude"), "8.3");
}

void AreaViewTest::deleteRemovesAPoint()
{
    const Window window(Triangle);
    window.view->SetSelectedPoint(1);
    window.keys({Qt::Key_Delete});
    QCOMPARE(window.document.GetText(), workflow({Triangle[0], Triangle[2]}));
    QCOMPARE(window.view->GetSelectedPoint(), 1);
    window.keys({Qt::Key_Backspace});
    QCOMPARE(window.document.GetText(), workflow({Triangle[0]}));
    QCOMPARE(window.view->GetSelectedPoint(), 0);
}

void AreaViewTest::closedOutlinesStayClosed()
{
    const Window window(ClosedRing);
    window.view->SetSelectedPoint(3);
    QCOMPARE(window.view->GetSelectedPoint(), -1); // it is the first
    window.view->SetSelectedPoint(0);
    window.keys({Qt::Key_Down, Qt::Key_Return});
    QVERIFY(window.text(0, "Latitude") != "53");
    QCOMPARE(window.text(0, "Latitude"), window.text(3, "Latitude"));
    QVERIFY(window.document.GetText().contains("7.00<"));
    window.keys({Qt::Key_Delete});
    QCOMPARE(window.document.GetText(), workflow({{"55", "6"}, {"54", "9"}, {"55", "6"}}));
}

void AreaViewTest::undo()
{
    Window window(Triangle);
    QUndoStack stack;
    KORMAK::ConnectUndo(stack, window.document);
    const QByteArray before = window.document.GetText();
    window.drag(window.point(1), window.point(1) + QPoint(30, 40));
    window.view->SetSelectedPoint(0);
    window.keys({Qt::Key_Insert});
    QVERIFY(window.document.GetText() != before);
    stack.undo();
    stack.undo();
    QCOMPARE(window.document.GetText(), before);
}

void AreaViewTest::wheelNeedsTheFocus()
{
    const Window window(Triangle);
    const QPoint before = window.point(0);
    window.other->setFocus();
    QVERIFY(!window.wheel(1)); // left to what scrolls
    QCOMPARE(window.point(0), before);
    window.view->setFocus();
    QVERIFY(window.wheel(1));
    QVERIFY(window.point(0) != before);
    QVERIFY(!window.document.IsModified());
}

void AreaViewTest::mapIsDraggedAndShownWhole()
{
    const Window window(Triangle);
    const QPoint before = window.point(0);
    window.drag(QPoint(20, 20), QPoint(60, 50));
    QVERIFY((window.point(0) - before - QPoint(40, 30)).manhattanLength() <= 6);
    QVERIFY(!window.document.IsModified());
    window.keys({Qt::Key_Home});
    QCOMPARE(window.point(0), before);
    window.keys({Qt::Key_Left});
    QVERIFY(window.point(0).x() > before.x());
    window.keys({Qt::Key_Home, Qt::Key_Plus});
    QVERIFY((window.point(0) - window.point(2)).manhattanLength() > 0);
    for (int i = 0; i < 80; ++i)
        window.keys({Qt::Key_Minus}); // not beyond all of the earth
    QVERIFY(window.view->rect().contains(window.point(0)));
    QVERIFY((window.point(0) - window.point(2)).manhattanLength() < 30);
}

void AreaViewTest::changesFromElsewhere()
{
    Window window(Triangle);
    const QPoint from = window.point(0);
    QTest::mousePress(window.view, Qt::LeftButton, {}, from);
    window.moveMouse(from + QPoint(40, 10));
    QVERIFY(
        window.document.Change({{DocumentEdit::Change::Action::Set, "Area.Coordinate[2].Latitude", "54.5"}})
            .isEmpty());
    QVERIFY(window.view->GetCaption().contains("(moving)"));
    QTest::mouseRelease(window.view, Qt::LeftButton, {}, from + QPoint(40, 10));
    QCOMPARE(window.text(2, "Latitude"), "54.5");
    QVERIFY(window.text(0, "Longitude").toDouble() > 7.1);
    QVERIFY(window.document
                .Change({{DocumentEdit::Change::Action::Unset, "Area.Coordinate[0]"}},
                        DocumentEdit::NewFindings::Accepted)
                .isEmpty());
    QCOMPARE(window.view->GetSelectedPoint(), 0);
    QVERIFY(window.view->GetCaption().contains("of 2"));
}

void AreaViewTest::pointsThatGoWhileOneIsDragged_data()
{
    QTest::addColumn<int>("removed");
    QTest::addColumn<bool>("isMoved"); // before the point goes
    for (const bool isMoved : {true, false}) {
        QTest::addRow("the one that is dragged, %d", isMoved) << 2 << isMoved;
        QTest::addRow("one before it, %d", isMoved) << 0 << isMoved;
    }
}

/// The mouse does not take hold of the point that has taken the place of the one that is gone.
void AreaViewTest::pointsThatGoWhileOneIsDragged()
{
    QFETCH(const int, removed);
    QFETCH(const bool, isMoved);
    Window window(Triangle);
    const QPoint from = window.point(2);
    QTest::mousePress(window.view, Qt::LeftButton, {}, from);
    if (isMoved)
        window.moveMouse(from + QPoint(20, 20));
    const QString element = QString("Area.Coordinate[%1]").arg(removed);
    QVERIFY(window.document
                .Change({{DocumentEdit::Change::Action::Unset, element}}, DocumentEdit::NewFindings::Accepted)
                .isEmpty());
    window.moveMouse(from + QPoint(30, 30));
    window.moveMouse(from + QPoint(40, 40));
    QTest::mouseRelease(window.view, Qt::LeftButton, {}, from + QPoint(40, 40));
    QVERIFY(window.view->GetCaption().contains("of 2"));
    if (removed == 2) {
        QCOMPARE(window.document.GetText(), workflow({Triangle[0], Triangle[1]}));
        return;
    }
    QCOMPARE(window.text(0, "Latitude"), "55.0625");
    QVERIFY(window.text(1, "Latitude") != "54.9");
    QCOMPARE(window.view->GetSelectedPoint(), 1);
    QVERIFY((window.point(1) - from - QPoint(40, 40)).manhattanLength() <= 2);
}

void AreaViewTest::pointsThatGoLeaveTheSelection()
{
    Window window(Triangle);
    window.view->SetSelectedPoint(2);
    window.keys({Qt::Key_Up});
    QVERIFY(window.document
                .Change({{DocumentEdit::Change::Action::Unset, "Area.Coordinate[0]"}},
                        DocumentEdit::NewFindings::Accepted)
                .isEmpty());
    QCOMPARE(window.view->GetSelectedPoint(), 1);
    window.keys({Qt::Key_Return});
    QCOMPARE(window.text(0, "Latitude"), "55.0625");
    QVERIFY(window.text(1, "Latitude").toDouble() > 54.9);
}

void AreaViewTest::contextMenu()
{
    const Window window(Triangle);
    window.openMenu(window.point(1));
    QVERIFY(window.menu());
    window.choose("Remove Point");
    QCOMPARE(window.document.GetText(), workflow({Triangle[0], Triangle[2]}));
    const QPoint free(4, 4);
    window.openMenu(free);
    QVERIFY(!window.entry("Remove Point")->isEnabled());
    window.choose("Whole Area");
    const QPoint before = window.point(0);
    window.openMenu(free);
    window.choose("Zoom In");
    QVERIFY(window.point(0) != before);
    window.openMenu(free);
    window.choose("Whole Area");
    QCOMPARE(window.point(0), before);
    window.openMenu(free);
    window.choose("Add Point");
    QCOMPARE(window.view->GetSelectedPoint(), 2);
    QVERIFY((window.point(2) - free).manhattanLength() <= 2);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!window.menu());
}

/// What the menu of a point was about may be gone before something is chosen in it.
void AreaViewTest::changesBelowAnOpenMenu()
{
    Window window(Triangle);
    window.openMenu(window.point(1));
    QVERIFY(window.menu()->isVisible());
    QVERIFY(window.document
                .Change({{DocumentEdit::Change::Action::Unset, "Area.Coordinate[0]"}},
                        DocumentEdit::NewFindings::Accepted)
                .isEmpty());
    QVERIFY(!window.menu() || !window.menu()->isVisible());
    window.openMenu(window.point(1));
    const QPointer<QMenu> menu = window.menu();
    QVERIFY(menu);
    delete window.view;
    QVERIFY(!menu);
    QCOMPARE(window.document.GetText(), workflow({Triangle[1], Triangle[2]}));
}

void AreaViewTest::menuKey()
{
    const Window window(Triangle);
    window.view->SetSelectedPoint(1);
    const QPoint center = window.view->rect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, center, window.view->mapToGlobal(center));
    QApplication::sendEvent(window.view, &event);
    QVERIFY(window.menu());
    // At the point; where the screen has no room for that, it is moved no farther than it must be.
    const QPoint point = window.view->mapToGlobal(window.point(1));
    const QRect menu = window.menu()->geometry();
    constexpr int Near = 10;
    QVERIFY(menu.adjusted(-Near, -Near, Near, Near).contains(point));
    if (window.view->screen()->availableGeometry().contains(QRect(point, menu.size())))
        QVERIFY((menu.topLeft() - point).manhattanLength() < Near);
    window.choose("Remove Point");
    QCOMPARE(window.document.GetText(), workflow({Triangle[0], Triangle[2]}));
}

void AreaViewTest::escapeLeadsOutOfTheMap()
{
    const Window window(Triangle);
    window.view->SetSelectedPoint(0);
    window.keys({Qt::Key_Escape, Qt::Key_Tab});
    QVERIFY(window.other->hasFocus());
    window.view->setFocus();
    window.keys({Qt::Key_Tab});
    QVERIFY(window.view->hasFocus());
    QCOMPARE(window.view->GetSelectedPoint(), 0);
}

void AreaViewTest::anotherDocument()
{
    Window window(Triangle);
    window.view->SetSelectedPoint(1);
    window.keys({Qt::Key_Up});
    window.document.SetText(workflow({{"1", "2"}}));
    QCOMPARE(window.view->GetSelectedPoint(), -1);
    window.document.TakeOpenEdits();
    QCOMPARE(window.document.GetText(), workflow({{"1", "2"}}));
    QVERIFY(window.view->rect().contains(window.point(0)));
}

void AreaViewTest::noDocument()
{
    AreaView view;
    QCOMPARE(view.GetDocument(), nullptr);
    QCOMPARE(view.GetCaption(), QString());
    view.show();
    QTest::keyClick(&view, Qt::Key_Insert);
    QTest::mouseDClick(&view, Qt::LeftButton, {}, QPoint(100, 100));
    {
        OpenDocument document;
        document.SetText(workflow(Triangle));
        view.SetDocument(&document);
        QCOMPARE(view.GetDocument(), &document);
        view.SetSelectedPoint(1);
        QTest::keyClick(&view, Qt::Key_Up);
    }
    QCOMPARE(view.GetDocument(), nullptr);
    QCOMPARE(view.GetSelectedPoint(), -1);
    QVERIFY(!view.grab().isNull());
}

void AreaViewTest::noAreaInTheDocument()
{
    const Window window(TestSupport::bytesOf(QString(EXAMPLES_DIR) + "/jobs/antenna.xml"));
    QCOMPARE(window.view->GetCaption(), "The document has no area.");
    window.keys({Qt::Key_Insert, Qt::Key_Delete});
    QVERIFY(!window.document.IsModified());
}

void AreaViewTest::placesBesideTheEarth()
{
    const Window window({{"1", "2"}, {"95", "2"}, {"3", "3"}});
    const QByteArray before = window.document.GetText();
    window.view->SetSelectedPoint(1);
    QVERIFY(window.view->GetCaption().contains("latitude 95"));
    QCOMPARE(window.document.GetText(), before); // nothing is put right unasked
    for (int i = 0; i < 200 && window.view->GetCaption().contains("is not from"); ++i)
        window.keys({Qt::Key_Down});
    window.keys({Qt::Key_Return});
    QVERIFY(window.text(1, "Latitude").toDouble() <= 90);
    window.view->SetSelectedPoint(-1);
    QVERIFY(!window.view->GetCaption().contains("is not from"));
}

void AreaViewTest::crossesTheDateLine()
{
    const Window window(AcrossDateLine);
    // The area is between the points, not round the rest of the earth.
    QVERIFY(window.point(0).x() < window.point(1).x());
    const QImage with = window.view->grab().toImage();
    const Window without(Places{});
    const auto inner = window.view->GetPosition({55, 180});
    QVERIFY(inner);
    const QColor color = with.pixelColor(inner->toPoint() * with.devicePixelRatio());
    QVERIFY2(color.red() > color.blue(), qPrintable(color.name())); // sea below the area, which is red
    const auto outer = window.view->GetPosition({55, 165});
    QVERIFY(outer);
    const QColor sea = with.pixelColor(outer->toPoint() * with.devicePixelRatio());
    QVERIFY2(sea.red() < sea.blue() || sea == QColor(0xef, 0xea, 0xdb), qPrintable(sea.name()));
}

void AreaViewTest::decimalComma()
{
    const Window window(Triangle);
    window.view->setLocale(QLocale(QLocale::German, QLocale::Germany));
    window.view->SetSelectedPoint(0);
    QCOMPARE(window.view->GetCaption(), QString::fromUtf8("Point 1 of 3: latitude 53,55°, longitude 7,1°"));
    window.keys({Qt::Key_Up, Qt::Key_Return});
    QVERIFY(!window.document.GetText().contains(','));
}

void AreaViewTest::accessible()
{
    const Window window(Triangle);
    QCOMPARE(window.view->accessibleName(), "Map of the area");
    window.view->SetSelectedPoint(2);
    QCOMPARE(window.view->accessibleDescription(), window.view->GetCaption());
    QVERIFY(window.view->accessibleDescription().startsWith("Point 3 of 3"));
    window.view->SetSelectedPoint(-1);
    QVERIFY(window.view->accessibleDescription().contains(" to "));
    QAccessibleInterface *const face = QAccessible::queryAccessibleInterface(window.view);
    QVERIFY(face);
    QCOMPARE(face->text(QAccessible::Description), window.view->GetCaption());
}

void AreaViewTest::shortcutsDoNotTakeItsKeys()
{
    const Window window(Triangle);
    window.view->SetSelectedPoint(0);
    QKeyEvent remove(QEvent::ShortcutOverride, Qt::Key_Delete, Qt::NoModifier);
    remove.ignore();
    QApplication::sendEvent(window.view, &remove);
    QVERIFY(remove.isAccepted());
    QKeyEvent save(QEvent::ShortcutOverride, Qt::Key_S, Qt::ControlModifier);
    save.ignore();
    QApplication::sendEvent(window.view, &save);
    QVERIFY(!save.isAccepted());
}

void AreaViewTest::pictures()
{
    OpenDocument document;
    const auto make = [&document]() -> std::unique_ptr<QWidget> {
        auto view = std::make_unique<AreaView>();
        view->SetDocument(&document);
        return view;
    };
    const auto select = [](QWidget &widget) {
        QApplication::setActiveWindow(&widget);
        widget.setFocus();
        static_cast<AreaView &>(widget).SetSelectedPoint(1);
    };
    document.SetText(
        TestSupport::bytesOf(QString(EXAMPLES_DIR) + "/settings/automatic-workflow-with-area.xml"));
    QVERIFY(TestSupport::takePictures("area", {560, 440}, make, select));
    document.SetText(workflow(AcrossDateLine));
    QVERIFY(TestSupport::takePictures("area-date-line", {480, 380}, make));
    document.SetText(workflow(RoundPole));
    QVERIFY(TestSupport::takePictures("area-pole", {480, 380}, make));
    document.SetText(workflow(Bowtie));
    QVERIFY(TestSupport::takePictures("area-crossing", {480, 380}, make));
    document.SetText(workflow({{"48.1", "11.6"}}));
    QVERIFY(TestSupport::takePictures("area-point", {480, 380}, make));
    document.SetText(workflow({}));
    QVERIFY(TestSupport::takePictures("area-empty", {640, 300}, make));
}

QTEST_MAIN(AreaViewTest)

#include "AreaViewTest.moc"
