#include "DialogTemplate.h"

#include <afxdll_.h>

#include <cstring>

namespace {

// The extended form's beginning.
#pragma pack(push, 1)
struct ExtendedHead {
    WORD version;
    WORD signature;
    DWORD helpId;
    DWORD exStyle;
    DWORD style;
    WORD items;
    short x, y, cx, cy;
};
#pragma pack(pop)
constexpr WORD kExtended = 0xFFFF;

bool IsOpen(DWORD style, short x, short y)
{
    return (style & (DS_CENTER | DS_CENTERMOUSE | DS_ABSALIGN)) == 0 && x == 0 && y == 0;
}

} // namespace

LPCDLGTEMPLATEA AfxFindDialogTemplate(LPCSTR name, HINSTANCE& module)
{
    module = AfxFindResourceHandle(name, RT_DIALOG);
    const HRSRC found = ::FindResourceA(module, name, RT_DIALOG);
    const HGLOBAL loaded = found ? ::LoadResource(module, found) : nullptr;
    return loaded ? static_cast<LPCDLGTEMPLATEA>(::LockResource(loaded)) : nullptr;
}

bool AfxIsPlaceOpen(LPCDLGTEMPLATEA shape)
{
    WORD words[2];
    std::memcpy(words, shape, sizeof words);
    if (words[0] != 1 || words[1] != kExtended)
        return IsOpen(shape->style, shape->x, shape->y);
    ExtendedHead head;
    std::memcpy(&head, shape, sizeof head);
    return IsOpen(head.style, head.x, head.y);
}
