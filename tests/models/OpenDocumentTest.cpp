#include <models/OpenDocument.h>
#include <tests/support/Files.h>

#include <QtTest>

using KORMAK::DocumentEdit;
using KORMAK::Finding;
using KORMAK::OpenDocument;
using Change = KORMAK::DocumentEdit::Change;
using Action = Change::Action;
using NewFindings = KORMAK::DocumentEdit::NewFindings;

Q_DECLARE_METATYPE(KORMAK::DocumentEdit::Change)

namespace {

QByteArray exampleText(const QString &name)
{
    return TestSupport::bytesOf(QString(EXAMPLES_DIR) + '/' + name);
}

QByteArray jobText()
{
    return exampleText("jobs/antenna.xml");
}

Change set(const QString &path, const QString &text)
{
    return {Action::Set, path, text};
}

/// The names of the signals of a document, in the order in which they are sent.
class Signals {
public:
    explicit Signals(OpenDocument &document)
    {
        const auto note = [this, &document](const QString &name) {
            names += name;
            texts += document.GetText();
        };
        QObject::connect(&document, &OpenDocument::Replaced, &context, [note] { note("Replaced"); });
        QObject::connect(&document, &OpenDocument::Changed, &context,
                         [note](const QStringList &paths) { note("Changed " + paths.join(' ')); });
        QObject::connect(&document, &OpenDocument::TextChanged, &context,
                         [note](const QByteArray &, const QByteArray &) { note("TextChanged"); });
        QObject::connect(
            &document, &OpenDocument::Refused, &context,
            [note](const QVector<Finding> &findings) { note(QString("Refused %1").arg(findings.size())); });
        QObject::connect(&document, &OpenDocument::ModifiedChanged, &context,
                         [note](bool modified) { note(modified ? "Modified" : "Unmodified"); });
        QObject::connect(&document, &OpenDocument::OpenEditsWanted, &context, [note] { note("Wanted"); });
    }

    QStringList taken() { return std::exchange(names, {}); }

    QStringList names;
    QList<QByteArray> texts;

private:
    QObject context;
};

} // namespace

class OpenDocumentTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void startsWithoutDocument();
    void takesAnyText_data();
    void takesAnyText();
    void changesBytesOfField();
    void tellsWhatChanged_data();
    void tellsWhatChanged();
    void changesNothing();
    void refuses_data();
    void refuses();
    void newFindingsAreAccepted();
    void keepsLimits();
    void isModifiedByItsText();
    void restores();
    void restoresAnotherDocument();
    void takesOpenEdits();
    void tellsOpenEditsThatAreRefused();
    void refusalsOutsideAreNotTaken();
    void slotsSeeTheNewState();
};

void OpenDocumentTest::startsWithoutDocument()
{
    const OpenDocument document;
    QCOMPARE(document.GetText(), QByteArray());
    QCOMPARE(document.GetDocument().GetKind(), QString());
    QVERIFY(document.GetDocument().GetFindings().isEmpty());
    QVERIFY(!document.IsModified());
}

void OpenDocumentTest::takesAnyText_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("isRead");

    QTest::newRow("job") << jobText() << "Job" << true;
    QTest::newRow("no document") << QByteArray("no document") << "" << false;
    QTest::newRow("cut off") << jobText().left(400) << "Job" << false;
    QTest::newRow("unknown kind") << QByteArray("<Engine/>") << "" << false;
    QTest::newRow("nothing") << QByteArray() << "" << false;
}

void OpenDocumentTest::takesAnyText()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, kind);
    QFETCH(bool, isRead);

    OpenDocument document;
    Signals told(document);
    document.SetText(text);
    QCOMPARE(told.taken(), QStringList{"Replaced"});
    QCOMPARE(document.GetText(), text);
    QCOMPARE(document.GetDocument().GetKind(), kind);
    QCOMPARE(document.GetDocument().GetObject() != nullptr, isRead);
    QCOMPARE(document.GetDocument().GetFindings(), KORMAK::Document(text).GetFindings());
    QVERIFY(!document.IsModified());
    QCOMPARE(document.Change({set("JobHeader.Author", "M. Keller")}).isEmpty(), isRead);
}

void OpenDocumentTest::changesBytesOfField()
{
    OpenDocument document;
    document.SetText(jobText());
    QCOMPARE(document.Change({set("JobHeader.Author", "M. Keller")}), QVector<Finding>());
    QCOMPARE(document.GetText(), jobText().replace("L. Brandt", "M. Keller"));
    QCOMPARE(document.GetDocument().GetField("JobHeader.Author").GetText(), QString("M. Keller"));
}

