// The module's exports: class objects for the servers that it holds.
#include "automation/DispatchObject.h"
#include "spreadsheet/objects/ApplicationObject.h"

#include <objbase.h>

#include <atomic>
#include <memory>
#include <new>

namespace zek::office {
namespace {

// {00024500-0000-0000-C000-000000000046}: "Excel.Application".
constexpr CLSID kSpreadsheetClass = {0x00024500, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

// Every object it makes is a server of its own, with settings and workbooks of its own.
class ClassObject final : public IClassFactory
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override
    {
        if (!object)
            return E_POINTER;
        const bool known = riid == IID_IUnknown || riid == IID_IClassFactory;
        *object = known ? this : nullptr;
        if (!known)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG left = --m_references;
        if (left == 0)
            delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID riid, void** object) override
    try {
        if (!object)
            return E_POINTER;
        *object = nullptr;
        if (outer)
            return CLASS_E_NOAGGREGATION;
        auto* const application = new ApplicationObject(std::make_shared<Session>());
        const HRESULT result = application->QueryInterface(riid, object);
        application->Release();
        return result;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

private:
    virtual ~ClassObject() = default;

    std::atomic<ULONG> m_references{1};
    LiveObject m_alive;
};

std::atomic<LONG> g_locks{0};

HRESULT ClassObject::LockServer(BOOL lock)
{
    g_locks += lock ? 1 : -1;
    return S_OK;
}

} // namespace
} // namespace zek::office

WINBASEAPI HRESULT WINAPI DllGetClassObject(REFCLSID clsid, REFIID riid, void** object);
WINBASEAPI HRESULT WINAPI DllCanUnloadNow();

HRESULT WINAPI DllGetClassObject(REFCLSID clsid, REFIID riid, void** object)
try {
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (clsid != zek::office::kSpreadsheetClass)
        return CLASS_E_CLASSNOTAVAILABLE;
    auto* const factory = new zek::office::ClassObject;
    const HRESULT result = factory->QueryInterface(riid, object);
    factory->Release();
    return result;
} catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
}

HRESULT WINAPI DllCanUnloadNow()
{
    return zek::office::LiveObject::Count() == 0 && zek::office::g_locks == 0 ? S_OK : S_FALSE;
}
