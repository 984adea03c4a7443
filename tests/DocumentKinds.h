// The kinds of documents, and their objects by name.
#ifndef KORMAK_DOCUMENTKINDS_H
#define KORMAK_DOCUMENTKINDS_H

#include "TestSupport.h"

#include <kormak/ActivityGenerationData.h>
#include <kormak/AutomaticWorkflow.h>
#include <kormak/GenericReceiver.h>
#include <kormak/Job.h>
#include <objectbase/Area.h>

#include <QStringList>

#include <memory>
#include <stdexcept>

namespace TestSupport {

/// The kinds of documents: the names of their objects, which are those of their root elements and schemas.
inline QStringList kinds()
{
    return {"ActivityGeneration", "AntennaData", "Area",      "AutomaticWorkflow",
            "GenericReceiver",    "Job",         "JobHeader", "Parameter"};
}

inline std::unique_ptr<TESSEL::ITesselObject> newObject(const QString &kind)
{
    if (kind == "ActivityGeneration")
        return std::make_unique<KORMAK::ActivityGenerationData>();
    if (kind == "AntennaData")
        return std::make_unique<TESSEL::AntennaData>();
    if (kind == "Area")
        return std::make_unique<TESSEL::Area>();
    if (kind == "AutomaticWorkflow")
        return std::make_unique<KORMAK::AutomaticWorkflow>();
    if (kind == "GenericReceiver")
        return std::make_unique<KORMAK::GenericReceiver>();
    if (kind == "Job")
        return std::make_unique<KORMAK::Job>();
    if (kind == "JobHeader")
        return std::make_unique<KORMAK::JobHeader>();
    if (kind == "Parameter")
        return std::make_unique<KORMAK::Parameter>();
    throw std::invalid_argument(kind.toStdString());
}

} // namespace TestSupport

#endif
