#include "ProfileFile.h"

#include "CodePage.h"
#include "Error.h"
#include "ModuleSearch.h"
#include "Path.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <mutex>

namespace {

std::string Trimmed(const std::string& text)
{
    const auto first = text.find_first_not_of(" \t\r");
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

std::optional<std::string> HeadingOf(const std::string& line)
{
    const std::string text = Trimmed(line);
    const auto end = text.find(']');
    if (text.empty() || text.front() != '[' || end == std::string::npos)
        return std::nullopt;
    return Trimmed(text.substr(1, end - 1));
}

std::optional<std::string> KeyOf(const std::string& line)
{
    const std::string text = Trimmed(line);
    const auto equals = text.find('=');
    if (text.empty() || text.front() == ';' || text.front() == '[' || equals == std::string::npos)
        return std::nullopt;
    return Trimmed(text.substr(0, equals));
}

// A value of one line: what would begin another one ends it.
std::string OneLine(const std::string& text)
{
    return text.substr(0, text.find_first_of("\r\n"));
}

std::string ReadAll(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

std::string ProfilePath(const char* name)
{
    const std::string text = name;
    return NativePath(LastPart(text) == text && text.find(':') == std::string::npos
                          ? ("C:\\windows\\" + text).c_str()
                          : name);
}

// Holds a folder's lock for one change of a file in it.
class FolderLock
{
public:
    explicit FolderLock(const std::string& file)
        : m_fd(open(file.substr(0, file.rfind('/') + 1).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    {
        if (m_fd >= 0 && Retry([this] { return flock(m_fd, LOCK_EX); }) != 0)
            FailErrno();
    }
    ~FolderLock()
    {
        if (m_fd >= 0)
            close(m_fd);
    }
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    bool IsHeld() const { return m_fd >= 0; }
    bool Flush() const { return fsync(m_fd) == 0 || errno == EINVAL; }

private:
    int m_fd;
};

bool WriteNew(const std::string& path, const std::string& text, mode_t mode)
{
    const int fd = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode);
    if (fd < 0)
        return false;
    size_t done = 0;
    ssize_t part = 0;
    while (done < text.size() && part >= 0) {
        part = Retry([&] { return write(fd, text.data() + done, text.size() - done); });
        done += part > 0 ? static_cast<size_t>(part) : 0;
    }
    const bool written = part >= 0 && fsync(fd) == 0;
    return (close(fd) == 0) && written;
}

// Settings are their owner's alone unless the file says otherwise already.
bool Replace(const std::string& path, const std::string& text)
{
    struct stat status;
    const mode_t mode = stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0600;
    const std::string fresh = path + ".new" + std::to_string(getpid());
    unlink(fresh.c_str());
    if (WriteNew(fresh, text, mode) && rename(fresh.c_str(), path.c_str()) == 0)
        return true;
    FailErrno(path);
    unlink(fresh.c_str());
    return false;
}

} // namespace

ProfileFile::ProfileFile(const std::string& text)
{
    for (size_t start = 0; start < text.size();) {
        const size_t end = std::min(text.find('\n', start), text.size());
        m_lines.push_back(text.substr(start, end - start));
        if (m_lines.back().ends_with('\r'))
            m_lines.back().pop_back();
        start = end + 1;
    }
}

size_t ProfileFile::FindHeading(const std::string& section) const
{
    size_t line = 0;
    for (; line < m_lines.size(); ++line)
        if (const auto name = HeadingOf(m_lines[line]); name && SameName(*name, Trimmed(section)))
            break;
    return line;
}

size_t ProfileFile::EndOf(size_t heading) const
{
    size_t line = std::min(heading + 1, m_lines.size());
    while (line < m_lines.size() && !HeadingOf(m_lines[line]))
        ++line;
    return line;
}

size_t ProfileFile::FindKey(size_t heading, const std::string& key) const
{
    const size_t end = EndOf(heading);
    for (size_t line = heading + 1; line < end; ++line)
        if (const auto name = KeyOf(m_lines[line]); name && SameName(*name, Trimmed(key)))
            return line;
    return end;
}

std::vector<std::string> ProfileFile::Sections() const
{
    std::vector<std::string> names;
    for (const auto& line : m_lines)
        if (const auto name = HeadingOf(line))
            names.push_back(*name);
    return names;
}

std::vector<std::string> ProfileFile::Keys(const std::string& section) const
{
    std::vector<std::string> names;
    const size_t heading = FindHeading(section), end = EndOf(heading);
    for (size_t line = heading + 1; line < end; ++line)
        if (const auto key = KeyOf(m_lines[line]))
            names.push_back(*key);
    return names;
}

std::optional<std::string> ProfileFile::Value(const std::string& section, const std::string& key) const
{
    const size_t heading = FindHeading(section), line = FindKey(heading, key);
    if (line == EndOf(heading))
        return std::nullopt;
    return Trimmed(m_lines[line].substr(m_lines[line].find('=') + 1));
}

void ProfileFile::SetValue(const std::string& section, const std::string& key, const std::string& value)
{
    const size_t heading = FindHeading(section);
    if (heading == m_lines.size())
        m_lines.push_back("[" + Trimmed(OneLine(section)) + "]");
    const std::string text = Trimmed(OneLine(key)) + "=" + OneLine(value);
    size_t line = FindKey(heading, key);
    if (line < EndOf(heading)) {
        m_lines[line] = text;
        return;
    }
    while (line > heading + 1 && Trimmed(m_lines[line - 1]).empty())
        --line;
    m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(line), text);
}

void ProfileFile::RemoveKey(const std::string& section, const std::string& key)
{
    const size_t heading = FindHeading(section), line = FindKey(heading, key);
    if (line < EndOf(heading))
        m_lines.erase(m_lines.begin() + static_cast<std::ptrdiff_t>(line));
}

void ProfileFile::RemoveSection(const std::string& section)
{
    const size_t heading = FindHeading(section);
    if (heading < m_lines.size())
        m_lines.erase(m_lines.begin() + static_cast<std::ptrdiff_t>(heading),
                      m_lines.begin() + static_cast<std::ptrdiff_t>(EndOf(heading)));
}

std::string ProfileFile::Text() const
{
    std::string text;
    for (const auto& line : m_lines)
        text += line + "\r\n";
    return text;
}

ProfileFile ReadProfile(const char* name)
{
    const std::string path = ProfilePath(name);
    return ProfileFile(path.empty() ? "" : ReadAll(path));
}

bool ChangeProfile(const char* name, const std::function<void(ProfileFile&)>& change)
{
    static std::mutex mutex;
    const std::lock_guard inProcess(mutex);
    const std::string path = ProfilePath(name);
    if (path.empty())
        return false;
    const FolderLock lock(path);
    if (!lock.IsHeld())
        return Fail(ERROR_PATH_NOT_FOUND);
    const std::string before = ReadAll(path);
    ProfileFile profile(before);
    change(profile);
    const std::string after = profile.Text();
    return after == before || (Replace(path, after) && (lock.Flush() || FailErrno()));
}
