#include <Product.h>

#include "TestValue.h"

#include <ProductInfo.h>
#include <Registry.h>

namespace {

constexpr const char* kTestKey = "HKEY_CURRENT_USER\\Software\\TOVEN\\TEST";
constexpr const char* kHideVersion = "Hide Version";

} // namespace

CString TestValue(const char* name)
{
    CString value;
    CRegistry::GetProfileString(kTestKey, name, value); // leaves the text alone when it fails
    return value;
}

int CProduct::GetProductID()
{
    IProductInfo* product = IProductInfo::Instance();
    return product ? product->GetProductID() : 0;
}

int CProduct::Initialize()
{
    return 1;
}

CString CProduct::GetTestEnvValue(const char* lpszName)
{
    static const CString hideVersion = TestValue(kHideVersion);
    const CString name(lpszName);
    return name == kHideVersion ? hideVersion : TestValue(name);
}
