// zek-reg: the registry from the command line.
#include "RegFile.h"
#include "Values.h"

#include <fstream>
#include <iostream>
#include <iterator>

namespace {

enum ExitCode { kDone = 0, kNotFound = 1, kUsage = 2, kFailed = 3 };

using Words = std::vector<std::string>;

const char kHelp[] = R"(Usage:
  zek-reg get KEY [NAME]                  show a value
  zek-reg set [-t TYPE] KEY NAME DATA...  write a value; makes the key
  zek-reg delete KEY NAME                 delete a value
  zek-reg delete -r KEY                   delete a key and everything below it
  zek-reg list [KEY]                      show the keys and values of a key
  zek-reg export [-o FILE] [KEY...]       write keys as .reg text
  zek-reg import FILE                     carry out a .reg text ("-": standard input)

KEY begins with a root: HKEY_CURRENT_USER or HKCU, HKEY_LOCAL_MACHINE or HKLM,
HKEY_CLASSES_ROOT or HKCR, HKEY_USERS or HKU, HKEY_CURRENT_CONFIG or HKCC.
NAME "" is the key's default value.
TYPE is sz (the default), expand, multi, dword, qword, binary, none or a 0x number.

Exit status: 0 done, 1 no such key or value, 2 wrong usage, 3 failure.
)";

int Complain(int code, const std::string& what)
{
    std::cerr << "zek-reg: " << what << '\n';
    return code;
}

int Usage(const std::string& what)
{
    Complain(kUsage, what);
    std::cerr << "Try 'zek-reg --help'.\n";
    return kUsage;
}

int UnknownRoot(const std::string& key)
{
    return Usage(key + ": unknown root key");
}

// The exit code for a function's result, with a word to the user when it is a failure.
int Report(LONG result, const std::string& what)
{
    if (result == ERROR_SUCCESS)
        return kDone;
    if (result == ERROR_FILE_NOT_FOUND)
        return Complain(kNotFound, what + ": not found");
    if (result == ERROR_ACCESS_DENIED)
        return Complain(kFailed, what + ": access denied");
    return Complain(kFailed, what + ": error " + std::to_string(result));
}

std::string ValueName(const std::string& key, const std::string& name)
{
    return key + ", value \"" + name + '"';
}

// Takes an option and its argument from the front.
bool TakeOption(Words& words, const std::string& option, std::string* argument)
{
    const std::size_t count = argument ? 2 : 1;
    if (words.size() < count || words[0] != option)
        return false;
    if (argument)
        *argument = words[1];
    words.erase(words.begin(), words.begin() + static_cast<std::ptrdiff_t>(count));
    return true;
}

int Get(Words words)
{
    KeyName name;
    RegKey key;
    NamedValue value;
    if (words.empty() || words.size() > 2)
        return Usage("get takes a key and a name");
    if (!ParseKeyName(words[0], name))
        return UnknownRoot(words[0]);
    if (const LONG opened = key.Open(name); opened != ERROR_SUCCESS)
        return Report(opened, words[0]);
    const std::string entry = words.size() > 1 ? words[1] : "";
    const LONG read = ReadValue(key.Get(), entry, value);
    if (read == ERROR_SUCCESS)
        std::cout << ShowData(value) << '\n';
    return Report(read, ValueName(words[0], entry));
}

int Set(Words words)
{
    std::string typeName = "sz";
    TakeOption(words, "-t", &typeName);
    RegChange change{RegChange::Kind::SetValue, {}, {}};
    if (!ParseTypeName(typeName, change.value.type))
        return Usage(typeName + ": unknown type");
    if (words.size() < 2)
        return Usage("set takes a key, a name and the data");
    if (!ParseKeyName(words[0], change.key))
        return UnknownRoot(words[0]);
    change.value.name = words[1];
    if (!ParseData(change.value.type, Words(words.begin() + 2, words.end()), change.value.data))
        return Usage("the data do not fit the type " + typeName);
    return Report(Apply(change), words[0]);
}

