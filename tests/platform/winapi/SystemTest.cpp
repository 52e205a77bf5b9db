// Errors and their texts, environment, modules, time, profile files.
#include "Scratch.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <atomic>
#include <cstring>
#include <string>
#include <thread>

namespace {

TEST(WinapiErrors, TheLastErrorBelongsToTheThread)
{
    std::atomic<int> step = 0;
    DWORD other = 0;
    std::thread thread([&] {
        SetLastError(7);
        step = 1;
        while (step != 2)
            std::this_thread::yield();
        other = GetLastError();
    });
    while (step != 1)
        std::this_thread::yield();
    SetLastError(42);
    EXPECT_EQ(GetLastError(), 42u);
    step = 2;
    thread.join();
    EXPECT_EQ(other, 7u);
}

TEST(WinapiErrors, TextsOfErrors)
{
    for (const long code :
         {0L, ERROR_FILE_NOT_FOUND, ERROR_ACCESS_DENIED, ERROR_DISK_FULL, ERROR_MOD_NOT_FOUND}) {
        SCOPED_TRACE(code);
        LPSTR text = nullptr;
        const DWORD length = FormatMessageA(
            FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_IGNORE_INSERTS,
            nullptr, static_cast<DWORD>(code), 0, reinterpret_cast<LPSTR>(&text), 0, nullptr);
        ASSERT_GT(length, 2u);
        EXPECT_EQ(std::strlen(text), length);
        EXPECT_EQ(std::string(text).substr(length - 2), "\r\n");
        EXPECT_EQ(LocalFree(text), nullptr);
    }
    char buffer[8] = "#######";
    EXPECT_EQ(FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, ERROR_DISK_FULL, 0, buffer, 5, nullptr),
              0u);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER));
    EXPECT_EQ(buffer[5], '#');
    EXPECT_EQ(FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, 0x2fffffff, 0, buffer, 8, nullptr), 0u);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_MR_MID_NOT_FOUND));
}

TEST(WinapiEnvironment, VariablesAndTheirBuffers)
{
    ASSERT_TRUE(SetEnvironmentVariableA("ZEK_PROBE", "value"));
    char buffer[8] = "#######";
    EXPECT_EQ(GetEnvironmentVariableA("ZEK_PROBE", nullptr, 0), 6u);
    EXPECT_EQ(GetEnvironmentVariableA("ZEK_PROBE", buffer, 5), 6u);
    EXPECT_EQ(buffer[5], '#');
    EXPECT_EQ(GetEnvironmentVariableA("ZEK_PROBE", buffer, 6), 5u);
    EXPECT_STREQ(buffer, "value");
    ASSERT_TRUE(SetEnvironmentVariableA("ZEK_PROBE", nullptr));
    EXPECT_EQ(GetEnvironmentVariableA("ZEK_PROBE", buffer, 6), 0u);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_ENVVAR_NOT_FOUND));
}

TEST(WinapiModules, TheExecutableKnowsItsName)
{
    char name[1024];
    const DWORD length = GetModuleFileNameA(nullptr, name, sizeof name);
    ASSERT_GT(length, 3u);
    EXPECT_EQ(std::strlen(name), length);
    EXPECT_EQ(name[1], ':');
    EXPECT_NE(GetFileAttributesA(name), INVALID_FILE_ATTRIBUTES);
    char other[1024];
    EXPECT_EQ(GetModuleFileNameA(GetModuleHandleA(nullptr), other, sizeof other), length);
    EXPECT_STREQ(name, other);
    EXPECT_EQ(GetModuleHandleA(std::strrchr(name, '\\') + 1), GetModuleHandleA(nullptr));

    std::memset(other, '#', sizeof other);
    EXPECT_EQ(GetModuleFileNameA(nullptr, other, 4), 4u);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER));
    EXPECT_EQ(std::string(other, 3), std::string(name, 3));
    EXPECT_EQ(other[4], '#');
    EXPECT_EQ(GetModuleFileNameA(reinterpret_cast<HMODULE>(0x1234), other, sizeof other), 0u);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_MOD_NOT_FOUND));
}

