#include "inspection/XmlLosses_p.h"

#include <QElapsedTimer>
#include <QStringList>
#include <QtTest>

using namespace KORMAK::Inspection;

class XmlLossesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void elements_data();
    void elements();
    void texts_data();
    void texts();
    void numbers_data();
    void numbers();
    void defaults_data();
    void defaults();
    void asides();
    void longTextsAreCut();
    void deepNesting();
    void withoutRoot();
    void orderOfAttributes();
    void manyElements_data();
    void manyElements();
};

namespace {

QString lineOf(const XmlLoss &loss)
{
    return loss.path.isEmpty() ? loss.message : loss.path + ": " + loss.message;
}

QStringList lossesBetween(const QString &original, const QString &rewritten)
{
    QStringList lines;
    for (const XmlLoss &loss : findLosses(XmlTree(original.toUtf8()), XmlTree(rewritten.toUtf8())))
        lines += QString("%1 %2").arg(loss.offset).arg(lineOf(loss));
    return lines;
}

} // namespace

void XmlLossesTest::elements_data()
{
    QTest::addColumn<QString>("original");
    QTest::addColumn<QString>("rewritten");
    QTest::addColumn<QStringList>("losses");

    QTest::newRow("same") << "<a b='1'><c>x</c></a>"
                          << "<a b='1'><c>x</c></a>" << QStringList();
    QTest::newRow("additional element, attribute and text")
        << "<a><c/></a>"
        << "<a b='1'><c d='2'>x</c><e/></a>" << QStringList();
    QTest::newRow("other order of names") << "<a><b>1</b><c>2</c></a>"
                                          << "<a><c>2</c><b>1</b></a>" << QStringList();
    QTest::newRow("other order of attributes") << "<a b='1' c='2'/>"
                                               << "<a c='2' b='1'/>" << QStringList();
    QTest::newRow("other order of one name")
        << "<a><b>x</b><b>y</b></a>"
        << "<a><b>y</b><b>x</b></a>"
        << QStringList{"3 a/b: was \"x\", would be \"y\"", "11 a/b: was \"y\", would be \"x\""};
    QTest::newRow("order of one name among others") << "<a><b>x</b><c/><b>y</b></a>"
                                                    << "<a><c/><b>x</b><b>y</b></a>" << QStringList();
    QTest::newRow("unique names in other order")
        << "<a><p UniqueName='x'><q>1</q></p><p UniqueName='y'><q>2</q></p></a>"
        << "<a><p UniqueName='y'><q>2</q></p><p UniqueName='x'><q>1</q></p></a>" << QStringList();
    QTest::newRow("value below a unique name")
        << "<a><p UniqueName='x'><q>1</q></p><p UniqueName='y'><q>2</q></p></a>"
        << "<a><p UniqueName='y'><q>3</q></p><p UniqueName='x'><q>1</q></p></a>"
        << QStringList{"51 a/p[y]/q: was \"2\", would be \"3\""};
    QTest::newRow("unique name missing")
        << "<a><p UniqueName='x'/><p UniqueName='y'/></a>"
        << "<a><p UniqueName='x'/></a>" << QStringList{"22 a/p[y]: was \"\", would be missing"};
    QTest::newRow("unique name changed as a number would")
        << "<a><p UniqueName='1'/></a>"
        << "<a><p UniqueName='1.0'/></a>" << QStringList{"3 a/p[1]: was \"\", would be missing"};
    QTest::newRow("unique name given twice")
        << "<a><p UniqueName='x'>1</p><p UniqueName='x'>2</p></a>"
        << "<a><p UniqueName='x'>2</p></a>"
        << QStringList{"3 a/p[x]: was \"1\", would be \"2\"", "26 a/p[x]: was \"2\", would be missing"};
    QTest::newRow("one of one name missing")
        << "<a><b>1</b><b>2</b></a>"
        << "<a><b>1</b></a>" << QStringList{"11 a/b: was \"2\", would be missing"};
    QTest::newRow("element with children missing")
        << "<a><b><c/></b></a>"
        << "<a/>" << QStringList{"3 a/b: would be missing with all that is in it"};
    QTest::newRow("element that moved")
        << "<a><b><c>1</c></b></a>"
        << "<a><c>1</c><b/></a>" << QStringList{"6 a/b/c: was \"1\", would be missing"};
    QTest::newRow("element that became an attribute")
        << "<a><b>1</b></a>"
        << "<a b='1'/>" << QStringList{"3 a/b: was \"1\", would be missing"};
    QTest::newRow("attribute that became an element")
        << "<a b='1'/>"
        << "<a><b>1</b></a>" << QStringList{"0 a/@b: was \"1\", would be missing"};
    QTest::newRow("attribute changed")
        << "<a><b c='x'/></a>"
        << "<a><b c='y'/></a>" << QStringList{"3 a/b/@c: was \"x\", would be \"y\""};
    QTest::newRow("empty attribute missing") << "<a b=''/>"
                                             << "<a/>" << QStringList{"0 a/@b: was \"\", would be missing"};
    QTest::newRow("capital letters") << "<a><b>1</b></a>"
                                     << "<a><B>1</B></a>"
                                     << QStringList{"3 a/b: was \"1\", would be missing"};
    QTest::newRow("empty element missing") << "<a><b/><b></b></a>"
                                           << "<a/>" << QStringList();
    QTest::newRow("empty element with an attribute missing")
        << "<a><b c=''/></a>"
        << "<a/>" << QStringList{"3 a/b: was \"\", would be missing"};
    QTest::newRow("element with empty children missing")
        << "<a><b><c/><d/></b></a>"
        << "<a/>" << QStringList{"3 a/b: would be missing with all that is in it"};
    QTest::newRow("other root") << "<a>x</a>"
                                << "<b>x</b>" << QStringList{"0 a: was \"x\", would be missing"};
}

