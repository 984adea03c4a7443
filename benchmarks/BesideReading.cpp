#include "BesideReading.h"

#include "Table.h"

#include <inspection/Document.h>

#include <algorithm>
#include <ctime>

namespace {

constexpr int Rounds = 9;

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

} // namespace

void printBesideReading(const QString &title, const QByteArray &text,
                        const std::vector<NamedOperation> &operations)
{
    std::vector<std::vector<double>> seconds(operations.size());
    auto ratios = seconds;
    for (int round = 0; round < Rounds; ++round) {
        const double reading = secondsOf([&text] { (void)KORMAK::Document(text); });
        for (std::size_t i = 0; i < operations.size(); ++i) {
            seconds[i].push_back(secondsOf(operations[i].operation));
            ratios[i].push_back(seconds[i].back() / reading);
        }
    }
    Table table(title, {QStringLiteral(""), QStringLiteral("ms"), QStringLiteral("of reading it")});
    for (std::size_t i = 0; i < operations.size(); ++i)
        table.add({operations[i].name, figure(median(seconds[i]) * 1000, 1), figure(median(ratios[i]), 3)});
    table.print();
}
