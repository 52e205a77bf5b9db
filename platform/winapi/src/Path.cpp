#include "Path.h"

#include "CodePage.h"
#include "DeviceName.h"
#include "Error.h"
#include "Home.h"

#include <zekpath.h>

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <climits>
#include <memory>
#include <mutex>

namespace {

bool IsSeparator(char c)
{
    return c == '/' || c == '\\';
}

bool HasDrive(const char* path)
{
    return std::isalpha(static_cast<unsigned char>(path[0])) && path[1] == ':';
}

void AddPart(std::vector<std::string>& parts, const std::string& part)
{
    if (part == "..") {
        if (!parts.empty())
            parts.pop_back();
    } else if (!part.empty() && part != ".")
        parts.push_back(part);
}

void Split(const char* text, std::vector<std::string>& parts)
{
    const LeadTable& leads = AnsiLeadBytes();
    std::string part;
    for (; *text; text += CharacterLength(leads, text)) {
        if (IsSeparator(*text)) {
            AddPart(parts, part);
            part.clear();
        } else
            part.append(text, CharacterLength(leads, text));
    }
    AddPart(parts, part);
}

// The last byte of a text is a separator only if it is not the second of a pair.
bool EndsInSeparator(const char* text)
{
    const LeadTable& leads = AnsiLeadBytes();
    char last = 0;
    for (; *text; text += CharacterLength(leads, text))
        last = CharacterLength(leads, text) == 1 ? *text : 'x';
    return IsSeparator(last);
}

std::string CurrentFolder()
{
    char folder[PATH_MAX];
    return getcwd(folder, sizeof folder) ? folder : "/";
}

std::vector<std::string> SplitNative(const std::string& path)
{
    std::vector<std::string> parts;
    for (size_t start = 0; start < path.size();) {
        const size_t end = std::min(path.find('/', start), path.size());
        AddPart(parts, path.substr(start, end - start));
        start = end + 1;
    }
    return parts;
}

bool LiesIn(const std::string& path, const std::string& folder)
{
    return !folder.empty() && path.starts_with(folder) &&
           (path.size() == folder.size() || path[folder.size()] == '/');
}

// Kept once it is known: every answered path asks for it. "" while the folder does not exist.
std::string RealPath(const std::string& path)
{
    static std::mutex mutex;
    static std::string seen, answer;
    const std::lock_guard lock(mutex);
    if (seen != path) {
        const std::unique_ptr<char, void (*)(void*)> real(realpath(path.c_str(), nullptr), std::free);
        answer = real ? real.get() : "";
        seen = real ? path : "";
    }
    return answer;
}

// A device path (\\.\), a verbatim one (\\?\) or a network name; `text` is moved behind the prefix.
DWORD ParsePrefix(const char*& text, ParsedPath& parsed)
{
    if (text[0] != '\\' || !IsSeparator(text[1]))
        return NO_ERROR;
    const bool verbatim = text[2] == '?' && IsSeparator(text[3]);
    const bool device = text[2] == '.' && IsSeparator(text[3]);
    if (!verbatim && !device)
        return ERROR_BAD_NETPATH;
    text += 4;
    if (device && DeviceOf(text) == Device::Null)
        return NO_ERROR;
    if (!HasDrive(text))
        return verbatim ? ERROR_BAD_NETPATH : ERROR_FILE_NOT_FOUND;
    parsed.verbatim = verbatim;
    return NO_ERROR;
}

// A path without a drive lies on the current one; one without a root continues the current folder, unless it
// names the other drive: that one has no current folder but its root.
void StartFromCurrent(char drive, bool relative, ParsedPath& parsed)
{
    const ParsedPath current = FromNative(CurrentFolder());
    parsed.drive = drive ? drive : current.drive;
    if (relative && parsed.drive == current.drive)
        parsed.parts = current.parts;
}

DWORD ParseRoot(const char*& text, ParsedPath& parsed)
{
    char drive = 0;
    if (HasDrive(text)) {
        drive = static_cast<char>(std::toupper(static_cast<unsigned char>(*text)));
        text += 2;
    } else if (*text == '/') {
        drive = 'Z';
        parsed.isUnix = true;
    }
    if (drive && drive != 'C' && drive != 'Z')
        return ERROR_PATH_NOT_FOUND;
    if (!drive || !IsSeparator(*text))
        StartFromCurrent(drive, !IsSeparator(*text), parsed);
    else
        parsed.drive = drive;
    return NO_ERROR;
}

// Win32 drops dots and blanks at the end of a name.
std::string Trimmed(const std::string& part)
{
    const size_t last = part.find_last_not_of(". ");
    return part.substr(0, last == std::string::npos ? 0 : last + 1);
}

bool IsLegalNewName(const std::string& part, const ParsedPath& parsed)
{
    const std::string_view illegal = parsed.isUnix ? "<>\"|?*" : "<>\"|?*:";
    return !part.empty() && (parsed.verbatim || std::none_of(part.begin(), part.end(), [illegal](char c) {
                                 return (c >= 0 && c < 0x20) || illegal.find(c) != std::string_view::npos;
                             }));
}

bool Exists(const std::string& path)
{
    struct stat status;
    return lstat(path.c_str(), &status) == 0;
}

std::string FindByFold(const std::string& folder, const std::string& name)
{
    const std::unique_ptr<DIR, int (*)(DIR*)> list(opendir(folder.c_str()), closedir);
    std::string best;
    while (const dirent* entry = list ? readdir(list.get()) : nullptr)
        if (SameName(name, entry->d_name) && (best.empty() || entry->d_name < best))
            best = entry->d_name;
    return best;
}

std::string Join(const std::string& root, const std::vector<std::string>& parts)
{
    std::string path = root;
    for (const auto& part : parts)
        path += "/" + part;
    return path;
}

// Takes the parts one by one as they are spelled on the disk; from the first missing one on as they stand.
bool FollowParts(const ParsedPath& parsed, std::string& path)
{
    bool missing = false;
    for (const auto& part : parsed.parts) {
        const std::string found = missing ? "" : FindEntry(path.empty() ? "/" : path, part);
        missing = found.empty();
        const std::string fresh = parsed.verbatim ? part : Trimmed(part);
        if (missing && !IsLegalNewName(fresh, parsed))
            return Fail(ERROR_INVALID_NAME);
        path += "/" + (missing ? fresh : found);
    }
    return true;
}

} // namespace

