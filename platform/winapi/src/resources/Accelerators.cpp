#include "../Error.h"
#include "../WordReader.h"
#include "Resources.h"

#include <winuser.h>

#include <algorithm>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

namespace {

using Keys = std::vector<ACCEL>;

constexpr BYTE kLastRow = 0x80;
constexpr BYTE kModifiers = FSHIFT | FCONTROL | FALT;

struct Tables {
    std::mutex mutex;
    std::map<const BYTE*, std::unique_ptr<Keys>> byResource;
};

Tables& Loaded()
{
    static Tables& tables = *new Tables;
    return tables;
}

Keys ReadKeys(std::span<const BYTE> bytes)
{
    Keys keys;
    WordReader reader(bytes);
    for (WORD flags = 0; !(flags & kLastRow);) {
        flags = reader.Word();
        const WORD key = reader.Word();
        const WORD command = reader.Word();
        reader.Word();
        if (reader.Failed())
            break;
        keys.push_back({static_cast<BYTE>(flags & ~kLastRow), key, command});
    }
    return keys;
}

const Keys* KeysOf(HACCEL table)
{
    Tables& tables = Loaded();
    const std::lock_guard lock(tables.mutex);
    for (const auto& [resource, keys] : tables.byResource)
        if (reinterpret_cast<HACCEL>(keys.get()) == table)
            return keys.get();
    return Fail(ERROR_INVALID_ACCEL_HANDLE), nullptr;
}

BYTE ModifiersDown()
{
    constexpr struct {
        int key;
        BYTE flag;
    } kKeys[] = {{VK_SHIFT, FSHIFT}, {VK_CONTROL, FCONTROL}, {VK_MENU, FALT}};
    int down = 0;
    for (const auto& row : kKeys)
        down |= GetKeyState(row.key) < 0 ? row.flag : 0;
    return static_cast<BYTE>(down);
}

// A row by key code knows its modifiers, one by character only that Alt must be held.
bool Matches(const ACCEL& row, const MSG& message)
{
    if (row.key != message.wParam)
        return false;
    if (message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN)
        return (row.fVirt & FVIRTKEY) && (row.fVirt & kModifiers) == ModifiersDown();
    if (row.fVirt & FVIRTKEY)
        return false;
    return message.message == WM_SYSCHAR || (message.message == WM_CHAR && !(row.fVirt & FALT));
}

} // namespace

HACCEL WINAPI LoadAcceleratorsA(HINSTANCE module, LPCSTR name)
{
    const auto bytes = ResourceBytes(module, name, RT_ACCELERATOR);
    if (bytes.empty())
        return nullptr;
    Tables& tables = Loaded();
    const std::lock_guard lock(tables.mutex);
    auto& keys = tables.byResource[bytes.data()];
    if (!keys)
        keys = std::make_unique<Keys>(ReadKeys(bytes));
    return reinterpret_cast<HACCEL>(keys.get());
}

int WINAPI CopyAcceleratorTableA(HACCEL table, LPACCEL rows, int count)
{
    const Keys* keys = KeysOf(table);
    if (!keys)
        return 0;
    const int size = static_cast<int>(keys->size());
    if (!rows)
        return size;
    return static_cast<int>(std::copy_n(keys->begin(), std::clamp(count, 0, size), rows) - rows);
}

int WINAPI TranslateAcceleratorA(HWND window, HACCEL table, LPMSG message)
{
    const Keys* keys = message ? KeysOf(table) : nullptr;
    if (!keys || !IsWindow(window))
        return 0;
    const auto row = std::find_if(keys->begin(), keys->end(),
                                  [message](const ACCEL& each) { return Matches(each, *message); });
    if (row == keys->end())
        return 0;
    if (IsWindowEnabled(window))
        SendMessageA(window, WM_COMMAND, MAKEWPARAM(row->cmd, 1), 0);
    return 1;
}