int DeleteKey(const std::string& text)
{
    KeyName name;
    if (!ParseKeyName(text, name))
        return UnknownRoot(text);
    if (name.subkey.empty())
        return Usage(text + ": a root key cannot be deleted");
    return Report(DeleteTree(name), text);
}

int Delete(Words words)
{
    KeyName name;
    RegKey key;
    const bool tree = TakeOption(words, "-r", nullptr);
    if (words.size() != (tree ? 1u : 2u))
        return Usage("delete takes a key and a name, or -r and a key");
    if (tree)
        return DeleteKey(words[0]);
    if (!ParseKeyName(words[0], name))
        return UnknownRoot(words[0]);
    LONG result = key.Open(name);
    if (result == ERROR_SUCCESS)
        result = RegDeleteValueA(key.Get(), words[1].c_str());
    return Report(result, ValueName(words[0], words[1]));
}

int ListRoots()
{
    for (const std::string& root : RootNames())
        std::cout << root << "\\\n";
    return kDone;
}

int List(Words words)
{
    KeyName name;
    RegKey key;
    std::vector<std::string> children;
    std::vector<NamedValue> values;
    if (words.empty())
        return ListRoots();
    if (words.size() > 1)
        return Usage("list takes one key");
    if (!ParseKeyName(words[0], name))
        return UnknownRoot(words[0]);
    LONG result = key.Open(name);
    if (result == ERROR_SUCCESS)
        result = ListSubkeys(key.Get(), children);
    if (result == ERROR_SUCCESS)
        result = ListValues(key.Get(), values);
    for (const std::string& child : children)
        std::cout << child << "\\\n";
    for (const NamedValue& value : values)
        std::cout << '"' << value.name << "\" " << TypeName(value.type) << ' ' << ShowData(value) << '\n';
    return Report(result, words[0]);
}

int ExportKeys(const Words& keys, std::ostream& out)
{
    BeginExport(out);
    for (const std::string& text : keys) {
        KeyName name;
        if (!ParseKeyName(text, name))
            return UnknownRoot(text);
        if (const LONG written = ExportKey(name, out); written != ERROR_SUCCESS)
            return Report(written, text);
    }
    return kDone;
}

int Export(Words words)
{
    std::string path;
    const bool toFile = TakeOption(words, "-o", &path);
    std::ofstream file;
    if (toFile)
        file.open(path, std::ios::binary | std::ios::trunc);
    std::ostream& out = toFile ? file : std::cout;
    const int done = ExportKeys(words.empty() ? RootNames() : words, out);
    if (!out.flush())
        return Complain(kFailed, (toFile ? path : "standard output") + ": cannot be written");
    return done;
}

// Nothing is carried out unless all of it can be read.
int Import(Words words)
{
    if (words.size() != 1)
        return Usage("import takes one file");
    const bool standard = words[0] == "-";
    std::ifstream file;
    if (!standard)
        file.open(words[0], std::ios::binary);
    std::istream& in = standard ? std::cin : file;
    const std::string content{std::istreambuf_iterator<char>(in), {}};
    if (!standard && !file.is_open())
        return Complain(kFailed, words[0] + ": cannot be read");
    std::vector<RegChange> changes;
    std::string error;
    int line = 0;
    if (!ParseRegFile(content, changes, line, error))
        return Complain(kFailed, words[0] + ":" + std::to_string(line) + ": " + error);
    for (const RegChange& change : changes)
        if (const LONG applied = Apply(change); applied != ERROR_SUCCESS)
            return Report(applied, FullName(change.key));
    return kDone;
}

struct Command {
    const char* name;
    int (*run)(Words);
};

const Command kCommands[] = {{"get", Get},   {"set", Set},       {"delete", Delete},
                             {"list", List}, {"export", Export}, {"import", Import}};

} // namespace

int main(int argc, char** argv)
{
    Words words(argv + 1, argv + argc);
    if (words.empty())
        return Usage("no command");
    if (words[0] == "--help" || words[0] == "-h") {
        std::cout << kHelp;
        return kDone;
    }
    const std::string name = words[0];
    words.erase(words.begin());
    for (const Command& command : kCommands)
        if (name == command.name)
            return command.run(words);
    return Usage(name + ": unknown command");
}
