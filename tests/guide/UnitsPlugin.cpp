// The plug-in of docs/objects.md.
#include "Units.h"

#include <memory>

class CUnitsAgency : public CServiceAgency
{
public:
    int DoService(int nCode, void* pData) override
    {
        if (nCode != kToInches)
            return 0; // not one of ours
        *static_cast<double*>(pData) /= 0.0254;
        return 1;
    }
};

class CUnitsModule : public CDynModule
{
public:
    int Initialize() override
    {
        auto agency = std::make_unique<CUnitsAgency>();
        if (!CServiceHeadOffice::Instance()->RegAgency("Units", agency.get()))
            return 0;     // somebody else offers it
        agency.release(); // the head office's now
        return 1;
    }
};

extern "C" AFX_EXT_API CDynModule* CreatePlugin()
{
    return new CUnitsModule;
}
