#include "CommandLine.h"

const char kUsage[] =
    "usage: modelreport [-o DIR] [--select LIST] [--quiet] MODEL.inp\n"
    "\n"
    "Reads a finite-element model, prints what it consists of and writes DIR/MODEL.xlsx.\n"
    "\n"
    "  -o DIR         folder of the report, made if it is missing (default: the current one)\n"
    "  --select LIST  report on these elements only, as in \"1to100by2, 205 300to310\"\n"
    "  --quiet        print nothing but problems\n"
    "  --help         show this text\n"
    "\n"
    "exit codes: 0 done, 1 wrong usage, 2 the model cannot be read, 3 the report cannot be written\n";

namespace {

struct Switch {
    LPCSTR name;
    CString Options::*text; // that takes the next argument, or null
    bool Options::*flag;    // that it sets
};

constexpr Switch kSwitches[] = {
    {"-o", &Options::folder, nullptr},     {"--select", &Options::selection, nullptr},
    {"--quiet", nullptr, &Options::quiet}, {"--help", nullptr, &Options::help},
    {"-h", nullptr, &Options::help},
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

// `value` is the argument behind the switch, null when there is none.
bool TakeSwitch(const Switch& known, const char* value, Options& options, CString& problem)
{
    if (known.flag)
        options.*known.flag = true;
    else if (!value || !*value)
        problem = CString(known.name) + " needs a value";
    else
        options.*known.text = value;
    return problem.IsEmpty();
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
        else if (known && !TakeSwitch(*known, known->text ? argv[i + 1] : nullptr, options, problem))
            return false;
        else if (!known && !TakeModel(argument, options, problem))
            return false;
        i += known && known->text ? 1 : 0;
    }
    if (problem.IsEmpty() && !options.help && options.model.IsEmpty())
        problem = "no model is named";
    return problem.IsEmpty();
}