TEST(WinapiModules, AModuleBesideTheExecutableIsFoundAndFreed)
{
    for (const char* name : {"winapi_probe.DLL", "winapi_probe.dll", "winapi_probe", "WINAPI_PROBE.DLL"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(GetModuleHandleA(name), nullptr);
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_MOD_NOT_FOUND));
        const HMODULE module = LoadLibraryA(name);
        ASSERT_NE(module, nullptr);
        EXPECT_EQ(GetModuleHandleA(name), module);
        EXPECT_EQ(LoadLibraryA(name), module);
        using Answer = int (*)(int);
        const auto answer =
            reinterpret_cast<Answer>(reinterpret_cast<void (*)()>(GetProcAddress(module, "ProbeAnswer")));
        ASSERT_NE(answer, nullptr);
        EXPECT_EQ(answer(20), 41);
        EXPECT_EQ(GetProcAddress(module, "NoSuchFunction"), nullptr);
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_PROC_NOT_FOUND));
        EXPECT_EQ(GetProcAddress(module, "strlen"), nullptr) << "another module's function";
        EXPECT_TRUE(FreeLibrary(module));
        EXPECT_TRUE(FreeLibrary(module));
        EXPECT_EQ(GetModuleHandleA(name), nullptr);
    }
}

TEST(WinapiModules, AModuleByItsPath)
{
    char path[1024];
    const HMODULE module = LoadLibraryA("winapi_probe.dll");
    ASSERT_NE(module, nullptr);
    ASSERT_NE(GetModuleFileNameA(module, path, sizeof path), 0u);
    FreeLibrary(module);
    const HMODULE again = LoadLibraryA(path);
    EXPECT_NE(again, nullptr);
    EXPECT_EQ(GetModuleHandleA(path), again);
    FreeLibrary(again);
}

TEST(WinapiModules, WhatIsNoModule)
{
    const ScratchFolder folder;
    WriteWholeFile(folder.Path("text.dll"), "no module at all");
    EXPECT_EQ(LoadLibraryA(folder.Path("text.dll").c_str()), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_BAD_EXE_FORMAT));
    for (const char* name :
         {"zek_no_such_module.dll", "zek_no_such_module", "..\\winapi_none.dll", "none\\winapi_probe.dll"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(LoadLibraryA(name), nullptr);
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_MOD_NOT_FOUND));
    }
}

TEST(WinapiModules, TheSystemModuleAnswersForTheSystem)
{
    const HMODULE kernel = GetModuleHandleA("KERNEL32.DLL");
    ASSERT_NE(kernel, nullptr);
    using Language = LANGID(WINAPI*)();
    const auto language = reinterpret_cast<Language>(
        reinterpret_cast<void (*)()>(GetProcAddress(kernel, "GetUserDefaultUILanguage")));
    ASSERT_NE(language, nullptr);
    EXPECT_EQ(language(), GetUserDefaultUILanguage());
    EXPECT_EQ(GetProcAddress(kernel, "NoSuchFunctionAtAll"), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_PROC_NOT_FOUND));
}

constexpr ULONGLONG kDay = 864'000'000'000ULL;

ULONGLONG Ticks(const FILETIME& time)
{
    return static_cast<ULONGLONG>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
}

TEST(WinapiTime, DatesBothWays)
{
    const struct {
        const char* label;
        SYSTEMTIME date;
        ULONGLONG ticks;
    } rows[] = {
        {"the first moment", {1601, 1, 1, 1, 0, 0, 0, 0}, 0},
        {"the Unix epoch", {1970, 1, 4, 1, 0, 0, 0, 0}, 116444736000000000ULL},
        {"a leap day", {2000, 2, 2, 29, 23, 59, 59, 999}, 125963423999990000ULL},
        {"no leap year", {1900, 3, 4, 1, 0, 0, 0, 0}, 94405824000000000ULL},
        {"a far date", {30827, 12, 5, 31, 0, 0, 0, 0}, 9223149024000000000ULL},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        FILETIME time;
        SYSTEMTIME date;
        ASSERT_TRUE(SystemTimeToFileTime(&row.date, &time));
        EXPECT_EQ(Ticks(time), row.ticks);
        ASSERT_TRUE(FileTimeToSystemTime(&time, &date));
        EXPECT_EQ(date.wDayOfWeek, row.date.wDayOfWeek);
        EXPECT_EQ(std::memcmp(&date, &row.date, sizeof date), 0);
    }
}

