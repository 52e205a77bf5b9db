// Who this host is, as the library asks it.
#pragma once

#include <ZEK_lib.h>

// The places that this host gives no meaning to do nothing.
class DemoProduct : public IProductInfo
{
public:
    // The message library is DEMO_msg.DLL.
    CString GetProductPrefix() override { return "DEMO"; }
    int GetProductID() override { return 1; }
    CString GetAuxText() override { return ""; }
    void Slot2() override {}
    void Slot5() override {}
    void Slot6() override {}
    void Slot7() override {}
    void Slot9() override {}
    void Slot10() override {}
    void Slot11() override {}
    void Slot12() override {}
    void Slot13() override {}
    void Slot14() override {}
    void Slot15() override {}
    void Slot16() override {}
    void Slot17() override {}
    void Slot18() override {}
    void Slot19() override {}
    void Slot20() override {}
    void Slot21() override {}
    void Slot22() override {}
    void Slot23() override {}
    void Slot24() override {}
    void Slot25() override {}
    void Slot26() override {}
    void Slot27() override {}
    void Slot28() override {}
    void Slot29() override {}
    void Slot30() override {}
    void Slot31() override {}
    void Slot32() override {}
    void Slot33() override {}
    void Slot34() override {}
    void Slot39() override {}
    void Slot40() override {}
    void Slot43() override {}
};

// The product's text for a key; the key itself where there is none.
inline CString DemoText(const char* key)
{
    const CString text = CMsgDll::pfuncLoadStr(key, 0);
    return text.IsEmpty() ? CString(key) : text;
}
