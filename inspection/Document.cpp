#include "inspection/Document.h"

#include <inspection/DocumentCheck_p.h>
#include <inspection/DocumentJson_p.h>
#include <inspection/DocumentKind_p.h>
#include <inspection/DocumentSays_p.h>
#include <inspection/FieldAssignment_p.h>
#include <inspection/FieldList_p.h>
#include <inspection/FieldNodes_p.h>
#include <inspection/ObjectFindings_p.h>
#include <inspection/QuotedText_p.h>
#include <inspection/Rewriting_p.h>
#include <objectbase/Debug_p.h>
#include <objectbase/FileContent_p.h>
#include <objectbase/NoDestructor_p.h>
#include <objectbase/TesselException.h>

#include <utility>

namespace KORMAK {

using namespace Inspection;
using TESSEL::ITesselObject;
using TESSEL::TesselException;

struct Document::Private {
    QByteArray text = {}; ///< as it was given, and read with the limits; null when an object was
    TESSEL::ReadingLimits limits = {};
    const DocumentKind *kind = nullptr; ///< null when it is not known
    std::shared_ptr<const ITesselObject> object = nullptr;
    bool isOfObject = false; ///< the text, if there is one, is not what the object says
    /// Of the text, as long as it is what the object says.
    bool isAccepted = false; ///< also of the text as it was given, once it no longer is
    bool isComplete = false;
    QVector<Finding> findings = {};

    [[nodiscard]] const void *address() const { return kind->address(*object); }
};

namespace {

QVector<Finding> withoutPlaces(const Findings &findings)
{
    QVector<Finding> result;
    for (const FindingData &finding : findings)
        result.push_back(FindingMaker::made(finding, std::nullopt, 0));
    return result;
}

QVector<Finding> errorsAmong(const QVector<Finding> &findings)
{
    QVector<Finding> errors;
    for (const Finding &finding : findings) {
        if (finding.GetSeverity() == Finding::Severity::Error)
            errors.push_back(finding);
    }
    return errors;
}

FindingData unknownKind(const QString &kind)
{
    return {0,
            QStringLiteral("unknown kind of document '%1'").arg(oneLine(shortened(kind))),
            {},
            FindingId::UnknownKind,
            Severity::Error,
            {},
            documentKindNames()};
}

DocumentCheck checkOf(const QByteArray &text, const TESSEL::ReadingLimits &limits, const QString &kind)
{
    try {
        Findings ofBytes;
        const QByteArray checked = checkedText(text, &ofBytes);
        return checkText(checked, limits, kind, std::move(ofBytes));
    } catch (const DocumentError &error) {
        return failedCheck(error);
    }
}

/// \a bytes: of a document that was read with the limits. \a isAccepted: by the library. Where the text is
/// not written as it is, \a otherText tells what will be; null: nothing.
QVector<Finding> lossesOf(const QByteArray &bytes, const TESSEL::ReadingLimits &limits, bool isAccepted,
                          const QString *otherText)
{
    ParsedDocument document = documentOf(checkedText(bytes), limits);
    auto [blockers, refusal, text, losses] = rewrite(document);
    for (FindingData &blocker : blockers) {
        blocker.severity = Severity::Error;
        blocker.id = FindingId::Refused;
    }
    Findings findings;
    if (otherText && (refusal || !blockers.empty()))
        findings = lossesIn(document, otherText->toUtf8());
    else if (refusal)
        findings.push_back(errorOf(*refusal, isAccepted ? Words::OfInspection : Words::OfLibrary));
    else
        findings = blockers.empty() ? std::move(losses) : std::move(blockers);
    TextPositions positions(document.text);
    QVector<Finding> result;
    for (const FindingData &finding : findings) {
        result.push_back(FindingMaker::made(finding, positions.at(finding.offset), byteOrderMarkSize(bytes)));
    }
    return result;
}

FieldAssignment assignmentOf(const FieldTable &table, const Document::Setting &setting)
{
    const auto &[path, text] = setting;
    FieldAssignment assignment = readAssignment(table, path + QLatin1Char('=') + text);
    if (assignment.path != path) // an = in it ended it early
        throw FieldError{QStringLiteral("there is no field '%1'").arg(path)};
    return assignment;
}

QByteArray linesOf(const QString &file, const QVector<Finding> &findings)
{
    QByteArray lines;
    for (const Finding &finding : findings)
        lines += findingJson(file, FindingMaker::contentOf(finding), FindingMaker::positionOf(finding));
    return lines;
}

} // namespace

Document::Document() = default;

Document::Document(std::shared_ptr<const Private> content) : d(std::move(content)) { }

Document::Document(const QByteArray &text, const TESSEL::ReadingLimits &limits)
    : Document(Read(text, QString(), limits))
{
}

Document Document::Read(const QByteArray &text, const QString &kind, const TESSEL::ReadingLimits &limits)
{
    DocumentCheck check = checkOf(text, limits, kind);
    QVector<Finding> findings;
    findings.reserve(static_cast<int>(check.findings.size()));
    for (auto &[finding, position] : check.findings)
        findings.push_back(FindingMaker::made(std::move(finding), position, byteOrderMarkSize(text)));
    return Document(
        std::make_shared<const Private>(Private{text, limits, check.kind, std::move(check.object), false,
                                                check.isAccepted, check.isComplete, std::move(findings)}));
}

Document Document::Read(QIODevice &device, const QString &kind, const TESSEL::ReadingLimits &limits)
{
    const auto content = TESSEL::contentOf(device);
    return content ? Read(*content, kind, limits) : unreadable(device.errorString());
}

Document Document::ReadFile(const QString &path, const QString &kind, const TESSEL::ReadingLimits &limits)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? Read(file, kind, limits) : unreadable(file.errorString());
}

