#include <inspection/DocumentJson_p.h>
#include <tools/CheckReport.h>
#include <tools/Command.h>
#include <tools/Console.h>
#include <tools/DocumentFile.h>
#include <tools/LimitOptions.h>
#include <tools/Options.h>
#include <tools/OutputFormat.h>
#include <tools/PathWork.h>
#include <tools/TableFields.h>
#include <tools/TableFilter.h>
#include <tools/TableWriter.h>
#include <tools/Terminal.h>
#include <tools/Usage.h>

#include <QCommandLineParser>

#include <algorithm>
#include <iterator>
#include <map>
#include <optional>
#include <utility>
#include <vector>

using namespace KORMAK;
using namespace KORMAK::Inspection;

namespace {

using Table::Cell;
using Table::Condition;
using Table::FieldName;
using Table::Subject;

constexpr QStringView ColumnsOption = u"columns";
constexpr QStringView WhereOption = u"where";
constexpr QStringView SortOption = u"sort";
constexpr QStringView EachOption = u"each";
constexpr OutputFormat Formats[] = {OutputFormat::Text, OutputFormat::Csv, OutputFormat::Json};

QList<QCommandLineOption> options()
{
    return withPathOptions(
        u"Read",
        withLimitOptions(listOf<QList<QCommandLineOption>>(
            optionCalled(ColumnsOption, QStringLiteral("The columns, separated by commas."), ManyFields),
            optionCalled(WhereOption, QStringLiteral("Only rows for which this holds; can be repeated."),
                         ConditionName),
            optionCalled(SortOption, QStringLiteral("Sort by this, not by the order of the files."),
                         OneField),
            optionCalled(EachOption,
                         QStringLiteral("A row for each %1, not for each document.")
                             .arg(Table::partNames().join(QStringLiteral(" or "))),
                         PartName),
            formatOption(Formats))));
}

/// What a call asks for.
class Request {
public:
    /// \throws UsageError
    explicit Request(const QCommandLineParser &parser)
        : format(outputFormat(parser, Formats)), limits(limitsOf(parser)), part(partOf(parser))
    {
        const QStringList wanted = parser.values(WhereOption.toString());
        for (const QString &condition : wanted)
            conditions.emplace_back(condition, part);
        if (const auto sorting = onlyValue(parser, SortOption))
            sortField.emplace(*sorting, part);
        if (const auto names = onlyValue(parser, ColumnsOption))
            columns = Table::fieldsCalled(*names, part);
        const QStringList kinds = documentKindNames();
        for (const QString &name : kinds) {
            const DocumentKind *const kind = findDocumentKind(name);
            usual.emplace(kind, Table::usualFields(*kind, part));
        }
    }

    [[nodiscard]] const std::vector<FieldName> &columnsOf(const DocumentKind &kind) const
    {
        return columns.empty() ? usual.at(&kind) : columns;
    }
    /// Whether documents of both kinds have the same columns.
    [[nodiscard]] bool haveSameColumns(const DocumentKind &a, const DocumentKind &b) const
    {
        return &a == &b || !columns.empty() || !part.isEmpty();
    }
    /// Whether a field that the table has to do with is read otherwise than the document of the \a subject
    /// says it.
    [[nodiscard]] bool concerns(const FindingData &finding, const Subject &subject) const
    {
        if (finding.id != FindingId::BadValue && finding.id != FindingId::Repeated
            && finding.id != FindingId::Unread)
            return false;
        const auto isAt = [&](const FieldName &field) {
            if (!field.isWithin(finding.path, *subject.kind))
                return false;
            const Cell cell = field.in(subject);
            return !finding.found || !cell.type || cell.text() != *finding.found;
        };
        const auto &shown = columnsOf(*subject.kind);
        return std::any_of(shown.begin(), shown.end(), isAt) || (sortField && isAt(*sortField))
            || std::any_of(conditions.begin(), conditions.end(),
                           [&](const Condition &condition) { return isAt(condition.field()); });
    }

    const OutputFormat format;
    const TESSEL::ReadingLimits limits;
    const QString part;
    std::vector<Condition> conditions;
    std::optional<FieldName> sortField;
    std::vector<FieldName> columns; ///< none: the usual ones of each kind

private:
    static QString partOf(const QCommandLineParser &parser)
    {
        const auto name = onlyValue(parser, EachOption);
        if (name && !Table::partNames().contains(*name))
            throw Usage::unknown(QStringLiteral("part"), *name, Table::partNames());
        return name.value_or(QString());
    }

