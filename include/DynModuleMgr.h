// The modules that a host has loaded, by name.
//
//   class CMeshModule : public CDynModule { public: int Initialize() override; };
//   manager.AddDynModule("Mesh", new CMeshModule);
//   if (CDynModule* mesh = manager.GetDynModule("Mesh"))
//       mesh->Initialize();
//
// A module is registered from AddDynModule on, until DelDynModule or its end. Whichever of the two ends
// first, neither the manager nor the module is left with the other. Names are told apart by case.
//
// Ownership: a registered module belongs to its manager, which deletes it with itself; whoever deletes it
// sooner takes it out by that. A refused one stays with the caller, and so does one taken out.
// A copy of a registered module carries its manager and its name: when the copy ends, the original is taken
// out. A module that was added under several names, or to several managers, knows the last only, is still
// deleted once, and leaves all of them then.
// Errors:  CMemoryException and std::bad_alloc when a name cannot be kept; the module stays with the caller.
// Threads: managers and modules that have to do with each other belong to one thread at a time.
#pragma once

#include <afxtempl.h>

class CDynModuleMgr;

class AFX_EXT_CLASS CDynModule
{
public:
    CDynModule();
    CDynModule(const CDynModule& other);
    CDynModule& operator=(const CDynModule& other);
    virtual ~CDynModule();

    // What the module does before it is used: 1, or 0 when it cannot be. The host calls it.
    virtual int Initialize();

private:
    friend class CDynModuleMgr;

    CDynModuleMgr* m_pManager = nullptr; // while registered
    CString m_strName;
};

class AFX_EXT_CLASS CDynModuleMgr
{
public:
    CDynModuleMgr();
    CDynModuleMgr(const CDynModuleMgr&) = delete;
    CDynModuleMgr& operator=(const CDynModuleMgr&) = delete;
    virtual ~CDynModuleMgr();

    // Sets the number of buckets, 11 at first; below 1 counts as 1. 0, and nothing changes, while there are
    // modules; otherwise 1.
    int Initialize(int nSize);

    // 1 when the module is registered from now on; 0 when the name is taken, or a null was given.
    int AddDynModule(const char* name, CDynModule* module);
    // Takes the module out without deleting it: 1. 0 when there is none of that name.
    int DelDynModule(const char* name);
    // Null when there is none of that name.
    CDynModule* GetDynModule(const char* name);

private:
    friend class CDynModule;
    void Leave(const CDynModule* module);

    CMap<CString, LPCSTR, CDynModule*, CDynModule*> m_modules;
};
