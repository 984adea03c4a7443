// Takes the fields out of the tree of an XML document and puts them in, for libraries that make such trees.
// An Api has a type Node and static functions: isNamed, forEachChild, text, integer, real, isTrue and the
// like of an element, attribute… of one of its attributes, append and set to write.
#ifndef BENCHMARKS_TREEBINDING_H
#define BENCHMARKS_TREEBINDING_H

#include "Lean.h"

#include <stdexcept>

template <class Api>
class TreeBinding {
public:
    using Node = typename Api::Node;

    static Lean::Receiver read(const Node &root)
    {
        Lean::Receiver receiver;
        receiver.version = Api::attribute(root, "Version");
        Api::forEachChild(root, [&receiver](const Node &child) {
            if (Api::isNamed(child, "Parameter")) {
                const Lean::Parameter parameter = readParameter(child);
                receiver.parameters.insert(parameter.uniqueName, parameter);
            }
        });
        return receiver;
    }

    static void write(Node root, const Lean::Receiver &receiver)
    {
        Api::set(root, "Version", receiver.version);
        for (const Lean::Parameter &parameter : receiver.parameters)
            writeParameter(Api::append(root, "Parameter"), parameter);
    }

private:
    static Lean::WholeNumber readWholeNumber(const Node &block)
    {
        Lean::WholeNumber number;
        Api::forEachChild(block, [&number](const Node &child) {
            if (Api::isNamed(child, "Minimum"))
                number.minimum = Api::integer(child);
            else if (Api::isNamed(child, "Maximum"))
                number.maximum = Api::integer(child);
            else if (Api::isNamed(child, "Default"))
                number.standard = Api::integer(child);
        });
        return number;
    }

    static Lean::RealNumber readRealNumber(const Node &block)
    {
        Lean::RealNumber number;
        Api::forEachChild(block, [&number](const Node &child) {
            if (Api::isNamed(child, "Minimum"))
                number.minimum = Api::real(child);
            else if (Api::isNamed(child, "Maximum"))
                number.maximum = Api::real(child);
            else if (Api::isNamed(child, "Default"))
                number.standard = Api::real(child);
            else if (Api::isNamed(child, "Precision"))
                number.precision = static_cast<int>(Api::integer(child));
            else if (Api::isNamed(child, "MaxDoubleListLength"))
                number.maximumLength = static_cast<int>(Api::integer(child));
        });
        return number;
    }

    static QString readString(const Node &block)
    {
        QString text;
        Api::forEachChild(block, [&text](const Node &child) {
            if (Api::isNamed(child, "Default"))
                text = Api::text(child);
        });
        return text;
    }

    static QVector<Lean::Entry> readEntries(const Node &block)
    {
        QVector<Lean::Entry> entries;
        Api::forEachChild(block, [&entries](const Node &child) {
            if (!Api::isNamed(child, "EnumValue"))
                return;
            Lean::Entry entry;
            entry.key = static_cast<int>(Api::integerAttribute(child, "Key"));
            entry.name = Api::attribute(child, "Name");
            entry.identifier = Api::attribute(child, "Identifier");
            entry.value = Api::realAttribute(child, "Value");
            entry.isDefault = Api::isTrueAttribute(child, "Default");
            entries.append(entry);
        });
        return entries;
    }

    static Lean::Parameter readParameter(const Node &node)
    {
        Lean::Parameter parameter;
        parameter.version = Api::attribute(node, "Version");
        parameter.uniqueName = Api::attribute(node, "UniqueName");
        Api::forEachChild(node, [&parameter](const Node &child) { readChild(child, parameter); });
        return parameter;
    }

