// Whatever is changed, the models of an open document say what new ones would say, and have told their views
// of it: a view that remembers what it was told shows the same.

#include "OpenExample.h"

#include <models/FieldModel.h>
#include <models/FindingModel.h>
#include <models/ParameterModel.h>
#include <tests/support/OtherText.h>

#include <random>

using namespace KORMAK;
using namespace OpenExample;

namespace {

/// What a row says in all columns and roles, findings by their messages: their places change with every line.
QStringList rowAt(const QModelIndex &index)
{
    QStringList texts;
    const QAbstractItemModel &model = *index.model();
    for (int column = 0; column < model.columnCount(index.parent()); ++column)
        texts += index.sibling(index.row(), column).data().toString();
    const QHash<int, QByteArray> roles = model.roleNames();
    const QList<int> numbers = [&roles] {
        QList<int> sorted = roles.keys();
        std::sort(sorted.begin(), sorted.end());
        return sorted;
    }();
    for (const int role : numbers) {
        const QVariant value = index.data(role);
        texts +=
            value.userType() == QMetaType::QStringList ? value.toStringList().join('|') : value.toString();
    }
    return texts;
}

/// All rows that are there, in the order of a tree that is open.
QList<QStringList> rowsOf(const QAbstractItemModel &model, const QModelIndex &parent = {})
{
    QList<QStringList> rows;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        rows += rowAt(index);
        rows += rowsOf(model, index);
    }
    return rows;
}

/// What a view shows that asks again only for what it is told of.
class View {
public:
    explicit View(const QAbstractItemModel &model) : shown(model)
    {
        using Model = QAbstractItemModel;
        read({});
        QObject::connect(&model, &Model::dataChanged, &context,
                         [this](const QModelIndex &first, const QModelIndex &last) {
                             for (int row = first.row(); row <= last.row(); ++row) {
                                 const QModelIndex index = first.sibling(row, 0);
                                 texts[index] = rowAt(index);
                             }
                         });
        QObject::connect(&model, &Model::rowsInserted, &context,
                         [this](const QModelIndex &parent, int first, int last) {
                             for (int row = first; row <= last; ++row) {
                                 const QModelIndex index = shown.index(row, 0, parent);
                                 texts[index] = rowAt(index);
                                 read(index);
                             }
                         });
    }

    [[nodiscard]] QList<QStringList> rows(const QModelIndex &parent = {}) const
    {
        QList<QStringList> found;
        for (int row = 0; row < shown.rowCount(parent); ++row) {
            const QModelIndex index = shown.index(row, 0, parent);
            found += texts.value(index, {"not shown"});
            found += rows(index);
        }
        return found;
    }

private:
    void read(const QModelIndex &parent)
    {
        for (int row = 0; row < shown.rowCount(parent); ++row) {
            const QModelIndex index = shown.index(row, 0, parent);
            texts[index] = rowAt(index);
            read(index);
        }
    }

    const QAbstractItemModel &shown;
    QHash<QPersistentModelIndex, QStringList> texts; // by indexes, which move with their rows
    QObject context;
};

/// Makes changes of all kinds, one after the other.
class Changes {
public:
    Changes(OpenDocument &changed, unsigned seed) : document(changed), random(seed) { }

    /// \return false when this one was refused
    bool makeOne()
    {
        const QVector<Field> fields = document.GetDocument().GetFields();
        const Field &field = fields.at(below(static_cast<int>(fields.size())));
        const QString element = field.GetPath().section('.', 0, -2);
        using Action = DocumentEdit::Change::Action;
        DocumentEdit::Change change{Action::Set, field.GetPath(), TestSupport::otherText(field)};
        switch (below(5)) {
        case 0:
            change = {Action::Unset, field.GetPath(), {}};
            break;
        case 1:
            if (element.endsWith(']'))
                change = {Action::Unset, element, {}};
            break;
        case 2:
            if (field.GetPath().startsWith("Area.Coordinate"))
                change = {Action::Set, "Area.Coordinate", "1.5,2.5"};
            else if (field.GetPath().startsWith("Parameter["))
                change = {Action::Set, QString("Parameter[New%1].ParameterType").arg(below(3)), "Integer"};
            break;
        default:
            break;
        }
        return document.Change({change}, DocumentEdit::NewFindings::Accepted).isEmpty();
    }

private:
    int below(int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }

    OpenDocument &document;
    std::mt19937 random;
};

} // namespace

class ModelChangesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void viewsShowWhatIsThere_data();
    void viewsShowWhatIsThere();
};

void ModelChangesTest::viewsShowWhatIsThere_data()
{
    QTest::addColumn<QString>("example");

    for (const char *example : {"jobs/antenna.xml", "settings/automatic-workflow-with-area.xml",
                                "settings/activity-generation.xml", "receivers/vuhf-tuner.xml"})
        QTest::newRow(example) << QString(example);
}

void ModelChangesTest::viewsShowWhatIsThere()
{
    QFETCH(QString, example);

    Open document(example);
    Tested<FieldModel> fields(document);
    Tested<ParameterModel> parameters(document);
    Tested<FindingModel> findings(document);
    const Document opened = document.GetDocument();
    const View ofFields(fields);
    const View ofParameters(parameters);
    const View ofFindings(findings);
    QList<QByteArray> states{document.GetText()};
    Changes changes(document, 20260501);
    const auto compare = [&] {
        const FieldModel newFields(document);
        QCOMPARE(rowsOf(fields), rowsOf(newFields));
        QCOMPARE(ofFields.rows(), rowsOf(newFields));
        ParameterModel newParameters(document);
        newParameters.SetDefaults(opened);
        QCOMPARE(rowsOf(parameters), rowsOf(newParameters));
        QCOMPARE(ofParameters.rows(), rowsOf(newParameters));
        const FindingModel newFindings(document);
        QCOMPARE(rowsOf(findings), rowsOf(newFindings));
        QCOMPARE(ofFindings.rows(), rowsOf(newFindings));
    };
    int made = 0;
    for (int i = 0; i < 40; ++i) {
        if (!changes.makeOne())
            continue;
        ++made;
        states += document.GetText();
        compare();
        if (QTest::currentTestFailed())
            return;
    }
    QVERIFY(made > 10);
    while (!states.isEmpty()) {
        document.Restore(states.takeLast());
        compare();
        if (QTest::currentTestFailed())
            return;
    }
    QVERIFY(!document.IsModified());
}

QTEST_GUILESS_MAIN(ModelChangesTest)

#include "ModelChangesTest.moc"
