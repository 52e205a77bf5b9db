// What the user asks for: modelreport [-o DIR] [--select LIST] [--cut A B C D] [--profile] [--quiet] MODEL.inp
#pragma once

#include "PlaneCut.h"

struct Options {
    CString model;
    CString folder;    // of the report; "": the current one
    CString selection; // "": all elements
    Plane plane;       // of the section, when `cut` is set
    bool cut = false;
    bool quiet = false;
    bool help = false;
    bool profile = false;
};

// Reads the arguments of main. False, `problem` set, when they are wrong.
bool ParseCommandLine(int argc, char** argv, Options& options, CString& problem);

// How the program is used, as lines for the user.
extern const char kUsage[];
