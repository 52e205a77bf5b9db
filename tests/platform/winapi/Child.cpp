// What a test lets a second process do, one task a run:
//   winapi_child locale          prints what the environment's locale means to the adapter
//   winapi_child load NAME       prints whether LoadLibraryA finds a module
//   winapi_child load NAME IN    the same, after going to another folder
//   winapi_child text PREFIX     prints the text of a product's message library
//   winapi_child keys FILE KEY   writes 50 keys, KEY and a number, into a profile file
#include "TestProduct.h"

#include <MsgDll.h>

#include <cstdio>
#include <cstring>
#include <string>

namespace {

int PrintLocale()
{
    std::printf("%u %04x %04x\n", GetACP(), GetSystemDefaultLangID(), GetUserDefaultUILanguage());
    return 0;
}

int Load(const char* name, const char* folder)
{
    if (folder && !SetCurrentDirectoryA(folder))
        return 1;
    std::printf("%s\n", LoadLibraryA(name) ? "loaded" : "refused");
    return 0;
}

int PrintText(const char* prefix)
{
    TestProduct product(prefix);
    std::printf("%s", CMsgDll::pfuncLoadStr("key", 0));
    return 0;
}

int WriteKeys(const char* file, const char* key)
{
    for (int i = 0; i < 50; ++i)
        if (!WritePrivateProfileStringA("keys", (key + std::to_string(i)).c_str(), "x", file))
            return 1;
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    const std::string task = argc > 1 ? argv[1] : "";
    if (task == "locale")
        return PrintLocale();
    if (task == "load" && (argc == 3 || argc == 4))
        return Load(argv[2], argv[3]);
    if (task == "text" && argc == 3)
        return PrintText(argv[2]);
    return task == "keys" && argc == 4 ? WriteKeys(argv[2], argv[3]) : 2;
}
