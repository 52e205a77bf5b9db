// Prints what the environment's locale means to the adapter.
#include <windows.h>

#include <cstdio>

int main()
{
    std::printf("%u %04x %04x\n", GetACP(), GetSystemDefaultLangID(), GetUserDefaultUILanguage());
}
