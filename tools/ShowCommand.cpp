#include <tools/Command.h>
#include <tools/Console.h>
#include <tools/DocumentFile.h>

#include <QCommandLineParser>

#include <algorithm>

namespace {

constexpr int IndentWidth = 2;
constexpr QStringView NotSet = u"not set";

QString indented(const Field &field, int depth)
{
    const int width = depth * IndentWidth;
    return QString(width, QLatin1Char(' ')) + Console::oneLine(field.label) + QLatin1Char(':');
}

bool hasValue(const Field &field)
{
    return !field.value || !field.value->isEmpty();
}

/// The width of the longest label that a value stands beside.
qsizetype labelWidth(const std::vector<Field> &fields, int depth)
{
    qsizetype width = 0;
    for (const Field &field : fields) {
        if (hasValue(field))
            width = std::max<qsizetype>(width, indented(field, depth).size());
        width = std::max(width, labelWidth(field.fields, depth + 1));
    }
    return width;
}

QString valueLines(const FieldValue &value, qsizetype column)
{
    if (!value)
        return NotSet.toString();
    QStringList lines = value->split(QLatin1Char('\n'));
    std::transform(lines.begin(), lines.end(), lines.begin(), Console::oneLine);
    return lines.join(QLatin1Char('\n') + QString(static_cast<int>(column), QLatin1Char(' ')));
}

void printFields(const std::vector<Field> &fields, int depth, qsizetype column)
{
    for (const Field &field : fields) {
        const QString label = indented(field, depth);
        if (hasValue(field))
            Console::print(label.leftJustified(static_cast<int>(column)) + valueLines(field.value, column));
        else
            Console::print(label);
        printFields(field.fields, depth + 1, column);
    }
}

ExitStatus run(const QCommandLineParser &parser)
{
    return onDocument(parser.positionalArguments().constFirst(), [](const Document &document) {
        const std::vector<Field> fields = document.kind->fields(*document.object);
        Console::print(stateOf(document));
        printFields(fields, 0, labelWidth(fields, 0) + IndentWidth);
        return Good;
    });
}

} // namespace

const Command showCommand{
    u"show",
    u"show a document for people to read",
    u"Shows what the document holds, complete or not: labels, values and their units, and whether it is\n"
    u"complete and, if not, why.",
    u"kormak show job.xml",
    Command::Files::One,
    [] { return QList<QCommandLineOption>(); },
    run,
};
