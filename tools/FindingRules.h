// The kinds of findings that a check can tell, with what each is about in general.
#ifndef KORMAK_TOOLS_FINDINGRULES_H
#define KORMAK_TOOLS_FINDINGRULES_H

#include <objectbase/DocumentTable_p.h>

#include <QStringList>
#include <QStringView>

struct FindingRule {
    QStringView id;
    QStringView description; ///< a sentence for people
};

namespace FindingRules {

[[nodiscard]] TESSEL::TableView<FindingRule> all();
[[nodiscard]] QStringList ids();
/// Of the rule with this \a id in all(); -1 when there is none.
[[nodiscard]] int indexOf(QStringView id);

} // namespace FindingRules

#endif
