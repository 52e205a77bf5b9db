#include "Resources.h"

#include "../Error.h"
#include "../ModuleAt.h"
#include "ResourceFile.h"

#include <winnls.h>
#include <zekresources.h>

#include <algorithm>
#include <iterator>
#include <mutex>
#include <vector>

namespace {

struct CompiledFile {
    HMODULE module;
    std::span<const BYTE> bytes;
};

struct CompiledFiles {
    std::mutex mutex;
    std::vector<CompiledFile> files;
};

CompiledFiles& Compiled()
{
    static CompiledFiles& compiled = *new CompiledFiles;
    return compiled;
}

WORD Primary(WORD language)
{
    return MAKELANGID(PRIMARYLANGID(language), SUBLANG_NEUTRAL);
}

// The languages that may answer, best first; a neutral request ends with any.
struct Preference {
    std::vector<WORD> order;
    bool any;

    explicit Preference(WORD wanted) : order{wanted, Primary(wanted), 0}, any(wanted == 0)
    {
        if (any)
            for (const WORD language : {MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT), GetUserDefaultUILanguage(),
                                        GetUserDefaultLangID(), GetSystemDefaultLangID(),
                                        MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US)})
                order.insert(order.end(), {language, Primary(language)});
    }

    size_t PlaceOf(WORD language) const
    {
        return static_cast<size_t>(std::find(order.begin(), order.end(), language) - order.begin());
    }
    bool Allows(WORD language) const { return any || PlaceOf(language) < order.size(); }
};

// A handle is the address of the resource's data.
HRSRC HandleOf(const Resource& resource)
{
    return reinterpret_cast<HRSRC>(const_cast<BYTE*>(resource.data.data()));
}

// What a search has met so far: the nearest miss is what the error tells.
struct Search {
    ResourceId type;
    ResourceId name;
    Preference preference;
    std::optional<Resource> best;
    DWORD error = ERROR_RESOURCE_DATA_NOT_FOUND;

    void Miss(DWORD code) { error = std::max(error, code); }

    void Meet(const Resource& resource)
    {
        if (resource.type != type)
            return Miss(ERROR_RESOURCE_TYPE_NOT_FOUND);
        if (resource.name != name)
            return Miss(ERROR_RESOURCE_NAME_NOT_FOUND);
        if (!preference.Allows(resource.language))
            return Miss(ERROR_RESOURCE_LANG_NOT_FOUND);
        if (!best || preference.PlaceOf(resource.language) < preference.PlaceOf(best->language))
            best = resource;
    }
};

void SearchModule(HMODULE module, Search& search)
{
    CompiledFiles& compiled = Compiled();
    const std::lock_guard lock(compiled.mutex);
    for (const CompiledFile& file : compiled.files) {
        if (file.module != module)
            continue;
        for (ResourceReader reader(file.bytes); auto resource = reader.Next();)
            search.Meet(*resource);
    }
}

// A name that cannot be one is a name that is not there.
std::optional<Resource> Find(HMODULE module, LPCSTR name, LPCSTR type, WORD language)
{
    const auto typeId = ResourceIdOf(type);
    const auto nameId = ResourceIdOf(name);
    if (!typeId || !nameId)
        return Fail(typeId ? ERROR_RESOURCE_NAME_NOT_FOUND : ERROR_RESOURCE_TYPE_NOT_FOUND), std::nullopt;
    Search search{*typeId, *nameId, Preference(language), std::nullopt};
    SearchModule(module ? module : GetModuleHandleA(nullptr), search);
    if (!search.best)
        SetLastError(search.error);
    return search.best;
}

// The first resource of any module that `wanted` takes.
template <class Wanted>
std::optional<Resource> FirstThat(Wanted wanted)
{
    CompiledFiles& compiled = Compiled();
    const std::lock_guard lock(compiled.mutex);
    for (const CompiledFile& file : compiled.files)
        for (ResourceReader reader(file.bytes); auto resource = reader.Next();)
            if (wanted(*resource))
                return resource;
    return std::nullopt;
}

std::optional<Resource> ByHandle(HRSRC handle)
{
    auto resource = FirstThat([handle](const Resource& each) { return HandleOf(each) == handle; });
    if (!resource)
        SetLastError(ERROR_INVALID_HANDLE);
    return resource;
}

// By number: addresses of different objects must not be compared otherwise.
size_t DistanceFrom(std::span<const BYTE> bytes, const void* address)
{
    return reinterpret_cast<size_t>(address) - reinterpret_cast<size_t>(bytes.data());
}

} // namespace

ZekResources::ZekResources(const void* first, const void* last) : m_first(first)
{
    CompiledFiles& compiled = Compiled();
    const auto* start = static_cast<const BYTE*>(first);
    const std::lock_guard lock(compiled.mutex);
    compiled.files.push_back({ModuleAt(first), {start, static_cast<const BYTE*>(last)}});
}

ZekResources::~ZekResources()
{
    CompiledFiles& compiled = Compiled();
    const std::lock_guard lock(compiled.mutex);
    std::erase_if(compiled.files, [this](const CompiledFile& file) { return file.bytes.data() == m_first; });
}

std::span<const BYTE> ResourceBytes(HMODULE module, LPCSTR name, LPCSTR type)
{
    const auto resource = Find(module, name, type, 0);
    return resource ? resource->data : std::span<const BYTE>();
}

std::span<const BYTE> ResourceHolding(const void* address)
{
    const auto holder = FirstThat(
        [address](const Resource& each) { return DistanceFrom(each.data, address) < each.data.size(); });
    return holder ? holder->data.subspan(DistanceFrom(holder->data, address)) : std::span<const BYTE>();
}

HRSRC WINAPI FindResourceA(HMODULE module, LPCSTR name, LPCSTR type)
{
    const auto resource = Find(module, name, type, 0);
    return resource ? HandleOf(*resource) : nullptr;
}

HRSRC WINAPI FindResourceExA(HMODULE module, LPCSTR type, LPCSTR name, WORD language)
{
    const auto resource = Find(module, name, type, language);
    return resource ? HandleOf(*resource) : nullptr;
}

HGLOBAL WINAPI LoadResource(HMODULE, HRSRC resource)
{
    return resource && ByHandle(resource) ? resource : nullptr;
}

LPVOID WINAPI LockResource(HGLOBAL data)
{
    return data;
}

DWORD WINAPI SizeofResource(HMODULE, HRSRC resource)
{
    const auto found = ByHandle(resource);
    return found ? static_cast<DWORD>(found->data.size()) : 0;
}

BOOL WINAPI FreeResource(HGLOBAL)
{
    return FALSE;
}
