// A key of a test's own, removed with everything below it.
#pragma once

#include <windows.h>

#include <string>

class TestKey
{
public:
    // Makes HKEY_CURRENT_USER\Software\ZekTest\`name`, empty.
    explicit TestKey(const std::string& name);
    ~TestKey();
    TestKey(const TestKey&) = delete;
    TestKey& operator=(const TestKey&) = delete;

    HKEY Key() const { return m_key; }
    // Without the root key's name.
    const std::string& Path() const { return m_path; }

    // Opens or makes a key below; the caller closes it.
    HKEY Make(const std::string& subkey) const;

private:
    std::string m_path;
    HKEY m_key = nullptr;
};

// Removes what lies below a key.
void EmptyKey(HKEY key);

// The result of writing a text with its terminator.
LONG SetText(HKEY key, const char* name, const std::string& text);

// The value's text, or "error N".
std::string GetText(HKEY key, const char* name);
