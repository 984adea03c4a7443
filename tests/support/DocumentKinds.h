// The kinds of documents. A new kind is a row of Kinds: tests and fuzzers that deal with every kind take it
// from there.
#ifndef KORMAK_DOCUMENTKINDS_H
#define KORMAK_DOCUMENTKINDS_H

#include <kormak/ActivityGenerationData.h>
#include <kormak/AutomaticWorkflow.h>
#include <kormak/GenericReceiver.h>
#include <kormak/Job.h>
#include <objectbase/Area.h>
#include <tests/support/Objects.h>
#include <tests/support/WholeDocuments.h>

#include <QStringList>

#include <memory>
#include <stdexcept>
#include <tuple>

namespace TestSupport {

template <class DocumentClass>
struct Kind {
    using Document = DocumentClass;
    const char *name; ///< of objects, root elements and schemas
    QString (*whole)(); ///< a document in which everything occurs that is read
};

/// By name.
inline constexpr auto Kinds =
    std::make_tuple(Kind<KORMAK::ActivityGenerationData>{"ActivityGeneration", wholeActivityGeneration},
                    Kind<TESSEL::AntennaData>{"AntennaData", wholeAntennaData}, //
                    Kind<TESSEL::Area>{"Area", wholeArea},
                    Kind<KORMAK::AutomaticWorkflow>{"AutomaticWorkflow", wholeAutomaticWorkflow},
                    Kind<KORMAK::GenericReceiver>{"GenericReceiver", wholeGenericReceiver},
                    Kind<KORMAK::Job>{"Job", wholeJob}, //
                    Kind<KORMAK::JobHeader>{"JobHeader", wholeJobHeader},
                    Kind<KORMAK::Parameter>{"Parameter", wholeParameter});

/// Calls \a call with each kind.
template <class Call>
void forEachKind(Call call)
{
    std::apply([&call](const auto &...kind) { (call(kind), ...); }, Kinds);
}

/// Calls \a call with the kind called \a name.
/// \throws std::invalid_argument when there is none.
template <class Call>
void forKind(const QString &name, Call call)
{
    bool isKnown = false;
    forEachKind([&](const auto &kind) {
        if (name == QLatin1String(kind.name)) {
            isKnown = true;
            call(kind);
        }
    });
    if (!isKnown)
        throw std::invalid_argument(name.toStdString());
}

/// The names of the kinds.
inline QStringList kinds()
{
    QStringList names;
    forEachKind([&names](const auto &kind) { names << kind.name; });
    return names;
}

inline std::unique_ptr<TESSEL::ITesselObject> newObject(const QString &kindName)
{
    std::unique_ptr<TESSEL::ITesselObject> object;
    forKind(kindName,
            [&object](auto kind) { object = std::make_unique<typename decltype(kind)::Document>(); });
    return object;
}

inline QString wholeDocument(const QString &kindName)
{
    QString document;
    forKind(kindName, [&document](const auto &kind) { document = kind.whole(); });
    return document;
}

} // namespace TestSupport

#endif
