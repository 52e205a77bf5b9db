#include "CountedObject.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace {

using Text = std::basic_string<OLECHAR>;

constexpr CLSID kTestClass = {0x7A3C51E0, 0x4D2B, 0x4F6A, {0x9B, 0x11, 0x20, 0xC4, 0x5E, 0x88, 0x01, 0x37}};
const OLECHAR kTestClassText[] = OLESTR("{7A3C51E0-4D2B-4F6A-9B11-20C45E880137}");

// Initialises the thread for as long as the object lives.
class Initialized
{
public:
    Initialized() : m_result(CoInitialize(nullptr)) {}
    ~Initialized()
    {
        if (SUCCEEDED(m_result))
            CoUninitialize();
    }
    Initialized(const Initialized&) = delete;
    Initialized& operator=(const Initialized&) = delete;
    HRESULT Result() const { return m_result; }

private:
    HRESULT m_result;
};

HRESULT Create(DWORD context, REFIID riid = IID_IDispatch)
{
    void* object = &object;
    const HRESULT result = CoCreateInstance(kTestClass, nullptr, context, riid, &object);
    if (SUCCEEDED(result))
        static_cast<IUnknown*>(object)->Release();
    else
        EXPECT_EQ(object, nullptr);
    return result;
}

LONG SetClasses(const std::string& subkey, const std::string& text)
{
    HKEY key = nullptr;
    LONG result = RegCreateKeyExA(HKEY_CLASSES_ROOT, subkey.c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                                  KEY_ALL_ACCESS, nullptr, &key, nullptr);
    if (result == ERROR_SUCCESS)
        result = RegSetValueExA(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                                static_cast<DWORD>(text.size() + 1));
    RegCloseKey(key);
    return result;
}

TEST(ClassIds, TextsBothWays)
{
    OLECHAR text[39] = {};
    EXPECT_EQ(StringFromGUID2(kTestClass, text, 38), 0);
    EXPECT_EQ(StringFromGUID2(kTestClass, text, 39), 39);
    EXPECT_EQ(Text(text), kTestClassText);
    CLSID clsid = {};
    EXPECT_EQ(CLSIDFromString(text, &clsid), S_OK);
    EXPECT_TRUE(clsid == kTestClass);
    EXPECT_EQ(CLSIDFromString(OLESTR("{7a3c51e0-4d2b-4f6a-9b11-20c45e880137}"), &clsid), S_OK);
    EXPECT_TRUE(IsEqualGUID(clsid, kTestClass));
    LPOLESTR made = nullptr;
    EXPECT_EQ(StringFromCLSID(kTestClass, &made), S_OK);
    EXPECT_EQ(Text(made), kTestClassText);
    CoTaskMemFree(made);
    for (const OLECHAR* wrong :
         {OLESTR("{7A3C51E0-4D2B-4F6A-9B11-20C45E88013}"), OLESTR("{7A3C51E0-4D2B-4F6A-9B11-20C45E88013G}"),
          OLESTR("{7A3C51E0x4D2B-4F6A-9B11-20C45E880137}"), OLESTR("No.Such.Program")})
        EXPECT_EQ(CLSIDFromString(wrong, &clsid), CO_E_CLASSSTRING);
}

TEST(ClassIds, FreshOnesDiffer)
{
    GUID one = {}, other = {};
    EXPECT_EQ(CoCreateGuid(&one), S_OK);
    EXPECT_EQ(CoCreateGuid(&other), S_OK);
    EXPECT_TRUE(one != other);
    EXPECT_EQ(one.Data3 >> 12, 4);
}

TEST(ClassIds, ProgramIdentifiersComeFromTheRegistry)
{
    const Initialized initialized;
    const std::string clsid = "{7A3C51E0-4D2B-4F6A-9B11-20C45E880137}";
    ASSERT_EQ(SetClasses("ZekTest.Program\\CLSID", clsid), ERROR_SUCCESS);
    ASSERT_EQ(SetClasses("CLSID\\" + clsid + "\\ProgID", "ZekTest.Program"), ERROR_SUCCESS);
    ASSERT_EQ(SetClasses("ZekTest.Broken\\CLSID", "no class"), ERROR_SUCCESS);
    CLSID found = {};
    EXPECT_EQ(CLSIDFromProgID(OLESTR("ZekTest.Program"), &found), S_OK);
    EXPECT_TRUE(found == kTestClass);
    EXPECT_EQ(CLSIDFromProgID(OLESTR("ZEKTEST.program"), &found), S_OK);
    EXPECT_EQ(CLSIDFromProgID(OLESTR("ZekTest.Broken"), &found), CO_E_CLASSSTRING);
    EXPECT_EQ(CLSIDFromProgID(OLESTR("ZekTest.Missing"), &found), CO_E_CLASSSTRING);
    LPOLESTR progId = nullptr;
    EXPECT_EQ(ProgIDFromCLSID(kTestClass, &progId), S_OK);
    EXPECT_EQ(Text(progId), OLESTR("ZekTest.Program"));
    CoTaskMemFree(progId);
    const std::string keys[] = {"ZekTest.Program\\CLSID",       "ZekTest.Program",
                                "ZekTest.Broken\\CLSID",        "ZekTest.Broken",
                                "CLSID\\" + clsid + "\\ProgID", "CLSID\\" + clsid};
    for (const std::string& key : keys)
        EXPECT_EQ(RegDeleteKeyA(HKEY_CLASSES_ROOT, key.c_str()), ERROR_SUCCESS) << key;
    EXPECT_EQ(ProgIDFromCLSID(kTestClass, &progId), REGDB_E_CLASSNOTREG);
}

