// What the pages of the classes in widgets/ show: each snippet bears the name of its class.

#include <kormak/Parameter.h>
#include <models/OpenDocument.h>
#include <widgets/Binding.h>
#include <widgets/FrequencyEdit.h>
#include <widgets/ParameterEdit.h>
#include <widgets/ReceiverPanel.h>

#include <QSpinBox>
#include <QtTest>
#include <QVBoxLayout>

namespace {

QByteArray textOfReceiver()
{
    QFile file(QString(EXAMPLES_DIR) + "/receivers/vuhf-tuner.xml");
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class WidgetsSnippetsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void bind();
    void frequencyEdit();
    void numberEdit();
    void parameterEdit();
    void receiverPanel();
    void valueEdit();
};

void WidgetsSnippetsTest::bind()
{
    KORMAK::OpenDocument receiver;
    receiver.SetText(textOfReceiver());
    QWidget window;
    auto *const layout = new QVBoxLayout(&window);
    //! [Bind]
    auto *const attenuation = new QSpinBox;
    attenuation->setObjectName(QStringLiteral("kormak_Attenuation")); // in a form, the name of the control
    layout->addWidget(attenuation);
    const QStringList problems = KORMAK::Bind(window, receiver);
    for (const QString &problem : problems)
        qWarning() << problem; // kormak_Atenuation: there is no parameter Atenuation
    attenuation->setValue(20); // changes the document
    //! [Bind]
    QCOMPARE(problems, QStringList());
    QCOMPARE(receiver.GetDocument().GetField("Parameter[Attenuation].Integer.Default").GetText(),
             QString("20"));
}

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

void WidgetsSnippetsTest::receiverPanel()
{
    const QByteArray text = textOfReceiver();
    QByteArray saved;
    //! [ReceiverPanel]
    KORMAK::OpenDocument receiver;
    receiver.SetText(text);
    KORMAK::ReceiverPanel panel(receiver);
    panel.show();
    const auto save = [&receiver, &saved] {
        if (receiver.TakeOpenEdits().isEmpty()) // else something was typed that is no value
            saved = receiver.GetText(); // as it was, but for what was changed
    };
    //! [ReceiverPanel]
    save();
    QCOMPARE(saved, text);
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
