#include "Generation.h"
#include "Process.h"
#include "Scratch.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace {

TEST(Generation, MovesWithEveryWriteAndIsUnsettledDuringOne)
{
    const ScratchFolder folder;
    Generation writer, reader;
    ASSERT_TRUE(writer.Open(folder.Path("gen"), false));
    ASSERT_TRUE(reader.Open(folder.Path("gen"), false));
    const std::uint64_t before = reader.Current();
    EXPECT_NE(before, Generation::kUnsettled);
    EXPECT_EQ(reader.Current(), before) << "reading moves nothing";
    ASSERT_TRUE(writer.BeginWrite());
    EXPECT_EQ(reader.Current(), Generation::kUnsettled);
    EXPECT_EQ(writer.Current(), Generation::kUnsettled);
    writer.EndWrite();
    EXPECT_NE(reader.Current(), Generation::kUnsettled);
    EXPECT_NE(reader.Current(), before);
}

TEST(Generation, IsSettledAgainAfterAWriterDied)
{
    const ScratchFolder folder;
    Generation reader;
    ASSERT_TRUE(reader.Open(folder.Path("gen"), false));
    const std::uint64_t before = reader.Current();
    // The child leaves without its destructor's help.
    ASSERT_EQ(RunInChild("",
                         [&] {
                             auto* writer = new Generation;
                             _exit(writer->Open(folder.Path("gen"), false) && writer->BeginWrite() ? 7 : 1);
                             return 0;
                         }),
              7);
    EXPECT_NE(reader.Current(), Generation::kUnsettled);
    EXPECT_NE(reader.Current(), before) << "what the writer committed before it died must be read anew";
}

TEST(Generation, AReaderWithoutWriteAccessNeverTrustsAnUnsettledCounter)
{
    const ScratchFolder folder;
    Generation writer, reader;
    EXPECT_FALSE(reader.Open(folder.Path("gen"), true)) << "nothing is made for reading";
    EXPECT_EQ(reader.Current(), Generation::kUnsettled);
    EXPECT_FALSE(reader.BeginWrite());
    ASSERT_TRUE(writer.Open(folder.Path("gen"), false));
    ASSERT_TRUE(reader.Open(folder.Path("gen"), true));
    EXPECT_EQ(reader.Current(), writer.Current());
    ASSERT_TRUE(writer.BeginWrite());
    EXPECT_EQ(reader.Current(), Generation::kUnsettled);
    writer.EndWrite();
    EXPECT_EQ(reader.Current(), writer.Current());
}

TEST(Generation, TheFileIsItsOwnersAlone)
{
    const ScratchFolder folder;
    Generation generation;
    const mode_t before = umask(0);
    EXPECT_TRUE(generation.Open(folder.Path("gen"), false));
    umask(before);
    struct stat status = {};
    ASSERT_EQ(stat(folder.Path("gen").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600u);
    ASSERT_EQ(symlink(folder.Path("gen").c_str(), folder.Path("link").c_str()), 0);
    EXPECT_FALSE(generation.Open(folder.Path("link"), false));
    EXPECT_FALSE(generation.Open(folder.Path(), false)) << "a folder is no file";
}

// Every process raises the counter under the lock: none of the raises is lost.
TEST(Generation, ManyWritersAtOnce)
{
    constexpr int kProcesses = 4, kWrites = 500;
    const ScratchFolder folder;
    Generation reader;
    ASSERT_TRUE(reader.Open(folder.Path("gen"), false));
    const std::uint64_t before = reader.Current();
    const auto write = [&] {
        Generation writer;
        bool done = writer.Open(folder.Path("gen"), false);
        for (int i = 0; done && i < kWrites; ++i) {
            done = writer.BeginWrite();
            writer.EndWrite();
        }
        return done ? 0 : 1;
    };
    pid_t children[kProcesses];
    for (pid_t& child : children)
        child = StartChild("", write);
    for (const pid_t child : children)
        EXPECT_EQ(Await(child), 0);
    EXPECT_EQ(reader.Current(), before + 2 * kProcesses * kWrites);
}

} // namespace
