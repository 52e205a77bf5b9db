#include "package/SaveTarget.h"

#include "package/SaveError.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace zek::office {
namespace {

namespace fs = std::filesystem;

constexpr int kMaxLinks = 40; // as the kernel counts
constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;

fs::path FollowLinks(const std::string& given)
{
    fs::path path(given);
    for (int links = 0; links < kMaxLinks; ++links) {
        std::error_code error;
        fs::path next = fs::read_symlink(path, error);
        if (error) // no link: the file itself, or none yet
            return path;
        path = next.is_absolute() ? next : path.parent_path() / next;
    }
    throw SaveError::System(ELOOP, "save", given);
}

void ReadState(SaveTarget& target)
{
    struct stat state = {};
    if (::lstat(target.path.c_str(), &state) != 0) {
        if (errno != ENOENT)
            throw SaveError::System(errno, "save", target.path);
        return;
    }
    target.exists = true;
    target.mode = state.st_mode;
    target.owner = state.st_uid;
    target.group = state.st_gid;
}

void RequireWritableFile(const SaveTarget& target)
{
    if (!S_ISREG(target.mode))
        throw SaveError::System(S_ISDIR(target.mode) ? EISDIR : EINVAL, "save", target.path);
    if ((target.mode & kAnyWrite) == 0)
        throw SaveError::System(EACCES, "save", target.path);
    if (::access(target.path.c_str(), W_OK) != 0)
        throw SaveError::System(errno, "save", target.path);
}

std::string NewFilePrefix(const SaveTarget& target)
{
    std::uint64_t hash = 0xcbf29ce484222325u; // FNV-1a, 64 bits: the name may be as long as names can be
    for (char c : target.name)
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3u;
    char text[32];
    std::snprintf(text, sizeof text, ".zek-save-%016llx-", static_cast<unsigned long long>(hash));
    return text;
}

} // namespace

SaveTarget FindSaveTarget(const std::string& path)
{
    fs::path file = FollowLinks(path);
    SaveTarget target;
    target.path = file.string();
    target.name = file.filename().string();
    target.folder = file.has_parent_path() ? file.parent_path().string() : ".";
    if (target.path.empty())
        throw SaveError::System(EINVAL, "save", path);
    ReadState(target);
    if (target.exists)
        RequireWritableFile(target);
    else if (target.name.empty())
        throw SaveError::System(EISDIR, "save", path);
    return target;
}

std::string NewFilePath(const SaveTarget& target, long pid, unsigned count)
{
    return target.folder + "/" + NewFilePrefix(target) + std::to_string(pid) + "-" + std::to_string(count);
}

void RemoveStaleFiles(const SaveTarget& target, FileCalls& calls)
{
    const std::string prefix = NewFilePrefix(target);
    std::error_code error;
    fs::directory_iterator entries(target.folder, error);
    for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
        const std::string path = entries->path().string();
        if (entries->path().filename().string().compare(0, prefix.size(), prefix) != 0)
            continue;
        FileHandle file(calls, calls.Open(path, O_RDONLY | O_NOFOLLOW | O_NONBLOCK, 0));
        if (file.Get() >= 0 && calls.Lock(file.Get()) == 0)
            calls.Remove(path);
    }
}

} // namespace zek::office
