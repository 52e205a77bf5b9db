#include "ModuleList.h"

#include <algorithm>

namespace {

constexpr int kLongest = 1 << 18; // a text has up to 65535 UTF-16 units

int LoadFromAny(UINT id, LPSTR buffer, int size)
{
    for (const HMODULE module : AfxResourceModules())
        if (const int length = ::LoadStringA(module, id, buffer, size))
            return length;
    return 0;
}

// `load` answers a text's length, cut to the given size: the last character may not have fitted.
template <class Load>
BOOL LoadWhole(CString& text, Load load)
{
    constexpr int kLastCharacter = 4;
    int length = 0;
    for (int size = 256; size <= kLongest; size *= 4) {
        length = load(text.GetBuffer(size), size);
        text.ReleaseBuffer(length);
        if (length < size - kLastCharacter)
            break;
    }
    return length > 0;
}

} // namespace

HINSTANCE AFXAPI AfxFindResourceHandle(LPCSTR name, LPCSTR type)
{
    const auto modules = AfxResourceModules();
    const auto found = std::find_if(modules.begin(), modules.end(), [name, type](HMODULE module) {
        return ::FindResourceA(module, name, type) != nullptr;
    });
    return found != modules.end() ? *found : modules.front();
}

int AFXAPI AfxLoadString(UINT id, LPSTR buffer, UINT size)
{
    return size > 0 ? LoadFromAny(id, buffer, static_cast<int>(std::min<UINT>(size, kLongest))) : 0;
}

BOOL CString::LoadString(UINT id)
{
    return LoadWhole(*this, [id](LPSTR buffer, int size) { return LoadFromAny(id, buffer, size); });
}

BOOL CString::LoadString(HINSTANCE module, UINT id)
{
    return LoadWhole(
        *this, [module, id](LPSTR buffer, int size) { return ::LoadStringA(module, id, buffer, size); });
}
