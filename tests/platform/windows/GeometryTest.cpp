// Rectangles, frames and coordinates.
#include "Recorder.h"

#include <ostream>

static bool operator==(const RECT& a, const RECT& b)
{
    return EqualRect(&a, &b);
}

static std::ostream& operator<<(std::ostream& out, const RECT& rect)
{
    return out << rect.left << ',' << rect.top << ' ' << rect.right << ',' << rect.bottom;
}

namespace {

RECT WindowRectOf(HWND window)
{
    RECT rect = {};
    GetWindowRect(window, &rect);
    return rect;
}

RECT ClientRectOf(HWND window)
{
    RECT rect = {};
    GetClientRect(window, &rect);
    return rect;
}

} // namespace

TEST(Frames, TakeWhatTheStyleSays)
{
    const struct {
        const char* label;
        DWORD style, exStyle;
        RECT grown; // from 100,100 200,200
    } rows[] = {
        {"popup", WS_POPUP, 0, {100, 100, 200, 200}},
        {"border", WS_POPUP | WS_BORDER, 0, {99, 99, 201, 201}},
        {"dialog frame", WS_POPUP | WS_DLGFRAME, 0, {97, 97, 203, 203}},
        {"caption", WS_POPUP | WS_CAPTION, 0, {97, 78, 203, 203}},
        {"small caption", WS_POPUP | WS_CAPTION, WS_EX_TOOLWINDOW, {97, 81, 203, 203}},
        {"sizing", WS_OVERLAPPEDWINDOW, 0, {96, 77, 204, 204}},
        {"sizing without a caption", WS_POPUP | WS_THICKFRAME, 0, {97, 97, 203, 203}},
        {"modal frame", WS_POPUP | WS_CAPTION, WS_EX_DLGMODALFRAME, {97, 78, 203, 203}},
        {"modal frame alone", WS_POPUP, WS_EX_DLGMODALFRAME, {97, 97, 203, 203}},
        {"client edge", WS_CHILD, WS_EX_CLIENTEDGE, {98, 98, 202, 202}},
        {"static edge", WS_CHILD, WS_EX_STATICEDGE, {99, 99, 201, 201}},
        {"border and edge", WS_CHILD | WS_BORDER, WS_EX_CLIENTEDGE, {97, 97, 203, 203}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        RECT rect = {100, 100, 200, 200};
        EXPECT_TRUE(AdjustWindowRectEx(&rect, row.style, FALSE, row.exStyle));
        EXPECT_EQ(rect, row.grown);
        rect = {100, 100, 200, 200};
        AdjustWindowRectEx(&rect, row.style, TRUE, row.exStyle);
        EXPECT_EQ(rect.top, row.grown.top - GetSystemMetrics(SM_CYMENU));
    }
}

// Over all combinations of the styles that count: a window's own client area is what AdjustWindowRectEx says.
TEST(Frames, AgreeWithTheWindowsThemselves)
{
    constexpr DWORD kStyles[] = {WS_BORDER, WS_DLGFRAME, WS_THICKFRAME};
    constexpr DWORD kExStyles[] = {WS_EX_DLGMODALFRAME, WS_EX_CLIENTEDGE, WS_EX_TOOLWINDOW, WS_EX_STATICEDGE};
    Recorder recorder;
    for (unsigned bits = 0; bits < 1u << 7; ++bits) {
        DWORD style = WS_POPUP, exStyle = 0;
        for (unsigned i = 0; i < 3; ++i)
            style |= bits & (1u << i) ? kStyles[i] : 0;
        for (unsigned i = 0; i < 4; ++i)
            exStyle |= bits & (8u << i) ? kExStyles[i] : 0;
        const HWND window = recorder.Make("A", style, nullptr, exStyle);
        style = static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE));
        exStyle = static_cast<DWORD>(GetWindowLongA(window, GWL_EXSTYLE));
        SCOPED_TRACE(testing::Message() << std::hex << style << ' ' << exStyle);
        RECT rect = ClientRectOf(window);
        MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&rect), 2);
        AdjustWindowRectEx(&rect, style, FALSE, exStyle);
        EXPECT_EQ(rect, WindowRectOf(window));
        DestroyWindow(window);
    }
}

