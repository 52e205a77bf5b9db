// What a thread knows of its windows' objects.
#pragma once

#include <afxexc_.h>
#include <afxwnd_.h>

#include <memory>
#include <unordered_map>

struct WndState {
    WndState() = default;
    ~WndState();
    WndState(const WndState&) = delete;
    WndState& operator=(const WndState&) = delete;

    std::unordered_map<HWND, CWnd*> permanent;
    std::unordered_map<HWND, std::unique_ptr<CWnd>> temporary;
    CWnd* windowInMaking = nullptr; // takes the next new window of a class of ours
    CWnd* dialogInMaking = nullptr; // takes the next new dialog
    const MSG* current = nullptr;   // the message whose handler runs
    HWND silenced = nullptr;        // its controls' notifications are not heard: UpdateData is at work
};

// Null when the thread has given its state up at its end.
WndState* AfxWndState();

// A value that is set back at the end of the scope.
template <class T>
class AfxRestored
{
public:
    AfxRestored(T& variable, T value) : m_variable(variable), m_before(variable) { variable = value; }
    ~AfxRestored() { m_variable = m_before; }
    AfxRestored(const AfxRestored&) = delete;
    AfxRestored& operator=(const AfxRestored&) = delete;

private:
    T& m_variable;
    T m_before;
};
