// A control's messages as a table: what it does not list is not the control's.
#pragma once

#include <windows.h>

#include <span>

template <class Control>
struct MessageRow {
    UINT message;
    LRESULT (Control::*handle)(WPARAM wParam, LPARAM lParam);
};

template <class Control>
bool HandleMessage(Control& control, std::span<const MessageRow<Control>> rows, UINT message, WPARAM wParam,
                   LPARAM lParam, LRESULT& result)
{
    for (const auto& row : rows) {
        if (row.message != message)
            continue;
        result = (control.*row.handle)(wParam, lParam);
        return true;
    }
    return false;
}
