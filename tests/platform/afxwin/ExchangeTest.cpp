// Data between controls and members.
#include "TestDialog.h"

#include "Boxes.h"

#include <gmock/gmock.h>

#include <cfloat>
#include <climits>
#include <cmath>

using testing::ElementsAre;

namespace {

enum : WORD { kEdit = 1001, kCheck, kRadio1, kRadio2, kLabel, kRadio3, kAfter, kList, kCombo, kDrop };

const std::vector<TemplateItem> kItems = {
    {"EDIT", "", WS_TABSTOP | ES_AUTOHSCROLL, kEdit},
    {"BUTTON", "check", WS_TABSTOP | BS_AUTO3STATE, kCheck},
    {"BUTTON", "one", WS_GROUP | BS_AUTORADIOBUTTON, kRadio1},
    {"BUTTON", "two", BS_AUTORADIOBUTTON, kRadio2},
    {"STATIC", "between", 0, kLabel},
    {"BUTTON", "three", BS_AUTORADIOBUTTON, kRadio3},
    {"BUTTON", "another group", WS_GROUP | BS_AUTORADIOBUTTON, kAfter},
    {"LISTBOX", "", WS_GROUP | LBS_NOTIFY, kList},
    {"COMBOBOX", "", CBS_DROPDOWN, kCombo},
    {"COMBOBOX", "", CBS_DROPDOWNLIST, kDrop},
};

class ExchangeTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_dialog.CreateIndirect(m_shape.Get()));
        for (const char* entry : {"Apple pie", "apple", "Banana"}) {
            const auto text = reinterpret_cast<LPARAM>(entry);
            m_dialog.SendDlgItemMessage(kList, LB_ADDSTRING, 0, text);
            m_dialog.SendDlgItemMessage(kCombo, CB_ADDSTRING, 0, text);
            m_dialog.SendDlgItemMessage(kDrop, CB_ADDSTRING, 0, text);
        }
    }

    template <class Value>
    void Put(int id, Value value, void (*exchange)(CDataExchange*, int, Value&))
    {
        m_dialog.m_exchange = [&](CDataExchange* data) { exchange(data, id, value); };
        EXPECT_TRUE(m_dialog.UpdateData(FALSE));
    }
    template <class Value>
    Value Taken(int id, void (*exchange)(CDataExchange*, int, Value&), Value before = Value())
    {
        Value value = before;
        m_dialog.m_exchange = [&](CDataExchange* data) { exchange(data, id, value); };
        EXPECT_TRUE(m_dialog.UpdateData(TRUE));
        return value;
    }

    // What the edit control shows of a value.
    template <class Value>
    std::string Shown(Value value)
    {
        m_dialog.m_exchange = [&](CDataExchange* data) { DDX_Text(data, kEdit, value); };
        EXPECT_TRUE(m_dialog.UpdateData(FALSE));
        return Text(kEdit);
    }
    // What is read of a text; `before` if it is refused.
    template <class Value>
    Value Read(const char* text, Value before)
    {
        Value value = before;
        m_dialog.SetDlgItemText(kEdit, text);
        m_dialog.m_exchange = [&](CDataExchange* data) { DDX_Text(data, kEdit, value); };
        const BoxCatcher boxes;
        const bool taken = m_dialog.UpdateData(TRUE) != 0;
        EXPECT_EQ(taken ? 0U : 1U, boxes.Caught().size()) << text;
        return value;
    }
    std::string Text(int id)
    {
        CString text;
        m_dialog.GetDlgItemText(id, text);
        return text.GetString();
    }

    const DialogTemplate m_shape{kItems};
    TestDialog m_dialog;
};

} // namespace

