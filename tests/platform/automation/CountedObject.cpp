#include "CountedObject.h"

int CountedObject::s_alive = 0;

HRESULT STDMETHODCALLTYPE CountedObject::QueryInterface(REFIID riid, void** object)
{
    const bool known = riid == IID_IUnknown || riid == IID_IDispatch;
    *object = known ? this : nullptr;
    if (known)
        AddRef();
    return known ? S_OK : E_NOINTERFACE;
}

ULONG STDMETHODCALLTYPE CountedObject::Release()
{
    const ULONG left = --m_references;
    if (left == 0)
        delete this;
    return left;
}

HRESULT STDMETHODCALLTYPE CountedObject::GetTypeInfoCount(UINT* count)
{
    *count = 0;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE CountedObject::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*)
{
    return DISP_E_UNKNOWNNAME;
}

HRESULT STDMETHODCALLTYPE CountedObject::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result,
                                                EXCEPINFO*, UINT*)
{
    if (id != DISPID_VALUE || !result)
        return DISP_E_MEMBERNOTFOUND;
    V_VT(result) = VT_I4;
    V_I4(result) = m_value;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE TestFactory::QueryInterface(REFIID riid, void** object)
{
    const bool known = riid == IID_IUnknown || riid == IID_IClassFactory;
    *object = known ? this : nullptr;
    if (known)
        AddRef();
    return known ? S_OK : E_NOINTERFACE;
}

HRESULT STDMETHODCALLTYPE TestFactory::CreateInstance(IUnknown* outer, REFIID riid, void** object)
{
    *object = nullptr;
    if (outer)
        return CLASS_E_NOAGGREGATION;
    auto* made = new CountedObject(42);
    const HRESULT result = made->QueryInterface(riid, object);
    made->Release();
    return result;
}
