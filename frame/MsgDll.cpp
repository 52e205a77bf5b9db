#include <MsgDll.h>

#include <ProductInfo.h>

namespace {

using RegisterFunc = int (*)(int productId);

// GetProcAddress answers one type for every function.
template <class FUNCTION>
FUNCTION Find(HMODULE library, LPCSTR name)
{
    return reinterpret_cast<FUNCTION>(reinterpret_cast<void (*)()>(GetProcAddress(library, name)));
}

} // namespace

CMsgDll::LoadStrFunc CMsgDll::pfuncLoadStr = &CMsgDll::InitFunc;

CMsgDll::~CMsgDll() = default;

const char* CMsgDll::InitFunc(const char* key, int option)
{
    if (!IProductInfo::Instance())
        return "Messasge dll is not loaded!"; // hosts compare with this spelling
    if (!SetLoadStrFunc())
        return DefLoadStr(key, option);
    const char* text = pfuncLoadStr(key, option);
    return text ? text : "";
}

int CMsgDll::SetLoadStrFunc()
{
    IProductInfo* product = IProductInfo::Instance();
    if (!product)
        return 0;
    const CString fileName = product->GetProductPrefix() + "_" + "msg" + ".DLL";
    product->GetAuxText(); // hosts count on being asked
    const HMODULE library = LoadLibraryA(fileName);
    if (!library)
        return 0;

    const auto loadStr = Find<LoadStrFunc>(library, "LoadStr");
    if (!loadStr) {
        pfuncLoadStr = &CMsgDll::DefLoadStr;
        FreeLibrary(library);
        return 0;
    }
    const auto registerAll = Find<RegisterFunc>(library, "RegAllStrRes");
    if (!registerAll) {
        FreeLibrary(library);
        return 0;
    }
    registerAll(product->GetProductID());
    pfuncLoadStr = loadStr;
    return 1;
}

const char* CMsgDll::DefLoadStr(const char*, int)
{
    return "Error : DLL is not loaded. check message dll!\n";
}

CString CMsgDll::RemoveQuote(const char* text)
{
    const CString copy(text);
    const int length = copy.GetLength();
    if (length < 2 || copy[0] != '\'' || copy[length - 1] != '\'')
        return copy;
    return copy.Mid(1, length - 2);
}