Document Document::unreadable(const QString &reason)
{
    Private content;
    content.findings = withoutPlaces(
        {{0, QStringLiteral("cannot be read: ") + reason, {}, FindingId::Unreadable, Severity::Error}});
    return Document(std::make_shared<const Private>(std::move(content)));
}

Document::Document(const ITesselObject &object)
{
    Private content;
    content.isOfObject = true;
    content.kind = documentKindOf(object);
    if (content.kind)
        content.object = content.kind->copy(object);
    else
        content.findings.push_back(FindingMaker::made(unknownKind(object.GetObjectName()), std::nullopt, 0));
    d = std::make_shared<const Private>(std::move(content));
}

Document Document::New(const QString &kind)
{
    Private content;
    content.isOfObject = true;
    content.kind = findDocumentKind(kind);
    if (!content.kind) {
        throw TesselException(QStringLiteral("unknown kind of document '%1'. Allowed: %2")
                                  .arg(kind, documentKindNames().join(QStringLiteral(", "))));
    }
    content.object = content.kind->create();
    return Document(std::make_shared<const Private>(std::move(content)));
}

const Document::Private &Document::data() const
{
    static const TESSEL::NoDestructor<Private> none;
    return d ? *d : *none;
}

QString Document::GetKind() const
{
    return data().kind ? data().kind->rootElement.toString() : QString();
}

bool Document::IsAccepted() const
{
    return data().isOfObject ? data().object && !refusalOf(*data().object) : data().isAccepted;
}

bool Document::IsComplete() const
{
    return data().isOfObject ? data().object && data().object->HasData() : data().isComplete;
}

QString Document::GetState() const
{
    if (data().object)
        return stateOf(*data().kind, *data().object);
    for (const Finding &finding : data().findings) {
        if (finding.GetSeverity() != Finding::Severity::Error)
            continue;
        const QString path = finding.GetPath();
        return oneLine((path.isEmpty() ? QString() : path + QStringLiteral(": ")) + finding.GetMessage());
    }
    return {};
}

QVector<Finding> Document::GetFindings() const
{
    return data().isOfObject && data().object ? withoutPlaces(findProblems(*data().kind, *data().object))
                                              : data().findings;
}

QVector<Finding> Document::GetLosses() const
{
    const Private &own = data();
    if (!own.object)
        return errorsAmong(own.findings);
    if (!own.isOfObject)
        return lossesOf(own.text, own.limits, own.isAccepted, nullptr);
    if (const auto complaint = refusalOf(*own.object))
        return withoutPlaces({errorOf({*complaint, 0}, Words::OfLibrary)});
    const auto written = writtenDocument(*own.kind, *own.object);
    if (const auto *reason = std::get_if<Rejection>(&written))
        return withoutPlaces({errorOf(*reason, Words::OfInspection)});
    const QString &text = std::get<QString>(written);
    QVector<Finding> losses;
    if (!own.text.isNull())
        losses = lossesOf(own.text, own.limits, own.isAccepted, &text);
    return losses + withoutPlaces(notReadBack(*own.kind, *own.object, text));
}

QVector<Finding> Document::GetWriteErrors() const
{
    const Private &own = data();
    if (!d) {
        return withoutPlaces({{0,
                               QStringLiteral("there is no document that could be written"),
                               {},
                               FindingId::Unwritten,
                               Severity::Error}});
    }
    if (!own.object || !IsAccepted())
        return errorsAmong(GetFindings());
    const auto written = writtenDocument(*own.kind, *own.object);
    const auto *const reason = std::get_if<Rejection>(&written);
    if (!reason)
        return {};
    Findings errors;
    const QStringList missing = own.kind->missing(*own.object);
    for (const QString &text : missing)
        errors.push_back({0, text, {}, FindingId::Unwritten, Severity::Error});
    if (errors.empty())
        errors.push_back(errorOf(*reason, Words::OfInspection));
    return withoutPlaces(errors);
}

