// What views of a receiver of 10,000 parameters wait for, beside reading it for inspection. Medians of the
// processor time and of the ratios of several rounds.

#include "Documents.h"
#include "Names.h"
#include "Table.h"

#include <inspection/Document.h>
#include <models/FieldModel.h>
#include <models/FindingModel.h>
#include <models/OpenDocument.h>
#include <models/ParameterFilter.h>
#include <models/ParameterModel.h>

#include <algorithm>
#include <ctime>
#include <functional>
#include <stdexcept>
#include <vector>

namespace {

using namespace KORMAK;

constexpr int Rounds = 9;
constexpr int VisibleRows = 50;

double secondsOf(const std::function<void()> &operation)
{
    const std::clock_t begin = std::clock();
    operation();
    return static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

double median(std::vector<double> values)
{
    std::nth_element(values.begin(), values.begin() + values.size() / 2, values.end());
    return values[values.size() / 2];
}

/// As a view does that shows its first rows.
void show(const QAbstractItemModel &model, const QModelIndex &parent = {})
{
    const int rows = std::min(VisibleRows, model.rowCount(parent));
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < model.columnCount(parent); ++column) {
            const QModelIndex index = model.index(row, column, parent);
            for (const int role : {int(Qt::DisplayRole), int(Qt::ToolTipRole), int(Qt::DecorationRole)})
                (void)index.data(role);
        }
    }
}

void expect(bool isTrue, const char *what)
{
    if (!isTrue)
        throw std::runtime_error(what);
}

struct Measured {
    QString name;
    std::function<void()> operation;
    std::vector<double> seconds = {};
    std::vector<double> ratios = {};
};

} // namespace

int main()
{
    const QByteArray text = Documents::receiver(Names::Large).toUtf8();
    OpenDocument document;
    document.SetText(text);
    ParameterModel model(document);
    expect(model.rowCount() == Names::Large, "not every parameter has a row");
    ParameterFilter filter;
    filter.setSourceModel(&model);
    const QString path = model.index(Names::Large / 2, 0).data(ParameterModel::PathRole).toString();

    int edits = 0;
    std::vector<Measured> all{
        {QStringLiteral("parameters, made and shown"),
         [&document] {
             const ParameterModel parameters(document);
             show(parameters);
         }},
        {QStringLiteral("fields, made and shown with the list of parameters open"),
         [&document] {
             const FieldModel fields(document);
             show(fields, fields.GetIndex(QStringLiteral("Parameter")));
         }},
        {QStringLiteral("findings, made and shown"),
         [&document] {
             const FindingModel findings(document);
             show(findings);
         }},
        {QStringLiteral("search for parameters"),
         [&filter] {
             filter.SetSearch(QStringLiteral("gain"));
             filter.SetSearch({});
         }},
        {QStringLiteral("what differs from the defaults"),
         [&filter] {
             filter.SetShow(ParameterFilter::Show::Changed);
             filter.SetShow(ParameterFilter::Show::All);
         }},
        {QStringLiteral("change of a value, with all of these models"), [&document, &path, &edits] {
             const auto refused =
                 document.Change({{DocumentEdit::Change::Action::Set, path + QStringLiteral(".DisplayName"),
                                   QString::number(++edits)}});
             expect(refused.isEmpty(), "the change is refused");
         }}};
    const FieldModel fields(document);
    const FindingModel findings(document);
    show(fields, fields.GetIndex(QStringLiteral("Parameter")));

    for (int round = 0; round < Rounds; ++round) {
        const double reading = secondsOf([&text] { (void)Document(text); });
        for (Measured &one : all) {
            one.seconds.push_back(secondsOf(one.operation));
            one.ratios.push_back(one.seconds.back() / reading);
        }
    }

    Table table(QStringLiteral("Models of a receiver of 10,000 parameters, beside Document(text)"),
                {QStringLiteral(""), QStringLiteral("ms"), QStringLiteral("of reading it")});
    for (const Measured &one : all)
        table.add({one.name, figure(median(one.seconds) * 1000, 1), figure(median(one.ratios), 3)});
    table.print();
}
