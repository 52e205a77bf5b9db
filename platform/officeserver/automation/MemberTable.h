// The members of an automation object: one table per class feeds name look-up, invocation and the list of
// supported members.
//
//   static const MemberTable table("Window", {
//       {"View", 0x4AA, Property<&WindowObject::View, &WindowObject::SetView>()},
//       {"Item", 0xAA, Get<&WindowsObject::Item>(1, 1)},
//   });
#pragma once

#include "automation/Arguments.h"
#include "automation/Results.h"

#include <oleauto.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace zek::office {

class DispatchObject;

using Handler = void (*)(DispatchObject&, const Arguments&, VARIANT& result);

enum MemberKind : std::uint8_t { kMethod = 1, kGet = 2, kPut = 4 };

// What a member does. `least` and `most` count the arguments, a put value not among them.
struct MemberWork {
    std::uint8_t kinds = 0; // MemberKind bits
    UINT least = 0;
    UINT most = 0;
    Handler read = nullptr; // gets and calls
    Handler write = nullptr;
};

struct Member {
    const char* name;
    DISPID id;
    MemberWork work;
};

class MemberTable
{
public:
    // `className` as error texts say it. Identifiers may repeat (two names of one member); names may not.
    MemberTable(const char* className, std::vector<Member> members);

    const char* ClassName() const { return m_className; }
    const std::vector<Member>& Members() const { return m_members; }

    // Null when there is none.
    const Member* Find(DISPID id) const;
    // Letters compare without case.
    const Member* Find(std::u16string_view name) const;

private:
    static constexpr std::size_t kSlots = 256;
    static std::size_t SlotOf(DISPID id) { return static_cast<ULONG>(id) * 0x9E3779B1u >> 24; }

    const char* m_className;
    std::vector<Member> m_members;
    std::array<std::uint8_t, kSlots> m_slots{}; // number of a member, counted from 1
};

// --- From member functions to handlers ---

template <class Function>
struct FunctionTraits;
template <class R, class C, class... A>
struct FunctionTraits<R (C::*)(A...)> {
    using Class = C;
    using Result = R;
};

// Gets and calls: R Member() or R Member(const Arguments&).
template <auto Function>
void ReadThunk(DispatchObject& object, const Arguments& arguments, VARIANT& result)
{
    using Traits = FunctionTraits<decltype(Function)>;
    auto& self = static_cast<typename Traits::Class&>(object);
    const auto call = [&]() -> decltype(auto) {
        if constexpr (requires { (self.*Function)(arguments); })
            return (self.*Function)(arguments);
        else
            return (self.*Function)();
    };
    if constexpr (std::is_void_v<typename Traits::Result>)
        call();
    else
        StoreResult(result, call());
}

// Puts: void Member(const Argument& value), or void Member(const Arguments&) with indices.
template <auto Function>
void WriteThunk(DispatchObject& object, const Arguments& arguments, VARIANT&)
{
    auto& self = static_cast<typename FunctionTraits<decltype(Function)>::Class&>(object);
    if constexpr (requires { (self.*Function)(arguments); })
        (self.*Function)(arguments);
    else
        (self.*Function)(arguments.PutValue());
}

template <auto Function>
MemberWork Get(UINT least = 0, UINT most = 0)
{
    return {kGet, least, most, &ReadThunk<Function>, nullptr};
}
template <auto Function>
MemberWork Call(UINT least = 0, UINT most = 0)
{
    return {kMethod, least, most, &ReadThunk<Function>, nullptr};
}
template <auto Getter, auto Setter>
MemberWork Property(UINT least = 0, UINT most = 0)
{
    return {kGet | kPut, least, most, &ReadThunk<Getter>, &WriteThunk<Setter>};
}

} // namespace zek::office