TEST(Apartment, CountsItsInitialisations)
{
    EXPECT_EQ(Create(CLSCTX_INPROC_SERVER), CO_E_NOTINITIALIZED);
    EXPECT_EQ(CoInitialize(nullptr), S_OK);
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_FALSE);
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), RPC_E_CHANGED_MODE);
    EXPECT_EQ(OleInitialize(nullptr), S_OK);
    EXPECT_EQ(OleInitialize(nullptr), S_FALSE);
    OleUninitialize();
    OleUninitialize();
    CoUninitialize();
    EXPECT_EQ(Create(CLSCTX_INPROC_SERVER), REGDB_E_CLASSNOTREG) << "one is still open";
    CoUninitialize();
    EXPECT_EQ(Create(CLSCTX_INPROC_SERVER), CO_E_NOTINITIALIZED);
}

TEST(ClassObjects, AreFoundWhileRegistered)
{
    const Initialized initialized;
    TestFactory factory;
    DWORD cookie = 0;
    EXPECT_EQ(Create(CLSCTX_INPROC_SERVER), REGDB_E_CLASSNOTREG);
    ASSERT_EQ(CoRegisterClassObject(kTestClass, &factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie),
              S_OK);
    const struct {
        const char* label;
        DWORD context;
        HRESULT result;
    } rows[] = {{"in process", CLSCTX_INPROC_SERVER, S_OK},
                {"any server", CLSCTX_SERVER, S_OK},
                {"all", CLSCTX_ALL, S_OK},
                {"other process", CLSCTX_LOCAL_SERVER, REGDB_E_CLASSNOTREG}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(Create(row.context), row.result);
    }
    EXPECT_EQ(Create(CLSCTX_INPROC_SERVER, IID_IClassFactory), E_NOINTERFACE);
    IUnknown* outer = &factory;
    void* object = nullptr;
    EXPECT_EQ(CoCreateInstance(kTestClass, outer, CLSCTX_INPROC_SERVER, IID_IUnknown, &object),
              CLASS_E_NOAGGREGATION);
    EXPECT_EQ(CoRevokeClassObject(cookie), S_OK);
    EXPECT_EQ(Create(CLSCTX_INPROC_SERVER), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(factory.References(), 1u);
    EXPECT_EQ(CountedObject::Alive(), 0);
}

TEST(ClassObjects, BelongToTheirThread)
{
    const Initialized initialized;
    TestFactory factory;
    DWORD cookie = 0;
    ASSERT_EQ(CoRegisterClassObject(kTestClass, &factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie),
              S_OK);
    std::thread([] {
        EXPECT_EQ(Create(CLSCTX_INPROC_SERVER), CO_E_NOTINITIALIZED);
        const Initialized here;
        EXPECT_EQ(here.Result(), S_OK);
        EXPECT_EQ(Create(CLSCTX_INPROC_SERVER), REGDB_E_CLASSNOTREG);
    }).join();
    EXPECT_EQ(CoRevokeClassObject(cookie), S_OK);
}

TEST(ActiveObjects, AreTheRegisteredObject)
{
    const Initialized initialized;
    auto* object = new CountedObject(9);
    IUnknown* found = nullptr;
    EXPECT_EQ(GetActiveObject(kTestClass, nullptr, &found), MK_E_UNAVAILABLE);
    EXPECT_EQ(found, nullptr);
    DWORD cookie = 0;
    ASSERT_EQ(RegisterActiveObject(object, kTestClass, ACTIVEOBJECT_STRONG, &cookie), S_OK);
    ASSERT_EQ(GetActiveObject(kTestClass, nullptr, &found), S_OK);
    IUnknown* own = nullptr;
    object->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&own));
    EXPECT_EQ(found, own);
    own->Release();
    found->Release();
    EXPECT_EQ(RevokeActiveObject(cookie, nullptr), S_OK);
    EXPECT_EQ(GetActiveObject(kTestClass, nullptr, &found), MK_E_UNAVAILABLE);
    EXPECT_EQ(object->References(), 1u);
    object->Release();
    EXPECT_EQ(CountedObject::Alive(), 0);
}

// A filter that is never asked: in this process no call waits.
class TestFilter : public IMessageFilter
{
public:
    virtual ~TestFilter() = default;
    ULONG References() const { return m_references; }
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override
    {
        const bool known = riid == IID_IUnknown || riid == IID_IMessageFilter;
        *object = known ? this : nullptr;
        m_references += known ? 1 : 0;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override { return --m_references; }
    DWORD STDMETHODCALLTYPE HandleInComingCall(DWORD, HTASK, DWORD, LPINTERFACEINFO) override { return 0; }
    DWORD STDMETHODCALLTYPE RetryRejectedCall(HTASK, DWORD, DWORD) override { return 0; }
    DWORD STDMETHODCALLTYPE MessagePending(HTASK, DWORD, DWORD) override { return 0; }

private:
    ULONG m_references = 1;
};

TEST(MessageFilter, IsHandedBackWhenReplaced)
{
    TestFilter filter;
    LPMESSAGEFILTER before = nullptr;
    EXPECT_EQ(CoRegisterMessageFilter(&filter, &before), CO_E_NOT_SUPPORTED);
    const Initialized initialized;
    EXPECT_EQ(CoRegisterMessageFilter(&filter, &before), S_OK);
    EXPECT_EQ(before, nullptr);
    EXPECT_EQ(filter.References(), 2u);
    EXPECT_EQ(CoRegisterMessageFilter(nullptr, &before), S_OK);
    EXPECT_EQ(before, &filter);
    before->Release();
    EXPECT_EQ(filter.References(), 1u);
}

} // namespace
