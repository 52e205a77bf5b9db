// A machine without a display: everything answers at once.
#include "TemplateText.h"
#include "TestIds.h"

#include <gtest/gtest.h>

namespace {

INT_PTR CALLBACK Nothing(HWND, UINT, WPARAM, LPARAM)
{
    return FALSE;
}

} // namespace

TEST(NoDisplay, BoxesPrintTheirTextOnceAndAnswerTheDefault)
{
    const struct {
        UINT style;
        int answer;
    } kRows[] = {{MB_OK, IDOK},
                 {MB_OKCANCEL, IDOK},
                 {MB_OKCANCEL | MB_DEFBUTTON2, IDCANCEL},
                 {MB_ABORTRETRYIGNORE | MB_DEFBUTTON2, IDRETRY},
                 {MB_ABORTRETRYIGNORE | MB_DEFBUTTON3, IDIGNORE},
                 {MB_YESNOCANCEL | MB_DEFBUTTON3, IDCANCEL},
                 {MB_YESNO | MB_ICONQUESTION, IDYES},
                 {MB_YESNO | MB_DEFBUTTON2 | MB_ICONWARNING, IDNO},
                 {MB_YESNO | MB_DEFBUTTON3, IDYES},
                 {MB_RETRYCANCEL, IDRETRY},
                 {MB_CANCELTRYCONTINUE | MB_DEFBUTTON2, IDTRYAGAIN},
                 {MB_OK | MB_HELP | MB_DEFBUTTON2, IDOK}};
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.style);
        testing::internal::CaptureStderr();
        const int answer = MessageBoxA(nullptr, "the 100 %s text", "Caption", row.style);
        EXPECT_EQ("Caption: the 100 %s text\n", testing::internal::GetCapturedStderr());
        EXPECT_EQ(row.answer, answer);
    }
    testing::internal::CaptureStderr();
    MessageBoxA(nullptr, nullptr, nullptr, MB_OK);
    EXPECT_EQ("Error: \n", testing::internal::GetCapturedStderr());
    testing::internal::CaptureStderr();
    EXPECT_EQ(0, MessageBoxA(nullptr, "no such set", "Caption", 7));
    EXPECT_EQ("", testing::internal::GetCapturedStderr());
}

TEST(NoDisplay, DialogsCannotBeMade)
{
    const TemplateText shape(true, WS_POPUP | DS_SETFONT, 0, 0, 60, 40);
    EXPECT_EQ(-1, DialogBoxIndirectParamA(nullptr, shape.Get(), nullptr, &Nothing, 0));
    EXPECT_EQ(static_cast<DWORD>(ERROR_NOT_SUPPORTED), GetLastError());
    EXPECT_EQ(-1, DialogBoxParamA(nullptr, MAKEINTRESOURCEA(IDD_FULL), nullptr, &Nothing, 0));
    EXPECT_EQ(nullptr, CreateDialogIndirectParamA(nullptr, shape.Get(), nullptr, &Nothing, 0));
}
