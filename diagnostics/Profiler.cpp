#include <Profiler.h>

#include "ReportFile.h"

namespace {

constexpr const char* kReportPath = "C:\\PROF.RLT";

LONGLONG Ticks()
{
    LARGE_INTEGER now;
    QueryPerformanceCounter(&now);
    return now.QuadPart;
}

LONGLONG Frequency()
{
    LARGE_INTEGER frequency;
    return QueryPerformanceFrequency(&frequency) ? frequency.QuadPart : 0;
}

template <class... ARGS>
void PutLine(CStdioFile& file, const char* format, ARGS... args)
{
    CString line;
    line.Format(format, args...);
    file.WriteString(line);
}

} // namespace

// What ends the profiler: constructed with the library, so it goes when the library goes.
struct Profiler::Owner {
    ~Owner()
    {
        isGone = true;
        delete profiler;
    }

    Profiler* profiler = nullptr;
    static inline bool isGone = false;
    static Owner s_owner;
};

Profiler::Owner Profiler::Owner::s_owner;

Profiler& Profiler::GetInstance()
{
    static Profiler*& shared = Owner::s_owner.profiler;
    if (Owner::isGone) {
        static Profiler* const silent = new Profiler; // never destroyed
        silent->m_isSilent = true;
        return *silent;
    }
    if (!shared)
        shared = new Profiler;
    return *shared;
}

void Profiler::DestroyInstance()
{
}

Profiler::Profiler() : m_frequency(Frequency())
{
}

Profiler::Profiler(const Profiler& source)
{
    *this = source;
}

Profiler& Profiler::operator=(const Profiler& source)
{
    if (this == &source)
        return *this;
    m_frequency = source.m_frequency;
    m_stack = source.m_stack;
    m_sections = source.m_sections;
    m_pending = source.m_pending ? std::make_unique<PendingLine>(*source.m_pending) : nullptr;
    m_lines = source.m_lines;
    m_skipped = source.m_skipped;
    m_isSilent = source.m_isSilent;
    return *this;
}

Profiler::~Profiler()
{
    if (!m_isSilent)
        WriteReport();
}

double Profiler::Seconds(LONGLONG ticks) const
{
    return static_cast<double>(ticks) / static_cast<double>(m_frequency);
}

Profiler::Record& Profiler::Count(std::map<std::string, Record>& records, const std::string& name)
{
    Record& record = records.try_emplace(name, Record{name}).first->second;
    ++record.count;
    return record;
}

void Profiler::StackPush(const char* name)
{
    const LONGLONG start = Ticks();
    m_stack.push_back({name ? name : "", start});
    m_stack.back().pushEnd = Ticks();
}

void Profiler::StackPop()
{
    const LONGLONG popStart = Ticks();
    if (m_stack.empty())
        return;
    const OpenSection section = std::move(m_stack.back());
    m_stack.pop_back();
    Record& record = Count(m_sections, section.name);
    const LONGLONG popEnd = Ticks();
    record.childSeconds += section.childSeconds;
    record.overheadSeconds += Seconds((section.pushEnd - section.pushStart) + (popEnd - popStart));
    const double elapsed = Seconds(popEnd - section.pushStart);
    record.workSeconds += elapsed;
    if (!m_stack.empty())
        m_stack.back().childSeconds += elapsed;
}

void Profiler::LinesByCheckStart(const char* name)
{
    if (m_pending)
        ++m_skipped[m_pending->name];
    m_pending = std::make_unique<PendingLine>(PendingLine{name ? name : ""});
    m_pending->start = Ticks(); // last, so that making the entry is not timed
}

void Profiler::LinesByCheckEnd()
{
    const LONGLONG now = Ticks();
    if (!m_pending)
        return;
    Count(m_lines, m_pending->name).workSeconds += Seconds(now - m_pending->start);
    m_pending.reset();
}

void Profiler::WriteReport() const
{
    const std::string lineRule(63, '-'), skippedRule(58, '-');
    WriteReportFile(kReportPath, [&](CStdioFile& file) {
        PutLine(file, "%12s%12s%12s%8s%12s\n", "WorkSec", "WorkOnlySec", "ChildSec", "count", "function");
        for (const auto& [name, record] : m_sections)
            PutLine(file, "%12lf%12lf%12lf%7d %12s\n", record.workSeconds,
                    record.workSeconds - record.childSeconds, record.childSeconds, record.count,
                    name.c_str());
        PutLine(file, "\n+Frofiling by lines%s\n", lineRule.c_str());
        PutLine(file, "%12s%8s%12s\n", "WorkSec", "count", "lines_name");
        for (const auto& [name, record] : m_lines)
            PutLine(file, "%12lf%7d %12s\n", record.workSeconds, record.count, name.c_str());
        PutLine(file, "\n+Skiped Frofiling by lines%s\n", skippedRule.c_str());
        PutLine(file, "%8s%12s\n", "count", "lines_name");
        for (const auto& [name, count] : m_skipped)
            PutLine(file, "%7d %12s\n", count, name.c_str());
    });
}

ProfileWrite::ProfileWrite(const char* name)
{
    Profiler::GetInstance().StackPush(name);
}

ProfileWrite::ProfileWrite(const ProfileWrite&) = default;
ProfileWrite& ProfileWrite::operator=(const ProfileWrite&) = default;

ProfileWrite::~ProfileWrite()
{
    Profiler::GetInstance().StackPop();
}
