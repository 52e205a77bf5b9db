// What the adapter has beyond Win32: the home folder, the mapping of paths, the hook of the boxes.
#include "Scratch.h"

#include <gtest/gtest.h>
#include <windows.h>
#include <zekhooks.h>
#include <zekpath.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <random>
#include <string>

namespace {

std::string Home()
{
    return std::getenv("ZEK_HOME");
}

std::string ProgramFolder()
{
    char program[1024];
    GetModuleFileNameA(nullptr, program, sizeof program);
    const std::string native = ZekNativePath(program);
    return native.substr(0, native.rfind('/'));
}

TEST(AdapterPaths, DrivesAndUnixPaths)
{
    const std::string c = Home() + "/drive_c";
    const struct {
        const char* path;
        std::string native;
    } rows[] = {
        {"Z:\\", "/"},
        {"z:/etc\\no/such", "/etc/no/such"},
        {"/etc//no/./such/", "/etc/no/such"},
        {"C:\\", c},
        {"C:\\..\\..\\etc\\none", c + "/etc/none"},
        {"C:/Windows/SYSTEM32", c + "/windows/system32"},
        {"\\\\?\\C:\\none such.", c + "/none such."},
        {"C:\\none such. ", c + "/none such"},
        {"Z:\\none\\nul.txt", "/dev/null"},
        {"\\\\.\\nul", "/dev/null"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.path);
        EXPECT_EQ(ZekNativePath(row.path), row.native);
    }
}

// Whatever follows the drive, the answer lies in its folder, is the null device, or is a refusal.
TEST(AdapterPaths, NoPathLeavesTheDriveOfTheHome)
{
    const std::string c = Home() + "/drive_c";
    static constexpr const char* kPieces[] = {
        "..", ".", "...", "\\",       "/",    "//", "a",       "A.txt", "nul", "con",     ":",
        "*",  " ", ". ",  "\xc3\xa4", "\xff", "~",  "windows", "C:",    "Z:",  "\\\\?\\", "etc"};
    std::mt19937 random(20261121);
    for (int i = 0; i < 20'000; ++i) {
        std::string path = random() % 8 ? "C:\\" : "\\\\?\\C:\\";
        for (auto pieces = random() % 12; pieces > 0; --pieces)
            path += std::string(kPieces[random() % std::size(kPieces)]) + (random() % 2 ? "\\" : "");
        const std::string native = ZekNativePath(path.c_str());
        const bool inside = native == c || native.starts_with(c + "/");
        ASSERT_TRUE(inside || native.empty() || native == "/dev/null") << path << " -> " << native;
        ASSERT_EQ((native + "/").find("/../"), std::string::npos) << path << " -> " << native;
    }
}

TEST(AdapterPaths, RefusedPaths)
{
    const struct {
        const char* path;
        DWORD error;
    } rows[] = {
        {"", ERROR_PATH_NOT_FOUND},
        {nullptr, ERROR_PATH_NOT_FOUND},
        {"\\\\server\\share", ERROR_BAD_NETPATH},
        {"\\\\?\\UNC\\server\\share", ERROR_BAD_NETPATH},
        {"D:\\x", ERROR_PATH_NOT_FOUND},
        {"C:\\con", ERROR_FILE_NOT_FOUND},
        {"C:\\x\\COM1.txt", ERROR_FILE_NOT_FOUND},
        {"lpt9", ERROR_FILE_NOT_FOUND},
        {"C:\\a?b", ERROR_INVALID_NAME},
        {"C:\\a:b", ERROR_INVALID_NAME},
        {"C:\\a\tb", ERROR_INVALID_NAME},
        {"C:\\no\\...\\x", ERROR_INVALID_NAME},
        {"\\\\.\\PhysicalDrive0", ERROR_FILE_NOT_FOUND},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.path ? row.path : "null");
        SetLastError(0);
        EXPECT_EQ(ZekNativePath(row.path), "");
        EXPECT_EQ(GetLastError(), row.error);
    }
}