void XmlLossesTest::elements()
{
    QFETCH(QString, original);
    QFETCH(QString, rewritten);
    QTEST(lossesBetween(original, rewritten), "losses");
}

void XmlLossesTest::texts_data()
{
    QTest::addColumn<QString>("original"); // in the element b of the root a
    QTest::addColumn<QString>("rewritten");
    QTest::addColumn<bool>("isLost");

    QTest::newRow("same") << "x"
                          << "x" << false;
    QTest::newRow("other") << "x"
                           << "X" << true;
    QTest::newRow("empty") << ""
                           << "x" << false;
    QTest::newRow("gone") << "x"
                          << "" << true;
    QTest::newRow("blank behind") << "x "
                                  << "x" << true;
    QTest::newRow("blank in front") << " x"
                                    << "x" << true;
    QTest::newRow("blank alone") << " "
                                 << "" << true;
    QTest::newRow("layout of children") << "\n\t<c/>\r\n "
                                        << "<c/>" << false;
    QTest::newRow("no-break space between children") << "\u00A0<c/>"
                                                     << "<c/>" << true;
    QTest::newRow("text before a child") << "\nx <c/>"
                                         << "x<c/>" << false;
    QTest::newRow("text between children") << "<c/>x<c/>"
                                           << "<c/><c/>" << true;
    QTest::newRow("text in other pieces") << "x<![CDATA[&]]>y"
                                          << "x&amp;y" << false;
}

void XmlLossesTest::texts()
{
    QFETCH(QString, original);
    QFETCH(QString, rewritten);
    QFETCH(bool, isLost);

    const QStringList losses =
        lossesBetween("<a>\n<b>" + original + "</b></a>", "<a><b>" + rewritten + "</b></a>");
    QCOMPARE(losses.size(), isLost ? 1 : 0);
    // What lays out the root element is nothing that the document says.
    QCOMPARE(lossesBetween("<a>\n</a>", "<a/>"), QStringList());
}

