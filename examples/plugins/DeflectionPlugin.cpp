// A plug-in that extends the host's beam and observes it.
#include "Beam.h"

#include <algorithm>

namespace {

// The work that a unit load at x does along the beam, summed up in slices: slow, and good for any load.
class CDeflection : public IDeflection
{
public:
    double At(const BeamData& beam, double x) const override
    {
        constexpr int kSlices = 200000;
        const double slice = beam.length / kSlices;
        double work = 0;
        for (int i = 0; i < kSlices; ++i) {
            const double s = (i + 0.5) * slice;
            const double moment = beam.load * s * (beam.length - s) / 2;
            work += moment * std::min(s, x) * (beam.length - std::max(s, x)) / beam.length;
        }
        return work * slice / beam.stiffness;
    }
};

class CDeflectionModule : public CDynModule
{
public:
    int Initialize() override
    {
        CBeam* beam = nullptr;
        if (CServiceHeadOffice::Instance()->ReqService("Beam", kGetBeam, &beam) != 1)
            return 0;
        beam->AddIntf("Deflection", new CDeflection); // the beam's from now on
        beam->AddState("Changes", new CChangeCount);
        m_observer.SetCallback(&CDeflectionModule::OnBeam, nullptr);
        m_observer.Observe(beam);
        return 1;
    }

private:
    static void OnBeam(void*, DP_CSubject* subject, int code, void*)
    {
        auto* beam = static_cast<CBeam*>(subject);
        auto* changes = static_cast<CChangeCount*>(beam->GetState("Changes"));
        changes->m_count += code == kBeamChanged;
    }

    CObserver m_observer; // lets go of the beam, whichever of them ends first
};

} // namespace

extern "C" AFX_EXT_API CDynModule* CreatePlugin()
{
    return new CDeflectionModule;
}
