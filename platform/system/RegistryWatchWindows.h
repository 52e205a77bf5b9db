// Windows: the system sets an event within the call that changes the key.
#pragma once

#include <windows.h>

#include <atomic>
#include <string>

class RegistryWatch
{
public:
    // Watches one key of HKEY_CURRENT_USER, which need not exist.
    explicit RegistryWatch(const char* key);
    ~RegistryWatch();
    RegistryWatch(const RegistryWatch&) = delete;
    RegistryWatch& operator=(const RegistryWatch&) = delete;

    // False before the first Renew(), and always when there is no way to know.
    bool Stands() const;
    void Renew();

private:
    bool OpenNearest();
    void Disarm();

    const std::string m_path;
    const HANDLE m_event;
    HKEY m_key = nullptr;
    std::atomic<bool> m_isArmed = false;
};
