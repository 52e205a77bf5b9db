// Arrays of automation values.
#include "VariantTypes.h"

#include <oleauto.h>

#include <cstdlib>
#include <limits>

namespace {

// The kind of the elements stands in front of the descriptor, where callers do not see it.
constexpr std::size_t kHidden = 16;
constexpr ULONG kMaxLocks = 65535;

char* Block(SAFEARRAY* array)
{
    return reinterpret_cast<char*>(array) - kHidden;
}

VARTYPE Kind(SAFEARRAY* array)
{
    VARTYPE vt;
    std::memcpy(&vt, Block(array), sizeof vt);
    return vt;
}

USHORT Features(VARTYPE vt)
{
    switch (vt) {
    case VT_BSTR:
        return FADF_BSTR;
    case VT_VARIANT:
        return FADF_VARIANT;
    case VT_DISPATCH:
        return FADF_DISPATCH | FADF_HAVEIID;
    case VT_UNKNOWN:
        return FADF_UNKNOWN | FADF_HAVEIID;
    default:
        return FADF_HAVEVARTYPE;
    }
}

// False when the product leaves the range of a LONG.
bool CountElements(const SAFEARRAY& array, std::size_t& count)
{
    count = 1;
    for (USHORT i = 0; i < array.cDims; ++i) {
        const ULONG n = array.rgsabound[i].cElements;
        if (n != 0 && count > static_cast<std::size_t>(std::numeric_limits<LONG>::max()) / n)
            return false;
        count *= n;
    }
    return true;
}

std::size_t ElementCount(const SAFEARRAY& array)
{
    std::size_t count;
    return CountElements(array, count) ? count : 0;
}

SAFEARRAY* MakeDescriptor(VARTYPE vt, UINT dimensions)
{
    const std::size_t bounds = dimensions * sizeof(SAFEARRAYBOUND);
    auto* block = static_cast<char*>(std::calloc(1, kHidden + sizeof(SAFEARRAY) + bounds));
    if (!block)
        return nullptr;
    std::memcpy(block, &vt, sizeof vt);
    auto* array = reinterpret_cast<SAFEARRAY*>(block + kHidden);
    array->cDims = static_cast<USHORT>(dimensions);
    array->fFeatures = Features(vt);
    array->cbElements = static_cast<ULONG>(ElementSize(vt));
    return array;
}

bool AllocateElements(SAFEARRAY& array)
{
    std::size_t count;
    if (!CountElements(array, count))
        return false;
    array.pvData = std::calloc(count ? count : 1, array.cbElements);
    return array.pvData != nullptr;
}

void* ElementAt(const SAFEARRAY& array, std::size_t index)
{
    return static_cast<char*>(array.pvData) + index * array.cbElements;
}

void FreeElement(const SAFEARRAY& array, void* element)
{
    if (array.fFeatures & FADF_BSTR)
        SysFreeString(*static_cast<BSTR*>(element));
    else if (array.fFeatures & FADF_VARIANT)
        VariantClear(static_cast<VARIANT*>(element));
    else if (array.fFeatures & (FADF_DISPATCH | FADF_UNKNOWN))
        if (IUnknown* object = *static_cast<IUnknown**>(element))
            object->Release();
}

// Copies one element; `to` is raw memory.
HRESULT CopyElement(const SAFEARRAY& array, void* from, void* to)
{
    if (array.fFeatures & FADF_BSTR)
        return CopyText(*static_cast<BSTR*>(from), static_cast<BSTR*>(to));
    if (array.fFeatures & FADF_VARIANT) {
        VariantInit(static_cast<VARIANT*>(to));
        return VariantCopy(static_cast<VARIANT*>(to), static_cast<VARIANT*>(from));
    }
    std::memcpy(to, from, array.cbElements);
    if (array.fFeatures & (FADF_DISPATCH | FADF_UNKNOWN))
        if (IUnknown* object = *static_cast<IUnknown**>(to))
            object->AddRef();
    return S_OK;
}

HRESULT CopyElements(const SAFEARRAY& from, const SAFEARRAY& to)
{
    const std::size_t count = ElementCount(from);
    for (std::size_t i = 0; i < count; ++i)
        if (const HRESULT copied = CopyElement(from, ElementAt(from, i), ElementAt(to, i)); FAILED(copied))
            return copied;
    return S_OK;
}

// Bounds stand in the descriptor last dimension first.
const SAFEARRAYBOUND* BoundOf(SAFEARRAY* array, UINT dimension)
{
    if (!array || dimension < 1 || dimension > array->cDims)
        return nullptr;
    return array->rgsabound + (array->cDims - dimension);
}

HRESULT Locate(SAFEARRAY* array, const LONG* indices, void** element)
{
    std::size_t place = 0;
    std::size_t stride = 1;
    for (UINT i = 1; i <= array->cDims; ++i) {
        const SAFEARRAYBOUND& bound = *BoundOf(array, i);
        const LONGLONG offset = LONGLONG{indices[i - 1]} - bound.lLbound;
        if (offset < 0 || offset >= LONGLONG{bound.cElements})
            return DISP_E_BADINDEX;
        place += static_cast<std::size_t>(offset) * stride;
        stride *= bound.cElements;
    }
    *element = ElementAt(*array, place);
    return S_OK;
}

// Texts and objects arrive as themselves, everything else by address.
bool IsPointerKind(const SAFEARRAY& array)
{
    return (array.fFeatures & (FADF_BSTR | FADF_DISPATCH | FADF_UNKNOWN)) != 0;
}

} // namespace