void OpenDocumentTest::tellsWhatChanged_data()
{
    QTest::addColumn<QString>("example");
    QTest::addColumn<QVector<Change>>("changes");
    QTest::addColumn<QString>("paths");

    QTest::newRow("field") << "jobs/antenna.xml" << QVector<Change>{set("JobHeader.Author", "M. Keller")}
                           << "JobHeader.Author";
    QTest::newRow("two fields") << "jobs/antenna.xml"
                                << QVector<Change>{set("AntennaData.Azimuth", "10"),
                                                   set("JobHeader.Author", "M. Keller")}
                                << "JobHeader.Author AntennaData.Azimuth";
    QTest::newRow("element added") << "settings/automatic-workflow-with-area.xml"
                                   << QVector<Change>{set("Area.Coordinate", "52.1,13.4")}
                                   << "Area.Coordinate[3]";
    QTest::newRow("parameter removed")
        << "receivers/hf-receiver.xml" << QVector<Change>{{Action::Unset, "Parameter[AGCAttack]", {}}}
        << "Parameter[AGCAttack]";
}

void OpenDocumentTest::tellsWhatChanged()
{
    QFETCH(QString, example);
    QFETCH(QVector<Change>, changes);
    QFETCH(QString, paths);

    OpenDocument document;
    document.SetText(exampleText(example));
    Signals told(document);
    const QVector<Finding> findings = document.Change(changes, NewFindings::Accepted);
    QVERIFY2(findings.isEmpty(), qPrintable(findings.value(0).GetMessage()));
    QCOMPARE(told.taken(), (QStringList{"Modified", "Changed " + paths, "TextChanged"}));
}

void OpenDocumentTest::changesNothing()
{
    OpenDocument document;
    document.SetText(jobText());
    Signals told(document);
    QVERIFY(document.Change({}).isEmpty());
    QVERIFY(document.Change({set("JobHeader.Author", "L. Brandt")}).isEmpty());
    document.Restore(jobText());
    QCOMPARE(told.taken(), QStringList());
    QVERIFY(!document.IsModified());
}

void OpenDocumentTest::refuses_data()
{
    QTest::addColumn<QVector<Change>>("changes");

    QTest::newRow("no field") << QVector<Change>{set("JobHeader.Engine", "1")};
    QTest::newRow("no value") << QVector<Change>{set("AntennaData.Azimuth", "north")};
    QTest::newRow("one of two") << QVector<Change>{set("JobHeader.Author", "M. Keller"),
                                                   set("AntennaData.Azimuth", "north")};
    QTest::newRow("new finding") << QVector<Change>{{Action::Unset, "JobHeader.Author", {}}};
}

void OpenDocumentTest::refuses()
{
    QFETCH(QVector<Change>, changes);

    OpenDocument document;
    document.SetText(jobText());
    Signals told(document);
    QSignalSpy refused(&document, &OpenDocument::Refused);
    const QVector<Finding> findings = document.Change(changes);
    QVERIFY(!findings.isEmpty());
    QCOMPARE(findings, DocumentEdit(jobText(), changes).GetFindings());
    QCOMPARE(told.taken(), QStringList{QString("Refused %1").arg(findings.size())});
    QCOMPARE(refused.at(0).at(0).value<QVector<Finding>>(), findings);
    QCOMPARE(document.GetText(), jobText());
}

void OpenDocumentTest::newFindingsAreAccepted()
{
    OpenDocument document;
    document.SetText(jobText());
    QVERIFY(document.Change({{Action::Unset, "JobHeader.Author", {}}}, NewFindings::Accepted).isEmpty());
    QVERIFY(!document.GetDocument().IsComplete());
    QCOMPARE(document.GetDocument().GetFindings(), KORMAK::Document(document.GetText()).GetFindings());
}

void OpenDocumentTest::keepsLimits()
{
    TESSEL::ReadingLimits limits;
    limits.SetDepth(2);
    OpenDocument document;
    document.SetText(jobText(), limits);
    QVERIFY(!document.GetDocument().GetObject());

    limits.SetDepth(3);
    document.SetText(jobText(), limits);
    QVERIFY(document.Change({set("JobHeader.Author", "M. Keller")}).isEmpty());
    document.Restore(jobText().replace("<JobHeader", "<a><b><c/></b></a><JobHeader"));
    QVERIFY(!document.GetDocument().GetObject());
}