std::string FindEntry(const std::string& folder, const std::string& name)
{
    if (Exists(folder + "/" + name))
        return name;
    const std::string trimmed = Trimmed(name);
    if (trimmed.empty())
        return "";
    return trimmed != name && Exists(folder + "/" + trimmed) ? trimmed : FindByFold(folder, trimmed);
}

ParsedPath FromNative(const std::string& native)
{
    ParsedPath parsed;
    const std::string drive = DriveCPath();
    const std::string real = LiesIn(native, drive) ? drive : RealPath(drive);
    const bool onC = LiesIn(native, real);
    parsed.drive = onC ? 'C' : 'Z';
    parsed.parts = SplitNative(onC ? native.substr(real.size()) : native);
    parsed.isUnix = true;
    return parsed;
}

DWORD ParsePath(LPCSTR path, ParsedPath& parsed)
{
    if (!path || !*path)
        return ERROR_PATH_NOT_FOUND;
    const char* text = path;
    if (const DWORD refused = ParsePrefix(text, parsed))
        return refused;
    const Device device = parsed.verbatim ? Device::None : DeviceOf(text);
    if (device == Device::Other)
        return ERROR_FILE_NOT_FOUND;
    parsed.isNullDevice = device == Device::Null;
    if (const DWORD refused = parsed.isNullDevice ? NO_ERROR : ParseRoot(text, parsed))
        return refused;
    Split(text, parsed.parts);
    parsed.asFolder = EndsInSeparator(text);
    return NO_ERROR;
}

bool DriveRoot(char drive, std::string& root)
{
    root = drive == 'C' ? DriveCFolder() : "";
    return drive == 'Z' || !root.empty();
}

std::string NativePath(LPCSTR path)
{
    ParsedPath parsed;
    if (const DWORD refused = ParsePath(path, parsed))
        return Fail(refused), "";
    std::string native;
    if (parsed.isNullDevice)
        return "/dev/null";
    if (!DriveRoot(parsed.drive, native))
        return "";
    const std::string exact = Join(native, parsed.parts);
    if (Exists(exact))
        native = exact;
    else if (!FollowParts(parsed, native))
        return "";
    return native.empty() || parsed.asFolder ? native + "/" : native;
}

std::string Win32Text(const ParsedPath& parsed)
{
    std::string text{parsed.drive, ':'};
    for (const auto& part : parsed.parts)
        text += "\\" + part;
    return parsed.parts.empty() || parsed.asFolder ? text + "\\" : text;
}

std::string ZekNativePath(LPCSTR path) noexcept
try {
    std::string native = NativePath(path);
    while (native.size() > 1 && native.back() == '/')
        native.pop_back();
    return native;
} catch (const std::exception&) {
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return {};
}

std::string ZekWin32Path(const std::string& native)
{
    return Win32Text(FromNative(native));
}