QVector<Finding> Document::SaveFile(const QString &path) const
{
    QVector<Finding> errors = GetWriteErrors();
    if (!errors.isEmpty())
        return errors;
    if (const auto failure = TESSEL::failureToSave(data().object->GetXmlString(), path)) {
        errors = withoutPlaces({{0,
                                 QStringLiteral("cannot be written: ") + *failure,
                                 {},
                                 FindingId::Unwritten,
                                 Severity::Error}});
    }
    return errors;
}

const ITesselObject *Document::GetObject() const noexcept
{
    return d ? d->object.get() : nullptr;
}

QVector<Field> Document::GetFields() const
{
    return data().object ? fieldsOf(data().kind->fields(), data().address()) : QVector<Field>();
}

Field Document::GetField(const QString &path) const
{
    if (const auto field =
            data().object ? fieldAt(data().kind->fields(), data().address(), path) : std::nullopt)
        return *field;
    throw TesselException(QStringLiteral("there is no field '%1'").arg(path));
}

QVector<FieldNode> Document::GetNodes(const QString &path) const
{
    return data().object ? nodesBelow(data().kind->fields(), data().address(), path) : QVector<FieldNode>();
}

void Document::SetField(const QString &path, const QString &text)
{
    SetFields({{path, text}});
}

void Document::SetFields(const QVector<Setting> &settings)
{
    if (!data().object)
        throw TesselException(QStringLiteral("there is no document whose fields could be set"));
    const DocumentKind &kind = *data().kind;
    std::unique_ptr<ITesselObject> object = kind.copy(*data().object);
    void *const address = kind.variableAddress(*object);
    try {
        QStringList texts;
        for (const Setting &setting : settings)
            texts += assignmentOf(kind.fields(), setting).path + QLatin1Char('=') + setting.second;
        const QStringList errors = assignAll(kind.fields(), texts, address).errors;
        if (!errors.isEmpty())
            throw TesselException(errors.constFirst());
    } catch (const FieldError &error) {
        throw TesselException(error.message);
    }
    Private changed = data();
    changed.object = std::move(object);
    changed.isOfObject = true;
    changed.findings.clear();
    d = std::make_shared<const Private>(std::move(changed));
}

namespace {

/// \throws TesselException unless both are there and of one kind
void requireComparable(const Document &a, const Document &b)
{
    if (!a.GetObject() || !b.GetObject())
        throw TesselException(QStringLiteral("there are no two documents to compare"));
    if (a.GetKind() != b.GetKind()) {
        throw TesselException(QStringLiteral("documents of the kinds %1 and %2 cannot be compared")
                                  .arg(a.GetKind(), b.GetKind()));
    }
}

} // namespace

QVector<Difference> Document::Compare(const Document &a, const Document &b)
{
    requireComparable(a, b);
    QVector<Difference> result;
    for (FieldDifference &difference :
         differences(a.data().kind->fields(), a.data().address(), b.data().address()))
        result.push_back(DifferenceMaker::made(std::move(difference)));
    return result;
}

bool Document::AreEqualObjects(const Document &a, const Document &b)
{
    requireComparable(a, b);
    return a.data().kind->areEqual(*a.GetObject(), *b.GetObject());
}

QByteArray Document::GetFindingsJson(const QString &file) const
{
    if (!d)
        return {};
    const QVector<Finding> findings = GetFindings();
    return linesOf(file, findings)
        + fileJson(file, IsAccepted() ? u"good" : u"faulty", data().kind, IsComplete(), findings.size());
}

QByteArray Document::GetLossesJson(const QString &file) const
{
    return linesOf(file, GetLosses());
}

QByteArray Document::GetFieldsJson() const
{
    const Private &own = data();
    if (!own.object)
        return {};
    if (own.isOfObject)
        return fieldsJson(*own.kind, *own.object, DocumentSays()).toUtf8();
    const XmlTree tree(checkedText(own.text), own.limits.GetDepth());
    return fieldsJson(*own.kind, *own.object, DocumentSays(*own.kind, *own.object, tree)).toUtf8();
}

QByteArray Document::GetDifferencesJson(const Document &a, const Document &b)
{
    requireComparable(a, b);
    const DocumentKind &kind = *a.data().kind;
    return differencesJson(kind, differences(kind.fields(), a.data().address(), b.data().address()),
                           kind.areEqual(*a.GetObject(), *b.GetObject()))
        .toUtf8();
}

QDebug operator<<(QDebug debug, const Document &document)
{
    QString text = document.GetState();
    if (const ITesselObject *const object = document.GetObject()) {
        const DocumentKind *const kind = documentKindOf(*object);
        text += QStringLiteral("; ")
            + TESSEL::fieldsText(document.GetKind(), kind->table(), kind->address(*object));
    }
    return TESSEL::printText(debug, QStringLiteral("Document(") + text + QLatin1Char(')'));
}

} // namespace KORMAK
