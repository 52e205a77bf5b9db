#include "DeviceName.h"

#include "CodePage.h"

#include <strings.h>

#include <cstring>
#include <string>

namespace {

// The last part up to its first dot or colon, without blanks at its end.
std::string BaseOfLastPart(const char* path)
{
    const LeadTable& leads = AnsiLeadBytes();
    const char* start = path;
    for (const char* at = path; *at; at += CharacterLength(leads, at))
        if (*at == '/' || *at == '\\' || (*at == ':' && at == path + 1))
            start = at + 1;
    std::string base(start, std::strcspn(start, ".:"));
    base.erase(base.find_last_not_of(' ') + 1);
    return base;
}

bool IsNumberedPort(const std::string& name)
{
    return name.size() == 4 && name[3] >= '1' && name[3] <= '9' &&
           (strncasecmp(name.c_str(), "COM", 3) == 0 || strncasecmp(name.c_str(), "LPT", 3) == 0);
}

} // namespace

Device DeviceOf(const char* path)
{
    const std::string name = BaseOfLastPart(path);
    if (strcasecmp(name.c_str(), "NUL") == 0)
        return Device::Null;
    for (const char* other : {"CON", "PRN", "AUX", "CONIN$", "CONOUT$"})
        if (strcasecmp(name.c_str(), other) == 0)
            return Device::Other;
    return IsNumberedPort(name) ? Device::Other : Device::None;
}
