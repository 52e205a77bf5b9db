#include "Paths.h"

namespace {

int FolderLength(const CString& path)
{
    int last = path.Find(':') == 1 ? 1 : -1;
    for (const char separator : {'/', '\\'})
        if (const int at = path.ReverseFind(separator); at > last)
            last = at;
    return last + 1;
}

DWORD Attributes(const CString& path)
{
    return GetFileAttributesA(path);
}

} // namespace

CString FolderPart(const CString& path)
{
    return path.Left(FolderLength(path));
}

CString NamePart(const CString& path)
{
    return path.Mid(FolderLength(path));
}

CString WithoutEnding(const CString& name)
{
    const int dot = name.ReverseFind('.');
    return dot > 0 ? name.Left(dot) : name;
}

bool IsAbsolute(const CString& path)
{
    return !path.IsEmpty() && (path[0] == '/' || path[0] == '\\' || path.Find(':') == 1);
}

CString PathBeside(const CString& neighbour, const CString& name)
{
    return IsAbsolute(name) ? name : FolderPart(neighbour) + name;
}

CString Joined(const CString& folder, const CString& name)
{
    if (folder.IsEmpty() || FolderLength(folder) == folder.GetLength())
        return folder + name;
    const bool backslashes = folder.Find('\\') >= 0 && folder.Find('/') < 0;
    return folder + (backslashes ? '\\' : '/') + name;
}

CString FullPath(const CString& path)
{
    char full[MAX_PATH * 16] = "";
    const DWORD length = GetFullPathNameA(path, sizeof full, full, nullptr);
    return length > 0 && length < sizeof full ? CString(full) : path;
}

bool FolderExists(const CString& path)
{
    const DWORD attributes = Attributes(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool FileExists(const CString& path)
{
    const DWORD attributes = Attributes(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}
