// The message library of the example: texts by key, out of its string table.
//
// The texts follow the user's interface language and come in the user's code page, as every text of a string
// table does.
#include "resource.h"

#include <afxwin.h>

#include <map>
#include <string>

namespace {

const struct {
    const char* key;
    UINT id;
} kTexts[] = {{"IDS_DEMO_TITLE", IDS_TITLE},
              {"IDS_DEMO_NO_WINDOW", IDS_NO_WINDOW},
              {"IDS_DEMO_TIMED", IDS_TIMED},
              {"IDS_DEMO_STATE", IDS_STATE},
              {"IDS_DEMO_SECTION_TEXT", IDS_SECTION_TEXT},
              {"IDS_DEMO_SHAPE_0", IDS_SHAPE_FIRST},
              {"IDS_DEMO_SHAPE_1", IDS_SHAPE_FIRST + 1},
              {"IDS_DEMO_SHAPE_2", IDS_SHAPE_FIRST + 2},
              {"IDS_DEMO_CASE_0", IDS_CASE_FIRST},
              {"IDS_DEMO_CASE_1", IDS_CASE_FIRST + 1},
              {"IDS_DEMO_CASE_2", IDS_CASE_FIRST + 2},
              {"IDS_DEMO_CASE_3", IDS_CASE_FIRST + 3},
              {"IDS_DEMO_CASE_4", IDS_CASE_FIRST + 4},
              {"IDS_DEMO_CASE_5", IDS_CASE_FIRST + 5},
              {"IDS_DEMO_CASE_6", IDS_CASE_FIRST + 6}};

// Each text is fetched once and stays where it is.
std::map<std::string, CString> g_texts;

} // namespace

extern "C" AFX_EXT_API int RegAllStrRes(int)
{
    const HINSTANCE self = ::GetModuleHandleA("DEMO_msg.DLL");
    for (const auto& row : kTexts) {
        char text[256];
        ::LoadStringA(self, row.id, text, sizeof text);
        g_texts[row.key] = text;
    }
    return 1;
}

// Null for a key that is not known, as hosts are told to expect.
extern "C" AFX_EXT_API const char* LoadStr(const char* key, int)
{
    const auto found = g_texts.find(key);
    return found == g_texts.end() ? nullptr : found->second.GetString();
}
