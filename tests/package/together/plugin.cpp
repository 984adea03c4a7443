// Writes, reads and inspects documents with the build of the libraries that the plugin is linked with.
#include <inspection/Kinds.h>
#include <kormak/GenericReceiver.h>
#include <kormak/Job.h>
#include <objectbase/TesselException.h>

#include <QDateTime>

#include <typeinfo>

namespace {

KORMAK::Job job()
{
    KORMAK::Job job;
    job.GetJobHeader().SetJobType(KORMAK::JobType::Antenna);
    job.GetJobHeader().SetAuthor(QStringLiteral("M. Keller"));
    job.GetJobHeader().SetCreation(QDateTime(QDate(2026, 3, 14), QTime(6, 30), Qt::UTC));
    job.SetResourceType(TESSEL::ResourceType::Antenna);
    job.GetAntennaData().SetName(QStringLiteral("Log-periodic North"));
    job.GetAntennaData().SetMinimumFrequency(1.5e6);
    job.GetAntennaData().SetMaximumFrequency(30e6);
    return job;
}

KORMAK::GenericReceiver receiver()
{
    KORMAK::GenericReceiver receiver;
    for (int i = 0; i < 100; ++i) {
        KORMAK::Parameter parameter;
        parameter.SetUniqueParameterName(QStringLiteral("Gain%1").arg(i));
        parameter.SetRepresenationName(QStringLiteral("rx.gain"));
        parameter.SetValueType(KORMAK::Parameter::ValueNumericInt);
        parameter.SetParameterType(KORMAK::ParameterType::Integer);
        parameter.GetIntegerHandler().SetMinimum(0);
        parameter.GetIntegerHandler().SetMaximum(100);
        parameter.GetIntegerHandler().SetDefault(i);
        receiver.AddParameter(parameter);
    }
    return receiver;
}

/// The document is written, read by its text and by its binary form, and written again as before.
template <class Document>
bool isReadBack(Document document)
{
    const QString text = document.GetXmlString();
    QByteArray bytes = document.GetCompressedBinaryRepresentationAsQByteArray(9);
    Document fromText;
    Document fromBytes;
    return fromText.SetXmlString(text, true) && fromText.GetXmlString() == text
        && fromBytes.SetBinaryRepresentation(bytes) && fromBytes == fromText
        && Document(document) == document;
}

/// What is thrown is caught by its type, which other libraries call by the same name.
bool isRefused(const KORMAK::Job &incomplete)
{
    try {
        (void)incomplete.GetXmlString();
    } catch (const TESSEL::TesselException &exception) {
        return exception.GetErrorMessage().contains(QStringLiteral("JobHeader"));
    }
    return false;
}

/// What is known about documents is there, too.
bool isInspected()
{
    return KORMAK::GetDocumentKinds().contains(QStringLiteral("Job"));
}

bool isOfItsOwnType(const TESSEL::ITesselObject &object)
{
    return dynamic_cast<const KORMAK::Job *>(&object) && typeid(object) == typeid(KORMAK::Job);
}

} // namespace

/// The major version of the Qt that the documents work with; 0 when something is not as it should be.
extern "C" Q_DECL_EXPORT int workWithDocuments()
{
    const bool works = isReadBack(job()) && isReadBack(receiver()) && isRefused(KORMAK::Job())
        && isOfItsOwnType(job()) && isInspected();
    return works ? QT_VERSION_MAJOR : 0;
}
