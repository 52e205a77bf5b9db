// From a Win32 path to the file that it means.
//
// Two steps: ParsePath takes the text apart without a look at the disk; NativePath finds the parts' spelling
// on the disk.
#pragma once

#include <windef.h>

#include <string>
#include <vector>

struct ParsedPath {
    char drive = 'Z';
    std::vector<std::string> parts; // below the drive's root, without `.` and `..`
    bool asFolder = false;          // ended in a separator
    bool isUnix = false;            // began with a slash: a colon may stand in a name
    bool verbatim = false;          // began with \\?\: so may anything
    bool isNullDevice = false;
};

// NO_ERROR or why the path is refused.
DWORD ParsePath(LPCSTR path, ParsedPath& parsed);

// The absolute Unix path, with a slash at its end if the text had a separator there; "" with the last error
// set. The last part, or several, may be missing on the disk.
std::string NativePath(LPCSTR path);

// The drive's root folder on this machine without a slash at the end ("" for Z:\), or the last error set.
bool DriveRoot(char drive, std::string& root);

// The Win32 text of a parsed path, `C:\` or `Z:\` first.
std::string Win32Text(const ParsedPath& parsed);

// The parsed form of an absolute Unix path, on C: where it lies in that drive's folder.
ParsedPath FromNative(const std::string& native);

// The name in `folder` that equals `name` exactly, else without regard to case, the first in byte order;
// "" if there is none.
std::string FindEntry(const std::string& folder, const std::string& name);
