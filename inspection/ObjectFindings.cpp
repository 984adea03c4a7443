#include "inspection/ObjectFindings_p.h"

#include <inspection/Completeness_p.h>
#include <inspection/DocumentWalk_p.h>
#include <inspection/FieldText_p.h>
#include <inspection/QuotedText_p.h>
#include <objectbase/ITesselObject.h>
#include <objectbase/TesselException.h>

#include <QXmlStreamWriter>

#include <algorithm>
#include <iterator>

namespace KORMAK::Inspection {

namespace {

using TESSEL::ObjectTable;
using TESSEL::Row;

/// The same with a replacement for what XML cannot carry.
QString representable(const QString &text)
{
    constexpr char16_t FirstNonCharacter = 0xFFFE;
    QString result = text;
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        const bool isPair = c.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        const bool isLayout = c == QLatin1Char('\t') || c == QLatin1Char('\n') || c == QLatin1Char('\r');
        if (isPair)
            ++i;
        else if ((c < QLatin1Char(' ') && !isLayout) || c.isSurrogate() || c.unicode() >= FirstNonCharacter)
            result[i] = QChar(QChar::ReplacementCharacter);
    }
    return result;
}

/// Writes an object as the document that it would be read from, complete or not.
class DraftWriter {
public:
    DraftWriter() : writer(&text) { }

    QByteArray write(QStringView name, const ObjectTable &table, const void *object)
    {
        writeObject(name, table, object);
        return text.toUtf8();
    }

private:
    void writeObject(QStringView name, const ObjectTable &table, const void *object)
    {
        writer.writeStartElement(name.toString());
        for (const Row &row : table.attributes) {
            if (row.read && isPresent(row, object))
                writer.writeAttribute(row.name.toString(), textOf(row, object));
        }
        for (const Row &row : table.elements) {
            if (row.part && row.part->enter && arePartsPresent(table, row, object)) {
                for (const FieldPart &part : row.part->all(object))
                    writeObject(row.name, row.part->table(), part.object);
            } else if (row.read && isPresent(row, object)) {
                writer.writeTextElement(row.name.toString(), textOf(row, object));
            }
        }
        writer.writeEndElement();
    }

    static bool isWritten(const Row &row, const void *object)
    {
        return !row.isWritten || row.isWritten(object);
    }

    static bool arePartsPresent(const ObjectTable &table, const Row &row, const void *object)
    {
        const bool isOne = row.content == Row::Content::Object && row.part->kind == TESSEL::Part::Kind::One;
        return isOne ? fieldsOf(table).find(row.name)->isShownOf(object) : isWritten(row, object);
    }

    /// The version does not matter to the check of an object, which is written as of its own. A name is there
    /// even where the library would not write it.
    static bool isPresent(const Row &row, const void *object)
    {
        const bool isName = row.type.kind == TextType::Kind::Name;
        return row.name != QStringView(u"Version") && isSet(row.get(object))
            && (isName || isWritten(row, object));
    }

    static QString textOf(const Row &row, const void *object)
    {
        return representable(settableText(row.type, row.get(object)));
    }

    QString text;
    QXmlStreamWriter writer;
};

bool isMissing(const FindingData &finding)
{
    return finding.id == FindingId::MissingElement || finding.id == FindingId::MissingAttribute
        || finding.id == FindingId::BadValue;
}

/// What keeps an object from being written that passes Check(), as far as nothing among \a findings tells it.
void addMissing(Findings &findings, const DocumentKind &kind, const TESSEL::ITesselObject &object)
{
    const QStringList missing = kind.missing(object);
    for (const QString &text : missing) {
        const QString place = text.section(QLatin1Char(':'), 0, 0);
        const bool isTold =
            std::any_of(findings.begin(), findings.end(), [&place](const FindingData &finding) {
                return isMissing(finding) && finding.path.contains(place);
            });
        if (!isTold)
            findings.push_back({0, oneLine(text), {}, FindingId::MissingElement});
    }
}

} // namespace

std::optional<QString> refusalOf(const TESSEL::ITesselObject &object)
{
    if (auto complaint = complaintOf(object))
        return complaint;
    if (!object.HasData())
        return std::nullopt;
    try {
        (void)object.GetXmlString();
    } catch (const TESSEL::TesselException &exception) {
        return exception.GetErrorMessage();
    }
    return std::nullopt;
}

Findings findProblems(const DocumentKind &kind, const TESSEL::ITesselObject &object)
{
    const XmlTree tree(DraftWriter().write(kind.rootElement, kind.table(), kind.address(object)));
    const auto draft = kind.create();
    Findings findings = walk(tree, kind.table(), kind.variableAddress(*draft), *draft).findings;
    const auto refusal = refusalOf(object);
    if (refusal) {
        const bool isTold =
            std::any_of(findings.begin(), findings.end(), [&refusal](const FindingData &finding) {
                return finding.severity == Severity::Error && finding.complaint == *refusal;
            });
        if (!isTold)
            findings.push_back({0, *refusal, {}, FindingId::Refused, Severity::Error, {}, {}, *refusal});
        return findings;
    }
    for (FindingData &finding : findings) {
        finding.severity = Severity::Warning;
        finding.complaint.clear();
    }
    if (!object.HasData())
        addMissing(findings, kind, object);
    if (kind.lint) {
        Findings more = kind.lint(object, tree);
        std::move(more.begin(), more.end(), std::back_inserter(findings));
    }
    return findings;
}

} // namespace KORMAK::Inspection
