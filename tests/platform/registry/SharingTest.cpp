// The store that processes share: none of their writes is lost, who sees what when, and what survives a
// death.
#include "Process.h"
#include "Scratch.h"
#include "TestKey.h"

#include <gtest/gtest.h>

#include <csignal>
#include <string>
#include <vector>

namespace {

TEST(Sharing, ManyMayBeFirstAtOnce)
{
    const ScratchFolder folder;
    const std::string home = folder.Path("home");
    std::vector<pid_t> children;
    for (int i = 0; i < 6; ++i)
        children.push_back(StartChild(home, [i] {
            const HKEY root = HKEY_CURRENT_USER;
            HKEY key = nullptr;
            if (RegCreateKeyExA(root, "Software\\First", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                                nullptr) != ERROR_SUCCESS)
                return 1;
            return SetText(key, std::to_string(i).c_str(), "x") == ERROR_SUCCESS ? 0 : 2;
        }));
    for (const pid_t child : children)
        EXPECT_EQ(Await(child), 0);
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(RunZekReg(home, "get 'HKCU\\Software\\First' " + std::to_string(i)).output, "x\n");
}

TEST(Sharing, ProcessesWriteSideBySide)
{
    constexpr int kProcesses = 4, kWrites = 200;
    const TestKey test("processes");
    const auto work = [&](int number) {
        const std::string name = "own" + std::to_string(number);
        for (int i = 0; i < kWrites; ++i) {
            if (SetText(test.Key(), name.c_str(), std::to_string(i)) != ERROR_SUCCESS)
                return 1;
            if (SetText(test.Key(), "shared", std::string(100, static_cast<char>('a' + number))) !=
                ERROR_SUCCESS)
                return 2;
            if (GetText(test.Key(), name.c_str()) != std::to_string(i))
                return 3;
            const std::string shared = GetText(test.Key(), "shared");
            if (shared.size() != 100 || shared.find_first_not_of(shared[0]) != std::string::npos)
                return 4;
        }
        return 0;
    };
    std::vector<pid_t> children;
    for (int i = 0; i < kProcesses; ++i)
        children.push_back(StartChild("", [&work, i] { return work(i); }));
    for (const pid_t child : children)
        EXPECT_EQ(Await(child), 0);
    for (int i = 0; i < kProcesses; ++i)
        EXPECT_EQ(GetText(test.Key(), ("own" + std::to_string(i)).c_str()), std::to_string(kWrites - 1));
}

TEST(Sharing, TwoProcessesOfTenThousandValuesEachLoseNone)
{
    constexpr int kWrites = 10'000;
    const TestKey test("many");
    const auto work = [&](const std::string& own) {
        for (int i = 0; i < kWrites; ++i)
            if (SetText(test.Key(), (own + std::to_string(i)).c_str(), std::to_string(i)) != ERROR_SUCCESS)
                return 1;
        return 0;
    };
    const pid_t first = StartChild("", [&] { return work("a"); });
    const pid_t second = StartChild("", [&] { return work("b"); });
    EXPECT_EQ(Await(first), 0);
    EXPECT_EQ(Await(second), 0);
    for (const char* own : {"a", "b"})
        for (int i = 0; i < kWrites; ++i)
            ASSERT_EQ(GetText(test.Key(), (own + std::to_string(i)).c_str()), std::to_string(i)) << own;
}

// As soon as a write has returned in one process, every other one reads it, whatever it kept in memory.
TEST(Sharing, AFinishedWriteIsSeenByAllAtOnce)
{
    const TestKey test("coherence");
    const Pipe asked, written;
    ASSERT_EQ(SetText(test.Key(), "v", "0"), ERROR_SUCCESS);
    const pid_t writer = StartChild("", [&] {
        for (int number; (number = asked.Receive()) > 0;)
            if (SetText(test.Key(), "v", std::to_string(number)) != ERROR_SUCCESS || !written.Send(number))
                return 1;
        return 0;
    });
    for (int number = 1; number <= 1000; ++number) {
        ASSERT_EQ(GetText(test.Key(), "v"), std::to_string(number - 1));
        ASSERT_TRUE(asked.Send(number));
        ASSERT_EQ(written.Receive(), number);
        ASSERT_EQ(GetText(test.Key(), "v"), std::to_string(number));
    }
    asked.Send(0);
    EXPECT_EQ(Await(writer), 0);
}

TEST(Sharing, WhatWasWrittenSurvivesTheWritersDeath)
{
    const TestKey test("death");
    for (int round = 0; round < 25; ++round) {
        const Pipe acknowledged;
        const pid_t writer = StartChild("", [&] {
            for (int number = 1;; ++number)
                if (SetText(test.Key(), "v", std::to_string(number)) != ERROR_SUCCESS ||
                    !acknowledged.Send(number))
                    return 1;
        });
        int last = 0;
        for (int i = 0; i <= round * 7; ++i)
            last = acknowledged.Receive();
        kill(writer, SIGKILL);
        EXPECT_EQ(Await(writer), 1000 + SIGKILL);
        const int found = std::stoi(GetText(test.Key(), "v"));
        EXPECT_GE(found, last) << "round " << round;
        EXPECT_EQ(SetText(test.Key(), "v", std::to_string(found)), ERROR_SUCCESS)
            << "the next writer is not held up";
    }
}

// Two processes write while others, one after another, are killed in the midst of writing beside them.
TEST(Sharing, DeathsCostTheLivingNothing)
{
    constexpr int kWrites = 2000;
    const TestKey test("deaths");
    const auto write = [&](const std::string& own, int number) {
        return SetText(test.Key(), (own + std::to_string(number)).c_str(), own) == ERROR_SUCCESS;
    };
    const auto live = [&](const std::string& own) {
        for (int number = 1; number <= kWrites; ++number)
            if (!write(own, number))
                return 1;
        return 0;
    };
    const pid_t living[] = {StartChild("", [&] { return live("a"); }),
                            StartChild("", [&] { return live("b"); })};
    int finished[12] = {};
    for (int& last : finished) {
        const std::string own = "victim" + std::to_string(&last - finished) + " ";
        const Pipe acknowledged;
        const pid_t victim = StartChild("", [&] {
            int number = 1;
            while (write(own, number) && acknowledged.Send(number))
                ++number;
            return 1;
        });
        while (last < 5 * (&last - finished) + 1)
            last = acknowledged.Receive();
        kill(victim, SIGKILL);
        EXPECT_EQ(Await(victim), 1000 + SIGKILL);
    }
    for (const pid_t child : living)
        EXPECT_EQ(Await(child), 0);
    const auto expectAll = [&](const std::string& own, int count) {
        for (int number = 1; number <= count; ++number)
            ASSERT_EQ(GetText(test.Key(), (own + std::to_string(number)).c_str()), own) << number;
    };
    expectAll("a", kWrites);
    expectAll("b", kWrites);
    for (const int& last : finished)
        expectAll("victim" + std::to_string(&last - finished) + " ", last);
}

} // namespace
