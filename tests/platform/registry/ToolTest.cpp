// zek-reg as its users run it.
#include "Process.h"
#include "Scratch.h"

#include <TestEnvMgr.h>

#include <gtest/gtest.h>

namespace {

class ZekReg : public testing::Test
{
protected:
    ProgramResult Run(const std::string& arguments) const
    {
        return RunZekReg(m_folder.Path("home"), arguments);
    }
    std::string Output(const std::string& arguments) const { return Run(arguments).output; }
    int Import(const std::string& content) const
    {
        WriteWholeFile(m_folder.Path("in.reg"), content);
        return Run("import '" + m_folder.Path("in.reg") + "'").code;
    }
    std::string Export(const std::string& key) const
    {
        EXPECT_EQ(Run("export -o '" + m_folder.Path("out.reg") + "' '" + key + "'").code, 0);
        return ReadWholeFile(m_folder.Path("out.reg"));
    }

    ScratchFolder m_folder;
};

TEST_F(ZekReg, SetsAndGetsEveryType)
{
    const struct {
        const char *type, *data, *shown;
    } rows[] = {{"sz", "'a text'", "a text"},
                {"sz", "''", ""},
                {"expand", "'%HOME%'", "%HOME%"},
                {"multi", "one 'two three'", "one\ntwo three"},
                {"dword", "4294967295", "4294967295"},
                {"dword", "0xff", "255"},
                {"qword", "18446744073709551615", "18446744073709551615"},
                {"binary", "00ff7F", "00ff7f"},
                {"none", "", ""},
                {"0x1234", "abcd", "abcd"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.type) + " " + row.data);
        EXPECT_EQ(Run(std::string("set -t ") + row.type + " 'HKCU\\Software\\T' v " + row.data).code, 0);
        EXPECT_EQ(Output("get 'hkey_current_user\\software\\t' V"), std::string(row.shown) + "\n");
    }
}

TEST_F(ZekReg, ExitCodesTellWhatWentWrong)
{
    const struct {
        const char* arguments;
        int code;
    } rows[] = {{"", 2},
                {"--help", 0},
                {"frobnicate", 2},
                {"get", 2},
                {"get 'HKCU\\a' b c", 2},
                {"get 'NOROOT\\a'", 2},
                {"get 'HKCU\\missing'", 1},
                {"set 'HKCU\\a'", 2},
                {"set 'HKCU\\a' v", 2},
                {"set -t dword 'HKCU\\a' v 4294967296", 2},
                {"set -t dword 'HKCU\\a' v 12x", 2},
                {"set -t binary 'HKCU\\a' v 123", 2},
                {"set -t nonsense 'HKCU\\a' v 1", 2},
                {"delete 'HKCU\\missing' v", 1},
                {"delete -r 'HKCU\\missing'", 1},
                {"delete -r HKCU", 2},
                {"list 'HKCU\\missing'", 1},
                {"export 'HKCU\\missing'", 1},
                {"export -o /dev/null/file HKCU", 3},
                {"import /dev/null/file", 3},
                {"import", 2}};
    for (const auto& row : rows) {
        const ProgramResult result = Run(row.arguments);
        EXPECT_EQ(result.code, row.code) << row.arguments;
        EXPECT_FALSE(result.output.empty()) << row.arguments;
    }
}

TEST_F(ZekReg, ListsAndDeletes)
{
    ASSERT_EQ(Run("set 'HKCU\\T\\Sub' v x").code, 0);
    ASSERT_EQ(Run("set -t dword 'HKCU\\T' n 5").code, 0);
    ASSERT_EQ(Run("set 'HKCU\\T' '' default").code, 0);
    EXPECT_EQ(Output("list 'HKCU\\T'"), "Sub\\\n\"\" sz default\n\"n\" dword 5\n");
    EXPECT_EQ(Run("delete 'HKCU\\T' n").code, 0);
    EXPECT_EQ(Run("delete 'HKCU\\T' ''").code, 0);
    EXPECT_EQ(Output("list 'HKCU\\T'"), "Sub\\\n");
    EXPECT_EQ(Run("delete -r 'HKCU\\T'").code, 0);
    EXPECT_EQ(Run("list 'HKCU\\T'").code, 1);
}

TEST_F(ZekReg, WhatIsExportedIsImportedAgain)
{
    ASSERT_EQ(Run("set 'HKCU\\T\\a' 'quo\"te\\' 'C:\\x \"y\"'").code, 0);
    ASSERT_EQ(Run("set 'HKCU\\T\\a' '' 'two\nlines'").code, 0);
    ASSERT_EQ(Run("set -t dword 'HKCU\\T\\a' n 0x1234").code, 0);
    ASSERT_EQ(Run("set -t multi 'HKCU\\T\\b' m one two").code, 0);
    ASSERT_EQ(Run("set -t binary 'HKCU\\T\\b' long " + std::string(400, 'a')).code, 0);
    ASSERT_EQ(Run("set -t none 'HKCU\\T\\empty' e").code, 0);
    const std::string exported = Export("HKCU\\T");
    ASSERT_EQ(Run("delete -r 'HKCU\\T'").code, 0);
    ASSERT_EQ(Import(exported), 0);
    EXPECT_EQ(Export("HKCU\\T"), exported);
    EXPECT_EQ(Output("get 'HKCU\\T\\a' 'quo\"te\\'"), "C:\\x \"y\"\n");
    EXPECT_EQ(Output("get 'HKCU\\T\\b' long"), std::string(400, 'a') + "\n");
}

