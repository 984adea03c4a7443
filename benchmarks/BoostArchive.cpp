#include "Alternatives.h"

#include <boost/archive/xml_iarchive.hpp>
#include <boost/archive/xml_oarchive.hpp>
#include <boost/serialization/nvp.hpp>
#include <boost/serialization/split_free.hpp>
#include <boost/serialization/string.hpp>
#include <boost/serialization/vector.hpp>
#include <sstream>

BOOST_SERIALIZATION_SPLIT_FREE(Lean::Parameter)
BOOST_SERIALIZATION_SPLIT_FREE(Lean::Receiver)

namespace boost::serialization {

namespace {

template <class Archive>
void saveText(Archive &archive, const char *name, const QString &text)
{
    const std::string utf8 = text.toStdString();
    archive << make_nvp(name, utf8);
}

template <class Archive>
void loadText(Archive &archive, const char *name, QString &text)
{
    std::string utf8;
    archive >> make_nvp(name, utf8);
    text = QString::fromStdString(utf8);
}

template <class Archive>
void handleText(Archive &archive, const char *name, QString &text)
{
    if constexpr (Archive::is_saving::value)
        saveText(archive, name, text);
    else
        loadText(archive, name, text);
}

template <class Value, class Archive>
void loadValue(Archive &archive, Lean::Parameter &parameter)
{
    Value value{};
    archive >> make_nvp("Value", value);
    parameter.value = value;
}

template <class Archive, class Value>
void loadList(Archive &archive, const char *name, std::vector<Value> &list)
{
    archive >> make_nvp(name, list);
}

} // namespace

template <class Archive>
void serialize(Archive &archive, Lean::Entry &entry, unsigned int /*version*/)
{
    archive &make_nvp("Key", entry.key);
    handleText(archive, "Name", entry.name);
    handleText(archive, "Identifier", entry.identifier);
    archive &make_nvp("Value", entry.value);
    archive &make_nvp("Default", entry.isDefault);
}

template <class Archive>
void serialize(Archive &archive, Lean::WholeNumber &number, unsigned int /*version*/)
{
    archive &make_nvp("Minimum", number.minimum);
    archive &make_nvp("Maximum", number.maximum);
    archive &make_nvp("Default", number.standard);
}

template <class Archive>
void serialize(Archive &archive, Lean::RealNumber &number, unsigned int /*version*/)
{
    archive &make_nvp("Minimum", number.minimum);
    archive &make_nvp("Maximum", number.maximum);
    archive &make_nvp("Default", number.standard);
    archive &make_nvp("Precision", number.precision);
    archive &make_nvp("MaxDoubleListLength", number.maximumLength);
}

/// What stands before the value, the same in both directions.
template <class Archive, class Parameter>
void handleHead(Archive &archive, Parameter &parameter)
{
    archive &make_nvp("Multiplier", parameter.multiplier);
    archive &make_nvp("ParameterType", parameter.type);
    archive &make_nvp("ValueType", parameter.valueType);
    archive &make_nvp("ControlType", parameter.controlType);
    archive &make_nvp("Enable", parameter.enabled);
}

template <class Archive>
void save(Archive &archive, const Lean::Parameter &parameter, unsigned int /*version*/)
{
    saveText(archive, "Version", parameter.version);
    saveText(archive, "UniqueName", parameter.uniqueName);
    saveText(archive, "RepresentationName", parameter.representationName);
    saveText(archive, "DisplayName", parameter.displayName);
    saveText(archive, "ToolTip", parameter.toolTip);
    saveText(archive, "DisplaySuffix", parameter.displaySuffix);
    handleHead(archive, parameter);
    if (const auto *text = std::get_if<QString>(&parameter.value)) {
        saveText(archive, "Value", *text);
    } else if (const auto *list = std::get_if<QVector<Lean::Entry>>(&parameter.value)) {
        const std::vector<Lean::Entry> entries(list->begin(), list->end());
        archive << make_nvp("Value", entries);
    } else if (const auto *whole = std::get_if<Lean::WholeNumber>(&parameter.value)) {
        archive << make_nvp("Value", *whole);
    } else if (const auto *real = std::get_if<Lean::RealNumber>(&parameter.value)) {
        archive << make_nvp("Value", *real);
    } else {
        const bool on = std::get<bool>(parameter.value);
        archive << make_nvp("Value", on);
    }
}

template <class Archive>
void load(Archive &archive, Lean::Parameter &parameter, unsigned int /*version*/)
{
    loadText(archive, "Version", parameter.version);
    loadText(archive, "UniqueName", parameter.uniqueName);
    loadText(archive, "RepresentationName", parameter.representationName);
    loadText(archive, "DisplayName", parameter.displayName);
    loadText(archive, "ToolTip", parameter.toolTip);
    loadText(archive, "DisplaySuffix", parameter.displaySuffix);
    handleHead(archive, parameter);
    switch (parameter.type) {
    case Lean::String: {
        QString text;
        loadText(archive, "Value", text);
        parameter.value = text;
        break;
    }
    case Lean::Enum: {
        std::vector<Lean::Entry> entries;
        archive >> make_nvp("Value", entries);
        parameter.value = QVector<Lean::Entry>(entries.begin(), entries.end());
        break;
    }
    case Lean::Long:
    case Lean::Integer:
    case Lean::TimeStamp:
        loadValue<Lean::WholeNumber>(archive, parameter);
        break;
    case Lean::Float:
    case Lean::Double:
    case Lean::DoubleList:
        loadValue<Lean::RealNumber>(archive, parameter);
        break;
    case Lean::Boolean:
    case Lean::NoType:
        loadValue<bool>(archive, parameter);
        break;
    }
}

template <class Archive>
void save(Archive &archive, const Lean::Receiver &receiver, unsigned int /*version*/)
{
    saveText(archive, "Version", receiver.version);
    const int count = static_cast<int>(receiver.parameters.size());
    archive << make_nvp("Count", count);
    for (const Lean::Parameter &parameter : receiver.parameters)
        archive << make_nvp("Parameter", parameter);
}

template <class Archive>
void load(Archive &archive, Lean::Receiver &receiver, unsigned int /*version*/)
{
    loadText(archive, "Version", receiver.version);
    int count = 0;
    archive >> make_nvp("Count", count);
    for (int i = 0; i < count; ++i) {
        Lean::Parameter parameter;
        archive >> make_nvp("Parameter", parameter);
        receiver.parameters.insert(parameter.uniqueName, parameter);
    }
}

} // namespace boost::serialization

// Every value stands for itself; without this the archive looks each one up among those that it has met.
BOOST_CLASS_TRACKING(Lean::Entry, boost::serialization::track_never)
BOOST_CLASS_TRACKING(Lean::WholeNumber, boost::serialization::track_never)
BOOST_CLASS_TRACKING(Lean::RealNumber, boost::serialization::track_never)
BOOST_CLASS_TRACKING(Lean::Parameter, boost::serialization::track_never)
BOOST_CLASS_TRACKING(Lean::Receiver, boost::serialization::track_never)

namespace BoostArchive {

Lean::Receiver read(const std::string &document)
{
    std::istringstream stream(document);
    boost::archive::xml_iarchive archive(stream);
    Lean::Receiver receiver;
    archive >> boost::serialization::make_nvp("GenericReceiver", receiver);
    return receiver;
}

std::string write(const Lean::Receiver &receiver)
{
    std::ostringstream stream;
    {
        boost::archive::xml_oarchive archive(stream);
        archive << boost::serialization::make_nvp("GenericReceiver", receiver);
    }
    return stream.str();
}

} // namespace BoostArchive
