#ifndef KORMAK_WIDGETS_FREQUENCYEDIT_H
#define KORMAK_WIDGETS_FREQUENCYEDIT_H

#include <widgets/NumberEdit.h>

namespace KORMAK {

/// A line for a frequency, which may be typed in any unit: "14.263", "1.6M", "1e7", "145 MHz", "7 100 kHz".
///
/// \snippet docs/WidgetsSnippetsTest.cpp FrequencyEdit
///
/// A number without a unit is in the unit that is shown. Hz, kHz, MHz and GHz may be typed in any case, with
/// and without "Hz"; m is mega. When another unit is shown, no frequency can be told from it, and only that
/// unit may be typed.
class WIDGETS_EXPORT FrequencyEdit : public NumberEdit {
    Q_OBJECT

public:
    /// For whole numbers of 64 bits, in Hz.
    explicit FrequencyEdit(QWidget *parent = nullptr);
    ~FrequencyEdit() override;
};

} // namespace KORMAK

#endif