TEST(WinapiTime, ImpossibleDatesAreRefused)
{
    const SYSTEMTIME rows[] = {
        {1600, 12, 0, 31, 0, 0, 0, 0}, {2001, 0, 0, 1, 0, 0, 0, 0},  {2001, 13, 0, 1, 0, 0, 0, 0},
        {2001, 1, 0, 0, 0, 0, 0, 0},   {2001, 4, 0, 31, 0, 0, 0, 0}, {2001, 1, 0, 1, 24, 0, 0, 0},
        {2001, 1, 0, 1, 0, 60, 0, 0},  {2001, 1, 0, 1, 0, 0, 60, 0}, {2001, 1, 0, 1, 0, 0, 0, 1000}};
    for (const auto& row : rows) {
        FILETIME time;
        EXPECT_FALSE(SystemTimeToFileTime(&row, &time)) << row.wYear << "-" << row.wMonth << "-" << row.wDay;
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    }
    const FILETIME beyond{0, 0x80000000};
    SYSTEMTIME date;
    EXPECT_FALSE(FileTimeToSystemTime(&beyond, &date));
}

// Every day of a cycle of 400 years, counted one by one.
TEST(WinapiTime, TheCalendarAgreesWithCounting)
{
    static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    ULONGLONG day = 0;
    for (int year = 1601; year < 2001; ++year)
        for (int month = 1; month <= 12; ++month) {
            const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
            for (int date = 1; date <= kDays[month - 1] + (leap && month == 2 ? 1 : 0); ++date, ++day) {
                const ULONGLONG ticks = day * kDay;
                const FILETIME time{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
                SYSTEMTIME found;
                ASSERT_TRUE(FileTimeToSystemTime(&time, &found));
                ASSERT_TRUE(found.wYear == year && found.wMonth == month && found.wDay == date)
                    << year << " " << month;
            }
        }
}

TEST(WinapiTime, LocalTimesComeBack)
{
    FILETIME now, local, back;
    GetSystemTimeAsFileTime(&now);
    ASSERT_TRUE(FileTimeToLocalFileTime(&now, &local));
    ASSERT_TRUE(LocalFileTimeToFileTime(&local, &back));
    EXPECT_EQ(Ticks(back), Ticks(now));
    SYSTEMTIME utc;
    GetSystemTime(&utc);
    FILETIME again;
    ASSERT_TRUE(SystemTimeToFileTime(&utc, &again));
    EXPECT_LT(Ticks(again) - Ticks(now) + 20'000, 600'000'000u) << "the same minute";
}

TEST(WinapiTime, CountersRunForward)
{
    LARGE_INTEGER perSecond, before, after;
    ASSERT_TRUE(QueryPerformanceFrequency(&perSecond));
    EXPECT_GE(perSecond.QuadPart, 1'000'000) << "finer than a microsecond";
    ASSERT_TRUE(QueryPerformanceCounter(&before));
    const DWORD start = GetTickCount();
    while (GetTickCount() == start) // its steps are as long as the system likes
        Sleep(1);
    EXPECT_LT(GetTickCount() - start, 60'000u) << "forward, not back";
    ASSERT_TRUE(QueryPerformanceCounter(&after));
    EXPECT_GT(after.QuadPart, before.QuadPart);
}

class WinapiProfile : public testing::Test
{
protected:
    std::string Text(const char* section, const char* key, const char* fallback = "none", DWORD size = 256)
    {
        char buffer[256];
        std::memset(buffer, '#', sizeof buffer);
        const DWORD length = GetPrivateProfileStringA(section, key, fallback, buffer, size, m_file.c_str());
        return std::string(buffer, length);
    }

    ScratchFolder m_folder;
    std::string m_file = m_folder.Path("probe.ini");
};

TEST_F(WinapiProfile, ReadsWhatPeopleWrite)
{
    WriteWholeFile(
        m_file,
        "; note\r\n[One]\r\nplain=value\r\n  spaced  =  two words  \r\nquoted=\" kept \"\r\nempty=\r\n"
        "number=-12x\r\n\r\n[Two]\nplain=other\n");
    const struct {
        const char *section, *key, *value;
    } rows[] = {{"One", "plain", "value"},   {"ONE", "PLAIN", "value"}, {"One", "spaced", "two words"},
                {"One", "quoted", " kept "}, {"One", "empty", ""},      {"Two", "plain", "other"},
                {"Two", "spaced", "none"},   {"Three", "plain", "none"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.section << " " << row.key);
        EXPECT_EQ(Text(row.section, row.key), row.value);
    }
    EXPECT_EQ(GetPrivateProfileIntA("One", "number", 7, m_file.c_str()), static_cast<UINT>(-12));
    EXPECT_EQ(GetPrivateProfileIntA("One", "plain", 7, m_file.c_str()), 0u);
    EXPECT_EQ(GetPrivateProfileIntA("One", "none", 7, m_file.c_str()), 7u);
    EXPECT_EQ(Text(nullptr, nullptr), std::string("One\0Two\0", 8));
    EXPECT_EQ(Text("Two", nullptr), std::string("plain\0", 6));
    EXPECT_EQ(Text("One", "plain", "none", 4), "val");
    EXPECT_EQ(Text(nullptr, nullptr, "none", 6), std::string("One\0", 4))
        << "a cut list ends in two terminators";
}

TEST_F(WinapiProfile, WritesAndRemoves)
{
    const auto write = [this](const char* section, const char* key, const char* value) {
        return WritePrivateProfileStringA(section, key, value, m_file.c_str()) != 0;
    };
    EXPECT_TRUE(write("One", "a", "1"));
    EXPECT_TRUE(write("Two", "b", "2"));
    EXPECT_TRUE(write("One", "c", "3"));
    EXPECT_TRUE(write("one", "A", "4"));
    EXPECT_EQ(Text("One", "a"), "4");
    EXPECT_EQ(Text("One", nullptr).size(), 4u);
    EXPECT_TRUE(write("One", "a", nullptr));
    EXPECT_EQ(Text("One", "a"), "none");
    EXPECT_EQ(Text("One", "c"), "3");
    EXPECT_TRUE(write("One", nullptr, nullptr));
    EXPECT_EQ(Text(nullptr, nullptr), std::string("Two\0", 4));
    const std::string bad = m_folder.Path("none/x.ini");
    EXPECT_FALSE(WritePrivateProfileStringA("a", "b", "c", bad.c_str()));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_PATH_NOT_FOUND));
}

TEST(WinapiSynchronisation, ManyThreadsCountTogether)
{
    volatile LONG atomic = 0;
    int plain = 0;
    CRITICAL_SECTION section;
    InitializeCriticalSection(&section);
    const auto work = [&] {
        for (int i = 0; i < 10'000; ++i) {
            InterlockedIncrement(&atomic);
            EnterCriticalSection(&section);
            EnterCriticalSection(&section);
            ++plain;
            LeaveCriticalSection(&section);
            LeaveCriticalSection(&section);
        }
    };
    std::thread other(work);
    work();
    other.join();
    DeleteCriticalSection(&section);
    EXPECT_EQ(atomic, 20'000);
    EXPECT_EQ(plain, 20'000);
    EXPECT_EQ(InterlockedCompareExchange(&atomic, 5, 1), 20'000);
    EXPECT_EQ(InterlockedExchange(&atomic, 6), 20'000);
    EXPECT_EQ(InterlockedExchangeAdd(&atomic, 4), 6);
    EXPECT_EQ(InterlockedDecrement(&atomic), 9);
}

} // namespace
