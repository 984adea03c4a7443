// What the tests of the job document share: objects that are complete, and objects under other names.
#ifndef KORMAK_JOBSAMPLES_H
#define KORMAK_JOBSAMPLES_H

#include "../TestSupport.h"

#include <kormak/JobHeader.h>
#include <objectbase/AntennaData.h>
#include <objectbase/Converters.h>

namespace TestSupport {

/// A header with nothing missing and without a description.
inline KORMAK::JobHeader completeHeader(int jobType = 0)
{
    KORMAK::JobHeader header;
    header.SetJobType(static_cast<KORMAK::JobType::JobTypeValue>(jobType));
    header.SetAuthor("Mara Lind");
    header.SetCreation(TESSEL::Converters::ToDateTime("2026-03-29T00:59:59,250Z"));
    return header;
}

/// What completeHeader() writes.
inline QString completeHeaderElement()
{
    return "<JobHeader Version=\"1.0\"><JobType>Production SC HF</JobType><Author>Mara Lind</Author>"
           "<Creation>2026-03-29T00:59:59,250Z</Creation><ShowJDH>true</ShowJDH></JobHeader>";
}

/// A new header whose data-header flag holds \a text.
inline KORMAK::JobHeader headerWithShowJDH(const QString &text)
{
    KORMAK::JobHeader header;
    process(header, "<JobHeader Version=\"1.0\"><ShowJDH>" + text + "</ShowJDH></JobHeader>");
    return header;
}

} // namespace TestSupport

Q_DECLARE_METATYPE(KORMAK::JobHeader)
Q_DECLARE_METATYPE(TESSEL::AntennaData)

#endif
