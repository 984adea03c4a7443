#include "Alternatives.h"

#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <stdexcept>

namespace HandWritten {

namespace {

using namespace Lean;

bool isTrue(const QString &text)
{
    return text == QLatin1String("true");
}

WholeNumber readWholeNumber(QXmlStreamReader &reader)
{
    WholeNumber number;
    while (reader.readNextStartElement()) {
        if (reader.name() == QLatin1String("Minimum"))
            number.minimum = reader.readElementText().toLongLong();
        else if (reader.name() == QLatin1String("Maximum"))
            number.maximum = reader.readElementText().toLongLong();
        else if (reader.name() == QLatin1String("Default"))
            number.standard = reader.readElementText().toLongLong();
        else
            reader.skipCurrentElement();
    }
    return number;
}

RealNumber readRealNumber(QXmlStreamReader &reader)
{
    RealNumber number;
    while (reader.readNextStartElement()) {
        if (reader.name() == QLatin1String("Minimum"))
            number.minimum = reader.readElementText().toDouble();
        else if (reader.name() == QLatin1String("Maximum"))
            number.maximum = reader.readElementText().toDouble();
        else if (reader.name() == QLatin1String("Default"))
            number.standard = reader.readElementText().toDouble();
        else if (reader.name() == QLatin1String("Precision"))
            number.precision = reader.readElementText().toInt();
        else if (reader.name() == QLatin1String("MaxDoubleListLength"))
            number.maximumLength = reader.readElementText().toInt();
        else
            reader.skipCurrentElement();
    }
    return number;
}

QString readString(QXmlStreamReader &reader)
{
    QString text;
    while (reader.readNextStartElement()) {
        if (reader.name() == QLatin1String("Default"))
            text = reader.readElementText();
        else
            reader.skipCurrentElement();
    }
    return text;
}

QVector<Entry> readEntries(QXmlStreamReader &reader)
{
    QVector<Entry> entries;
    while (reader.readNextStartElement()) {
        if (reader.name() == QLatin1String("EnumValue")) {
            const QXmlStreamAttributes attributes = reader.attributes();
            Entry entry;
            entry.key = attributes.value(QLatin1String("Key")).toInt();
            entry.name = attributes.value(QLatin1String("Name")).toString();
            entry.identifier = attributes.value(QLatin1String("Identifier")).toString();
            entry.value = attributes.value(QLatin1String("Value")).toDouble();
            entry.isDefault = attributes.value(QLatin1String("Default")) == QLatin1String("true");
            entries.append(entry);
        }
        reader.skipCurrentElement();
    }
    return entries;
}

Parameter readParameter(QXmlStreamReader &reader)
{
    Parameter parameter;
    const QXmlStreamAttributes attributes = reader.attributes();
    parameter.version = attributes.value(QLatin1String("Version")).toString();
    parameter.uniqueName = attributes.value(QLatin1String("UniqueName")).toString();
    while (reader.readNextStartElement()) {
        const auto name = reader.name();
        if (name == QLatin1String("RepresentationName"))
            parameter.representationName = reader.readElementText();
        else if (name == QLatin1String("DisplayName"))
            parameter.displayName = reader.readElementText();
        else if (name == QLatin1String("ToolTip"))
            parameter.toolTip = reader.readElementText();
        else if (name == QLatin1String("ValueType"))
            parameter.valueType = placeOf(ValueTypeNames, reader.readElementText());
        else if (name == QLatin1String("ControlType"))
            parameter.controlType = placeOf(ControlTypeNames, reader.readElementText());
        else if (name == QLatin1String("DisplaySuffix"))
            parameter.displaySuffix = reader.readElementText();
        else if (name == QLatin1String("Multiplier"))
            parameter.multiplier = reader.readElementText().toDouble();
        else if (name == QLatin1String("Enable"))
            parameter.enabled = isTrue(reader.readElementText());
        else if (name == QLatin1String("ParameterType"))
            parameter.type = static_cast<Type>(placeOf(TypeNames, reader.readElementText()));
        else if (name == QLatin1String("Boolean"))
            parameter.value = isTrue(reader.readElementText());
        else if (name == QLatin1String("Integer") || name == QLatin1String("Long")
                 || name == QLatin1String("TimeStamp"))
            parameter.value = readWholeNumber(reader);
        else if (name == QLatin1String("Float") || name == QLatin1String("Double"))
            parameter.value = readRealNumber(reader);
        else if (name == QLatin1String("String"))
            parameter.value = readString(reader);
        else if (name == QLatin1String("Enum"))
            parameter.value = readEntries(reader);
        else
            throw std::runtime_error("unknown element");
    }
    return parameter;
}

QString nameAt(QStringView name)
{
    return QString::fromRawData(name.data(), static_cast<int>(name.size()));
}

QString numberText(double number, int decimals)
{
    return QString::number(number, 'f', decimals);
}

void writeLimits(QXmlStreamWriter &writer, const QString &minimum, const QString &maximum,
                 const QString &standard)
{
    writer.writeTextElement(QStringLiteral("Minimum"), minimum);
    writer.writeTextElement(QStringLiteral("Maximum"), maximum);
    writer.writeTextElement(QStringLiteral("Default"), standard);
}

struct BlockWriter {
    QXmlStreamWriter &writer;
    Type type;

