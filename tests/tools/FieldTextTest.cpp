#include <tools/FieldText.h>
#include <tools/NameLists.h>

#include <QtTest>

#include <limits>

using Type = FieldForm::Type;

Q_DECLARE_METATYPE(FieldForm)
Q_DECLARE_METATYPE(FieldValue)

class FieldTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shown_data();
    void shown();
    void read_data();
    void read();
    void refused_data();
    void refused();
};

namespace {

FieldForm form(Type type, QStringView unit = {})
{
    FieldForm result;
    result.type = type;
    result.unit = unit;
    if (type == Type::Name)
        result.names = &JobTypes;
    return result;
}

FieldForm limit(Type type)
{
    FieldForm result = form(type);
    result.isLimit = true;
    return result;
}

FieldForm range(qint64 least, qint64 most)
{
    FieldForm result = form(Type::Integer);
    result.least = least;
    result.most = most;
    return result;
}

} // namespace

void FieldTextTest::shown_data()
{
    QTest::addColumn<FieldForm>("form");
    QTest::addColumn<FieldValue>("value");
    QTest::addColumn<QString>("text");

    QTest::newRow("not set") << form(Type::Text) << FieldValue() << "(none)";
    QTest::newRow("bool") << form(Type::Bool) << FieldValue(true) << "yes";
    QTest::newRow("unit") << form(Type::Integer, u"dB") << FieldValue(qint64(3)) << "3 dB";
    QTest::newRow("float") << form(Type::Float) << FieldValue(0.1234567F) << "0.123457";
    QTest::newRow("double") << form(Type::Double) << FieldValue(0.1234567) << "0.1234567";
    QTest::newRow("frequency") << form(Type::Double, u"Hz") << FieldValue(2.4e9) << "2400000000 Hz (2.4 GHz)";
    QTest::newRow("no limit") << limit(Type::Double) << FieldValue(std::numeric_limits<double>::max())
                              << "none";
    QTest::newRow("no lower limit") << limit(Type::Float) << FieldValue(std::numeric_limits<float>::lowest())
                                    << "none";
    QTest::newRow("limit") << limit(Type::Float) << FieldValue(5.0F) << "5";
    QTest::newRow("name") << form(Type::Name) << FieldValue(qint64(11))
                          << "Search MC VUHF (written as \"Surveillance MC VUHF\")";
    QTest::newRow("date") << form(Type::Date) << FieldValue(QDateTime({2026, 3, 29}, {1, 2, 3, 4}, Qt::UTC))
                          << "2026-03-29 01:02:03.004 UTC";
}

void FieldTextTest::shown()
{
    QFETCH(FieldForm, form);
    QFETCH(FieldValue, value);
    QFETCH(QString, text);

    QCOMPARE(shownText(form, value).value_or("(none)"), text);
}

void FieldTextTest::read_data()
{
    QTest::addColumn<FieldForm>("form");
    QTest::addColumn<QString>("text");
    QTest::addColumn<FieldValue>("value");

    QTest::newRow("text") << form(Type::Text) << " a=b " << FieldValue(QString(" a=b "));
    QTest::newRow("empty text") << form(Type::Text) << "" << FieldValue();
    QTest::newRow("true") << form(Type::Bool) << "true" << FieldValue(true);
    QTest::newRow("false") << form(Type::Bool) << "false" << FieldValue(false);
    QTest::newRow("greatest") << form(Type::Integer) << "9223372036854775807"
                              << FieldValue(std::numeric_limits<qint64>::max());
    QTest::newRow("least in range") << range(1, 23) << "1" << FieldValue(qint64(1));
    QTest::newRow("greatest in range") << range(1, 23) << "23" << FieldValue(qint64(23));
    QTest::newRow("float") << form(Type::Float) << "0.1" << FieldValue(0.1F);
    QTest::newRow("double") << form(Type::Double) << "-1.5e6" << FieldValue(-1.5e6);
    QTest::newRow("name") << form(Type::Name) << "Search MC VUHF" << FieldValue(qint64(11));
    QTest::newRow("name that another is written as")
        << form(Type::Name) << "Surveillance MC VUHF" << FieldValue(qint64(7));
    const QDateTime date({2026, 3, 29}, {1, 2, 3, 4}, Qt::UTC);
    QTest::newRow("date") << form(Type::Date) << "2026-03-29T01:02:03,004Z" << FieldValue(date);
    QTest::newRow("date with a point") << form(Type::Date) << "2026-03-29T01:02:03.004Z" << FieldValue(date);
    QTest::newRow("date in seconds") << form(Type::Date) << "2026-03-29T01:02:03Z"
                                     << FieldValue(date.addMSecs(-4));
}

void FieldTextTest::read()
{
    QFETCH(FieldForm, form);
    QFETCH(QString, text);
    QFETCH(FieldValue, value);

    QVERIFY(areSame(valueOfText(form, text), value));
}

void FieldTextTest::refused_data()
{
    QTest::addColumn<FieldForm>("form");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("allowed");

    QTest::newRow("capitals") << form(Type::Bool) << "True"
                              << "true, false";
    QTest::newRow("below") << range(1, 23) << "0"
                           << "whole number from 1 to 23";
    QTest::newRow("above") << range(1, 23) << "24"
                           << "whole number from 1 to 23";
    QTest::newRow("beyond 64 bits") << range(1, 23) << "18446744073709551617"
                                    << "whole number from 1 to 23";
    QTest::newRow("empty") << form(Type::Double) << ""
                           << "number from -1.79769e+308 to 1.79769e+308";
    QTest::newRow("infinite") << form(Type::Double, u"Hz") << "inf"
                              << "number in Hz from -1.79769e+308 to 1.79769e+308";
    QTest::newRow("infinite float") << form(Type::Float) << "-1e39"
                                    << "number from -3.40282e+38 to 3.40282e+38";
    QTest::newRow("decimal comma") << form(Type::Float) << "1,5"
                                   << "number from -3.40282e+38 to 3.40282e+38";
    for (const char *text : {"", "2026-03-29", "2026-03-29T01:02:03", "2026-02-30T01:02:03Z", "Now"}) {
        QTest::newRow(qPrintable(QString("date %1").arg(text)))
            << form(Type::Date) << text
            << "date in UTC as 2026-03-29T00:59:59,250Z, 2026-03-29T00:59:59Z, or now";
    }
}

void FieldTextTest::refused()
{
    QFETCH(FieldForm, form);
    QFETCH(QString, text);
    QFETCH(QString, allowed);

    QString message;
    try {
        (void)valueOfText(form, text);
    } catch (const FieldError &error) {
        message = error.message;
    }
    QCOMPARE(message, QString("'%1' is not allowed. Allowed: %2").arg(text, allowed));
}

QTEST_GUILESS_MAIN(FieldTextTest)
#include "FieldTextTest.moc"
