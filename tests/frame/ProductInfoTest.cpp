#include "TestProduct.h"

#include <gmock/gmock.h>

namespace {

class ProductInfo : public testing::Test
{
protected:
    void SetUp() override { IProductInfo::m_pInstance = nullptr; }
    void TearDown() override { IProductInfo::m_pInstance = nullptr; }
};

TEST_F(ProductInfo, TheFirstObjectStaysTheInstance)
{
    EXPECT_EQ(IProductInfo::Instance(), nullptr);
    auto first = std::make_unique<TestProduct>();
    const TestProduct second;
    EXPECT_EQ(IProductInfo::Instance(), first.get());
    const IProductInfo* const gone = first.get();
    first.reset();
    EXPECT_EQ(IProductInfo::Instance(), gone) << "it is not cleared";
}

TEST_F(ProductInfo, CopiesCarryTheSessionButAreNeverTheInstance)
{
    TestProduct original;
    CString path("C:\\model.inp");
    original.SetSessionFile(path);
    original.SetConvertMode(3);
    original.SetConvertWarning(1);
    IProductInfo::m_pInstance = nullptr;
    TestProduct copy(original);
    EXPECT_EQ(IProductInfo::Instance(), nullptr);
    TestProduct assigned;
    assigned = copy;
    path = "changed";
    for (TestProduct* product : {&copy, &assigned}) {
        EXPECT_EQ(product->GetSessionFile(path), "C:\\model.inp");
        EXPECT_EQ(product->GetConvertMode(), 3);
        EXPECT_EQ(product->ExistConvertWarning(), 1);
    }
    EXPECT_EQ(path, "changed");
}

TEST_F(ProductInfo, BeginsEmpty)
{
    TestProduct product;
    CString unused;
    EXPECT_EQ(product.GetSessionFile(unused), "");
    EXPECT_EQ(product.GetConvertMode(), 0);
    EXPECT_EQ(product.ExistConvertWarning(), 0);
    EXPECT_EQ(product.GetIs2DProduct(), 0);
}

} // namespace
