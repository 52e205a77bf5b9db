// The registry entry that names the class of a program identifier, for as long as the object lives.
#pragma once

#include <windows.h>

#include <string>

class ProgramEntry
{
public:
    // `classId` is written "{...}". What stood there before comes back at the end.
    ProgramEntry(const std::string& programId, const std::string& classId);
    ~ProgramEntry();
    ProgramEntry(const ProgramEntry&) = delete;
    ProgramEntry& operator=(const ProgramEntry&) = delete;

private:
    std::string m_program;
    std::string m_before;
    bool m_existed = false;
};
