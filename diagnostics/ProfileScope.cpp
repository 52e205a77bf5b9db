#include <ProfileScope.h>

#include <string_view>

CString ZekSectionName(const std::source_location& place)
{
    CString name;
    const char* file = place.file_name();
    const std::size_t folders = std::string_view(file).find_last_of("/\\") + 1;
    name.Format("%s(%u) %s", file + folders, place.line(), place.function_name());
    return name;
}
