#include "DeflectionJob.h"

#include <algorithm>

namespace {

constexpr int kPlaces = 200;

} // namespace

CDeflectionJob::CDeflectionJob(const BeamData& beam, const IDeflection& deflection,
                               std::shared_ptr<JobState> state)
    : m_beam(beam), m_deflection(deflection), m_state(std::move(state))
{
}

CDeflectionJob::~CDeflectionJob()
{
    SetEvent(m_state->ended);
}

void CDeflectionJob::ThreadRun()
{
    double greatest = 0;
    for (int place = 1; place <= kPlaces && !m_state->stop; ++place) {
        greatest = std::max(greatest, m_deflection.At(m_beam, m_beam.length * place / kPlaces));
        CString text;
        text.Format("Place %d of %d", place, kPlaces);
        ProgressText(static_cast<UINT>(place * 100 / kPlaces), text);
    }
    m_state->greatest = greatest;
    Progress(kFinished, 0);
}
