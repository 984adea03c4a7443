#include "kormak/GenericReceiver.h"

#include <objectbase/Constants_p.h>
#include <objectbase/Debug_p.h>
#include <objectbase/DocumentRows_p.h>
#include <objectbase/DocumentXml_p.h>
#include <objectbase/FileContent_p.h>
#include <objectbase/Messages_p.h>
#include <objectbase/QtCompat_p.h>

#include <QFile>
#include <QTextStream>

#include <algorithm>

namespace KORMAK {

using namespace TESSEL;

namespace {

[[maybe_unused]] constexpr auto LogLevels = LogLevelNames;

} // namespace

struct GenericReceiver::Xml {
    static GenericReceiver &as(void *object) { return *static_cast<GenericReceiver *>(object); }
    static const GenericReceiver &as(const void *object)
    {
        return *static_cast<const GenericReceiver *>(object);
    }

    static void *enterParameter(void *object)
    {
        Parameter &parameter = as(object).readingParameter;
        parameter.Reset();
        return &parameter;
    }
    static void leaveParameter(void *object, void *parameter)
    {
        as(object).AddParameter(*static_cast<Parameter *>(parameter));
    }
    static void readParameter(void *object, QXmlStreamReader &reader)
    {
        auto &parameter = *static_cast<Parameter *>(enterParameter(object));
        readOwned(as(object), parameter, reader);
        leaveParameter(object, &parameter);
    }
    static void writeParameters(const void *object, QXmlStreamWriter &writer, const QString & /*tag*/)
    {
        for (const Parameter &parameter : as(object).parameterList)
            parameter.GetXml(writer);
    }
    static const QString &parameterName(const void *object)
    {
        return as(object).readingParameter.GetObjectName();
    }

    static std::vector<FieldPart> allParameters(const void *object)
    {
        const QMap<QString, Parameter> &list = as(object).parameterList;
        std::vector<FieldPart> all;
        all.reserve(static_cast<std::size_t>(list.size()));
        for (auto entry = list.constBegin(); entry != list.constEnd(); ++entry)
            all.push_back({entry.key(), &*entry});
        return all;
    }
    /// The handler of a new type gets to know the name only when it is set again.
    static void changeParameter(void *object, const QString &name, const FieldChange &work)
    {
        GenericReceiver &receiver = as(object);
        const bool isNew = !receiver.parameterList.contains(name);
        Parameter parameter = isNew ? Parameter() : receiver.GetParameter(name);
        if (isNew)
            parameter.SetUniqueParameterName(name);
        const ParameterType typeBefore = parameter.GetParameterType();
        work(&parameter);
        if (parameter.GetUniqueParameterName() != name)
            throw FieldError{QStringLiteral("must be the name in the brackets")};
        if (parameter.GetParameterType() != typeBefore)
            parameter.SetUniqueParameterName(name);
        receiver.AddParameter(parameter);
    }

    static constexpr Part parameters{Part::Kind::Map, DocumentTables::of<Parameter>,
                                     allParameters,   changeParameter,
                                     parameterName,   nullptr,
                                     readParameter,   writeParameters,
                                     enterParameter,  leaveParameter};

    static constexpr Row attributes[] = {
        Rows::attribute<&GenericReceiver::version>(TagVersion),
    };
    static constexpr Row elements[] = {
        Rows::partElement(u"Parameter", Row::Content::Object, parameters), // one element each
        Rows::ignoredElement(u"Script"),
    };
    static constexpr ObjectTable table{u"GenericReceiver", attributes, elements};
};

const ObjectTable &GenericReceiver::table()
{
    return Xml::table;
}

GenericReceiver::GenericReceiver() : ITesselObject(ObjectTypes::GenericReceiver)
{
    GenericReceiver::Reset();
}

GenericReceiver::GenericReceiver(const GenericReceiver &other) = default;

GenericReceiver &GenericReceiver::operator=(const GenericReceiver &other) = default;

GenericReceiver::~GenericReceiver() = default;

void GenericReceiver::AddParameter(const Parameter &parameter)
{
    // Documents name them in order, as they are written.
    parameterList.insert(parameterList.constEnd(), parameter.GetUniqueParameterName(), parameter);
}

Parameter GenericReceiver::GetParameter(const QString &uniqueName) const
{
    const auto parameter = parameterList.constFind(uniqueName);
    if (parameter == parameterList.constEnd())
        fail(Messages::unknownParameter(GetObjectName(), uniqueName));
    return *parameter;
}

void GenericReceiver::Load(const QString &path, QString &text) const
{
    QFile file(path);
    const bool isOpen = file.open(QIODevice::ReadOnly | QIODevice::Text);
    const auto content = isOpen ? contentOf(file) : std::nullopt;
    if (!content)
        fail(Messages::cannotOpen(path));
    QTextStream stream(*content);
    useUtf8(stream);
    text = stream.readAll();
}

void GenericReceiver::ImportXML(const QString &path)
{
    QString text;
    Load(path, text);
    if (!SetXmlString(text, true))
        fail(Messages::corrupted(GetObjectName()));
}

bool GenericReceiver::operator==(const GenericReceiver &other) const
{
    // Not the operator of the map, which takes maps that share their data for equal even when a parameter
    // holds a NaN.
    const auto &others = other.parameterList;
    return GetVersion() == other.GetVersion()
        && std::equal(parameterList.keyBegin(), parameterList.keyEnd(), others.keyBegin(), others.keyEnd())
        && std::equal(parameterList.begin(), parameterList.end(), others.begin(), others.end());
}

bool GenericReceiver::HasData() const
{
    return std::all_of(parameterList.begin(), parameterList.end(),
                       [](const Parameter &parameter) { return parameter.HasData(); });
}

bool GenericReceiver::AnyData() const
{
    return true;
}

void GenericReceiver::Reset()
{
    version = defaultVersion();
    parameterList.clear();
}

void GenericReceiver::Check() const
{
    if (parameterList.isEmpty() && !HasData())
        fail(Messages::pleaseSet(GetObjectName(), u"ParameterList"));
}

const QString &GenericReceiver::GetVersion() const
{
    return version;
}

void GenericReceiver::GetXml(QXmlStreamWriter &writer) const
{
    if (HasData())
        writeElement(Xml::table, this, writer, GetObjectName());
}

void GenericReceiver::ProcessXml(QXmlStreamReader &reader)
{
    readAttributes(Xml::table, this, reader);
    ITesselObject::ProcessXml(reader);
}

void GenericReceiver::ProcessXmlStartElement(QXmlStreamReader &reader)
{
    readChild(Xml::table, this, *this, reader);
}

QDebug operator<<(QDebug debug, const GenericReceiver &object)
{
    return TESSEL::printDocument(debug, object);
}

} // namespace KORMAK
