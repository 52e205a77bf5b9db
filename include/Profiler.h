// The line profiler: where a run's time goes, by named sections that nest and by segments of lines.
//
//   void Solve()
//   {
//       ProfileWrite section("Solve");
//       Profiler::GetInstance().LinesByCheckStart("assemble");
//       ...
//       Profiler::GetInstance().LinesByCheckEnd();
//   }
//
// When the process ends, the report is written to "C:\PROF.RLT" (lines end in CR LF, an existing file is
// replaced): for each section its inclusive seconds, those without nested sections, those of nested sections
// and how often it was completed; for each segment its seconds and count; and how often segments were left
// open when the next one began. Names are in ascending byte order. What is open at the end is not reported.
// The macros of ProfileScope.h make the names.
//
// Units: seconds of wall-clock time, read from the performance counter. The time of a section includes what
//   the profiler itself needs for it.
// Errors: none is reported. Closing what is not open does nothing. A report that cannot be written is left
// out. Threads: one. Sections of two threads at once would lie on one stack.
#pragma once

#include <afx.h>

#include <list>
#include <map>
#include <memory>
#include <string>

class AFX_EXT_CLASS Profiler
{
public:
    // Made on first use, destroyed when the library is unloaded, after the program's own static objects.
    // A call even later gets a profiler that never reports.
    static Profiler& GetInstance();
    // Does nothing: only the end of the process writes the report.
    static void DestroyInstance();

    // A copy has the same records and open sections, and writes its report when it is destroyed, too.
    Profiler(const Profiler& source);
    Profiler& operator=(const Profiler& source);
    // Writes the report.
    virtual ~Profiler();

    // Opens a section; the name is copied. A section may be open several times.
    void StackPush(const char* name);
    // Closes the innermost open section.
    void StackPop();

    // Opens a segment; one that is still open is abandoned and counted as skipped. Segments do not nest and
    // know nothing of sections.
    void LinesByCheckStart(const char* name);
    // Closes the open segment.
    void LinesByCheckEnd();

private:
    struct OpenSection {
        std::string name;
        LONGLONG pushStart = 0; // ticks
        LONGLONG pushEnd = 0;
        double childSeconds = 0;
    };
    struct Record {
        std::string name;
        double workSeconds = 0;
        double overheadSeconds = 0; // of the profiler itself: for a debugger, never reported
        double childSeconds = 0;
        int count = 0;
    };
    struct PendingLine {
        std::string name;
        LONGLONG start = 0;
    };
    struct Owner;

    Profiler();
    double Seconds(LONGLONG ticks) const;
    static Record& Count(std::map<std::string, Record>& records, const std::string& name);
    void WriteReport() const;

    LONGLONG m_frequency;
    std::list<OpenSection> m_stack;
    std::map<std::string, Record> m_sections;
    std::unique_ptr<PendingLine> m_pending;
    std::map<std::string, Record> m_lines;
    std::map<std::string, int> m_skipped;
    bool m_isSilent = false;
};

// A section from its construction to the end of its block.
class AFX_EXT_CLASS ProfileWrite
{
public:
    explicit ProfileWrite(const char* name);
    // A copy opens nothing, yet closes a section when it ends.
    ProfileWrite(const ProfileWrite& source);
    ProfileWrite& operator=(const ProfileWrite& source);
    virtual ~ProfileWrite();
};
