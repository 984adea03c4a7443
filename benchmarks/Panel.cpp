// What people wait for until they see the parameters of a receiver of 10,000, beside reading it for
// inspection. Medians of the processor time and of the ratios of several rounds.

#include "Documents.h"
#include "Names.h"
#include "Table.h"

#include <inspection/Document.h>
#include <models/OpenDocument.h>
#include <widgets/ReceiverPanel.h>

#include <QApplication>
#include <QPixmap>

#include <algorithm>
#include <ctime>
#include <functional>
#include <vector>

namespace {

using namespace KORMAK;

constexpr int Rounds = 9;
constexpr QSize Size(900, 700);

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

struct Measured {
    QString name;
    std::function<void()> operation;
    std::vector<double> seconds = {};
    std::vector<double> ratios = {};
};

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QByteArray text = Documents::receiver(Names::Large).toUtf8();
    OpenDocument document;
    document.SetText(text);
    ReceiverPanel open(document);
    open.resize(Size);
    open.grab();
    std::vector<Measured> all{{QStringLiteral("panel, made and drawn"),
                               [&document] {
                                   ReceiverPanel panel(document);
                                   panel.resize(Size);
                                   panel.grab();
                               }},
                              {QStringLiteral("search, and drawn"),
                               [&open] {
                                   open.SetSearch(QStringLiteral("gain"));
                                   open.grab();
                                   open.SetSearch({});
                                   open.grab();
                               }},
                              {QStringLiteral("drawn again"), [&open] { open.grab(); }}};
    for (int round = 0; round < Rounds; ++round) {
        const double reading = secondsOf([&text] { (void)Document(text); });
        for (Measured &one : all) {
            one.seconds.push_back(secondsOf(one.operation));
            one.ratios.push_back(one.seconds.back() / reading);
        }
    }

    Table table(QStringLiteral("A panel of a receiver of 10,000 parameters, beside Document(text)"),
                {QStringLiteral(""), QStringLiteral("ms"), QStringLiteral("of reading it")});
    for (const Measured &one : all)
        table.add({one.name, figure(median(one.seconds) * 1000, 1), figure(median(one.ratios), 3)});
    table.print();
}
