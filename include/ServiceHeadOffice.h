// Services by name: what independently built modules offer to each other without knowing each other's
// classes.
//
//   class CUnitAgency : public CServiceAgency
//   {
//   public:
//       int DoService(int nCode, void* pData) override { ... }
//   };
//   CServiceHeadOffice::Instance()->RegAgency("Units", new CUnitAgency);       // where the provider starts
//   double length = 2.5;
//   CServiceHeadOffice::Instance()->ReqService("Units", kToFeet, &length);     // anywhere else
//
// What codes and data mean is agreed between a provider and who asks it; the head office never looks at them.
//
// Ownership: a registered agency belongs to the head office, which deletes it when the library is unloaded,
// after all static objects of its hosts and, where a module is still loaded then, of the modules. So an
// agency comes from `new`, and the module with its code stays loaded until the process ends.
//
// Errors:  CMemoryException and std::bad_alloc when a name cannot be kept; the agency stays with the caller.
// Threads: there is no lock. Register on one thread while nobody asks; several may ask while nobody
// registers.
#pragma once

#include <afxtempl.h>

class AFX_EXT_CLASS CServiceAgency
{
public:
    CServiceAgency();
    CServiceAgency(const CServiceAgency&);
    CServiceAgency& operator=(const CServiceAgency&);
    virtual ~CServiceAgency();

    // Performs request `nCode` on `pData`; the requester gets what it answers.
    virtual int DoService(int nCode, void* pData) = 0;
};

class AFX_EXT_CLASS CServiceHeadOffice
{
public:
    CServiceHeadOffice(const CServiceHeadOffice&) = delete;
    CServiceHeadOffice& operator=(const CServiceHeadOffice&) = delete;
    // Deletes every agency once, also one that was registered under several names. What their destructors ask
    // for is still found as long as it was not deleted itself, and what they register is deleted too.
    virtual ~CServiceHeadOffice();

    static CServiceHeadOffice* Instance();

    // 1 when the agency is registered from now on; 0 when the name is taken, or null, and the agency stays
    // the caller's. Names are told apart by case. A null agency takes the name, and nobody ever answers under
    // it.
    int RegAgency(const char* name, CServiceAgency* agency);

    // What the agency answers; -1 when there is none of that name. An agency may answer -1 too.
    // The time grows with a 31st of the number of services.
    int ReqService(const char* name, int nCode, void* pData);

protected:
    CServiceHeadOffice();

private:
    CMap<CString, LPCSTR, CServiceAgency*, CServiceAgency*> m_agencies;
};