    void start() const { writer.writeStartElement(nameAt(blockName(type))); }

    void operator()(bool on) const
    {
        writer.writeTextElement(QStringLiteral("Boolean"),
                                on ? QStringLiteral("true") : QStringLiteral("false"));
    }
    void operator()(const WholeNumber &number) const
    {
        start();
        writeLimits(writer, QString::number(number.minimum), QString::number(number.maximum),
                    QString::number(number.standard));
        writer.writeEndElement();
    }
    void operator()(const RealNumber &number) const
    {
        start();
        writeLimits(writer, numberText(number.minimum, 6), numberText(number.maximum, 6),
                    numberText(number.standard, 6));
        writer.writeTextElement(QStringLiteral("Precision"), QString::number(number.precision));
        if (type == DoubleList)
            writer.writeTextElement(QStringLiteral("MaxDoubleListLength"),
                                    QString::number(number.maximumLength));
        writer.writeEndElement();
    }
    void operator()(const QString &text) const
    {
        start();
        writer.writeAttribute(QStringLiteral("Default"), text);
        writer.writeEndElement();
    }
    void operator()(const QVector<Entry> &entries) const
    {
        start();
        for (const Entry &entry : entries) {
            writer.writeStartElement(QStringLiteral("EnumValue"));
            writer.writeAttribute(QStringLiteral("Key"), QString::number(entry.key));
            writer.writeAttribute(QStringLiteral("Name"), entry.name);
            if (!entry.identifier.isEmpty())
                writer.writeAttribute(QStringLiteral("Identifier"), entry.identifier);
            writer.writeAttribute(QStringLiteral("Value"), numberText(entry.value, 2));
            if (entry.isDefault)
                writer.writeAttribute(QStringLiteral("Default"), QStringLiteral("true"));
            writer.writeEndElement();
        }
        writer.writeEndElement();
    }
};

void writeParameter(QXmlStreamWriter &writer, const Parameter &parameter)
{
    writer.writeStartElement(QStringLiteral("Parameter"));
    writer.writeAttribute(QStringLiteral("Version"), parameter.version);
    writer.writeAttribute(QStringLiteral("UniqueName"), parameter.uniqueName);
    writer.writeTextElement(QStringLiteral("RepresentationName"), parameter.representationName);
    if (!parameter.displayName.isEmpty())
        writer.writeTextElement(QStringLiteral("DisplayName"), parameter.displayName);
    if (!parameter.toolTip.isEmpty())
        writer.writeTextElement(QStringLiteral("ToolTip"), parameter.toolTip);
    writer.writeTextElement(QStringLiteral("ValueType"), nameAt(ValueTypeNames[parameter.valueType]));
    if (parameter.controlType >= 0)
        writer.writeTextElement(QStringLiteral("ControlType"),
                                nameAt(ControlTypeNames[parameter.controlType]));
    if (!parameter.displaySuffix.isEmpty())
        writer.writeTextElement(QStringLiteral("DisplaySuffix"), parameter.displaySuffix);
    if (parameter.multiplier != 1)
        writer.writeTextElement(QStringLiteral("Multiplier"), numberText(parameter.multiplier, 2));
    writer.writeTextElement(QStringLiteral("Enable"),
                            parameter.enabled ? QStringLiteral("true") : QStringLiteral("false"));
    if (parameter.type != Boolean)
        writer.writeTextElement(QStringLiteral("ParameterType"), nameAt(TypeNames[parameter.type]));
    std::visit(BlockWriter{writer, parameter.type}, parameter.value);
    writer.writeEndElement();
}

} // namespace

Receiver read(const QString &document)
{
    QXmlStreamReader reader(document);
    if (!reader.readNextStartElement() || reader.name() != QLatin1String("GenericReceiver"))
        throw std::runtime_error("not a receiver");
    Receiver receiver;
    receiver.version = reader.attributes().value(QLatin1String("Version")).toString();
    while (reader.readNextStartElement()) {
        if (reader.name() == QLatin1String("Parameter")) {
            const Parameter parameter = readParameter(reader);
            receiver.parameters.insert(parameter.uniqueName, parameter);
        } else {
            reader.skipCurrentElement();
        }
    }
    while (!reader.atEnd())
        reader.readNext();
    if (reader.hasError())
        throw std::runtime_error("not well-formed");
    return receiver;
}

QString write(const Receiver &receiver)
{
    QString text;
    QXmlStreamWriter writer(&text);
    writer.setAutoFormatting(true);
    writer.writeStartDocument();
    writer.writeStartElement(QStringLiteral("GenericReceiver"));
    writer.writeAttribute(QStringLiteral("Version"), receiver.version);
    for (const Parameter &parameter : receiver.parameters)
        writeParameter(writer, parameter);
    writer.writeEndElement();
    writer.writeEndDocument();
    if (writer.hasError())
        throw std::runtime_error("not to be written");
    return text;
}

} // namespace HandWritten
