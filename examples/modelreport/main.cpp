// modelreport: reads a finite-element model, measures it and writes its report.
#include "Program.h"

#define MEMORY_LEAK_TESTER_INSTANCE
#include "Tracker.h"

int main(int argc, char** argv)
{
    return RunModelReport(argc, argv);
}
