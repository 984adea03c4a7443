#include "tools/WrittenForm.h"

#include <objectbase/ITesselObject.h>

#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>

QString writtenText(const TESSEL::ITesselObject &object, QStringView name)
{
    QString xml;
    QXmlStreamWriter writer(&xml);
    object.GetXml(writer);
    QXmlStreamReader reader(xml);
    if (!reader.readNextStartElement())
        return {};
    const QXmlStreamAttributes attributes = reader.attributes();
    const auto found = std::find_if(attributes.begin(), attributes.end(), [name](const auto &attribute) {
        return QStringView(attribute.qualifiedName()) == name;
    });
    if (found != attributes.end())
        return found->value().toString();
    while (reader.readNextStartElement()) {
        if (reader.name() == name)
            return reader.readElementText();
        reader.skipCurrentElement();
    }
    return {};
}
