// What a text in a document may say, and what the library makes of any other text.
#ifndef KORMAK_TOOLS_TEXTFORM_H
#define KORMAK_TOOLS_TEXTFORM_H

#include <QString>
#include <QStringList>
#include <QStringView>

struct NameList;

class TextForm {
public:
    enum class Kind { Any, Boolean, Flag, Integer, UpTo, LongLong, Float, Double, DateTime, Name };

    constexpr TextForm() = default;
    constexpr TextForm(Kind textKind) : kind(textKind) { }
    /// A name of a vocabulary. \a otherReading tells what the library makes of any other text; null: it
    /// refuses that.
    constexpr TextForm(const NameList &vocabulary, QStringView otherReading = u"reads as \"not set\"")
        : kind(Kind::Name), names(&vocabulary), reading(otherReading)
    {
    }
    /// A whole number from 1; the library refuses any other text.
    static constexpr TextForm upTo(unsigned int most)
    {
        TextForm form(Kind::UpTo);
        form.greatest = most;
        return form;
    }

    /// Any text will do, though a demand for it is met only by one that is not empty.
    [[nodiscard]] constexpr bool isFree() const { return kind == Kind::Any; }

    [[nodiscard]] bool isSaidBy(const QString &text) const;
    /// What is wrong with a \a text that does not say it, and what it is read as.
    [[nodiscard]] QString objectionTo(const QString &text) const;
    /// The texts that say it, where they can be listed.
    [[nodiscard]] QStringList allowed() const;
    /// The number that a setter is given for \a text, as it stands in the complaint of one that refuses it.
    [[nodiscard]] QString numberRead(const QString &text) const;

private:
    Kind kind = Kind::Any;
    const NameList *names = nullptr;
    unsigned int greatest = 0;
    QStringView reading = {};
};

#endif
