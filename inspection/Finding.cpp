#include "inspection/Finding.h"

#include <inspection/FieldText_p.h>
#include <inspection/FindingData_p.h>
#include <inspection/QuotedText_p.h>
#include <objectbase/Debug_p.h>
#include <objectbase/NoDestructor_p.h>

#include <utility>

namespace KORMAK {

using namespace Inspection;

struct Finding::Private {
    FindingData content;
    std::optional<TextPosition> position;
    qsizetype offset;
};

Finding::Finding() = default;

Finding::Finding(std::shared_ptr<const Private> content) : d(std::move(content)) { }

Finding Finding::NotEdited(const QString &path, const QString &message)
{
    return FindingMaker::made({0, message, path, FindingId::NotEdited, Severity::Error}, std::nullopt, 0);
}

const Finding::Private &Finding::data() const
{
    static const TESSEL::NoDestructor<Private> none{
        Private{{0, {}, {}, {}, Severity::Warning}, std::nullopt, -1}};
    return d ? *d : *none;
}

Finding::Severity Finding::GetSeverity() const noexcept
{
    return data().content.severity;
}

QString Finding::GetId() const
{
    return data().content.id.toString();
}

QString Finding::GetMessage() const
{
    return data().content.message;
}

QString Finding::GetPath() const
{
    return data().content.path;
}

QString Finding::GetFieldPath() const
{
    const QString &path = data().content.path;
    return data().content.id == FindingId::NotEdited ? path : fieldPathOf(path);
}

bool Finding::HasPlace() const noexcept
{
    return data().position.has_value();
}

qint64 Finding::GetOffset() const noexcept
{
    return data().offset;
}

qint64 Finding::GetLine() const noexcept
{
    return HasPlace() ? data().position->line : 0;
}

qint64 Finding::GetColumn() const noexcept
{
    return HasPlace() ? data().position->column : 0;
}

bool Finding::HasFound() const noexcept
{
    return data().content.found.has_value();
}

QString Finding::GetFound() const
{
    return data().content.found.value_or(QString());
}

QStringList Finding::GetAllowed() const
{
    return data().content.allowed;
}

QString Finding::GetSuggestion() const
{
    return data().content.suggestion;
}

Finding::Correction Finding::GetCorrection() const noexcept
{
    return data().content.correction;
}

QString Finding::GetComplaint() const
{
    return data().content.complaint;
}

Finding::Limit Finding::GetLimit() const noexcept
{
    return data().content.limit;
}

bool Finding::operator==(const Finding &other) const
{
    return d == other.d
        || (GetSeverity() == other.GetSeverity() && data().content.id == other.data().content.id
            && GetMessage() == other.GetMessage() && GetPath() == other.GetPath()
            && GetOffset() == other.GetOffset() && GetLine() == other.GetLine()
            && GetColumn() == other.GetColumn() && data().content.found == other.data().content.found
            && GetAllowed() == other.GetAllowed() && GetComplaint() == other.GetComplaint()
            && GetLimit() == other.GetLimit() && GetSuggestion() == other.GetSuggestion()
            && GetCorrection() == other.GetCorrection());
}

Finding FindingMaker::made(FindingData data, const std::optional<TextPosition> &position, qsizetype skipped)
{
    const qsizetype offset = position ? data.offset + skipped : -1;
    return Finding(
        std::make_shared<const Finding::Private>(Finding::Private{std::move(data), position, offset}));
}

const FindingData &FindingMaker::contentOf(const Finding &finding)
{
    return finding.data().content;
}

const std::optional<TextPosition> &FindingMaker::positionOf(const Finding &finding)
{
    return finding.data().position;
}

namespace {

constexpr TESSEL::VocabularyRow<Finding::Severity> SeverityRows[] = {
    {Finding::Severity::Warning, u"Warning"},
    {Finding::Severity::Error, u"Error"},
};
constexpr TESSEL::Vocabulary Severities{SeverityRows};
constexpr TESSEL::VocabularyRow<Finding::Limit> LimitRows[] = {
    {Finding::Limit::None, u"None"},
    {Finding::Limit::Attributes, u"Attributes"},
    {Finding::Limit::Depth, u"Depth"},
    {Finding::Limit::Entities, u"Entities"},
};
constexpr TESSEL::Vocabulary Limits{LimitRows};
constexpr TESSEL::VocabularyRow<Finding::Correction> CorrectionRows[] = {
    {Finding::Correction::None, u"None"},
    {Finding::Correction::Text, u"Text"},
    {Finding::Correction::Name, u"Name"},
    {Finding::Correction::Element, u"Element"},
};
constexpr TESSEL::Vocabulary Corrections{CorrectionRows};

} // namespace

QDebug operator<<(QDebug debug, Finding::Severity value)
{
    return TESSEL::printName(debug, Severities.table(), value);
}

QDebug operator<<(QDebug debug, Finding::Limit value)
{
    return TESSEL::printName(debug, Limits.table(), value);
}

QDebug operator<<(QDebug debug, Finding::Correction value)
{
    return TESSEL::printName(debug, Corrections.table(), value);
}

QDebug operator<<(QDebug debug, const Finding &finding)
{
    QStringList parts{Severities.nameOf(finding.GetSeverity()), finding.GetId()};
    if (finding.HasPlace())
        parts += QStringLiteral("%1:%2").arg(finding.GetLine()).arg(finding.GetColumn());
    parts += finding.GetPath();
    parts.removeAll(QString());
    return TESSEL::printText(
        debug,
        oneLine(QStringLiteral("Finding(%1: %2)").arg(parts.join(QLatin1Char(' ')), finding.GetMessage())));
}

} // namespace KORMAK
