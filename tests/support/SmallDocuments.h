// Small documents, and what the reader and the schemas make of them.
#ifndef KORMAK_SMALLDOCUMENTS_H
#define KORMAK_SMALLDOCUMENTS_H

#include <tests/support/SchemaSupport.h>

#include <QMap>

namespace SchemaSupport {

enum Verdict {
    Taken, ///< by both
    Refused, ///< by both
    ReaderOnly, ///< taken by the reader, which as a rule makes nothing of what the schema minds
    SchemaOnly, ///< taken by the schema, since XSD 1.0 has no words for what the reader refuses
};

struct Row {
    QString name;
    QString kind;
    QString document;
    Verdict verdict;
};

using Rows = QList<Row>;

/// What holds for every kind.
inline Rows commonRows(const QString &kind)
{
    const auto row = [&kind](const char *name, QString document, Verdict verdict) {
        return Row{name, kind, document.replace("KIND", kind), verdict};
    };
    // Unknown children are ignored there.
    const Verdict unknown = kind == "ActivityGeneration" ? Taken : Refused;
    return {
        row("empty", "<KIND/>", Taken),
        row("empty version", "<KIND Version=\"\"/>", Taken),
        row("any version", "<KIND Version=\" four \"/>", Taken),
        row("declaration, comments, instructions",
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?><!--a--><KIND><!--b--><?c d?></KIND><!--e-->\n",
            Taken),
        row("unknown attributes", "<KIND version=\"1\" xml:lang=\"de\" x:a=\"b\" xmlns:x=\"urn:x\"/>", Taken),
        row("bound to its schema",
            "<KIND xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
            "xsi:noNamespaceSchemaLocation=\"KIND.xsd\"/>",
            Taken),
        row("text between elements", "<KIND> text <!-- --> and more</KIND>", Taken),
        row("unknown child", "<KIND><Unknown/></KIND>", unknown),
        row("unknown child in a namespace", "<KIND><x:Unknown xmlns:x=\"urn:x\"/></KIND>", unknown),
        row("itself as a child", "<KIND><KIND/></KIND>", unknown),
        row("another root", "<Unknown/>", Refused),
        row("in capitals", "<" + kind.toUpper() + "/>", Refused),
        row("inside another root", "<Documents><KIND/></Documents>", Refused),
        row("in a namespace", "<KIND xmlns=\"urn:x\"/>", ReaderOnly),
        row("in a namespace with a prefix", "<x:KIND xmlns:x=\"urn:x\"/>", ReaderOnly),
        row("open", "<KIND>", Refused),
        row("twice", "<KIND/><KIND/>", Refused),
        row("nothing", "", Refused),
    };
}

inline Rows jobRows()
{
    const QString kind = "Job";
    return {
        {"children in reverse order", kind,
         "<Job><AntennaData><Polarization>Slant</Polarization><Name>a</Name></AntennaData>"
         "<ResourceType>Antenna</ResourceType><JobHeader><Description>d</Description><ShowJDH>true</ShowJDH>"
         "<Creation>2026-03-29T00:59:59,250Z</Creation><Author>a</Author><JobType>Antenna</JobType></"
         "JobHeader></Job>",
         Taken},
        {"doubled children", kind,
         "<Job><JobHeader/><ResourceType>Decoder</ResourceType><AntennaData/><JobHeader/><AntennaData/>"
         "<ResourceType>Antenna</ResourceType></Job>",
         Taken},
        {"unknown attributes of children", kind,
         "<Job><JobHeader a=\"b\"><Author a=\"b\">c</Author></JobHeader><ResourceType "
         "a=\"b\">Decoder</ResourceType>"
         "<AntennaData a=\"b\"><Azimuth unit=\"degrees\">90</Azimuth></AntennaData></Job>",
         Taken},
        {"text between children", kind, "<Job>a<JobHeader>b</JobHeader>c<AntennaData>d</AntennaData></Job>",
         Taken},
        {"blank behind a resource", kind, "<Job><ResourceType>Antenna </ResourceType></Job>", ReaderOnly},
        {"no resource", kind, "<Job><ResourceType/></Job>", ReaderOnly},
        {"unknown tag in the header", kind, "<Job><JobHeader><Operator/></JobHeader></Job>", Refused},
        {"unknown tag in the antenna", kind, "<Job><AntennaData><Gain>3</Gain></AntennaData></Job>", Refused},
        {"header in the antenna", kind, "<Job><AntennaData><JobHeader/></AntennaData></Job>", Refused},
        {"antenna in the header", kind, "<Job><JobHeader><AntennaData/></JobHeader></Job>", Refused},
        {"child of the header", kind, "<Job><Author>a</Author></Job>", Refused},
        {"tag in lower case", kind, "<Job><resourceType>Antenna</resourceType></Job>", Refused},
        {"header in a namespace", kind, "<Job><x:JobHeader xmlns:x=\"urn:x\"/></Job>", ReaderOnly},
    };
}

inline Rows jobHeaderRows()
{
    const QString kind = "JobHeader";
    return {
        {"search job", kind, "<JobHeader><JobType>Search MC VUHF</JobType></JobHeader>", Taken},
        {"connectable resource", kind,
         "<JobHeader><ConnectableResource>DDC IPC Voice HF</ConnectableResource></JobHeader>", Refused},
        {"empty texts", kind, "<JobHeader><Author/><Description></Description><ShowJDH/></JobHeader>", Taken},
        {"text of several lines", kind, "<JobHeader><Description>a\n\n  b &amp; c</Description></JobHeader>",
         Taken},
        {"marked section", kind, "<JobHeader><Author><![CDATA[<a>]]></Author></JobHeader>", Taken},
        {"comment in a text", kind, "<JobHeader><Author>a<!-- b -->c</Author></JobHeader>", Taken},
        {"doubled children", kind, "<JobHeader><Author>a</Author><Author>b</Author></JobHeader>", Taken},
        {"job type in lower case", kind, "<JobHeader><JobType>antenna</JobType></JobHeader>", ReaderOnly},
        {"leap day before Christ", kind,
         "<JobHeader><Creation>-0001-02-29T00:00:00,000Z</Creation></JobHeader>", Taken},
        {"no leap day before Christ", kind,
         "<JobHeader><Creation>-0004-02-29T00:00:00,000Z</Creation></JobHeader>", Taken},
        {"tag in lower case", kind, "<JobHeader><author>a</author></JobHeader>", Refused},
        {"resource type", kind, "<JobHeader><ResourceType>Antenna</ResourceType></JobHeader>", Refused},
    };
}

inline Rows antennaDataRows()
{
    const QString kind = "AntennaData";
    return {
        {"any order, doubled", kind,
         "<AntennaData><Polarization>Slant</Polarization><Azimuth>1</Azimuth><Name>a</Name><Azimuth>2</"
         "Azimuth>"
         "<MaximumFrequency>3</MaximumFrequency><MinimumFrequency>4</MinimumFrequency></AntennaData>",
         Taken},
        {"frequencies that make no range", kind,
         "<AntennaData><MinimumFrequency>-1</MinimumFrequency><MaximumFrequency>-2</MaximumFrequency></"
         "AntennaData>",
         Taken},
        {"tag in lower case", kind, "<AntennaData><name>a</name></AntennaData>", Refused},
    };
}

inline Rows areaRows()
{
    const QString kind = "Area";
    return {
        {"coordinates around the name", kind,
         "<Area><Coordinate><Longitude>1</Longitude><Latitude>2</Latitude></Coordinate><Name>a</"
         "Name><Coordinate/>"
         "<Name>b</Name></Area>",
         Taken},
        {"doubled latitude", kind,
         "<Area><Coordinate><Latitude>1</Latitude>a<Latitude>2</Latitude></Coordinate></Area>", Taken},
        {"unknown attributes", kind,
         "<Area><Coordinate a=\"b\"><Latitude c=\"d\">1</Latitude></Coordinate></Area>", Taken},
        {"latitude off the globe", kind, "<Area><Coordinate><Latitude>1e9</Latitude></Coordinate></Area>",
         Taken},
        {"unknown child of a coordinate", kind, "<Area><Coordinate><Height>1</Height></Coordinate></Area>",
         Refused},
        {"name of a coordinate", kind, "<Area><Coordinate><Name>a</Name></Coordinate></Area>", Refused},
        {"latitude without a coordinate", kind, "<Area><Latitude>1</Latitude></Area>", Refused},
        {"coordinate in a coordinate", kind, "<Area><Coordinate><Coordinate/></Coordinate></Area>", Refused},
    };
}

inline Rows automaticWorkflowRows()
{
    const QString kind = "AutomaticWorkflow";
    const auto child = [&kind](const char *name, const QString &element, Verdict verdict) {
        return Row{name, kind, "<AutomaticWorkflow>" + element + "</AutomaticWorkflow>", verdict};
    };
    return {
        {"mode as an attribute", kind, "<AutomaticWorkflow Mode=\"ManualMode\"/>", Taken},
        {"mode as an attribute and an element", kind,
         "<AutomaticWorkflow Mode=\"ManualMode\"><Mode>AutomaticMode</Mode></AutomaticWorkflow>", Taken},
        {"unknown mode as an attribute", kind, "<AutomaticWorkflow Mode=\"Manual\"/>", ReaderOnly},
        child("any order, doubled",
              "<Area/><BitstreamClassification>true</BitstreamClassification>"
              "<SearchStrategy>LowestIdFirst</SearchStrategy><ClassificationResult>1</ClassificationResult>"
              "<ClassificationTime>1</ClassificationTime><Classifiers>1</Classifiers><Mode>ManualMode</Mode>"
              "<Mode>AutomaticMode</Mode><Classifiers>2</Classifiers><Area><Name>a</Name></Area>",
              Taken),
        child("no classifiers", "<Classifiers>0</Classifiers>", Refused),
        child("most classifiers", "<Classifiers> 23 </Classifiers>", Taken),
        child("too many classifiers", "<Classifiers>24</Classifiers>", Refused),
        child("negative classifiers", "<Classifiers>-1</Classifiers>", Refused),
        child("classifiers with a sign", "<Classifiers>+1</Classifiers>", Taken),
        child("classifiers with zeros in front", "<Classifiers>0001</Classifiers>", Taken),
        child("a fraction of a classifier", "<Classifiers>1.0</Classifiers>", Refused),
        child("classifiers beyond 32 bits", "<Classifiers>4294967297</Classifiers>", Refused),
        child("classifiers in words", "<Classifiers>two</Classifiers>", Refused),
        child("empty classifiers", "<Classifiers/>", Refused),
        child("no time", "<ClassificationTime>0</ClassificationTime>", Refused),
        child("longest time", "<ClassificationTime>999</ClassificationTime>", Taken),
        child("time too long", "<ClassificationTime>1000</ClassificationTime>", Refused),
        child("no results", "<ClassificationResult>0</ClassificationResult>", Refused),
        child("most results", "<ClassificationResult>10</ClassificationResult>", Taken),
        child("too many results", "<ClassificationResult>11</ClassificationResult>", Refused),
        child("results in the plural", "<ClassificationResults>3</ClassificationResults>", Refused),
        child("unknown strategy", "<SearchStrategy>lowestidfirst</SearchStrategy>", Refused),
        child("blank behind a strategy", "<SearchStrategy>LowestIdFirst </SearchStrategy>", Refused),
        child("no strategy", "<SearchStrategy/>", Refused),
        child("unknown child of the area", "<Area><Colour/></Area>", Refused),
        child("area of another kind", "<Zone/>", Refused),
    };
}

inline Rows activityGenerationRows()
{
    const QString kind = "ActivityGeneration";
    const auto child = [&kind](const char *name, const QString &element, Verdict verdict) {
        return Row{name, kind, "<ActivityGeneration>" + element + "</ActivityGeneration>", verdict};
    };
    const auto old = [&kind](const char *name, const QString &content, Verdict verdict) {
        return Row{name, kind, "<ActivityGeneration Version=\"1.0\">" + content + "</ActivityGeneration>",
                   verdict};
    };
    return {
        old("older form", "AGED", Taken),
        old("older form, comment", "AG<!-- -->ED", Taken),
        old("older form, unknown mode", "AGXX", Taken),
        old("older form, mode as an element", "<Mode>AGED</Mode>", SchemaOnly),
        old("older form, unknown element", "AGED<Unknown/>", SchemaOnly),
        {"older form, start", kind,
         "<ActivityGeneration Version=\"1.0\" Autostart=\"true\">AGSC</ActivityGeneration>", Taken},
        {"neither true nor false", kind, "<ActivityGeneration Autostart=\"yes\"/>", ReaderOnly},
        {"setting as the root", kind, "<Mode>AGSC</Mode>", SchemaOnly},
        child("text beside settings", "AGED<Mode>AGSC</Mode>", Taken),
        child("any order, doubled",
              "<CutAtLocations>true</CutAtLocations><Mode>AGSC</Mode><SessionCloseTime>1.5</SessionCloseTime>"
              "<CutAtLocations>false</CutAtLocations><Mode>AGMC</Mode>",
              Taken),
        child("unknown child with children", "<Unknown><a b=\"c\">d<e/></a></Unknown><Mode>AGSC</Mode>",
              Taken),
        child("settings of older systems", "<DbWriteLevel><a/>b</DbWriteLevel><DbWriteDc>c<d/></DbWriteDc>",
              Taken),
        child("setting in lower case", "<mode>anything</mode>", Taken),
        child("unknown mode in an unknown child", "<Unknown><Mode>AGXX</Mode></Unknown>", ReaderOnly),
        child("empty channel, which is written", "<EnergyChannel/>", Taken),
        child("empty criteria, which are written", "<DDemActiveCriteria></DDemActiveCriteria>", Taken),
        child("empty write mode, which is written", "<DbWriteClass/>", Taken),
    };
}

inline Rows genericReceiverRows()
{
    const QString kind = "GenericReceiver";
    const auto child = [&kind](const char *name, const QString &element, Verdict verdict) {
        return Row{name, kind, "<GenericReceiver>" + element + "</GenericReceiver>", verdict};
    };
    return {
        child("parameters of one name",
              "<Parameter UniqueName=\"a\"/><Parameter UniqueName=\"a\"/><Parameter/>", Taken),
        child("scripts between parameters",
              "<Script>if (a &lt; b) <c d=\"e\"><Parameter><Unknown/></Parameter></c></Script><Parameter/>"
              "<Script f=\"g\"/>",
              Taken),
        child("settings inside a script",
              "<Script><Minimum>low</Minimum><Enum><EnumValue Key=\"a\"/></Enum></Script>", Taken),
        child("script in lower case", "<script/>", Refused),
        child("script in a parameter", "<Parameter><Script/></Parameter>", Refused),
        child("unknown child of a parameter", "<Parameter><Colour/></Parameter>", Refused),
        child("block without a parameter", "<Integer/>", Refused),
        child("parameter in a parameter", "<Parameter><Parameter/></Parameter>", Refused),
        {"part of a block as the root", kind, "<EnumValue/>", SchemaOnly},
    };
}

inline Rows parameterRows()
{
    const QString kind = "Parameter";
    const auto child = [&kind](const char *name, const QString &element, Verdict verdict) {
        return Row{name, kind, "<Parameter>" + element + "</Parameter>", verdict};
    };
    return {
        child("any order, doubled",
              "<Integer><Default>1</Default><Minimum>0</Minimum><Minimum>0</Minimum></Integer>"
              "<ParameterType>Integer</ParameterType><Enable>true</Enable><Multiplier>2</Multiplier>"
              "<DisplaySuffix>a</DisplaySuffix><ControlType>VCLineEdit</ControlType>"
              "<ValueType>ValueNumericInt</ValueType><ToolTip/><DisplayName/><Enable>false</Enable>"
              "<RepresentationName>b</RepresentationName><Integer/>",
              Taken),
        child("all blocks",
              "<Boolean>true</Boolean><Enum/><Double/><Integer/><Long/><Float/><String/><TimeStamp/>", Taken),
        child("block of another type", "<ParameterType>Long</ParameterType><Float/>", Taken),
        child("unknown attributes",
              "<ToolTip a=\"b\">c</ToolTip><Integer a=\"b\"><Minimum a=\"b\">1</Minimum></Integer>"
              "<Enum a=\"b\"><EnumValue a=\"b\"/></Enum><String a=\"b\"/>",
              Taken),
        child("unknown tag", "<Colour/>", Refused),
        child("tag in lower case", "<enable>true</enable>", Refused),
        child("limit without a block", "<Minimum>1</Minimum>", Refused),
        child("list of doubles", "<Double><MaxDoubleListLength>3</MaxDoubleListLength></Double>", Taken),
        child("block opened as DoubleList", "<DoubleList><Double><Minimum>1</Minimum></Double></DoubleList>",
              Taken),
        child("block opened as DoubleList, without an end", "<DoubleList><Minimum>1</Minimum></DoubleList>",
              Taken),
        child("unknown tag behind a DoubleList without an end", "<DoubleList/><Colour/>", ReaderOnly),
        child("unknown tag behind a DoubleList with an end", "<DoubleList><Double/></DoubleList><Colour/>",
              Refused),
        child("unknown children of a block", "<Integer>a<Step>2</Step><Unit><a b=\"c\"/></Unit></Integer>",
              Taken),
        child("limit inside an unknown child", "<Integer><Limits><Minimum>1</Minimum></Limits></Integer>",
              Taken),
        child("limit in words inside an unknown child", "<Float><a><Minimum>low</Minimum></a></Float>",
              ReaderOnly),
        child("fraction in a block of whole numbers", "<Integer><Minimum>0.5</Minimum></Integer>", Taken),
        child("default in words", "<Integer><Default>one</Default></Integer>", Taken),
        child("precision in a block without one", "<Long><Precision>fine</Precision></Long>", ReaderOnly),
        child("element in a limit inside an unknown child", "<Long><a><Minimum><b/></Minimum></a></Long>",
              Refused),
        child("element in a limit of a block without one", "<Enum><Minimum><b/></Minimum></Enum>",
              ReaderOnly),
        child("default of a string as an attribute", "<String Default=\"a\"/>", Taken),
        child("default of a string as an element", "<String><Default> a </Default></String>", Taken),
        child("block in itself", "<Long><Long><Minimum>1</Minimum></Long></Long>", Taken),
        child("limit behind the first end of a block", "<Long><Long/><Minimum>1</Minimum></Long>",
              SchemaOnly),
        child("tag behind the first end of a block", "<Long><Long/><ToolTip>a</ToolTip></Long>", Taken),
        child("entries",
              "<Enum><EnumValue Key=\" 1 \" Name=\"a\" Identifier=\"b\" Value=\"1e3\" Default=\"true\"/>"
              "<EnumValue Default=\"false\"/><EnumValue/></Enum>",
              Taken),
        child("entries in entries and other elements",
              "<Enum><EnumValue>a<b/><EnumValue Key=\"1\"/></EnumValue><c><EnumValue/></c></Enum>", Taken),
        child("entry in an entry with a key in words",
              "<Enum><EnumValue><EnumValue Key=\"one\"/></EnumValue></Enum>", ReaderOnly),
        child("text between entries", "<Enum>a<EnumValue>b</EnumValue>c</Enum><String>d</String>", Taken),
        child("entry with a key in words", "<Enum><EnumValue Key=\"one\"/></Enum>", ReaderOnly),
        child("entry with a value in words", "<Enum><EnumValue Value=\"one\"/></Enum>", ReaderOnly),
        child("entry with a default in capitals", "<Enum><EnumValue Default=\"TRUE\"/></Enum>", ReaderOnly),
        child("entry in a block without entries", "<Integer><EnumValue/></Integer>", Taken),
        {"part of a block as the root", kind, "<Minimum>1</Minimum>", SchemaOnly},
    };
}

/// An element that holds a text, and where it stands.
struct Leaf {
    QString kind;
    QString place; ///< a document with %1 for the element
    QString tag;
    QString text;
    QString meaningless; ///< null where every text means something, or the reader refuses the others
};

inline QList<Leaf> leaves()
{
    QList<Leaf> leaves;
    const auto add = [&leaves](const char *kind, const QString &place, const QStringList &tags,
                               const char *text, const char *meaningless = nullptr) {
        for (const QString &tag : tags)
            leaves << Leaf{kind, place, tag, text, meaningless};
    };
    const auto addTo = [&add](const char *kind, const QStringList &tags, const char *text,
                              const char *meaningless = nullptr) {
        add(kind, QString("<%2>%1</%2>").arg("%1", kind), tags, text, meaningless);
    };
    addTo("Job", {"ResourceType"}, "Decoder", "decoder");
    addTo("JobHeader", {"JobType"}, "Search MC VUHF", "Search MC V/UHF");
    addTo("JobHeader", {"Author", "Description", "ShowJDH"}, " any text ");
    addTo("JobHeader", {"Creation"}, "2026-03-29T00:59:59,250Z", "2026-03-29");
    addTo("AntennaData", {"Name"}, " any text ");
    addTo("AntennaData", {"MinimumFrequency", "MaximumFrequency", "Azimuth"}, " 1.5e300 ", "3 MHz");
    addTo("AntennaData", {"Polarization"}, "Slant", "slant");
    addTo("Area", {"Name"}, " any text ");
    add("Area", "<Area><Coordinate>%1</Coordinate></Area>", {"Latitude", "Longitude"}, "-1.5e300", "north");
    addTo("AutomaticWorkflow", {"Mode"}, "ManualMode", "Manual");
    addTo("AutomaticWorkflow", {"Classifiers", "ClassificationTime", "ClassificationResult"}, "1");
    addTo("AutomaticWorkflow", {"SearchStrategy"}, "LatestActiveFirst");
    addTo("AutomaticWorkflow", {"BitstreamClassification"}, "true", "TRUE");
    addTo("ActivityGeneration", {"Mode"}, "AGED", "aged");
    addTo("ActivityGeneration", {"EnergyChannel"}, "DDem", "CDem");
    addTo("ActivityGeneration", {"DDemActiveCriteria"}, "Signal Detection", "signal detection");
    addTo("ActivityGeneration", {"DbWriteDDem", "DbWriteClass"}, "Always", "Sometimes");
    addTo("ActivityGeneration",
          {"LevelMinBurstDuration", "LevelMaxBreakDuration", "DDemMinBurstDuration", "DDemMaxBreakDuration",
           "DetConvMinBurstDuration", "SessionCloseTime"},
          "1.5e38", "1.5e300");
    addTo("ActivityGeneration",
          {"DDemMorseQualityThreshold", "ClassIntermScore", "ClassFinalScore", "ClassStartScore",
           "ClassStopScore", "ClassMinConfidence"},
          "3", "3.0");
    addTo("ActivityGeneration", {"DbWriteEnergy", "CutAtLocations", "RestartAttachmentsOnSessionClose"},
          "false", "0");
    addTo("Parameter", {"RepresentationName", "DisplayName", "ToolTip", "DisplaySuffix"}, " any text ");
    addTo("Parameter", {"ValueType"}, "ValueString", "String");
    addTo("Parameter", {"ControlType"}, "VCLineEdit", "Dial");
    addTo("Parameter", {"ParameterType"}, "Boolean", "boolean");
    addTo("Parameter", {"Multiplier"}, "1.5e300", "double");
    addTo("Parameter", {"Enable", "Boolean"}, "true", "TRUE");
    for (const QString block : {"Integer", "Long", "TimeStamp", "Float", "Double"}) {
        const QString place = QString("<Parameter><%2>%1</%2></Parameter>").arg("%1", block);
        add("Parameter", place, {"Minimum", "Maximum"}, "-1", "least");
        add("Parameter", place, {"Default"}, "0");
    }
    const QString floatBlock = "<Parameter><Float>%1</Float></Parameter>";
    const QString doubleBlock = "<Parameter><Double>%1</Double></Parameter>";
    add("Parameter", floatBlock, {"Precision"}, "3", "3.0");
    add("Parameter", doubleBlock, {"Precision", "MaxDoubleListLength"}, "3", "3.0");
    add("Parameter", "<Parameter><String>%1</String></Parameter>", {"Default"}, " any text ");
    return leaves;
}

/// What holds for every element that holds a text.
inline Rows leafRows()
{
    Rows rows;
    for (const Leaf &leaf : leaves()) {
        const auto add = [&](const QString &name, const QString &start, const QString &content,
                             Verdict verdict) {
            const QString element = '<' + leaf.tag + start + '>' + content + "</" + leaf.tag + '>';
            rows << Row{name + ", " + leaf.place.arg(leaf.tag), leaf.kind, leaf.place.arg(element), verdict};
        };
        add("text", "", leaf.text, Taken);
        add("unknown attribute", " a=\"b\"", leaf.text, Taken);
        add("comment", "", leaf.text + "<!-- a -->", Taken);
        add("element inside", "", leaf.text + "<a/>", Refused);
        if (!leaf.meaningless.isNull())
            add("another text", "", leaf.meaningless, ReaderOnly);
    }
    return rows;
}

/// The rows of every kind, by kind.
inline QMap<QString, Rows> smallDocuments()
{
    QMap<QString, Rows> documents;
    for (const QString &kind : kinds())
        documents[kind] = commonRows(kind);
    for (const Rows &rows :
         {jobRows(), jobHeaderRows(), antennaDataRows(), areaRows(), automaticWorkflowRows(),
          activityGenerationRows(), genericReceiverRows(), parameterRows(), leafRows()}) {
        for (const Row &row : rows)
            documents[row.kind] << row;
    }
    return documents;
}

} // namespace SchemaSupport

#endif
