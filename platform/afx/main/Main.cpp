// The entry of a program that consists of its application object:
//
//   CReportApp theApp;      // and the program links ZEK::main
#include <afxwin.h>

namespace {

// The command line behind the program's name, which may stand in quotes.
LPSTR Arguments()
{
    LPSTR next = ::GetCommandLineA();
    bool quoted = false;
    for (; *next && (quoted || (*next != ' ' && *next != '\t')); ++next)
        if (*next == '"')
            quoted = !quoted;
    while (*next == ' ' || *next == '\t')
        ++next;
    return next;
}

} // namespace

int main()
{
    return AfxWinMain(::GetModuleHandleA(nullptr), nullptr, Arguments(), SW_SHOWDEFAULT);
}
