// System calls of which one, or all from one on, fail.
#pragma once

#include "package/FileCalls.h"

#include <algorithm>
#include <cerrno>
#include <set>
#include <string>

// Counts the calls; number `at` (from 1) fails with `code`, with `sticky` every later one too.
// Opened descriptors are counted as well, so that a test sees a leak.
class FailingCalls : public zek::office::FileCalls
{
public:
    int at = 0;
    int code = ENOSPC;
    bool sticky = false;
    bool exchangeWorks = true;
    std::size_t longestWrite = ~std::size_t{0};

    int made = 0;           // calls so far
    std::string failedName; // the last one that was made to fail
    std::set<int> open;     // descriptors not closed yet
    std::string trace;      // names of calls that matter for durability, in order

    int Open(const std::string& path, int flags, mode_t mode) override
    {
        return Fails("open") ? -1 : Track(FileCalls::Open(path, flags, mode));
    }
    int Duplicate(int file) override { return Fails("dup") ? -1 : Track(FileCalls::Duplicate(file)); }
    ssize_t WriteAt(int file, const void* data, std::size_t size, off_t offset) override
    {
        return Fails("write") ? -1 : FileCalls::WriteAt(file, data, std::min(size, longestWrite), offset);
    }
    ssize_t ReadAt(int file, void* data, std::size_t size, off_t offset) override
    {
        return Fails("read") ? -1 : FileCalls::ReadAt(file, data, size, offset);
    }
    int Flush(int file) override { return Fails("fsync") ? -1 : Noted("fsync ", FileCalls::Flush(file)); }
    int SetMode(int file, mode_t mode) override
    {
        return Fails("chmod") ? -1 : FileCalls::SetMode(file, mode);
    }
    int Close(int file) override
    {
        open.erase(file);
        const int result = FileCalls::Close(file); // the descriptor is gone even if the call fails
        return Fails("close") ? -1 : result;
    }
    int Rename(const std::string& from, const std::string& to) override
    {
        return Fails("rename") ? -1 : Noted("rename ", FileCalls::Rename(from, to));
    }
    int Exchange(const std::string& one, const std::string& other) override
    {
        if (exchangeWorks)
            return Fails("exchange") ? -1 : Noted("exchange ", FileCalls::Exchange(one, other));
        errno = EINVAL;
        return -1;
    }

private:
    bool Fails(const char* name)
    {
        ++made;
        if (at == 0 || (sticky ? made < at : made != at))
            return false;
        failedName = name;
        errno = code;
        return true;
    }
    int Track(int file)
    {
        if (file >= 0)
            open.insert(file);
        return file;
    }
    int Noted(const char* name, int result)
    {
        trace += name;
        return result;
    }
};
