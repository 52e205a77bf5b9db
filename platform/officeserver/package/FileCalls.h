// The system calls of a save, one virtual function each, so that a test can make any of them fail.
//
// Errors: as the system calls do, -1 with errno set.
#pragma once

#include <cstddef>
#include <string>
#include <sys/types.h>

namespace zek::office {

class FileCalls
{
public:
    virtual ~FileCalls() = default;

    virtual int Open(const std::string& path, int flags, mode_t mode);
    virtual int Duplicate(int file);
    // Takes the file's exclusive lock, or fails at once with EWOULDBLOCK. It is held until the last
    // duplicate of the descriptor is closed, so it ends with the process at the latest.
    virtual int Lock(int file);
    virtual ssize_t WriteAt(int file, const void* data, std::size_t size, off_t offset);
    virtual ssize_t ReadAt(int file, void* data, std::size_t size, off_t offset);
    virtual int Flush(int file);
    virtual int SetMode(int file, mode_t mode);
    virtual int SetOwner(int file, uid_t owner, gid_t group);
    virtual int Close(int file);
    virtual int Rename(const std::string& from, const std::string& to);
    // Swaps two names in one step. Fails with EINVAL or ENOSYS where the file system cannot.
    virtual int Exchange(const std::string& one, const std::string& other);
    virtual int Remove(const std::string& path);
};

// The calls themselves.
FileCalls& SystemFileCalls();

// A descriptor that is closed with the object; -1 is none.
class FileHandle
{
public:
    FileHandle(FileCalls& calls, int file) : m_calls(calls), m_file(file) {}
    ~FileHandle();
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;

    int Get() const { return m_file; }
    void Reset(int file);
    // Closes it and answers the close's result.
    int Close();

private:
    FileCalls& m_calls;
    int m_file;
};

} // namespace zek::office
