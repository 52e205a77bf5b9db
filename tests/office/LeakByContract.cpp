#include <afxver_.h>

// The one block of memory that a failed late-bound call leaves behind by contract.
extern "C" AFX_EXPORT_ const char* __lsan_default_suppressions()
{
    return "leak:CMSExcel::AutoWrap\n";
}
