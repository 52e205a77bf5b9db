#include "Modal.h"

#include "../Error.h"

namespace {

constexpr INT_PTR kNotMade = -1;
constexpr INT_PTR kNoOwner = 0;

// Before the loop sleeps: a dialog made hidden is shown now, and its owner may use the time.
void BeforeIdle(HWND dialog, const ModalRun& run)
{
    const DWORD style = static_cast<DWORD>(GetWindowLongA(dialog, GWL_STYLE));
    if (!(style & WS_VISIBLE))
        ShowWindow(dialog, SW_SHOWNORMAL);
    if (run.owner && !(style & DS_NOIDLEMSG) && !run.ended)
        SendMessageA(run.owner, WM_ENTERIDLE, MSGF_DIALOGBOX, reinterpret_cast<LPARAM>(dialog));
}

void Dispatch(HWND dialog, MSG& message)
{
    if (IsDialogMessageA(dialog, &message))
        return;
    TranslateMessage(&message);
    DispatchMessageA(&message);
}

void RunLoop(HWND dialog, ModalRun& run)
{
    MSG message;
    while (!run.ended) {
        if (!PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE))
            BeforeIdle(dialog, run);
        if (run.ended)
            break;
        const BOOL more = GetMessageA(&message, nullptr, 0, 0);
        if (more <= 0) {
            if (more == 0)
                PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        Dispatch(dialog, message);
    }
}

template <class Find>
INT_PTR Run(HINSTANCE module, HWND owner, DLGPROC procedure, LPARAM data, Find find)
{
    if (owner && !IsWindow(owner))
        return Fail(ERROR_INVALID_WINDOW_HANDLE), kNoOwner;
    const std::optional<Template> shape = find();
    return shape ? RunDialog(*shape, {module, owner, procedure, data, nullptr}) : kNotMade;
}

// Only a top-level window can be disabled for a dialog.
HWND TopLevelOf(HWND window)
{
    const HWND top = window ? GetAncestor(window, GA_ROOT) : nullptr;
    return top == GetDesktopWindow() ? nullptr : top;
}

} // namespace

INT_PTR RunDialog(const Template& shape, DialogOrder order)
{
    ModalRun run;
    order.run = &run;
    order.owner = TopLevelOf(order.owner);
    const HWND dialog = MakeDialog(shape, order);
    if (dialog)
        RunLoop(dialog, run);
    run.EnableOwner();
    if (dialog && IsWindow(dialog))
        DestroyWindow(dialog);
    return dialog ? run.result : kNotMade;
}

INT_PTR WINAPI DialogBoxParamA(HINSTANCE module, LPCSTR name, HWND owner, DLGPROC procedure, LPARAM data)
{
    return Run(module, owner, procedure, data, [&] { return FindTemplate(module, name); });
}

INT_PTR WINAPI DialogBoxIndirectParamA(HINSTANCE module, LPCDLGTEMPLATEA shape, HWND owner, DLGPROC procedure,
                                       LPARAM data)
{
    return Run(module, owner, procedure, data, [&] { return TemplateAt(shape); });
}

BOOL WINAPI EndDialog(HWND dialog, INT_PTR result)
{
    DialogState* state = StateOf(dialog);
    if (!state)
        return Fail(ERROR_INVALID_WINDOW_HANDLE);
    state->ended = true;
    if (ModalRun* run = state->run) {
        run->ended = true;
        run->result = result;
        // First, so that the owner and no stranger becomes active.
        run->EnableOwner();
    }
    ShowWindow(dialog, SW_HIDE);
    PostMessageA(dialog, WM_NULL, 0, 0); // the loop may be waiting
    return TRUE;
}
