#include "Modal.h"

#include "../Error.h"
#include "../windows/Queue.h"
#include "../windows/Window.h"
#include "BoxThread.h"

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

// Where the dialog is made and destroyed.
using Perform = bool(const std::function<void()>& work);

bool Here(const std::function<void()>& work)
{
    return work(), true;
}

INT_PTR RunWith(Perform& perform, const Template& shape, DialogOrder order)
{
    ModalRun run;
    order.run = &run;
    order.owner = TopLevelOf(order.owner);
    HWND dialog = nullptr;
    perform([&] { dialog = MakeDialog(shape, order); });
    if (dialog)
        RunLoop(dialog, run);
    run.EnableOwner();
    if (dialog && IsWindow(dialog))
        perform([dialog] { DestroyWindow(dialog); });
    return dialog ? run.result.load() : kNotMade;
}

void End(HWND dialog, INT_PTR result)
{
    DialogState* state = StateOf(dialog);
    if (!state)
        return;
    state->ended = true;
    if (ModalRun* run = state->run) {
        run->result = result;
        // First, so that the owner and no stranger becomes active.
        run->EnableOwner();
        run->End();
    }
    ShowWindow(dialog, SW_HIDE);
}

} // namespace

INT_PTR RunDialog(const Template& shape, DialogOrder order)
{
    return RunWith(Here, shape, order);
}

INT_PTR RunDialogAnywhere(const Template& shape, DialogOrder order)
{
    return RunWith(RunOnUiThread, shape, order);
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
    const WindowRef window = WindowOf(dialog);
    if (!window || !StateOf(dialog))
        return Fail(ERROR_INVALID_WINDOW_HANDLE);
    RunOnThreadOf(window, [&] { End(dialog, result); });
    return TRUE;
}
