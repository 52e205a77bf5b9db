// The scoped profiler: how often functions are called and how long that takes, light enough to stay in place.
//
//   void CModel::Read()
//   {
//       CProfiler profiler(__FILE__, __LINE__, "CModel::Read"); // or ZEK_PROFILE_FUNCTION(), ProfileScope.h
//       ...
//   }
//   CProfileMgr::StartProfilingST();
//   ...
//   CProfileMgr::PrintST(&printer);
//
// Off until StartProfilingST() is called, or from the library's load on if the test value "Profiling" is
// "yes" then. When the library is unloaded, what was recorded is printed to "C:\profile.txt"; without any
// record no file is made.
//
// Units: milliseconds of wall-clock time, in whole ones, as clock() counts on the home platform; shorter
//   calls mostly add 0.
// Errors: none is reported. A report that cannot be written is left out.
// Threads: one.
#pragma once

#include <afxtempl.h>

#include <atomic>

// Where a report goes.
class AFX_EXT_CLASS CProfilePrinterAdaptor
{
public:
    CProfilePrinterAdaptor();
    CProfilePrinterAdaptor(const CProfilePrinterAdaptor& source);
    CProfilePrinterAdaptor& operator=(const CProfilePrinterAdaptor& source);
    virtual ~CProfilePrinterAdaptor();

    // 0: print nothing; neither of the others is called then.
    virtual int BeforePrint();
    // One line, without its end.
    virtual void PrintLine(const char* text) = 0;
    virtual void AfterPrint();
};

// What is known of a function.
struct T_PROFILE_DATA {
    UINT id; // from 1, in the order of first completed calls
    int count;
    LONG total; // milliseconds
};

class CProfileIndex;

// The table of functions, by name.
class AFX_EXT_CLASS CProfileMgr
{
public:
    // Reads "Profiling" and starts profiling if that is exactly "yes".
    CProfileMgr();
    ~CProfileMgr();
    CProfileMgr(const CProfileMgr&) = delete;
    CProfileMgr& operator=(const CProfileMgr&) = delete;

    static void StartProfilingST();
    static void StopProfilingST();
    static bool IsStopped() { return m_bStopped.load(std::memory_order_relaxed) != 0; }

    // Prints "*** Dumping Profiling Result ***" and a line "FILE(LINE) FUNCTION : COUNT, SECONDS" for each
    // function by id. With the test value "ProfSkipZero" exactly "yes" (read once per process) functions
    // below 1e-5 seconds are left out. Without a printer or a record it calls nothing.
    static void PrintST(CProfilePrinterAdaptor* adaptor);

protected:
    friend class CProfiler;

    // Adds a completed call to its function. The first one of a name decides about file and line.
    static void CalledST(const char* file, int line, const char* function, LONG ticks);
    void Print(CProfilePrinterAdaptor* adaptor);
    // For qsort: ascending ids of two T_PROFILE_DATA.
    static int CompareProfileDataST(const void* a, const void* b);

private:
    friend class CProfileReporter;

    void Called(const char* file, int line, const char* function, LONG ticks);
    T_PROFILE_DATA& Find(const char* file, int line, const char* function);

    static std::atomic<int> m_bStopped;
    static CProfileMgr m_shared;

    CMap<CString, LPCSTR, T_PROFILE_DATA, T_PROFILE_DATA&> m_calls;
    CMap<UINT, UINT, CString, LPCSTR> m_labels;
    CProfileIndex* m_index; // finds a call's record by the address of its name
};

// Times a block. The texts are not copied: pass literals.
class AFX_EXT_CLASS CProfiler
{
public:
    // Does nothing while profiling is stopped, also when it starts before the block ends.
    CProfiler(const char* file, int line, const char* function)
    {
        if (CProfileMgr::IsStopped())
            m_function = nullptr;
        else
            Start(file, line, function);
    }
    CProfiler(const CProfiler& source) = default;
    CProfiler& operator=(const CProfiler& source) = default;
    // The call is dropped if profiling has been stopped meanwhile.
    ~CProfiler()
    {
        if (m_function)
            Stop();
    }

private:
    void Start(const char* file, int line, const char* function);
    void Stop();

    const char* m_function; // null: does nothing
    const char* m_file;
    int m_line;
    LONG m_start;
};

// Prints when it is destroyed.
class AFX_EXT_CLASS CProfileReporter
{
public:
    // To "C:\profile.txt".
    CProfileReporter();
    // To a printer (null: the file), which it deletes afterwards if bOwn is not 0.
    CProfileReporter(CProfilePrinterAdaptor* adaptor, int bOwn);
    CProfileReporter(const CProfileReporter& source);
    CProfileReporter& operator=(const CProfileReporter& source);
    virtual ~CProfileReporter();

private:
    static CProfileReporter m_default; // which prints at the library's unload

    CProfilePrinterAdaptor* m_adaptor;
    int m_bOwn;
};
