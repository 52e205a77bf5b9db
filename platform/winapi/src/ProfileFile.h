// A profile (.ini) file: sections of `key=value` lines. Lines that are neither stay as they are.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

class ProfileFile
{
public:
    explicit ProfileFile(const std::string& text);

    std::vector<std::string> Sections() const;
    std::vector<std::string> Keys(const std::string& section) const;
    std::optional<std::string> Value(const std::string& section, const std::string& key) const;

    // A section or key that is missing is added at the end.
    void SetValue(const std::string& section, const std::string& key, const std::string& value);
    void RemoveKey(const std::string& section, const std::string& key);
    void RemoveSection(const std::string& section);

    // The whole file, lines ended by CR LF.
    std::string Text() const;

private:
    // Line numbers: of the section's heading, or the number of lines; of the next heading; of a key in a
    // section, or where that ends.
    size_t FindHeading(const std::string& section) const;
    size_t EndOf(size_t heading) const;
    size_t FindKey(size_t heading, const std::string& key) const;

    std::vector<std::string> m_lines;
};

// The file of that Win32 name, one without a folder in the Windows folder; an empty one if it cannot be read.
ProfileFile ReadProfile(const char* name);

// Reads, changes and replaces the file in one step that other processes wait for; false with the last error
// set, and then the old file stands.
bool ChangeProfile(const char* name, const std::function<void(ProfileFile&)>& change);
