// What a receiver description takes of the heap, for the library and for the alternatives.
#include "Allocations.h"
#include "Alternatives.h"
#include "Documents.h"
#include "Limits.h"
#include "Table.h"

#include <kormak/GenericReceiver.h>

#include <QDebug>

#include <cstdio>

namespace {

struct Use {
    double blocksTaken;
    double blocksHeld;
    double bytesHeld;
};

/// What \a read takes, and what its result holds, for each of \a parameters. It is done twice, since the
/// first time takes what is taken once for all.
template <class Read>
Use useOf(int parameters, Read read)
{
    (void)read();
    const Allocations::Counts before = Allocations::now();
    [[maybe_unused]] const auto result = read();
    const Allocations::Counts after = Allocations::now();
    const auto each = [parameters](long long count) { return static_cast<double>(count) / parameters; };
    return {each(after.taken - before.taken), each(after.held - before.held),
            each(after.bytes - before.bytes)};
}

KORMAK::GenericReceiver readReceiver(const QString &document)
{
    KORMAK::GenericReceiver receiver;
    if (!receiver.SetXmlString(document, true) || !receiver.HasData())
        qFatal("The receiver is refused");
    return receiver;
}

void addTo(Table &table, const QString &name, const Use &use)
{
    table.add({name, figure(use.bytesHeld, 0), figure(use.blocksHeld, 1), figure(use.blocksTaken, 1)});
}

} // namespace

int main()
{
    constexpr int Parameters = 10'000;
    const QString document = Documents::receiver(Parameters);
    const std::string utf8 = document.toStdString();
    const QString uniqueDocument = Documents::receiverOfUniqueTexts(Parameters);
    const Use own = useOf(Parameters, [&document] { return readReceiver(document); });
    const Use unique = useOf(Parameters, [&uniqueDocument] { return readReceiver(uniqueDocument); });
    const Use tokens = useOf(Parameters, [&document] { return Limits::readTokens(document); });

    Table targets(
        QStringLiteral("Heap for each parameter of a receiver with 10,000"),
        {QStringLiteral(""), QStringLiteral("measured"), QStringLiteral("target"), QStringLiteral("")});
    targets.add(QStringLiteral("bytes held"), own.bytesHeld, {Target::AtMost, 950}, 0);
    targets.add(QStringLiteral("bytes held when no text recurs"), unique.bytesHeld, {Target::AtMost, 1050},
                0);
    targets.add(QStringLiteral("blocks held"), own.blocksHeld, {Target::AtMost, 10}, 1);
    targets.add(QStringLiteral("blocks taken on reading"), own.blocksTaken, {Target::AtMost, 10}, 1);
    targets.add({QStringLiteral("of these by its tokens alone"), figure(tokens.blocksTaken, 1)});
    targets.print();
    std::printf("\nsizeof(Parameter) is %zu.\n", sizeof(KORMAK::Parameter));

    Table table(QStringLiteral("Beside others"),
                {QStringLiteral(""), QStringLiteral("bytes held"), QStringLiteral("blocks held"),
                 QStringLiteral("blocks taken on reading")});
    addTo(table, QStringLiteral("Kormak"), own);
    addTo(table, QStringLiteral("hand-written for QXmlStreamReader"),
          useOf(Parameters, [&document] { return HandWritten::read(document); }));
#ifdef HAVE_DOM
    addTo(table, QStringLiteral("QDomDocument"),
          useOf(Parameters, [&document] { return Dom::read(document); }));
#endif
#ifdef HAVE_PUGIXML
    addTo(table, QStringLiteral("pugixml"), useOf(Parameters, [&utf8] { return Pugixml::read(utf8); }));
#endif
#ifdef HAVE_BOOST
    const std::string archive = BoostArchive::write(HandWritten::read(document));
    addTo(table, QStringLiteral("Boost.Serialization"),
          useOf(Parameters, [&archive] { return BoostArchive::read(archive); }));
#endif
#ifdef HAVE_XSD
    const XsdTree::Library library;
    addTo(table, QStringLiteral("CodeSynthesis XSD"),
          useOf(Parameters, [&utf8] { return XsdTree::read(utf8); }));
#endif
    table.print();

    Table growth(
        QStringLiteral("Bytes held for each parameter, by the number of parameters"),
        {QStringLiteral("parameters"), QStringLiteral("bytes held"), QStringLiteral("blocks taken")});
    for (const int parameters : {1, 1'000, 10'000, 100'000}) {
        const QString text = Documents::receiver(parameters);
        const Use use = useOf(parameters, [&text] { return readReceiver(text); });
        growth.add({figure(parameters, 0), figure(use.bytesHeld, 0), figure(use.blocksTaken, 1)});
    }
    growth.print();
}
