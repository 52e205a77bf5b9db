// A counter shared by all processes that use one registry: while it stands still, nothing was written.
//
// Protocol. The counter lies in a small file that every process maps. A writer takes the file's lock, makes
// the counter odd, commits its change to the database, makes the counter even again (now two higher), and
// gives the lock back. A reader that found the counter even, read the database and finds it the same
// afterwards may keep what it read until the counter moves: a committed change raises the counter before its
// writer returns. Finding it odd, a reader asks the database and keeps nothing.
// A writer that dies leaves the counter odd, but not the lock, which the system takes back; whoever gets the
// lock then makes the counter even. So a death costs speed at most, never a stale answer.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>

class Generation
{
public:
    // Never the counter's value: what Current() answers when nothing may be kept.
    static constexpr std::uint64_t kUnsettled = ~std::uint64_t{0};
    using Shared = std::atomic<std::uint64_t>;

    // The counter in an existing file, for readers that ask nothing but it; null without one. It stays mapped
    // to the end of the process.
    static const Shared* Map(const std::string& path);
    // A counter's value, or kUnsettled for one that is found during a write.
    static std::uint64_t Settled(std::uint64_t count) { return count % 2 != 0 ? kUnsettled : count; }

    Generation() = default;
    ~Generation() { Close(); }
    Generation(const Generation&) = delete;
    Generation& operator=(const Generation&) = delete;

    // Maps the file, made on first use with access for its owner alone. Without it (false) a reader may keep
    // nothing, and writers must not write.
    bool Open(const std::string& path, bool readOnly);
    void Close();

    // The counter when no write is under way, else kUnsettled.
    std::uint64_t Current();

    // Waits for another lock, under which one process at a time makes the database ready. A write under way
    // does not hold it. False when it cannot be had.
    bool BeginOpening();
    void EndOpening();

    // Waits for the lock and marks a write as begun; false when the lock cannot be had.
    bool BeginWrite();
    void EndWrite();

private:
    void Settle();

    Shared* m_counter = nullptr;
    int m_file = -1;
    bool m_readOnly = false;
    bool m_writing = false; // the lock is this object's own
};
