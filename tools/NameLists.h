// The vocabularies of the library: the values that have names, and the names.
#ifndef KORMAK_TOOLS_NAMELISTS_H
#define KORMAK_TOOLS_NAMELISTS_H

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

struct NameList {
    QStringView name; ///< of the enumeration
    QStringView holds; ///< what its values are
    bool (*isValid)(qint32 value);
    QString (*nameOf)(qint32 value); ///< the name that is read as \a value
    qint32 (*valueOf)(const QString &name); ///< -1: there is no such name
    QString (*writtenAs)(qint32 value); ///< empty: documents do not say it

    [[nodiscard]] QList<qint32> values() const;
    [[nodiscard]] const QStringList &names() const; ///< in the order of the values; only of allNameLists()
    /// How what is written differs from the name, in parentheses behind a blank; empty when it does not.
    [[nodiscard]] QString difference(qint32 value) const;
};

extern const NameList JobTypes;
extern const NameList SubjobTypes;
extern const NameList ConnectableResourceTypes;
extern const NameList ResourceTypes;
extern const NameList Polarizations;
extern const NameList WorkflowModes;
extern const NameList SearchStrategies;
extern const NameList GenerationModes;
extern const NameList EnergyChannels;
extern const NameList DatabaseWriteModes;
extern const NameList ActiveCriteria;
extern const NameList ParameterTypes;
extern const NameList ValueTypes;
extern const NameList ControlTypes;
extern const NameList TypesOfObject;

/// All of the above.
[[nodiscard]] const QList<const NameList *> &allNameLists();
/// What they are called.
[[nodiscard]] QStringList nameListNames();

#endif
