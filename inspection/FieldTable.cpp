#include "inspection/FieldTable_p.h"

#include <inspection/DocumentKind_p.h>
#include <inspection/FieldText_p.h>
#include <kormak/AutomaticWorkflow.h>
#include <kormak/Job.h>
#include <kormak/Parameter.h>

#include <algorithm>
#include <cmath>
#include <deque>
#include <map>
#include <type_traits>
#include <utility>

namespace KORMAK::Inspection {

namespace {

using TESSEL::ObjectTable;
using TESSEL::Row;
using TESSEL::TableView;
using Shown = FieldLabel::Shown;

template <class Object>
const Object &as(const void *object)
{
    return *static_cast<const Object *>(object);
}

/// Further parts of a label are set by name.
template <class Change>
constexpr FieldLabel with(QStringView key, QStringView label, Change change)
{
    FieldLabel made{key, label};
    change(made);
    return made;
}

constexpr FieldLabel shown(QStringView key, QStringView label, FieldLabel::Predicate predicate)
{
    FieldLabel made{key, label};
    made.isShown = predicate;
    return made;
}

// Jobs

constexpr FieldLabel HeaderLabels[] = {
    {u"Version", u"Version"},
    {u"JobType", u"Job type"},
    {u"Author", u"Author"},
    {u"Creation", u"Creation"},
    {u"ShowJDH", u"Show data header"},
    {u"ShowJDHText", u"Show data header, as written"},
    {u"Description", u"Description"},
    {u"ConnectableResource", u"Connectable resource", Shown::IfWritten},
};

constexpr FieldLabel AntennaLabels[] = {
    {u"Version", u"Version"},
    {u"Name", u"Name"},
    {u"MinimumFrequency", u"Minimum frequency"},
    {u"MaximumFrequency", u"Maximum frequency"},
    {u"Azimuth", u"Azimuth"},
    {u"Polarization", u"Polarization"},
};

bool isOnAntenna(const void *job)
{
    return as<Job>(job).GetResourceType() == TESSEL::ResourceType::Antenna;
}

bool hasAntenna(const void *job)
{
    return isOnAntenna(job) || as<Job>(job).GetAntennaData().AnyData();
}

QStringView whetherWritten(const void *job)
{
    return isOnAntenna(job) ? QStringView() : QStringView(u"never written: not the antenna resource");
}

constexpr FieldLabel JobLabels[] = {
    {u"Version", u"Version"},
    {u"JobHeader", u"Job header"},
    {u"ResourceType", u"Resource type"},
    {u"AntennaData", u"Antenna data", Shown::Always, hasAntenna, whetherWritten},
};

// Settings

constexpr FieldLabel CoordinateLabels[] = {
    {u"Latitude", u"Latitude"},
    {u"Longitude", u"Longitude"},
};

QString coordinateText(const void *object)
{
    const auto &coordinate = as<TESSEL::Coordinate>(object);
    return QStringLiteral("latitude %1, longitude %2")
        .arg(numberText(coordinate.GetLatitude()), numberText(coordinate.GetLongitude()));
}

constexpr FieldLabel AreaLabels[] = {
    {u"Version", u"Version"},
    {u"Name", u"Name"},
    {u"Coordinate", u"Coordinate"},
};

bool hasArea(const void *workflow)
{
    return as<AutomaticWorkflow>(workflow).GetArea().AnyData();
}

constexpr FieldLabel WorkflowLabels[] = {
    {u"Version", u"Version"},
    {u"Mode", u"Workflow mode"},
    {u"Classifiers", u"Classifiers"},
    {u"ClassificationTime", u"Classification time"},
    {u"ClassificationResult", u"Classification results"},
    {u"SearchStrategy", u"Search strategy"},
    {u"BitstreamClassification", u"HF bitstream classification"},
    {u"Area", u"Area", Shown::Always, hasArea},
};

constexpr FieldLabel GenerationLabels[] = {
    {u"Version", u"Version"},
    {u"Mode", u"Generation mode"},
    {u"Autostart", u"Starts by itself"},
    {u"EnergyChannel", u"Energy channel"},
    {u"LevelMinBurstDuration", u"Level: minimum burst duration"},
    {u"LevelMaxBreakDuration", u"Level: maximum break duration"},
    {u"DDemActiveCriteria", u"Demodulator: active criteria"},
    {u"DDemMinBurstDuration", u"Demodulator: minimum burst duration"},
    {u"DDemMaxBreakDuration", u"Demodulator: maximum break duration"},
    {u"DDemMorseQualityThreshold", u"Demodulator: Morse quality threshold"},
    {u"ClassIntermScore", u"Classifier: intermediate score"},
    {u"ClassFinalScore", u"Classifier: final score"},
    {u"ClassStartScore", u"Classifier: start score"},
    {u"ClassStopScore", u"Classifier: stop score"},
    {u"ClassMinConfidence", u"Classifier: minimum confidence"},
    {u"DetConvMinBurstDuration", u"Detection converter: minimum burst duration"},
    {u"DbWriteEnergy", u"Database: energy detections"},
    {u"DbWriteDDem", u"Database: demodulator results"},
    {u"DbWriteClass", u"Database: classifier results"},
    {u"CutAtLocations", u"Cut at locations"},
    {u"SessionCloseTime", u"Session close time"},
    {u"RestartAttachmentsOnSessionClose", u"Restart attachments on session close"},
};

// Receivers

constexpr FieldLabel ReceiverLabels[] = {
    {u"Version", u"Version"},
    {u"Parameter", u"Parameters"},
};

constexpr FieldLabel block(QStringView key, QStringView condition)
{
    FieldLabel made{key, {}};
    made.condition = condition;
    return made;
}

constexpr FieldLabel ParameterLabels[] = {
    {u"UniqueName", u"Unique name"},
    with(u"ParameterType", u"Parameter type", [](FieldLabel &label) { label.isSetFirst = true; }),
    {u"DisplaySuffix", u"Unit", Shown::IfSet},
    block(u"Boolean", u"ParameterType=Boolean"),
    block(u"Long", u"ParameterType=Long"),
    block(u"Integer", u"ParameterType=Integer"),
    block(u"Float", u"ParameterType=Float"),
    block(u"Double", u"ParameterType=Double or DoubleList"),
    block(u"TimeStamp", u"ParameterType=TimeStamp"),
    block(u"String", u"ParameterType=String"),
    block(u"Enum", u"ParameterType=Enum"),
    {u"RepresentationName", u"Representation name"},
    {u"ValueType", u"Value type"},
    {u"ControlType", u"Control type", Shown::IfSet},
    {u"Multiplier", u"Multiplier", Shown::IfWritten},
    shown(u"Enable", u"Enabled", [](const void *parameter) { return !as<Parameter>(parameter).IsEnabled(); }),
    {u"DisplayName", u"Display name", Shown::IfSet},
    with(u"ToolTip", u"Tool tip",
         [](FieldLabel &label) {
             label.shown = Shown::IfSet;
             label.isProse = true;
         }),
    {u"Version", u"Version", Shown::Never},
};

const DoubleHandler &doubleOf(const void *parameter)
{
    return as<Parameter>(parameter).GetDoubleHandler();
}

const EnumHandler &enumOf(const void *parameter)
{
    return as<Parameter>(parameter).GetEnumHandler();
}

/// Of all blocks. What documents never say people do not need to see.
constexpr FieldLabel BlockLabels[] = {
    {u"Minimum", u"Minimum"},
    {u"Maximum", u"Maximum"},
    {u"Default", u"Default"},
    {u"Precision", u"Decimals"},
    shown(u"MaxDoubleListLength", u"Maximum length",
          [](const void *parameter) -> bool { return doubleOf(parameter).IsDoubleList(); }),
    {u"Value", u"Value", Shown::Never},
    {u"UseAsList", u"List", Shown::Never},
    shown(u"DoubleList", u"Values",
          [](const void *parameter) { return !doubleOf(parameter).GetDoubleList().isEmpty(); }),
    {u"Multiplier", u"Multiplier in the handler", Shown::Never},
    {u"EnumValue", u"Entry"},
    shown(u"DefaultValue", u"Default", [](const void *parameter) { return enumOf(parameter).HasData(); }),
    shown(u"SelectedEnumValue", u"Selected",
          [](const void *parameter) {
              const EnumHandler &handler = enumOf(parameter);
              return handler.HasData() && handler.GetSelectedEnumValue() != handler.GetDefaultValue();
          }),
    {u"RepresentationName", u"Name in the handler", Shown::Never},
    {u"UniqueParameterName", u"Unique name in the handler", Shown::Never},
};

constexpr FieldLabel BooleanLabels[] = {
    {u"Value", u"Value"},
    {u"RepresentationName", u"Name in the handler", Shown::Never},
    {u"UniqueParameterName", u"Unique name in the handler", Shown::Never},
};

constexpr FieldLabel EntryLabels[] = {
    {u"Key", u"Key"},     {u"Name", u"Name"},       {u"Identifier", u"Identifier"},
    {u"Value", u"Value"}, {u"Default", u"Default"},
};

QString entryText(const void *object)
{
    const auto &entry = as<EnumHandler::EnumValue>(object);
    const QString identifier =
        entry.Identifier.isEmpty() ? QString() : QStringLiteral(", ") + entry.Identifier;
    return QString::number(entry.Key) + QLatin1Char(' ') + entry.Name + QStringLiteral(" (")
        + numberText(entry.Value) + identifier + QLatin1Char(')');
}

constexpr FieldLabel ItemLabels[] = {
    {{}, u"Value"},
};

/// What people are told of the objects that a row holds, or of a kind of document.
constexpr struct ObjectLabels {
    QStringView name; ///< of the row or the kind
    TableView<FieldLabel> labels;
    QString (*inLine)(const void *object) = nullptr;
} AllLabels[] = {
    {u"Job", JobLabels},
    {u"JobHeader", HeaderLabels},
    {u"AntennaData", AntennaLabels},
    {u"AutomaticWorkflow", WorkflowLabels},
    {u"Area", AreaLabels},
    {u"Coordinate", CoordinateLabels, coordinateText},
    {u"ActivityGeneration", GenerationLabels},
    {u"GenericReceiver", ReceiverLabels},
    {u"Parameter", ParameterLabels},
    {u"Boolean", BooleanLabels},
    {u"Long", BlockLabels},
    {u"Integer", BlockLabels},
    {u"Float", BlockLabels},
    {u"Double", BlockLabels},
    {u"TimeStamp", BlockLabels},
    {u"String", BlockLabels},
    {u"Enum", BlockLabels},
    {u"EnumValue", EntryLabels, entryText},
    {u"DoubleList", ItemLabels},
};

/// The tables of all fields, made once.
class FieldTables {
public:
    FieldTables()
    {
        for (const QString &kind : documentKindNames())
            tableOf(findDocumentKind(kind)->table(), kind);
    }

