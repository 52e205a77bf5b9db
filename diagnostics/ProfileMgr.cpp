#include <ProfileMgr.h>

#include "MilliClock.h"
#include "ProfileIndex.h"

#include "../frame/TestValue.h"

#include <RegistryWatch.h>
#include <TestEnvMgr.h>

#include <cstdlib>
#include <cstring>
#include <memory>

namespace {

constexpr UINT kBuckets = 997;
constexpr double kSecondsPerTick = 0.001;
constexpr double kZeroSeconds = 1e-5;

} // namespace

void CProfileIndex::Enter(const char* name, const char* kept, T_PROFILE_DATA* data)
{
    if (2 * m_count >= m_slots.size())
        Grow();
    Slot& slot = m_slots[SlotOf(name)];
    m_count += slot.name == nullptr;
    slot = {name, kept, data};
}

void CProfileIndex::Grow()
{
    std::vector<Slot> old(2 * m_slots.size());
    old.swap(m_slots);
    for (const Slot& slot : old)
        if (slot.name)
            m_slots[SlotOf(slot.name)] = slot;
}

CProfilePrinterAdaptor::CProfilePrinterAdaptor() = default;
CProfilePrinterAdaptor::CProfilePrinterAdaptor(const CProfilePrinterAdaptor&) = default;
CProfilePrinterAdaptor& CProfilePrinterAdaptor::operator=(const CProfilePrinterAdaptor&) = default;
CProfilePrinterAdaptor::~CProfilePrinterAdaptor() = default;

int CProfilePrinterAdaptor::BeforePrint()
{
    return 1;
}

void CProfilePrinterAdaptor::AfterPrint()
{
}

CProfileMgr::CProfileMgr() : m_index(new CProfileIndex)
{
    m_calls.InitHashTable(kBuckets);
    m_labels.InitHashTable(kBuckets);
    // The registry is not opened for what it cannot hold: nearly every start of a program finds no switch.
    if (RegistryMayHoldValues() && TestValue("Profiling") == "yes")
        StartProfilingST();
}

CProfileMgr::~CProfileMgr()
{
    if (this == &m_shared)
        StopProfilingST(); // calls that end later have no table
    delete m_index;
}

void CProfileMgr::StartProfilingST()
{
    m_bStopped = 0;
}

void CProfileMgr::StopProfilingST()
{
    m_bStopped = 1;
}

void CProfileMgr::PrintST(CProfilePrinterAdaptor* adaptor)
{
    m_shared.Print(adaptor);
}

void CProfileMgr::CalledST(const char* file, int line, const char* function, LONG ticks)
{
    m_shared.Called(file, line, function, ticks);
}

void CProfileMgr::Called(const char* file, int line, const char* function, LONG ticks)
{
    T_PROFILE_DATA* known = m_index->Find(function);
    T_PROFILE_DATA& data = known ? *known : Find(file, line, function);
    ++data.count;
    data.total = static_cast<LONG>(static_cast<DWORD>(data.total) + static_cast<DWORD>(ticks));
}

T_PROFILE_DATA& CProfileMgr::Find(const char* file, int line, const char* function)
{
    auto* call = m_calls.PLookup(function);
    if (!call) {
        T_PROFILE_DATA data = {static_cast<UINT>(m_calls.GetCount()) + 1, 0, 0};
        CString label;
        label.Format("%s(%d) %s", file, line, function);
        m_labels.SetAt(data.id, label);
        m_calls.SetAt(function, data);
        call = m_calls.PLookup(function);
    }
    m_index->Enter(function, call->key, &call->value);
    return call->value;
}

int CProfileMgr::CompareProfileDataST(const void* a, const void* b)
{
    int left, right;
    std::memcpy(&left, a, sizeof left);
    std::memcpy(&right, b, sizeof right);
    return left < right ? -1 : left > right;
}

void CProfileMgr::Print(CProfilePrinterAdaptor* adaptor)
{
    if (!adaptor || m_calls.IsEmpty())
        return;
    const bool skipsZero = RegistryMayHoldValues() && CTestEnvMgr::GetTestEnvST("ProfSkipZero") == "yes";
    CArray<T_PROFILE_DATA, T_PROFILE_DATA&> rows;
    for (auto* call = m_calls.PGetFirstAssoc(); call; call = m_calls.PGetNextAssoc(call))
        rows.Add(call->value);
    std::qsort(rows.GetData(), static_cast<std::size_t>(rows.GetSize()), sizeof(T_PROFILE_DATA),
               CompareProfileDataST);
    if (!adaptor->BeforePrint())
        return;
    adaptor->PrintLine("*** Dumping Profiling Result ***");
    for (int i = 0; i < rows.GetSize(); ++i) {
        const double seconds = rows[i].total * kSecondsPerTick;
        if (skipsZero && seconds < kZeroSeconds)
            continue;
        CString label, line;
        m_labels.Lookup(rows[i].id, label);
        line.Format("%s : %d, %g", label, rows[i].count, seconds);
        adaptor->PrintLine(line);
    }
    adaptor->AfterPrint();
}

void CProfiler::Start(const char* file, int line, const char* function)
{
    m_file = file;
    m_line = line;
    m_function = function;
    m_start = MilliClock();
}

void CProfiler::Stop()
{
    if (CProfileMgr::IsStopped())
        return;
    const DWORD ticks = static_cast<DWORD>(MilliClock()) - static_cast<DWORD>(m_start);
    CProfileMgr::m_shared.Called(m_file, m_line, m_function, static_cast<LONG>(ticks));
}
