// Not installed. The values of parameters as documents hold them, and what is changed in a document to set
// one.
#ifndef KORMAK_WIDGETS_PARAMETERVALUE_P_H
#define KORMAK_WIDGETS_PARAMETERVALUE_P_H

#include <inspection/DocumentEdit.h>
#include <kormak/Parameter.h>
#include <widgets/NumberFormat_p.h>

#include <QLocale>
#include <QString>
#include <QVariant>
#include <QVector>

namespace KORMAK::Widgets {

/// As ParameterEdit::GetValue().
[[nodiscard]] QVariant valueOf(const Parameter &parameter);

/// The field of a document that holds the value of a number or text, of \a parameter at \a path; empty when
/// none does.
[[nodiscard]] QString valuePathOf(const Parameter &parameter, const QString &path);

/// Whether a document can be made to hold another value.
[[nodiscard]] bool isSettable(const Parameter &parameter);

/// What makes of the value of \a parameter at \a path \a value, in a document.
[[nodiscard]] QVector<DocumentEdit::Change> changesTo(const Parameter &parameter, const QString &path,
                                                      const QVariant &value);

/// How the numbers of \a parameter are read and shown.
[[nodiscard]] NumberFormat formatOf(const Parameter &parameter, const QLocale &locale);

/// \a value, one of \a parameter, for people, without its unit.
[[nodiscard]] QString shownValue(const Parameter &parameter, const QVariant &value, const QLocale &locale);

/// The unit that stands behind shownValue().
[[nodiscard]] QString shownUnit(const Parameter &parameter);

/// What is wrong with \a value, one of \a parameter; empty when nothing is.
[[nodiscard]] QString problemOf(const Parameter &parameter, const QVariant &value, const QLocale &locale);

/// Its tool tip, its limits and its names, for people.
[[nodiscard]] QString describe(const Parameter &parameter, const QLocale &locale);

/// The name that people see: the display name or, where there is none, the unique name.
[[nodiscard]] QString nameOf(const Parameter &parameter);

/// The path of the parameter called \a name in a receiver.
[[nodiscard]] QString pathOfParameter(const QString &name);

} // namespace KORMAK::Widgets

#endif
