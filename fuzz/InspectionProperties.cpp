#include "fuzz/InspectionProperties.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>

using KORMAK::Field;
using KORMAK::Finding;

namespace Fuzz {

namespace {

/// The line of a place in \a text, counted anew.
qint64 lineAt(const QByteArray &text, qint64 offset)
{
    qint64 line = 1;
    for (qint64 i = 0; i < offset; ++i) {
        const char c = text.at(static_cast<int>(i));
        const bool isPair = c == '\r' && i + 1 < text.size() && text.at(static_cast<int>(i + 1)) == '\n';
        line += c == '\n' || (c == '\r' && !isPair) ? 1 : 0;
    }
    return line;
}

QJsonObject jsonIn(const QByteArray &bytes)
{
    QJsonParseError error{};
    const QJsonDocument json = QJsonDocument::fromJson(bytes, &error);
    demand(error.error == QJsonParseError::NoError && json.isObject(),
           "JSON is an object: " + error.errorString() + '\n' + QString::fromUtf8(bytes));
    return json.object();
}

QString nameOf(Finding::Severity severity)
{
    return severity == Finding::Severity::Error ? "error" : "warning";
}

} // namespace

bool isOneLine(const QString &text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) {
        return c.category() != QChar::Other_Control && c != QChar::LineSeparator
            && c != QChar::ParagraphSeparator;
    });
}

void checkFindings(const QVector<Finding> &findings, bool hasError)
{
    bool isErrorFound = false;
    for (const Finding &finding : findings) {
        demand(!finding.GetId().isEmpty() && !finding.GetMessage().isEmpty(), "a finding says what it is");
        demand(isOneLine(finding.GetMessage()), "messages cannot steer a terminal: " + finding.GetMessage());
        demand(finding.HasFound() || finding.GetFound().isEmpty(), "what is found is there");
        isErrorFound = isErrorFound || finding.GetSeverity() == Finding::Severity::Error;
    }
    demand(isErrorFound == hasError, "an error is what the library refuses a document for");
}

void checkPlaces(const QVector<Finding> &findings, const QByteArray &text)
{
    qint64 last = 0;
    for (const Finding &finding : findings) {
        const qint64 offset = finding.GetOffset();
        demand(finding.HasPlace() && offset >= 0 && offset <= text.size() && finding.GetColumn() >= 1,
               "a finding has a place in the text: " + finding.GetMessage());
        demand(finding.GetLine() == lineAt(text, offset), "lines are counted: " + finding.GetMessage());
        demand(offset >= last, "findings stand in the order of their places: " + finding.GetMessage());
        last = offset;
    }
}

void checkHaveNoPlaces(const QVector<Finding> &findings)
{
    demand(std::none_of(findings.begin(), findings.end(),
                        [](const Finding &finding) { return finding.HasPlace(); }),
           "what is told of an object has no place");
}

void checkFindingLines(const QByteArray &json, const QVector<Finding> &findings, int others)
{
    demand(json.isEmpty() || json.endsWith('\n'), "lines of JSON are ended");
    demand(json.count('\n') == findings.size() + others, "JSON tells as much as the findings");
    const QList<QByteArray> lines = json.split('\n');
    for (int i = 0; i < findings.size() + others; ++i) {
        const QJsonObject line = jsonIn(lines.at(i));
        if (i >= findings.size())
            continue;
        const Finding &finding = findings.at(i);
        demand(line.value("message") == finding.GetMessage() && line.value("id") == finding.GetId()
                   && line.value("severity") == nameOf(finding.GetSeverity())
                   && line.value("line").toInt() == finding.GetLine(),
               "JSON tells what the findings do: " + QString::fromUtf8(lines.at(i)));
    }
}

void checkJson(const QByteArray &json, const QStringList &members)
{
    const QJsonObject object = jsonIn(json);
    demand(std::all_of(members.begin(), members.end(),
                       [&object](const QString &member) { return object.contains(member); }),
           "JSON has all members: " + QString::fromUtf8(json));
}

void checkField(const Field &field)
{
    demand(!field.GetPath().isEmpty(), "a field has a path");
    demand(field.IsSet() == field.GetValue().isValid(), "what is set has a value: " + field.GetPath());
    demand(field.IsSet() || (field.GetText().isEmpty() && field.GetShownText().isEmpty()),
           "what is not set has no text: " + field.GetPath());
    demand(field.GetType() != Field::Type::Name || !field.IsSet()
               || field.GetAllowed().contains(field.GetText()),
           "a name is one of the vocabulary: " + field.GetPath());
}

bool isSetAnew(const Field &field)
{
    const bool isNumber = field.GetType() == Field::Type::Float || field.GetType() == Field::Type::Double;
    return field.IsSettable() && field.IsSet() && (!isNumber || std::isfinite(field.GetValue().toDouble()));
}

bool mayBeRefused(const Field &field)
{
    return field.GetPath().startsWith("AntennaData.") || field.GetPath().endsWith("DisplaySuffix");
}

void checkOnlyOtherForms(const Field &field, const QVector<KORMAK::Difference> &differences)
{
    // A parameter hands these on to its handler when they are set, which reading does not do with all of
    // them.
    static const std::pair<QString, QString> HandedOn[] = {
        {"Multiplier", ".Multiplier"},
        {"UniqueName", ".UniqueParameterName"},
        {"RepresentationName", ".RepresentationName"},
    };
    const QString path = field.GetPath();
    for (const KORMAK::Difference &difference : differences) {
        const QString changed = difference.GetPath();
        const bool isOtherForm = path.endsWith("ShowJDH") && changed == path + "Text";
        demand(isOtherForm
                   || std::any_of(std::begin(HandedOn), std::end(HandedOn),
                                  [&](const auto &names) {
                                      return path.endsWith(names.first) && changed.endsWith(names.second);
                                  }),
               "what is set to its own text stays as it is: " + path + '\n' + difference.GetText());
    }
}

void checkNothingIsChanged(const QVector<KORMAK::Difference> &differences)
{
    for (const KORMAK::Difference &difference : differences)
        demand(difference.HasBefore() && difference.GetBeforeJson() == "null",
               "nothing that was said is changed: " + difference.GetText());
}

void demandSameObject(const TESSEL::ITesselObject &actual, const TESSEL::ITesselObject &expected,
                      const QString &property)
{
    QString text;
    QString expectedText;
    const Reading writing = readingOf([&] {
        text = actual.GetXmlString();
        return true;
    });
    const Reading expectedWriting = readingOf([&] {
        expectedText = expected.GetXmlString();
        return true;
    });
    demandEqual(writing, expectedWriting, property);
    demandEqual(text, expectedText, property);
}

bool hasMisplacedElement(const QVector<Finding> &findings)
{
    return std::any_of(findings.begin(), findings.end(), [](const Finding &finding) {
        return finding.GetId() == KORMAK::FindingId::MisplacedElement;
    });
}

bool isWritten(const TESSEL::ITesselObject &object)
{
    return object.HasData()
        && readingOf([&] {
               (void)object.GetXmlString();
               return true;
           }).outcome
        == Reading::Taken;
}

} // namespace Fuzz
