#include "inspection/Remedy_p.h"

#include <inspection/DocumentTexts_p.h>
#include <inspection/NameLists_p.h>
#include <inspection/QuotedText_p.h>
#include <objectbase/Converters.h>
#include <objectbase/QtCompat_p.h>

#include <QRegularExpression>

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>
#include <vector>

namespace KORMAK::Inspection {

namespace {

using TESSEL::TextType;
using Kind = TextType::Kind;

bool areSame(QChar a, QChar b, Qt::CaseSensitivity cs)
{
    return cs == Qt::CaseSensitive ? a == b : a.toCaseFolded() == b.toCaseFolded();
}

/// What differs between two texts behind a common start and before a common end.
struct Difference {
    QString text;
    QString name;

    /// A letter is missing, is too many or is another one, or two are swapped.
    [[nodiscard]] bool isOneLetter(Qt::CaseSensitivity cs) const
    {
        const bool areSwapped = text.size() == 2 && name.size() == 2 && areSame(text[0], name[1], cs)
            && areSame(text[1], name[0], cs);
        return areSwapped || (text.size() <= 1 && name.size() <= 1);
    }

    /// Capitals and digits tell things apart that are called alike: HF, VHF and UHF.
    [[nodiscard]] bool isSlip() const
    {
        const QString letters = text + name;
        return isOneLetter(Qt::CaseSensitive) && std::none_of(letters.begin(), letters.end(), [](QChar c) {
                   return c.isUpper() || c.isDigit();
               });
    }
};

Difference differenceOf(const QString &text, const QString &name, Qt::CaseSensitivity cs)
{
    const TESSEL::TextSize shorter = std::min(text.size(), name.size());
    TESSEL::TextSize start = 0;
    while (start < shorter && areSame(text[start], name[start], cs))
        ++start;
    TESSEL::TextSize end = 0;
    while (start + end < shorter && areSame(text[text.size() - 1 - end], name[name.size() - 1 - end], cs))
        ++end;
    return {text.mid(start, text.size() - start - end), name.mid(start, name.size() - start - end)};
}

QStringList inOtherCase(const QString &text, const QStringList &names)
{
    QStringList found;
    std::copy_if(names.begin(), names.end(), std::back_inserter(found),
                 [&text](const QString &name) { return name.compare(text, Qt::CaseInsensitive) == 0; });
    return found;
}

/// How much of \a text must change to make \a name of it. To write more of it is the least: names are begun
/// more often than they are overdone.
int effort(const QString &text, const QString &name)
{
    constexpr int Most = 64; // names are shorter
    constexpr int Change = 2;
    const QString from = text.left(Most);
    std::vector<int> efforts(static_cast<std::size_t>(name.size()) + 1);
    std::iota(efforts.begin(), efforts.end(), 0);
    for (const QChar c : from) {
        int diagonal = efforts.front();
        efforts.front() += Change;
        for (std::size_t i = 1; i < efforts.size(); ++i) {
            const bool isKept = areSame(c, name[static_cast<int>(i) - 1], Qt::CaseInsensitive);
            const int replaced = diagonal + (isKept ? 0 : Change);
            diagonal = efforts[i];
            efforts[i] = std::min({replaced, efforts[i] + Change, efforts[i - 1] + 1});
        }
    }
    return efforts.back();
}

/// With a point in place of a comma; null when the comma may stand between thousands.
QString withPoint(QString number)
{
    static constexpr auto Thousands = "^[+-]?[1-9][0-9]{0,2},[0-9]{3}$";
    if (QRegularExpression(QLatin1String(Thousands)).match(number).hasMatch())
        return {};
    return number.replace(QLatin1Char(','), QLatin1Char('.'));
}

/// In the form of documents; null unless \a text says one instant, to the millisecond and with a zone.
QString timeOfDocuments(const QString &text)
{
    static constexpr auto Form = "^([0-9]{4}-[0-9]{2}-[0-9]{2})[Tt ]"
                                 "([0-9]{2}):([0-9]{2})(?::([0-9]{2})(?:[.,]([0-9]{1,3})0*)?)? ?"
                                 "(?:[Zz]|UTC|GMT|([+-])([0-9]{2})(?::?([0-5][0-9]))?)$";
    enum Part { Date = 1, Hour, Minute, Second, Milliseconds, Sign, ZoneHours, ZoneMinutes };
    constexpr int Longest = 64;
    constexpr int Digits = 3; // of milliseconds
    constexpr int PerMinute = 60;
    constexpr int LargestZone = 14 * PerMinute * PerMinute;
    constexpr int LastYear = 9999; // that documents say
    if (text.size() > Longest)
        return {};
    const QRegularExpressionMatch match = QRegularExpression(QLatin1String(Form)).match(text);
    if (!match.hasMatch())
        return {};
    const auto number = [&match](Part part) { return match.captured(part).toInt(); };
    const QTime time(number(Hour), number(Minute), number(Second),
                     match.captured(Milliseconds).leftJustified(Digits, QLatin1Char('0')).toInt());
    const QDateTime local(QDate::fromString(match.captured(Date), Qt::ISODate), time, Qt::UTC);
    const int zone = (number(ZoneHours) * PerMinute + number(ZoneMinutes)) * PerMinute;
    if (!time.isValid() || !local.isValid() || zone > LargestZone) // an invalid time would be midnight
        return {};
    const QDateTime instant = local.addSecs(match.captured(Sign) == QLatin1String("-") ? zone : -zone);
    const int year = instant.date().year();
    return year < 1 || year > LastYear ? QString() : TESSEL::Converters::ToString(instant);
}

} // namespace

Guess guessOf(const QString &text, const QStringList &names)
{
    const QString bare = text.trimmed();
    Guess guess{inOtherCase(bare, names)};
    if (!guess.names.isEmpty()) {
        guess.isCertain = guess.names.size() == 1;
        return guess;
    }
    for (const QString &name : names) {
        if (differenceOf(bare, name, Qt::CaseInsensitive).isOneLetter(Qt::CaseInsensitive))
            guess.names += name;
    }
    guess.isCertain =
        guess.names.size() == 1 && differenceOf(bare, guess.names.constFirst(), Qt::CaseSensitive).isSlip();
    return guess;
}

QString nameInOtherCase(const QString &text, const QStringList &names)
{
    const QStringList found = inOtherCase(text, names);
    return found.size() == 1 ? found.constFirst() : QString();
}

NameExcerpt excerptOf(const QStringList &names, const QString &text)
{
    constexpr int Few = 5;
    constexpr int Nearest = 4;
    if (names.size() <= Few)
        return {names};
    std::vector<std::pair<int, QString>> ranked;
    ranked.reserve(static_cast<std::size_t>(names.size()));
    for (const QString &name : names)
        ranked.emplace_back(text.isEmpty() ? 0 : effort(text.trimmed(), name), name);
    std::stable_sort(ranked.begin(), ranked.end(),
                     [](const auto &a, const auto &b) { return a.first < b.first; });
    NameExcerpt excerpt;
    for (auto name = ranked.begin(); name != ranked.begin() + Nearest; ++name)
        excerpt.names += name->second;
    excerpt.more = static_cast<int>(names.size()) - Nearest;
    return excerpt;
}

QString question(const QStringList &names)
{
    if (names.isEmpty())
        return {};
    QStringList texts;
    for (const QString &name : names)
        texts += quoted(name);
    return QStringLiteral("; did you mean %1?").arg(texts.join(QStringLiteral(" or ")));
}

void allowTexts(FindingData &finding, const TextType &type)
{
    finding.allowed = allowedTexts(type);
    const NameList *const list = type.names ? nameListOf(type.names) : nullptr;
    finding.vocabulary = list ? list->name : QStringView();
}

void suggestText(FindingData &finding, const TextType &type)
{
    allowTexts(finding, type);
    const QString text = finding.found.value_or(QString()).trimmed();
    Guess guess;
    if (type.kind == Kind::Float || type.kind == Kind::Double)
        guess = {{withPoint(text)}, true};
    else if (type.kind == Kind::DateTime)
        guess = {{timeOfDocuments(text)}, true};
    else
        guess = guessOf(text, finding.allowed);
    if (guess.isCertain && (guess.names.constFirst().isEmpty() || !isValid(type, guess.names.constFirst())))
        return;
    finding.message += question(guess.names);
    if (!guess.isCertain)
        return;
    finding.suggestion = guess.names.constFirst();
    finding.correction = Finding::Correction::Text;
}

void TextSuggestions::add(FindingData &finding, const TextType &type)
{
    constexpr std::size_t Most = 256; // of a document that holds more of them, few are alike
    if (type.kind != Kind::Name || !finding.found) {
        suggestText(finding, type);
        return;
    }
    auto known = ofNames.find({type.names, *finding.found});
    if (known == ofNames.end()) {
        if (ofNames.size() == Most)
            ofNames.clear();
        FindingData suggested{0, {}};
        suggested.found = finding.found;
        suggestText(suggested, type);
        known = ofNames.emplace(Name(type.names, *finding.found), std::move(suggested)).first;
    }
    const FindingData &suggested = known->second;
    finding.allowed = suggested.allowed;
    finding.vocabulary = suggested.vocabulary;
    finding.message += suggested.message;
    finding.suggestion = suggested.suggestion;
    finding.correction = suggested.correction;
}

void suggestName(FindingData &finding, const QString &name, const QString &otherCase)
{
    finding.unknownName = name;
    finding.message += question(guessOf(name, finding.allowed).names);
    if (otherCase.isEmpty())
        return;
    finding.suggestion = otherCase;
    finding.correction = Finding::Correction::Name;
}

} // namespace KORMAK::Inspection
