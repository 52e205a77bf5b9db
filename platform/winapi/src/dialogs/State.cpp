#include "State.h"

#include <wingdi.h>

#include <map>
#include <memory>
#include <mutex>
#include <utility>

namespace {

struct States {
    std::mutex mutex;
    std::map<HWND, std::unique_ptr<DialogState>> byWindow;
};

States& All()
{
    static States& states = *new States;
    return states;
}

} // namespace

void ModalRun::EnableOwner()
{
    if (const HWND disabled = owner.exchange(nullptr))
        EnableWindow(disabled, TRUE);
}

void ModalRun::End()
{
    const DWORD thread = waiter;
    ended = true;
    PostThreadMessageA(thread, WM_NULL, 0, 0); // the loop may be waiting
}

DialogState* StateOf(HWND dialog)
{
    States& states = All();
    const std::lock_guard lock(states.mutex);
    const auto found = states.byWindow.find(dialog);
    return found == states.byWindow.end() ? nullptr : found->second.get();
}

DialogState& MakeState(HWND dialog)
{
    States& states = All();
    const std::lock_guard lock(states.mutex);
    auto& state = states.byWindow[dialog];
    state = std::make_unique<DialogState>();
    return *state;
}

void DropState(HWND dialog)
{
    States& states = All();
    std::unique_ptr<DialogState> state;
    {
        const std::lock_guard lock(states.mutex);
        if (auto node = states.byWindow.extract(dialog))
            state = std::move(node.mapped());
    }
    if (!state)
        return;
    if (state->font)
        DeleteObject(state->font);
    if (state->run)
        state->run->End();
}

void AbandonForeignRuns()
{
    States& states = All();
    const std::lock_guard lock(states.mutex);
    for (const auto& [dialog, state] : states.byWindow) {
        if (!state->run || state->run->waiter == GetCurrentThreadId())
            continue;
        state->run->result = -1;
        std::exchange(state->run, nullptr)->End();
    }
}
