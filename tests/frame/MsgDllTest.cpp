#include "TestProduct.h"

#include <GlobalFunc.h>
#include <MsgDll.h>

#include <gmock/gmock.h>

#include <cstdlib>
#include <cstring>

namespace {

const char* const kNotBound = "Error : DLL is not loaded. check message dll!\n";

CString LookUp(const char* key)
{
    return CMsgDll::pfuncLoadStr(key, 0);
}

// How often a message library has been loaded in this process.
int Loads()
{
    char count[16] = "0";
    GetEnvironmentVariableA("ZEK_MESSAGE_LOADS", count, sizeof count);
    return std::atoi(count);
}

CString BesideTheProgram(const char* name)
{
    return GetProgramPath() + name;
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

TEST_F(MsgDll, ALibraryThatAppearsLaterIsBound)
{
    const CString late = BesideTheProgram("ZEKLATE_msg.DLL");
    DeleteFileA(late); // an earlier run may have ended with it in use
    const TestProduct product("ZEKLATE");
    EXPECT_EQ(LookUp("key"), kNotBound);
    ASSERT_TRUE(CopyFileA(BesideTheProgram("ZEKT_msg.DLL"), late, TRUE));
    EXPECT_EQ(LookUp("key"), "key 0, registered 1 for 42");
    DeleteFileA(late);
    EXPECT_EQ(LookUp("key"), "key 0, registered 1 for 42") << "it stays loaded";
}

TEST_F(MsgDll, AFileThatIsNoLibraryIsTriedAgain)
{
    const CString path = BesideTheProgram("ZEKTEXT_msg.DLL");
    const TestProduct product("ZEKTEXT");
    for (const char* content : {"", "a text", "MZ",
                                "\x7F"
                                "ELF"}) {
        SCOPED_TRACE(content);
        CFile file(path, CFile::modeCreate | CFile::modeWrite);
        file.Write(content, static_cast<UINT>(std::strlen(content)));
        file.Close();
        EXPECT_EQ(LookUp("key"), kNotBound);
        EXPECT_EQ(CMsgDll::pfuncLoadStr, &CMsgDll::InitFunc);
    }
    DeleteFileA(path);
}

TEST_F(MsgDll, ALibraryWithoutLoadStrEndsTheAttempts)
{
    TestProduct product("ZEKNOLOAD");
    const int before = Loads();
    EXPECT_EQ(LookUp("key"), kNotBound);
    EXPECT_EQ(CMsgDll::pfuncLoadStr, &CMsgDll::DefLoadStr);
    EXPECT_EQ(GetModuleHandleA("ZEKNOLOAD_msg.DLL"), nullptr);
    product.m_prefix = "ZEKT";
    EXPECT_EQ(LookUp("key"), kNotBound);
    EXPECT_EQ(product.m_auxAsked, 1);
    EXPECT_EQ(Loads(), before + 1);
}

TEST_F(MsgDll, ALibraryWithoutRegistrationIsTriedAgain)
{
    TestProduct product("ZEKNOREG");
    const int before = Loads();
    EXPECT_EQ(LookUp("key"), kNotBound);
    EXPECT_EQ(CMsgDll::pfuncLoadStr, &CMsgDll::InitFunc);
    EXPECT_EQ(GetModuleHandleA("ZEKNOREG_msg.DLL"), nullptr);
    EXPECT_EQ(LookUp("key"), kNotBound);
    EXPECT_EQ(product.m_auxAsked, 2);
    EXPECT_EQ(Loads(), before + 2) << "loaded and freed each time";
}

// Names that lead elsewhere than to the message library; none may crash, hang or bind.
TEST_F(MsgDll, PrefixesThatNameNoFile)
{
    TestProduct product;
    for (const CString& prefix : {CString(""), CString("nowhere\\ZEKT"), CString("*"), CString('x', 5000),
                                  CString("a\0b", 3), CString("Z:\\nowhere\\ZEKT")}) {
        SCOPED_TRACE(prefix);
        product.m_prefix = prefix;
        EXPECT_EQ(LookUp("key"), kNotBound);
        EXPECT_EQ(CMsgDll::pfuncLoadStr, &CMsgDll::InitFunc);
    }
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
