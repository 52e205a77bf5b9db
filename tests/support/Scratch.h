// A folder of a test's own.
//
//   ScratchFolder folder;
//   CFile file(folder.Path("a.txt").c_str(), CFile::modeCreate | CFile::modeWrite);
#pragma once

#include <string>

// A fresh empty folder for as long as the object lives; removed with all it holds.
class ScratchFolder
{
public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    // The folder's path without a separator at the end, as this platform's programs write it.
    const std::string& Path() const { return m_path; }

    // The path of `name` inside the folder.
    std::string Path(const std::string& name) const;

private:
    std::string m_path;
};

// The whole content of a file, byte by byte; "" when it cannot be opened.
std::string ReadWholeFile(const std::string& path);

// Writes `content`, byte by byte, as the whole of a file.
void WriteWholeFile(const std::string& path, const std::string& content);
