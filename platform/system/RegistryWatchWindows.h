// Windows: the system sets an event within the call that changes the key.
#pragma once

#include <windows.h>

#include <string>

class RegistryWatch
{
public:
    // Watches one key of HKEY_CURRENT_USER, which need not exist.
    explicit RegistryWatch(const char* key);
    ~RegistryWatch();
    RegistryWatch(const RegistryWatch&) = delete;
    RegistryWatch& operator=(const RegistryWatch&) = delete;

    // False before the first Confirm(), after a Prepare(), and always when there is no way to know.
    bool Stands() const;
    void Prepare();
    void Confirm() { m_isConfirmed = m_isArmed; }
    RegistryCounters Counters() const { return {&s_none, 1, &s_noChanges, 0}; }

private:
    bool OpenNearest();
    void Disarm();

    static inline const std::atomic<std::uint64_t> s_none = 0;
    static inline const std::atomic<unsigned> s_noChanges = 0;

    const std::string m_path;
    const HANDLE m_event;
    HKEY m_key = nullptr;
    bool m_isArmed = false;
    std::atomic<bool> m_isConfirmed = false;
};
