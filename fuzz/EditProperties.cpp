#include "fuzz/EditProperties.h"

#include <fuzz/Properties.h>
#include <inspection/AreaGeoJson_p.h>
#include <inspection/Document.h>
#include <inspection/DocumentEdit.h>
#include <objectbase/TesselException.h>
#include <tests/support/OtherText.h>

#include <algorithm>
#include <optional>

using KORMAK::Document;
using KORMAK::DocumentEdit;
using KORMAK::Field;

namespace Fuzz {

namespace {

using Change = DocumentEdit::Change;

/// \a text with its places put back to what stood there.
QByteArray putBack(const DocumentEdit &edit, const QByteArray &original)
{
    QByteArray text;
    qint64 at = 0;
    const QVector<DocumentEdit::Place> places = edit.GetPlaces();
    for (const DocumentEdit::Place &place : places) {
        demand(place.offset >= at, "places stand in their order");
        text += original.mid(static_cast<int>(at), static_cast<int>(place.offset - at)) + place.inserted;
        at = place.offset + place.removed.size();
        demand(original.mid(static_cast<int>(place.offset), place.removed.size()) == place.removed,
               "what is removed stood there");
    }
    return text + original.mid(static_cast<int>(at));
}

/// The part of \a path that calls a parameter, "Parameter[Gain]"; empty when there is none.
QString parameterOf(const QString &path)
{
    for (int i = static_cast<int>(path.indexOf(QLatin1Char('['))); i >= 0 && i < path.size(); ++i) {
        if (path[i] == QLatin1Char('\\'))
            ++i;
        else if (path[i] == QLatin1Char(']'))
            return path.left(i + 1);
    }
    return {};
}

/// Whether a change of the field \a path may come with one of \a other: a parameter hands its name on to its
/// blocks, its type tells which of them there is, an entry may be the default; a flag is also held as a text.
bool mayComeWith(const QString &kind, const QString &path, const QString &other)
{
    const bool isOfReceiver = path.startsWith(QLatin1String("Parameter["));
    return kind == QLatin1String("Parameter") || other == path + QLatin1String("Text")
        || (isOfReceiver && other.startsWith(parameterOf(path)));
}

/// Whether the document takes the change by its setters.
std::optional<Document> changedBySetter(const Document &document, const Change &change)
{
    try {
        Document changed(document);
        changed.SetField(change.path, change.text);
        return changed;
    } catch (const TESSEL::TesselException &) {
        return std::nullopt;
    }
}

void checkSetting(const QByteArray &text, const Document &document, const Field &field)
{
    const Change change{Change::Action::Set, field.GetPath(), TestSupport::otherText(field)};
    const DocumentEdit edit(text, {change}, DocumentEdit::NewFindings::Accepted);
    if (!edit.IsDone()) {
        demand(edit.GetText() == text && edit.GetPlaces().isEmpty(), "what is refused changes nothing");
        demand(!edit.GetFindings().isEmpty(), "what is refused is explained: " + change.path);
        return;
    }
    demand(putBack(edit, text) == edit.GetText(), "nothing but the places is changed: " + change.path);
    const auto expected = changedBySetter(document, change);
    demand(expected.has_value(), "what no setter takes is not written: " + change.path);
    const Document changed(edit.GetText());
    demand(changed.GetField(change.path).GetText() == expected->GetField(change.path).GetText(),
           "what is set is read back: " + change.path);
    const auto differences = Document::Compare(document, changed);
    demand(std::all_of(differences.begin(), differences.end(),
                       [&](const KORMAK::Difference &difference) {
                           return difference.GetPath() == change.path
                               || mayComeWith(document.GetKind(), change.path, difference.GetPath());
                       }),
           "nothing else is set: " + change.path);
    demand(DocumentEdit(edit.GetText(), {change}, DocumentEdit::NewFindings::Accepted).GetText()
               == edit.GetText(),
           "what is set already is left alone: " + change.path);
}

void checkFix(const QByteArray &text, const Document &document)
{
    const DocumentEdit fix = DocumentEdit::Fix(text);
    demand(fix.IsDone() != fix.GetCorrected().isEmpty(), "what is corrected is told");
    demand(fix.IsDone() || fix.GetText() == text, "where nothing is corrected, nothing is changed");
    const Document fixed(fix.GetText());
    demand(!document.GetObject() || fixed.GetObject(), "what could be read can be read");
    demand(!document.IsAccepted() || fixed.IsAccepted(), "what was accepted is accepted");
    demand(!DocumentEdit::Fix(fix.GetText()).IsDone(), "all that is certain is corrected at once");
}

} // namespace

void checkEdit(const QByteArray &text)
{
    constexpr int MostFields = 12; // of a text: each takes as long as several readings
    const Document document(text);
    const DocumentEdit nothing(text, {});
    demand(nothing.GetText() == text && nothing.GetPlaces().isEmpty(), "no change changes nothing");
    demand(!nothing.IsDone() || document.GetObject(), "only what can be read is changed");
    checkFix(text, document);
    if (!nothing.IsDone())
        return;
    const QVector<Field> fields = document.GetFields();
    const int step = std::max(1, static_cast<int>(fields.size()) / MostFields);
    for (int i = text.size() % step; i < fields.size(); i += step) {
        if (fields.at(i).IsSettable())
            checkSetting(text, document, fields.at(i));
    }
}

void checkGeoJson(const QByteArray &geoJson)
{
    using namespace KORMAK::Inspection;
    const QByteArray documents[] = {
        "<AutomaticWorkflow><Mode>ManualMode</Mode></AutomaticWorkflow>",
        "<AutomaticWorkflow><Mode>ManualMode</Mode><Area><Name>a</Name><Coordinate><Latitude>1</Latitude>"
        "<Longitude>170</Longitude></Coordinate><Coordinate><Latitude>-5</Latitude><Longitude>-170</"
        "Longitude>"
        "</Coordinate><Coordinate><Latitude>9</Latitude></Coordinate></Area></AutomaticWorkflow>",
    };
    for (const QByteArray &document : documents) {
        DocumentEdit::AreaChanges read;
        try {
            read = DocumentEdit::ReadArea(geoJson, document);
        } catch (const TESSEL::TesselException &) {
            return;
        }
        const DocumentEdit edit(document, read.changes, DocumentEdit::NewFindings::Accepted);
        const bool isName = !read.changes.isEmpty() && read.changes.last().path == QLatin1String("Area.Name");
        if (!edit.IsDone() && isName)
            continue; // it may hold what XML cannot carry
        demand(edit.IsDone(), "an area can be given any outline");
        demand(DocumentEdit::ReadArea(geoJson, edit.GetText()).changes.isEmpty(), "it has it then");
        const Document changed(edit.GetText());
        const QString shown = areaGeoJson(*areaOf(*changed.GetObject()), changed.GetKind());
        demand(DocumentEdit::ReadArea(shown.toUtf8(), edit.GetText()).changes.isEmpty(),
               "what is shown of an area is what it has");
        const QByteArray again =
            DocumentEdit(documents[0], DocumentEdit::ReadArea(shown.toUtf8(), documents[0]).changes,
                         DocumentEdit::NewFindings::Accepted)
                .GetText();
        demand(DocumentEdit::ReadArea(geoJson, again).changes.isEmpty(), "and can be given to others");
    }
}

} // namespace Fuzz
