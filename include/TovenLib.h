// The host's library object: a host makes one of a class that it derives from ITovenLib.
#pragma once

#include <afxver_.h>

// The members stand in a fixed order that hosts built against older headers rely on; the first has a meaning
// for hosts only and is never called by the library.
class AFX_EXT_CLASS ITovenLib
{
public:
    virtual void Slot0() = 0;

protected:
    // No object is the instance any more, whichever was.
    virtual ~ITovenLib();

public:
    // The object made last, or null once any object has been destroyed since.
    static ITovenLib* Instance();

    // Copies are never the instance.
    ITovenLib(const ITovenLib&) {}
    ITovenLib& operator=(const ITovenLib&) { return *this; }

protected:
    // This object becomes the instance, whichever was.
    ITovenLib();
};
