// Parts of paths, with either separator.
#pragma once

#include <ZEK_lib.h>

// The part up to and with the last separator or drive colon, "" when there is none.
CString FolderPart(const CString& path);

// The part behind FolderPart.
CString NamePart(const CString& path);

// `name` without its last ending: "beam.inp" gives "beam", ".inp" stays.
CString WithoutEnding(const CString& name);

// Whether `path` starts at a root or names a drive.
bool IsAbsolute(const CString& path);

// How `name`, told in the file `neighbour`, is reached: `name` itself when it is an absolute path.
CString PathBeside(const CString& neighbour, const CString& name);

// `folder` and `name` with a separator as `folder` uses it.
CString Joined(const CString& folder, const CString& name);

// The absolute path.
CString FullPath(const CString& path);

bool FolderExists(const CString& path);
bool FileExists(const CString& path);
