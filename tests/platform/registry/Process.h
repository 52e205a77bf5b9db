// Processes that tests of the shared store start.
#pragma once

#include <functional>
#include <string>

#include <sys/types.h>

// Runs `body` in a forked process whose registry lies in `home` (empty: this process's own) and answers the
// process's number; what `body` answers is the exit code.
pid_t StartChild(const std::string& home, const std::function<int()>& body);

// Waits for a process: its exit code, or 1000 and the number of the signal that ended it.
int Await(pid_t child);

int RunInChild(const std::string& home, const std::function<int()>& body);

struct ProgramResult {
    int code;
    std::string output; // both streams
};

// Runs zek-reg with a registry in `home`.
ProgramResult RunZekReg(const std::string& home, const std::string& arguments);
