// What the pages of the classes in widgets/ show: each snippet bears the name of its class.

#include <kormak/Parameter.h>
#include <widgets/FrequencyEdit.h>
#include <widgets/ParameterEdit.h>

#include <QtTest>

class WidgetsSnippetsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void frequencyEdit();
    void numberEdit();
    void parameterEdit();
    void valueEdit();
};

void WidgetsSnippetsTest::frequencyEdit()
{
    //! [FrequencyEdit]
    KORMAK::FrequencyEdit frequency;
    frequency.SetUnit(QStringLiteral("kHz"));
    frequency.SetMultiplier(1000);
    frequency.setText(QStringLiteral("145.5 MHz")); // as people type it
    if (frequency.Take())
        qInfo() << frequency.text() << frequency.GetValueText(); // 145 500, and in Hz 145500000
    //! [FrequencyEdit]
    QCOMPARE(frequency.text(), QString("145") + QChar(0x202F) + "500");
    QCOMPARE(frequency.GetValueText(), QString("145500000"));
}

void WidgetsSnippetsTest::numberEdit()
{
    //! [NumberEdit]
    KORMAK::NumberEdit gain;
    gain.SetType(KORMAK::NumberEdit::Type::Whole32);
    gain.SetUnit(QStringLiteral("dB"));
    gain.SetLimits(qint64(0), qint64(30));
    gain.SetValue(qint64(80));
    qInfo() << gain.text() << gain.GetProblem(); // 80, "Above the maximum of 30 dB"
    //! [NumberEdit]
    QCOMPARE(gain.text(), QString("80"));
    QVERIFY(gain.GetProblem().startsWith("Above the maximum of 30"));
}

void WidgetsSnippetsTest::parameterEdit()
{
    KORMAK::Parameter gain;
    gain.SetParameterType(KORMAK::ParameterType::Integer);
    gain.SetDisplaySuffix("dB");
    QVariant set;
    //! [ParameterEdit]
    KORMAK::ParameterEdit edit;
    edit.SetParameter(gain);
    QObject::connect(&edit, &KORMAK::ParameterEdit::Finished, [&edit, &set] {
        set = edit.GetValue(); // a qint64: the parameter is an Integer
    });
    //! [ParameterEdit]
    edit.setFocus();
    QTest::keyClick(edit.focusProxy(), Qt::Key_Up);
    QCOMPARE(set, QVariant(qint64(1)));
}

void WidgetsSnippetsTest::valueEdit()
{
    KORMAK::NumberEdit line;
    line.SetValue(qint64(1));
    line.setText("2");
    QStringList saved;
    //! [ValueEdit]
    const auto save = [&saved](KORMAK::ValueEdit &edit) {
        if (edit.Take()) // what was typed and not yet finished
            saved += edit.GetValue().toString();
        else
            qWarning() << edit.text() << edit.GetProblem();
    };
    save(line);
    //! [ValueEdit]
    QCOMPARE(saved, QStringList{"2"});
}

QTEST_MAIN(WidgetsSnippetsTest)
#include "WidgetsSnippetsTest.moc"
