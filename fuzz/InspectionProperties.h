// What holds of a KORMAK::Document whatever text it is made of. The functions throw a Violation where it does
// not; exceptions that no operation documents pass through.
#ifndef KORMAK_FUZZ_INSPECTIONPROPERTIES_H
#define KORMAK_FUZZ_INSPECTIONPROPERTIES_H

#include <fuzz/LibraryReading.h>
#include <fuzz/Properties.h>
#include <inspection/Document.h>

#include <QSet>

namespace Fuzz {

/// Each finding is told as it should be, and one of them is an error when \a hasError.
void checkFindings(const QVector<KORMAK::Finding> &findings, bool hasError);

/// Nothing in \a text steers a terminal or ends the line.
[[nodiscard]] bool isOneLine(const QString &text);

/// The findings have places in \a text, and stand in their order.
void checkPlaces(const QVector<KORMAK::Finding> &findings, const QByteArray &text);

/// The findings of an object have no places.
void checkHaveNoPlaces(const QVector<KORMAK::Finding> &findings);

/// \a json holds as many lines as there are \a findings, each about one, and \a others behind them.
void checkFindingLines(const QByteArray &json, const QVector<KORMAK::Finding> &findings, int others);

/// \a json is an object with the members that are called \a members.
void checkJson(const QByteArray &json, const QStringList &members);

/// What \a field holds is told in one way.
void checkField(const KORMAK::Field &field);

/// Whether \a field is set to what it holds: no setter takes a number that is not finite.
[[nodiscard]] bool isSetAnew(const KORMAK::Field &field);

/// Whether a document may hold in \a field what its setter refuses: the data of an antenna without the
/// resource, a suffix beyond Latin-1.
[[nodiscard]] bool mayBeRefused(const KORMAK::Field &field);

/// \a differences come of setting \a field to what it holds: it may only be told in another form elsewhere.
void checkOnlyOtherForms(const KORMAK::Field &field, const QVector<KORMAK::Difference> &differences);

/// Of what \a differences tell, nothing was there before.
void checkNothingIsChanged(const QVector<KORMAK::Difference> &differences);

/// A library and what is made of its objects say the same of them.
void demandSameObject(const TESSEL::ITesselObject &actual, const TESSEL::ITesselObject &expected,
                      const QString &property);

/// Whether an element stands within a text.
[[nodiscard]] bool hasMisplacedElement(const QVector<KORMAK::Finding> &findings);

/// Whether the library writes \a object.
[[nodiscard]] bool isWritten(const TESSEL::ITesselObject &object);

/// \a Inspected: a KORMAK::Document.
template <class Inspected>
class InspectionCheck {
public:
    InspectionCheck(const QByteArray &bytes, const TESSEL::ReadingLimits &limits)
        : text(bytes), document(bytes, limits), library(bytes, limits)
    {
    }

    void check() const
    {
        checkAgainstLibrary();
        checkWhatIsTold(document);
        checkPlaces(document.GetFindings(), text);
        checkPlaces(document.GetLosses(), text);
        checkCopy();
        if (!document.GetObject())
            return;
        checkFields();
        checkSetting();
        checkLosses();
        checkOfObject();
    }

private:
    void checkAgainstLibrary() const
    {
        demand(document.IsAccepted() == library.isAccepted, "what the library accepts is accepted");
        demand((document.GetObject() != nullptr) == library.isRead,
               "there is an object of what the library reads");
        const QString kind = document.GetKind();
        demand(kind.isEmpty() ? !library.isRead : library.object && kind == library.object->GetObjectName(),
               "the kind is that of the root element");
        // The library keeps the text in front of a misplaced element, the check does not.
        demand(hasMisplacedElement(document.GetFindings())
                   || document.IsComplete() == (!kind.isEmpty() && library.object->HasData()),
               "what the library has read completely is complete");
        if (!library.isRead)
            return;
        const Inspected read(*library.object);
        demand(Inspected::Compare(document, read).isEmpty(), "the object is the one that the library reads");
        demand(Inspected::AreEqualObjects(document, read) == Inspected::AreEqualObjects(read, read),
               "the object equals the one that the library reads");
        demandSameObject(*document.GetObject(), *library.object,
                         "the object is written as the one that the library reads");
    }

    /// Of any document.
    static void checkWhatIsTold(const Inspected &told)
    {
        checkFindings(told.GetFindings(), !told.IsAccepted());
        checkFindingLines(told.GetFindingsJson("a file"), told.GetFindings(), 1);
        checkFindingLines(told.GetLossesJson("a file"), told.GetLosses(), 0);
        if (told.GetObject())
            checkJson(told.GetFieldsJson(), {"kind", "complete", "reason", "fields"});
        else
            demand(told.GetFieldsJson().isEmpty() && told.GetFields().isEmpty(),
                   "without an object there are no fields");
        demand(isOneLine(told.GetState()), "the state is told in one line: " + told.GetState());
        demand(told.GetState().contains(", complete") == (told.GetObject() && isWrittenWhole(told)),
               "the state tells whether it is complete: " + told.GetState());
    }

