// Who the host is: a host makes one object of a class that it derives from IProductInfo.
#pragma once

#include <afx.h>

// Identity and session of the host application.
//
// The members stand in a fixed order that hosts built against older headers rely on; those that only hosts
// give a meaning bear their place's number and are never called by the library.
class AFX_EXT_CLASS IProductInfo
{
protected:
    virtual ~IProductInfo();

public:
    // Short code of the product; names the message library (see MsgDll.h).
    virtual CString GetProductPrefix() = 0;
    virtual void Slot2() = 0;
    // The product's number.
    virtual int GetProductID() = 0;
    virtual int GetIs2DProduct();
    virtual void Slot5() = 0;
    virtual void Slot6() = 0;
    virtual void Slot7() = 0;
    // Asked when the message library is bound; the answer is not used.
    virtual CString GetAuxText() = 0;
    virtual void Slot9() = 0;
    virtual void Slot10() = 0;
    virtual void Slot11() = 0;
    virtual void Slot12() = 0;
    virtual void Slot13() = 0;
    virtual void Slot14() = 0;
    virtual void Slot15() = 0;
    virtual void Slot16() = 0;
    virtual void Slot17() = 0;
    virtual void Slot18() = 0;
    virtual void Slot19() = 0;
    virtual void Slot20() = 0;
    virtual void Slot21() = 0;
    virtual void Slot22() = 0;
    virtual void Slot23() = 0;
    virtual void Slot24() = 0;
    virtual void Slot25() = 0;
    virtual void Slot26() = 0;
    virtual void Slot27() = 0;
    virtual void Slot28() = 0;
    virtual void Slot29() = 0;
    virtual void Slot30() = 0;
    virtual void Slot31() = 0;
    virtual void Slot32() = 0;
    virtual void Slot33() = 0;
    virtual void Slot34() = 0;
    virtual int GetConvertMode() const;
    virtual void SetConvertMode(int mode);
    virtual int ExistConvertWarning() const;
    virtual void SetConvertWarning(int warning);
    virtual void Slot39() = 0;
    virtual void Slot40() = 0;
    virtual void SetSessionFile(CString& path);
    // The path stored last; `unused` is neither read nor written.
    virtual CString GetSessionFile(CString& unused);
    virtual void Slot43() = 0;

    // The first object ever made, or null. It stays when the object is destroyed: a host keeps its object for
    // the life of the process.
    static IProductInfo* Instance();
    static IProductInfo* m_pInstance;

    // Copies carry the session on but are never the instance.
    IProductInfo(const IProductInfo& source);
    IProductInfo& operator=(const IProductInfo& source);

protected:
    IProductInfo();

private:
    CString m_sessionFile;
    int m_convertMode = 0;
    int m_convertWarning = 0;
};
