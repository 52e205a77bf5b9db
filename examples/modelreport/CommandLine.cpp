#include "CommandLine.h"

#include "Fields.h"

const char kUsage[] =
    "usage: modelreport [-o DIR] [--select LIST] [--cut A B C D] [--profile] [--quiet] MODEL.inp\n"
    "\n"
    "Reads a finite-element model, prints what it consists of and writes DIR/MODEL.xlsx.\n"
    "\n"
    "  -o DIR         folder of the report, made if it is missing (default: the current one)\n"
    "  --select LIST  report on these elements only, as in \"1to100by2, 205 300to310\"\n"
    "  --cut A B C D  list the elements that the plane Ax + By + Cz + D = 0 cuts\n"
    "  --quiet        print nothing but problems\n"
    "  --profile      add a sheet with the time of each phase\n"
    "  --help         show this text\n"
    "\n"
    "exit codes: 0 done, 1 wrong usage, 2 the model cannot be read, 3 the report cannot be written\n";

namespace {

struct Switch {
    LPCSTR name;
    CString Options::*text; // that takes the next argument, or null
    Plane Options::*plane;  // that takes the next four, or null
    bool Options::*flag;    // that it sets, or null

    int Values() const { return text ? 1 : plane ? 4 : 0; }
};

constexpr Switch kSwitches[] = {
    {"-o", &Options::folder, nullptr, nullptr},         {"--select", &Options::selection, nullptr, nullptr},
    {"--cut", nullptr, &Options::plane, &Options::cut}, {"--quiet", nullptr, nullptr, &Options::quiet},
    {"--profile", nullptr, nullptr, &Options::profile}, {"--help", nullptr, nullptr, &Options::help},
    {"-h", nullptr, nullptr, &Options::help},
};

const Switch* FindSwitch(const CString& argument)
{
    for (const Switch& known : kSwitches)
        if (argument == known.name)
            return &known;
    return nullptr;
}

bool TakeModel(const CString& argument, Options& options, CString& problem)
{
    if (!options.model.IsEmpty())
        problem = "more than one model is named: " + argument;
    else if (argument.IsEmpty())
        problem = "the model's name is empty";
    else
        options.model = argument;
    return problem.IsEmpty();
}

CString NameOf(const Switch& known)
{
    return known.name;
}

bool TakeText(const Switch& known, const char* value, Options& options, CString& problem)
{
    if (!value || !*value)
        problem = NameOf(known) + " needs a value";
    else
        options.*known.text = value;
    return problem.IsEmpty();
}

bool TakePlane(const Switch& known, const char* const* values, Options& options, CString& problem)
{
    Plane& plane = options.*known.plane;
    double* const coefficients[] = {&plane.a, &plane.b, &plane.c, &plane.d};
    for (double* coefficient : coefficients) {
        if (!*values) {
            problem = NameOf(known) + " needs four numbers A B C D";
            return false;
        }
        const CString text(*values++);
        if (text.IsEmpty() || !ParseNumber(text, *coefficient)) {
            problem = NameOf(known) + ": '" + text + "' is not a number";
            return false;
        }
    }
    if (!plane.IsPlane())
        problem = NameOf(known) + ": A, B and C are the normal of no plane";
    return problem.IsEmpty();
}

// `values` are the arguments behind the switch, a null at their end.
bool TakeSwitch(const Switch& known, const char* const* values, Options& options, CString& problem)
{
    if (known.flag)
        options.*known.flag = true;
    if (known.text)
        return TakeText(known, *values, options, problem);
    return !known.plane || TakePlane(known, values, options, problem);
}

} // namespace

bool ParseCommandLine(int argc, char** argv, Options& options, CString& problem)
{
    bool switches = true;
    for (int i = 1; i < argc; ++i) {
        const CString argument(argv[i]);
        const bool isSwitch = switches && argument.GetLength() > 1 && argument[0] == '-';
        const Switch* known = isSwitch ? FindSwitch(argument) : nullptr;
        if (isSwitch && argument == "--")
            switches = false;
        else if (isSwitch && !known)
            problem = "unknown option " + argument;
        else if (known && !TakeSwitch(*known, argv + i + 1, options, problem))
            return false;
        else if (!known && !TakeModel(argument, options, problem))
            return false;
        i += known ? known->Values() : 0;
    }
    if (problem.IsEmpty() && !options.help && options.model.IsEmpty())
        problem = "no model is named";
    return problem.IsEmpty();
}
