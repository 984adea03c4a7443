#ifndef KORMAK_VOCABULARYNAMES_H
#define KORMAK_VOCABULARYNAMES_H

#include <QStringList>

#include <utility>

namespace KORMAK {

/// \cond
/// The names of a vocabulary as a member of an object. They never change, so that copies share one list and
/// assignment leaves it, and references to its names, alone.
class VocabularyNames {
public:
    explicit VocabularyNames(QStringList list) : names(std::move(list)) { }
    VocabularyNames(const VocabularyNames &other) = default;
    VocabularyNames &operator=(const VocabularyNames & /*other*/) noexcept { return *this; }
    ~VocabularyNames() = default;

    [[nodiscard]] const QStringList &list() const noexcept { return names; }
    [[nodiscard]] const QString &at(int index) const { return names.at(index); }

private:
    QStringList names;
};
/// \endcond

} // namespace KORMAK

#endif
