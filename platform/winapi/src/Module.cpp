#include "CodePage.h"
#include "Error.h"
#include "ModuleAt.h"
#include "ModuleLoad.h"
#include "ModuleSearch.h"

#include <winbase.h>
#include <zekpath.h>

#include <dlfcn.h>
#include <elf.h>
#include <fcntl.h>
#include <link.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>
#include <string_view>

namespace {

// What stands for the system's own modules: this adapter.
constexpr std::array kSystemModules = {"KERNEL32", "USER32", "ADVAPI32", "OLE32", "OLEAUT32"};

struct Modules {
    // Also held while the list of mapped files is walked. A module that is being loaded may load others.
    std::recursive_mutex mutex;
    std::map<HMODULE, unsigned> counts; // of those that LoadLibrary loaded
};

Modules& Loaded()
{
    static Modules& modules = *new Modules;
    return modules;
}

HMODULE FromMap(const link_map* map)
{
    return reinterpret_cast<HMODULE>(const_cast<link_map*>(map));
}

const link_map* FirstMap()
{
    static const link_map* const first = [] {
        void* program = dlopen(nullptr, RTLD_LAZY);
        const link_map* map = nullptr;
        dlinfo(program, RTLD_DI_LINKMAP, &map);
        return map;
    }();
    return first;
}

std::string RealPathOf(const link_map& map)
{
    if (&map == FirstMap())
        return ProgramPath();
    const std::unique_ptr<char, void (*)(void*)> real(realpath(map.l_name, nullptr), std::free);
    return real ? real.get() : map.l_name;
}

// A module that is mapped now; null for any other value, which is never looked into.
const link_map* MapOf(HMODULE module)
{
    for (const link_map* map = FirstMap(); map; map = map->l_next)
        if (FromMap(map) == module)
            return map;
    return nullptr;
}

bool IsSystemModule(const std::string& name)
{
    std::string stem = name;
    if (stem.size() > 4 && SameName(stem.substr(stem.size() - 4), ".dll"))
        stem.resize(stem.size() - 4);
    return std::any_of(kSystemModules.begin(), kSystemModules.end(),
                       [&stem](const char* known) { return SameName(stem, known); });
}

bool IsElf(const std::string& path)
{
    char start[SELFMAG] = "";
    const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    const bool elf =
        fd >= 0 && read(fd, start, SELFMAG) == SELFMAG && std::memcmp(start, ELFMAG, SELFMAG) == 0;
    if (fd >= 0)
        close(fd);
    return elf;
}

// What kept dlopen from loading the file: its message names the file that failed, which may be another one
// that the module needs.
DWORD LoadError(const std::string& path)
{
    const char* message = dlerror();
    const bool itself = message && std::string_view(message).starts_with(path + ":");
    return itself ? ERROR_BAD_EXE_FORMAT : ERROR_MOD_NOT_FOUND;
}

HMODULE Load(const std::string& path)
{
    Modules& modules = Loaded();
    const std::lock_guard lock(modules.mutex);
    const ModuleLoad load;
    void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle)
        return Fail(LoadError(path)), nullptr;
    if (load.Refused())
        return dlclose(handle), SetLastError(ERROR_DLL_INIT_FAILED), nullptr;
    link_map* map = nullptr;
    dlinfo(handle, RTLD_DI_LINKMAP, &map);
    ++modules.counts[FromMap(map)];
    return FromMap(map);
}

// A file of the right name that is no module does not hide one further on in the search.
HMODULE LoadFirst(const std::vector<std::string>& paths)
{
    for (const auto& path : paths) {
        if (!IsElf(path)) {
            SetLastError(ERROR_BAD_EXE_FORMAT);
            continue;
        }
        if (const HMODULE module = Load(path))
            return module;
    }
    return nullptr;
}

// Whether a mapped file is what `NAME.DLL` means; libraries may bear a version behind `.so`.
bool MapHasName(const link_map& map, const std::string& name)
{
    const std::string file = LastPart(RealPathOf(map));
    const std::string unversioned =
        file.substr(0, file.find(".so.") == std::string::npos ? file.size() : file.find(".so.") + 3);
    const auto names = ModuleFileNames(name);
    return std::any_of(names.begin(), names.end(), [&](const std::string& wanted) {
        return SameName(wanted, file) || SameName(wanted, unversioned);
    });
}

