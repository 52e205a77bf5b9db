#include "automation/DispatchObject.h"

#include <atomic>
#include <new>
#include <string>

namespace zek::office {
namespace {

std::atomic<LONG> g_liveObjects{0};

const char* const kSource = "Microsoft Excel";

// "Unable to set the Name property of the Worksheet class", "Add method of Sheets class failed".
std::string UsualDescription(const MemberTable& table, const Member& member, bool isPut)
{
    const std::string name = member.name;
    if (member.work.kinds & kMethod)
        return name + " method of " + table.ClassName() + " class failed";
    return std::string("Unable to ") + (isPut ? "set" : "get") + " the " + name + " property of the " +
           table.ClassName() + " class";
}

HRESULT Raise(EXCEPINFO* exception, SCODE code, const std::string& description)
{
    if (exception) {
        *exception = {};
        exception->scode = code;
        exception->bstrSource = MakeBstr(kSource);
        exception->bstrDescription = MakeBstr(description);
    }
    return DISP_E_EXCEPTION;
}

HRESULT CheckCall(const MemberWork& work, bool isPut, const DISPPARAMS& params)
{
    const UINT named = params.cNamedArgs;
    if (named > (isPut ? 1u : 0u) || (named == 1 && params.rgdispidNamedArgs[0] != DISPID_PROPERTYPUT))
        return DISP_E_NONAMEDARGS;
    if (isPut && params.cArgs == 0)
        return DISP_E_BADPARAMCOUNT;
    const UINT count = params.cArgs - (isPut ? 1 : 0);
    return count < work.least || count > work.most ? DISP_E_BADPARAMCOUNT : S_OK;
}

} // namespace

LiveObject::LiveObject()
{
    g_liveObjects.fetch_add(1, std::memory_order_relaxed);
}

LiveObject::~LiveObject()
{
    g_liveObjects.fetch_sub(1, std::memory_order_relaxed);
}

LONG LiveObject::Count()
{
    return g_liveObjects.load(std::memory_order_relaxed);
}

HRESULT DispatchObject::QueryInterface(REFIID riid, void** object)
{
    if (!object)
        return E_POINTER;
    const bool known = riid == IID_IUnknown || riid == IID_IDispatch;
    *object = known ? static_cast<IDispatch*>(this) : nullptr;
    if (!known)
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG DispatchObject::AddRef()
{
    return ++m_references;
}

ULONG DispatchObject::Release()
{
    const ULONG left = --m_references;
    if (left == 0)
        delete this;
    return left;
}

HRESULT DispatchObject::GetTypeInfoCount(UINT* count)
{
    if (!count)
        return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT DispatchObject::GetTypeInfo(UINT, LCID, ITypeInfo** info)
{
    if (info)
        *info = nullptr;
    return E_NOTIMPL;
}

HRESULT DispatchObject::GetIDsOfNames(REFIID riid, LPOLESTR* names, UINT count, LCID, DISPID* ids)
{
    if (riid != IID_NULL)
        return DISP_E_UNKNOWNINTERFACE;
    if (!names || !ids || count == 0 || !names[0])
        return E_INVALIDARG;
    for (UINT i = 0; i < count; ++i)
        ids[i] = DISPID_UNKNOWN;
    const Member* const member = Table().Find(std::u16string_view(names[0]));
    if (member)
        ids[0] = member->id;
    return member && count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT DispatchObject::Invoke(DISPID id, REFIID riid, LCID, WORD flags, DISPPARAMS* params, VARIANT* result,
                               EXCEPINFO* exception, UINT* badArgument)
{
    if (riid != IID_NULL)
        return DISP_E_UNKNOWNINTERFACE;
    if (!params || (params->cArgs > 0 && !params->rgvarg) ||
        (params->cNamedArgs > 0 && !params->rgdispidNamedArgs))
        return E_INVALIDARG;
    const Member* const member = Table().Find(id);
    const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    if (!member || !(isPut ? member->work.write : member->work.read))
        return DISP_E_MEMBERNOTFOUND;
    if (const HRESULT wrong = CheckCall(member->work, isPut, *params); FAILED(wrong))
        return wrong;
    Value answer;
    const HRESULT outcome = Perform(*member, isPut, *params, *answer, exception, badArgument);
    if (result) {
        VariantInit(result);
        if (SUCCEEDED(outcome))
            *result = answer.Detach();
    }
    return outcome;
}

HRESULT DispatchObject::Perform(const Member& member, bool isPut, const DISPPARAMS& params, VARIANT& result,
                                EXCEPINFO* exception, UINT* badArgument)
try {
    try {
        const Arguments arguments(params, isPut);
        (isPut ? member.work.write : member.work.read)(*this, arguments, result);
        if (isPut || member.work.kinds == kMethod)
            Changed();
        return S_OK;
    } catch (const ArgumentError& error) {
        if (badArgument)
            *badArgument = error.Index();
        return error.Result();
    } catch (const AutomationError& error) {
        const std::string& text = error.Description();
        return Raise(exception, error.Code(), text.empty() ? UsualDescription(Table(), member, isPut) : text);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (const std::exception& error) {
        return Raise(exception, AutomationError().Code(), error.what());
    }
} catch (...) {
    // Memory ran out while the error was being told.
    return E_OUTOFMEMORY;
}

} // namespace zek::office
