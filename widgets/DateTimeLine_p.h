// Not installed. A line for a date and a time in UTC, as fields have them: to the millisecond.
#ifndef KORMAK_WIDGETS_DATETIMELINE_P_H
#define KORMAK_WIDGETS_DATETIMELINE_P_H

#include <widgets/ValueEdit.h>

namespace KORMAK::Widgets {

/// Values are QDateTime. "2026-03-14 06:30" may be typed with seconds and milliseconds, in the form of
/// documents, and as "now"; steps are of what the cursor stands in.
class DateTimeLine : public ValueEdit {
public:
    explicit DateTimeLine(QWidget *parent = nullptr);

protected:
    [[nodiscard]] Reading Read(const QString &text) const override;
    [[nodiscard]] QString Show(const QVariant &value) const override;
    [[nodiscard]] QVariant Step(int steps) const override;
    [[nodiscard]] int PlaceCursor(const QString &shown, int position) const override;
};

} // namespace KORMAK::Widgets

#endif