void OpenDocumentTest::isModifiedByItsText()
{
    OpenDocument document;
    document.SetText(jobText());
    Signals told(document);
    document.Change({set("JobHeader.Author", "M. Keller")});
    document.Change({set("JobHeader.Author", "A. Brandt")});
    QVERIFY(document.IsModified());
    document.Change({set("JobHeader.Author", "L. Brandt")});
    QVERIFY(!document.IsModified());
    QCOMPARE(told.taken().filter("odified"), (QStringList{"Modified", "Unmodified"}));

    document.Change({set("JobHeader.Author", "M. Keller")});
    document.SetUnmodified();
    QVERIFY(!document.IsModified());
    document.SetUnmodified();
    document.Restore(jobText());
    QVERIFY(document.IsModified());
    QCOMPARE(told.taken().filter("odified"), (QStringList{"Modified", "Unmodified", "Modified"}));

    document.SetText(jobText());
    QCOMPARE(told.taken(), (QStringList{"Unmodified", "Replaced"}));
}

void OpenDocumentTest::restores()
{
    OpenDocument document;
    document.SetText(jobText());
    document.Change({set("JobHeader.Author", "M. Keller")});
    Signals told(document);
    document.Restore(jobText());
    QCOMPARE(told.taken(), (QStringList{"Unmodified", "Changed JobHeader.Author"}));
    QCOMPARE(document.GetText(), jobText());
    QCOMPARE(document.GetDocument().GetField("JobHeader.Author").GetText(), QString("L. Brandt"));

    document.Restore(jobText() + "<!-- checked -->");
    QCOMPARE(told.taken(), (QStringList{"Modified", "Changed "}));
}

void OpenDocumentTest::restoresAnotherDocument()
{
    OpenDocument document;
    document.SetText(jobText());
    Signals told(document);
    document.Restore("no document");
    QCOMPARE(told.taken(), (QStringList{"Modified", "Replaced"}));
    document.Restore(exampleText("settings/automatic-workflow-with-area.xml"));
    QCOMPARE(told.taken(), QStringList{"Replaced"});
    document.Restore(jobText());
    QCOMPARE(told.taken(), (QStringList{"Unmodified", "Replaced"}));
    QCOMPARE(document.GetDocument().GetKind(), QString("Job"));
}

void OpenDocumentTest::takesOpenEdits()
{
    OpenDocument document;
    document.SetText(jobText());
    connect(&document, &OpenDocument::OpenEditsWanted, this,
            [&document] { document.Change({set("JobHeader.Author", "M. Keller")}); });
    QVERIFY(document.TakeOpenEdits().isEmpty());
    QCOMPARE(document.GetText(), jobText().replace("L. Brandt", "M. Keller"));
}

void OpenDocumentTest::tellsOpenEditsThatAreRefused()
{
    OpenDocument document;
    document.SetText(jobText());
    QVector<Finding> byDocument;
    connect(&document, &OpenDocument::OpenEditsWanted, &document, [&] {
        byDocument = document.Change({set("AntennaData.Azimuth", "north")});
        document.Refuse("AntennaData.Name", "two names");
    });
    QSignalSpy refused(&document, &OpenDocument::Refused);
    const QVector<Finding> findings = document.TakeOpenEdits();
    QCOMPARE(findings, byDocument + QVector<Finding>{Finding::NotEdited("AntennaData.Name", "two names")});
    QCOMPARE(refused.size(), 2);
    QCOMPARE(findings.last().GetId(), QString("not-edited"));
    QCOMPARE(findings.last().GetPath(), QString("AntennaData.Name"));
    QCOMPARE(findings.last().GetMessage(), QString("two names"));
    QCOMPARE(findings.last().GetSeverity(), Finding::Severity::Error);
    QVERIFY(!findings.last().HasPlace());
}

void OpenDocumentTest::refusalsOutsideAreNotTaken()
{
    OpenDocument document;
    document.SetText(jobText());
    document.Refuse("AntennaData.Name", "two names");
    QVERIFY(!document.Change({set("AntennaData.Azimuth", "north")}).isEmpty());
    QVERIFY(document.TakeOpenEdits().isEmpty());
}

void OpenDocumentTest::slotsSeeTheNewState()
{
    OpenDocument document;
    document.SetText(jobText());
    Signals told(document);
    document.Change({set("JobHeader.Author", "M. Keller")});
    const QByteArray after = document.GetText();
    for (const QByteArray &text : std::as_const(told.texts))
        QCOMPARE(text, after);
    QCOMPARE(told.texts.size(), 3);
}

QTEST_GUILESS_MAIN(OpenDocumentTest)

#include "OpenDocumentTest.moc"
