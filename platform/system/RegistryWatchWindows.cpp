#include "RegistryWatch.h"

RegistryWatch::RegistryWatch(const char* key)
    : m_path(key), m_event(CreateEventA(nullptr, TRUE, FALSE, nullptr))
{
}

RegistryWatch::~RegistryWatch()
{
    Disarm();
    if (m_event)
        CloseHandle(m_event);
}

void RegistryWatch::Disarm()
{
    m_isConfirmed = m_isArmed = false;
    if (m_key)
        RegCloseKey(m_key);
    m_key = nullptr;
}

// The key, or the nearest one above it that exists; true when it is the key itself.
bool RegistryWatch::OpenNearest()
{
    std::string nearest = m_path;
    while (RegOpenKeyExA(HKEY_CURRENT_USER, nearest.c_str(), 0, KEY_NOTIFY, &m_key) != ERROR_SUCCESS) {
        m_key = nullptr;
        if (nearest.empty())
            return false;
        const auto end = nearest.rfind('\\');
        nearest.resize(end == std::string::npos ? 0 : end);
    }
    return nearest == m_path;
}

bool RegistryWatch::Stands() const
{
    return m_isConfirmed && WaitForSingleObject(m_event, 0) == WAIT_TIMEOUT;
}

void RegistryWatch::Prepare()
{
    Disarm();
    if (!m_event)
        return;
    ResetEvent(m_event); // closing the key may have set it
    const bool found = OpenNearest();
    const DWORD changes = REG_NOTIFY_CHANGE_NAME | REG_NOTIFY_CHANGE_LAST_SET;
    m_isArmed = m_key &&
                RegNotifyChangeKeyValue(m_key, found ? FALSE : TRUE, changes, m_event, TRUE) == ERROR_SUCCESS;
}

bool RegistryMayHoldValues()
{
    return true;
}
