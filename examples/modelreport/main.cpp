// modelreport: reads a finite-element model, measures it and writes its report.
#include "Program.h"

int main(int argc, char** argv)
{
    return RunModelReport(argc, argv);
}
