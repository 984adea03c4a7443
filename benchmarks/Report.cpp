#include "Report.h"

#include "Names.h"

#include <QFile>
#include <QSysInfo>

#include <algorithm>
#include <cstdio>
#include <limits>

namespace {

constexpr double Micro = 1e-6;
constexpr double Nano = 1e-9;
constexpr double GrowthLimit = 1.15; ///< of the cost of one among many

const Target GrowthTarget{Target::AtMost, GrowthLimit};

QString processor()
{
    QFile file(QStringLiteral("/proc/cpuinfo"));
    if (file.open(QIODevice::ReadOnly)) {
        for (const QByteArray &line : file.readAll().split('\n')) {
            if (line.startsWith("model name"))
                return QString::fromUtf8(line.mid(line.indexOf(':') + 1).trimmed());
        }
    }
    return QSysInfo::currentCpuArchitecture();
}

QString compiler()
{
#ifdef __clang__
    return QStringLiteral(__VERSION__);
#else
    return QStringLiteral("g++ " __VERSION__);
#endif
}

double middleOf(QList<double> values)
{
    if (values.isEmpty())
        return std::numeric_limits<double>::quiet_NaN();
    std::sort(values.begin(), values.end());
    const auto middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

} // namespace

bool Report::ReportContext(const Context & /*context*/)
{
    return true;
}

void Report::ReportRuns(const std::vector<Run> &runs)
{
    for (const Run &run : runs) {
        if (run.run_type != Run::RT_Iteration)
            continue;
        times[QString::fromStdString(run.run_name.function_name)].insert(
            round, run.cpu_accumulated_time / static_cast<double>(run.iterations));
    }
    std::fputc('.', stderr);
}

double Report::median(const QString &name) const
{
    return middleOf(times[name].values());
}

double Report::medianOf(const char *operation, const QString &subject, int size) const
{
    return median(Names::of(QString::fromLatin1(operation), subject, size));
}

double Report::ratio(const QString &numerator, const QString &denominator) const
{
    const QMap<int, double> &one = times[numerator];
    const QMap<int, double> &other = times[denominator];
    QList<double> ratios;
    for (auto entry = one.begin(); entry != one.end(); ++entry) {
        if (other.contains(entry.key()))
            ratios << entry.value() / other[entry.key()];
    }
    return middleOf(ratios);
}

bool Report::hasAll(const QStringList &names) const
{
    return std::all_of(names.begin(), names.end(), [this](const QString &name) { return has(name); });
}

void Report::addRatio(Table &table, const QString &title, const QString &numerator,
                      const QString &denominator, const Target &target, double factor) const
{
    if (hasAll({numerator, denominator}))
        table.add(title, factor * ratio(numerator, denominator), target);
}

void Report::print() const
{
    std::fputc('\n', stderr);
    printMachine();
    printTargets();
    printAlternatives();
    printKinds();
    printGrowth();
}

void Report::printMachine() const
{
    const QString text = QStringLiteral("%1, %2, %3, Qt %4, %5 build; medians of processor time.\n")
                             .arg(processor(), QSysInfo::prettyProductName(), compiler(),
                                  QString::fromLatin1(qVersion()), QStringLiteral(BUILD_TYPE));
    std::fputs(text.toUtf8().constData(), stdout);
}

void Report::printTargets() const
{
    using Names::of;
    const Target readLimit{Target::AtMost, 1.13};
    const Target writeLimit{Target::AtMost, 0.95};
    const Target smallReadLimit{Target::AtMost, 1.10};
    const Target smallWriteLimit{Target::AtMost, 1.05};
    const Target domLimit{Target::AtLeast, 1.8};
    const Target ahead{Target::AtLeast, 1};
    const QString own = QStringLiteral("Kormak");
    const QStringList alternatives = Names::alternatives();
    const int large = Names::Large;
    const int small = Names::Small;

    Table table(
        QStringLiteral("Ratios; large: a receiver of 10,000 parameters, small: of one"),
        {QStringLiteral(""), QStringLiteral("measured"), QStringLiteral("target"), QStringLiteral("")});
    addRatio(table, QStringLiteral("read large / its tokens"), of(Names::ReadingAlone, own, large),
             of(Names::ReadingAlone, "tokens", large), readLimit);
    addRatio(table, QStringLiteral("write large / replay of the calls"), of(Names::WritingAlone, own, large),
             of(Names::WritingAlone, "replay", large), writeLimit);
    addRatio(table, QStringLiteral("read small / hand-written"), of(Names::ReadingAlone, own, small),
             of(Names::ReadingAlone, alternatives[0], small), smallReadLimit);
    addRatio(table, QStringLiteral("write small / hand-written"), of(Names::WritingAlone, own, small),
             of(Names::WritingAlone, alternatives[0], small), smallWriteLimit);
    for (int i = 1; i < alternatives.size(); ++i) {
        if (i == 2)
            continue; // pugixml is no target; its row is below
        const QString &name = alternatives[i];
        for (const QString &operation : {QStringLiteral("read"), QStringLiteral("write")}) {
            addRatio(table, name + ' ' + operation + QStringLiteral(" large / Kormak"),
                     of(operation, name, large), of(operation, own, large), i == 1 ? domLimit : ahead);
        }
    }
    addRatio(table, QStringLiteral("copy of 1,000,000 / copy of 1,000 parameters"),
             of("copy", own, Names::Most), of("copy", own, Names::Least), GrowthTarget);
    for (const QString &operation : {QStringLiteral("read"), QStringLiteral("write")}) {
        addRatio(table, operation + QStringLiteral(" one of 1,000,000 / one of 1,000 parameters"),
                 of(operation, own, Names::Most), of(operation, own, Names::Least), GrowthTarget,
                 static_cast<double>(Names::Least) / Names::Most);
    }
    for (const char *items : {"entries", "unknown elements", "coordinates"}) {
        addRatio(table, QStringLiteral("read one of 20,000 / one of 2,000 ") + QString::fromLatin1(items),
                 of("read", items, Names::ManyItems), of("read", items, Names::FewItems), GrowthTarget,
                 static_cast<double>(Names::FewItems) / Names::ManyItems);
    }
    table.print();
}

void Report::printAlternatives() const
{
    const QString own = QStringLiteral("Kormak");
    Table table(
        QStringLiteral(
            "A receiver by other means, µs for each parameter (and how many times as long as Kormak)"),
        {QStringLiteral(""), QStringLiteral("read 10,000"), QStringLiteral("write 10,000"),
         QStringLiteral("read 1"), QStringLiteral("write 1")});
    const auto cell = [&](const char *operation, const QString &subject, int size) {
        if (!has(Names::of(QString::fromLatin1(operation), subject, size)))
            return QString();
        const QString name = QString::fromLatin1(operation);
        return QStringLiteral("%1 (%2)").arg(
            figure(medianOf(operation, subject, size) / size / Micro),
            figure(ratio(Names::of(name, subject, size), Names::of(name, own, size))));
    };
    const auto add = [&](const QString &title, const QString &reader, const QString &writer) {
        const QStringList cells{cell("read", reader, Names::Large), cell("write", writer, Names::Large),
                                cell("read", reader, Names::Small), cell("write", writer, Names::Small)};
        if (cells != QStringList{QString(), QString(), QString(), QString()})
            table.add(QStringList{title} + cells);
    };
    if (!hasAll({Names::of("read", own, Names::Large), Names::of("write", own, Names::Large),
                 Names::of("read", own, Names::Small), Names::of("write", own, Names::Small)}))
        return;
    add(QStringLiteral("limit: tokens, replay of the calls"), QStringLiteral("tokens"),
        QStringLiteral("replay"));
    add(QStringLiteral("tokens with attributes and texts"), QStringLiteral("texts"), QString());
    add(own, own, own);
    for (const QString &name : Names::alternatives())
        add(name, name, name);
    table.print();
}

void Report::printKinds() const
{
    Table table(QStringLiteral("Small documents"),
                {QStringLiteral(""), QStringLiteral("read, µs"), QStringLiteral("/ tokens"),
                 QStringLiteral("write, µs"), QStringLiteral("/ replay"), QStringLiteral("check, ns"),
                 QStringLiteral("copy, ns"), QStringLiteral("compare, ns"), QStringLiteral("reset, ns")});
    for (const QString &kind : Names::kinds()) {
        const auto time = [&](const char *operation) { return medianOf(operation, kind, Names::Small); };
        const auto share = [&](const char *operation, const char *limit) {
            return figure(ratio(Names::of(QString::fromLatin1(operation), kind, Names::Small),
                                Names::of(QString::fromLatin1(limit), kind, Names::Small)));
        };
        if (!hasAll({Names::of("read", kind, Names::Small), Names::of("read tokens", kind, Names::Small),
                     Names::of("write", kind, Names::Small), Names::of("write replay", kind, Names::Small),
                     Names::of("check", kind, Names::Small), Names::of("copy", kind, Names::Small),
                     Names::of("compare", kind, Names::Small), Names::of("reset", kind, Names::Small)}))
            continue;
        table.add({kind, figure(time("read") / Micro), share("read", "read tokens"),
                   figure(time("write") / Micro), share("write", "write replay"),
                   figure(time("check") / Nano, 0), figure(time("copy") / Nano, 0),
                   figure(time("compare") / Nano, 0), figure(time("reset") / Nano, 0)});
    }
    table.print();
}

void Report::printGrowth() const
{
    QStringList columns{QStringLiteral("")};
    QVector<int> sizes;
    for (const int size : Names::Sizes) {
        if (has(Names::of("read", "Kormak", size))) {
            sizes << size;
            columns << figure(size, 0);
        }
    }
    columns << QStringLiteral("last / first");
    Table table(
        QStringLiteral(
            "A receiver, by the number of parameters: ns for each, but for a copy, which is ns for all"),
        columns);
    const auto add = [&](const char *operation, const char *subject, const QString &title,
                         bool isForAll = false) {
        QStringList cells{title};
        const auto nameOf = [&](int size) {
            return Names::of(QString::fromLatin1(operation), QString::fromLatin1(subject), size);
        };
        for (const int size : sizes) {
            if (!has(nameOf(size)))
                return;
            cells << figure(median(nameOf(size)) / Nano / (isForAll ? 1 : size), 0);
        }
        if (sizes.isEmpty())
            return;
        const double factor = isForAll ? 1 : static_cast<double>(sizes.first()) / sizes.last();
        table.add(cells << figure(factor * ratio(nameOf(sizes.last()), nameOf(sizes.first()))));
    };
    add("read", "tokens", QStringLiteral("limit of reading: tokens"));
    add("read", "Kormak", QStringLiteral("read"));
    add("write", "replay", QStringLiteral("limit of writing: replay"));
    add("write", "Kormak", QStringLiteral("write"));
    add("compare", "Kormak", QStringLiteral("compare with an equal one"));
    add("look-up", "Kormak", QStringLiteral("look up, in no order"));
    add("write binary", "Kormak", QStringLiteral("write the binary form"));
    add("read binary", "Kormak", QStringLiteral("read the binary form"));
    add("copy", "Kormak", QStringLiteral("copy"), true);
    table.print();
}
