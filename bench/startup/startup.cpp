// What it costs a program to start on the library and end again.
//
//   startup [REPEATS]
//
// Starts three programs in turn, built by one compiler with the same flags: one that links nothing, one that
// is made to link the C++ run-time library, and a host that only adds two vectors. Prints each one's time
// from the start to its end, the median and the least, and the ratio to the program that links nothing.
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

struct Program {
    const char* name;
    std::string path;
    std::vector<double> microseconds;

    double Median() const { return microseconds[microseconds.size() / 2]; }
    double Least() const { return microseconds.front(); }
};

// Nothing of this process, which has no library either, passes on but its environment.
bool Run(Program& program)
{
    char* const arguments[] = {program.path.data(), nullptr};
    const auto start = std::chrono::steady_clock::now();
    pid_t child = 0;
    int status = 0;
    if (posix_spawn(&child, program.path.c_str(), nullptr, nullptr, arguments, environ) != 0 ||
        waitpid(child, &status, 0) != child || status != 0)
        return false;
    const std::chrono::duration<double, std::micro> time = std::chrono::steady_clock::now() - start;
    program.microseconds.push_back(time.count());
    return true;
}

std::string OwnFolder()
{
    char path[4096] = "";
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path - 1);
    const std::string whole(path, length > 0 ? static_cast<std::size_t>(length) : 0);
    return whole.substr(0, whole.rfind('/') + 1);
}

} // namespace

int main(int argc, char** argv)
{
    const int repeats = argc > 1 ? std::atoi(argv[1]) : 500;
    Program programs[] = {{"links nothing", OwnFolder() + "startup_nothing", {}},
                          {"C++ run-time library", OwnFolder() + "startup_runtime", {}},
                          {"host of ZEK_lib", OwnFolder() + "startup_host", {}}};
    for (int i = -3; i < repeats; ++i) { // the first rounds fetch the files
        for (Program& program : programs) {
            if (!Run(program))
                return std::fprintf(stderr, "%s failed\n", program.path.c_str()), 1;
            if (i < 0)
                program.microseconds.clear();
        }
    }
    for (Program& program : programs)
        std::sort(program.microseconds.begin(), program.microseconds.end());
    for (const Program& program : programs)
        std::printf("%-22s median %7.0f us (%.2f)   least %7.0f us (%.2f)\n", program.name, program.Median(),
                    program.Median() / programs[0].Median(), program.Least(),
                    program.Least() / programs[0].Least());
}
