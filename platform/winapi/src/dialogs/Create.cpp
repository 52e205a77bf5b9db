#include "Create.h"

#include "../Error.h"
#include "../resources/Resources.h"
#include "../windows/Window.h"
#include "BoxThread.h"
#include "Focus.h"
#include "Units.h"

#include <algorithm>

namespace {

// A template in plain memory does not tell its size.
constexpr size_t kLargestTemplate = size_t{1} << 24;
constexpr short kDefaultPlace = static_cast<short>(0x8000);

// Numbers of classes in templates.
constexpr LPCSTR kClasses[] = {"Button", "Edit", "Static", "ListBox", "ScrollBar", "ComboBox"};
constexpr WORD kFirstClass = 0x80;

std::string ClassName(const ResourceId& kind, LPCSTR ordinary)
{
    if (const auto* name = std::get_if<std::u16string>(&kind))
        return AnsiText(*name);
    const WORD number = std::get<WORD>(kind);
    if (number >= kFirstClass && number < kFirstClass + std::size(kClasses))
        return kClasses[number - kFirstClass];
    return number ? "#" + std::to_string(number) : ordinary;
}

std::string ItemText(const ResourceId& text)
{
    const auto* written = std::get_if<std::u16string>(&text);
    return written ? AnsiText(*written) : "";
}

RECT WorkArea()
{
    RECT area = {};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0);
    return area;
}

struct Styles {
    DWORD style;
    DWORD exStyle;
};

Styles StylesOf(const Template& shape)
{
    Styles styles = {shape.style | DS_3DLOOK, shape.exStyle};
    if (shape.style & DS_CONTROL)
        styles.style &= ~static_cast<DWORD>(WS_CAPTION | WS_SYSMENU);
    if ((shape.style & DS_CONTROL) || !(shape.style & WS_CHILD))
        styles.exStyle |= WS_EX_CONTROLPARENT;
    if (shape.style & DS_MODALFRAME)
        styles.exStyle |= WS_EX_DLGMODALFRAME;
    if (shape.style & DS_CONTEXTHELP)
        styles.exStyle |= WS_EX_CONTEXTHELP;
    return styles;
}

// Where a window of that size, frame included, is asked to be.
POINT PlaceOf(const Template& shape, HWND owner, const SIZE& base, const RECT& frame)
{
    const bool isChild = shape.style & WS_CHILD;
    if (shape.style & (DS_CENTER | DS_CENTERMOUSE)) {
        const RECT area = WorkArea();
        return {(area.left + area.right - (frame.right - frame.left)) / 2,
                (area.top + area.bottom - (frame.bottom - frame.top)) / 2};
    }
    POINT place = {AcrossUnits(shape.x, base), DownUnits(shape.y, base)};
    if (!isChild && !(shape.style & DS_ABSALIGN) && owner)
        ClientToScreen(owner, &place);
    return {place.x + frame.left, place.y + frame.top};
}

// A dialog that would lie outside is moved to where all of it, or at least its start, can be seen.
POINT OnScreen(POINT place, LONG width, LONG height)
{
    const RECT area = WorkArea();
    if (IsRectEmpty(&area))
        return place;
    return {std::max(area.left, std::min(place.x, area.right - width)),
            std::max(area.top, std::min(place.y, area.bottom - height))};
}

HWND MakeWindow(const Template& shape, const DialogOrder& order, const SIZE& base)
{
    const auto [style, exStyle] = StylesOf(shape);
    RECT frame = {0, 0, AcrossUnits(shape.cx, base), DownUnits(shape.cy, base)};
    AdjustWindowRectEx(&frame, style, FALSE, exStyle);
    const LONG width = frame.right - frame.left;
    const LONG height = frame.bottom - frame.top;
    POINT place = {CW_USEDEFAULT, CW_USEDEFAULT};
    if (shape.x != kDefaultPlace || (shape.style & (WS_CHILD | DS_CENTER | DS_CENTERMOUSE)))
        place = PlaceOf(shape, order.owner, base, frame);
    if (!(shape.style & WS_CHILD) && place.x != CW_USEDEFAULT)
        place = OnScreen(place, width, height);
    return CreateWindowExA(exStyle, ClassName(shape.kind, "#32770").c_str(), AnsiText(shape.title).c_str(),
                           style & ~static_cast<DWORD>(WS_VISIBLE), place.x, place.y, width, height,
                           order.owner, nullptr, order.module, nullptr);
}

// The first default button is the dialog's, any other one becomes a plain one.
void TakeDefaultButton(DialogState& state, HWND control, DWORD id)
{
    if (!(DialogCode(control) & DLGC_DEFPUSHBUTTON))
        return;
    if (state.defaultId == 0)
        state.defaultId = id;
    else
        SendMessageA(control, BM_SETSTYLE, BS_PUSHBUTTON, FALSE);
}

