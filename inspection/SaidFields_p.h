// What a document says of its fields, letter by letter, and which of them a finding is about.
#ifndef KORMAK_INSPECTION_SAIDFIELDS_P_H
#define KORMAK_INSPECTION_SAIDFIELDS_P_H

#include <inspection/Finding.h>
#include <inspection/inspection_export.h>
#include <objectbase/ReadingLimits.h>

#include <QByteArray>
#include <QHash>
#include <QString>

#include <memory>

namespace KORMAK::Inspection {

/// A value; copies share their data. Of a text that is not read to its end, it knows nothing.
class INSPECTION_EXPORT SaidFields {
public:
    explicit SaidFields(const QByteArray &text, const TESSEL::ReadingLimits &limits = {});

    /// The texts of the elements and attributes that fields are read from, by the paths of the fields; what
    /// is not there is left out.
    [[nodiscard]] const QHash<QString, QString> &texts() const noexcept;
    /// As Finding::GetFieldPath(), but as Field::GetPath() would call it: with the places in lists, and with
    /// names that are whole. \a finding is one of the text; where nothing more is known, it is
    /// GetFieldPath().
    [[nodiscard]] QString pathOf(const Finding &finding) const;

private:
    struct Private;

    std::shared_ptr<const Private> d;
};

} // namespace KORMAK::Inspection

#endif
