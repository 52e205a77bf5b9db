#include "CountedObject.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(SafeArray, TheFirstDimensionRunsFastest)
{
    SAFEARRAYBOUND bounds[] = {{2, 1}, {3, -1}};
    SAFEARRAY* array = SafeArrayCreate(VT_I4, 2, bounds);
    ASSERT_NE(array, nullptr);
    EXPECT_EQ(SafeArrayGetDim(array), 2u);
    EXPECT_EQ(SafeArrayGetElemsize(array), 4u);
    VARTYPE vt = 0;
    EXPECT_EQ(SafeArrayGetVartype(array, &vt), S_OK);
    EXPECT_EQ(vt, VT_I4);
    for (LONG i = 1; i <= 2; ++i)
        for (LONG j = -1; j <= 1; ++j) {
            LONG indices[] = {i, j};
            LONG value = 10 * i + j;
            EXPECT_EQ(SafeArrayPutElement(array, indices, &value), S_OK);
        }
    void* data = nullptr;
    EXPECT_EQ(SafeArrayAccessData(array, &data), S_OK);
    const LONG expected[] = {9, 19, 10, 20, 11, 21};
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(static_cast<LONG*>(data)[i], expected[i]) << i;
    EXPECT_EQ(SafeArrayDestroy(array), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(SafeArrayUnaccessData(array), S_OK);
    EXPECT_EQ(SafeArrayUnlock(array), E_UNEXPECTED);
    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
}

TEST(SafeArray, Bounds)
{
    SAFEARRAYBOUND bounds[] = {{2, 5}, {0, -3}};
    SAFEARRAY* array = SafeArrayCreate(VT_R8, 2, bounds);
    const struct {
        UINT dimension;
        HRESULT result;
        LONG lower, upper;
    } rows[] = {{1, S_OK, 5, 6}, {2, S_OK, -3, -4}, {0, DISP_E_BADINDEX, 0, 0}, {3, DISP_E_BADINDEX, 0, 0}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.dimension);
        LONG lower = 0, upper = 0;
        EXPECT_EQ(SafeArrayGetLBound(array, row.dimension, &lower), row.result);
        EXPECT_EQ(SafeArrayGetUBound(array, row.dimension, &upper), row.result);
        EXPECT_EQ(lower, row.lower);
        EXPECT_EQ(upper, row.upper);
    }
    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
    EXPECT_EQ(SafeArrayCreate(VT_I4, 0, bounds), nullptr);
    EXPECT_EQ(SafeArrayCreate(VT_EMPTY, 1, bounds), nullptr);
}

TEST(SafeArray, IndicesOutsideAreRefused)
{
    SAFEARRAY* array = SafeArrayCreateVector(VT_I4, 1, 3);
    for (LONG index : {0, 4, -2147483647, 2147483647}) {
        LONG value = 1;
        EXPECT_EQ(SafeArrayPutElement(array, &index, &value), DISP_E_BADINDEX) << index;
        EXPECT_EQ(SafeArrayGetElement(array, &index, &value), DISP_E_BADINDEX) << index;
    }
    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
}

TEST(SafeArray, OwnsTextsVariantsAndObjects)
{
    auto* object = new CountedObject(3);
    SAFEARRAY* objects = SafeArrayCreateVector(VT_DISPATCH, 0, 2);
    SAFEARRAY* variants = SafeArrayCreateVector(VT_VARIANT, 0, 2);
    SAFEARRAY* texts = SafeArrayCreateVector(VT_BSTR, 0, 2);
    LONG first = 0;
    EXPECT_EQ(SafeArrayPutElement(objects, &first, static_cast<IDispatch*>(object)), S_OK);
    EXPECT_EQ(SafeArrayPutElement(objects, &first, static_cast<IDispatch*>(object)), S_OK);
    VARIANT value = {};
    V_VT(&value) = VT_DISPATCH;
    V_DISPATCH(&value) = object;
    EXPECT_EQ(SafeArrayPutElement(variants, &first, &value), S_OK);
    EXPECT_EQ(object->References(), 3u);
    BSTR text = SysAllocString(OLESTR("text"));
    EXPECT_EQ(SafeArrayPutElement(texts, &first, text), S_OK);
    BSTR copy = nullptr;
    EXPECT_EQ(SafeArrayGetElement(texts, &first, &copy), S_OK);
    EXPECT_NE(copy, text);
    EXPECT_EQ(SysStringLen(copy), 4u);
    SysFreeString(copy);
    SysFreeString(text);

    SAFEARRAY* copied = nullptr;
    EXPECT_EQ(SafeArrayCopy(variants, &copied), S_OK);
    EXPECT_EQ(object->References(), 4u);
    VARIANT holder = {};
    V_VT(&holder) = VT_ARRAY | VT_VARIANT;
    V_ARRAY(&holder) = copied;
    VARIANT second = {};
    EXPECT_EQ(VariantCopy(&second, &holder), S_OK);
    EXPECT_EQ(object->References(), 5u);
    VariantClear(&second);
    VariantClear(&holder);
    for (SAFEARRAY* array : {objects, variants, texts})
        EXPECT_EQ(SafeArrayDestroy(array), S_OK);
    EXPECT_EQ(object->References(), 1u);
    object->Release();
    EXPECT_EQ(CountedObject::Alive(), 0);
}

} // namespace
