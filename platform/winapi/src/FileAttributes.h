// Win32 attributes and creation times of files, of which Unix keeps the read-only bit alone.
//
// The rest lies in extended attributes of the file: `user.zek.attributes` and `user.zek.created`.
#pragma once

#include <fileapi.h>

#include <sys/stat.h>

#include <optional>
#include <string>

// A file as the functions here address it: by descriptor, or by path if that is -1.
struct FileRef {
    int fd;
    const char* path;
};

DWORD AttributesOf(const FileRef& file, const struct stat& status);

// False with the last error; ERROR_NOT_SUPPORTED if a bit cannot be kept.
bool SetAttributes(const FileRef& file, const struct stat& status, DWORD attributes);

FILETIME CreationTimeOf(const FileRef& file, const struct stat& status);
bool SetCreationTime(const FileRef& file, const FILETIME& time);

// Whether no one may write the file: Win32 refuses that even to the superuser.
bool IsReadOnly(const struct stat& status);
