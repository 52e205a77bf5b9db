#include "Process.h"

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

pid_t StartChild(const std::string& home, const std::function<int()>& body)
{
    const pid_t child = fork();
    if (child != 0)
        return child;
    prctl(PR_SET_PDEATHSIG, SIGKILL); // a test that fails early leaves nobody behind
    if (!home.empty())
        setenv("ZEK_HOME", home.c_str(), 1);
    _exit(body());
}

int Await(pid_t child)
{
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
}

int RunInChild(const std::string& home, const std::function<int()>& body)
{
    return Await(StartChild(home, body));
}

ProgramResult RunZekReg(const std::string& home, const std::string& arguments)
{
    const std::string command = "ZEK_HOME='" + home + "' '" ZEK_REG_PROGRAM "' " + arguments + " 2>&1";
    ProgramResult result{-1, ""};
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe)
        return result;
    std::array<char, 4096> buffer;
    while (const std::size_t count = fread(buffer.data(), 1, buffer.size(), pipe))
        result.output.append(buffer.data(), count);
    const int status = pclose(pipe);
    result.code = WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
    return result;
}
