#include "Widgets.h"

#include <QtCore/QPointer>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>

#include <array>

namespace {

using MouseTest = Widgets;

TEST_F(MouseTest, AClickPressesAButton)
{
    const HWND box = Make("BUTTON", BS_AUTOCHECKBOX, "Box", 10, 10, 100, 20);
    Click(At(15, 15));
    EXPECT_EQ(Told(), "7:0");
    EXPECT_EQ(SendMessageA(box, BM_GETCHECK, 0, 0), BST_CHECKED);
    Press(At(15, 15), QEvent::MouseButtonPress, {5, 5});
    Press(At(15, 15), QEvent::MouseButtonRelease, {5, 500});
    EXPECT_EQ(Told(), "") << "let go outside";
}

TEST_F(MouseTest, DoubleClicksAreToldByTypesThatSaySo)
{
    struct Row {
        const char* label;
        DWORD style;
        const char* told;
    };
    for (const Row& row : {Row{"push", BS_PUSHBUTTON, "7:0 7:0"}, Row{"radio", BS_RADIOBUTTON, "7:0 7:5"},
                           Row{"notify", BS_PUSHBUTTON | BS_NOTIFY, "7:0 7:5"}}) {
        SCOPED_TRACE(row.label);
        const HWND button = Make("BUTTON", row.style, "Button", 10, 10, 100, 20);
        QWidget* widget = At(15, 15);
        Click(widget);
        Press(widget, QEvent::MouseButtonDblClick, {5, 5});
        Press(widget, QEvent::MouseButtonRelease, {5, 5});
        EXPECT_EQ(Told(), row.told);
        DestroyWindow(button);
    }
}

TEST_F(MouseTest, AGroupBoxLetsTheMouseThrough)
{
    Make("BUTTON", BS_GROUPBOX, "Group", 10, 10, 200, 200, 1);
    Make("BUTTON", BS_PUSHBUTTON, "Inside", 30, 30, 80, 20, 2);
    Click(At(35, 35));
    EXPECT_EQ(Told(), "2:0");
}

TEST_F(MouseTest, StaticsTakeClicksWithNotifyOnly)
{
    Make("STATIC", SS_LEFT, "plain", 10, 10, 100, 20, 1);
    Make("STATIC", SS_LEFT | SS_NOTIFY, "telling", 10, 40, 100, 20, 2);
    EXPECT_EQ(At(15, 15), TopLevel(Host()));
    Click(At(15, 45));
    EXPECT_EQ(Told(), "2:0");
}

QPoint MiddleOf(QAbstractItemView* view, int row)
{
    return view->visualRect(view->model()->index(row, 0)).center();
}

TEST_F(MouseTest, AListTellsEveryClickAndDoubleClick)
{
    const HWND list = Make("LISTBOX", LBS_NOTIFY, "", 10, 10, 100, 100);
    for (const char* item : {"a", "b", "c"})
        SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item));
    auto* view = qobject_cast<QAbstractItemView*>(At(15, 15)->parentWidget());
    ASSERT_TRUE(view);
    Click(view->viewport(), MiddleOf(view, 1));
    EXPECT_EQ(Told(), "7:1");
    EXPECT_EQ(SendMessageA(list, LB_GETCURSEL, 0, 0), 1);
    Click(view->viewport(), MiddleOf(view, 1));
    EXPECT_EQ(Told(), "7:1") << "the same item again";
    Press(view->viewport(), QEvent::MouseButtonDblClick, MiddleOf(view, 1));
    EXPECT_EQ(Told(), "7:2");
}

// Both the control that was clicked and all of its window may be gone when the click returns.
TEST_F(MouseTest, AHandlerMayDestroyWhatWasClicked)
{
    struct Row {
        const char* className;
        DWORD style;
    };
    constexpr std::array<Row, 4> kRows = {{
        {"BUTTON", BS_PUSHBUTTON},
        {"BUTTON", BS_AUTORADIOBUTTON | WS_GROUP},
        {"STATIC", SS_NOTIFY},
        {"LISTBOX", LBS_NOTIFY},
    }};
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.className);
        const HWND control = Make(row.className, row.style, "Control", 10, 10, 100, 100);
        SendMessageA(control, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>("item"));
        const QPointer<QWidget> widget = At(15, 15);
        m_onCommand = [control] { DestroyWindow(control); };
        ClickFromLoop(widget);
        EXPECT_FALSE(IsWindow(control));
        EXPECT_FALSE(widget) << "it is kept no longer than needed";
    }
    Make("BUTTON", BS_PUSHBUTTON, "Button", 10, 10, 100, 20);
    m_onCommand = [this] { DestroyWindow(Host()); };
    ClickFromLoop(At(15, 15));
    EXPECT_FALSE(IsWindow(Host()));
}

// A click during a handler's own message loop that destroys the control of the outer click.
TEST_F(MouseTest, NestedLoopsKeepWhatOuterOnesUse)
{
    const HWND first = Make("BUTTON", BS_PUSHBUTTON, "First", 10, 10, 100, 20, 1);
    Make("BUTTON", BS_PUSHBUTTON, "Second", 10, 40, 100, 20, 2);
    const QPointer<QWidget> outer = At(15, 15);
    bool aliveInside = false;
    m_onCommand = [&] {
        m_onCommand = [first] { DestroyWindow(first); };
        Click(At(15, 45));
        Pump();
        aliveInside = outer;
    };
    ClickFromLoop(outer);
    EXPECT_EQ(Told(), "1:0 2:0");
    EXPECT_TRUE(aliveInside);
    EXPECT_FALSE(IsWindow(first));
    EXPECT_FALSE(outer);
}

TEST_F(MouseTest, ADisabledWindowTakesNoInputAndKeepsItsLooks)
{
    Make("BUTTON", BS_PUSHBUTTON, "Button", 10, 10, 100, 20);
    EnableWindow(Host(), FALSE);
    EXPECT_TRUE(At(15, 15)->isEnabled());
    Click(At(15, 15));
    EXPECT_EQ(Told(), "");
    Met();
    TopLevel(Host())->close();
    Pump();
    EXPECT_THAT(Met(), testing::Not(testing::Contains(WM_SYSCOMMAND)));
    EnableWindow(Host(), TRUE);
    Click(At(15, 15));
    EXPECT_EQ(Told(), "7:0");
}

} // namespace
