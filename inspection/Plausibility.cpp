#include "inspection/Plausibility_p.h"

#include <inspection/FieldPlaces_p.h>
#include <inspection/FieldText_p.h>
#include <inspection/QuotedText_p.h>
#include <kormak/AutomaticWorkflow.h>
#include <kormak/Job.h>
#include <objectbase/Constants_p.h>
#include <objectbase/ITesselObject.h>

#include <QStringList>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace KORMAK::Inspection {

namespace {

using TESSEL::AntennaData;
using TESSEL::FieldPart;
using TESSEL::ObjectTable;
using TESSEL::Row;

/// An object, and what else tells whether it is plausible.
struct Subject {
    const ObjectTable &table;
    const void *object;
    QString newestVersion; ///< that is known of it
    QDateTime now;

    template <class Object>
    [[nodiscard]] const Object &as() const
    {
        return *static_cast<const Object *>(object);
    }
};

// Places

QString latitudeOutside(const Subject &subject)
{
    const double latitude = subject.as<TESSEL::Coordinate>().GetLatitude();
    if (std::abs(latitude) <= 90)
        return {};
    return QStringLiteral("%1 is not a latitude from -90 to 90 degrees").arg(numberText(latitude));
}

QString longitudeOutside(const Subject &subject)
{
    const double longitude = subject.as<TESSEL::Coordinate>().GetLongitude();
    if (std::abs(longitude) <= 180)
        return {};
    return QStringLiteral("%1 is not a longitude from -180 to 180 degrees").arg(numberText(longitude));
}

/// Only a name is an area, too: one that others know.
QString areaWithoutExtent(const Subject &subject)
{
    constexpr std::size_t LeastCorners = 3;
    std::vector<TESSEL::Coordinate> corners;
    for (const TESSEL::Coordinate &coordinate : subject.as<TESSEL::Area>().GetCoordinate()) {
        if (std::find(corners.begin(), corners.end(), coordinate) == corners.end())
            corners.push_back(coordinate);
        if (corners.size() == LeastCorners)
            return {};
    }
    if (corners.empty())
        return {};
    return corners.size() == 1
        ? QStringLiteral("the area is a point: it has the coordinates of one only")
        : QStringLiteral("the area is a line: it has the coordinates of two points only");
}

// Antennas

bool hasRange(const AntennaData &antenna)
{
    return antenna.GetMinimumFrequency() >= 0
        && antenna.GetMaximumFrequency() > antenna.GetMinimumFrequency();
}

QString azimuthOutside(const Subject &subject)
{
    constexpr double FullCircle = 360;
    const double azimuth = subject.as<AntennaData>().GetAzimuth();
    if (std::isnan(azimuth) || (azimuth >= 0 && azimuth <= FullCircle))
        return {};
    return QStringLiteral("%1 is not an azimuth from 0 to 360 degrees").arg(numberText(azimuth));
}

/// Of an antenna that Check() leaves alone, since the job is on another resource.
QString rangeUpsideDown(const Subject &subject)
{
    const Job &job = subject.as<Job>();
    const AntennaData &antenna = job.GetAntennaData();
    const bool isChecked = job.GetResourceType() == TESSEL::ResourceType::Antenna
        || !TESSEL::ResourceType::IsValidResourceType(job.GetResourceType());
    if (isChecked || !(antenna.GetMaximumFrequency() < antenna.GetMinimumFrequency()))
        return {};
    return QStringLiteral("the maximum %1 Hz is below the minimum %2 Hz")
        .arg(numberText(antenna.GetMaximumFrequency()), numberText(antenna.GetMinimumFrequency()));
}

enum class Band { HF, VUHF };

/// The type of the job or its resource, whichever is for \a band by its name; empty: neither.
QString nameFor(Band band, const Job &job)
{
    const QStringList names{JobType::JobTypeToName(job.GetJobHeader().GetJobType()),
                            TESSEL::ResourceType::ResourceTypeToName(job.GetResourceType())};
    for (const QString &name : names) {
        const bool isVUHF = name.endsWith(QLatin1String(" VUHF")) || name.endsWith(QLatin1String(" V/UHF"));
        if (band == Band::VUHF ? isVUHF : name.endsWith(QLatin1String(" HF")))
            return name;
    }
    return {};
}

QString antennaAboveHF(const Subject &subject)
{
    constexpr double EndOfHF = 30e6;
    const Job &job = subject.as<Job>();
    const AntennaData &antenna = job.GetAntennaData();
    if (!hasRange(antenna) || antenna.GetMinimumFrequency() <= EndOfHF)
        return {};
    const QString name = nameFor(Band::HF, job);
    if (name.isEmpty())
        return {};
    return QStringLiteral("the antenna begins at %1 Hz, but \"%2\" is for HF, which ends at 30 MHz")
        .arg(numberText(antenna.GetMinimumFrequency()), name);
}

QString antennaBelowVUHF(const Subject &subject)
{
    constexpr double BeginOfVUHF = 20e6; // of what receivers for V/UHF are made for
    const Job &job = subject.as<Job>();
    const AntennaData &antenna = job.GetAntennaData();
    if (!hasRange(antenna) || antenna.GetMaximumFrequency() >= BeginOfVUHF)
        return {};
    const QString name = nameFor(Band::VUHF, job);
    if (name.isEmpty())
        return {};
    return QStringLiteral("the antenna ends at %1 Hz, but \"%2\" is for V/UHF, which begins at 20 MHz")
        .arg(numberText(antenna.GetMaximumFrequency()), name);
}

// Documents

QString createdInFuture(const Subject &subject)
{
    const QDateTime &creation = subject.as<JobHeader>().GetCreation();
    if (!creation.isValid() || creation <= subject.now.addDays(1))
        return {};
    return QStringLiteral("%1 is in the future").arg(settableText({TextType::Kind::DateTime}, creation));
}

/// The numbers on both sides of the point; nothing when \a version is none.
std::optional<std::pair<int, int>> versionOf(const QString &version)
{
    const QStringList numbers = version.split(QLatin1Char('.'));
    if (numbers.size() != 2)
        return std::nullopt;
    bool isNumber[2] = {};
    const std::pair result(numbers[0].toUShort(&isNumber[0]), numbers[1].toUShort(&isNumber[1]));
    return isNumber[0] && isNumber[1] ? std::optional<std::pair<int, int>>(result) : std::nullopt;
}

/// Documents of older systems are read, and one that says no version makes no claim.
QString versionUnknown(const Subject &subject)
{
    const Row *const row = subject.table.attribute(u"Version");
    if (!row || !row->get)
        return {};
    const FieldValue value = row->get(subject.object);
    if (const auto *const text = std::get_if<QString>(&value); text && *text == subject.newestVersion)
        return {}; // as nearly all are
    const QString text = settableText(row->type, value);
    const auto version = versionOf(text);
    const auto newest = versionOf(subject.newestVersion);
    if (text.isEmpty() || (version && version >= std::pair(1, 0) && version <= newest))
        return {};
    return QStringLiteral("the version %1 is not known; the newest is %2")
        .arg(quoted(text), subject.newestVersion);
}

constexpr struct Rule {
    QStringView element; ///< that the object is in; null: any
    QStringView field; ///< that is told of, from the object on; empty: the object itself
    QStringView id;
    QString (*objection)(const Subject &subject); ///< empty: there is none
    QStringView gist = {}; ///< as FindingData has it
} Rules[] = {
    {u"Coordinate", u"Latitude", FindingId::SuspiciousLatitude, latitudeOutside},
    {u"Coordinate", u"Longitude", FindingId::SuspiciousLongitude, longitudeOutside},
    {u"Area", u"", FindingId::SuspiciousArea, areaWithoutExtent, u"no extent"},
    {u"AntennaData", u"Azimuth", FindingId::SuspiciousAzimuth, azimuthOutside},
    {u"Job", u"AntennaData.MaximumFrequency", FindingId::SuspiciousRange, rangeUpsideDown},
    {u"Job", u"AntennaData.MinimumFrequency", FindingId::SuspiciousAntenna, antennaAboveHF},
    {u"Job", u"AntennaData.MaximumFrequency", FindingId::SuspiciousAntenna, antennaBelowVUHF},
    {u"JobHeader", u"Creation", FindingId::SuspiciousCreation, createdInFuture},
    {{}, u"Version", FindingId::SuspiciousVersion, versionUnknown},
};

/// The way to an object from the document.
struct Way {
    const Way *around; ///< null: it is the document
    const FieldRow *field = nullptr;
    const QString *key = nullptr;

