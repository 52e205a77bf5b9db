// A document that could not be saved.
#pragma once

#include <stdexcept>
#include <string>

namespace zek::office {

// Thrown by every part of a save. what() is one line that says what failed, on which file and why,
// as in "Cannot write '/out/a.xlsx': No space left on device".
class SaveError : public std::runtime_error
{
public:
    SaveError(int code, const std::string& text) : std::runtime_error(text), m_code(code) {}

    // The failure `code` (an errno) of doing `action` ("write", "rename") to `path`.
    static SaveError System(int code, const std::string& action, const std::string& path);

    // The errno of the call that failed; EINVAL for content that cannot be stored, EIO for a file that
    // did not read back as it was written.
    int Code() const { return m_code; }

private:
    int m_code;
};

} // namespace zek::office