void XmlLossesTest::numbers_data()
{
    QTest::addColumn<QString>("original");
    QTest::addColumn<QString>("rewritten");
    QTest::addColumn<bool>("isSame");

    QTest::newRow("zeros behind") << "0.50"
                                  << "0.5" << true;
    QTest::newRow("fixed form") << "2"
                                << "2.000000" << true;
    QTest::newRow("exponent") << "1e5"
                              << "100000" << true;
    QTest::newRow("blanks") << " 5 "
                            << "5" << true;
    QTest::newRow("sign") << "+5"
                          << "5" << true;
    QTest::newRow("zeros in front") << "007"
                                    << "7" << true;
    QTest::newRow("negative zero") << "-0.0"
                                   << "0" << true;
    QTest::newRow("same double") << "0.1000000000000000055"
                                 << "0.1" << true;
    QTest::newRow("not a number") << "NaN"
                                  << "nan" << true;
    QTest::newRow("digits lost") << "0.12345678"
                                 << "0.123457" << false;
    QTest::newRow("adjacent integers") << "9223372036854775807"
                                       << "9223372036854775806" << false;
    QTest::newRow("integers of one double") << "9007199254740993"
                                            << "9007199254740992" << false;
    QTest::newRow("integer and its neighbour as a double") << "9007199254740993"
                                                           << "9007199254740992.0" << false;
    QTest::newRow("double and its neighbour as an integer") << "9007199254740992.0"
                                                            << "9007199254740993" << false;
    QTest::newRow("largest integer and a double beyond") << "9223372036854775807"
                                                         << "9223372036854775808" << false;
    QTest::newRow("smallest integer as a double") << "-9223372036854775808"
                                                  << "-9.223372036854775808e18" << true;
    QTest::newRow("too large") << "1e400"
                               << "0" << false;
    QTest::newRow("too small") << "1e-400"
                               << "0" << false;
    QTest::newRow("number with a unit") << "5 Hz"
                                        << "5" << false;
    QTest::newRow("hexadecimal") << "0x10"
                                 << "16" << false;
    QTest::newRow("grouped") << "1,000"
                             << "1000" << false;
    QTest::newRow("no number") << "abc"
                               << "0" << false;
    QTest::newRow("truth") << "1"
                           << "true" << false;
}

void XmlLossesTest::numbers()
{
    QFETCH(QString, original);
    QFETCH(QString, rewritten);
    QFETCH(bool, isSame);

    const int losses = isSame ? 0 : 1;
    QCOMPARE(lossesBetween("<a><b>" + original + "</b></a>", "<a><b>" + rewritten + "</b></a>").size(),
             losses);
    QCOMPARE(lossesBetween("<a b='" + original + "'/>", "<a b='" + rewritten + "'/>").size(), losses);
}

void XmlLossesTest::defaults_data()
{
    QTest::addColumn<QString>("content"); // of the root a
    QTest::addColumn<bool>("isLost");

    QTest::newRow("element") << "<m>1</m>" << false;
    QTest::newRow("element, another form of the number") << "<m> 1.00 </m>" << false;
    QTest::newRow("element with another text") << "<m>1.001</m>" << true;
    QTest::newRow("element with an attribute") << "<m b='2'>1</m>" << true;
    QTest::newRow("element with a child") << "<m>1<b/></m>" << true;
    QTest::newRow("another element") << "<n>1</n>" << true;
    QTest::newRow("attribute") << "<e k='3' d='false'/>" << false;
    QTest::newRow("attribute, empty") << "<e k='3' i=''/>" << false;
    QTest::newRow("attribute with another text") << "<e k='3' d='no'/>" << true;
    QTest::newRow("attribute in other letters") << "<e k='3' d='FALSE'/>" << true;
    QTest::newRow("attribute that is not empty") << "<e k='3' i=' '/>" << true;
    QTest::newRow("another attribute") << "<e k='3' c=''/>" << true;
    QTest::newRow("attribute of another element") << "<f k='3' d='false'/>" << true;
    QTest::newRow("text of the element of an attribute") << "<e k='3'>false</e>" << true;
}

void XmlLossesTest::defaults()
{
    QFETCH(QString, content);
    QFETCH(bool, isLost);

    const XmlDefaults rows = {{u"m", {}, u"1"}, {u"e", u"d", u"false"}, {u"e", u"i", u""}};
    const XmlTree original(("<a>" + content + "</a>").toUtf8());
    const XmlTree rewritten("<a><e k='3'/><f k='3'/></a>");
    QCOMPARE(findLosses(original, rewritten, rows).size(), std::size_t(isLost ? 1 : 0));
    // What is there is compared all the same.
    QCOMPARE(findLosses(XmlTree("<a><e d='false'/></a>"), XmlTree("<a><e d='true'/></a>"), rows).size(),
             std::size_t(1));
}

