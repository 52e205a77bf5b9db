#include "Mnemonics.h"

#include "../CodePage.h"
#include "Focus.h"
#include "TabOrder.h"

#include <algorithm>
#include <string>

namespace {

// 0 for a text without one; "&&" is an ampersand.
char MnemonicOf(const std::string& text)
{
    const LeadTable& leads = AnsiLeadBytes();
    for (const char* at = text.c_str(); *at; at += CharacterLength(leads, at)) {
        if (*at != '&')
            continue;
        if (at[1] != '&')
            return at[1];
        ++at;
    }
    return 0;
}

std::string CaptionOf(HWND control)
{
    std::string text(static_cast<size_t>(GetWindowTextLengthA(control)) + 1, '\0');
    text.resize(static_cast<size_t>(GetWindowTextA(control, text.data(), static_cast<int>(text.size()))));
    return text;
}

bool IsLabel(UINT code, LONG style)
{
    return (code & DLGC_STATIC) || ((code & DLGC_BUTTON) && (style & BS_TYPEMASK) == BS_GROUPBOX);
}

bool HasMnemonic(HWND control, WPARAM character)
{
    const UINT code = DialogCode(control);
    const LONG style = GetWindowLongA(control, GWL_STYLE);
    const bool isButton = code & DLGC_BUTTON;
    if (!CanTakeKeys(control) || (!isButton && !(code & DLGC_STATIC)) || (!isButton && (style & SS_NOPREFIX)))
        return false;
    const std::string wanted(1, static_cast<char>(character));
    const std::string found(1, MnemonicOf(CaptionOf(control)));
    return found[0] && FoldCase(found) == FoldCase(wanted);
}

// A label stands for the control behind it.
HWND TargetOf(HWND dialog, HWND control)
{
    const LONG style = GetWindowLongA(control, GWL_STYLE);
    if (!IsLabel(DialogCode(control), style))
        return control;
    const std::vector<HWND> controls = ControlsOf(dialog);
    auto next = std::find(controls.begin(), controls.end(), control);
    while (next != controls.end() &&
           (!CanTakeKeys(*next) || IsLabel(DialogCode(*next), GetWindowLongA(*next, GWL_STYLE))))
        ++next;
    return next == controls.end() ? nullptr : *next;
}

} // namespace

bool PressMnemonic(HWND dialog, HWND from, WPARAM character)
{
    std::vector<HWND> controls = ControlsOf(dialog);
    const auto start = std::find(controls.begin(), controls.end(), from);
    if (start != controls.end())
        std::rotate(controls.begin(), start + 1, controls.end());
    std::erase_if(controls, [character](HWND control) { return !HasMnemonic(control, character); });
    if (controls.empty())
        return false;
    const HWND target = TargetOf(dialog, controls.front());
    if (!target)
        return true;
    SendMessageA(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(target), TRUE);
    // Of several with the same letter the keyboard goes from one to the next.
    if (controls.size() == 1 && target == controls.front())
        SendMessageA(target, BM_CLICK, 0, 0);
    return true;
}