    std::map<const DocumentKind *, std::vector<FieldName>> usual;
};

struct TableRow {
    const DocumentKind *kind;
    Table::Row cells;
    Cell sortCell;
};

/// What comes of one file.
struct FileRows {
    QString path;
    std::vector<TableRow> rows = {};
    QByteArray complaints = {};
    ExitStatus status = Good;
    const DocumentKind *kind = nullptr; ///< null: refused
    bool lacksParts = false; ///< there are none in documents of its kind
};

QByteArray complaint(const QString &path, const DocumentCheck::PlacedFinding &placed,
                     const QString &more = {})
{
    const auto &[finding, position] = placed;
    return (complaintLine(path, position, nameOf(finding.severity), finding) + more + QLatin1Char('\n'))
        .toUtf8();
}

/// The first error, and how many there are.
FileRows refused(const FileCheck &file)
{
    const auto &findings = file.check.findings;
    const auto isError = [](const auto &placed) { return placed.finding.severity == Severity::Error; };
    const auto first = std::find_if(findings.begin(), findings.end(), isError);
    const auto count = std::count_if(findings.begin(), findings.end(), isError);
    const QString more = count > 1
        ? QStringLiteral(" (1 of %1 errors, of which check tells)").arg(static_cast<int>(count))
        : QString();
    return {file.path,
            {},
            complaint(file.path, *first, more),
            file.verdict == Verdict::Unreadable ? Failed : Faulty};
}

/// Makes the rows of a path.
class RowMaker {
public:
    explicit RowMaker(const Request &requested) : request(requested) { }

    FileRows operator()(const ListedPath &path) const
    {
        switch (path.kind) {
        case ListedPath::Kind::Skipped:
            return {path.path,
                    {},
                    CheckReport::linesOfSkipped(path.path, path.reason, OutputFormat::Text).complaints};
        case ListedPath::Kind::Unreadable:
            return refused(unreadable(path.path, path.reason));
        default:
            return rowsOf(checkFile(path.path, request.limits, CheckedObject::Kept));
        }
    }

private:
    [[nodiscard]] FileRows rowsOf(const FileCheck &file) const
    {
        if (file.verdict >= Verdict::AtFault)
            return refused(file);
        const DocumentKind &kind = *file.check.kind;
        FileRows result{file.path};
        result.kind = &kind;
        Subject subject{file.path, &kind, file.check.isComplete, kind.address(*file.check.object)};
        for (const auto &placed : file.check.findings) {
            if (request.concerns(placed.finding, subject))
                result.complaints += complaint(file.path, placed);
        }
        if (request.part.isEmpty()) {
            add(result, subject);
            return result;
        }
        const auto parts = Table::partsOf(kind, subject.document, request.part);
        result.lacksParts = !parts;
        if (!parts)
            return result;
        subject.partTable = parts->table;
        for (const void *part : parts->all) {
            subject.part = part;
            add(result, subject);
        }
        return result;
    }

    void add(FileRows &result, const Subject &subject) const
    {
        const auto &conditions = request.conditions;
        if (!std::all_of(conditions.begin(), conditions.end(),
                         [&subject](const Condition &condition) { return condition.holdsFor(subject); }))
            return;
        TableRow row{subject.kind, {}, request.sortField ? request.sortField->in(subject) : Cell()};
        for (const FieldName &column : request.columnsOf(*subject.kind))
            row.cells.push_back(column.in(subject));
        result.rows.push_back(std::move(row));
    }

    const Request &request;
};

/// Takes the rows of all files and writes them, at once or sorted in the end.
class Output {
public:
    explicit Output(const Request &requested) : request(requested), writer(requested.format)
    {
        if (!request.columns.empty() && request.format != OutputFormat::Text)
            writer.begin(request.columns);
    }

    void take(const FileRows &file)
    {
        Console::complainInBytes(file.complaints);
        worst = std::max(worst, file.status);
        filesWithoutParts += file.lacksParts ? 1 : 0;
        emptyKind = emptyKind ? emptyKind : file.lacksParts ? nullptr : file.kind;
        if (!hasPlaceFor(file))
            return;
        if (request.sortField)
            rows.insert(rows.end(), file.rows.begin(), file.rows.end());
        else
            std::for_each(file.rows.begin(), file.rows.end(), [this](const TableRow &row) { write(row); });
    }

