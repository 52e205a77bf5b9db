#include <ProfileScope.h>

#include <string_view>

CString ZekSectionName(const char* file, int line, const char* function)
{
    const std::size_t folders = std::string_view(file).find_last_of("/\\") + 1;
    CString name;
    name.Format("%s(%d) %s", file + folders, line, function);
    return name;
}
