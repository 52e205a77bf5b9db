// A message library. It tells what it was asked: built without one export or the other to be refused.
#include <afxver_.h>

#include <cstdio>
#include <cstring>

namespace {

int g_registrations = 0;
int g_product = 0;

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