    static void readChild(const Node &child, Lean::Parameter &parameter)
    {
        if (Api::isNamed(child, "RepresentationName"))
            parameter.representationName = Api::text(child);
        else if (Api::isNamed(child, "DisplayName"))
            parameter.displayName = Api::text(child);
        else if (Api::isNamed(child, "ToolTip"))
            parameter.toolTip = Api::text(child);
        else if (Api::isNamed(child, "ValueType"))
            parameter.valueType = Lean::placeOf(Lean::ValueTypeNames, Api::text(child));
        else if (Api::isNamed(child, "ControlType"))
            parameter.controlType = Lean::placeOf(Lean::ControlTypeNames, Api::text(child));
        else if (Api::isNamed(child, "DisplaySuffix"))
            parameter.displaySuffix = Api::text(child);
        else if (Api::isNamed(child, "Multiplier"))
            parameter.multiplier = Api::real(child);
        else if (Api::isNamed(child, "Enable"))
            parameter.enabled = Api::isTrue(child);
        else if (Api::isNamed(child, "ParameterType"))
            parameter.type = static_cast<Lean::Type>(Lean::placeOf(Lean::TypeNames, Api::text(child)));
        else if (Api::isNamed(child, "Boolean"))
            parameter.value = Api::isTrue(child);
        else if (Api::isNamed(child, "Integer") || Api::isNamed(child, "Long")
                 || Api::isNamed(child, "TimeStamp"))
            parameter.value = readWholeNumber(child);
        else if (Api::isNamed(child, "Float") || Api::isNamed(child, "Double"))
            parameter.value = readRealNumber(child);
        else if (Api::isNamed(child, "String"))
            parameter.value = readString(child);
        else if (Api::isNamed(child, "Enum"))
            parameter.value = readEntries(child);
        else
            throw std::runtime_error("unknown element");
    }

    struct BlockWriter {
        Node parent;
        Lean::Type type;

        [[nodiscard]] Node start() const { return Api::append(parent, Lean::blockName(type)); }

        static void limits(Node block, const QString &minimum, const QString &maximum,
                           const QString &standard)
        {
            Api::append(block, "Minimum", minimum);
            Api::append(block, "Maximum", maximum);
            Api::append(block, "Default", standard);
        }

        void operator()(bool on) const { Api::append(parent, "Boolean", boolText(on)); }
        void operator()(const Lean::WholeNumber &number) const
        {
            limits(start(), QString::number(number.minimum), QString::number(number.maximum),
                   QString::number(number.standard));
        }
        void operator()(const Lean::RealNumber &number) const
        {
            Node block = start();
            limits(block, QString::number(number.minimum, 'f', 6), QString::number(number.maximum, 'f', 6),
                   QString::number(number.standard, 'f', 6));
            Api::append(block, "Precision", QString::number(number.precision));
            if (type == Lean::DoubleList)
                Api::append(block, "MaxDoubleListLength", QString::number(number.maximumLength));
        }
        void operator()(const QString &text) const
        {
            Node block = start();
            Api::set(block, "Default", text);
        }
        void operator()(const QVector<Lean::Entry> &entries) const
        {
            Node block = start();
            for (const Lean::Entry &entry : entries) {
                Node node = Api::append(block, "EnumValue");
                Api::set(node, "Key", QString::number(entry.key));
                Api::set(node, "Name", entry.name);
                if (!entry.identifier.isEmpty())
                    Api::set(node, "Identifier", entry.identifier);
                Api::set(node, "Value", QString::number(entry.value, 'f', 2));
                if (entry.isDefault)
                    Api::set(node, "Default", boolText(true));
            }
        }
    };

    static QString boolText(bool on) { return on ? QStringLiteral("true") : QStringLiteral("false"); }

    static void writeParameter(Node node, const Lean::Parameter &parameter)
    {
        Api::set(node, "Version", parameter.version);
        Api::set(node, "UniqueName", parameter.uniqueName);
        Api::append(node, "RepresentationName", parameter.representationName);
        if (!parameter.displayName.isEmpty())
            Api::append(node, "DisplayName", parameter.displayName);
        if (!parameter.toolTip.isEmpty())
            Api::append(node, "ToolTip", parameter.toolTip);
        Api::append(node, "ValueType", Lean::ValueTypeNames[parameter.valueType].toString());
        if (parameter.controlType >= 0)
            Api::append(node, "ControlType", Lean::ControlTypeNames[parameter.controlType].toString());
        if (!parameter.displaySuffix.isEmpty())
            Api::append(node, "DisplaySuffix", parameter.displaySuffix);
        if (parameter.multiplier != 1)
            Api::append(node, "Multiplier", QString::number(parameter.multiplier, 'f', 2));
        Api::append(node, "Enable", boolText(parameter.enabled));
        if (parameter.type != Lean::Boolean)
            Api::append(node, "ParameterType", Lean::TypeNames[parameter.type].toString());
        std::visit(BlockWriter{node, parameter.type}, parameter.value);
    }
};

#endif
