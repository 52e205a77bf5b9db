// Objects that others extend: parts are attached to an object under names, and found by them.
//
//   class CThermalState : public CExtObjState { public: double m_temperature = 20; };
//   element.AddState("Thermal", new CThermalState);                                  // one extension
//   auto* state = static_cast<CThermalState*>(element.GetState("Thermal"));          // another one
//
// An object has three tables that know nothing of each other: interfaces, implementations and states. Names
// are told apart by case.
//
// Ownership: an accepted part belongs to the object and is deleted with it; no part is ever detached. A
// refused one stays with the caller. One part belongs to one object, in one of its tables.
//
// Errors:  CMemoryException and std::bad_alloc when a name cannot be kept; the part stays with the caller.
// Threads: an object and its parts belong to one thread at a time.
#pragma once

#include <afxtempl.h>

class CExtObj;

// The base of interfaces. A copy carries the owner of the original without being attached to it.
class AFX_EXT_CLASS CExtObjIntf
{
public:
    CExtObjIntf() = default;
    CExtObjIntf(const CExtObjIntf&) = default;
    CExtObjIntf& operator=(const CExtObjIntf&) = default;
    virtual ~CExtObjIntf();

    CExtObj* GetExtObj() const { return m_pExtObj; } // null until attached

private:
    friend class CExtObj;
    CExtObj* m_pExtObj = nullptr;
};

// The base of implementations; otherwise as CExtObjIntf.
class AFX_EXT_CLASS CExtObjImpl
{
public:
    CExtObjImpl() = default;
    CExtObjImpl(const CExtObjImpl&) = default;
    CExtObjImpl& operator=(const CExtObjImpl&) = default;
    virtual ~CExtObjImpl();

    CExtObj* GetExtObj() const { return m_pExtObj; }

private:
    friend class CExtObj;
    CExtObj* m_pExtObj = nullptr;
};

// The base of states; otherwise as CExtObjIntf.
class AFX_EXT_CLASS CExtObjState
{
public:
    CExtObjState() = default;
    CExtObjState(const CExtObjState&) = default;
    CExtObjState& operator=(const CExtObjState&) = default;
    virtual ~CExtObjState();

    CExtObj* GetExtObj() const { return m_pExtObj; }

private:
    friend class CExtObj;
    CExtObj* m_pExtObj = nullptr;
};

class AFX_EXT_CLASS CExtObj
{
public:
    CExtObj();
    CExtObj(const CExtObj&) = delete;
    CExtObj& operator=(const CExtObj&) = delete;
    // Deletes the interfaces, then the implementations, then the states, each once. Their destructors may
    // look for parts: those that are gone already are not found.
    virtual ~CExtObj();

    // 1 when the part is attached from now on; 0 when the name is taken, or a null was given.
    int AddIntf(const char* name, CExtObjIntf* p);
    int AddImpl(const char* name, CExtObjImpl* p);
    int AddState(const char* name, CExtObjState* p);

    // The part, null when there is none of that name.
    CExtObjIntf* GetIntf(const char* name);
    CExtObjImpl* GetImpl(const char* name);
    CExtObjState* GetState(const char* name);

private:
    void SetIntfExtObj(CExtObjIntf* p);
    void SetImplExtObj(CExtObjImpl* p);
    void SetStateExtObj(CExtObjState* p);

    CMap<CString, LPCSTR, CExtObjIntf*, CExtObjIntf*> m_intfs;
    CMap<CString, LPCSTR, CExtObjImpl*, CExtObjImpl*> m_impls;
    CMap<CString, LPCSTR, CExtObjState*, CExtObjState*> m_states;
};
