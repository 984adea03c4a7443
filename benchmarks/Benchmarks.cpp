// Takes the times; Report prints them. Before it is timed, each alternative must give the fields and the
// document that the library gives.
#include "Alternatives.h"
#include "Documents.h"
#include "Limits.h"
#include "Names.h"
#include "Report.h"

#include <kormak/ActivityGenerationData.h>
#include <kormak/AutomaticWorkflow.h>
#include <kormak/GenericReceiver.h>
#include <kormak/Job.h>
#include <objectbase/Area.h>

#include <QDebug>

#include <algorithm>
#include <cstring>
#include <functional>
#include <malloc.h>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <utility>

namespace {

using KORMAK::GenericReceiver;

void require(bool holds, const QString &what)
{
    if (!holds)
        qFatal("Not to be compared: %s", qPrintable(what));
}

template <class Document>
Document readDocument(const QString &text)
{
    Document document;
    require(document.SetXmlString(text, true), document.GetObjectName() + QStringLiteral(" is refused"));
    return document;
}

/// A receiver of a size with all that is measured on it, made when it is first asked for.
struct Sample {
    explicit Sample(int parameters)
        : input(Documents::receiver(parameters)), receiver(readDocument<GenericReceiver>(input)),
          same(readDocument<GenericReceiver>(input)), calls(receiver.GetXmlString()),
          names(receiver.GetParameterList().keys())
    {
        require(receiver.HasData(), QStringLiteral("an incomplete receiver"));
        require(calls.replay() == receiver.GetXmlString(), QStringLiteral("replay"));
        constexpr unsigned int Seed = 1;
        std::shuffle(names.begin(), names.end(), std::mt19937(Seed));
    }

