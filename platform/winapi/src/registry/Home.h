// Where the registry's files lie.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

inline std::string HomeFolder()
{
    const char* own = std::getenv("ZEK_HOME");
    const char* data = std::getenv("XDG_DATA_HOME");
    const char* user = std::getenv("HOME");
    const std::string path = own && *own     ? own
                             : data && *data ? std::string(data) + "/zek"
                                             : std::string(user ? user : "") + "/.local/share/zek";
    std::error_code error;
    if (std::filesystem::create_directories(path, error))
        std::filesystem::permissions(path, std::filesystem::perms::owner_all, error);
    return path;
}