TEST(AdapterPaths, ExactNamesComeFirstThenTheOrderOfBytes)
{
    const ScratchFolder folder;
    for (const char* name : {"File", "fILE", "FILE"})
        WriteWholeFile(folder.Path(name), name);
    EXPECT_EQ(ZekNativePath(folder.Path("fILE").c_str()), folder.Path("fILE"));
    EXPECT_EQ(ZekNativePath(folder.Path("file").c_str()), folder.Path("FILE"));
    WriteWholeFile(folder.Path("\xc3\xa4rger"), "x");
    EXPECT_EQ(ZekNativePath(folder.Path("\xc3\x84RGER").c_str()), folder.Path("\xc3\xa4rger"));
    WriteWholeFile(folder.Path("odd:name?"), "x");
    EXPECT_EQ(ZekNativePath((ZekWin32Path(folder.Path()) + "\\odd:name?").c_str()), folder.Path("odd:name?"))
        << "a file that exists is reached by any name";
}

TEST(AdapterPaths, AnsweredPathsPreferTheDriveOfTheHome)
{
    ASSERT_NE(ZekNativePath("C:\\"), "");
    EXPECT_EQ(ZekWin32Path(Home() + "/drive_c"), "C:\\");
    EXPECT_EQ(ZekWin32Path(Home() + "/drive_c/a/b"), "C:\\a\\b");
    EXPECT_EQ(ZekWin32Path("/"), "Z:\\");
    EXPECT_EQ(ZekWin32Path("/usr/lib"), "Z:\\usr\\lib");
    EXPECT_EQ(
        ZekWin32Path(Home() + "/drive_cc"), "Z:" + [] {
            std::string home = Home() + "/drive_cc";
            for (char& c : home)
                c = c == '/' ? '\\' : c;
            return home;
        }());
}

