// The store's files and limits, and what a process remembers of it.
#include "Generation.h"
#include "Process.h"
#include "Scratch.h"
#include "TestKey.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <vector>

#include <linux/filter.h>
#include <linux/seccomp.h>

namespace {

unsigned ModeOf(const std::string& path)
{
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 ? status.st_mode & 0777u : 0;
}

TEST(Store, FilesAreTheirOwnersAlone)
{
    const ScratchFolder folder;
    const mode_t before = umask(0);
    EXPECT_EQ(RunZekReg(folder.Path("home"), "set 'HKCU\\Software\\T' a b").code, 0);
    umask(before);
    EXPECT_EQ(ModeOf(folder.Path("home")), 0700u);
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path("home")))
        EXPECT_EQ(ModeOf(entry.path()), 0600u) << entry.path();
    std::filesystem::permissions(folder.Path("home/registry.db"), static_cast<std::filesystem::perms>(0644));
    EXPECT_EQ(RunZekReg(folder.Path("home"), "get 'HKCU\\Software\\T' a").output, "b\n");
    EXPECT_EQ(ModeOf(folder.Path("home/registry.db")), 0600u) << "taken back";
}

TEST(Store, PlantedLinksAreRefused)
{
    for (const char* name : {"registry.db", "registry.gen"}) {
        SCOPED_TRACE(name);
        const ScratchFolder folder;
        std::filesystem::create_directory(folder.Path("home"));
        WriteWholeFile(folder.Path("victim"), "precious");
        std::filesystem::create_symlink(folder.Path("victim"), folder.Path("home") + "/" + name);
        EXPECT_EQ(RunZekReg(folder.Path("home"), "set 'HKCU\\Software\\T' a b").code, 3);
        EXPECT_EQ(ReadWholeFile(folder.Path("victim")), "precious");
    }
}

TEST(Store, DamagedFilesAreReportedAndLeftAlone)
{
    const ScratchFolder folder;
    ASSERT_EQ(RunZekReg(folder.Path("good"), "set 'HKCU\\Software\\T' a b").code, 0);
    const std::string junk(20000, 'j');
    std::filesystem::create_directory(folder.Path("home"));
    WriteWholeFile(folder.Path("home/registry.db"), junk);
    for (const char* arguments : {"get 'HKCU\\Software\\T' a", "set 'HKCU\\Software\\T' a c", "list HKCU"}) {
        SCOPED_TRACE(arguments);
        EXPECT_EQ(RunZekReg(folder.Path("home"), arguments).code, 3);
    }
    EXPECT_EQ(ReadWholeFile(folder.Path("home/registry.db")), junk);
}

// Bytes flipped all over a store: any answer may be a failure, none a crash or an invented value.
TEST(Store, FlippedBytesNeverInventAnAnswer)
{
    const ScratchFolder folder;
    std::filesystem::create_directory(folder.Path("whole"));
    ASSERT_EQ(RunInChild(folder.Path("whole"),
                         [] {
                             const TestKey test("flip");
                             const bool written =
                                 SetText(test.Key(), "value", "the true value") == ERROR_SUCCESS;
                             _exit(written && RegFlushKey(test.Key()) == ERROR_SUCCESS ? 0 : 1);
                             return 0;
                         }),
              0);
    const std::string whole = ReadWholeFile(folder.Path("whole/registry.db"));
    ASSERT_GT(whole.size(), 4096u);
    for (std::size_t place = 17; place < whole.size(); place += whole.size() / 61) {
        SCOPED_TRACE(place);
        const std::string home = folder.Path("flip" + std::to_string(place));
        std::filesystem::create_directory(home);
        std::string flipped = whole;
        flipped[place] = static_cast<char>(~flipped[place]);
        WriteWholeFile(home + "/registry.db", flipped);
        const ProgramResult got = RunZekReg(home, "get 'HKCU\\Software\\ZekTest\\flip' value");
        EXPECT_LE(got.code, 3);
        if (got.code == 0) {
            EXPECT_EQ(got.output.size(), std::string("the true value\n").size());
        }
    }
}

