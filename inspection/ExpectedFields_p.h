// What a changed document is to say: what was asked and nothing else.
#ifndef KORMAK_INSPECTION_EXPECTEDFIELDS_P_H
#define KORMAK_INSPECTION_EXPECTEDFIELDS_P_H

#include <inspection/Finding.h>
#include <inspection/HeldFields_p.h>

#include <QSet>
#include <QString>
#include <QVector>

#include <map>
#include <set>

namespace KORMAK::Inspection {

class ExpectedFields {
public:
    /// With everything set, and nothing unset yet.
    explicit ExpectedFields(HeldFields all) : fields(std::move(all)) { }

    /// What is at \a path, a field or an object, is removed.
    void unset(const QString &path);
    /// An element of a list is removed; those behind it move up.
    void unsetElement(const QString &path);

    /// What is read otherwise, as errors.
    [[nodiscard]] QVector<Finding> differencesTo(const HeldFields &read) const;

private:
    [[nodiscard]] bool isUnset(const QString &path) const;
    [[nodiscard]] bool mayBeAnything(const QString &path) const;
    [[nodiscard]] QString movedUp(const QString &path) const;

    HeldFields fields;
    QSet<QString> unsetPaths;
    std::map<QString, std::set<int>> removed; ///< elements, by the path of their list
};

} // namespace KORMAK::Inspection

#endif
