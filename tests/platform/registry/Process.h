// Processes that tests of the shared store start.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>

#include <sys/types.h>
#include <unistd.h>

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

// A pipe whose both ends close with it.
class Pipe
{
public:
    Pipe()
    {
        if (pipe(m_ends) != 0)
            throw std::runtime_error("no pipe");
    }
    ~Pipe()
    {
        close(m_ends[0]);
        close(m_ends[1]);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    bool Send(int number) const { return write(m_ends[1], &number, sizeof number) == sizeof number; }
    int Receive() const
    {
        int number = -1;
        return read(m_ends[0], &number, sizeof number) == sizeof number ? number : -1;
    }

private:
    int m_ends[2];
};
