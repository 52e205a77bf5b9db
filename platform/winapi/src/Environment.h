// The process's environment, guarded: several threads may read and write it through these.
#pragma once

#include <optional>
#include <string>

// The value of a variable; none if it is not set.
std::optional<std::string> EnvironmentText(const char* name);
