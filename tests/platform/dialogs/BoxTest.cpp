// Message boxes as a user would see and answer them.
#include "BoxAnswerer.h"

#include <gmock/gmock.h>

TEST(Boxes, EverySetHasItsButtonsAndDefaults)
{
    const struct {
        UINT set;
        std::vector<int> buttons;  // in ascending order
        std::vector<int> defaults; // of MB_DEFBUTTON1 to 3
    } kRows[] = {
        {MB_OK, {IDOK}, {IDOK}},
        {MB_OKCANCEL, {IDOK, IDCANCEL}, {IDOK, IDCANCEL}},
        {MB_ABORTRETRYIGNORE, {IDABORT, IDRETRY, IDIGNORE}, {IDABORT, IDRETRY, IDIGNORE}},
        {MB_YESNOCANCEL, {IDCANCEL, IDYES, IDNO}, {IDYES, IDNO, IDCANCEL}},
        {MB_YESNO, {IDYES, IDNO}, {IDYES, IDNO}},
        {MB_RETRYCANCEL, {IDCANCEL, IDRETRY}, {IDRETRY, IDCANCEL}},
        {MB_CANCELTRYCONTINUE, {IDCANCEL, IDTRYAGAIN, IDCONTINUE}, {IDCANCEL, IDTRYAGAIN, IDCONTINUE}},
    };
    for (const auto& row : kRows) {
        for (UINT standard = 0; standard < row.defaults.size(); ++standard) {
            SCOPED_TRACE(row.set * 10 + standard);
            const Answerer answerer([&](HWND box) {
                EXPECT_EQ(row.buttons, ButtonsOf(box));
                EXPECT_EQ(GetDlgItem(box, row.defaults[standard]), GetFocus());
                PressButton(box, GetDlgCtrlID(GetFocus()));
            });
            EXPECT_EQ(row.defaults[standard],
                      MessageBoxA(nullptr, "text", "caption", row.set | standard << 8));
        }
    }
}

TEST(Boxes, AnswerWhatTheyAreEndedWith)
{
    for (const int answer : {0, int{IDNO}, 99}) {
        const Answerer answerer([&](HWND box) { EndDialog(box, answer); });
        EXPECT_EQ(answer, MessageBoxA(nullptr, "text", "caption", MB_OK));
    }
}

TEST(Boxes, TheCloseBoxIsTheCancelButton)
{
    for (const UINT set : {MB_OKCANCEL, MB_YESNOCANCEL, MB_RETRYCANCEL, MB_CANCELTRYCONTINUE}) {
        SCOPED_TRACE(set);
        const Answerer answerer([](HWND box) { PostMessageA(box, WM_CLOSE, 0, 0); });
        EXPECT_EQ(IDCANCEL, MessageBoxA(nullptr, "text", "caption", set));
    }
}

TEST(Boxes, ShowTheirTexts)
{
    const struct {
        const char* text;
        const char* caption;
    } kRows[] = {
        {"A message.", "Caption"},
        {"Two\nlines & more", "A & B"},
        {"100 %s", nullptr},
        {"A long message that does not fit into one line of the box, since it goes on and on, and then "
         "some more, so that it takes two lines of it at the very least, or even three.",
         "x"}};
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.text);
        const Answerer answerer([&](HWND box) {
            EXPECT_EQ(row.caption ? row.caption : "Error", TextOf(box));
            const HWND label = LabelOf(box);
            EXPECT_EQ(row.text, TextOf(label));
            RECT outer = {};
            RECT inner = {};
            GetClientRect(box, &outer);
            GetClientRect(label, &inner);
            MapWindowPoints(label, box, reinterpret_cast<POINT*>(&inner), 2);
            EXPECT_TRUE(inner.left >= 0 && inner.top >= 0);
            EXPECT_TRUE(inner.right <= outer.right && inner.bottom < outer.bottom);
            RECT button = {};
            GetWindowRect(GetDlgItem(box, IDOK), &button);
            MapWindowPoints(nullptr, box, reinterpret_cast<POINT*>(&button), 2);
            EXPECT_TRUE(button.top >= inner.bottom && button.bottom <= outer.bottom);
            EndDialog(box, IDOK);
        });
        EXPECT_EQ(IDOK, MessageBoxA(nullptr, row.text, row.caption, MB_OK | MB_ICONWARNING));
    }
}

TEST(Boxes, AreAsTallAsTheirText)
{
    const auto heightOf = [](const char* text) {
        LONG height = 0;
        const Answerer answerer([&](HWND box) {
            RECT client = {};
            GetClientRect(box, &client);
            height = client.bottom;
            EndDialog(box, IDOK);
        });
        MessageBoxA(nullptr, text, "caption", MB_OK);
        return height;
    };
    const LONG one = heightOf("a");
    const LONG three = heightOf("a\nb\nc");
    const LONG nine = heightOf("a\nb\nc\nd\ne\nf\ng\nh\ni");
    EXPECT_LT(one, three);
    EXPECT_NEAR(nine - three, (three - one) * 3, 3);
}

