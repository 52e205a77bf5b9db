#include "OleText.h"

#include <utility>

namespace {

HRESULT ClassFromText(LPCTSTR text, CLSID& classId)
{
    const COleVariant wide(text);
    if (!wide.bstrVal)
        return E_INVALIDARG;
    return text[0] == '{' ? CLSIDFromString(wide.bstrVal, &classId) : CLSIDFromProgID(wide.bstrVal, &classId);
}

HRESULT CreateObject(REFCLSID classId, LPDISPATCH& object)
{
    LPUNKNOWN unknown = nullptr;
    HRESULT hr =
        CoCreateInstance(classId, nullptr, CLSCTX_SERVER, IID_IUnknown, reinterpret_cast<void**>(&unknown));
    if (FAILED(hr))
        return hr;
    hr = OleRun(unknown);
    if (SUCCEEDED(hr))
        hr = unknown->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&object));
    unknown->Release();
    return hr;
}

BOOL Answer(HRESULT hr, COleException* error)
{
    if (FAILED(hr) && error)
        error->m_sc = hr;
    return SUCCEEDED(hr);
}

} // namespace

COleDispatchDriver::COleDispatchDriver(const COleDispatchDriver& source) : m_lpDispatch(source.m_lpDispatch)
{
    if (m_lpDispatch)
        m_lpDispatch->AddRef();
}

const COleDispatchDriver& COleDispatchDriver::operator=(const COleDispatchDriver& source)
{
    COleDispatchDriver copy(source);
    AttachDispatch(copy.DetachDispatch());
    return *this;
}

BOOL COleDispatchDriver::CreateDispatch(REFCLSID classId, COleException* error)
{
    LPDISPATCH object = nullptr;
    const HRESULT hr = CreateObject(classId, object);
    if (SUCCEEDED(hr))
        AttachDispatch(object);
    return Answer(hr, error);
}

BOOL COleDispatchDriver::CreateDispatch(LPCTSTR programId, COleException* error)
{
    CLSID classId;
    const HRESULT hr = ClassFromText(programId, classId);
    return SUCCEEDED(hr) ? CreateDispatch(classId, error) : Answer(hr, error);
}

void COleDispatchDriver::AttachDispatch(LPDISPATCH object, BOOL autoRelease)
{
    ReleaseDispatch();
    m_lpDispatch = object;
    m_bAutoRelease = autoRelease;
}

LPDISPATCH COleDispatchDriver::DetachDispatch()
{
    return std::exchange(m_lpDispatch, nullptr);
}

void COleDispatchDriver::ReleaseDispatch()
{
    const LPDISPATCH object = std::exchange(m_lpDispatch, nullptr);
    if (object && m_bAutoRelease)
        object->Release();
}
