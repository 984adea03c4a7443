#ifndef KORMAK_INSPECTION_DOCUMENTEDIT_H
#define KORMAK_INSPECTION_DOCUMENTEDIT_H

#include <inspection/Finding.h>
#include <inspection/inspection_export.h>
#include <objectbase/ReadingLimits.h>

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>

namespace KORMAK {

/// A change of the text of a document that leaves every byte as it stands but those of what is changed:
/// comments, order, blanks, line ends, the declaration, a byte order mark and elements that are passed over.
///
/// \snippet docs/InspectionSnippetsTest.cpp DocumentEdit
///
/// A document can be changed so when its text is read to its end, complete or not. A value; copies share
/// their data.
class INSPECTION_EXPORT DocumentEdit {
public:
    /// What is to become of a field.
    ///
    /// \snippet docs/InspectionSnippetsTest.cpp Change
    struct Change {
        /// What is done with the field.
        enum class Action : qint32 {
            Set, ///< as Document::SetField(); what is not there yet is added where the library would write it
            Unset, ///< what says it is removed: a field, a parameter, or an element of a list
        };

        Action action; ///< what is done
        /// As Field::GetPath() says it, also of a parameter or of an element of a list. Entries of
        /// enumerations may be called by their keys, too: "Enum.EnumValue[Key=7].Name".
        QString path;
        QString text = {}; ///< what it is set to
    };

    /// What becomes of an edit that brings findings about which were not there before.
    enum class NewFindings : qint32 {
        Refused, ///< it is not done
        Accepted, ///< it is done; GetFindings() tells them
    };

    /// A span of the text that is replaced.
    ///
    /// \snippet docs/InspectionSnippetsTest.cpp Place
    struct Place {
        qint64 offset; ///< in the bytes of the original
        qint64 line; ///< of the original, from 1
        qint64 column; ///< in characters, from 1
        QByteArray removed; ///< what stood there
        QByteArray inserted; ///< what stands there now
    };

    /// No edit: of no document, with nothing done.
    DocumentEdit();
    /// Does \a changes to the document that \a text is. The result is read again, and says what was asked and
    /// nothing else, or nothing is done. Setting a field to what the document says already changes nothing.
    DocumentEdit(const QByteArray &text, const QVector<Change> &changes,
                 NewFindings newFindings = NewFindings::Refused, const TESSEL::ReadingLimits &limits = {});

    /// Puts right in \a text what can be put right for certain, as Finding::GetSuggestion() tells, and
    /// nothing else; GetCorrected() tells what that was, and GetFindings() what remains. IsDone() is true
    /// when there was something.
    [[nodiscard]] static DocumentEdit Fix(const QByteArray &text, const TESSEL::ReadingLimits &limits = {});

    /// The changes that make of \a text what \a json says: an object as Document::GetFieldsJson() gives it,
    /// or the object with its fields. What it names is set, null unsets, and what is in the document as it is
    /// there already is left out; so are fields that no change reaches if they are the same.
    /// \throws TESSEL::TesselException when \a json or \a text is not such a thing, or when it names what the
    /// document does not have
    [[nodiscard]] static QVector<Change> ReadChanges(const QByteArray &json, const QByteArray &text,
                                                     const TESSEL::ReadingLimits &limits = {});

    /// What a GeoJSON text asks of a document.
    ///
    /// \snippet docs/InspectionSnippetsTest.cpp AreaChanges
    struct AreaChanges {
        QVector<Change> changes; ///< empty: the area has this outline already
        /// Places of what no document says, as "features[0].properties.colour", and of a name when the area
        /// has another one.
        QStringList ignored;
    };

    /// The changes that give the area of the document that \a text is the outline that \a geoJson tells (RFC
    /// 7946), and its name if it has none: a Polygon, a MultiPolygon or MultiLineString that was cut at 180
    /// degrees, a line between two positions or a Point, alone, as a Feature or in a FeatureCollection. Where
    /// an outline begins and which way it leads is left as the document has it; coordinates that stay are
    /// left alone. \throws TESSEL::TesselException when \a geoJson is not such a thing, with the place in it,
    /// and when the document cannot be read or has no area
    [[nodiscard]] static AreaChanges ReadArea(const QByteArray &geoJson, const QByteArray &text,
                                              const TESSEL::ReadingLimits &limits = {});

    /// Whether all changes are done.
    [[nodiscard]] bool IsDone() const noexcept;
    /// The text with the changes; the original when they are not done.
    [[nodiscard]] QByteArray GetText() const;
    /// The spans that changed, in their order; empty when nothing is done, or nothing was to be changed.
    [[nodiscard]] QVector<Place> GetPlaces() const;
    /// Why it is not done, as errors: what is no field, what a field does not take, what is wrong with the
    /// text, what would change beside what was asked, and findings that were not there before, since they say
    /// something else or say it of something else, wherever that stands now. When it is done, the findings
    /// that are new, and the comments that stood in what was removed, with their places in the original. What
    /// every document says so has, as the warning of boolean parameters that their type is never written,
    /// refuses nothing.
    [[nodiscard]] QVector<Finding> GetFindings() const;
    /// The findings that Fix() has put right, with their places in the original or, where one was found only
    /// when others had been put right, in what that gave.
    [[nodiscard]] QVector<Finding> GetCorrected() const;

private:
    struct Private;

    std::shared_ptr<const Private> d; // null: no edit
};

} // namespace KORMAK

#endif