TEST_F(ZekReg, ImportsBothForms)
{
    ASSERT_EQ(Import("REGEDIT4\n\n; a comment\n[HKEY_CURRENT_USER\\Software\\T]\n@=\"d\"\n"
                     "\"e\"=hex(2):25,41,\\\n  25,00\n\"q\"=hex(b):01,00,00,00,00,00,00,00\n"),
              0);
    EXPECT_EQ(Output("get 'HKCU\\Software\\T'"), "d\n");
    EXPECT_EQ(Output("get 'HKCU\\Software\\T' e"), "%A%\n");
    EXPECT_EQ(Output("get 'HKCU\\Software\\T' q"), "1\n");
    const std::string text =
        "Windows Registry Editor Version 5.00\r\n\r\n[HKEY_CURRENT_USER\\Software\\T]\r\n"
        "\"e\"=hex(2):25,00,42,00,25,00,00,00\r\n\"q\"=-\r\n[-HKEY_CURRENT_USER\\Software\\None]\r\n";
    std::string wide = "\xFF\xFE";
    for (const char c : text)
        wide.append({c, '\0'});
    ASSERT_EQ(Import(wide), 0);
    EXPECT_EQ(Output("get 'HKCU\\Software\\T' e"), "%B%\n");
    EXPECT_EQ(Run("get 'HKCU\\Software\\T' q").code, 1);
    ASSERT_EQ(Import("REGEDIT4\n[-HKEY_CURRENT_USER\\Software\\T]\n"), 0);
    EXPECT_EQ(Run("list 'HKCU\\Software\\T'").code, 1);
}

TEST_F(ZekReg, AWrongLineIsNamedAndNothingIsCarriedOut)
{
    const struct {
        const char* label;
        const char* lines;
        int line;
    } rows[] = {{"no first line", "[HKEY_CURRENT_USER\\W]\n", 1},
                {"unknown root", "REGEDIT4\n[HKEY_CURRENT_USER\\W]\n[HKEY_NOWHERE\\x]\n", 3},
                {"no bracket", "REGEDIT4\n[HKEY_CURRENT_USER\\W\n", 2},
                {"value first", "REGEDIT4\n\"a\"=\"b\"\n", 2},
                {"open quote", "REGEDIT4\n[HKEY_CURRENT_USER\\W]\n\"a\"=\"b\n", 3},
                {"no equals", "REGEDIT4\n[HKEY_CURRENT_USER\\W]\n\"a\"\n", 3},
                {"no kind", "REGEDIT4\n[HKEY_CURRENT_USER\\W]\n\"a\"=b\n", 3},
                {"long number", "REGEDIT4\n[HKEY_CURRENT_USER\\W]\n\"a\"=dword:123456789\n", 3},
                {"long byte", "REGEDIT4\n[HKEY_CURRENT_USER\\W]\n\"a\"=hex:01,234\n", 3},
                {"no digit", "REGEDIT4\n[HKEY_CURRENT_USER\\W]\n\"a\"=hex:0g\n", 3},
                {"wrong type", "REGEDIT4\n[HKEY_CURRENT_USER\\W]\n\"a\"=hex(x):00\n", 3},
                {"whole root", "REGEDIT4\n[-HKEY_CURRENT_USER]\n", 2}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        WriteWholeFile(m_folder.Path("w.reg"), row.lines);
        const ProgramResult result = Run("import '" + m_folder.Path("w.reg") + "'");
        EXPECT_EQ(result.code, 3);
        EXPECT_NE(result.output.find("w.reg:" + std::to_string(row.line) + ":"), std::string::npos)
            << result.output;
        EXPECT_EQ(Run("list 'HKCU\\W'").code, 1);
    }
}

// Asks a test switch in a process of its own: 1 on, 0 off.
int SwitchInNextProcess(const std::string& home)
{
    return RunInChild(home, [] {
        const int on = CTestEnvMgr::IsTestEnvST("Profiling", "yes");
        return on == (CTestEnvMgr::GetTestEnvST("profiling").CompareNoCase("yes") == 0) ? on : 9;
    });
}

TEST_F(ZekReg, EditsTestSwitchesForTheNextProcess)
{
    const std::string home = m_folder.Path("home");
    EXPECT_EQ(SwitchInNextProcess(home), 0);
    EXPECT_EQ(Run("set 'HKEY_CURRENT_USER\\Software\\TOVEN\\TEST' Profiling yes").code, 0);
    EXPECT_EQ(SwitchInNextProcess(home), 1);
    EXPECT_EQ(Run("set 'hkcu\\software\\toven\\test' PROFILING no").code, 0);
    EXPECT_EQ(SwitchInNextProcess(home), 0);
    EXPECT_EQ(Run("set 'HKCU\\Software\\TOVEN\\TEST' profiling YES").code, 0);
    EXPECT_EQ(SwitchInNextProcess(home), 1);
    EXPECT_EQ(Run("delete 'HKCU\\Software\\TOVEN\\TEST' Profiling").code, 0);
    EXPECT_EQ(SwitchInNextProcess(home), 0);
}

} // namespace