TEST(Coordinates, OfNestedWindowsRoundTrip)
{
    Recorder recorder;
    const HWND top = recorder.Make("A", WS_OVERLAPPEDWINDOW);
    const HWND child = recorder.Make("B", WS_CHILD | WS_BORDER, top);
    const HWND inner = recorder.Make("C", WS_CHILD, child);
    EXPECT_EQ(WindowRectOf(child), (RECT{24, 63, 224, 163}));
    EXPECT_EQ(ClientRectOf(child), (RECT{0, 0, 198, 98}));
    EXPECT_EQ(WindowRectOf(inner), (RECT{35, 84, 235, 184}));
    POINT point = {5, 7};
    EXPECT_TRUE(ClientToScreen(inner, &point));
    EXPECT_EQ(point.x, 40);
    EXPECT_EQ(point.y, 91);
    EXPECT_TRUE(ScreenToClient(inner, &point));
    EXPECT_EQ(point.x, 5);
    EXPECT_EQ(point.y, 7);
    EXPECT_EQ(MapWindowPoints(inner, top, &point, 1), MAKELONG(21, 41));
    EXPECT_EQ(point.x, 26);
    EXPECT_EQ(point.y, 48);
    EXPECT_EQ(MapWindowPoints(top, inner, &point, 1), static_cast<int>(MAKELONG(-21, -41)));
    SetLastError(0);
    EXPECT_FALSE(ScreenToClient(reinterpret_cast<HWND>(0x1234567), &point));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
}

TEST(Moving, TellsWhatChanged)
{
    Recorder recorder;
    const HWND top = recorder.Make("A", WS_OVERLAPPEDWINDOW | WS_VISIBLE);
    const HWND child = recorder.Make("B", WS_CHILD | WS_VISIBLE, top);
    const std::string changing = "B WM_WINDOWPOSCHANGING", changed = "B WM_WINDOWPOSCHANGED";
    const struct {
        const char* label;
        int x, y, width, height;
        std::vector<std::string> lines;
        RECT client;
    } rows[] = {
        {"both", 1, 2, 30, 40, {changing, changed, "B WM_MOVE 1,2", "B WM_SIZE 0 30x40"}, {0, 0, 30, 40}},
        {"nothing", 1, 2, 30, 40, {changing}, {0, 0, 30, 40}},
        {"place", 2, 2, 30, 40, {changing, changed, "B WM_MOVE 2,2"}, {0, 0, 30, 40}},
        {"size", 2, 2, 31, 40, {changing, changed, "B WM_SIZE 0 31x40"}, {0, 0, 31, 40}},
        {"less than nothing", 2, 2, -5, 40, {changing, changed, "B WM_SIZE 0 0x40"}, {0, 0, 0, 40}},
        {"before the parent",
         -10,
         -20,
         5,
         5,
         {changing, changed, "B WM_MOVE -10,-20", "B WM_SIZE 0 5x5"},
         {0, 0, 5, 5}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        recorder.Clear();
        EXPECT_TRUE(MoveWindow(child, row.x, row.y, row.width, row.height, TRUE));
        EXPECT_EQ(recorder.Lines(), row.lines);
        EXPECT_EQ(ClientRectOf(child), row.client);
    }
}

TEST(Moving, CanBeChangedOnTheWay)
{
    Recorder recorder;
    const HWND window = recorder.MakeMessageOnly("A");
    recorder.On(WM_WINDOWPOSCHANGING, [](HWND, UINT, WPARAM, LPARAM lParam) -> LRESULT {
        reinterpret_cast<WINDOWPOS*>(lParam)->cx = 77;
        return 0;
    });
    SetWindowPos(window, nullptr, 5, 6, 100, 50, SWP_NOZORDER);
    EXPECT_EQ(WindowRectOf(window), (RECT{5, 6, 82, 56}));
    SetWindowPos(window, nullptr, 5, 6, 100, 50, SWP_NOZORDER | SWP_NOSENDCHANGING);
    EXPECT_EQ(WindowRectOf(window), (RECT{5, 6, 105, 56}));
    SetWindowPos(window, nullptr, 9, 9, 1, 1, SWP_NOZORDER | SWP_NOSENDCHANGING | SWP_NOSIZE);
    EXPECT_EQ(WindowRectOf(window), (RECT{9, 9, 109, 59}));
}

TEST(Metrics, AreThoseOfTheClassicLook)
{
    const struct {
        const char* label;
        int index, value;
    } rows[] = {
        {"caption", SM_CYCAPTION, 19},
        {"sizing frame", SM_CXSIZEFRAME, 4},
        {"fixed frame", SM_CYFIXEDFRAME, 3},
        {"edge", SM_CXEDGE, 2},
        {"border", SM_CXBORDER, 1},
        {"icon", SM_CXICON, 32},
        {"small icon", SM_CXSMICON, 16},
        {"menu", SM_CYMENU, 19},
        {"small caption", SM_CYSMCAPTION, 16},
        {"unknown", 12345, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(GetSystemMetrics(row.index), row.value);
    }
    RECT area = {};
    EXPECT_TRUE(SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0));
    EXPECT_GT(GetSystemMetrics(SM_CXSCREEN), 0);
    EXPECT_LE(area.right - area.left, GetSystemMetrics(SM_CXSCREEN));
    EXPECT_LE(area.bottom - area.top, GetSystemMetrics(SM_CYSCREEN));
}
