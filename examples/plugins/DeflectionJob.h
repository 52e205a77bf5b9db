// Finds the greatest deflection of a beam in the background.
#pragma once

#include "Beam.h"

#include <atomic>
#include <memory>

// What the job and the window have in common. It outlives both.
struct JobState {
    JobState() : ended(CreateEventA(nullptr, TRUE, FALSE, nullptr)) {}
    ~JobState() { CloseHandle(ended); }
    JobState(const JobState&) = delete;
    JobState& operator=(const JobState&) = delete;

    std::atomic<bool> stop{false};
    std::atomic<double> greatest{0}; // m
    HANDLE ended;                    // set when the job is gone
};

class CDeflectionJob : public CThread
{
public:
    static constexpr UINT kFinished = 101; // the last message; before it come 0 to 100 per cent

    CDeflectionJob(const BeamData& beam, const IDeflection& deflection, std::shared_ptr<JobState> state);
    ~CDeflectionJob() override;

    void ThreadRun() override;

private:
    BeamData m_beam; // a copy: the host may change its beam meanwhile
    const IDeflection& m_deflection;
    std::shared_ptr<JobState> m_state;
};
