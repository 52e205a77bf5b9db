#include "State.h"

#include <wingdi.h>

#include <map>
#include <memory>
#include <mutex>

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
    if (owner)
        EnableWindow(owner, TRUE);
    owner = nullptr;
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
    if (state->run) {
        state->run->ended = true;
        PostMessageA(nullptr, WM_NULL, 0, 0); // the loop may be waiting
    }
}