TEST(Store, ReadableButNotWritable)
{
    const ScratchFolder folder;
    ASSERT_EQ(RunZekReg(folder.Path("home"), "set 'HKCU\\Software\\T' a b").code, 0);
    const auto readable = static_cast<std::filesystem::perms>(0444);
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path("home")))
        if (entry.is_regular_file())
            std::filesystem::permissions(entry.path(), readable);
    std::filesystem::permissions(folder.Path("home"), static_cast<std::filesystem::perms>(0555));
    std::filesystem::permissions(folder.Path(), static_cast<std::filesystem::perms>(0755));
    EXPECT_EQ(RunInChild(folder.Path("home"),
                         [] {
                             constexpr uid_t kNobody = 65534;
                             if (geteuid() == 0 && setuid(kNobody) != 0)
                                 return 1;
                             HKEY key = nullptr;
                             if (RegOpenKeyExA(HKEY_CURRENT_USER, "Software\\T", 0, KEY_READ, &key) !=
                                 ERROR_SUCCESS)
                                 return 2;
                             return GetText(key, "a") != "b"                        ? 3
                                    : SetText(key, "a", "c") == ERROR_ACCESS_DENIED ? 0
                                                                                    : 4;
                         }),
              0);
    std::filesystem::permissions(folder.Path("home"), static_cast<std::filesystem::perms>(0700));
}

TEST(Store, NamesAreAnyBytesAndFoldAsLetters)
{
    const TestKey test("bytes");
    for (int byte = 1; byte < 256; ++byte) {
        const std::string name = {'x', static_cast<char>(byte), '.'};
        if (byte >= 'a' && byte <= 'z')
            continue; // the same names as with capitals
        ASSERT_EQ(SetText(test.Key(), name.c_str(), std::to_string(byte)), ERROR_SUCCESS) << byte;
    }
    for (int byte = 1; byte < 256; ++byte) {
        const std::string name = {'X', static_cast<char>(byte), '.'};
        const int expected = byte >= 'a' && byte <= 'z' ? byte - 32 : byte;
        EXPECT_EQ(GetText(test.Key(), name.c_str()), std::to_string(expected)) << byte;
    }
    ASSERT_EQ(SetText(test.Key(),
                      "Stra\xC3\x9F"
                      "e \xC3\xBC\xD1\x8F",
                      "folded"),
              ERROR_SUCCESS);
    EXPECT_EQ(GetText(test.Key(), "STRA\xC3\x9F"
                                  "E \xC3\x9C\xD0\xAF"),
              "folded");
}