    ExitStatus end()
    {
        std::stable_sort(rows.begin(), rows.end(), [](const TableRow &a, const TableRow &b) {
            return Table::comesBefore(a.sortCell, b.sortCell);
        });
        for (const TableRow &row : rows)
            write(row);
        if (!writtenKind && emptyKind && request.columns.empty() && request.format == OutputFormat::Csv)
            writer.begin(request.columnsOf(*emptyKind)); // programs that read it need the names
        writer.end();
        if (filesWithoutParts > 0) {
            Console::complain(QStringLiteral("kormak table: %1: %2 of a kind that has no %3")
                                  .arg(Terminal::coloured(u"warning"),
                                       filesWithoutParts == 1
                                           ? QStringLiteral("1 file is")
                                           : QStringLiteral("%1 files are").arg(filesWithoutParts),
                                       request.part));
        }
        return worst;
    }

private:
    /// One table of CSV has the columns of one kind.
    bool hasPlaceFor(const FileRows &file)
    {
        if (file.rows.empty() || request.format != OutputFormat::Csv)
            return true;
        const DocumentKind &fileKind = *file.rows.front().kind;
        firstKind = firstKind ? firstKind : &fileKind;
        if (request.haveSameColumns(*firstKind, fileKind))
            return true;
        complainAbout(file.path,
                      {QStringLiteral("is of kind %1, but the columns are those of %2 (--columns gives "
                                      "columns for all)")
                           .arg(fileKind.rootElement.toString(), firstKind->rootElement.toString())});
        worst = std::max(worst, Faulty);
        return false;
    }

    void write(const TableRow &row)
    {
        const bool hasBegun =
            writtenKind || (!request.columns.empty() && request.format != OutputFormat::Text);
        if (!hasBegun || (writtenKind && !request.haveSameColumns(*writtenKind, *row.kind)))
            writer.begin(request.columnsOf(*row.kind));
        writtenKind = row.kind;
        writer.add(row.cells);
    }

    const Request &request;
    Table::Writer writer;
    std::vector<TableRow> rows; ///< to be sorted
    const DocumentKind *firstKind = nullptr;
    const DocumentKind *writtenKind = nullptr; ///< of the last row
    const DocumentKind *emptyKind =
        nullptr; ///< of the first document, whose columns a table without rows has
    int filesWithoutParts = 0;
    ExitStatus worst = Good;
};

ExitStatus run(const QCommandLineParser &parser)
{
    const Request request(parser);
    const PathCall call = pathCallOf(parser);
    const bool isBarShown = Terminal::isErrorOutput() && !Terminal::isOutput();
    const RowMaker rowsOf(request);
    Output output(request);
    onEachPath<FileRows>(
        call, isBarShown ? Progress::Shown : Progress::Hidden, rowsOf,
        [](const ListedPath &path, const QString &reason) { return refused(unreadable(path.path, reason)); },
        [&output](const FileRows &rows) { output.take(rows); });
    return output.end();
}

} // namespace

const Command tableCommand{
    u"table",
    u"tell what many documents hold, in a table",
    u"Makes a row of each document, or with --each Parameter of each parameter of receivers, and a column of "
    u"each "
    u"field. Fields are called as the commands show and new call them, those of a parameter without the name "
    u"of "
    u"the parameter in front, as Integer.Minimum; besides, there are file, kind and complete. Unless told "
    u"otherwise, the columns are the file, the kind and what documents of the kind have to say to be "
    u"complete; "
    u"where the kind changes, another table begins. Of a folder, the files called *.xml are read, as by "
    u"check.\n"
    u"\n"
    u"A CONDITION is one of\n"
    u"  FIELD = VALUE     FIELD != VALUE    FIELD contains TEXT\n"
    u"  FIELD < VALUE     FIELD <= VALUE    FIELD is set\n"
    u"  FIELD > VALUE     FIELD >= VALUE    FIELD is not set\n"
    u"Values are written as for new --set, in the units of the fields; of a date, the time can be left out, "
    u"and is "
    u"then the beginning of the day in UTC. Only numbers and dates are less or more than others. For a "
    u"field that is not set, only the last holds.\n"
    u"\n"
    u"CSV is as RFC 4180 has it, in UTF-8, with a line for the names of the columns; texts stand there as "
    u"the "
    u"documents have them, and what is not set is empty. It has one table: a document of another kind than "
    u"the "
    u"first is refused unless --columns are given. JSON is an object in each line, with null for what is not "
    u"set. "
    u"Without --sort, rows are written as soon as they are known, as text some hundred at a time.\n"
    u"\n"
    u"A document that the library refuses has no row; standard error tells why. It also tells where a "
    u"column, "
    u"condition or sorting is about something that a document says and the library reads otherwise.",
    {u"all documents have been read", u"a document is at fault, or its kind does not fit into the CSV",
     u"a file cannot be read"},
    u"kormak table -r jobs --where 'AntennaData.MaximumFrequency > 30e6' \\\n"
    u"    --columns file,JobHeader.Author,AntennaData.Name --format csv >jobs.csv\n"
    u"sqlite3 :memory: '.import --csv jobs.csv jobs' \\\n"
    u"    'SELECT \"AntennaData.Name\", count(*) FROM jobs GROUP BY 1'",
    ManyPaths,
    options,
    run,
    Formats,
};
