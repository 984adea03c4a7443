// Not installed. Lines for values that are no single number.
#ifndef KORMAK_WIDGETS_LINEEDITS_P_H
#define KORMAK_WIDGETS_LINEEDITS_P_H

#include <widgets/MomentFormat_p.h>
#include <widgets/NumberFormat_p.h>
#include <widgets/ValueEdit.h>

namespace KORMAK::Widgets {

/// Any text.
class TextEdit : public ValueEdit {
public:
    explicit TextEdit(QWidget *parent) : ValueEdit(parent) { }

protected:
    [[nodiscard]] Reading Read(const QString &text) const override;
    [[nodiscard]] QString Show(const QVariant &value) const override;
};

/// A date and a time in UTC.
class MomentEdit : public ValueEdit {
public:
    explicit MomentEdit(QWidget *parent);

    /// \a number tells the unit of time, how it is held, and the limits.
    void SetFormat(const NumberFormat &number);

protected:
    [[nodiscard]] Reading Read(const QString &text) const override;
    [[nodiscard]] QString Show(const QVariant &value) const override;
    [[nodiscard]] QString ProblemOf(const QVariant &value) const override;
    [[nodiscard]] QVariant Step(int steps) const override;
    [[nodiscard]] int PlaceCursor(const QString &shown, int position) const override;

private:
    MomentFormat format;
};

/// Numbers, parted by semicolons.
class NumberListEdit : public ValueEdit {
public:
    explicit NumberListEdit(QWidget *parent) : ValueEdit(parent) { }

    void SetFormat(const NumberFormat &number, int mostNumbers);

protected:
    [[nodiscard]] Reading Read(const QString &text) const override;
    [[nodiscard]] QString Show(const QVariant &value) const override;
    [[nodiscard]] QString ProblemOf(const QVariant &value) const override;

private:
    [[nodiscard]] NumberFormat inLocale() const;

    NumberFormat format;
    int mostValues = 0;
};

} // namespace KORMAK::Widgets

#endif
