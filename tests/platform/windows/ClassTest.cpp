// Window classes.
#include "Recorder.h"

namespace {

constexpr const char* kName = "zek_class_test";

WNDCLASSEXA Description(const char* name)
{
    WNDCLASSEXA description = {};
    description.cbSize = sizeof description;
    description.style = CS_DBLCLKS;
    description.lpfnWndProc = DefWindowProcA;
    description.cbWndExtra = 12;
    description.hInstance = GetModuleHandleA(nullptr);
    description.lpszClassName = name;
    return description;
}

} // namespace

TEST(Classes, AreRegisteredOnce)
{
    const WNDCLASSEXA description = Description(kName), other = Description("ZEK_Class_TEST");
    const HINSTANCE own = GetModuleHandleA(nullptr);
    const ATOM atom = RegisterClassExA(&description);
    EXPECT_GE(atom, 0xc000);
    SetLastError(0);
    EXPECT_EQ(RegisterClassExA(&other), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_CLASS_ALREADY_EXISTS));
    WNDCLASSEXA found = {};
    found.cbSize = sizeof found;
    EXPECT_TRUE(GetClassInfoExA(own, "ZEK_class_test", &found));
    EXPECT_EQ(found.cbWndExtra, 12);
    EXPECT_EQ(found.style, static_cast<UINT>(CS_DBLCLKS));
    EXPECT_FALSE(GetClassInfoExA(nullptr, kName, &found)); // that asks for the system's own
    EXPECT_TRUE(UnregisterClassA(kName, own));
    EXPECT_FALSE(GetClassInfoExA(own, kName, &found));
    EXPECT_FALSE(UnregisterClassA(kName, own));
}

TEST(Classes, StayWhileThereAreWindows)
{
    const WNDCLASSEXA description = Description(kName);
    const ATOM atom = RegisterClassExA(&description);
    const HWND window =
        CreateWindowExA(0, MAKEINTATOM(atom), "", 0, 0, 0, 1, 1, HWND_MESSAGE, nullptr, nullptr, nullptr);
    ASSERT_TRUE(window);
    SetLastError(0);
    EXPECT_FALSE(UnregisterClassA(kName, GetModuleHandleA(nullptr)));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_CLASS_HAS_WINDOWS));
    DestroyWindow(window);
    EXPECT_TRUE(UnregisterClassA(kName, GetModuleHandleA(nullptr)));
}

TEST(Classes, NeedAProcedureAndAName)
{
    WNDCLASSEXA description = Description(nullptr);
    EXPECT_FALSE(RegisterClassExA(&description));
    description = Description(kName);
    description.cbSize = 3;
    EXPECT_FALSE(RegisterClassExA(&description));
}

TEST(Classes, OfTheSystemAreThere)
{
    for (const char* name : {"Button", "STATIC", "edit", "ListBox", "ComboBox", "#32770", "MDIClient"}) {
        SCOPED_TRACE(name);
        WNDCLASSA found = {};
        EXPECT_TRUE(GetClassInfoA(nullptr, name, &found));
        EXPECT_TRUE(found.lpfnWndProc);
    }
    WNDCLASSA dialog = {};
    GetClassInfoA(nullptr, "#32770", &dialog);
    EXPECT_EQ(dialog.cbWndExtra, DLGWINDOWEXTRA);
}

TEST(Classes, AreNamedWithinTheBuffer)
{
    const HWND window =
        CreateWindowExA(0, "Button", "", WS_CHILD, 0, 0, 1, 1, HWND_MESSAGE, nullptr, nullptr, nullptr);
    ASSERT_TRUE(window);
    const struct {
        const char* label;
        int size, answer;
        const char* text;
    } rows[] = {
        {"roomy", 20, 6, "Button"}, {"exact", 7, 6, "Button"}, {"short", 4, 3, "But"}, {"one", 1, 0, ""}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        char buffer[24];
        std::fill(std::begin(buffer), std::end(buffer), '#');
        EXPECT_EQ(GetClassNameA(window, buffer, row.size), row.answer);
        EXPECT_STREQ(buffer, row.text);
        EXPECT_EQ(buffer[row.answer + 1], '#');
    }
    char untouched = '#';
    EXPECT_EQ(GetClassNameA(window, &untouched, 0), 0);
    EXPECT_EQ(untouched, '#');
    DestroyWindow(window);
}
