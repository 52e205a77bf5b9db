// Parents, owners, siblings, and looking for windows.
#include "Recorder.h"

using testing::ElementsAre;

namespace {

class Family : public testing::Test
{
protected:
    Recorder m_recorder;
    HWND m_top = m_recorder.Make("A", WS_OVERLAPPEDWINDOW);
    HWND m_first = m_recorder.Make("B", WS_CHILD, m_top);
    HWND m_second = m_recorder.Make("C", WS_CHILD, m_top);
    HWND m_inner = m_recorder.Make("D", WS_CHILD, m_first);
    HWND m_popup = m_recorder.Make("P", WS_POPUP, m_inner);
    HWND m_unseen = m_recorder.MakeMessageOnly("M");
};

struct Collector {
    const Recorder& recorder;
    std::vector<std::string> names;
    size_t most = 100;

    static BOOL CALLBACK Add(HWND window, LPARAM data)
    {
        auto& self = *reinterpret_cast<Collector*>(data);
        const std::string name = self.recorder.NameOf(window);
        if (name != "?")
            self.names.push_back(name);
        return self.names.size() < self.most;
    }
};

} // namespace

TEST_F(Family, KnowsItsMembers)
{
    const HWND desktop = GetDesktopWindow();
    const struct {
        const char* label;
        HWND answer, expected;
    } rows[] = {
        {"parent of a child", GetParent(m_first), m_top},
        {"parent of a popup is its owner", GetParent(m_popup), m_top},
        {"parent of a top-level window", GetParent(m_top), nullptr},
        {"parent below the messages' root", GetParent(m_unseen), nullptr},
        {"owner is the top-level window", GetWindow(m_popup, GW_OWNER), m_top},
        {"owner of a child", GetWindow(m_first, GW_OWNER), nullptr},
        {"first child", GetWindow(m_top, GW_CHILD), m_first},
        {"top window", GetTopWindow(m_top), m_first},
        {"next", GetWindow(m_first, GW_HWNDNEXT), m_second},
        {"next of the last", GetWindow(m_second, GW_HWNDNEXT), nullptr},
        {"previous", GetWindow(m_second, GW_HWNDPREV), m_first},
        {"previous of the first", GetWindow(m_first, GW_HWNDPREV), nullptr},
        {"first sibling", GetWindow(m_second, GW_HWNDFIRST), m_first},
        {"last sibling", GetWindow(m_first, GW_HWNDLAST), m_second},
        {"no child", GetWindow(m_inner, GW_CHILD), nullptr},
        {"not a relation", GetWindow(m_first, 77), nullptr},
        {"ancestor parent", GetAncestor(m_inner, GA_PARENT), m_first},
        {"ancestor parent of the top", GetAncestor(m_top, GA_PARENT), desktop},
        {"root", GetAncestor(m_inner, GA_ROOT), m_top},
        {"root of a popup", GetAncestor(m_popup, GA_ROOT), m_popup},
        {"root owner", GetAncestor(m_popup, GA_ROOTOWNER), m_top},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(row.answer, row.expected);
    }
    EXPECT_TRUE(IsChild(m_top, m_inner));
    EXPECT_FALSE(IsChild(m_inner, m_top));
    EXPECT_FALSE(IsChild(m_top, m_top));
    EXPECT_FALSE(IsChild(m_top, m_popup));
    EXPECT_TRUE(IsWindow(desktop));
}

TEST_F(Family, IsEnumerated)
{
    Collector all{m_recorder, {}};
    EnumChildWindows(m_top, Collector::Add, reinterpret_cast<LPARAM>(&all));
    EXPECT_THAT(all.names, ElementsAre("B", "D", "C"));
    Collector one{m_recorder, {}, 1};
    EXPECT_FALSE(EnumChildWindows(m_top, Collector::Add, reinterpret_cast<LPARAM>(&one)));
    EXPECT_THAT(one.names, ElementsAre("B"));
    Collector tops{m_recorder, {}};
    EXPECT_TRUE(EnumThreadWindows(GetCurrentThreadId(), Collector::Add, reinterpret_cast<LPARAM>(&tops)));
    EXPECT_THAT(tops.names, ElementsAre("P", "A")); // the topmost first, nothing unseen
}

TEST_F(Family, IsFoundByClassAndText)
{
    const struct {
        const char* label;
        const char *className, *text;
        HWND expected;
    } rows[] = {
        {"both", "zek_recorder", "A", m_top},
        {"the text alone", nullptr, "P", m_popup},
        {"other letters", "ZEK_Recorder", "a", m_top},
        {"an unseen one", "zek_recorder", "M", m_unseen},
        {"a child is not met", "zek_recorder", "B", nullptr},
        {"another class", "Button", "A", nullptr},
        {"no such class", "zek_no_such", nullptr, nullptr},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(FindWindowA(row.className, row.text), row.expected);
    }
    EXPECT_EQ(FindWindowExA(m_top, nullptr, "zek_recorder", nullptr), m_first);
    EXPECT_EQ(FindWindowExA(m_top, m_first, "zek_recorder", nullptr), m_second);
    EXPECT_FALSE(FindWindowExA(m_top, m_second, "zek_recorder", nullptr));
}

TEST_F(Family, KnowsItsControls)
{
    SetWindowLongPtrA(m_second, GWLP_ID, 42);
    EXPECT_EQ(GetDlgItem(m_top, 42), m_second);
    EXPECT_EQ(GetDlgCtrlID(m_second), 42);
    EXPECT_FALSE(GetDlgItem(m_top, 43));
    EXPECT_FALSE(GetDlgItem(m_inner, 42));
}

TEST_F(Family, ChangesParents)
{
    EXPECT_EQ(SetParent(m_inner, m_second), m_first);
    EXPECT_EQ(GetParent(m_inner), m_second);
    EXPECT_FALSE(SetParent(m_first, reinterpret_cast<HWND>(0x1234567)));
    EXPECT_EQ(SetParent(m_first, m_second), m_top);
    EXPECT_FALSE(SetParent(m_second, m_first)); // its own descendant
    EXPECT_EQ(GetParent(m_second), m_top);
}

TEST_F(Family, ChangesTheOrder)
{
    SetWindowPos(m_second, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    EXPECT_EQ(GetTopWindow(m_top), m_second);
    SetWindowPos(m_second, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    EXPECT_EQ(GetTopWindow(m_top), m_first);
    const HWND third = m_recorder.Make("E", WS_CHILD, m_top);
    SetWindowPos(third, m_first, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE); // behind it
    EXPECT_EQ(GetWindow(m_first, GW_HWNDNEXT), third);
    EXPECT_EQ(GetWindow(third, GW_HWNDNEXT), m_second);
    EXPECT_TRUE(BringWindowToTop(third));
    EXPECT_EQ(GetTopWindow(m_top), third);
}
