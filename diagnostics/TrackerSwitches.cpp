#include "TrackerSwitches.h"

#include <Product.h>

#include <cstdlib>

#include <MemoryLeakTester.h>

TrackerSwitches::TrackerSwitches() : m_watch("Software\\TOVEN\\TEST")
{
}

void TrackerSwitches::Read()
{
    m_isRead = false;
    m_watch.Renew();
    const CString period = CProduct::GetTestEnvValue("CheckMemoryNOP");
    m_stopAt = std::atoi(CProduct::GetTestEnvValue("CheckMemoryStopAt"));
    m_hasPeriod = !period.IsEmpty(); // before the number that it belongs to
    m_period = std::atoi(period);
    m_isRead = true;
}
