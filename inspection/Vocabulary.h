#ifndef KORMAK_INSPECTION_VOCABULARY_H
#define KORMAK_INSPECTION_VOCABULARY_H

#include <inspection/inspection_export.h>

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

QT_BEGIN_NAMESPACE
class QDebug;
QT_END_NAMESPACE

namespace KORMAK {

namespace Inspection {
struct NameList;
struct VocabularyMaker;
} // namespace Inspection

/// The names that the values of an enumeration of the library have in documents, such as the types of a job.
///
/// \snippet docs/InspectionSnippetsTest.cpp Vocabulary
class INSPECTION_EXPORT Vocabulary {
public:
    /// A value and its names.
    ///
    /// \snippet docs/InspectionSnippetsTest.cpp Entry
    struct Entry {
        qint32 value = -1; ///< as the enumeration numbers it
        QString name; ///< what is read as the value
        QString written; ///< what is written for the value; empty: documents never say it

        /// All three are equal.
        [[nodiscard]] bool operator==(const Entry &other) const
        {
            return value == other.value && name == other.name && written == other.written;
        }
        [[nodiscard]] bool operator!=(const Entry &other) const { return !(*this == other); }
    };

    /// No vocabulary.
    Vocabulary() = default;

    /// Whether it is none: what is not found, or a field that holds no name.
    [[nodiscard]] bool IsNull() const noexcept { return !list; }
    /// The name of the enumeration; empty for none.
    [[nodiscard]] QString GetName() const;
    /// What its values are, in a few words for people; empty for none.
    [[nodiscard]] QString GetDescription() const;
    /// In the order of the values; empty for none.
    [[nodiscard]] QVector<Entry> GetEntries() const;
    /// The names alone, in the same order.
    [[nodiscard]] QStringList GetNames() const;

    /// The entries in JSON: a list of objects with value, name and written, which is null for what documents
    /// never say.
    [[nodiscard]] QByteArray GetJson() const;

    /// It is the same vocabulary.
    [[nodiscard]] bool operator==(const Vocabulary &other) const noexcept { return list == other.list; }
    [[nodiscard]] bool operator!=(const Vocabulary &other) const noexcept { return !(*this == other); }

private:
    friend struct Inspection::VocabularyMaker;

    const Inspection::NameList *list = nullptr;
};

/// All vocabularies of the library.
[[nodiscard]] INSPECTION_EXPORT QVector<Vocabulary> GetVocabularies();

/// The vocabulary called \a name, such as "JobType"; none when there is no such one.
[[nodiscard]] INSPECTION_EXPORT Vocabulary FindVocabulary(const QString &name);

/// Writes the name of the vocabulary.
INSPECTION_EXPORT QDebug operator<<(QDebug debug, const Vocabulary &vocabulary);

} // namespace KORMAK

#endif
