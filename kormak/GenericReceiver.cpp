#include "kormak/GenericReceiver.h"

#include <objectbase/Constants_p.h>
#include <objectbase/FileContent_p.h>
#include <objectbase/QtCompat_p.h>
#include <objectbase/TesselException.h>
#include <objectbase/XmlForm_p.h>

#include <QFile>
#include <QTextStream>

#include <algorithm>

namespace KORMAK {

using namespace TESSEL;

namespace {

[[maybe_unused]] constexpr auto LogLevels = LogLevelNames;

} // namespace

struct GenericReceiver::Xml {
    static void readParameter(GenericReceiver &receiver, QXmlStreamReader &reader)
    {
        receiver.readingParameter.Reset();
        readOwned(receiver, receiver.readingParameter, reader);
        receiver.AddParameter(receiver.readingParameter);
    }
    static void writeParameters(const GenericReceiver &receiver, QXmlStreamWriter &writer,
                                const QString & /*tag*/)
    {
        for (const Parameter &parameter : receiver.parameterList)
            parameter.GetXml(writer);
    }
    static const QString &parameterName(const GenericReceiver &receiver)
    {
        return receiver.readingParameter.GetObjectName();
    }

    static void acceptScript(GenericReceiver & /*receiver*/, QXmlStreamReader & /*reader*/)
    {
        // The base skips what is left untouched.
    }

    static constexpr XmlAttribute<GenericReceiver> attributes[] = {
        attribute<&GenericReceiver::version>(TagVersion),
    };
    static constexpr XmlElement<GenericReceiver> elements[] = {
        {{}, readParameter, writeParameters, nullptr, parameterName}, // one element each
        {u"Script", acceptScript, nullptr},
    };
};

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
        throw TesselException(borrowed(u"Unknown Parameter '%1' in '%2'.").arg(uniqueName, GetObjectName()));
    return *parameter;
}

void GenericReceiver::Load(const QString &path, QString &text) const
{
    QFile file(path);
    const bool isOpen = file.open(QIODevice::ReadOnly | QIODevice::Text);
    const auto content = isOpen ? contentOf(file) : std::nullopt;
    if (!content)
        throw TesselException(borrowed(u"Can't open file for reading: '%1'").arg(path));
    QTextStream stream(*content);
    useUtf8(stream);
    text = stream.readAll();
}

void GenericReceiver::ImportXML(const QString &path)
{
    QString text;
    Load(path, text);
    if (!SetXmlString(text, true))
        throwMessage(*this, u"Corrupted XML or it does not meet the our format!");
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
        throwPleaseSet(*this, u"ParameterList");
}

const QString &GenericReceiver::GetVersion() const
{
    return version;
}

void GenericReceiver::GetXml(QXmlStreamWriter &writer) const
{
    writeDocument<Xml>(*this, writer);
}

void GenericReceiver::ProcessXml(QXmlStreamReader &reader)
{
    readDocument<Xml>(*this, reader);
}

void GenericReceiver::ProcessXmlStartElement(QXmlStreamReader &reader)
{
    readChild<Xml>(*this, reader);
}

} // namespace KORMAK
