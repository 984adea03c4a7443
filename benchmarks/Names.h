// What the measurements are called, for those who take them and those who print them.
#ifndef BENCHMARKS_NAMES_H
#define BENCHMARKS_NAMES_H

#include <QString>
#include <QStringList>

namespace Names {

/// Numbers of parameters.
inline constexpr int Small = 1;
inline constexpr int Large = 10'000;
inline constexpr int Least = 1'000;
inline constexpr int Most = 1'000'000;
inline constexpr int Sizes[] = {Least, Large, 100'000, Most};

/// Numbers of the items that must not cost more when there are many.
inline constexpr int FewItems = 2'000;
inline constexpr int ManyItems = 20'000;

/// Reading and writing with nothing beside them but what they are compared with.
inline constexpr char ReadingAlone[] = "read alone";
inline constexpr char WritingAlone[] = "write alone";

inline QString of(const QString &operation, const QString &subject, int size)
{
    return operation + '/' + subject + '/' + QString::number(size);
}

inline QStringList kinds()
{
    return {QStringLiteral("Job"),
            QStringLiteral("JobHeader"),
            QStringLiteral("AntennaData"),
            QStringLiteral("Area"),
            QStringLiteral("AutomaticWorkflow"),
            QStringLiteral("ActivityGeneration"),
            QStringLiteral("Parameter"),
            QStringLiteral("GenericReceiver")};
}

/// What a program would use instead, by the names that people know.
inline QStringList alternatives()
{
    return {QStringLiteral("hand-written for QXmlStreamReader and -Writer"), QStringLiteral("QDomDocument"),
            QStringLiteral("pugixml"), QStringLiteral("Boost.Serialization"),
            QStringLiteral("CodeSynthesis XSD")};
}

} // namespace Names

#endif
