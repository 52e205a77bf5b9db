// A file that takes the place of another whole or not at all.
//
//   AtomicFile file("/out/report.xlsx");
//   file.Write(bytes.data(), bytes.size());
//   file.Seal();     // on the disk, closed; may be read back with Read()
//   file.Commit();   // now, and only now, is it report.xlsx
//
// The bytes go to a new file beside the target (beside the real file, when the path is a symbolic link).
// Whatever fails, the target stays as it was and the new file is removed. A process killed at any
// moment leaves the target old or new, never in between; the new file of a killed process is removed by
// the next save of the same target.
// A file that was there keeps its permissions, and its owner where the process may give it; hard links
// to it keep the old content, access lists and extended attributes are those of a new file.
//
// Errors: SaveError everywhere. After one, only the destructor is of use.
// Threads: one at a time; any number of objects and processes may save the same target, the last wins.
#pragma once

#include "package/FileCalls.h"
#include "package/SaveTarget.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zek::office {

class AtomicFile
{
public:
    explicit AtomicFile(const std::string& path, FileCalls& calls = SystemFileCalls());
    // Removes the new file unless it was committed.
    ~AtomicFile();
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    // Writes at the position and moves it. Small pieces are gathered, so a failure of the device may
    // show at a later call, at the latest in Seal().
    void Write(const void* data, std::size_t size);
    // The next Write() goes to `position`, at most Size().
    void Seek(std::uint64_t position);
    std::uint64_t Position() const { return m_start + m_buffer.size(); }
    // The number of bytes so far.
    std::uint64_t Size() const;

    // Brings everything to the disk and closes the file. No Write() may follow.
    void Seal();
    // Reads up to `size` bytes of the sealed file; answers how many, 0 at its end.
    std::size_t Read(std::uint64_t offset, void* data, std::size_t size);
    // Puts the sealed file in the target's place and brings the folder to the disk. If that last step
    // fails, the old file is put back (on file systems that can swap two names, which all common
    // local ones can).
    void Commit();

private:
    void Create();
    bool TryCreate();
    void TakeModeOfOldFile();
    void FlushBuffer();
    bool Place();
    void TakeBack(bool swapped);
    int FlushFolder();
    [[noreturn]] void Fail(int code, const char* action) const;

    FileCalls& m_calls;
    SaveTarget m_target;
    std::string m_newPath; // "" when there is no new file to remove
    FileHandle m_file;     // written through
    FileHandle m_lock;     // the same file: holds its lock and is read through
    FileHandle m_folder;   // -1 where the folder may not be read
    std::vector<char> m_buffer;
    std::uint64_t m_start = 0; // where the buffer belongs
    std::uint64_t m_size = 0;  // of the file without the buffer
};

} // namespace zek::office
