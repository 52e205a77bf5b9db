// What the tests of the diagnostics share.
#pragma once

#include <afx.h>

#include <gmock/gmock.h>

#include <regex>
#include <string>
#include <vector>

// Sets a test value; null removes it.
void SetTestValue(const char* name, const char* value);

// Runs the host with the arguments; its exit code.
int RunHost(const std::string& arguments);

// The whole of a file, "" when there is none; the path may be of either kind.
std::string ReadFile(const std::string& path);
bool Exists(const std::string& path);
// A file or an empty folder.
void Remove(const std::string& path);

// The text's lines; their ends must all be `end`, which is checked.
std::vector<std::string> Lines(const std::string& text, const std::string& end);

// Whether a whole text has a form, in the regular expressions of the C++ library: the test framework's are
// not the same everywhere.
MATCHER_P(HasForm, form, "")
{
    return std::regex_match(std::string(arg), std::regex(form));
}

// The folder "Temporary" beside a program, where leak logs go: made by the object, removed with what is in
// it.
class LogFolder
{
public:
    // `program` is a path; "": this program's.
    explicit LogFolder(const std::string& program = "");
    ~LogFolder();
    LogFolder(const LogFolder&) = delete;
    LogFolder& operator=(const LogFolder&) = delete;

    std::string Path(int leaks) const;
    std::string Log(int leaks) const { return ReadFile(Path(leaks)); }
    bool IsEmpty() const { return Names().empty(); }

private:
    std::vector<std::string> Names() const;

    std::string m_path; // with a backslash at the end
};
