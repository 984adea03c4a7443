// A fixed workload for callgrind, which counts the instructions of each operation and writes the counts to
// files of their own; scripts/instructions compares them.
#include "Documents.h"
#include "Limits.h"

#include <kormak/ActivityGenerationData.h>
#include <kormak/AutomaticWorkflow.h>
#include <kormak/GenericReceiver.h>
#include <kormak/Job.h>
#include <objectbase/Area.h>

#include <QDebug>

#include <cstdlib>
#include <valgrind/callgrind.h>

namespace {

void require(bool holds, const char *what)
{
    if (!holds)
        qFatal("The workload is wrong: %s", what);
}

/// Counts \a operation, which has been done before, so that nothing is initialised any more.
template <class Operation>
void count(const QString &name, Operation operation)
{
    operation();
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_ZERO_STATS;
    operation();
    CALLGRIND_DUMP_STATS_AT(qPrintable(name));
    CALLGRIND_STOP_INSTRUMENTATION;
}

/// Has the compiler believe that \a value is looked at.
template <class Value>
void keep(const Value &value)
{
    asm volatile("" : : "r"(&value) : "memory");
}

/// What is short is done so often.
constexpr int Repetitions = 50;

/// The operations that all documents have. Documents are read and written \a repetitions times.
template <class Document>
void countDocument(const QString &name, const QString &input, int repetitions = Repetitions)
{
    const auto countTimes = [&name](const char *operation, int times, auto call) {
        count(name + ' ' + operation, [&] {
            for (int i = 0; i < times; ++i)
                call();
        });
    };
    const auto countEach = [&](const char *operation, auto call) {
        countTimes(operation, repetitions, call);
    };
    const auto countLight = [&](const char *operation, auto call) {
        countTimes(operation, Repetitions, call);
    };

    Document document;
    require(document.SetXmlString(input, true) && document.HasData(), "the document is not complete");
    const QString output = document.GetXmlString();
    const Limits::Calls calls(output);
    require(calls.replay() == output, "the replay writes another document");
    countEach("tokens", [&] { require(Limits::readTokens(input) > 0, "no tokens"); });
    countEach("replay", [&] { require(!calls.replay().isEmpty(), "nothing is replayed"); });

    countEach("read", [&] {
        Document read;
        require(read.SetXmlString(input, true), "the document is refused");
    });
    countEach("write", [&] { require(!document.GetXmlString().isEmpty(), "nothing is written"); });
    countLight("check", [&] {
        document.Check();
        require(document.HasData(), "the document is not complete");
    });
    Document same;
    require(same.SetXmlString(input, true), "the document is refused");
    countLight("copy", [&] { keep(Document(document)); });
    countLight("compare", [&] { require(same == document, "the same is different"); });
    countLight("reset", [&] {
        Document other(document);
        other.Reset();
        keep(other);
    });
}

void countParameters(const QString &input)
{
    KORMAK::GenericReceiver receiver;
    require(receiver.SetXmlString(input, true), "the receiver is refused");
    const QStringList names = receiver.GetParameterList().keys();
    count("receiver look-up", [&] {
        for (const QString &name : names)
            require(receiver.GetParameter(name).GetUniqueParameterName() == name, "another parameter");
    });
    count("receiver binary", [&] {
        QByteArray form = receiver.GetBinaryRepresentationAsQByteArray();
        KORMAK::GenericReceiver read;
        require(read.SetBinaryRepresentation(form), "the binary form is refused");
    });
}

} // namespace

int main()
{
    constexpr int Parameters = 270;

    countDocument<KORMAK::GenericReceiver>("receiver", Documents::receiver(Parameters), 1);
    countParameters(Documents::receiver(Parameters));
    countDocument<KORMAK::Parameter>("parameter", Documents::parameter());
    countDocument<KORMAK::Job>("job", Documents::job());
    countDocument<KORMAK::JobHeader>("job header", Documents::jobHeader());
    countDocument<TESSEL::AntennaData>("antenna", Documents::antennaData());
    countDocument<TESSEL::Area>("area", Documents::area(20));
    countDocument<KORMAK::AutomaticWorkflow>("automatic workflow", Documents::automaticWorkflow());
    countDocument<KORMAK::ActivityGenerationData>("activity generation", Documents::activityGeneration());
}
