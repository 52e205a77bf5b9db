// An automation object on the stack: a test says what its one member does and counts its references.
#pragma once

#include <afxdisp.h>

#include <functional>

class TestObject final : public IDispatch
{
public:
    struct Call {
        DISPID id;
        WORD kind;
        DISPPARAMS* arguments;
        VARIANT* result;
        EXCEPINFO* raised;
    };
    std::function<HRESULT(const Call&)> m_onCall = [](const Call&) { return S_OK; };
    ULONG m_references = 1;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        *object = iid == IID_IUnknown || iid == IID_IDispatch ? this : nullptr;
        if (!*object)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override { return --m_references; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override
    {
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* arguments,
                                     VARIANT* result, EXCEPINFO* raised, UINT*) override
    {
        return m_onCall({id, kind, arguments, result, raised});
    }
};
