#include "LeakLog.h"

#include "TrackerState.h"

#include <charconv>
#include <cstring>
#include <string>

#include <MemoryLeakTester.h>

namespace {

constexpr std::size_t kBlock = 64 * 1024;
constexpr std::size_t kColumn = 10;
constexpr std::size_t kMostDigits = 20;

// A text that goes to a file whenever a block of it is full. Numbers are written by hand: a log may have
// millions of lines.
class LogText
{
public:
    explicit LogText(CFile& file) : m_file(file) { m_text.reserve(kBlock + kBlock / 8); }

    void Put(const char* text) { m_text += text; }
    // In a column, from its left edge.
    void Number(LONG value, std::size_t width) { Column(value, width, 10); }
    void Address(const void* value) { Column(reinterpret_cast<std::uintptr_t>(value), kColumn, 16); }

    void EndLine()
    {
        m_text += '\n';
        if (m_text.size() >= kBlock)
            Flush();
    }
    void Flush()
    {
        m_file.Write(m_text.data(), static_cast<UINT>(m_text.size()));
        m_text.clear();
    }

private:
    template <class INTEGER>
    void Column(INTEGER value, std::size_t width, int base)
    {
        char digits[kMostDigits];
        const char* end = std::to_chars(digits, digits + kMostDigits, value, base).ptr;
        const auto length = static_cast<std::size_t>(end - digits);
        m_text.append(digits, length);
        if (length < width)
            m_text.append(width - length, ' ');
    }

    CFile& m_file;
    std::string m_text;
};

// Each file's name behind its last backslash; the whole when that is the first character or there is none.
std::vector<CString> ShownNames(const FileNames& files)
{
    std::vector<CString> names;
    for (FileNames::Index i = 0; i < files.Count(); ++i) {
        const CString whole(files.Name(i));
        const int last = whole.ReverseFind('\\');
        names.push_back(last > 0 ? whole.Mid(last + 1) : whole);
    }
    return names;
}

// Sums and counts are shown as 32-bit numbers with a sign.
void PutHead(LogText& log, const char* title, DWORD value)
{
    log.Put(title);
    log.Number(static_cast<LONG>(value), 0);
    log.EndLine();
}

void PutRecords(LogText& log, const std::vector<LiveRecord>& records, const std::vector<CString>& names,
                LONG number)
{
    for (const LiveRecord& record : records) {
        log.Put("NO");
        log.Number(number++, 5);
        log.Put(" KEY ");
        log.Number(static_cast<LONG>(record.key), kColumn);
        log.Put(" < size ");
        log.Number(static_cast<LONG>(record.size), kColumn);
        log.Put("  ptr ");
        log.Address(record.pointer);
        log.Put("  line ");
        log.Number(record.line, 5);
        log.Put("  :");
        log.Put(names[record.file]);
        log.EndLine();
    }
}

void PutAll(LogText& log, const TrackerState& state)
{
    const std::vector<CString> names = ShownNames(state.files);
    PutHead(log, "*** Number of memory leak active: ", static_cast<DWORD>(state.live.Count()));
    PutHead(log, "*** Number of memory leak in process: ", static_cast<DWORD>(state.displaced.size()));
    PutHead(log, "*** Size of memory leak active: ", state.activeSize);
    PutHead(log, "*** Size of memory leak in process: ", state.displacedSize);
    PutHead(log, "*** Total memory leak size: ", state.totalSize);
    PutHead(log, "*** Number of delete failure(not found): ", state.deleteFailures);
    log.EndLine();
    PutRecords(log, state.live.InOrder(), names, 1);
    log.EndLine();
    PutRecords(log, state.displaced, names, 0);
    log.Put("\nend...");
    log.EndLine();
    log.Flush();
}

// Removes what could not be written to its end.
void WriteTo(const CString& path, const TrackerState& state)
{
    CFile file;
    if (!file.Open(path, CFile::modeCreate | CFile::modeWrite))
        return;
    try {
        LogText log(file);
        PutAll(log, state);
        file.Close();
        return;
    } catch (CException* e) {
        e->Delete();
    } catch (...) {
    }
    file.Abort();
    DeleteFileA(path);
}

// The executable's path, zero-terminated; false when it is not known.
template <std::size_t SIZE>
bool ProgramPath(char (&path)[SIZE])
{
    const DWORD length = GetModuleFileNameA(nullptr, path, SIZE);
    path[SIZE - 1] = '\0';
    return length != 0;
}

void WriteBeside(const CString& program, const TrackerState& state)
{
    CString path;
    const int leaks = static_cast<int>(state.live.Count() + state.displaced.size());
    path.Format("%s%s\\memory leak.%d.log.nas", program.Left(program.ReverseFind('\\') + 1), "Temporary",
                leaks);
    WriteTo(path, state);
}

} // namespace

void WriteLeakLog(TrackerState& state)
{
    constexpr std::size_t kPathSize = 256;
    state.busy = 1;
    state.activeSize = state.live.TotalSize();
    state.totalSize = state.displacedSize + state.activeSize;
    char program[kPathSize];
    if (ProgramPath(program)) {
        try {
            const CString path(program);
            if (path.ReverseFind('\\') < 0)
                return; // busy from then on
            WriteBeside(path, state);
        } catch (CException* e) {
            e->Delete();
        } catch (...) {
        }
    }
    state.busy = 0;
}
