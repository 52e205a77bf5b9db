#include "Home.h"

#include "Environment.h"
#include "Error.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <mutex>
#include <vector>

namespace {

std::string UserFolder()
{
    if (const auto home = EnvironmentText("HOME"); home && home->starts_with('/'))
        return *home;
    std::vector<char> buffer(16384);
    passwd entry{};
    passwd* found = nullptr;
    getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found);
    return found && found->pw_dir ? found->pw_dir : "";
}

std::string WithoutSlashAtEnd(std::string path)
{
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return path;
}

// A relative folder means the one it named when it was first seen, whatever the current folder is later.
std::string Absolute(const std::string& path)
{
    static std::mutex mutex;
    static std::string& seen = *new std::string; // neither destroyed: reports are written while the process ends
    static std::string& answer = *new std::string;
    const std::lock_guard lock(mutex);
    if (seen != path) {
        std::error_code ignored;
        answer = std::filesystem::absolute(path, ignored).lexically_normal().string();
        seen = path;
    }
    return answer;
}

bool MakeFolder(const std::string& path, mode_t mode)
{
    struct stat status;
    if (stat(path.c_str(), &status) == 0)
        return S_ISDIR(status.st_mode) || Fail(ERROR_DIRECTORY);
    const auto slash = path.rfind('/');
    if (slash != std::string::npos && slash > 0 && !MakeFolder(path.substr(0, slash), mode))
        return false;
    return mkdir(path.c_str(), mode) == 0 || errno == EEXIST || FailErrno();
}

bool MakeDriveC(const std::string& drive)
{
    static constexpr std::array kFolders = {"windows/system32", "windows/temp", "Program Files",
                                            "ProgramData", "users/Public"};
    for (const char* folder : kFolders)
        if (!MakeFolder(drive + "/" + folder, 0755))
            return false;
    return true;
}

} // namespace

std::string HomePath()
{
    if (const auto own = EnvironmentText("ZEK_HOME"); own && !own->empty())
        return WithoutSlashAtEnd(own->front() == '/' ? *own : Absolute(*own));
    if (const auto data = EnvironmentText("XDG_DATA_HOME"); data && data->starts_with('/'))
        return WithoutSlashAtEnd(*data) + "/zek";
    const std::string user = WithoutSlashAtEnd(UserFolder());
    return user.empty() ? "" : user + "/.local/share/zek";
}

std::string HomeFolder()
{
    std::string home = HomePath();
    if (home.empty())
        return SetLastError(ERROR_PATH_NOT_FOUND), "";
    return MakeFolder(home, 0700) ? home : "";
}

std::string DriveCPath()
{
    const std::string home = HomePath();
    return home.empty() ? "" : home + "/drive_c";
}

std::string DriveCFolder()
{
    static std::mutex mutex;
    static std::string& made = *new std::string; // never destroyed, as above
    const std::string home = HomeFolder();
    if (home.empty())
        return "";
    std::string drive = home + "/drive_c";
    const std::lock_guard lock(mutex);
    if (made != drive && !MakeDriveC(drive))
        return "";
    made = drive;
    return drive;
}