    static bool isWrittenWhole(const Inspected &told)
    {
        return told.IsComplete()
            && readingOf([&] {
                   told.GetObject()->Check();
                   return true;
               }).outcome
            == Reading::Taken;
    }

    void checkCopy() const
    {
        Inspected copy(document);
        demand(copy.GetFindings() == document.GetFindings() && copy.GetFields() == document.GetFields()
                   && copy.GetLosses() == document.GetLosses() && copy.GetState() == document.GetState(),
               "a copy tells what the original does");
        copy = Inspected();
        demand(copy.GetFindings().isEmpty() && copy.GetState().isEmpty(),
               "what is assigned takes the place of what was there");
    }

    void checkFields() const
    {
        constexpr int Most = 64;
        const QVector<KORMAK::Field> fields = document.GetFields();
        demand(!fields.isEmpty(), "an object has fields");
        QSet<QString> paths;
        for (const KORMAK::Field &field : fields) {
            checkField(field);
            paths.insert(field.GetPath());
            if (paths.size() <= Most)
                demand(document.GetField(field.GetPath()) == field, "a field is found by its path");
        }
        demand(paths.size() == fields.size(), "a path leads to one field");
        demand(Inspected::Compare(document, document).isEmpty(), "a document does not differ from itself");
        checkJson(Inspected::GetDifferencesJson(document, document),
                  {"kind", "equal", "equalToLibrary", "differences"});
    }

    void checkSetting() const
    {
        constexpr int Most = 32;
        QVector<typename Inspected::Setting> settings;
        for (const KORMAK::Field &field : document.GetFields()) {
            if (settings.size() > Most || !isSetAnew(field))
                continue;
            Inspected changed(document);
            const Reading setting = readingOf([&] {
                changed.SetField(field.GetPath(), field.GetText());
                return true;
            });
            demand(setting.outcome == Reading::Taken || mayBeRefused(field),
                   "what it holds a field is set to: " + setting.message);
            if (setting.outcome == Reading::Taken)
                settings.append({field.GetPath(), field.GetText()});
            checkOnlyOtherForms(field, Inspected::Compare(document, changed));
        }
        Inspected changed(document);
        changed.SetFields(settings);
        for (const typename Inspected::Setting &setting : settings)
            demandEqual(changed.GetField(setting.first).GetText(), setting.second,
                        "fields hold what they are set to: " + setting.first);
        demand(document.GetObject() != changed.GetObject(), "copies do not share what is set");
        checkWhatIsTold(changed);
    }

    void checkLosses() const
    {
        const QVector<KORMAK::Finding> losses = document.GetLosses();
        const bool hasError = std::any_of(losses.begin(), losses.end(), isError);
        demand(!hasError || std::all_of(losses.begin(), losses.end(), isError),
               "what is not written loses nothing");
        demand(hasError || isWritten(*document.GetObject()), "what cannot be written is told");
        if (!losses.isEmpty())
            return;
        const Inspected written(document.GetObject()->GetXmlString().toUtf8());
        demand(written.IsAccepted(), "what is written without a loss is accepted");
        checkNothingIsChanged(Inspected::Compare(document, written));
        demand(written.GetLosses().isEmpty(), "what was written is written again without a loss");
    }

    static bool isError(const KORMAK::Finding &finding)
    {
        return finding.GetSeverity() == KORMAK::Finding::Severity::Error;
    }

    void checkOfObject() const
    {
        const Inspected of(*document.GetObject());
        demand(of.GetKind() == document.GetKind() && of.IsComplete() == document.IsComplete()
                   && of.GetState() == document.GetState() && of.GetFields() == document.GetFields(),
               "a document of the object tells what that of the text does");
        demand(of.IsAccepted() == (document.IsAccepted() && (!of.IsComplete() || isWritten(*of.GetObject()))),
               "an object is accepted as its text, unless it is beyond XML");
        checkWhatIsTold(of);
        checkHaveNoPlaces(of.GetFindings());
        checkHaveNoPlaces(of.GetLosses());
    }

    const QByteArray text;
    const Inspected document;
    const LibraryReading library;
};

/// What \a bytes hold, within the ordinary limits and within ones that are soon reached.
template <class Inspected = KORMAK::Document>
void checkInspection(const QByteArray &bytes)
{
    InspectionCheck<Inspected>(bytes, {}).check();

    TESSEL::ReadingLimits narrow;
    narrow.SetAttributes(4);
    narrow.SetDepth(3);
    narrow.SetEntityCharacters(8);
    narrow.SetEntityFactor(0);
    InspectionCheck<Inspected>(bytes, narrow).check();
}

} // namespace Fuzz

#endif