    QString input;
    GenericReceiver receiver;
    GenericReceiver same;
    Limits::Calls calls;
    QStringList names; ///< of the parameters, in no order
};

const Sample &sample(int parameters)
{
    static std::map<int, Sample> samples;
    return samples.try_emplace(parameters, parameters).first->second;
}

/// Times \a operation after \a prepare has been called once.
void measure(
    const QString &name, std::function<void()> operation, std::function<void()> prepare = [] {})
{
    benchmark::RegisterBenchmark(name.toStdString().c_str(),
                                 [operation = std::move(operation), prepare = std::move(prepare),
                                  isPrepared = std::make_shared<bool>()](benchmark::State &state) {
                                     if (!std::exchange(*isPrepared, true))
                                         prepare();
                                     for ([[maybe_unused]] auto step : state)
                                         operation();
                                 });
}

/// Times an operation on a receiver.
void measureReceiver(
    const char *operationName, const char *subject, int size, std::function<void()> operation,
    std::function<void()> prepare = [] {})
{
    measure(Names::of(operationName, subject, size), std::move(operation),
            [size, prepare = std::move(prepare)] {
                (void)sample(size);
                prepare();
            });
}

template <class Value>
void keep(Value &&value)
{
    benchmark::DoNotOptimize(value);
}

/// A function that gives what \a make gives, which is called once, when the result is first asked for.
template <class Make>
auto lazily(Make make)
{
    using Value = decltype(make());
    return [make, value = std::make_shared<std::optional<Value>>()]() -> Value & {
        if (!*value)
            *value = make();
        return **value;
    };
}

/// Reading and writing, each beside its limit.
void measureConversion(int size, const char *reading = "read", const char *writing = "write")
{
    measureReceiver(reading, "tokens", size, [size] { keep(Limits::readTokens(sample(size).input)); });
    measureReceiver(reading, "Kormak", size,
                    [size] { keep(readDocument<GenericReceiver>(sample(size).input)); });
    measureReceiver(writing, "replay", size, [size] { keep(sample(size).calls.replay()); });
    measureReceiver(writing, "Kormak", size, [size] { keep(sample(size).receiver.GetXmlString()); });
}

void measureUse(int size)
{
    measureReceiver("copy", "Kormak", size, [size] { keep(GenericReceiver(sample(size).receiver)); });
    measureReceiver("compare", "Kormak", size, [size] { keep(sample(size).same == sample(size).receiver); });
    measureReceiver("look-up", "Kormak", size, [size] {
        for (const QString &name : sample(size).names)
            keep(sample(size).receiver.GetParameter(name));
    });
}

void measureBinary(int size)
{
    measureReceiver("write binary", "Kormak", size, [size] {
        keep(GenericReceiver(sample(size).receiver).GetBinaryRepresentationAsQByteArray());
    });
    const auto form = lazily(
        [size] { return GenericReceiver(sample(size).receiver).GetBinaryRepresentationAsQByteArray(); });
    measureReceiver(
        "read binary", "Kormak", size,
        [form] {
            GenericReceiver receiver;
            require(receiver.SetBinaryRepresentation(form()), QStringLiteral("a binary form"));
            keep(receiver);
        },
        [form] { (void)form(); });
}

/// One way to read and write a receiver. \a Text is what it works on.
template <class Text, class Result>
void measureAlternative(const QString &name, int size, Text (*inputOf)(const Sample &),
                        Result (*read)(const Text &), Text (*write)(const Lean::Receiver &),
                        const char *reading = "read", const char *writing = "write")
{
    const auto input = lazily([=] { return inputOf(sample(size)); });
    measure(
        Names::of(reading, name, size), [=] { keep(read(input())); }, [=] { (void)input(); });
    const auto receiver = lazily([=] { return Lean::receiverOf(sample(size).receiver); });
    measure(
        Names::of(writing, name, size), [=] { keep(write(receiver())); }, [=] { (void)receiver(); });
}

QString text(const Sample &sample)
{
    return sample.input;
}

[[maybe_unused]] std::string utf8(const Sample &sample)
{
    return sample.input.toStdString();
}

/// That \a read and \a write do what the library does.
template <class Text, class Read, class Write>
void compare(const QString &name, const Sample &sample, const Text &input, Read read, Write write)
{
    const Lean::Receiver receiver = Lean::receiverOf(sample.receiver);
    require(read(input) == receiver, name + QStringLiteral(" reads other fields"));
    const Text written = write(receiver);
    QString document;
    if constexpr (std::is_same_v<Text, QString>)
        document = written;
    else
        document = QString::fromStdString(written);
    require(Lean::contentOf(document) == Lean::contentOf(sample.receiver.GetXmlString()),
            name + QStringLiteral(" writes otherwise"));
}

void measureAlternatives(int size)
{
    measureReceiver("read", "texts", size, [size] { keep(Limits::readTexts(sample(size).input)); });

    const QStringList names = Names::alternatives();

    compare(names[0], sample(size), sample(size).input, HandWritten::read, HandWritten::write);
    require(HandWritten::write(Lean::receiverOf(sample(size).receiver))
                == sample(size).receiver.GetXmlString(),
            QStringLiteral("the hand-written document"));
    measureAlternative(names[0], size, text, HandWritten::read, HandWritten::write);
#ifdef HAVE_DOM
    compare(names[1], sample(size), sample(size).input, Dom::read, Dom::write);
    measureAlternative(names[1], size, text, Dom::read, Dom::write);
#endif
#ifdef HAVE_PUGIXML
    compare(names[2], sample(size), utf8(sample(size)), Pugixml::read, Pugixml::write);
    measureAlternative(names[2], size, utf8, Pugixml::read, Pugixml::write);
#endif
#ifdef HAVE_BOOST
    const auto archived = [](const Sample &s) { return BoostArchive::write(Lean::receiverOf(s.receiver)); };
    require(BoostArchive::read(archived(sample(size))) == Lean::receiverOf(sample(size).receiver),
            QStringLiteral("the archive"));
    measureAlternative<std::string, Lean::Receiver>(names[3], size, archived, BoostArchive::read,
                                                    BoostArchive::write);
#endif
#ifdef HAVE_XSD
    static const XsdTree::Library library;
    static std::map<int, std::string> inputs;
    static std::map<int, XsdTree::Owned> trees; // of what the library writes
    inputs[size] = utf8(sample(size));
    trees[size] = XsdTree::read(sample(size).receiver.GetXmlString().toStdString());
    require(XsdTree::receiverOf(*XsdTree::read(inputs[size])) == Lean::receiverOf(sample(size).receiver),
            QStringLiteral("the generated classes read other fields"));
    require(Lean::contentOf(QString::fromStdString(XsdTree::write(*trees[size])))
                == Lean::contentOf(sample(size).receiver.GetXmlString()),
            QStringLiteral("the generated classes write otherwise"));
    measure(Names::of("read", names[4], size), [size] { keep(XsdTree::read(inputs[size])); });
    measure(Names::of("write", names[4], size), [size] { keep(XsdTree::write(*trees[size])); });
#endif
}

template <class Document>
void measureKind(const QString &kind, const QString &input)
{
    const auto document = readDocument<Document>(input);
    const auto same = readDocument<Document>(input);
    const QString output = document.GetXmlString();
    const Limits::Calls calls(output);
    require(document.HasData() && same == document, kind + QStringLiteral(" is not what it should be"));
    require(calls.replay() == output, kind + QStringLiteral(" is replayed otherwise"));

    const auto measureOne = [&kind](const QString &operation, auto call) {
        measure(Names::of(operation, kind, Names::Small), call);
    };
    measureOne("read tokens", [input] { keep(Limits::readTokens(input)); });
    measureOne("read", [input] { keep(readDocument<Document>(input)); });
    measureOne("write replay", [calls] { keep(calls.replay()); });
    measureOne("write", [document] { keep(document.GetXmlString()); });
    measureOne("check", [document] {
        document.Check();
        keep(document.HasData());
    });
    measureOne("copy", [document] { keep(Document(document)); });
    measureOne("compare", [document, same] { keep(same == document); });
    Document changed(document);
    measureOne("reset", [changed]() mutable {
        changed.Reset();
        keep(changed);
    });
}

void measureKinds()
{
    const QStringList kinds = Names::kinds();
    measureKind<KORMAK::Job>(kinds[0], Documents::job());
    measureKind<KORMAK::JobHeader>(kinds[1], Documents::jobHeader());
    measureKind<TESSEL::AntennaData>(kinds[2], Documents::antennaData());
    measureKind<TESSEL::Area>(kinds[3], Documents::area(3));
    measureKind<KORMAK::AutomaticWorkflow>(kinds[4], Documents::automaticWorkflow());
    measureKind<KORMAK::ActivityGenerationData>(kinds[5], Documents::activityGeneration());
    measureKind<KORMAK::Parameter>(kinds[6], Documents::parameter());
    measureKind<GenericReceiver>(kinds[7], Documents::receiver(Names::Small));
}

/// malloc keeps what is freed. Otherwise what is timed is the system, which takes the memory of a large
/// document back and hands it out again, page by page.
void keepHeap()
{
    constexpr int Never = -1;
    mallopt(M_TRIM_THRESHOLD, Never);
    mallopt(M_MMAP_MAX, 0);
}

void measureItems()
{
    for (const int items : {Names::FewItems, Names::ManyItems}) {
        measure(Names::of("read", "entries", items),
                [text = Documents::enumeration(items)] { keep(readDocument<GenericReceiver>(text)); });
        measure(Names::of("read", "unknown elements", items),
                [text = Documents::unknownElements(items)] { keep(readDocument<GenericReceiver>(text)); });
        measure(Names::of("read", "coordinates", items),
                [text = Documents::area(items)] { keep(readDocument<TESSEL::Area>(text)); });
    }
}

/// Runs what \a registerAll registers, all of it once in each round.
void runRounds(int rounds, Report &report, const std::function<void()> &registerAll)
{
    benchmark::ClearRegisteredBenchmarks();
    registerAll();
    for (int i = 0; i < rounds; ++i) {
        report.startRound();
        if (benchmark::RunSpecifiedBenchmarks(&report) == 0)
            return; // what is asked for is not among them
    }
}

} // namespace

