// Not installed. Parameters and their values as people read and type them.
#ifndef KORMAK_WIDGETS_PARAMETERTEXT_P_H
#define KORMAK_WIDGETS_PARAMETERTEXT_P_H

#include <inspection/Document.h>
#include <kormak/Parameter.h>
#include <widgets/NumberFormat_p.h>

#include <QLocale>
#include <QString>
#include <QVariant>

namespace KORMAK::Widgets {

/// How the numbers of \a parameter are read and shown.
[[nodiscard]] NumberFormat formatOf(const Parameter &parameter, const QLocale &locale);

/// \a value, one of \a parameter, for people, without its unit.
[[nodiscard]] QString shownValue(const Parameter &parameter, const QVariant &value, const QLocale &locale);

/// The value of \a parameter that \a text says, as people type it. Of check boxes and choices, none.
[[nodiscard]] NumberFormat::Reading readValue(const Parameter &parameter, const QString &text,
                                              const QLocale &locale);

/// The unit that stands behind shownValue() of \a value; empty where that has it already.
[[nodiscard]] QString shownUnit(const Parameter &parameter, const QVariant &value, const QLocale &locale);

/// What is wrong with \a value, one of \a parameter; empty when nothing is.
[[nodiscard]] QString problemOf(const Parameter &parameter, const QVariant &value, const QLocale &locale);

/// Its tool tip, its limits and its names, for people.
[[nodiscard]] QString describe(const Parameter &parameter, const QLocale &locale);

/// The name that people see: the display name or, where there is none, the unique name.
[[nodiscard]] QString nameOf(const Parameter &parameter);

/// The parameter called \a name of \a document, a receiver or a parameter; null when there is none.
[[nodiscard]] const Parameter *findParameter(const Document &document, const QString &name);

/// The least and the greatest value, for people; empty when there is none of them.
[[nodiscard]] QString rangeOf(const Parameter &parameter, const QLocale &locale);

} // namespace KORMAK::Widgets

#endif
