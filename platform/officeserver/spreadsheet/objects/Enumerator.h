// What _NewEnum answers: the members of a collection, one after the other.
#pragma once

#include "automation/DispatchObject.h"

#include <cstdint>
#include <functional>

namespace zek::office {

class Enumerator final : public IEnumVARIANT
{
public:
    // `at` makes the member number `index`, counted from 0, with a reference for the caller; it may throw
    // when the collection is gone, which ends the enumeration.
    Enumerator(std::uint64_t count, std::function<IDispatch*(std::uint64_t)> at);

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* values, ULONG* fetched) override;
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override;
    HRESULT STDMETHODCALLTYPE Reset() override;
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** copy) override;

private:
    virtual ~Enumerator() = default;

    std::uint64_t m_count;
    std::uint64_t m_next = 0;
    std::function<IDispatch*(std::uint64_t)> m_at;
    ULONG m_references = 1;
    LiveObject m_alive;
};

} // namespace zek::office
