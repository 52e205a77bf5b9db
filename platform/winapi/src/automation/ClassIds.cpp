// Class identifiers as text and by program identifier.
#include "ClassKeys.h"

#include <winnls.h>

#include <cerrno>
#include <sys/random.h>

namespace {

std::string Narrow(LPCOLESTR text)
{
    const int size = WideCharToMultiByte(CP_ACP, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(size > 0 ? size : 1), '\0');
    WideCharToMultiByte(CP_ACP, 0, text, -1, narrow.data(), size, nullptr, nullptr);
    narrow.pop_back(); // the terminator
    return narrow;
}

HRESULT AnswerTaskText(const std::string& text, LPOLESTR* answer)
{
    const int size = MultiByteToWideChar(CP_ACP, 0, text.c_str(), -1, nullptr, 0);
    *answer = static_cast<LPOLESTR>(CoTaskMemAlloc(static_cast<SIZE_T>(size) * sizeof(OLECHAR)));
    if (!*answer)
        return E_OUTOFMEMORY;
    MultiByteToWideChar(CP_ACP, 0, text.c_str(), -1, *answer, size);
    return S_OK;
}

HRESULT FindProgId(LPCOLESTR progId, CLSID& clsid)
{
    std::string text;
    const bool found = *progId && ReadClassesText(Narrow(progId) + "\\CLSID", text) && ParseGuid(text, clsid);
    return found ? S_OK : CO_E_CLASSSTRING;
}

// The functions below are called through plain C: nothing may be thrown out of them.
template <class Body>
HRESULT Guarded(Body&& body) noexcept
{
    try {
        return body();
    } catch (...) {
        return E_OUTOFMEMORY;
    }
}

} // namespace

HRESULT WINAPI CLSIDFromProgID(LPCOLESTR progId, LPCLSID clsid)
{
    if (!progId || !clsid)
        return E_INVALIDARG;
    *clsid = CLSID_NULL;
    return Guarded([&] { return FindProgId(progId, *clsid); });
}

HRESULT WINAPI ProgIDFromCLSID(REFCLSID clsid, LPOLESTR* progId)
{
    if (!progId)
        return E_INVALIDARG;
    *progId = nullptr;
    return Guarded([&] {
        std::string text;
        const bool found = ReadClassesText("CLSID\\" + GuidText(clsid) + "\\ProgID", text);
        return found ? AnswerTaskText(text, progId) : REGDB_E_CLASSNOTREG;
    });
}

HRESULT WINAPI CLSIDFromString(LPCOLESTR text, LPCLSID clsid)
{
    if (!clsid)
        return E_INVALIDARG;
    *clsid = CLSID_NULL;
    if (!text)
        return S_OK;
    return Guarded([&] { return ParseGuid(Narrow(text), *clsid) ? S_OK : FindProgId(text, *clsid); });
}

HRESULT WINAPI StringFromCLSID(REFCLSID clsid, LPOLESTR* text)
{
    if (!text)
        return E_INVALIDARG;
    *text = nullptr;
    return Guarded([&] { return AnswerTaskText(GuidText(clsid), text); });
}

int WINAPI StringFromGUID2(REFGUID guid, LPOLESTR text, int room)
{
    constexpr int kWithTerminator = 39;
    if (!text || room < kWithTerminator)
        return 0;
    for (const char c : GuidText(guid))
        *text++ = static_cast<OLECHAR>(c);
    *text = 0;
    return kWithTerminator;
}

HRESULT WINAPI CoCreateGuid(GUID* guid)
{
    if (!guid)
        return E_INVALIDARG;
    ssize_t filled;
    do
        filled = getrandom(guid, sizeof *guid, 0);
    while (filled < 0 && errno == EINTR);
    if (filled != sizeof *guid)
        return E_UNEXPECTED;
    // A random one: version 4, variant 1.
    guid->Data3 = static_cast<std::uint16_t>((guid->Data3 & 0x0FFF) | 0x4000);
    guid->Data4[0] = static_cast<std::uint8_t>((guid->Data4[0] & 0x3F) | 0x80);
    return S_OK;
}
