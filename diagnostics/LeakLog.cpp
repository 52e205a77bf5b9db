#include "LeakLog.h"

#include <afx.h>

#include <charconv>
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
std::vector<std::string> ShownNames(const std::vector<std::string>& files)
{
    std::vector<std::string> names;
    for (const std::string& file : files) {
        const int last = CString(file.c_str()).ReverseFind('\\');
        names.push_back(last > 0 ? file.substr(static_cast<std::size_t>(last) + 1) : file);
    }
    return names;
}

DWORD TotalSize(const std::vector<LiveRecord>& records)
{
    DWORD sum = 0;
    for (const LiveRecord& record : records)
        sum += record.size;
    return sum;
}

// Sums and counts are shown as 32-bit numbers with a sign.
void PutHead(LogText& log, const char* title, std::size_t value)
{
    log.Put(title);
    log.Number(static_cast<LONG>(value), 0);
    log.EndLine();
}

void PutRecords(LogText& log, const std::vector<LiveRecord>& records, const std::vector<std::string>& names,
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
        log.Put(names[record.file].c_str());
        log.EndLine();
    }
}

void PutAll(LogText& log, const LeakReport& report)
{
    const std::vector<std::string> names = ShownNames(report.files);
    const DWORD activeSize = TotalSize(report.live), displacedSize = TotalSize(report.displaced);
    PutHead(log, "*** Number of memory leak active: ", report.live.size());
    PutHead(log, "*** Number of memory leak in process: ", report.displaced.size());
    PutHead(log, "*** Size of memory leak active: ", activeSize);
    PutHead(log, "*** Size of memory leak in process: ", displacedSize);
    PutHead(log, "*** Total memory leak size: ", activeSize + displacedSize);
    PutHead(log, "*** Number of delete failure(not found): ", report.deleteFailures);
    log.EndLine();
    PutRecords(log, report.live, names, 1);
    log.EndLine();
    PutRecords(log, report.displaced, names, 0);
    log.Put("\nend...");
    log.EndLine();
    log.Flush();
}

// Removes what could not be written to its end.
void WriteTo(const CString& path, const LeakReport& report)
{
    CFile file;
    if (!file.Open(path, CFile::modeCreate | CFile::modeWrite))
        return;
    try {
        LogText log(file);
        PutAll(log, report);
        file.Close();
        return;
    } catch (CException* e) {
        e->Delete();
    } catch (...) {
    }
    file.Abort();
    DeleteFileA(path);
}

} // namespace

bool WriteLeakLog(const LeakReport& report)
{
    constexpr std::size_t kPathSize = 256;
    char program[kPathSize] = "";
    if (GetModuleFileNameA(nullptr, program, kPathSize) == 0)
        return true;
    program[kPathSize - 1] = '\0';
    try {
        const CString whole(program);
        const int last = whole.ReverseFind('\\');
        if (last < 0)
            return false;
        CString path;
        path.Format("%s%s\\memory leak.%d.log.nas", whole.Left(last + 1), "Temporary",
                    static_cast<int>(report.live.size() + report.displaced.size()));
        WriteTo(path, report);
    } catch (CException* e) {
        e->Delete();
    } catch (...) { // out of memory
    }
    return true;
}
