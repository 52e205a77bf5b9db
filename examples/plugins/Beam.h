// What the host and its plug-ins agree upon. It is all they share: none of them links with another.
#pragma once

#include <ZEK_lib.h>

struct BeamData {
    double length;    // m
    double load;      // kN/m, along the whole beam
    double stiffness; // kN m2
};

// The codes a beam tells its observers.
constexpr int kBeamChanged = 1;

// The host's object. Plug-ins attach parts to it and observe it.
class CBeam : public CExtObj, public DP_CSubject
{
public:
    const BeamData& Data() const { return m_data; }
    void SetLength(double length)
    {
        m_data.length = length;
        Notify(kBeamChanged, nullptr);
    }

private:
    BeamData m_data = {6, 12, 8000};
};

// The interface "Deflection" of a beam. Any thread may ask for values.
class IDeflection : public CExtObjIntf
{
public:
    // Of a beam on two supports, in m, at the place x from its left end.
    virtual double At(const BeamData& beam, double x) const = 0;
};

// The state "Changes" of a beam.
class CChangeCount : public CExtObjState
{
public:
    int m_count = 0;
};

// Service "Beam" of the host: code kGetBeam answers 1 and writes a CBeam* to the data.
constexpr int kGetBeam = 1;
// Service "Units" of a plug-in: turns the double at the data from metres into inches and answers 1.
constexpr int kToInches = 1;

// What every plug-in exports as "CreatePlugin": its module, for the host to keep.
using CreatePluginFunc = CDynModule*();
