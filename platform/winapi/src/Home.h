// The folder that holds everything the adapter keeps.
#pragma once

#include <string>

// Where the home folder lies: $ZEK_HOME, else $XDG_DATA_HOME/zek, else ~/.local/share/zek. Absolute, without
// a slash at the end. The folder need not exist; "" if even the user's own folder is unknown.
// A variable that changes takes effect with the next call.
std::string HomePath();

// The same folder, made with access for its owner only if it is missing; "" with the last error set if it
// cannot be made.
std::string HomeFolder();

// The folder that C:\ stands for, without making it.
std::string DriveCPath();

// The same folder, made on first use with those that programs count on; "" with the last error set.
std::string DriveCFolder();