TEST_F(ExchangeTest, ShowsNumbers)
{
    EXPECT_EQ("255", Shown(static_cast<BYTE>(255)));
    EXPECT_EQ("-32768", Shown(static_cast<short>(-32768)));
    EXPECT_EQ("-2147483648", Shown(INT_MIN));
    EXPECT_EQ("4294967295", Shown(UINT_MAX));
    EXPECT_EQ("-7", Shown(static_cast<LONG>(-7)));
    EXPECT_EQ("4294967295", Shown(static_cast<DWORD>(0xFFFFFFFF)));
    EXPECT_EQ("-9223372036854775808", Shown(LLONG_MIN));
    EXPECT_EQ("0.1", Shown(0.1f));
    EXPECT_EQ("1.23457e+07", Shown(12345678.0f));
    EXPECT_EQ("0.1", Shown(0.1));
    EXPECT_EQ("123456789.125", Shown(123456789.125));
    EXPECT_EQ("1e+300", Shown(1e300));
    EXPECT_EQ("some text", Shown(CString("some text")));
}

TEST_F(ExchangeTest, ReadsNumbers)
{
    const struct {
        const char* text;
        int asInt;
        UINT asUnsigned;
        BYTE asByte;
        short asShort;
        double asReal;
    } kRows[] = {
        // 77: refused
        {"0", 0, 0, 0, 0, 0.0},
        {" +12\t", 12, 12, 12, 12, 12.0},
        {"-1", -1, 77, 77, -1, -1.0},
        {"255", 255, 255, 255, 255, 255.0},
        {"256", 256, 256, 77, 256, 256.0},
        {"32768", 32768, 32768, 77, 77, 32768.0},
        {"2147483648", 77, 2147483648U, 77, 77, 2147483648.0},
        {"4294967296", 77, 77, 77, 77, 4294967296.0},
        {"99999999999999999999", 77, 77, 77, 77, 1e20},
        {"007", 7, 7, 7, 7, 7.0},
        {"1.5", 77, 77, 77, 77, 1.5},
        {".5", 77, 77, 77, 77, 0.5},
        {"-2.5e2", 77, 77, 77, 77, -250.0},
        {"1,5", 77, 77, 77, 77, 77.0},
        {"1e999", 77, 77, 77, 77, 77.0},
        {"", 77, 77, 77, 77, 77.0},
        {"  ", 77, 77, 77, 77, 77.0},
        {"-", 77, 77, 77, 77, 77.0},
        {"+-3", 77, 77, 77, 77, 77.0},
        {"3 4", 77, 77, 77, 77, 77.0},
        {"0x10", 77, 77, 77, 77, 77.0},
        {"nan", 77, 77, 77, 77, 77.0},
        {"inf", 77, 77, 77, 77, 77.0},
        {"12abc", 77, 77, 77, 77, 77.0},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(testing::Message() << "'" << row.text << "'");
        EXPECT_EQ(row.asInt, Read(row.text, 77));
        EXPECT_EQ(row.asInt, Read<LONG>(row.text, 77));
        EXPECT_EQ(row.asUnsigned, Read(row.text, 77U));
        EXPECT_EQ(row.asUnsigned, Read<DWORD>(row.text, 77));
        EXPECT_EQ(row.asByte, Read<BYTE>(row.text, 77));
        EXPECT_EQ(row.asShort, Read<short>(row.text, 77));
        EXPECT_EQ(row.asReal, Read(row.text, 77.0));
        EXPECT_EQ(static_cast<float>(row.asReal), Read(row.text, 77.0f));
    }
    EXPECT_EQ(77.0f, Read("1e39", 77.0f));
    EXPECT_EQ(1e39, Read("1e39", 77.0));
    EXPECT_STREQ(" any text ", Read(" any text ", CString()));
}

TEST_F(ExchangeTest, SelectsWhatItRefuses)
{
    m_dialog.ShowWindow(SW_SHOWNORMAL);
    m_dialog.SetActiveWindow();
    m_dialog.GetDlgItem(kCheck)->SetFocus();
    EXPECT_EQ(77, Read("five", 77));
    EXPECT_EQ(m_dialog.GetDlgItem(kEdit), CWnd::GetFocus());
    EXPECT_EQ(MAKELONG(0, 4), static_cast<LONG>(m_dialog.SendDlgItemMessage(kEdit, EM_GETSEL)));
}

