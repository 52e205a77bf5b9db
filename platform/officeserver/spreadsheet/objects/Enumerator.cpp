#include "spreadsheet/objects/Enumerator.h"

#include <algorithm>
#include <new>
#include <utility>

namespace zek::office {

Enumerator::Enumerator(std::uint64_t count, std::function<IDispatch*(std::uint64_t)> at)
    : m_count(count), m_at(std::move(at))
{
}

HRESULT Enumerator::QueryInterface(REFIID riid, void** object)
{
    if (!object)
        return E_POINTER;
    const bool known = riid == IID_IUnknown || riid == IID_IEnumVARIANT;
    *object = known ? this : nullptr;
    if (!known)
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG Enumerator::Release()
{
    const ULONG left = --m_references;
    if (left == 0)
        delete this;
    return left;
}

HRESULT Enumerator::Next(ULONG count, VARIANT* values, ULONG* fetched)
{
    ULONG done = 0;
    try {
        for (; done < count && m_next < m_count; ++done, ++m_next) {
            values[done].pdispVal = m_at(m_next);
            values[done].vt = VT_DISPATCH;
        }
    } catch (const std::exception&) {
        m_next = m_count;
    }
    if (fetched)
        *fetched = done;
    return done == count ? S_OK : S_FALSE;
}

HRESULT Enumerator::Skip(ULONG count)
{
    const std::uint64_t left = m_count - m_next;
    m_next += std::min<std::uint64_t>(count, left);
    return count <= left ? S_OK : S_FALSE;
}

HRESULT Enumerator::Reset()
{
    m_next = 0;
    return S_OK;
}

HRESULT Enumerator::Clone(IEnumVARIANT** copy)
try {
    if (!copy)
        return E_POINTER;
    auto* const made = new Enumerator(m_count, m_at);
    made->m_next = m_next;
    *copy = made;
    return S_OK;
} catch (const std::bad_alloc&) {
    *copy = nullptr;
    return E_OUTOFMEMORY;
}

} // namespace zek::office
