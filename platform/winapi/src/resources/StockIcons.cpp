#include "../Error.h"

#include <windlg_.h>

HICON WINAPI LoadIconA(HINSTANCE module, LPCSTR name)
{
    if (module || name < IDI_APPLICATION || name > IDI_ASTERISK)
        return Fail(ERROR_RESOURCE_NAME_NOT_FOUND), nullptr;
    return reinterpret_cast<HICON>(const_cast<LPSTR>(name));
}