bool MakeControl(HWND dialog, DialogState& state, const TemplateItem& item, HINSTANCE module)
{
    const DWORD style = (item.style & ~static_cast<DWORD>(WS_POPUP)) | WS_CHILD;
    const SIZE& base = state.base;
    const HMENU id = reinterpret_cast<HMENU>(static_cast<INT_PTR>(static_cast<int>(item.id)));
    const HWND control =
        CreateWindowExA(item.exStyle | WS_EX_NOPARENTNOTIFY, ClassName(item.kind, "").c_str(),
                        ItemText(item.text).c_str(), style, AcrossUnits(item.x, base),
                        DownUnits(item.y, base), AcrossUnits(item.cx, base), DownUnits(item.cy, base), dialog,
                        id, module, item.data.empty() ? nullptr : const_cast<BYTE*>(item.data.data()));
    if (!control)
        return false;
    if (state.font)
        SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(state.font), FALSE);
    TakeDefaultButton(state, control, item.id);
    return true;
}

bool MakeControls(HWND dialog, DialogState& state, const Template& shape, HINSTANCE module)
{
    for (const TemplateItem& item : shape.items)
        if (!MakeControl(dialog, state, item, module) && !(shape.style & DS_NOFAILCREATE))
            return false;
    return true;
}

HWND FirstControl(HWND dialog)
{
    const HWND control = GetNextDlgTabItem(dialog, nullptr, FALSE);
    return control ? control : GetNextDlgGroupItem(dialog, nullptr, FALSE);
}

// A procedure that answers TRUE leaves the choice of the focus to the dialog manager.
void Initialise(HWND dialog, const Template& shape, const DialogOrder& order)
{
    const HWND proposed = FirstControl(dialog);
    const LRESULT answer =
        SendMessageA(dialog, WM_INITDIALOG, reinterpret_cast<WPARAM>(proposed), order.data);
    DialogState* state = StateOf(dialog);
    if (!answer || !state || (shape.style & DS_CONTROL))
        return;
    const HWND control = FirstControl(dialog);
    state->focus = control;
    SelectAll(control);
    if (control)
        SetFocus(control);
}

void DisableOwner(const DialogOrder& order)
{
    if (order.run && order.owner && !EnableWindow(order.owner, FALSE))
        order.run->owner = order.owner;
}

// The thread that waits finds the dialog among its own.
void BelongTo(HWND dialog, DWORD waiter)
{
    const WindowGuard guard;
    WindowOf(dialog)->waiter = waiter;
    WatchForTheEnd();
}

DialogState& Prepare(HWND dialog, const DialogOrder& order, HFONT font, const SIZE& base)
{
    DialogState& state = MakeState(dialog);
    state.font = font;
    state.base = base;
    state.run = order.run;
    if (order.run && order.run->waiter != GetCurrentThreadId())
        BelongTo(dialog, order.run->waiter);
    SetWindowLongPtrA(dialog, DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(order.procedure));
    if (font)
        SendMessageA(dialog, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    return state;
}

} // namespace

HWND MakeDialog(const Template& shape, const DialogOrder& order)
{
    const HFONT font = shape.font ? MakeDialogFont(*shape.font) : nullptr;
    const SIZE base = BaseUnits(font);
    const HWND dialog = MakeWindow(shape, order, base);
    if (!dialog) {
        if (font)
            DeleteObject(font);
        return nullptr;
    }
    DialogState& state = Prepare(dialog, order, font, base);
    if (!MakeControls(dialog, state, shape, order.module)) {
        const DWORD error = GetLastError();
        DestroyWindow(dialog);
        return Fail(error), nullptr;
    }
    DisableOwner(order);
    Initialise(dialog, shape, order);
    if (IsWindow(dialog) && (shape.style & WS_VISIBLE) && !(StateOf(dialog) && StateOf(dialog)->ended))
        ShowWindow(dialog, SW_SHOWNORMAL);
    return IsWindow(dialog) ? dialog : nullptr;
}

std::optional<Template> FindTemplate(HINSTANCE module, LPCSTR name)
{
    const auto bytes = ResourceBytes(module, name, RT_DIALOG);
    if (bytes.empty())
        return std::nullopt;
    auto shape = ReadTemplate(bytes);
    if (!shape)
        SetLastError(ERROR_RESOURCE_DATA_NOT_FOUND);
    return shape;
}

std::optional<Template> TemplateAt(LPCDLGTEMPLATEA shape)
{
    if (!shape)
        return Fail(ERROR_INVALID_PARAMETER), std::nullopt;
    auto bytes = ResourceHolding(shape);
    if (bytes.empty())
        bytes = {reinterpret_cast<const BYTE*>(shape), kLargestTemplate};
    auto read = ReadTemplate(bytes);
    if (!read)
        SetLastError(ERROR_RESOURCE_DATA_NOT_FOUND);
    return read;
}

HWND WINAPI CreateDialogParamA(HINSTANCE module, LPCSTR name, HWND owner, DLGPROC procedure, LPARAM data)
{
    const auto shape = FindTemplate(module, name);
    return shape ? MakeDialog(*shape, {module, owner, procedure, data, nullptr}) : nullptr;
}

HWND WINAPI CreateDialogIndirectParamA(HINSTANCE module, LPCDLGTEMPLATEA memory, HWND owner,
                                       DLGPROC procedure, LPARAM data)
{
    const auto shape = TemplateAt(memory);
    return shape ? MakeDialog(*shape, {module, owner, procedure, data, nullptr}) : nullptr;
}
