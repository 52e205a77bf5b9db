// A library that refuses to be loaded.
#include <afxdllx.h>

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD, LPVOID)
{
    return FALSE;
}