    [[nodiscard]] const FieldTable &at(const ObjectTable &table) const { return tables.at(&table); }

private:
    const FieldTable &tableOf(const ObjectTable &objects, QStringView name)
    {
        const auto known = tables.find(&objects);
        if (known != tables.end())
            return known->second;
        const ObjectLabels entry = labelsOf(name);
        FieldTable table;
        std::vector<const Row *> labelled;
        for (const FieldLabel &label : entry.labels) {
            if (const Row *const row = objects.field(label.key)) {
                table.rows.push_back(rowOf(objects, *row, label));
                labelled.push_back(row);
            }
        }
        for (const auto &rows : {objects.attributes, objects.elements, objects.fields}) {
            for (const Row &row : rows) {
                if (!objects.isField(row)
                    || std::find(labelled.begin(), labelled.end(), &row) != labelled.end())
                    continue;
                table.rows.push_back(rowOf(objects, row, {row.name, row.name}));
                table.rows.back().isLabelled = false;
            }
        }
        table.inLine = entry.inLine;
        return tables.emplace(&objects, std::move(table)).first->second;
    }

    /// Without labels for objects that have none.
    static ObjectLabels labelsOf(QStringView name)
    {
        const auto *const found =
            std::find_if(std::begin(AllLabels), std::end(AllLabels),
                         [name](const ObjectLabels &candidate) { return candidate.name == name; });
        return found == std::end(AllLabels) ? ObjectLabels{name, {}} : *found;
    }

