// A process that a test kills while it writes settings.
//   registry_writer write COUNT    writes values 1 to COUNT and prints each number once it is written
//   registry_writer check          reads such numbers and tells whether each value is there and the store
//   works
#include <Registry.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

const char* const kPath = "HKEY_CURRENT_USER\\Software\\TOVEN\\TEST";

std::string Name(int number)
{
    return "value " + std::to_string(number);
}

// Of many lengths, so that the file's pages fill and split.
std::string Text(int number)
{
    return Name(number) + std::string(static_cast<std::size_t>(number) * 389 % 3001, '.');
}

bool Write(int number)
{
    return CRegistry::WriteProfileString(kPath, Name(number).c_str(), Text(number).c_str()) != 0;
}

bool IsThere(int number)
{
    CString text;
    return CRegistry::GetProfileString(kPath, Name(number).c_str(), text) && text == Text(number).c_str();
}

int WriteAll(int count)
{
    for (int number = 1; number <= count; ++number) {
        if (!Write(number))
            return 1;
        std::printf("%d\n", number);
        std::fflush(stdout);
        if (number == count / 2 && RegFlushKey(HKEY_CURRENT_USER) != ERROR_SUCCESS)
            return 1;
    }
    return 0;
}

int CheckAll()
{
    for (int number = 0; std::scanf("%d", &number) == 1;)
        if (!IsThere(number))
            return std::printf("%d is lost\n", number), 1;
    constexpr int kAnother = 1'000'000;
    if (!Write(kAnother) || !IsThere(kAnother))
        return std::printf("no more writing\n"), 1;
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    const std::string task = argc > 1 ? argv[1] : "";
    if (task == "write" && argc == 3)
        return WriteAll(std::atoi(argv[2]));
    return task == "check" ? CheckAll() : 2;
}