TEST(AdapterHome, IsMadeForItsOwnerOnly)
{
    const ScratchFolder folder;
    const std::string before = Home(), fresh = folder.Path("some/new/home");
    SetEnvironmentVariableA("ZEK_HOME", fresh.c_str());
    EXPECT_EQ(ZekNativePath("C:\\windows"), fresh + "/drive_c/windows");
    struct stat status;
    ASSERT_EQ(stat(fresh.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0700u);
    WriteWholeFile(folder.Path("file"), "x");
    SetEnvironmentVariableA("ZEK_HOME", folder.Path("file").c_str());
    EXPECT_EQ(ZekNativePath("C:\\x"), "") << "a home that cannot be made";
    EXPECT_EQ(ZekNativePath("Z:\\etc"), "/etc") << "the other drive needs none";
    SetEnvironmentVariableA("ZEK_HOME", before.c_str());
}

TEST(AdapterHome, ProfileWithoutAFolderLiesInTheWindowsFolder)
{
    EXPECT_TRUE(WritePrivateProfileStringA("s", "k", "v", "probe.ini"));
    EXPECT_EQ(ReadWholeFile(Home() + "/drive_c/windows/probe.ini"), "[s]\r\nk=v\r\n");
    EXPECT_TRUE(WriteProfileStringA("s", "k", "main"));
    char buffer[8];
    EXPECT_EQ(GetProfileStringA("s", "k", "", buffer, sizeof buffer), 4u);
}

int lastStyle = -1;

int AnswerNo(HWND, LPCSTR text, LPCSTR caption, UINT style)
{
    lastStyle = static_cast<int>(style);
    return std::strcmp(text, "question") == 0 && std::strcmp(caption, "Error") == 0 ? IDNO : 0;
}

TEST(AdapterBoxes, TheHookAnswers)
{
    const ZEK_BOX_HOOK before = ZekSetBoxHook(AnswerNo);
    EXPECT_EQ(MessageBoxA(nullptr, "question", nullptr, MB_YESNO | MB_ICONQUESTION), IDNO);
    EXPECT_EQ(lastStyle, static_cast<int>(MB_YESNO | MB_ICONQUESTION));
    EXPECT_EQ(ZekSetBoxHook(before), AnswerNo);
}

// What a shell prints when it runs the second process.
std::string Output(const std::string& before, const std::string& task)
{
    const std::string command = before + " '" + ProgramFolder() + "/winapi_child' " + task;
    std::string answer(4096, 0);
    FILE* pipe = popen(command.c_str(), "r");
    answer.resize(std::fread(answer.data(), 1, answer.size(), pipe));
    pclose(pipe);
    return answer;
}

TEST(AdapterLocale, CodePageAndLanguageComeFromTheEnvironment)
{
    const struct {
        const char *assignment, *answer;
    } rows[] = {
        {"", "65001 0409 0409\n"},
        {"LC_ALL=C", "65001 0409 0409\n"},
        {"LANG=ko_KR.UTF-8", "65001 0412 0412\n"},
        {"LANG=ko_KR.EUC-KR", "949 0412 0412\n"},
        {"LC_ALL=ko_KR.CP949 LANG=en_US.UTF-8", "949 0412 0412\n"},
        {"LC_CTYPE=ja_JP.SJIS LC_MESSAGES=en_GB.UTF-8", "932 0411 0809\n"},
        {"LANG=zh_CN.GBK", "936 0804 0804\n"},
        {"LANG=zh_TW.UTF-8", "65001 0404 0404\n"},
        {"LANG=de_DE.ISO-8859-15@euro", "1252 0407 0407\n"},
        {"LANG=xx_YY.KOI8-R", "65001 0409 0409\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.assignment);
        EXPECT_EQ(Output(std::string("env -u LC_ALL -u LC_CTYPE -u LC_MESSAGES -u LANG ") + row.assignment,
                         "locale"),
                  row.answer);
    }
}

// A host that only computes pays for no window and no registry.
TEST(AdapterStart, LoadsNothingThatIsNotUsed)
{
    const std::string plain = Output("", "add"), asking = Output("", "ask");
    EXPECT_NE(plain.find("libZEK_lib.so"), std::string::npos) << plain;
    for (const char* library :
         {"Qt", "zek_windows", "sqlite", "zek_officeserver", "libX11", "locale-archive"})
        EXPECT_EQ(plain.find(library), std::string::npos) << plain;
    EXPECT_NE(asking.find("sqlite"), std::string::npos) << asking;
    EXPECT_EQ(asking.find("Qt"), std::string::npos) << asking;
}

TEST(AdapterProfile, WritersOfTwoProcessesLoseNothing)
{
    const ScratchFolder folder;
    const std::string file = folder.Path("shared.ini"), child = "'" + ProgramFolder() + "/winapi_child'";
    const std::string command = child + " keys " + file + " a & " + child + " keys " + file + " b & wait";
    ASSERT_EQ(std::system(command.c_str()), 0);
    std::string keys(4096, 0);
    keys.resize(GetPrivateProfileStringA("keys", nullptr, "", keys.data(), 4096, file.c_str()));
    EXPECT_EQ(std::count(keys.begin(), keys.end(), '\0'), 100);
}

TEST(AdapterFiles, AFullDiskIsToldAsSuch)
{
    const HANDLE file =
        CreateFileA("/dev/full", GENERIC_WRITE, FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    DWORD done = 9;
    EXPECT_FALSE(WriteFile(file, "x", 1, &done, nullptr));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_DISK_FULL));
    EXPECT_EQ(done, 0u);
    CloseHandle(file);
}

// A write that hits the size limit after a part tells how much arrived.
TEST(AdapterFiles, AWriteCutShortTellsHowMuchArrived)
{
    const ScratchFolder folder;
    rlimit before;
    getrlimit(RLIMIT_FSIZE, &before);
    const auto ignored = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{1000, before.rlim_max};
    const HANDLE file =
        CreateFileA(folder.Path("f").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    setrlimit(RLIMIT_FSIZE, &small);
    const std::string text(1500, 'x');
    DWORD done = 0;
    EXPECT_FALSE(WriteFile(file, text.data(), 1500, &done, nullptr));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_DISK_FULL));
    EXPECT_EQ(done, 1000u);
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, ignored);
    CloseHandle(file);
}

} // namespace
