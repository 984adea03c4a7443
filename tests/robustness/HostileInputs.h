// Inputs of about a megabyte that are made to cost as much as they can.
#ifndef KORMAK_HOSTILEINPUTS_H
#define KORMAK_HOSTILEINPUTS_H

#include <tests/support/BinaryParts.h>

#include <QByteArray>
#include <QString>
#include <QVector>

#include <functional>

namespace HostileInputs {

using TestSupport::binaryForm;
using TestSupport::BinaryParts;

inline constexpr int Megabyte = 1 << 20;

/// A short name of its own for each number.
inline QString name(int number)
{
    return 'a' + QString::number(number, 36);
}

/// What \a part makes of 0, 1, 2 and so on, up to \a size characters.
template <class Part>
QString filled(int size, Part part)
{
    QString text;
    for (int i = 0;; ++i) {
        const QString next = part(i);
        if (text.size() + next.size() > size)
            return text;
        text += next;
    }
}

inline QString filledWith(int size, const QString &part)
{
    return part.repeated(size / static_cast<int>(part.size()));
}

inline QString withDocumentType(const QString &declarations, const QString &element)
{
    return "<!DOCTYPE r [" + declarations + "]>" + element;
}

struct Document {
    const char *description;
    const char *kind; ///< of object; others give it up at the root
    QString text;
};

/// In the body of an element of the kind, where unknown elements are passed over.
inline QString within(const QString &kind, const QString &body)
{
    const QString open = kind == "Parameter" ? "<Parameter><Enum>" : '<' + kind + '>';
    const QString close = kind == "Parameter" ? "</Enum></Parameter>" : "</" + kind + '>';
    return open + body + close;
}

/// The declarations of a chain of entities, in which each refers to the one before \a factor times.
inline QString chain(int length, int factor, const QString &first = "x")
{
    QString text = "<!ENTITY " + name(0) + " \"" + first + "\">";
    for (int i = 1; i <= length; ++i)
        text += "<!ENTITY " + name(i) + " \"" + QString('&' + name(i - 1) + ';').repeated(factor) + "\">";
    return text;
}

/// Namespaces or attributes, each once: " a0=''".
inline QString attributes(int count, const QString &prefix = {})
{
    QString text;
    for (int i = 0; i < count; ++i)
        text += ' ' + prefix + name(i) + "=''";
    return text;
}

inline QVector<Document> documents()
{
    constexpr int Half = Megabyte / 2;
    constexpr int Most = 100; // attributes
    const auto activity = [](const QString &body) { return within("ActivityGeneration", body); };
    const auto parameter = [](const QString &body) { return within("Parameter", body); };
    const QString references = filledWith(Half, '&' + name(1) + ';');

    QVector<Document> list;
    const auto add = [&list](const char *description, const char *kind, const QString &text) {
        list.append({description, kind, text});
    };
    const auto addActivity = [&](const char *description, const QString &body, const QString &types = {}) {
        add(description, "ActivityGeneration",
            types.isNull() ? activity(body) : withDocumentType(types, activity(body)));
    };

    // Entities
    addActivity("long entity, many references", filledWith(Megabyte, "&e;"),
                "<!ENTITY e '" + QString(4096, 'x') + "'>");
    addActivity("long entity within the limit", filledWith(750, "&e;"),
                "<!ENTITY e '" + QString(4096, 'x') + "'><!--" + QString(Megabyte, 'x') + "-->");
    addActivity("entities of entities", QString('&' + name(9) + ';'), chain(9, 10));
    addActivity("long chain, many references", filledWith(Half, '&' + name(20'000) + ';'), chain(20'000, 1));
    addActivity("many chains", references, chain(20'000, 1));
    addActivity("elements in an entity", filledWith(Half, "&e;"),
                "<!ENTITY e '" + filledWith(4096, "<b/>") + "'>");
    addActivity("elements in an entity within the limit", filledWith(750, "&e;"),
                "<!ENTITY e '" + filledWith(4096, "<b/>") + "'><!--" + QString(Megabyte, 'x') + "-->");
    addActivity("attributes in an entity within the limit", filledWith(740, "&e;"),
                "<!ENTITY e '<b" + attributes(Most - 10).replace('\'', '"') + "/>'><!--"
                    + QString(Megabyte, 'x') + "-->");
    addActivity("too many attributes in an entity", filledWith(740, "&e;"),
                "<!ENTITY e '<b" + attributes(600).replace('\'', '"') + "/>'>");
    addActivity("entities in attributes", filledWith(Megabyte, "<b a='&e;'/>"),
                "<!ENTITY e '" + QString(4096, 'x') + "'>");
    addActivity("entities in an attribute", "<b a='" + filledWith(Megabyte, "&e;") + "'/>",
                "<!ENTITY e '" + QString(4096, 'x') + "'>");
    addActivity("entities in defaults of attributes", "<b/>",
                "<!ENTITY e '" + QString(4096, 'x') + "'><!ATTLIST b a CDATA '" + filledWith(Megabyte, "&e;")
                    + "'>");
    addActivity("many entities", {}, filled(Megabyte, [](int i) { return "<!ENTITY " + name(i) + " ''>"; }));
    addActivity("parameter entities", {},
                "<!ENTITY % e '" + QString(4096, ' ') + "'>" + filledWith(Megabyte, "%e;"));
    addActivity("declarations in parameter entities", {},
                "<!ENTITY % e '" + filledWith(4096, "<!ENTITY x \"\">") + "'>" + filledWith(Megabyte, "%e;"));
    addActivity("attributes in parameter entities", filledWith(Half, "<b/>"),
                "<!ENTITY % e '<!ATTLIST b" + filledWith(4000, " x CDATA \"\"") + ">'>"
                    + filledWith(Half, "%e;"));
    addActivity("chain of parameter entities", {}, [] {
        QString text = "<!ENTITY % " + name(0) + " ' '>";
        for (int i = 1; i < 20'000; ++i)
            text += "<!ENTITY % " + name(i) + " '&#37;" + name(i - 1) + ";'>";
        return text;
    }() + filledWith(Half, '%' + name(19'999) + ';'));
    add("entities behind the root", "ActivityGeneration",
        activity({})
            + withDocumentType("<!ENTITY % e '" + QString(4096, ' ') + "'>" + filledWith(Megabyte, "%e;"),
                               {}));

    // Attributes and namespaces
    addActivity("many attributes in one element", "<b" + attributes(130'000).left(Megabyte - 20) + "/>");
    addActivity("as many attributes as may be", filledWith(Megabyte, "<b" + attributes(Most) + "/>"));
    addActivity("many attributes of one name", "<b" + filledWith(Megabyte, " a=''") + "/>");
    addActivity("attributes that a document type declares", filledWith(Half, "<b/>"),
                "<!ATTLIST b" + filled(Half, [](int i) { return ' ' + name(i) + " CDATA ''"; }) + '>');
    addActivity("declared attributes within the limit",
                filledWith(40'000, "<b/>") + QString(Megabyte - 50'000, 'x'),
                "<!ATTLIST b" + attributes(Most - 10).replace("=''", " CDATA ''") + '>');
    addActivity("elements with declared attributes", filledWith(Megabyte, "<b/>"),
                "<!ATTLIST b" + attributes(Most - 10).replace("=''", " CDATA ''") + '>');
    addActivity("elements in entities with declared attributes", filledWith(750, "&e;"),
                "<!ATTLIST b" + attributes(Most - 10).replace("=''", " CDATA ''") + "><!ENTITY e '"
                    + filledWith(4096, "<b/>") + "'><!--" + QString(Megabyte, 'x') + "-->");
    add("many namespaces", "ActivityGeneration",
        "<ActivityGeneration" + attributes(Half / 20, "xmlns:").replace("''", "'u'") + '>'
            + filledWith(Half, "<x:b/>") + "</ActivityGeneration>");
    add("as many namespaces as may be", "ActivityGeneration",
        "<ActivityGeneration xmlns:x='u'" + attributes(Most - 10, "xmlns:").replace("''", "'u'") + '>'
            + filledWith(Megabyte, "<x:b x:c=''/>") + "</ActivityGeneration>");
    addActivity("namespaces in one another",
                filled(Half, [](int i) {
                    return "<b" + attributes(Most - 20, "xmlns:").replace("''", "'u'") + '>'
                        + QString::number(i);
                }) + filledWith(Half, "<x:b/>"));

    // Elements
    addActivity("deep elements", filledWith(Megabyte, "<b>"));
    addActivity("deep elements that are closed", filledWith(Half, "<b>") + filledWith(Half, "</b>"));
    add("deep elements in a block", "Parameter", parameter(filledWith(Megabyte, "<b>")));
    add("deep elements behind the root", "ActivityGeneration", activity({}) + filledWith(Megabyte, "<b>"));
    addActivity("empty elements", filledWith(Megabyte, "<b/>"));
    add("entries", "Parameter", parameter(filledWith(Megabyte, "<EnumValue/>")));
    add("parameters", "GenericReceiver", within("GenericReceiver", filled(Megabyte, [](int i) {
                                                    return "<Parameter UniqueName='" + name(i) + "'/>";
                                                })));
    add("coordinates", "Area", within("Area", filledWith(Megabyte, "<Coordinate/>")));
    add("default values", "Parameter",
        "<Parameter><Long>" + filledWith(Megabyte, "<Default/>") + "</Long></Parameter>");
    add("headers", "Job", within("Job", filledWith(Megabyte, "<JobHeader/>")));

    // Texts
    add("long text", "Area", "<Area><Name>" + QString(Megabyte, 'x') + "</Name></Area>");
    add("long text between elements", "Area", within("Area", QString(Megabyte, 'x')));
    add("long attribute", "Area", "<Area Version='" + QString(Megabyte, 'x') + "'/>");
    add("equals signs", "Area", within("Area", QString(Megabyte, '=')));
    add("exclamation marks", "Area", within("Area", QString(Megabyte, '!')));
    add("half a word", "Area", within("Area", filledWith(Megabyte, "xmln")));
    add("numbers", "Area",
        "<Area><Coordinate><Latitude>" + QString(Megabyte, '1') + "</Latitude></Coordinate></Area>");
    add("references to characters", "Area",
        "<Area><Name>" + filledWith(Megabyte, "&#1234;") + "</Name></Area>");
    add("predefined entities", "Area", "<Area><Name>" + filledWith(Megabyte, "&lt;") + "</Name></Area>");
    add("sections", "Area", "<Area><Name>" + filledWith(Megabyte, "<![CDATA[]]>") + "</Name></Area>");
    addActivity("comments", filledWith(Megabyte, "<!---->"));
    addActivity("long comment", "<!--" + QString(Megabyte, 'x') + "-->");
    addActivity("processing instructions", filledWith(Megabyte, "<?a?>"));
    addActivity("long name", '<' + QString(Megabyte, 'x') + "/>");
    addActivity("long names", filledWith(Megabyte, '<' + QString(10'000, 'x') + "/>"));
    addActivity("notations", {}, filledWith(Megabyte, "<!NOTATION a SYSTEM ''>"));
    add("brackets", "Area", QString(Megabyte, '<'));
    add("ampersands", "Area", within("Area", QString(Megabyte, '&')));
    return list;
}

struct Form {
    const char *description;
    const char *kind;
    QByteArray bytes;
};

inline QVector<Form> binaryForms()
{
    const auto compressed = [](const char *kind, const QString &text) {
        return binaryForm(kind, qCompress(text.toUtf8(), 9), BinaryParts::Compressed);
    };
    constexpr int Limit = 6'291'456;
    constexpr int Huge = 1 << 28;
    const QByteArray huge = qCompress(QByteArray(Huge, ' '), 1);
    constexpr int Most = 100; // attributes
    return {
        {"text of 256 megabytes", "Area", binaryForm("Area", huge, BinaryParts::Compressed)},
        {"compressed attributes within the limit", "ActivityGeneration",
         compressed("ActivityGeneration",
                    within("ActivityGeneration", filledWith(Limit - 100, "<b" + attributes(Most) + "/>")))},
        {"compressed elements with declared attributes within the limit", "ActivityGeneration",
         compressed("ActivityGeneration",
                    withDocumentType("<!ATTLIST b" + attributes(Most - 10).replace("=''", " CDATA ''") + '>',
                                     within("ActivityGeneration",
                                            filledWith(250'000, "<b/>") + QString(Limit - 260'000, 'x'))))},
        {"compressed text within the limit", "Area",
         compressed("Area", "<Area><Name>" + QString(Limit - 100, 'x') + "</Name></Area>")},
        {"compressed entries within the limit", "Parameter",
         compressed("Parameter", within("Parameter", filledWith(Limit - 100, "<EnumValue/>")))},
        {"compressed elements within the limit", "ActivityGeneration",
         compressed("ActivityGeneration", within("ActivityGeneration", filledWith(Limit - 100, "<b/>")))},
        {"compressed parameters within the limit", "GenericReceiver",
         compressed(
             "GenericReceiver",
             within("GenericReceiver",
                    filled(Limit - 100, [](int i) { return "<Parameter UniqueName='" + name(i) + "'/>"; })))},
        {"compressed coordinates within the limit", "Area",
         compressed("Area", within("Area", filledWith(Limit - 100, "<Coordinate/>")))},
        {"compressed entities", "ActivityGeneration",
         compressed("ActivityGeneration",
                    withDocumentType("<!ENTITY e '" + QString(4096, 'x') + "'>",
                                     within("ActivityGeneration", filledWith(Limit / 2, "&e;"))))},
        {"compressed entities within the limit", "ActivityGeneration",
         compressed("ActivityGeneration",
                    withDocumentType("<!ENTITY e '" + filledWith(4096, "<b/>") + "'>",
                                     within("ActivityGeneration",
                                            filledWith(4500, "&e;") + QString(Limit - 20'000, 'x'))))},
        {"not compressed", "Parameter",
         binaryForm("Parameter", within("Parameter", filledWith(Megabyte, "<EnumValue/>")).toUtf8())},
        {"a stream of zeros", "Area",
         binaryForm("Area", QByteArray(Megabyte, '\0'), BinaryParts::Compressed)},
    };
}

} // namespace HostileInputs

#endif