TEST(Boxes, ShowTheIconAskedFor)
{
    const struct {
        UINT style;
        LPCSTR icon;
    } kRows[] = {{MB_ICONHAND, IDI_HAND},
                 {MB_ICONQUESTION, IDI_QUESTION},
                 {MB_ICONEXCLAMATION, IDI_EXCLAMATION},
                 {MB_ICONASTERISK, IDI_ASTERISK},
                 {0, nullptr}};
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.style);
        const Answerer answerer([&](HWND box) {
            HICON shown = nullptr;
            for (HWND child = GetWindow(box, GW_CHILD); child && !shown;
                 child = GetWindow(child, GW_HWNDNEXT))
                if (IsWindowVisible(child) && child != LabelOf(box))
                    shown = reinterpret_cast<HICON>(SendMessageA(child, STM_GETICON, 0, 0));
            EXPECT_EQ(row.icon ? LoadIconA(nullptr, row.icon) : nullptr, shown);
            EndDialog(box, IDOK);
        });
        MessageBoxA(nullptr, "text", "caption", MB_OK | row.style);
    }
}

TEST(Boxes, DisableTheirOwner)
{
    const HWND owner = CreateWindowExA(0, "Static", "owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10, 200,
                                       100, nullptr, nullptr, nullptr, nullptr);
    const struct {
        HWND owner;
        UINT style;
        bool disabled;
    } kRows[] = {{owner, 0, true}, {nullptr, 0, false}, {nullptr, MB_TASKMODAL, true}};
    for (const auto& row : kRows) {
        const Answerer answerer([&](HWND box) {
            EXPECT_EQ(row.disabled, !IsWindowEnabled(owner));
            EXPECT_TRUE(IsWindowEnabled(box));
            EndDialog(box, IDOK);
        });
        EXPECT_EQ(IDOK, MessageBoxA(row.owner, "text", "caption", row.style));
        EXPECT_TRUE(IsWindowEnabled(owner));
    }
    DestroyWindow(owner);
}

TEST(Boxes, OneMayComeUpInAnother)
{
    std::vector<int> answers;
    const Answerer outer([&](HWND box) {
        {
            const Answerer inner([&](HWND second) {
                EXPECT_NE(box, second);
                EndDialog(second, IDNO);
            });
            answers.push_back(MessageBoxA(box, "inner", "inner", MB_YESNO));
        }
        EXPECT_TRUE(IsWindowEnabled(box));
        EndDialog(box, IDYES);
    });
    answers.push_back(MessageBoxA(nullptr, "outer", "outer", MB_YESNO));
    EXPECT_THAT(answers, testing::ElementsAre(IDNO, IDYES));
}

TEST(Boxes, TheOuterMayBeAnsweredFirst)
{
    HWND first = nullptr;
    int inner = 0;
    const Answerer outer([&](HWND box) {
        first = box;
        const Answerer answerer([&](HWND second) {
            EndDialog(first, IDYES);
            EXPECT_FALSE(IsWindowVisible(first));
            EndDialog(second, IDNO);
        });
        inner = MessageBoxA(nullptr, "inner", "inner", MB_YESNO);
    });
    EXPECT_EQ(IDYES, MessageBoxA(nullptr, "outer", "outer", MB_YESNO));
    EXPECT_EQ(IDNO, inner);
    EXPECT_FALSE(IsWindow(first));
}

TEST(Boxes, TheFirstAnswerCounts)
{
    HWND answered = nullptr;
    const Answerer answerer([&](HWND box) {
        answered = box;
        PressButton(box, IDNO);
        PressButton(box, IDYES);
        SetTimer(box, 1, USER_TIMER_MINIMUM, nullptr);
    });
    EXPECT_EQ(IDNO, MessageBoxA(nullptr, "text", "caption", MB_YESNOCANCEL));
    EXPECT_FALSE(PostMessageA(answered, WM_COMMAND, IDYES, 0));
    EXPECT_EQ(static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE), GetLastError());
    MSG message = {};
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
        EXPECT_NE(answered, message.hwnd) << message.message;
}

TEST(Boxes, GoWithTheirOwner)
{
    const HWND owner = CreateWindowExA(0, "Static", "owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10, 200,
                                       100, nullptr, nullptr, nullptr, nullptr);
    HWND gone = nullptr;
    const Answerer answerer([&](HWND box) {
        gone = box;
        DestroyWindow(owner);
    });
    EXPECT_EQ(0, MessageBoxA(owner, "text", "caption", MB_YESNO));
    EXPECT_FALSE(IsWindow(gone));
}
