#include "CountedObject.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using Text = std::basic_string<OLECHAR>;

TEST(Variant, ClearingFreesWhatItOwns)
{
    auto* object = new CountedObject(1);
    VARIANT value;
    VariantInit(&value);
    V_VT(&value) = VT_DISPATCH;
    V_DISPATCH(&value) = object;
    object->AddRef();
    EXPECT_EQ(VariantClear(&value), S_OK);
    EXPECT_EQ(V_VT(&value), VT_EMPTY);
    EXPECT_EQ(object->References(), 1u);
    object->Release();
    EXPECT_EQ(CountedObject::Alive(), 0);
}

TEST(Variant, ReferencesOwnNothing)
{
    BSTR text = SysAllocString(OLESTR("kept"));
    VARIANT value;
    V_VT(&value) = VT_BSTR | VT_BYREF;
    V_BSTRREF(&value) = &text;
    EXPECT_EQ(VariantClear(&value), S_OK);
    EXPECT_EQ(Text(text), OLESTR("kept"));
    SysFreeString(text);
}

TEST(Variant, KindsThatNoVariantHas)
{
    for (const int vt :
         {15, 0x18, 0x1B, 0x1D, 0x50, 0x0FFF, VT_VECTOR | VT_I4, VT_EMPTY | VT_BYREF, VT_NULL | VT_ARRAY}) {
        SCOPED_TRACE(vt);
        VARIANT value = {};
        V_VT(&value) = static_cast<VARTYPE>(vt);
        EXPECT_EQ(VariantClear(&value), DISP_E_BADVARTYPE);
        VARIANT copy = {};
        EXPECT_EQ(VariantCopy(&copy, &value), DISP_E_BADVARTYPE);
    }
}

TEST(Variant, CopiesAreDeep)
{
    auto* object = new CountedObject(1);
    VARIANT value = {}, copy = {};
    V_VT(&value) = VT_UNKNOWN;
    V_UNKNOWN(&value) = object;
    EXPECT_EQ(VariantCopy(&copy, &value), S_OK);
    EXPECT_EQ(object->References(), 2u);
    V_VT(&value) = VT_BSTR;
    V_BSTR(&value) = SysAllocStringLen(OLESTR("a\0b"), 3);
    EXPECT_EQ(VariantCopy(&copy, &value), S_OK) << "what the copy held is freed";
    EXPECT_EQ(object->References(), 1u);
    EXPECT_NE(V_BSTR(&copy), V_BSTR(&value));
    EXPECT_EQ(SysStringLen(V_BSTR(&copy)), 3u);
    EXPECT_EQ(VariantCopy(&value, &value), S_OK);
    VariantClear(&value);
    VariantClear(&copy);
    object->Release();
    EXPECT_EQ(CountedObject::Alive(), 0);
}

TEST(Variant, FollowsReferencesOnce)
{
    LONG number = 7;
    VARIANT inner = {}, outer = {}, copy = {};
    V_VT(&inner) = VT_I4 | VT_BYREF;
    V_I4REF(&inner) = &number;
    V_VT(&outer) = VT_VARIANT | VT_BYREF;
    V_VARIANTREF(&outer) = &inner;
    EXPECT_EQ(VariantCopyInd(&copy, &inner), S_OK);
    EXPECT_EQ(V_VT(&copy), VT_I4);
    EXPECT_EQ(V_I4(&copy), 7);
    VariantClear(&copy);
    EXPECT_EQ(VariantCopyInd(&copy, &outer), S_OK);
    EXPECT_EQ(V_VT(&copy), VT_I4);
    V_VT(&inner) = VT_VARIANT | VT_BYREF;
    V_VARIANTREF(&inner) = &copy;
    VARIANT none = {};
    EXPECT_EQ(VariantCopyInd(&none, &outer), E_INVALIDARG);
}

TEST(Variant, FollowsAReferenceIntoItself)
{
    BSTR text = SysAllocString(OLESTR("text"));
    VARIANT value = {};
    V_VT(&value) = VT_BSTR | VT_BYREF;
    V_BSTRREF(&value) = &text;
    EXPECT_EQ(VariantCopyInd(&value, &value), S_OK);
    EXPECT_EQ(V_VT(&value), VT_BSTR);
    EXPECT_NE(V_BSTR(&value), text);
    EXPECT_EQ(Text(V_BSTR(&value)), OLESTR("text"));
    VariantClear(&value);
    SysFreeString(text);
}

} // namespace
