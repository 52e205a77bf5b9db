#include "Widgets.h"

#include <QtCore/QPointer>
#include <QtWidgets/QApplication>

#include <array>
#include <cstdio>
#include <cstring>

namespace {

using WindowTest = Widgets;
using testing::Contains;

TEST_F(WindowTest, TheCloseBoxAsksAndTheWindowStays)
{
    TopLevel(Host())->close();
    Pump();
    EXPECT_THAT(Met(), Contains(WM_CLOSE));
    EXPECT_TRUE(IsWindow(Host()));
    EXPECT_TRUE(TopLevel(Host())->isVisible());
}

TEST_F(WindowTest, TheUsersMovesAreTold)
{
    QWidget* widget = TopLevel(Host());
    RECT before;
    GetClientRect(Host(), &before);
    Met();
    widget->setGeometry(200, 150, 333, 222);
    Pump();
    const auto met = Met();
    EXPECT_THAT(met, Contains(WM_MOVE));
    EXPECT_THAT(met, Contains(WM_SIZE));
    RECT client;
    GetClientRect(Host(), &client);
    EXPECT_EQ(client.right, 333);
    EXPECT_EQ(client.bottom, 222);
    POINT corner = {0, 0};
    ClientToScreen(Host(), &corner);
    EXPECT_EQ(corner.x, 200);
    EXPECT_EQ(corner.y, 150);
}

TEST_F(WindowTest, WidgetsLieWhereTheirClientAreasAre)
{
    POINT corner = {0, 0};
    ClientToScreen(Host(), &corner);
    RECT client;
    GetClientRect(Host(), &client);
    EXPECT_EQ(TopLevel(Host())->geometry(), QRect(corner.x, corner.y, client.right, client.bottom));

    const HWND button = Make("BUTTON", BS_PUSHBUTTON, "Button", 13, 17, 101, 23);
    EXPECT_EQ(At(15, 20)->geometry(), QRect(13, 17, 101, 23));
    MoveWindow(button, 30, 40, 50, 60, TRUE);
    EXPECT_EQ(At(35, 45)->geometry(), QRect(30, 40, 50, 60));
}

// A label that is as wide as its measured text shows all of it.
TEST_F(WindowTest, TextsAreShownAsWideAsTheyAreMeasured)
{
    static constexpr char kText[] = "AVATAR Tower, Te. after 5 seconds";
    const HWND button = Make("BUTTON", BS_PUSHBUTTON, kText, 10, 10, 100, 20);
    for (const char* face : {"MS Shell Dlg", "Gulim", "Courier New", "no such family"})
        for (const LONG height : {-11, -12, -16, 20}) {
            SCOPED_TRACE(testing::Message() << face << ' ' << height);
            LOGFONTA description = {};
            description.lfHeight = height;
            description.lfWeight = FW_NORMAL;
            std::snprintf(description.lfFaceName, sizeof description.lfFaceName, "%s", face);
            const HFONT font = CreateFontIndirectA(&description);
            SendMessageA(button, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
            const HDC dc = GetDC(button);
            const HGDIOBJ before = SelectObject(dc, font);
            SIZE measured = {};
            GetTextExtentPoint32A(dc, kText, static_cast<int>(std::strlen(kText)), &measured);
            const QFontMetrics shown(At(15, 15)->font());
            EXPECT_EQ(shown.horizontalAdvance(QLatin1String(kText)), measured.cx);
            EXPECT_EQ(shown.ascent() + shown.descent(), measured.cy);
            SelectObject(dc, before);
            ReleaseDC(button, dc);
            DeleteObject(font);
        }
}

TEST_F(WindowTest, StylesMakeTheFrame)
{
    struct Row {
        const char* label;
        DWORD style;
        DWORD exStyle;
        bool owned;
        Qt::WindowFlags has;
        Qt::WindowFlags hasNot;
    };
    const std::array<Row, 6> kRows = {{
        {"dialog", WS_POPUP | WS_CAPTION | WS_SYSMENU, 0, true, Qt::Dialog | Qt::WindowCloseButtonHint,
         Qt::WindowMinimizeButtonHint | Qt::FramelessWindowHint},
        {"dialog of its own", WS_POPUP | WS_CAPTION, 0, false, Qt::Dialog, Qt::WindowMinimizeButtonHint},
        {"no close box", WS_POPUP | WS_CAPTION, 0, true, Qt::WindowTitleHint, Qt::WindowCloseButtonHint},
        {"bare", WS_POPUP, 0, true, Qt::FramelessWindowHint, Qt::WindowTitleHint},
        {"boxes", WS_OVERLAPPEDWINDOW, 0, true, Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint,
         Qt::WindowStaysOnTopHint},
        {"on top", WS_POPUP | WS_CAPTION, WS_EX_TOPMOST, true, Qt::WindowStaysOnTopHint,
         Qt::FramelessWindowHint},
    }};
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        const HWND window = CreateWindowExA(row.exStyle, "Widgets", row.label, row.style, 10, 10, 200, 100,
                                            row.owned ? Host() : nullptr, nullptr, nullptr, nullptr);
        QWidget* widget = TopLevel(window);
        ASSERT_TRUE(widget);
        EXPECT_EQ(widget->windowFlags() & row.has, row.has);
        EXPECT_EQ(widget->windowFlags() & row.hasNot, Qt::WindowFlags());
        EXPECT_EQ(widget->minimumSize() == widget->maximumSize(), !(row.style & WS_THICKFRAME));
        EXPECT_FALSE(widget->isVisible());
        EXPECT_EQ(widget->parentWidget(), row.owned ? TopLevel(Host()) : nullptr);
        DestroyWindow(window);
    }
}

TEST_F(WindowTest, ComingToADisabledWindowBringsItsPopupUp)
{
    const HWND popup = CreateWindowExA(0, "Widgets", "Popup", WS_POPUP | WS_CAPTION | WS_VISIBLE, 10, 10, 200,
                                       100, Host(), nullptr, nullptr, nullptr);
    EnableWindow(Host(), FALSE);
    Click(TopLevel(Host()));
    Pump();
    EXPECT_EQ(QApplication::activeWindow(), TopLevel(popup));
    EnableWindow(Host(), TRUE);
}

TEST_F(WindowTest, FocusGoesBothWays)
{
    const HWND edit = Make("EDIT", 0, "", 10, 10, 100, 20, 1);
    const HWND button = Make("BUTTON", BS_PUSHBUTTON, "Button", 10, 40, 100, 20, 2);
    SetFocus(edit);
    EXPECT_EQ(QApplication::focusWidget(), At(15, 15));
    At(15, 45)->setFocus(Qt::MouseFocusReason);
    Pump();
    EXPECT_EQ(GetFocus(), button);
    EnableWindow(button, FALSE);
    EXPECT_FALSE(At(15, 45)->isEnabled());
}

TEST_F(WindowTest, AListShowsWholeRowsInAnotherFontToo)
{
    const HWND list = Make("LISTBOX", WS_BORDER, "", 10, 10, 100, 100);
    for (const int height : {11, 17}) {
        const HFONT font =
            CreateFontA(-height, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, "Arial");
        SendMessageA(list, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
        RECT client;
        GetClientRect(list, &client);
        EXPECT_EQ(client.bottom % SendMessageA(list, LB_GETITEMHEIGHT, 0, 0), 0);
        SendMessageA(list, WM_SETFONT, 0, FALSE);
        DeleteObject(font);
    }
}

// Children are made, and are gone again, in any order that their windows are.
TEST_F(WindowTest, WidgetsEndWithTheirWindows)
{
    const HWND page = Make("Widgets", 0, "Page", 0, 0, 300, 300);
    const HWND inner =
        CreateWindowExA(0, "EDIT", "", WS_CHILD | WS_VISIBLE, 5, 5, 50, 20, page, nullptr, nullptr, nullptr);
    const QPointer<QWidget> innerWidget = At(10, 10);
    const QPointer<QWidget> pageWidget = innerWidget->parentWidget();
    SetParent(inner, Host());
    EXPECT_EQ(innerWidget->parentWidget(), TopLevel(Host()));
    DestroyWindow(page);
    EXPECT_FALSE(pageWidget);
    EXPECT_TRUE(innerWidget);
    DestroyWindow(inner);
    EXPECT_FALSE(innerWidget);
}

} // namespace
