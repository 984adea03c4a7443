// The value of a parameter of a receiver, as a document holds it. Not installed.
#ifndef KORMAK_MODELS_PARAMETERVALUE_P_H
#define KORMAK_MODELS_PARAMETERVALUE_P_H

#include <inspection/DocumentEdit.h>
#include <kormak/Parameter.h>
#include <models/models_export.h>

#include <QString>
#include <QVariant>
#include <QVector>

#include <optional>

namespace KORMAK {

/// In the stored unit. Documents hold one value of a parameter, which they call its default.
struct MODELS_EXPORT ParameterValue {
    explicit ParameterValue(const Parameter &parameter);

    /// The changes that set it to \a wanted, which is of the kind that `value` is; nothing when no document
    /// can hold it. \a prefix is the path of the parameter in the document.
    [[nodiscard]] static std::optional<QVector<DocumentEdit::Change>>
    changesTo(const QVariant &wanted, const Parameter &parameter, const QString &prefix);

    /// Whether documents can hold the value of \a parameter.
    [[nodiscard]] static bool isSettable(const Parameter &parameter);

    /// bool, qint64, float, double or QString; of an enumeration the place of its entry in the list, -1 when
    /// it is none of them; of a list of numbers a QVariantList; invalid without a type.
    QVariant value = {};
    QVariant minimum = {}; ///< invalid: none
    QVariant maximum = {};
    int precision = -1; ///< decimals; -1: of no such type
    QString path = {}; ///< of the field in the parameter; empty: no document holds it, or not as one field
};

} // namespace KORMAK

#endif
