// Documents that are open, for the tests of what shows them.
#ifndef KORMAK_OPENEXAMPLE_H
#define KORMAK_OPENEXAMPLE_H

#include <models/OpenDocument.h>
#include <tests/support/Files.h>

#include <QAbstractItemModelTester>
#include <QStringList>
#include <QtTest>

namespace OpenExample {

inline QByteArray text(const QString &name)
{
    return TestSupport::bytesOf(QString(EXAMPLES_DIR) + '/' + name);
}

/// The example called \a name.
struct Open : KORMAK::OpenDocument {
    explicit Open(const QString &name) { SetText(text(name)); }

    using Action = KORMAK::DocumentEdit::Change::Action;

    void set(const QString &path, const QString &value) { change({{Action::Set, path, value}}); }
    void unset(const QString &path) { change({{Action::Unset, path, {}}}); }
    void change(const QVector<KORMAK::DocumentEdit::Change> &changes)
    {
        const auto refused = Change(changes, KORMAK::DocumentEdit::NewFindings::Accepted);
        QVERIFY2(refused.isEmpty(), qPrintable(refused.value(0).GetMessage()));
    }
};

/// A model that is watched for breaking the rules of models.
template <class Model>
struct Tested : Model {
    using Model::Model;

    QAbstractItemModelTester tester{this, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

/// The text of a tool tip, which is escaped.
inline QString toolTip(const QModelIndex &index)
{
    QString text = index.data(Qt::ToolTipRole).toString();
    const QString begin = "<p style=\"white-space: pre-wrap\">";
    if (!text.startsWith(begin) || !text.endsWith("</p>"))
        return "not escaped: " + text;
    text = text.mid(begin.size()).chopped(4);
    if (text.contains('<'))
        return "not escaped: " + text;
    return text.replace("&lt;", "<").replace("&gt;", ">").replace("&quot;", "\"").replace("&amp;", "&");
}

/// What a model tells of its rows, a line of each call: "inserted 3", "removed 0", "changed 2", "reset".
class Told {
public:
    explicit Told(const QAbstractItemModel &model)
    {
        using Model = QAbstractItemModel;
        QObject::connect(&model, &Model::rowsInserted, &context,
                         [this](const QModelIndex &, int first, int last) { note("inserted", first, last); });
        QObject::connect(&model, &Model::rowsRemoved, &context,
                         [this](const QModelIndex &, int first, int last) { note("removed", first, last); });
        QObject::connect(&model, &Model::dataChanged, &context,
                         [this](const QModelIndex &first, const QModelIndex &last) {
                             note("changed", first.row(), last.row());
                         });
        QObject::connect(&model, &Model::modelReset, &context, [this] { lines += "reset"; });
    }

    QStringList taken() { return std::exchange(lines, {}); }

private:
    void note(const char *what, int first, int last)
    {
        lines += first == last ? QString("%1 %2").arg(what).arg(first)
                               : QString("%1 %2-%3").arg(what).arg(first).arg(last);
    }

    QStringList lines;
    QObject context;
};

} // namespace OpenExample

#endif
