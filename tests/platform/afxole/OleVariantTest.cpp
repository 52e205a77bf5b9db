#include "TestObject.h"

#include <gmock/gmock.h>

#include <cstring>

namespace {

CString TextOf(const VARIANT& value)
{
    return CString(value.bstrVal, static_cast<int>(SysStringLen(value.bstrVal)));
}

TEST(OleVariant, TakesItsTypeFromTheValue)
{
    static const struct {
        const char* label;
        COleVariant value;
        VARTYPE type;
        LONGLONG bits; // of a whole number
    } kRows[] = {
        {"nothing", COleVariant(), VT_EMPTY, 0},
        {"short", COleVariant(static_cast<short>(-2)), VT_I2, -2},
        {"short as truth", COleVariant(static_cast<short>(7), VT_BOOL), VT_BOOL, -1},
        {"short as falsehood", COleVariant(static_cast<short>(0), VT_BOOL), VT_BOOL, 0},
        {"LONG", COleVariant(static_cast<LONG>(70000)), VT_I4, 70000},
        {"int", COleVariant(70000), VT_I4, 70000},
        {"long", COleVariant(-5L), VT_I4, -5},
        {"LONG as error", COleVariant(static_cast<LONG>(DISP_E_PARAMNOTFOUND), VT_ERROR), VT_ERROR,
         static_cast<LONG>(0x80020004)},
        {"LONG as truth", COleVariant(static_cast<LONG>(65536), VT_BOOL), VT_BOOL, -1},
        {"BYTE", COleVariant(static_cast<BYTE>(200)), VT_UI1, 200},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        ASSERT_EQ(row.value.vt, row.type);
        const LONGLONG bits = row.type == VT_UI1                         ? row.value.bVal
                              : row.type == VT_I2 || row.type == VT_BOOL ? row.value.iVal
                                                                         : row.value.lVal;
        EXPECT_EQ(bits, row.bits);
    }
    EXPECT_EQ(COleVariant(1.5f).fltVal, 1.5f);
    EXPECT_EQ(COleVariant(0.1).dblVal, 0.1);
}

TEST(OleVariant, TextsKeepEveryByte)
{
    static const struct {
        const char* label;
        CString text;
    } kRows[] = {
        {"empty", ""},
        {"ASCII", "report"},
        {"last ASCII", "\x7F"},
        {"beyond ASCII", "\xC3\xA9t\xC3\xA9"},
        {"beyond ASCII at the end", "0123456789abcdef\xC3\xA9"},
        {"zero inside", CString("a\0b", 3)},
        {"long", CString('x', 100000)},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        const COleVariant value(row.text);
        ASSERT_EQ(value.vt, VT_BSTR);
        EXPECT_EQ(TextOf(value), row.text);
        EXPECT_TRUE(value == row.text);
    }
    const COleVariant none(static_cast<LPCTSTR>(nullptr));
    EXPECT_EQ(none.vt, VT_BSTR);
    EXPECT_EQ(none.bstrVal, nullptr);
    const COleVariant bytes("abc", VT_BSTRT);
    EXPECT_EQ(SysStringByteLen(bytes.bstrVal), 3u);
    EXPECT_EQ(std::memcmp(bytes.bstrVal, "abc", 3), 0);
}

TEST(OleVariant, ComparesTypeAndValue)
{
    const COleVariant values[] = {COleVariant(),
                                  COleVariant(static_cast<short>(1)),
                                  COleVariant(static_cast<short>(2)),
                                  COleVariant(static_cast<LONG>(1)),
                                  COleVariant(static_cast<short>(1), VT_BOOL),
                                  COleVariant(static_cast<LONG>(1), VT_ERROR),
                                  COleVariant(static_cast<BYTE>(1)),
                                  COleVariant(1.0f),
                                  COleVariant(1.0),
                                  COleVariant("1"),
                                  COleVariant(CString("1\0", 2))};
    for (std::size_t i = 0; i < std::size(values); ++i)
        for (std::size_t k = 0; k < std::size(values); ++k) {
            SCOPED_TRACE(testing::Message() << i << " " << k);
            EXPECT_EQ(values[i] == values[k], i == k ? TRUE : FALSE);
        }
    EXPECT_TRUE(values[1] == static_cast<short>(1));
    EXPECT_FALSE(values[1] == static_cast<LONG>(1));
    EXPECT_TRUE(values[4] == static_cast<short>(9)) << "any number but 0 is true";
    EXPECT_TRUE(values[4] == static_cast<LONG>(9));
    EXPECT_TRUE(values[5] == 1);
    EXPECT_TRUE(values[6] == static_cast<BYTE>(1));
    EXPECT_TRUE(values[7] == 1.0f);
    EXPECT_TRUE(values[8] == 1.0);
    EXPECT_TRUE(values[9] == "1");
    EXPECT_FALSE(values[9] == "2");
}

TEST(OleVariant, AssigningKeepsTruthsAndErrors)
{
    COleVariant truth(static_cast<short>(1), VT_BOOL);
    truth = static_cast<short>(0);
    EXPECT_EQ(truth.vt, VT_BOOL);
    EXPECT_EQ(truth.boolVal, VARIANT_FALSE);
    truth = static_cast<LONG>(65536);
    EXPECT_EQ(truth.vt, VT_BOOL);
    EXPECT_EQ(truth.boolVal, VARIANT_TRUE);

    COleVariant error(static_cast<LONG>(1), VT_ERROR);
    error = 2;
    EXPECT_EQ(error.vt, VT_ERROR);
    EXPECT_EQ(error.scode, 2);
    error = static_cast<short>(3);
    EXPECT_TRUE(error == static_cast<short>(3));

    COleVariant any("text");
    any = 0.5;
    EXPECT_TRUE(any == 0.5);
    any = static_cast<BYTE>(3);
    EXPECT_TRUE(any == static_cast<BYTE>(3));
    any = CString("x");
    any = 1.0f;
    EXPECT_TRUE(any == 1.0f);
    any = "again";
    any = any;
    EXPECT_TRUE(any == "again");
    any.Attach(any);
    EXPECT_TRUE(any == "again");
}

TEST(OleVariant, CopiesAreDeepAndCounted)
{
    TestObject object;
    VARIANT raw{};
    raw.vt = VT_DISPATCH;
    raw.pdispVal = &object;
    {
        const COleVariant copy(raw);
        const COleVariant second(copy);
        EXPECT_EQ(object.m_references, 3u);
        EXPECT_TRUE(copy == second);
        COleVariant text("a");
        const COleVariant textCopy(text);
        text = "b";
        EXPECT_TRUE(textCopy == "a");
    }
    EXPECT_EQ(object.m_references, 1u);
}

TEST(OleVariant, AttachAndDetachMoveTheContent)
{
    COleVariant from("text");
    const BSTR text = from.bstrVal;
    COleVariant to(1.5);
    to.Attach(from);
    EXPECT_EQ(from.vt, VT_EMPTY);
    EXPECT_EQ(to.bstrVal, text);
    VARIANT detached = to.Detach();
    EXPECT_EQ(to.vt, VT_EMPTY);
    EXPECT_EQ(detached.bstrVal, text);
    VariantClear(&detached);
}

TEST(OleVariant, ChangeTypeConvertsOrThrows)
{
    COleVariant value("42");
    value.ChangeType(VT_I4);
    EXPECT_TRUE(value == 42);
    COleVariant source(static_cast<short>(7));
    value.ChangeType(VT_R8, source);
    EXPECT_TRUE(value == 7.0);
    value = "no number";
    try {
        value.ChangeType(VT_I4);
        ADD_FAILURE() << "nothing thrown";
    } catch (COleException* e) {
        EXPECT_EQ(e->m_sc, static_cast<SCODE>(DISP_E_TYPEMISMATCH));
        e->Delete();
    }
    EXPECT_TRUE(value == "no number");
}

TEST(OleVariant, IsAVariantAndNothingElse)
{
    EXPECT_EQ(sizeof(COleVariant), sizeof(VARIANT));
    COleVariant value(2.0);
    LPVARIANT writable = value;
    LPCVARIANT readable = value;
    EXPECT_EQ(writable->dblVal + readable->dblVal, 4.0);
}

} // namespace
