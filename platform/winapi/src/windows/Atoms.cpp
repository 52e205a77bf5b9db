#include "WindowClass.h"

#include "../CodePage.h"
#include "../Error.h"

#include <cstdlib>
#include <map>
#include <mutex>

namespace {

constexpr unsigned kFirstAtom = 0xc000, kLastAtom = 0xffff;

struct Names {
    std::mutex mutex;
    std::map<std::string, ATOM> atoms; // names in upper case
};

Names& TheNames()
{
    static Names& names = *new Names;
    return names;
}

// "#123" means the number itself.
ATOM NumberOf(LPCSTR name)
{
    if (IsAtom(name))
        return static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(name));
    char* end = nullptr;
    const unsigned long number = *name == '#' ? std::strtoul(name + 1, &end, 10) : 0;
    return end && *end == 0 && number < kFirstAtom ? static_cast<ATOM>(number) : ATOM{0};
}

} // namespace

ATOM KnownAtom(LPCSTR name)
{
    if (const ATOM number = NumberOf(name); number || IsAtom(name))
        return number;
    Names& names = TheNames();
    const std::lock_guard lock(names.mutex);
    const auto found = names.atoms.find(FoldCase(name));
    return found == names.atoms.end() ? ATOM{0} : found->second;
}

ATOM AtomOf(LPCSTR name)
{
    if (const ATOM known = KnownAtom(name))
        return known;
    Names& names = TheNames();
    const std::lock_guard lock(names.mutex);
    if (IsAtom(name) || names.atoms.size() > kLastAtom - kFirstAtom)
        return Fail(ERROR_NOT_ENOUGH_MEMORY);
    const auto next = static_cast<ATOM>(kFirstAtom + names.atoms.size());
    return names.atoms.try_emplace(FoldCase(name), next).first->second;
}

UINT WINAPI RegisterWindowMessageA(LPCSTR name)
{
    return name && !IsAtom(name) && *name ? AtomOf(name) : static_cast<UINT>(Fail(ERROR_INVALID_PARAMETER));
}