TEST_F(ExchangeTest, ChecksRanges)
{
    using Check = std::function<void(CDataExchange*)>;
    const struct {
        const char* label;
        Check check;
        const char* message; // null: accepted
    } kRows[] = {
        {"int low", [](CDataExchange* d) { DDV_MinMaxInt(d, 1, 1, 9); }, nullptr},
        {"int high", [](CDataExchange* d) { DDV_MinMaxInt(d, 9, 1, 9); }, nullptr},
        {"int below", [](CDataExchange* d) { DDV_MinMaxInt(d, 0, 1, 9); },
         "Type a whole number from 1 to 9."},
        {"long", [](CDataExchange* d) { DDV_MinMaxLong(d, 3, -2, 2); }, "Type a whole number from -2 to 2."},
        {"byte", [](CDataExchange* d) { DDV_MinMaxByte(d, 200, 0, 100); },
         "Type a whole number from 0 to 100."},
        {"short", [](CDataExchange* d) { DDV_MinMaxShort(d, -9, 0, 1); }, "Type a whole number from 0 to 1."},
        {"unsigned", [](CDataExchange* d) { DDV_MinMaxUInt(d, 4000000000U, 0, 4294967295U); }, nullptr},
        {"dword", [](CDataExchange* d) { DDV_MinMaxDWord(d, 5, 6, 4294967295U); },
         "Type a whole number from 6 to 4294967295."},
        {"float", [](CDataExchange* d) { DDV_MinMaxFloat(d, 1.5f, 0.1f, 1.0f); },
         "Type a number from 0.1 to 1."},
        {"double", [](CDataExchange* d) { DDV_MinMaxDouble(d, 1.0, 0.25, 1.0); }, nullptr},
        {"nan", [](CDataExchange* d) { DDV_MinMaxDouble(d, std::nan(""), 0.25, 1.0); },
         "Type a number from 0.25 to 1."},
        {"text fits", [](CDataExchange* d) { DDV_MaxChars(d, "abc", 3); }, nullptr},
        {"text", [](CDataExchange* d) { DDV_MaxChars(d, "abcd", 3); }, "Type no more than 3 characters."},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        m_dialog.m_exchange = row.check;
        const BoxCatcher boxes;
        EXPECT_EQ(row.message == nullptr, m_dialog.UpdateData(TRUE) != 0);
        EXPECT_EQ(row.message ? std::vector<std::string>{row.message} : std::vector<std::string>{},
                  boxes.Texts());
        EXPECT_TRUE(m_dialog.UpdateData(FALSE)); // nothing is checked on the way in
    }
}

TEST_F(ExchangeTest, LimitsWhatCanBeTyped)
{
    CString text = "abcdef";
    m_dialog.m_exchange = [&](CDataExchange* data) {
        DDX_Text(data, kEdit, text);
        DDV_MaxChars(data, text, 4);
    };
    EXPECT_TRUE(m_dialog.UpdateData(FALSE));
    EXPECT_EQ(4, m_dialog.SendDlgItemMessage(kEdit, EM_GETLIMITTEXT));
}

TEST_F(ExchangeTest, KeepsChecksAndRadioButtons)
{
    for (const int value : {0, 1, 2}) {
        Put(kCheck, value, DDX_Check);
        EXPECT_EQ(value, Taken(kCheck, DDX_Check));
    }
    Put(kCheck, 3, DDX_Check);
    EXPECT_EQ(0, Taken(kCheck, DDX_Check));
    m_dialog.CheckDlgButton(kAfter, BST_CHECKED); // not of the group
    for (const int value : {-1, 0, 1, 2}) {
        Put(kRadio1, value, DDX_Radio);
        EXPECT_EQ(value, Taken(kRadio1, DDX_Radio));
        EXPECT_EQ(value == 2 ? 1U : 0U, m_dialog.IsDlgButtonChecked(kRadio3));
    }
    EXPECT_EQ(kRadio3, m_dialog.GetCheckedRadioButton(kRadio1, kRadio3));
    EXPECT_EQ(0, m_dialog.GetCheckedRadioButton(kRadio1, kRadio2));
}