    /// A block without elements of its own is filled from the text of one, which is its value.
    static bool isInDocuments(const ObjectTable &table, const Row &row)
    {
        if (!table.isInner(row))
            return row.read || row.part;
        const Row *const element = table.element(row.name);
        const bool isText = table.attributes.size() == 0 && table.elements.size() == 0;
        return (element && element->read) || (isText && row.name == QStringView(u"Value"));
    }

    /// A field may be read from one row and asked for in another.
    static Field::Requirement requirementOf(const ObjectTable &table, const Row &row)
    {
        Field::Requirement result = Field::Requirement::None;
        for (const Row *const one : {&row, table.attribute(row.name), table.element(row.name)}) {
            if (one && one->isRequired())
                result = std::max(
                    result, one->isApplicable ? Field::Requirement::Sometimes : Field::Requirement::Always);
        }
        return result;
    }

    FieldRow rowOf(const ObjectTable &table, const Row &row, const FieldLabel &label)
    {
        const bool isBlock = row.content == Row::Content::Block;
        FieldRow made{label};
        made.type = row.type;
        made.get = row.get;
        made.set = row.set;
        made.exists = table.isInner(row) || isBlock ? row.isWritten : nullptr;
        made.isWritten = row.isWritten;
        made.isInDocuments = isInDocuments(table, row);
        made.requirement = requirementOf(table, row);
        made.rank = label.isSetFirst ? -1 : isBlock ? 1 : 0;
        if (row.part) {
            parts.push_back(
                {row.part->kind, tableOf(row.part->table(), row.name), row.part->all, row.part->change});
            made.parts = &parts.back();
        }
        return made;
    }

    std::map<const ObjectTable *, FieldTable> tables;
    std::deque<FieldParts> parts; // what is in it stays in its place
};

} // namespace

bool areSame(const FieldValue &a, const FieldValue &b)
{
    return a.index() == b.index()
        && std::visit(
               [&b](const auto &value) {
                   using Value = std::decay_t<decltype(value)>;
                   const auto &other = std::get<Value>(b);
                   if constexpr (std::is_floating_point_v<Value>)
                       return value == other || (std::isnan(value) && std::isnan(other));
                   else
                       return value == other;
               },
               a);
}

const FieldTable &fieldsOf(const ObjectTable &table)
{
    static const FieldTables all;
    return all.at(table);
}

QString bracketed(const FieldParts &parts, const QString &key)
{
    if (parts.kind == FieldParts::Kind::One)
        return {};
    if (!key.contains(QLatin1Char('\\')) && !key.contains(QLatin1Char(']')))
        return QLatin1Char('[') + key + QLatin1Char(']');
    QString text = key;
    text.replace(QLatin1Char('\\'), QStringLiteral("\\\\")).replace(QLatin1Char(']'), QStringLiteral("\\]"));
    return QLatin1Char('[') + text + QLatin1Char(']');
}

} // namespace KORMAK::Inspection
