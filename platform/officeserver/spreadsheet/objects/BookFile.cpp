#include "spreadsheet/objects/BookFile.h"

#include "package/WorkbookPackage.h"
#include "spreadsheet/model/Unicode.h"

#include <zekpath.h>

#include <windows.h>

namespace zek::office {
namespace {

const char* const kBadPath = "The file could not be accessed: its name or path is not valid.";
constexpr char kEnding[] = ".xlsx";

// File names go to the system in the code page of the process.
std::string ToCodePage(std::string_view text)
{
    const std::u16string wide = ToUtf16(text);
    const auto units = static_cast<int>(wide.size());
    const int size = WideCharToMultiByte(CP_ACP, 0, wide.data(), units, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, 0, wide.data(), units, narrow.data(), size, nullptr, nullptr);
    return narrow;
}

std::string FromCodePage(std::string_view text)
{
    const auto bytes = static_cast<int>(text.size());
    const int units = MultiByteToWideChar(CP_ACP, 0, text.data(), bytes, nullptr, 0);
    std::u16string wide(static_cast<std::size_t>(units), u'\0');
    MultiByteToWideChar(CP_ACP, 0, text.data(), bytes, wide.data(), units);
    return ToUtf8(wide);
}

std::string FullPath(const std::string& path)
{
    const DWORD size = GetFullPathNameA(path.c_str(), 0, nullptr, nullptr);
    std::string full(size, '\0');
    full.resize(GetFullPathNameA(path.c_str(), size, full.data(), nullptr));
    return full;
}

} // namespace

BookFile LocateBookFile(std::string_view path)
{
    const std::string narrow = ToCodePage(path);
    // What the code page cannot hold would be saved under another name.
    if (path.empty() || path.find('\0') != path.npos || FromCodePage(narrow) != path)
        throw AutomationError(kBadPath);
    const std::string full = FromCodePage(FullPath(narrow));
    const std::size_t slash = full.find_last_of("\\/");
    BookFile file;
    file.name = full.substr(slash == full.npos ? 0 : slash + 1);
    // The root keeps its backslash.
    file.folder = slash == full.npos ? "" : full.substr(0, slash <= 2 ? slash + 1 : slash);
    if (file.name.empty() || file.name.find_first_of("<>?[]:|*\"") != file.name.npos)
        throw AutomationError(kBadPath);
    if (file.name.find('.') == file.name.npos)
        file.name += kEnding;
    const std::string separator = !file.folder.empty() && file.folder.back() != '\\' ? "\\" : "";
    file.native = ZekNativePath(ToCodePage(file.folder + separator + file.name).c_str());
    if (file.native.empty())
        throw AutomationError(kBadPath);
    return file;
}

void WriteBook(const BookState& book, const BookFile& file)
{
    SaveWorkbook(*book.model, file.native);
}

} // namespace zek::office
