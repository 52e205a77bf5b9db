// A visible window to put controls on, which writes down what they tell it.
#pragma once

#include <gmock/gmock.h>
#include <windows.h>

#include <string>
#include <vector>

std::string TextOf(HWND window);

// A message to a control and what must come of it.
struct Step {
    const char* label;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    LRESULT answer;
    const char* told = "";      // the codes, in hexadecimal, with blanks between
    const char* text = nullptr; // of the control afterwards; null: not looked at
};
constexpr LRESULT kAnyAnswer = 0x7edcba98;

inline LPARAM Text(const char* text)
{
    return reinterpret_cast<LPARAM>(text);
}

class ControlHost : public testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;

    // A control with the identifier kId, 120 pixels wide.
    HWND Make(const char* className, DWORD style, const char* text = "", int height = 100, int id = kId);
    HWND Host() const { return m_host; }

    // The codes told since the last call, those of controls other than kId as "id:code".
    std::string Told();

    template <class Steps>
    void Run(HWND control, const Steps& steps)
    {
        for (const auto& step : steps) {
            SCOPED_TRACE(step.label);
            Told();
            const LRESULT answer = SendMessageA(control, step.message, step.wParam, step.lParam);
            if (step.answer != kAnyAnswer) {
                EXPECT_EQ(answer, step.answer);
            }
            EXPECT_EQ(Told(), step.told);
            if (step.text) {
                EXPECT_EQ(TextOf(control), step.text);
            }
        }
    }

    static constexpr int kId = 7;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HWND m_host = nullptr;
};
