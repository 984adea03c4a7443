#ifndef KORMAK_INSPECTION_FIELD_H
#define KORMAK_INSPECTION_FIELD_H

#include <inspection/inspection_export.h>
#include <inspection/Vocabulary.h>

#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>

QT_BEGIN_NAMESPACE
class QDebug;
QT_END_NAMESPACE

namespace KORMAK {

namespace Inspection {
struct FieldMaker;
} // namespace Inspection

/// A field of a document as it was when it was asked for: what it may hold and what it holds. A value; copies
/// share their data.
///
/// \snippet docs/InspectionSnippetsTest.cpp Field
class INSPECTION_EXPORT Field {
public:
    /// What the values of a field are.
    enum class Type : qint32 {
        Text,
        Boolean,
        Integer, ///< a whole number of up to 64 bits
        Float, ///< a number in single precision
        Double, ///< a number in double precision
        DateTime, ///< in UTC, to the millisecond
        Name, ///< of a vocabulary
    };

    /// Whether a document is complete without it.
    enum class Requirement : qint32 {
        None, ///< it is
        Sometimes, ///< it depends on other fields
        Always, ///< it is not
    };

    /// A field without a path, which holds nothing.
    Field();

    /// How it is called: "JobHeader.Author", "Area.Coordinate[0].Latitude",
    /// "Parameter[Gain].Integer.Minimum". Joined by points are the names of elements and attributes or, where
    /// documents have none, of getters. In a name between brackets, \\ and ] stand behind a \\.
    [[nodiscard]] QString GetPath() const;
    /// What it is, for people: "Minimum frequency".
    [[nodiscard]] QString GetLabel() const;
    /// What its values are.
    [[nodiscard]] Type GetType() const noexcept;
    /// The unit of its values, such as "Hz"; empty when there is none.
    [[nodiscard]] QString GetUnit() const;

    /// The least value that an Integer may be set to; 0 for other types.
    [[nodiscard]] qint64 GetMinimum() const noexcept;
    /// The greatest value that an Integer may be set to; 0 for other types.
    [[nodiscard]] qint64 GetMaximum() const noexcept;
    /// The vocabulary of a Name; none for other types.
    [[nodiscard]] Vocabulary GetVocabulary() const;
    /// The texts that it may be set to; empty when they cannot be listed.
    [[nodiscard]] QStringList GetAllowed() const;
    /// What it may be set to, for people: "whole number from 1 to 23", "number in Hz".
    [[nodiscard]] QString GetAllowedInWords() const;

    /// Whether Document::SetField() can set it. Some values may be refused all the same.
    [[nodiscard]] bool IsSettable() const noexcept;
    /// Whether the text of a document can hold it: what is set otherwise is not written, and DocumentEdit
    /// refuses it.
    [[nodiscard]] bool IsInDocuments() const noexcept;
    /// Whether it must be set for a document to be complete.
    [[nodiscard]] Requirement GetRequirement() const noexcept;
    /// Whether it holds a value.
    [[nodiscard]] bool IsSet() const noexcept;
    /// Exactly what it holds, as QString (Text, Name), bool, qint64, float, double or QDateTime; invalid when
    /// it is not set. A value that its vocabulary has no name for, which an object may hold, is a qint64.
    [[nodiscard]] QVariant GetValue() const;
    /// What it holds, as Document::SetField() takes it: numbers with as many digits as tell them apart from
    /// all others, dates as documents have them; empty when it is not set.
    [[nodiscard]] QString GetText() const;
    /// What \a value says, as Document::SetField() takes it; texts stay as they are.
    [[nodiscard]] static QString TextOf(const QVariant &value);
    /// What it holds, for people to read, with its unit; empty when it is not set.
    [[nodiscard]] QString GetShownText() const;

    /// Path, kind of values and value are equal; NaN equals NaN.
    [[nodiscard]] bool operator==(const Field &other) const;
    [[nodiscard]] bool operator!=(const Field &other) const { return !(*this == other); }

private:
    friend struct Inspection::FieldMaker;
    struct Private;

    [[nodiscard]] INSPECTION_NO_EXPORT const Private &data() const;

    std::shared_ptr<const Private> d; // null: of the default
};

/// Writes the name of \a value, or its number when it has none.
INSPECTION_EXPORT QDebug operator<<(QDebug debug, Field::Type value);

/// Writes the name of \a value, or its number when it has none.
INSPECTION_EXPORT QDebug operator<<(QDebug debug, Field::Requirement value);

/// Writes the path and what the field holds, in a line.
INSPECTION_EXPORT QDebug operator<<(QDebug debug, const Field &field);

} // namespace KORMAK

#endif
