#include <afxwnd_.h>

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

namespace {

bool Fits(const AFX_MSGMAP_ENTRY& entry, UINT message, UINT code, UINT id)
{
    if (message >= kAfxRegisteredMessage && entry.nMessage == kAfxRegisteredMessage)
        return *entry.pRegistered == message;
    return entry.nMessage == message && entry.nCode == code && entry.nID <= id && id <= entry.nLastID;
}

} // namespace

const AFX_MSGMAP_ENTRY* AFXAPI AfxFindMessageEntry(const AFX_MSGMAP* map, UINT message, UINT code, UINT id)
{
    for (; map; map = map->pfnGetBaseMap ? map->pfnGetBaseMap() : nullptr)
        for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->pfn; ++entry)
            if (Fits(*entry, message, code, id))
                return entry;
    return nullptr;
}

CCmdTarget::CCmdTarget() = default;
CCmdTarget::~CCmdTarget() = default;

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap()
{
    static const AFX_MSGMAP_ENTRY end = {0, 0, 0, 0, nullptr, nullptr};
    static const AFX_MSGMAP map = {nullptr, &end};
    return &map;
}

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const
{
    return GetThisMessageMap();
}

BOOL CCmdTarget::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* handlerInfo)
{
    // A notification's code is a word, however its sign went on the way.
    const AFX_MSGMAP_ENTRY* entry =
        AfxFindMessageEntry(GetMessageMap(), WM_COMMAND, static_cast<WORD>(code), id);
    if (entry && handlerInfo)
        handlerInfo->pTarget = this;
    return entry && (handlerInfo || entry->pfn(this, id, reinterpret_cast<LPARAM>(extra)) != 0);
}
