// Where a document is really saved: the file behind the links of a path, and what is there now.
#pragma once

#include "package/FileCalls.h"

#include <string>
#include <sys/types.h>

namespace zek::office {

struct SaveTarget {
    std::string path;   // the file itself, never a symbolic link
    std::string folder; // the folder that holds it
    std::string name;   // its name in there
    bool exists = false;
    // Of the file that is there now; without meaning when there is none.
    mode_t mode = 0;
    uid_t owner = 0;
    gid_t group = 0;
};

// Follows the symbolic links of `path`, also one that leads to no file yet.
// Throws SaveError: ELOOP after 40 links; EISDIR for a folder; EINVAL for a device, a pipe, an empty
// path; EACCES for a file that nobody may write (the superuser is refused as everybody is) or that this
// process may not.
SaveTarget FindSaveTarget(const std::string& path);

// The path of the new file that process `pid` makes for its `count`-th save beside the target.
// The name depends on the target's name, so that saves of two documents never meet.
std::string NewFilePath(const SaveTarget& target, long pid, unsigned count);

// Removes the new files of the same target that saves of dead processes left: those that nobody locks.
// A file that cannot be removed stays; nothing is reported.
void RemoveStaleFiles(const SaveTarget& target, FileCalls& calls);

} // namespace zek::office
