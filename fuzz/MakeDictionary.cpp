// Prints a dictionary for the fuzzers: the names and values that the schemas given as arguments tell, and the
// building blocks of XML.
#include <QFile>
#include <QSet>
#include <QXmlStreamReader>

#include <algorithm>
#include <cstdio>

namespace {

const QStringList XmlBlocks{
    "<?xml version=\"1.0\"?>",
    "<?xml version=\"1.0\" encoding=\"UTF-16\"?>",
    "<?a b?>",
    "<!-- -->",
    "<![CDATA[",
    "]]>",
    "<!DOCTYPE a [",
    "<!ENTITY b \"c\">",
    "]>",
    "&b;",
    "&amp;",
    "&lt;",
    "&#13;",
    "&#10;",
    "&#0;",
    "&#xD800;",
    "&#xFFFE;",
    "&#x1F600;",
    " xmlns=\"urn:x\"",
    " xmlns:x=\"urn:x\"",
    "x:",
    "/>",
    "</",
    "\xEF\xBB\xBF",
};

const QStringList Texts{
    "true",
    "false",
    "nan",
    "inf",
    "-inf",
    "1e308",
    "1e-320",
    "-0.000",
    "-0.0000001",
    "1.0",
    "1.001",
    "-111111.11",
    "2147483648",
    "4294967296",
    "9223372036854775808",
    "340282356779733661637539395458142568448",
    "2024-02-29T23:59:59,999Z",
    "-0001-12-31T00:00:00,000Z",
};

/// Elements of a schema whose "name" or "value" stands in documents.
enum class Role { None, Element, Attribute, Value };

Role roleOf(QStringView schemaElement)
{
    return schemaElement == QLatin1String("element")    ? Role::Element
        : schemaElement == QLatin1String("attribute")   ? Role::Attribute
        : schemaElement == QLatin1String("enumeration") ? Role::Value
                                                        : Role::None;
}

QStringList entriesOf(const QXmlStreamReader &reader)
{
    const QXmlStreamAttributes attributes = reader.attributes();
    const QString name = attributes.value("name").toString();
    switch (roleOf(reader.name())) {
    case Role::Element:
        if (!name.isEmpty())
            return {'<' + name + '>', "</" + name + '>', '<' + name + "/>", name};
        break;
    case Role::Attribute:
        if (!name.isEmpty())
            return {' ' + name + "=\"\"", name};
        break;
    case Role::Value:
        return {attributes.value("value").toString()};
    case Role::None:
        break;
    }
    return {};
}

QByteArray quoted(const QString &text)
{
    QByteArray line = "\"";
    for (const char c : text.toUtf8()) {
        const bool isPlain = c >= ' ' && c <= '~' && c != '"' && c != '\\';
        line += isPlain ? QByteArray(1, c) : "\\x" + QByteArray(1, c).toHex();
    }
    return line + "\"\n";
}

} // namespace

int main(int argc, char *argv[])
{
    QStringList entries = XmlBlocks + Texts;
    for (int i = 1; i < argc; ++i) {
        QFile file(QFile::decodeName(argv[i]));
        if (!file.open(QIODevice::ReadOnly)) {
            std::fprintf(stderr, "%s cannot be read.\n", argv[i]);
            return 1;
        }
        QXmlStreamReader reader(&file);
        while (!reader.atEnd()) {
            if (reader.readNext() == QXmlStreamReader::StartElement)
                entries += entriesOf(reader);
        }
        if (reader.hasError()) {
            std::fprintf(stderr, "%s: %s\n", argv[i], qPrintable(reader.errorString()));
            return 1;
        }
    }
    entries.removeDuplicates();
    entries.removeAll(QString());
    std::sort(entries.begin(), entries.end());
    for (const QString &entry : std::as_const(entries))
        std::fputs(quoted(entry).constData(), stdout);
    return 0;
}
