#include "widgets/FrequencyEdit.h"

namespace KORMAK {

FrequencyEdit::FrequencyEdit(QWidget *parent) : NumberEdit(Units::Frequencies, parent)
{
    SetUnit(QStringLiteral("Hz"));
}

FrequencyEdit::~FrequencyEdit() = default;

} // namespace KORMAK
