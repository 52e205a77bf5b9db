// What a test lets a second process do, one task a run:
//   winapi_child locale          prints what the environment's locale means to the adapter
//   winapi_child load NAME       prints whether LoadLibraryA finds a module
//   winapi_child load NAME IN    the same, after going to another folder
//   winapi_child text PREFIX     prints the text of a product's message library
//   winapi_child add             adds two vectors, then prints the names of the mapped files
//   winapi_child ask             reads a setting, then does the same
//   winapi_child keys FILE KEY   writes 50 keys, KEY and a number, into a profile file
#include "TestProduct.h"

#include <MathFunc.h>
#include <MsgDll.h>
#include <Registry.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <set>
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

int PrintMappedFiles()
{
    std::set<std::string> names;
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);)
        if (const auto path = line.find('/'); path != std::string::npos)
            names.insert(std::filesystem::path(line.substr(path)).filename());
    for (const std::string& name : names)
        std::printf("%s\n", name.c_str());
    return 0;
}

int AddVectors()
{
    const double a[3] = {1.0, 2.0, 3.0}, b[3] = {4.0, 5.0, 6.0};
    double sum[3];
    CMathFunc::Add(a, b, sum);
    return sum[0] == 5.0 && sum[2] == 9.0 ? PrintMappedFiles() : 1;
}

int AskForSetting()
{
    CString text;
    CRegistry::GetProfileString("HKEY_CLASSES_ROOT\\Excel.Application\\CLSID", "", text);
    return text.IsEmpty() ? 1 : PrintMappedFiles();
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
    if (task == "add")
        return AddVectors();
    if (task == "ask")
        return AskForSetting();
    if (task == "text" && argc == 3)
        return PrintText(argv[2]);
    return task == "keys" && argc == 4 ? WriteKeys(argv[2], argv[3]) : 2;
}
