#include "TestProduct.h"

#include <Product.h>
#include <Registry.h>
#include <TestEnvMgr.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

namespace {

const char kPath[] = "HKEY_CURRENT_USER\\Software\\TOVEN\\TEST";

void Set(const char* name, const char* value)
{
    CRegistry::WriteProfileString(kPath, name, value);
}

// A manager of a test's own.
class Manager : public CTestEnvMgr
{
public:
    using CTestEnvMgr::GetTestEnv;
    using CTestEnvMgr::IsTestEnv;
};

class TestValues : public testing::Test
{
protected:
    void SetUp() override { RemoveAll(); }
    void TearDown() override { RemoveAll(); }
    static void RemoveAll()
    {
        for (const char* name : {"Trace", "Other", "Hide Version"})
            Set(name, nullptr);
    }
};

TEST_F(TestValues, AreReadAtEachCall)
{
    EXPECT_EQ(CProduct::GetTestEnvValue("Trace"), "");
    Set("Trace", "ON");
    EXPECT_EQ(CProduct::GetTestEnvValue("Trace"), "ON");
    EXPECT_EQ(CProduct::GetTestEnvValue("TRACE"), "ON") << "as the registry finds names";
    Set("Trace", "off");
    EXPECT_EQ(CProduct::GetTestEnvValue("Trace"), "off");
    EXPECT_EQ(CProduct::GetTestEnvValue("Tra"), "");
    EXPECT_EQ(CProduct::GetTestEnvValue(""), "");
}

TEST_F(TestValues, AreReadOnceByAManager)
{
    Manager manager;
    EXPECT_EQ(manager.GetTestEnv("Trace"), "");
    Set("Trace", "ON");
    Set("Other", "one");
    EXPECT_EQ(manager.GetTestEnv("Trace"), "") << "an absent value is remembered too";
    EXPECT_EQ(manager.GetTestEnv("trace"), "ON") << "names differ by case";
    EXPECT_EQ(manager.GetTestEnv("Other"), "one");
    Set("Other", "two");
    EXPECT_EQ(manager.GetTestEnv("Other"), "one");
    Manager copy(manager), assigned;
    assigned = manager;
    assigned = *&assigned;
    EXPECT_EQ(copy.GetTestEnv("Other"), "one");
    EXPECT_EQ(assigned.GetTestEnv("Other"), "one");
    EXPECT_EQ(Manager().GetTestEnv("Other"), "two");
}

TEST_F(TestValues, SwitchesKeepTheirFirstAnswer)
{
    Set("Trace", "ON");
    Manager manager;
    EXPECT_EQ(manager.IsTestEnv("Trace", "on"), 1);
    Set("Trace", "off");
    EXPECT_EQ(manager.IsTestEnv("Trace", "on"), 1);
    EXPECT_EQ(manager.IsTestEnv("Trace", "off"), 1) << "whatever is asked for later";
    EXPECT_EQ(manager.GetTestEnv("Trace"), "off") << "texts have a first time of their own";
    EXPECT_EQ(manager.IsTestEnv("Other", "yes"), 0);
    Set("Other", "yes");
    EXPECT_EQ(manager.IsTestEnv("Other", "yes"), 0);
    EXPECT_EQ(manager.IsTestEnv("None", ""), 1) << "an absent value equals an empty one";
    EXPECT_EQ(Manager(manager).IsTestEnv("Trace", "never"), 1);
}

// In a process of its own: what is shared stays.
int CheckSharedManager()
{
    Set("Trace", "ON");
    const bool first =
        CTestEnvMgr::IsTestEnvST("Trace", "on") == 1 && CTestEnvMgr::GetTestEnvST("Trace") == "ON";
    Set("Trace", "off");
    const bool later =
        CTestEnvMgr::IsTestEnvST("Trace", "off") == 1 && CTestEnvMgr::GetTestEnvST("Trace") == "ON";
    const bool absent = CTestEnvMgr::GetTestEnvST("Other") == "";
    Set("Other", "late");
    return first && later && absent && CTestEnvMgr::GetTestEnvST("Other") == "" ? 0 : 1;
}

// `before` is what the registry holds at the first call, which asks for another name.
int CheckHideVersion(const char* before)
{
    Set("Hide Version", before);
    CProduct::GetTestEnvValue("Other");
    Set("Hide Version", "2");
    const bool once = CProduct::GetTestEnvValue("Hide Version") == CString(before);
    return once && CProduct::GetTestEnvValue("hide version") == "2" ? 0 : 1;
}

class TestValuesDeathTest : public TestValues
{
protected:
    void SetUp() override
    {
        TestValues::SetUp();
        GTEST_FLAG_SET(death_test_style, "threadsafe");
    }
};

TEST_F(TestValuesDeathTest, TheSharedManagerLastsAsLongAsTheProcess)
{
    EXPECT_EXIT(std::exit(CheckSharedManager()), testing::ExitedWithCode(0), "");
}

TEST_F(TestValuesDeathTest, HideVersionIsReadOncePerProcess)
{
    EXPECT_EXIT(std::exit(CheckHideVersion("1")), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(std::exit(CheckHideVersion(nullptr)), testing::ExitedWithCode(0), "");
}

TEST(Product, ItsNumberIsTheHosts)
{
    IProductInfo::m_pInstance = nullptr;
    EXPECT_EQ(CProduct::GetProductID(), 0);
    const TestProduct product;
    EXPECT_EQ(CProduct::GetProductID(), 42);
    IProductInfo::m_pInstance = nullptr;
}

} // namespace