TEST_F(ExchangeTest, KeepsSelections)
{
    using Exchange = void (*)(CDataExchange*, int, CString&);
    const struct {
        const char* label;
        int id;
        Exchange exchange;
        const char* put;
        const char* taken;
    } kRows[] = {
        {"list, prefix", kList, DDX_LBString, "APP", "Apple pie"},
        {"list, exact", kList, DDX_LBStringExact, "APPLE", "apple"},
        {"list, nothing like it", kList, DDX_LBStringExact, "App", "apple"}, // the selection stays
        {"combo, prefix", kCombo, DDX_CBString, "ban", "Banana"},
        {"combo, exact", kCombo, DDX_CBStringExact, "Apple", "apple"},
        {"combo, free text", kCombo, DDX_CBString, "Cherry", "Cherry"},
        {"combo, free text exact", kCombo, DDX_CBStringExact, "App", "App"},
        {"fixed, prefix", kDrop, DDX_CBString, "b", "Banana"},
        {"fixed, nothing like it", kDrop, DDX_CBStringExact, "Cherry", "Banana"},
    };
    EXPECT_STREQ("", Taken(kList, DDX_LBString, CString("old")));
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        Put(row.id, CString(row.put), row.exchange);
        EXPECT_STREQ(row.taken, Taken(row.id, row.exchange));
    }
    for (const int index : {2, 0, -1}) {
        Put(kList, index, DDX_LBIndex);
        EXPECT_EQ(index, Taken(kList, DDX_LBIndex));
        Put(kDrop, index, DDX_CBIndex);
        EXPECT_EQ(index, Taken(kDrop, DDX_CBIndex));
    }
}

TEST_F(ExchangeTest, GivesAControlItsObjectOnce)
{
    CWnd edit;
    m_dialog.m_exchange = [&](CDataExchange* data) { DDX_Control(data, kEdit, edit); };
    EXPECT_TRUE(m_dialog.UpdateData(FALSE));
    EXPECT_EQ(&edit, m_dialog.GetDlgItem(kEdit));
    EXPECT_TRUE(m_dialog.UpdateData(TRUE));
    m_dialog.DestroyWindow();
    EXPECT_EQ(nullptr, edit.m_hWnd);
}

TEST_F(ExchangeTest, TellsOfControlsThatAreNotThere)
{
    int value = 5;
    m_dialog.m_exchange = [&](CDataExchange* data) { DDX_Check(data, 9999, value); };
    const BoxCatcher boxes;
    EXPECT_FALSE(m_dialog.UpdateData(TRUE));
    EXPECT_EQ(5, value);
    EXPECT_THAT(boxes.Texts(), ElementsAre("An unsupported operation was attempted."));
}

TEST_F(ExchangeTest, NeedsAWindow)
{
    int calls = 0;
    TestDialog idle;
    idle.m_exchange = [&](CDataExchange*) { ++calls; };
    EXPECT_FALSE(idle.UpdateData(FALSE));
    EXPECT_FALSE(idle.UpdateData(TRUE));
    EXPECT_EQ(0, calls);
}

TEST(CDialogNotifications, AreNotHeardDuringAnExchange)
{
    class Listener : public TestDialog
    {
    public:
        int m_changes = 0;

    protected:
        BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) override
        {
            if (id == kEdit && code == EN_CHANGE)
                ++m_changes;
            return TestDialog::OnCmdMsg(id, code, extra, info);
        }
    };
    Listener dialog;
    CString text = "from the member";
    dialog.m_exchange = [&](CDataExchange* data) { DDX_Text(data, kEdit, text); };
    ASSERT_TRUE(dialog.CreateIndirect(DialogTemplate(kItems).Get()));
    text = "once more";
    EXPECT_TRUE(dialog.UpdateData(FALSE));
    EXPECT_EQ(0, dialog.m_changes);
    dialog.SetDlgItemText(kEdit, "by hand");
    EXPECT_EQ(1, dialog.m_changes);
}
