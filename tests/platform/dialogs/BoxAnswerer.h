// Answers message boxes as a user would, and looks at them.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

// Calls `act` once for each box of the thread that comes up, from a timer. One in another at most as boxes
// are.
class Answerer
{
public:
    explicit Answerer(std::function<void(HWND)> act);
    ~Answerer();
    Answerer(const Answerer&) = delete;
    Answerer& operator=(const Answerer&) = delete;

private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR id, DWORD);

    std::function<void(HWND)> m_act;
    Answerer* m_before;
    UINT_PTR m_timer;
    HWND m_met = nullptr;
};

// Posts what a click on the button sends.
void PressButton(HWND box, int id);

std::string TextOf(HWND window);

// The label with the longest text: the icon's has none.
HWND LabelOf(HWND box);

// The identifiers of the buttons to be seen, in ascending order.
std::vector<int> ButtonsOf(HWND box);
