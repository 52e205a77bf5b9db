// What the user asks for: modelreport [-o DIR] [--select LIST] [--quiet] MODEL.inp
#pragma once

#include <ZEK_lib.h>

struct Options {
    CString model;
    CString folder;    // of the report; "": the current one
    CString selection; // "": all elements
    bool quiet = false;
    bool help = false;
};

// Reads the arguments of main. False, `problem` set, when they are wrong.
bool ParseCommandLine(int argc, char** argv, Options& options, CString& problem);

// How the program is used, as lines for the user.
extern const char kUsage[];
