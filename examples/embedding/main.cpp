// Fills a job, checks it, writes it and reads it back.

#include <kormak/Job.h>
#include <objectbase/TesselException.h>

#include <QTimeZone>

#include <cstdlib>
#include <iostream>

namespace {

//! [job]
KORMAK::Job surveillanceJob()
{
    KORMAK::Job job;
    job.GetJobHeader().SetJobType(KORMAK::JobType::SurveillanceMCHF);
    job.GetJobHeader().SetAuthor(QStringLiteral("M. Keller"));
    job.GetJobHeader().SetCreation(QDateTime({2026, 3, 14}, {6, 30}, QTimeZone::utc()));
    job.SetResourceType(TESSEL::ResourceType::Antenna);
    job.GetAntennaData().SetName(QStringLiteral("Log-periodic North"));
    job.GetAntennaData().SetMinimumFrequency(1.5e6);
    job.GetAntennaData().SetMaximumFrequency(30e6);
    return job;
}
//! [job]

} // namespace

int main()
{
    try {
        // A job that lacks something is refused, and the message says what.
        KORMAK::Job draft = surveillanceJob();
        draft.GetJobHeader().SetAuthor({});
        try {
            draft.Check();
            std::cerr << "The draft is not refused.\n";
            return EXIT_FAILURE;
        } catch (const TESSEL::TesselException &incomplete) {
            std::cout << "The draft is refused: " << incomplete.what() << '\n';
        }

        //! [write and read]
        const KORMAK::Job job = surveillanceJob();
        const QString document = job.GetXmlString();
        std::cout << "The job is written:\n" << document.toStdString();

        KORMAK::Job received;
        if (!received.SetXmlString(document, true)) {
            std::cerr << "The document is not well-formed.\n";
            return EXIT_FAILURE;
        }
        if (received != job) {
            std::cerr << "The job read back differs from the one written.\n";
            return EXIT_FAILURE;
        }
        //! [write and read]
        std::cout << "Read back, the job is the same.\n";
        return EXIT_SUCCESS;
    } catch (const TESSEL::TesselException &error) {
        std::cerr << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
