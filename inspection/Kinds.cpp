#include "inspection/Kinds.h"

namespace KORMAK {

QStringList Inspection::GetKinds()
{
    return {QStringLiteral("Job"), QStringLiteral("AutomaticWorkflow"), QStringLiteral("ActivityGeneration"),
            QStringLiteral("GenericReceiver"), QStringLiteral("Parameter")};
}

} // namespace KORMAK
