// A message library. It tells how often it was loaded and what it was asked: built without one export or the
// other to be refused.
#include <afx.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

int g_registrations = 0;
int g_product = 0;

// Counts in the process's environment, which outlives the library.
struct LoadCounter {
    LoadCounter()
    {
        char count[16] = "0";
        GetEnvironmentVariableA("ZEK_MESSAGE_LOADS", count, sizeof count);
        std::snprintf(count, sizeof count, "%d", std::atoi(count) + 1);
        SetEnvironmentVariableA("ZEK_MESSAGE_LOADS", count);
    }
} g_counter;

} // namespace

#ifdef WITH_LOAD
extern "C" AFX_EXPORT_ const char* LoadStr(const char* key, int option)
{
    static char answer[64];
    if (std::strcmp(key, "missing") == 0)
        return nullptr;
    std::snprintf(answer, sizeof answer, "%s %d, registered %d for %d", key, option, g_registrations,
                  g_product);
    return answer;
}
#endif

#ifdef WITH_REGISTER
extern "C" AFX_EXPORT_ int RegAllStrRes(int product)
{
    ++g_registrations;
    g_product = product;
    return 0;
}
#endif