int main(int argc, char *argv[])
{
    keepHeap();
    std::vector<char *> arguments(argv, argv + argc);
    const auto quick = std::find_if(arguments.begin(), arguments.end(), [](const char *argument) {
        return std::strcmp(argument, "--quick") == 0;
    });
    const bool isQuick = quick != arguments.end();
    if (isQuick)
        arguments.erase(quick);

    // What stands on the command line comes later and prevails.
    std::string time = isQuick ? "--benchmark_min_time=0.01" : "--benchmark_min_time=0.05";
    arguments.insert(arguments.begin() + 1, time.data());
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        return EXIT_FAILURE;

    Report report;
    // First, while the heap is in order, and often: on a busy machine single rounds differ by more than the
    // two that are compared.
    runRounds(isQuick ? 15 : 151, report, [] {
        for (const int size : {Names::Large, Names::Small})
            measureConversion(size, Names::ReadingAlone, Names::WritingAlone);
        const QString handWritten = Names::alternatives().first();
        compare(handWritten, sample(Names::Small), sample(Names::Small).input, HandWritten::read,
                HandWritten::write);
        measureAlternative(handWritten, Names::Small, text, HandWritten::read, HandWritten::write,
                           Names::ReadingAlone, Names::WritingAlone);
    });
    runRounds(isQuick ? 3 : 15, report, [] {
        measureKinds();
        for (const int size : {Names::Small, Names::Large}) {
            measureConversion(size);
            measureUse(size);
            measureAlternatives(size);
        }
        measureItems();
    });
    // Last, as a heap that once held a million parameters is scattered.
    const int most = isQuick ? Names::Large : Names::Most;
    runRounds(isQuick ? 3 : 5, report, [most] {
        for (const int size : Names::Sizes) {
            if (size > most || (size == Names::Large && size < most)) // that is measured above
                continue;
            measureConversion(size);
            measureUse(size);
        }
    });
    runRounds(1, report, [most] {
        for (const int size : Names::Sizes) {
            if (size <= most)
                measureBinary(size);
        }
    });
    report.print();
}
