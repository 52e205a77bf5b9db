#include "ProgramEntry.h"

#include <gmock/gmock.h>

namespace {

void Write(const std::string& key, const std::string& value)
{
    HKEY handle = nullptr;
    ASSERT_EQ(RegCreateKeyExA(HKEY_CLASSES_ROOT, key.c_str(), 0, nullptr, REG_OPTION_VOLATILE, KEY_WRITE,
                              nullptr, &handle, nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(RegSetValueExA(handle, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                             static_cast<DWORD>(value.size() + 1)),
              ERROR_SUCCESS);
    RegCloseKey(handle);
}

bool Read(const std::string& key, std::string& value)
{
    HKEY handle = nullptr;
    if (RegOpenKeyExA(HKEY_CLASSES_ROOT, key.c_str(), 0, KEY_READ, &handle) != ERROR_SUCCESS)
        return false;
    char text[64] = "";
    DWORD size = sizeof text;
    const LSTATUS status =
        RegQueryValueExA(handle, nullptr, nullptr, nullptr, reinterpret_cast<BYTE*>(text), &size);
    RegCloseKey(handle);
    value = text;
    return status == ERROR_SUCCESS;
}

} // namespace

ProgramEntry::ProgramEntry(const std::string& programId, const std::string& classId) : m_program(programId)
{
    m_existed = Read(m_program + "\\CLSID", m_before);
    Write(m_program + "\\CLSID", classId);
}

ProgramEntry::~ProgramEntry()
{
    if (m_existed) {
        Write(m_program + "\\CLSID", m_before);
        return;
    }
    RegDeleteKeyA(HKEY_CLASSES_ROOT, (m_program + "\\CLSID").c_str());
    RegDeleteKeyA(HKEY_CLASSES_ROOT, m_program.c_str());
}
