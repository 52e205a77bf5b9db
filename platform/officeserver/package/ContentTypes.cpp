#include "package/ContentTypes.h"

#include <algorithm>
#include <string>

namespace zek::office {
namespace {

struct EndingType {
    std::string_view ending;
    const char* type;
};

constexpr char kPlainWorkbook[] =
    "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml";
constexpr EndingType kTypes[] = {
    {".xlsm", "application/vnd.ms-excel.sheet.macroEnabled.main+xml"},
    {".xltx", "application/vnd.openxmlformats-officedocument.spreadsheetml.template.main+xml"},
    {".xltm", "application/vnd.ms-excel.template.macroEnabled.main+xml"},
};

} // namespace

const char* WorkbookType(std::string_view fileName)
{
    std::string name(fileName);
    std::transform(name.begin(), name.end(), name.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    for (const EndingType& row : kTypes)
        if (name.ends_with(row.ending))
            return row.type;
    return kPlainWorkbook;
}

} // namespace zek::office