void XmlLossesTest::asides()
{
    const auto losses = findLosses(
        XmlTree(
            "<!--x--><!DOCTYPE a [<!ENTITY e 'f'>]><a><?p  q ?><b c=''>&e;<!--y--></b><d><!--z--></d></a>"),
        XmlTree("<a><b>f</b></a>"));
    QStringList lines;
    for (const XmlLoss &loss : losses)
        lines += QString("%1 %2%3").arg(loss.offset).arg(lineOf(loss), loss.isComment ? " (a comment)" : "");
    QCOMPARE(lines,
             (QStringList{"0 the comment \"x\" would be missing (a comment)",
                          "8 the document type \"a\" would be missing",
                          "41 a: the processing instruction \"p q\" would be missing",
                          "50 a/b/@c: was \"\", would be missing",
                          "61 a/b: the comment \"y\" would be missing (a comment)",
                          "76 a/d: the comment \"z\" would be missing (a comment)"}));
}

void XmlLossesTest::longTextsAreCut()
{
    const QString longest(200, 'x');
    QCOMPARE(lossesBetween("<a>" + longest + "</a>", "<a>y</a>"),
             QStringList{"0 a: was \"" + longest + "\", would be \"y\""});
    QCOMPARE(lossesBetween("<a>y</a>", "<a>x" + longest + "</a>"),
             QStringList{"0 a: was \"y\", would be \"" + longest + QChar(0x2026) + "\""});
}

void XmlLossesTest::deepNesting()
{
    constexpr int Depth = 500000;
    const QString deep = QString("<b>").repeated(Depth) + QString("</b>").repeated(Depth);
    QCOMPARE(lossesBetween("<a><c/>" + deep + "</a>", "<a><c/></a>"),
             QStringList{"7 a/b: would be missing with all that is in it"});
}

void XmlLossesTest::withoutRoot()
{
    const QString none("<!--x-->");
    QCOMPARE(lossesBetween("<a>x</a>", none), QStringList{"0 a: was \"x\", would be missing"});
    QCOMPARE(lossesBetween(none, "<a/>"), QStringList());
    QCOMPARE(lossesBetween(QString(), QString()), QStringList());
}

/// Namespace declarations among others.
void XmlLossesTest::orderOfAttributes()
{
    QCOMPARE(lossesBetween("<a><b c='1' xmlns:p='2' p:d='3' xmlns='4' e='5'/></a>", "<a><b/></a>"),
             (QStringList{
                 "3 a/b/@c: was \"1\", would be missing",
                 "3 a/b/@xmlns:p: was \"2\", would be missing",
                 "3 a/b/@p:d: was \"3\", would be missing",
                 "3 a/b/@xmlns: was \"4\", would be missing",
                 "3 a/b/@e: was \"5\", would be missing",
             }));
}

void XmlLossesTest::manyElements_data()
{
    QTest::addColumn<bool>("hasUniqueNames");

    QTest::newRow("by unique name") << true;
    QTest::newRow("in order") << false;
}

void XmlLossesTest::manyElements()
{
    QFETCH(bool, hasUniqueNames);

    constexpr int Count = 100000;
    constexpr qint64 Patience = 60 * 1000;
    QStringList original;
    QStringList rewritten;
    for (int i = 0; i < Count; ++i) {
        const QString attribute = hasUniqueNames ? QString(" UniqueName='p%1'").arg(i) : QString();
        original += QString("<p%1><q>%2</q></p>").arg(attribute).arg(i);
        rewritten += QString("<p%1><q>%2</q></p>").arg(attribute).arg(i == Count / 2 ? -1 : i);
    }
    if (hasUniqueNames)
        std::reverse(rewritten.begin(), rewritten.end());
    QElapsedTimer timer;
    timer.start();
    const auto losses = findLosses(XmlTree(("<a>" + original.join(QString()) + "</a>").toUtf8()),
                                   XmlTree(("<a>" + rewritten.join(QString()) + "</a>").toUtf8()));
    QCOMPARE(losses.size(), std::size_t(1));
    QCOMPARE(lineOf(losses.front()),
             QString("a/p%1/q: was \"50000\", would be \"-1\"").arg(hasUniqueNames ? "[p50000]" : ""));
    QVERIFY2(timer.elapsed() < Patience, "the time must not grow with the square of the number of elements");
}

QTEST_GUILESS_MAIN(XmlLossesTest)
#include "XmlLossesTest.moc"
