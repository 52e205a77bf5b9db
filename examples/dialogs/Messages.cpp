// The message library of the example: texts by key, out of its string table. They follow the user's interface
// language and come in the user's code page, as every text of a string table does.
#include "resource.h"

#include <afxwin.h>

#include <cstring>

namespace {

const struct {
    const char* key;
    UINT id;
} kTexts[] = {
    {"IDS_DEMO_TITLE", IDS_DEMO_TITLE},     {"IDS_DEMO_NO_WINDOW", IDS_DEMO_NO_WINDOW},
    {"IDS_DEMO_TIMED", IDS_DEMO_TIMED},     {"IDS_DEMO_STATE", IDS_DEMO_STATE},
    {"IDS_DEMO_SECTION", IDS_DEMO_SECTION}, {"IDS_DEMO_SHAPES", IDS_DEMO_SHAPES},
    {"IDS_DEMO_CASES", IDS_DEMO_CASES},
};

} // namespace

// Called once, before the first text is asked for; there is nothing to prepare.
extern "C" AFX_EXT_API int RegAllStrRes(int)
{
    return 1;
}

// The text stays until the next call. Null for a key that is not known.
extern "C" AFX_EXT_API const char* LoadStr(const char* key, int)
{
    static char text[1024];
    for (const auto& row : kTexts)
        if (std::strcmp(row.key, key) == 0)
            return ::LoadStringA(::GetModuleHandleA("DEMO_msg.DLL"), row.id, text, sizeof text) ? text
                                                                                                : nullptr;
    return nullptr;
}
