#include "TestProduct.h"

#include <MsgDll.h>

#include <gmock/gmock.h>

namespace {

const char* const kNotBound = "Error : DLL is not loaded. check message dll!\n";

CString LookUp(const char* key)
{
    return CMsgDll::pfuncLoadStr(key, 0);
}

// Each test begins as a process does: no product, nothing bound.
class MsgDll : public testing::Test
{
protected:
    void SetUp() override { Reset(); }
    void TearDown() override { Reset(); }

    static void Reset()
    {
        IProductInfo::m_pInstance = nullptr;
        CMsgDll::pfuncLoadStr = &CMsgDll::InitFunc;
    }
};

TEST_F(MsgDll, NeedsAProductFirstAndBindsLater)
{
    EXPECT_EQ(LookUp("key"), "Messasge dll is not loaded!");
    EXPECT_EQ(CMsgDll::SetLoadStrFunc(), 0);
    EXPECT_EQ(CMsgDll::pfuncLoadStr, &CMsgDll::InitFunc);
    TestProduct product;
    const CString first = LookUp("key");
    EXPECT_THAT(std::string(first), testing::StartsWith("key 0, registered "));
    EXPECT_THAT(std::string(first), testing::EndsWith(" for 42"));
    EXPECT_NE(CMsgDll::pfuncLoadStr, &CMsgDll::InitFunc);
    EXPECT_EQ(LookUp("key"), first) << "registered again";
    EXPECT_EQ(product.m_auxAsked, 1);
}

TEST_F(MsgDll, ATextThatIsMissingIsEmpty)
{
    TestProduct product;
    EXPECT_STREQ(CMsgDll::InitFunc("missing", 0), "");
    EXPECT_EQ(LookUp("missing"), "");
}

TEST_F(MsgDll, AMissingLibraryIsTriedAgain)
{
    TestProduct product("ZEKNONE");
    EXPECT_EQ(LookUp("key"), kNotBound);
    EXPECT_EQ(LookUp("key"), kNotBound);
    EXPECT_EQ(product.m_auxAsked, 2);
    EXPECT_EQ(CMsgDll::pfuncLoadStr, &CMsgDll::InitFunc);
    product.m_prefix = "ZEKT";
    EXPECT_THAT(std::string(LookUp("key")), testing::StartsWith("key 0"));
}

TEST_F(MsgDll, ALibraryWithoutLoadStrEndsTheAttempts)
{
    TestProduct product("ZEKNOLOAD");
    EXPECT_EQ(LookUp("key"), kNotBound);
    EXPECT_EQ(CMsgDll::pfuncLoadStr, &CMsgDll::DefLoadStr);
    EXPECT_EQ(GetModuleHandleA("ZEKNOLOAD_msg.DLL"), nullptr);
    product.m_prefix = "ZEKT";
    EXPECT_EQ(LookUp("key"), kNotBound);
    EXPECT_EQ(product.m_auxAsked, 1);
}

TEST_F(MsgDll, ALibraryWithoutRegistrationIsTriedAgain)
{
    TestProduct product("ZEKNOREG");
    EXPECT_EQ(LookUp("key"), kNotBound);
    EXPECT_EQ(CMsgDll::pfuncLoadStr, &CMsgDll::InitFunc);
    EXPECT_EQ(GetModuleHandleA("ZEKNOREG_msg.DLL"), nullptr);
    EXPECT_EQ(LookUp("key"), kNotBound);
    EXPECT_EQ(product.m_auxAsked, 2);
}

TEST(MsgDllTexts, RemoveOnePairOfQuotes)
{
    static const struct {
        const char* text;
        const char* result;
    } kRows[] = {
        {"'abc'", "abc"}, {"'abc", "'abc"}, {"abc'", "abc'"},       {"'", "'"}, {"''", ""},
        {"", ""},         {"''a''", "'a'"}, {"\"abc\"", "\"abc\""}, {"a", "a"}, {" 'a'", " 'a'"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(CMsgDll::RemoveQuote(row.text), row.result);
    }
}

} // namespace