TEST(Store, LimitsOfNamesAndDepth)
{
    const TestKey test("limits");
    HKEY key = nullptr;
    const auto create = [&](const std::string& path) {
        const LONG result =
            RegCreateKeyExA(test.Key(), path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr);
        if (result == ERROR_SUCCESS)
            RegCloseKey(key);
        return result;
    };
    EXPECT_EQ(create(std::string(256, 'k')), ERROR_INVALID_PARAMETER);
    std::string umlauts;
    for (int i = 0; i < 255; ++i)
        umlauts += "\xC3\xA4";
    EXPECT_EQ(create(umlauts), ERROR_SUCCESS) << "characters count, not bytes";
    std::string path = "d";
    for (int level = 2; level <= 509; ++level) // Software\ZekTest\limits are three more
        path += "\\d";
    EXPECT_EQ(create(path), ERROR_SUCCESS);
    EXPECT_EQ(create(path + "\\d"), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(SetText(test.Key(), std::string(16383, 'v').c_str(), "x"), ERROR_SUCCESS);
    EXPECT_EQ(SetText(test.Key(), std::string(16384, 'v').c_str(), "x"), ERROR_INVALID_PARAMETER);
}

TEST(Store, AFreshOneKnowsTheBuiltInServer)
{
    const ScratchFolder folder;
    EXPECT_EQ(RunZekReg(folder.Path("home"), "get 'HKCR\\excel.application\\clsid'").output,
              "{00024500-0000-0000-C000-000000000046}\n");
    EXPECT_EQ(RunZekReg(folder.Path("home"),
                        "get 'HKCR\\CLSID\\{00024500-0000-0000-C000-000000000046}\\InprocServer32'")
                  .output,
              "zek_officeserver.DLL\n");
    EXPECT_EQ(RunZekReg(folder.Path("home"), "delete -r 'HKCR\\Excel.Application'").code, 0);
    EXPECT_EQ(RunZekReg(folder.Path("home"), "get 'HKCR\\Excel.Application\\CLSID'").code, 1)
        << "entered once only";
}

// From here on the process ends with the first call that looks into a file.
bool ForbidFiles()
{
    std::vector<sock_filter> program = {BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))};
    for (const auto call : {SYS_read, SYS_pread64, SYS_openat, SYS_open, SYS_lseek, SYS_fstat, SYS_stat,
                            SYS_newfstatat, SYS_access, SYS_fcntl, SYS_flock}) {
        program.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<std::uint32_t>(call), 0, 1));
        program.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_KILL_PROCESS));
    }
    program.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
    const sock_fprog filter = {static_cast<unsigned short>(program.size()), program.data()};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) == 0;
}

TEST(Store, ReadingAgainAsksNobody)
{
    const TestKey test("again");
    ASSERT_EQ(SetText(test.Key(), "v", "kept"), ERROR_SUCCESS);
    EXPECT_EQ(RunInChild("",
                         [&] {
                             char text[16];
                             const auto readOnce = [&] {
                                 DWORD size = sizeof text;
                                 return RegQueryValueExA(test.Key(), "v", nullptr, nullptr,
                                                         reinterpret_cast<BYTE*>(text), &size);
                             };
                             readOnce();
                             if (!ForbidFiles())
                                 return 1;
                             LONG result = ERROR_SUCCESS;
                             for (int i = 0; i < 1000 && result == ERROR_SUCCESS; ++i)
                                 result = readOnce();
                             return result == ERROR_SUCCESS ? 0 : 2;
                         }),
              0);
}

TEST(Store, AForkedChildHasAConnectionOfItsOwn)
{
    const TestKey test("fork");
    ASSERT_EQ(SetText(test.Key(), "parent", "p"), ERROR_SUCCESS);
    EXPECT_EQ(RunInChild("",
                         [&] {
                             const bool reads = GetText(test.Key(), "parent") == "p";
                             return reads && SetText(test.Key(), "child", "c") == ERROR_SUCCESS ? 0 : 1;
                         }),
              0);
    EXPECT_EQ(GetText(test.Key(), "child"), "c");
    EXPECT_EQ(SetText(test.Key(), "parent", "still"), ERROR_SUCCESS);
}

// What the parent remembered is of no use to a child: here it is old, and a write under way hides that.
TEST(Store, AForkedChildRemembersNothing)
{
    const TestKey test("memory");
    ASSERT_EQ(SetText(test.Key(), "v", "old"), ERROR_SUCCESS);
    ASSERT_EQ(GetText(test.Key(), "v"), "old");
    ASSERT_EQ(RunInChild("", [&] { return SetText(test.Key(), "v", "new") == ERROR_SUCCESS ? 0 : 1; }), 0);
    Generation other;
    ASSERT_TRUE(other.Open(std::string(std::getenv("ZEK_HOME")) + "/registry.gen", false));
    ASSERT_TRUE(other.BeginWrite());
    EXPECT_EQ(RunInChild("", [&] { return GetText(test.Key(), "v") == "new" ? 0 : 1; }), 0);
    other.EndWrite();
}

} // namespace
