// What is open in this process: per file its handles' share modes and byte-range locks.
#pragma once

#include "Handle.h"

#include <sys/stat.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

// One file of the disk, however many handles it has.
class SharedFile;

// The object behind a file's handles.
class OpenFile : public KernelObject
{
public:
    OpenFile(int fd, DWORD access, DWORD share) : m_fd(fd), m_access(access), m_share(share) {}
    ~OpenFile() override;
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    int Fd() const { return m_fd; }
    bool CanRead() const { return m_access & (GENERIC_READ | GENERIC_ALL); }
    bool CanWrite() const { return m_access & (GENERIC_WRITE | GENERIC_ALL); }
    void DeleteOnClose(std::string path) { m_deletePath = std::move(path); }

    // Joins the file's other handles; false with ERROR_SHARING_VIOLATION if a share mode forbids it.
    bool Join(const struct stat& status);

    // Byte ranges [start, start + count).
    bool Lock(std::uint64_t start, std::uint64_t count);
    bool Unlock(std::uint64_t start, std::uint64_t count);

    // Whether the next `count` bytes are free of other handles' locks; else false with ERROR_LOCK_VIOLATION.
    bool MayTouch(std::uint64_t count) const;

private:
    friend class SharedFile;

    int m_fd;
    DWORD m_access, m_share;
    std::string m_deletePath;
    std::shared_ptr<SharedFile> m_shared;
};

// Whether a file of that status may be deleted or renamed: every handle of it shares deletion.
bool MayDelete(const struct stat& status);