    /// Made only where there is something to tell.
    [[nodiscard]] QString path() const
    {
        return around ? joined(around->path(), field->key.toString() + bracketed(*field->parts, *key))
                      : QString();
    }
};

/// What a rule says of an object.
struct Objection {
    const Rule *rule;
    const ObjectTable *table; ///< of the object
    QString path; ///< of the object
    QString message;
};

/// Collects what there is to say of \a subject and of the objects in it.
void judge(std::vector<Objection> &objections, QStringView element, const Subject &subject, const Way &way)
{
    for (const Rule &rule : Rules) {
        if (!rule.element.isNull() && rule.element != element)
            continue;
        if (const QString message = rule.objection(subject); !message.isEmpty())
            objections.push_back({&rule, &subject.table, way.path(), message});
    }
    for (const Row &row : subject.table.elements) {
        if (!row.part || row.content != Row::Content::Object)
            continue;
        const FieldRow *const field = fieldsOf(subject.table).find(row.name);
        for (const FieldPart &part : row.part->all(subject.object)) {
            judge(objections, row.name,
                  {row.part->table(), part.object, TESSEL::defaultVersion(), subject.now},
                  {&way, field, &part.key});
        }
    }
}

/// Where the field has no element of its own, at the innermost one around it.
FindingData findingOf(const Objection &objection, const XmlTree &tree, const FieldPlaces &places)
{
    const auto lastOf = [&places](const QString &path) {
        const std::vector<FieldPlace> all = places.find(path);
        return all.empty() ? XmlTree::None : all.back().element;
    };
    const Rule &rule = *objection.rule;
    XmlTree::Index at = std::max(lastOf(objection.path), XmlTree::Root);
    QString path = objection.path;
    QString below;
    std::optional<QString> found;
    if (objection.table->attribute(rule.field)) {
        below = QStringLiteral("/@") + rule.field.toString();
        found = tree.attribute(at, rule.field);
    } else if (!rule.field.isEmpty()) {
        for (const QString &step : rule.field.toString().split(QLatin1Char('.'))) {
            path = joined(path, step);
            const XmlTree::Index next = below.isEmpty() ? lastOf(path) : XmlTree::None;
            if (next == XmlTree::None)
                below += QLatin1Char('/') + step;
            else
                at = next;
        }
        if (below.isEmpty())
            found = tree.text(at);
    }
    FindingData result{tree.offset(at), objection.message, tree.path(at) + below,
                       rule.id,         Severity::Warning, found};
    result.gist = rule.gist.toString();
    return result;
}

} // namespace

Findings implausible(const DocumentKind &kind, const TESSEL::ITesselObject &object, const XmlTree &tree,
                     const QDateTime &now)
{
    std::vector<Objection> objections;
    judge(objections, kind.rootElement,
          {kind.table(), kind.address(object), kind.create()->GetVersion(), now}, {nullptr});
    if (objections.empty())
        return {}; // as nearly always: nothing need be looked for
    QStringList paths;
    for (const Objection &objection : objections)
        paths += objection.path;
    const FieldPlaces places(tree, kind, object, EditScope(paths));
    Findings findings;
    for (const Objection &objection : objections)
        findings.push_back(findingOf(objection, tree, places));
    return findings;
}

} // namespace KORMAK::Inspection
