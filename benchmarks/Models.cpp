// What views of a receiver of 10,000 parameters wait for, beside reading it for inspection.

#include "BesideReading.h"
#include "Documents.h"
#include "Names.h"

#include <models/FieldModel.h>
#include <models/FindingModel.h>
#include <models/OpenDocument.h>
#include <models/ParameterFilter.h>
#include <models/ParameterModel.h>

#include <algorithm>
#include <stdexcept>
#include <vector>

namespace {

using namespace KORMAK;

constexpr int VisibleRows = 50;

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
    const std::vector<NamedOperation> all{
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

    printBesideReading(QStringLiteral("Models of a receiver of 10,000 parameters, beside Document(text)"),
                       text, all);
}
