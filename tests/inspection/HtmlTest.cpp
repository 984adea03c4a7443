#include <inspection/report/Html_p.h>

#include <QtTest>

using namespace KORMAK::Inspection;

class HtmlTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void elements();
    void texts_data();
    void texts();
    void attributes();
};

void HtmlTest::elements()
{
    Html inner;
    inner.element(u"i", "x");
    Html html;
    html.open(u"p", {{u"class", "a"}, {u"id", "b"}})
        .text(u"1")
        .single(u"br")
        .add(inner)
        .constant(u"<!>")
        .close();
    QCOMPARE(html.written(), QString("<p class=\"a\" id=\"b\">1<br><i>x</i><!></p>"));
    QVERIFY(Html().isEmpty());
}

void HtmlTest::texts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("escaped");
    QTest::addColumn<QString>("withLines");

    QTest::newRow("plain") << "a b"
                           << "a b"
                           << "a b";
    QTest::newRow("markup") << "<b a='1'>&amp;\""
                            << "&lt;b a='1'&gt;&amp;amp;&quot;"
                            << "&lt;b a='1'&gt;&amp;amp;&quot;";
    QTest::newRow("lines") << "a\n\tb\r"
                           << "a\\n\\tb\\r"
                           << "a\n\tb\\r";
    QTest::newRow("other scripts") << QString::fromUtf8("Ω<é") << QString::fromUtf8("Ω&lt;é")
                                   << QString::fromUtf8("Ω&lt;é");
    QTest::newRow("direction of writing") << QString("a") + QChar(0x202E) + "b<"
                                          << "a\\u202eb&lt;"
                                          << "a\\u202eb&lt;";
    QTest::newRow("control") << QString(QChar(1)) + QChar(0) << "\\u0001\\u0000"
                             << "\\u0001\\u0000";
    QTest::newRow("half of a character") << QString(QChar(0xD800)) + "x"
                                         << "\\ud800x"
                                         << "\\ud800x";
    QTest::newRow("empty") << ""
                           << ""
                           << "";
}

void HtmlTest::texts()
{
    QFETCH(QString, text);
    QTEST(Html().text(text).written(), "escaped");
    QTEST(Html().text(text, Html::Lines::Kept).written(), "withLines");
}

/// Nothing in a value ends it.
void HtmlTest::attributes()
{
    Html html;
    html.single(u"a", {{u"href", "\"><script>&\n"}});
    QCOMPARE(html.written(), QString("<a href=\"&quot;&gt;&lt;script&gt;&amp;\\n\">"));
}

QTEST_GUILESS_MAIN(HtmlTest)
#include "HtmlTest.moc"
