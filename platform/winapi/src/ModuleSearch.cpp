#include "ModuleSearch.h"

#include "CodePage.h"
#include "Error.h"
#include "Path.h"

#include <libloaderapi.h>

#include <dlfcn.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cinttypes>
#include <climits>
#include <cstdio>
#include <fstream>
#include <memory>

namespace {

constexpr std::array kEndings = {".DLL", ".EXE", ".OCX", ".DRV"};

std::string FolderOf(const std::string& path)
{
    return path.substr(0, path.rfind('/') + 1);
}

// The places that the dynamic linker itself would look at for this library's own needs. An element that is
// empty or relative would mean the current folder.
std::vector<std::string> SystemFolders()
{
    std::vector<std::string> folders;
    void* self = dlopen(nullptr, RTLD_LAZY);
    Dl_serinfo sizes;
    if (dlinfo(self, RTLD_DI_SERINFOSIZE, &sizes) == 0) {
        const std::unique_ptr<char[]> memory(new char[sizes.dls_size]);
        auto* info = reinterpret_cast<Dl_serinfo*>(memory.get());
        *info = sizes;
        if (dlinfo(self, RTLD_DI_SERINFOSIZE, info) == 0 && dlinfo(self, RTLD_DI_SERINFO, info) == 0)
            for (unsigned i = 0; i < info->dls_cnt; ++i)
                if (info->dls_serpath[i].dls_name[0] == '/')
                    folders.push_back(std::string(info->dls_serpath[i].dls_name) + "/");
    }
    dlclose(self);
    folders.emplace_back("/usr/local/lib/");
    return folders;
}

std::vector<std::string> SearchFolders(DWORD flags)
{
    constexpr DWORD kOwn = LOAD_LIBRARY_SEARCH_APPLICATION_DIR | LOAD_LIBRARY_SEARCH_DEFAULT_DIRS;
    constexpr DWORD kSystem = LOAD_LIBRARY_SEARCH_SYSTEM32 | LOAD_LIBRARY_SEARCH_DEFAULT_DIRS;
    const bool all =
        !(flags & (kOwn | kSystem | LOAD_LIBRARY_SEARCH_USER_DIRS | LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR));
    std::vector<std::string> folders;
    if (all || flags & kOwn)
        folders = {ProgramFolder(), LibraryFolder()};
    if (all || flags & kSystem)
        for (auto& folder : SystemFolders())
            folders.push_back(std::move(folder));
    return folders;
}

// What the name says about folders. A relative one, or a drive without a root, would mean a current folder.
enum class Form { Bare, Absolute, Refused };

Form FormOf(LPCSTR name)
{
    const bool drive = name[0] && name[1] == ':';
    const char* path = drive ? name + 2 : name;
    if (*path == '/' || *path == '\\')
        return Form::Absolute;
    if (drive)
        return Form::Refused;
    ParsedPath parsed;
    const std::string rooted = "Z:\\" + std::string(name);
    if (ParsePath(rooted.c_str(), parsed) != NO_ERROR || parsed.parts.empty())
        return Form::Refused;
    return parsed.parts.size() == 1 && LastPart(name) == name ? Form::Bare : Form::Refused;
}

void AddFrom(const std::string& folder, const std::string& name, std::vector<std::string>& found)
{
    for (const auto& file : ModuleFileNames(name)) {
        const std::string entry = FindEntry(folder, file);
        if (!entry.empty() && access((folder + entry).c_str(), R_OK) == 0)
            found.push_back(folder + entry);
    }
}

// A path names its folder; the file in it may still bear this platform's name.
void AddFromPath(const std::string& path, std::vector<std::string>& found)
{
    const std::string native = NativePath(path.c_str());
    const std::string folder = FolderOf(native);
    if (!native.empty() && !folder.empty() && native.back() != '/')
        AddFrom(folder, LastPart(native), found);
}

// The file that is mapped at an address, as the system knows it.
std::string MappedFile(const void* address)
{
    const auto place = reinterpret_cast<std::uintptr_t>(address);
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        std::uintptr_t first = 0, end = 0;
        if (std::sscanf(line.c_str(), "%" SCNxPTR "-%" SCNxPTR, &first, &end) == 2 && first <= place &&
            place < end)
            return line.substr(std::min(line.find('/'), line.size()));
    }
    return "";
}

std::string PathOfSymbol(const void* symbol)
{
    Dl_info info;
    if (!dladdr(symbol, &info) || !info.dli_fname)
        return "";
    // A relative path says where the file was when it was loaded; the current folder may be another by now.
    const std::string path = *info.dli_fname == '/' ? info.dli_fname : MappedFile(symbol);
    const std::unique_ptr<char, void (*)(void*)> real(realpath(path.c_str(), nullptr), std::free);
    return real ? real.get() : path;
}

} // namespace

std::string LastPart(const std::string& path)
{
    const LeadTable& leads = AnsiLeadBytes();
    size_t start = 0;
    for (size_t i = 0; i < path.size(); i += CharacterLength(leads, path.c_str() + i))
        if (path[i] == '/' || path[i] == '\\')
            start = i + 1;
    return path.substr(start);
}

std::string ProgramPath()
{
    char path[PATH_MAX];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
    return length > 0 ? std::string(path, static_cast<size_t>(length)) : std::string();
}

std::string ProgramFolder()
{
    return FolderOf(ProgramPath());
}

std::string LibraryFolder()
{
    return FolderOf(PathOfSymbol(kEndings.data()));
}

std::vector<std::string> ModuleFileNames(const std::string& name)
{
    std::string file = name, stem = name;
    const auto dot = name.rfind('.');
    if (dot == std::string::npos)
        file += ".DLL";
    else if (dot + 1 == name.size())
        stem = file = name.substr(0, dot);
    for (const char* ending : kEndings)
        if (dot != std::string::npos && SameName(name.substr(dot), ending))
            stem = name.substr(0, dot);
    if (stem == name && dot != std::string::npos && dot + 1 != name.size())
        return {file};
    return {file, "lib" + stem + ".so", stem + ".so"};
}

std::vector<std::string> ModuleCandidates(LPCSTR name, DWORD flags)
{
    std::vector<std::string> found;
    const Form form = name && *name ? FormOf(name) : Form::Refused;
    if (form == Form::Absolute)
        AddFromPath(name, found);
    if (form == Form::Bare)
        for (const auto& folder : SearchFolders(flags))
            if (!folder.empty())
                AddFrom(folder, name, found);
    if (found.empty())
        SetLastError(name ? ERROR_MOD_NOT_FOUND : ERROR_INVALID_PARAMETER);
    return found;
}