bool IsProgramName(const std::string& name)
{
    const std::string program = LastPart(ProgramPath());
    return SameName(name, program) || SameName(name, program + ".exe");
}

HMODULE FindMapped(LPCSTR name)
{
    const std::lock_guard lock(Loaded().mutex);
    const std::string last = LastPart(name);
    const bool hasFolder = last != name;
    if (!hasFolder && IsProgramName(name))
        return FromMap(FirstMap());
    const std::string path = hasFolder ? ZekNativePath(name) : "";
    for (const link_map* map = FirstMap(); map; map = map->l_next)
        if (hasFolder ? RealPathOf(*map) == path : map != FirstMap() && MapHasName(*map, last))
            return FromMap(map);
    return nullptr;
}

// A symbol of the module itself: the linker's search goes on in the modules it uses.
void* OwnSymbol(const link_map& map, LPCSTR name)
{
    void* handle =
        &map == FirstMap() ? dlopen(nullptr, RTLD_LAZY) : dlopen(map.l_name, RTLD_LAZY | RTLD_NOLOAD);
    void* symbol = handle ? dlsym(handle, name) : nullptr;
    if (handle)
        dlclose(handle);
    return symbol && ModuleAt(symbol) == FromMap(&map) ? symbol : nullptr;
}

DWORD AnswerTruncated(const std::string& text, LPSTR buffer, DWORD size)
{
    if (size == 0)
        return Fail(ERROR_INSUFFICIENT_BUFFER);
    const size_t length = std::min<size_t>(text.size(), size - 1);
    std::memcpy(buffer, text.data(), length);
    buffer[length] = 0;
    SetLastError(length < text.size() ? ERROR_INSUFFICIENT_BUFFER : NO_ERROR);
    return static_cast<DWORD>(length < text.size() ? size : length);
}

} // namespace

HMODULE WINAPI LoadLibraryA(LPCSTR name)
{
    return LoadLibraryExA(name, nullptr, 0);
}

HMODULE WINAPI LoadLibraryExA(LPCSTR name, HANDLE file, DWORD flags)
{
    if (file)
        return Fail(ERROR_INVALID_PARAMETER), nullptr;
    if (flags & (DONT_RESOLVE_DLL_REFERENCES | LOAD_LIBRARY_AS_DATAFILE))
        return Fail(ERROR_NOT_SUPPORTED), nullptr;
    if (name && IsSystemModule(name))
        return ModuleAt(kSystemModules.data());
    return LoadFirst(ModuleCandidates(name, flags));
}

BOOL WINAPI FreeLibrary(HMODULE module)
{
    Modules& modules = Loaded();
    const std::lock_guard lock(modules.mutex);
    const auto found = modules.counts.find(module);
    if (found == modules.counts.end())
        return MapOf(module) ? TRUE : Fail(ERROR_MOD_NOT_FOUND);
    if (--found->second == 0)
        modules.counts.erase(found);
    return dlclose(module) == 0 || Fail(ERROR_MOD_NOT_FOUND);
}

HMODULE WINAPI GetModuleHandleA(LPCSTR name)
{
    if (!name)
        return FromMap(FirstMap());
    const HMODULE module = IsSystemModule(name) ? ModuleAt(kSystemModules.data()) : FindMapped(name);
    if (!module)
        SetLastError(ERROR_MOD_NOT_FOUND);
    return module;
}

DWORD WINAPI GetModuleFileNameA(HMODULE module, LPSTR buffer, DWORD size)
{
    const std::lock_guard lock(Loaded().mutex);
    const link_map* map = module ? MapOf(module) : FirstMap();
    if (!map)
        return Fail(ERROR_MOD_NOT_FOUND);
    return AnswerTruncated(ZekWin32Path(RealPathOf(*map)), buffer, size);
}

FARPROC WINAPI GetProcAddress(HMODULE module, LPCSTR name)
{
    const std::lock_guard lock(Loaded().mutex);
    const link_map* map = module ? MapOf(module) : FirstMap();
    if (!map)
        return Fail(ERROR_MOD_NOT_FOUND), nullptr;
    void* symbol = reinterpret_cast<size_t>(name) > 0xffff ? OwnSymbol(*map, name) : nullptr;
    if (!symbol)
        SetLastError(ERROR_PROC_NOT_FOUND);
    return std::bit_cast<FARPROC>(symbol);
}
