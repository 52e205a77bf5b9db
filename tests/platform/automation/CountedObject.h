// An automation object that tests count, and a class object that makes such objects.
#pragma once

#include <windows.h>
#include <ole2.h>

// Its default property is the number given; any other member is missing.
class CountedObject : public IDispatch
{
public:
    explicit CountedObject(LONG value) : m_value(value) { ++s_alive; }
    virtual ~CountedObject() { --s_alive; }
    CountedObject(const CountedObject&) = delete;
    CountedObject& operator=(const CountedObject&) = delete;

    // How many there are; every test ends where it began.
    static int Alive() { return s_alive; }
    ULONG References() const { return m_references; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                                     UINT*) override;

private:
    static int s_alive;
    ULONG m_references = 1;
    LONG m_value;
};

// Lives as long as its test; makes objects whose value is 42.
class TestFactory : public IClassFactory
{
public:
    virtual ~TestFactory() = default;
    ULONG References() const { return m_references; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override { return --m_references; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID riid, void** object) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

private:
    ULONG m_references = 1;
};
