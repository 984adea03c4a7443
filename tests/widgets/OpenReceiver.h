// Receivers for the tests of what shows them.
#ifndef KORMAK_TESTS_WIDGETS_OPENRECEIVER_H
#define KORMAK_TESTS_WIDGETS_OPENRECEIVER_H

#include <models/OpenDocument.h>

#include <QByteArray>
#include <QFile>
#include <QString>

namespace OpenReceiver {

/// A parameter of \a type, with what stands in its block.
inline QByteArray parameter(const char *name, const char *type, const QByteArray &block,
                            const QByteArray &more = {})
{
    const QByteArray blockName = qstrcmp(type, "DoubleList") == 0 ? "Double" : type;
    return QByteArray("    <Parameter Version=\"1.0\" UniqueName=\"") + name + "\">\n"
        + "        <RepresentationName>rx." + name + "</RepresentationName>\n"
        + "        <ValueType>ValueNumericInt</ValueType>\n" + more + "        <ParameterType>" + type
        + "</ParameterType>\n        <" + blockName + ">" + block + "</" + blockName
        + ">\n    </Parameter>\n";
}

inline QByteArray limits(const char *minimum, const char *maximum, const char *standard)
{
    return QByteArray("<Minimum>") + minimum + "</Minimum><Maximum>" + maximum + "</Maximum><Default>"
        + standard + "</Default>";
}

inline QByteArray receiver(const QByteArray &parameters)
{
    return "<?xml version=\"1.0\"?>\n<!-- kept -->\n<GenericReceiver Version=\"1.0\">\n" + parameters
        + "</GenericReceiver>\n";
}

/// One parameter of each kind.
inline QByteArray all()
{
    return receiver(
        parameter("AGC Mode", "Enum",
                  "<EnumValue Key=\"0\" Name=\"Off\" Value=\"0\"/>"
                  "<EnumValue Key=\"1\" Name=\"Fast\" Value=\"1\" Default=\"true\"/>"
                  "<EnumValue Key=\"2\" Name=\"Slow\" Value=\"2\"/>")
        + parameter("Bandwidth", "Double", limits("1000", "80000000", "15000") + "<Precision>0</Precision>",
                    "<DisplaySuffix>kHz</DisplaySuffix><Multiplier>1000</Multiplier>")
        + parameter("Comment", "String", "<Default>Mast 2</Default>")
        + parameter("Disabled", "Integer", limits("0", "10", "5"), "<Enable>false</Enable>")
        + parameter("From", "TimeStamp",
                    limits("-9223372036854775808", "9223372036854775807", "1773469800120000"),
                    "<ControlType>VCTimeEdit</ControlType><DisplaySuffix>\xC2\xB5s</DisplaySuffix>")
        + parameter("Gain", "Integer", limits("0", "30", "10"), "<DisplaySuffix>dB</DisplaySuffix>")
        + parameter("Level", "Float", limits("-10", "10", "0.25") + "<Precision>1</Precision>")
        + parameter("Muted", "Boolean", "false")
        + parameter("Sectors", "DoubleList",
                    limits("0", "360", "0") + "<MaxDoubleListLength>4</MaxDoubleListLength>"));
}

inline QByteArray example(const char *name)
{
    QFile file(QString(EXAMPLES_DIR) + "/receivers/" + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// What a field of \a document says.
inline QString said(const KORMAK::OpenDocument &document, const char *path)
{
    return document.GetDocument().GetField(path).GetText();
}

} // namespace OpenReceiver

#endif
