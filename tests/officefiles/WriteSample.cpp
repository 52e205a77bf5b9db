// officefiles_sample NAME FILE: saves a sample workbook. Exit codes: 0 saved, 2 wrong usage, 3 not saved,
// with the reason on standard error.
#include "SampleBooks.h"
#include "package/SaveError.h"
#include "package/WorkbookPackage.h"

#include <cstdio>

int main(int argc, char** argv)
{
    const auto book = argc == 3 ? MakeSample(argv[1]) : nullptr;
    if (!book)
        return 2;
    try {
        zek::office::SaveWorkbook(*book, argv[2]);
    } catch (const zek::office::SaveError& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 3;
    }
    return 0;
}
