// Collects what the benchmarks measure and prints it as tables.
#ifndef BENCHMARKS_REPORT_H
#define BENCHMARKS_REPORT_H

#include "Table.h"

#include <QMap>

#include <benchmark/benchmark.h>

class Report final : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context &context) override;
    void ReportRuns(const std::vector<Run> &runs) override;

    /// What is reported from now on is measured together. Ratios are those of one round, so that what slows
    /// the machine down for longer slows both sides.
    void startRound() { ++round; }

    /// Prints what there are measurements for.
    void print() const;

private:
    [[nodiscard]] bool has(const QString &name) const { return times.contains(name); }
    /// The median of the rounds, in seconds of processor time.
    [[nodiscard]] double median(const QString &name) const;
    [[nodiscard]] double medianOf(const char *operation, const QString &subject, int size) const;
    /// The median of the ratios in the rounds that have both.
    [[nodiscard]] double ratio(const QString &numerator, const QString &denominator) const;
    [[nodiscard]] bool hasAll(const QStringList &names) const;

    void printMachine() const;
    void printTargets() const;
    void printAlternatives() const;
    void printKinds() const;
    void printGrowth() const;

    void addRatio(Table &table, const QString &title, const QString &numerator, const QString &denominator,
                  const Target &target, double factor = 1) const;

    int round = 0;
    QMap<QString, QMap<int, double>> times; ///< by name and round
};

#endif
