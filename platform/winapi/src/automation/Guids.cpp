// The identifiers of the interfaces that this adapter offers.
#include <oaidl.h>

namespace {

// The component library's own identifiers differ in their first number only.
constexpr GUID OwnGuid(std::uint32_t first)
{
    return {first, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
}

} // namespace

constexpr GUID GUID_NULL = {0, 0, 0, {0, 0, 0, 0, 0, 0, 0, 0}};
constexpr IID IID_IUnknown = OwnGuid(0x00000000);
constexpr IID IID_IClassFactory = OwnGuid(0x00000001);
constexpr IID IID_IMessageFilter = OwnGuid(0x00000016);
constexpr IID IID_IDispatch = OwnGuid(0x00020400);
constexpr IID IID_IEnumVARIANT = OwnGuid(0x00020404);
