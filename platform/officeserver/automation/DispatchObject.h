// The base of every automation object.
//
// A class states its members in a MemberTable and nothing else: look-up of names, checks of kinds and
// argument counts, and the way errors reach the caller are the same for all.
//
// Errors: DISP_E_MEMBERNOTFOUND for what is not in the table, or not of that kind; DISP_E_BADPARAMCOUNT;
// DISP_E_TYPEMISMATCH with the argument's index; DISP_E_EXCEPTION with what the member raised. No C++
// exception leaves an object.
// Threads: an object belongs to the thread that made it.
#pragma once

#include "automation/MemberTable.h"

#include <oleauto.h>

namespace zek::office {

// Counts the objects of this module that are alive: the module stays loaded while there are any.
class LiveObject
{
public:
    LiveObject();
    ~LiveObject();
    LiveObject(const LiveObject&) = delete;
    LiveObject& operator=(const LiveObject&) = delete;
    static LONG Count();
};

class DispatchObject : public IDispatch
{
public:
    DispatchObject(const DispatchObject&) = delete;
    DispatchObject& operator=(const DispatchObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    // No type information: 0 and E_NOTIMPL.
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID lcid, ITypeInfo** info) override;
    // Names of arguments are not known: DISP_E_UNKNOWNNAME, their identifiers DISPID_UNKNOWN.
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID riid, LPOLESTR* names, UINT count, LCID lcid,
                                            DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID riid, LCID lcid, WORD flags, DISPPARAMS* params,
                                     VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

    virtual const MemberTable& Table() const = 0;

protected:
    DispatchObject() = default;
    virtual ~DispatchObject() = default;

    // Called after a put or a call that succeeded.
    virtual void Changed() {}

private:
    HRESULT Perform(const Member& member, bool isPut, const DISPPARAMS& params, VARIANT& result,
                    EXCEPINFO* exception, UINT* badArgument);

    ULONG m_references = 1;
    LiveObject m_alive;
};

} // namespace zek::office
