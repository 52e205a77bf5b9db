// Windows that write down what they are told.
//
//   Recorder recorder;
//   const HWND window = recorder.Make("A", WS_OVERLAPPEDWINDOW);
//   recorder.Clear();
//   ShowWindow(window, SW_SHOW);
//   EXPECT_THAT(recorder.Lines(), ElementsAre("A WM_SHOWWINDOW 1", ...));
#pragma once

#include <gmock/gmock.h>
#include <windows.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

class Recorder
{
public:
    using Handler = std::function<LRESULT(HWND, UINT, WPARAM, LPARAM)>;

    Recorder();
    // Destroys what is left of its windows.
    ~Recorder();
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    // At (10, 20), 200 wide and 100 high; the name is its text too.
    HWND Make(const std::string& name, DWORD style, HWND parent = nullptr, DWORD exStyle = 0);
    HWND MakeMessageOnly(const std::string& name) { return Make(name, 0, HWND_MESSAGE); }

    // "NAME MESSAGE DETAIL" of the messages that tell of a window's life and state, in their order.
    const std::vector<std::string>& Lines() const { return m_lines; }
    // The same without those of other windows.
    std::vector<std::string> LinesOf(const std::string& name) const;
    void Clear() { m_lines.clear(); }
    void Note(const std::string& line) { m_lines.push_back(line); }

    // Answers a message in place of DefWindowProc.
    void On(UINT message, Handler handler) { m_handlers[message] = std::move(handler); }

    std::string NameOf(HWND window) const;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    std::map<HWND, std::string> m_names;
    std::map<UINT, Handler> m_handlers;
    std::vector<std::string> m_lines;
    std::vector<HWND> m_made;
    std::string m_making;
};

// Runs the calling thread's messages until WM_QUIT and answers its code.
int RunLoop();
