#include "Support.h"

#include <Registry.h>

#include <gtest/gtest.h>

#include <cstdlib>

void SetTestValue(const char* name, const char* value)
{
    CRegistry::WriteProfileString("HKEY_CURRENT_USER\\Software\\TOVEN\\TEST", name, value);
}

int RunHost(const std::string& arguments)
{
    std::fflush(nullptr);
    const int status = std::system((HOST_PROGRAM " " + arguments).c_str());
    return status > 255 ? status >> 8 : status;
}

std::string ReadFile(const std::string& path)
{
    CFile file;
    if (!file.Open(path.c_str(), CFile::modeRead | CFile::shareDenyNone))
        return "";
    std::string text(static_cast<std::size_t>(file.GetLength()), '\0');
    text.resize(file.Read(text.data(), static_cast<UINT>(text.size())));
    return text;
}

bool Exists(const std::string& path)
{
    return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

void Remove(const std::string& path)
{
    if (!DeleteFileA(path.c_str()))
        RemoveDirectoryA(path.c_str());
}

std::vector<std::string> Lines(const std::string& text, const std::string& end)
{
    std::vector<std::string> lines;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t stop = text.find('\n', start);
        EXPECT_NE(stop, std::string::npos) << "the last line has no end";
        if (stop == std::string::npos)
            break;
        const std::size_t length = stop + 1 - start;
        std::string line = text.substr(start, length);
        EXPECT_TRUE(line.ends_with(end)) << line;
        line.resize(length - end.size());
        EXPECT_EQ(line.find('\r'), std::string::npos) << line;
        lines.push_back(line);
        start = stop + 1;
    }
    return lines;
}

LogFolder::LogFolder(const std::string& program)
{
    char own[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, own, MAX_PATH);
    const std::string path = program.empty() ? own : program;
    m_path = path.substr(0, path.find_last_of("/\\") + 1) + "Temporary";
    CreateDirectoryA(m_path.c_str(), nullptr);
    m_path += '\\';
    for (const std::string& name : Names()) // of a run that was cut off
        Remove(m_path + name);
}

LogFolder::~LogFolder()
{
    for (const std::string& name : Names())
        Remove(m_path + name);
    Remove(m_path.substr(0, m_path.size() - 1));
}

std::string LogFolder::Path(int leaks) const
{
    return m_path + "memory leak." + std::to_string(leaks) + ".log.nas";
}

std::vector<std::string> LogFolder::Names() const
{
    std::vector<std::string> names;
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA((m_path + "*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return names;
    do
        if (found.cFileName[0] != '.')
            names.push_back(found.cFileName);
    while (FindNextFileA(search, &found));
    FindClose(search);
    return names;
}
