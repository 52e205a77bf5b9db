// A host's product, with a prefix that a test chooses.
#pragma once

#include <ProductInfo.h>

class TestProduct : public IProductInfo
{
public:
    explicit TestProduct(const CString& prefix = "ZEKT") : m_prefix(prefix) {}

    CString m_prefix;
    int m_auxAsked = 0;

    CString GetProductPrefix() override { return m_prefix; }
    int GetProductID() override { return 42; }
    CString GetAuxText() override
    {
        ++m_auxAsked;
        return "";
    }
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
