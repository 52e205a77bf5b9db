// The buttons of message boxes.
#pragma once

#include <winuser.h>

#include <span>
#include <string>

bool IsButtonSet(UINT style);

// The identifiers of the set's buttons from left to right, IDHELP last with MB_HELP.
struct BoxButtons {
    explicit BoxButtons(UINT style);

    std::span<const int> Ids() const { return {m_ids, m_count}; }
    bool Has(int id) const;
    // What `style` says; the first when there are fewer.
    int Default() const { return m_default; }
    // What Escape and the close box answer; 0: nothing, they do not close.
    int Cancel() const;

private:
    int m_ids[4] = {};
    size_t m_count = 0;
    int m_default = IDOK;
};

// The words on a button in a language; with `&` before the letter that presses it.
std::u16string ButtonText(int id, LANGID language);