SAFEARRAY* WINAPI SafeArrayCreate(VARTYPE vt, UINT dimensions, SAFEARRAYBOUND* bounds)
{
    if (dimensions < 1 || dimensions > 65535 || !bounds || vt == VT_PTR || ElementSize(vt) == 0)
        return nullptr;
    SAFEARRAY* array = MakeDescriptor(vt, dimensions);
    if (!array)
        return nullptr;
    for (UINT i = 0; i < dimensions; ++i)
        array->rgsabound[i] = bounds[dimensions - 1 - i];
    if (AllocateElements(*array))
        return array;
    std::free(Block(array));
    return nullptr;
}

SAFEARRAY* WINAPI SafeArrayCreateVector(VARTYPE vt, LONG lower, ULONG count)
{
    SAFEARRAYBOUND bound = {count, lower};
    return SafeArrayCreate(vt, 1, &bound);
}

HRESULT WINAPI SafeArrayDestroy(SAFEARRAY* array)
{
    if (!array)
        return S_OK;
    if (array->cLocks != 0)
        return DISP_E_ARRAYISLOCKED;
    const std::size_t count = ElementCount(*array);
    for (std::size_t i = 0; i < count; ++i)
        FreeElement(*array, ElementAt(*array, i));
    std::free(array->pvData);
    std::free(Block(array));
    return S_OK;
}

HRESULT WINAPI SafeArrayCopy(SAFEARRAY* array, SAFEARRAY** copy)
{
    if (!copy)
        return E_INVALIDARG;
    *copy = nullptr;
    if (!array)
        return S_OK;
    SAFEARRAY* made = MakeDescriptor(Kind(array), array->cDims);
    if (!made)
        return E_OUTOFMEMORY;
    std::memcpy(made->rgsabound, array->rgsabound, array->cDims * sizeof(SAFEARRAYBOUND));
    const HRESULT copied = AllocateElements(*made) ? CopyElements(*array, *made) : E_OUTOFMEMORY;
    if (SUCCEEDED(copied))
        *copy = made;
    else if (made->pvData)
        SafeArrayDestroy(made);
    else
        std::free(Block(made));
    return copied;
}

UINT WINAPI SafeArrayGetDim(SAFEARRAY* array)
{
    return array ? array->cDims : 0;
}

UINT WINAPI SafeArrayGetElemsize(SAFEARRAY* array)
{
    return array ? array->cbElements : 0;
}

HRESULT WINAPI SafeArrayGetVartype(SAFEARRAY* array, VARTYPE* vt)
{
    if (!array || !vt)
        return E_INVALIDARG;
    *vt = Kind(array);
    return S_OK;
}

HRESULT WINAPI SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* bound)
{
    if (!array || !bound)
        return E_INVALIDARG;
    const SAFEARRAYBOUND* found = BoundOf(array, dimension);
    if (!found)
        return DISP_E_BADINDEX;
    *bound = found->lLbound;
    return S_OK;
}

HRESULT WINAPI SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* bound)
{
    if (!array || !bound)
        return E_INVALIDARG;
    const SAFEARRAYBOUND* found = BoundOf(array, dimension);
    if (!found)
        return DISP_E_BADINDEX;
    *bound = static_cast<LONG>(found->lLbound + LONGLONG{found->cElements} - 1);
    return S_OK;
}

HRESULT WINAPI SafeArrayPtrOfIndex(SAFEARRAY* array, LONG* indices, void** value)
{
    if (!array || !indices || !value)
        return E_INVALIDARG;
    return Locate(array, indices, value);
}

HRESULT WINAPI SafeArrayGetElement(SAFEARRAY* array, LONG* indices, void* value)
{
    void* element = nullptr;
    if (!value)
        return E_INVALIDARG;
    const HRESULT found = SafeArrayPtrOfIndex(array, indices, &element);
    return FAILED(found) ? found : CopyElement(*array, element, value);
}

HRESULT WINAPI SafeArrayPutElement(SAFEARRAY* array, LONG* indices, void* value)
{
    void* element = nullptr;
    if (const HRESULT found = SafeArrayPtrOfIndex(array, indices, &element); FAILED(found))
        return found;
    if (!value && !IsPointerKind(*array))
        return E_INVALIDARG;
    VARIANT copy = {}; // no element is larger
    const HRESULT copied = CopyElement(*array, IsPointerKind(*array) ? &value : value, &copy);
    if (FAILED(copied))
        return copied;
    FreeElement(*array, element);
    std::memcpy(element, &copy, array->cbElements);
    return S_OK;
}

HRESULT WINAPI SafeArrayLock(SAFEARRAY* array)
{
    if (!array)
        return E_INVALIDARG;
    if (array->cLocks == kMaxLocks)
        return E_UNEXPECTED;
    ++array->cLocks;
    return S_OK;
}

HRESULT WINAPI SafeArrayUnlock(SAFEARRAY* array)
{
    if (!array)
        return E_INVALIDARG;
    if (array->cLocks == 0)
        return E_UNEXPECTED;
    --array->cLocks;
    return S_OK;
}

HRESULT WINAPI SafeArrayAccessData(SAFEARRAY* array, void** data)
{
    if (!data)
        return E_INVALIDARG;
    const HRESULT locked = SafeArrayLock(array);
    if (SUCCEEDED(locked))
        *data = array->pvData;
    return locked;
}

HRESULT WINAPI SafeArrayUnaccessData(SAFEARRAY* array)
{
    return SafeArrayUnlock(array);
}
