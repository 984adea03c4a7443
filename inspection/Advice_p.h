// What there is to say about rows beyond what the tables say.
#ifndef KORMAK_INSPECTION_ADVICE_P_H
#define KORMAK_INSPECTION_ADVICE_P_H

#include <QStringView>

namespace KORMAK::Inspection {

struct Advice {
    QStringView object;
    QStringView row; ///< an attribute behind "@"
    QStringView requirement = {}; ///< what Check() asks for
    QStringView ignored = {}; ///< why it is not read
    QStringView incomplete = {}; ///< what it means that it is not complete
    QStringView missing = {}; ///< the same, of an object that nobody has written down; null: it should be set
    QStringView place = {}; ///< the element that says so; null: its own
};

/// All null when there is none.
[[nodiscard]] Advice adviceFor(QStringView object, QStringView row);

} // namespace KORMAK::Inspection

#endif
