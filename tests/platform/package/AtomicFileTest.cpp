#include "package/AtomicFile.h"

#include "FailingCalls.h"
#include "Scratch.h"
#include "package/SaveError.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace zek::office;
namespace fs = std::filesystem;

namespace {

std::size_t EntriesOf(const std::string& folder)
{
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

mode_t ModeOf(const std::string& path)
{
    struct stat state = {};
    return ::lstat(path.c_str(), &state) == 0 ? state.st_mode & 0777 : 0;
}

void SaveText(const std::string& path, const std::string& text, FileCalls& calls = SystemFileCalls())
{
    AtomicFile file(path, calls);
    file.Write(text.data(), text.size());
    file.Seal();
    file.Commit();
}

// The errno of a save that must fail.
int CodeOf(const std::string& path, FileCalls& calls = SystemFileCalls())
{
    try {
        SaveText(path, "new", calls);
    } catch (const SaveError& error) {
        EXPECT_NE(std::string(error.what()).find(path), std::string::npos) << error.what();
        return error.Code();
    }
    return 0;
}

class AtomicFileTest : public testing::Test
{
protected:
    ScratchFolder m_folder;
    std::string m_path = m_folder.Path("book.xlsx");
};

TEST_F(AtomicFileTest, WritesAndSeeks)
{
    const std::string big(700000, 'x');
    AtomicFile file(m_path);
    file.Write("0123456789", 10);
    file.Write(big.data(), big.size());
    file.Seek(2);
    file.Write("ab", 2);
    EXPECT_EQ(file.Position(), 4u);
    EXPECT_EQ(file.Size(), big.size() + 10);
    file.Seek(file.Size());
    file.Write("end", 3);
    file.Seal();
    char back[4] = {};
    EXPECT_EQ(file.Read(1, back, 3), 3u);
    EXPECT_STREQ(back, "1ab");
    EXPECT_EQ(file.Read(file.Size(), back, 3), 0u);
    EXPECT_FALSE(fs::exists(m_path));
    file.Commit();
    EXPECT_EQ(ReadWholeFile(m_path), "01ab456789" + big + "end");
    EXPECT_EQ(EntriesOf(m_folder.Path()), 1u);
}

TEST_F(AtomicFileTest, WithoutCommitNothingRemains)
{
    {
        AtomicFile file(m_path);
        file.Write("x", 1);
        file.Seal();
    }
    EXPECT_EQ(EntriesOf(m_folder.Path()), 0u);
}

struct Scenario {
    const char* label;
    bool old;      // a file is there already
    bool sticky;   // later calls fail too
    bool exchange; // the file system can swap two names
};
constexpr Scenario kScenarios[] = {
    {"new file, once", false, false, true}, {"new file, for good", false, true, true},
    {"old file, once", true, false, true},  {"old file, for good", true, true, true},
    {"no swap, once", true, false, false},  {"no swap, for good", true, true, false},
};

// One save of which call number `at` fails; false when it has fewer calls.
bool CheckFailure(const std::string& folder, const Scenario& scenario, int at)
{
    const std::string path = folder + "/book.xlsx";
    for (const auto& entry : fs::directory_iterator(folder))
        fs::remove(entry);
    if (scenario.old)
        WriteWholeFile(path, "old");
    FailingCalls calls;
    calls.at = at;
    calls.code = EIO;
    calls.sticky = scenario.sticky;
    calls.exchangeWorks = scenario.exchange;
    calls.longestWrite = 2;
    SCOPED_TRACE(testing::Message() << scenario.label << ", call " << at);
    const bool failed = CodeOf(path, calls) != 0;
    EXPECT_TRUE(calls.open.empty()) << calls.failedName;
    // Without the swap a folder that cannot be flushed comes too late for the old file. With it, and with
    // everything failing from then on, the swap back fails too: the new file is whole, the old one beside.
    const bool late = calls.trace.ends_with("rename ") || calls.trace.ends_with("exchange ");
    const bool lost = failed && scenario.old && late && (!scenario.exchange || scenario.sticky);
    const std::size_t entries = failed && !scenario.old ? 0 : lost && scenario.exchange ? 2 : 1;
    EXPECT_EQ(EntriesOf(folder), entries) << calls.failedName;
    if (fs::exists(path)) {
        EXPECT_EQ(ReadWholeFile(path), failed && !lost ? "old" : "new") << calls.failedName;
    }
    return !calls.failedName.empty();
}

// Every system call of a save made to fail: either the save says so and the old file is there, or the new
// one is; nothing else is, and no descriptor is lost.
TEST_F(AtomicFileTest, EveryFailureLeavesOldOrNew)
{
    for (const Scenario& scenario : kScenarios) {
        int at = 1;
        while (CheckFailure(m_folder.Path(), scenario, at))
            ++at;
        EXPECT_GT(at, 10) << scenario.label;
        EXPECT_LT(at, 40) << scenario.label;
    }
}

TEST_F(AtomicFileTest, FlushesFileThenRenamesThenFlushesFolder)
{
    FailingCalls calls;
    SaveText(m_path, "one", calls);
    SaveText(m_path, "two", calls);
    EXPECT_EQ(calls.trace, "fsync rename fsync fsync exchange fsync ");
}

TEST_F(AtomicFileTest, SavesTheFileBehindALink)
{
    fs::create_directory(m_folder.Path("real"));
    const std::string real = m_folder.Path("real/book.xlsx");
    fs::create_symlink("real/book.xlsx", m_folder.Path("hop"));
    fs::create_symlink(m_folder.Path("hop"), m_path);
    for (const char* text : {"first", "second"}) { // the links lead nowhere the first time
        SaveText(m_path, text);
        EXPECT_TRUE(fs::is_symlink(m_path));
        EXPECT_EQ(ReadWholeFile(real), text);
    }
}

TEST_F(AtomicFileTest, RefusesTargetsThatAreNoWritableFiles)
{
    fs::create_directory(m_folder.Path("folder"));
    fs::create_symlink("loop", m_folder.Path("loop"));
    WriteWholeFile(m_folder.Path("read-only"), "old");
    fs::permissions(m_folder.Path("read-only"), fs::perms(0444));
    ASSERT_EQ(::mkfifo(m_folder.Path("pipe").c_str(), 0600), 0);
    const struct {
        const char* name;
        int code;
    } rows[] = {{"folder", EISDIR},      {"folder/", EISDIR},        {"loop", ELOOP},
                {"read-only", EACCES},   {"missing/a.xlsx", ENOENT}, {"pipe", EINVAL},
                {"read-only/x", ENOTDIR}};
    const std::size_t before = EntriesOf(m_folder.Path());
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(CodeOf(m_folder.Path(row.name)), row.code);
    }
    EXPECT_EQ(CodeOf(m_folder.Path(std::string(300, 'n'))), ENAMETOOLONG);
    EXPECT_EQ(EntriesOf(m_folder.Path()), before);
    EXPECT_EQ(ReadWholeFile(m_folder.Path("read-only")), "old");
}

TEST_F(AtomicFileTest, KeepsTheModeOfTheOldFile)
{
    const mode_t mask = ::umask(027);
    SaveText(m_path, "new");
    EXPECT_EQ(ModeOf(m_path), 0640u);
    fs::permissions(m_path, fs::perms(0604));
    SaveText(m_path, "newer");
    EXPECT_EQ(ModeOf(m_path), 0604u);
    ::umask(mask);
}

TEST_F(AtomicFileTest, SavesUnderTheLongestName)
{
    const std::string path = m_folder.Path(std::string(255, 'n'));
    SaveText(path, "new");
    EXPECT_EQ(ReadWholeFile(path), "new");
}

TEST_F(AtomicFileTest, RemovesWhatAKilledSaveLeft)
{
    const pid_t child = ::fork();
    if (child == 0) {
        AtomicFile file(m_path);
        file.Write("half", 4);
        ::_exit(0); // without any destructor, as a killed process ends
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(EntriesOf(m_folder.Path()), 1u);
    AtomicFile other(m_folder.Path("other.xlsx")); // another document's new file is not touched
    AtomicFile running(m_path);                    // nor that of a save that still runs
    EXPECT_EQ(EntriesOf(m_folder.Path()), 2u);
    SaveText(m_path, "new");
    EXPECT_EQ(EntriesOf(m_folder.Path()), 3u);
}

} // namespace
