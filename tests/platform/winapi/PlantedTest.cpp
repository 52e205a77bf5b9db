// Modules that somebody else has put where a careless search would find them.
#include "Scratch.h"

#include <gtest/gtest.h>
#include <windows.h>
#include <zekpath.h>

#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <string>

namespace {

const char* const kNotBound = "Error : DLL is not loaded. check message dll!\n";

std::string ProgramFolder()
{
    char program[1024];
    GetModuleFileNameA(nullptr, program, sizeof program);
    const std::string native = ZekNativePath(program);
    return native.substr(0, native.rfind('/') + 1);
}

// Modules lie planted in a folder, in one above it and in one below it; a second process works there.
class Planted : public testing::Test
{
protected:
    Planted()
    {
        for (const char* folder : {"", "here/", "here/sub/"}) {
            std::filesystem::create_directories(m_root.Path(folder));
            for (const char* name : {"libplanted.so", "planted.DLL", "ZEK_msg.DLL", "libZEK_msg.so"})
                std::filesystem::copy_file(ProgramFolder() + "libwinapi_planted.so",
                                           m_root.Path(folder + std::string(name)));
        }
    }

    // What the second process prints that does a task in the folder.
    std::string Output(const std::string& environment, const std::string& task) const
    {
        const std::string command = "cd '" + Here() + "' && env " + environment + " ZEK_PLANTED_TRACE='" +
                                    m_trace + "' '" + ProgramFolder() + "winapi_child' " + task;
        std::string answer(256, 0);
        FILE* pipe = popen(command.c_str(), "r");
        answer.resize(std::fread(answer.data(), 1, answer.size(), pipe));
        pclose(pipe);
        return answer;
    }

    bool TraceLeft() const { return access(m_trace.c_str(), F_OK) == 0; }
    std::string Here() const { return m_root.Path("here"); }

    const ScratchFolder m_root;

private:
    const std::string m_trace = m_root.Path("trace");
};

TEST_F(Planted, AModuleLeavesATraceWhereItIsMeant)
{
    EXPECT_EQ(Output("", "load '" + Here() + "/planted.dll'"), "loaded\n");
    EXPECT_TRUE(TraceLeft());
    EXPECT_EQ(Output("LD_LIBRARY_PATH='" + Here() + "'", "load planted"), "loaded\n");
    EXPECT_EQ(Output("", "text '" + Here() + "/ZEK'"), "planted");
}

TEST_F(Planted, NoNameLeadsToTheCurrentFolder)
{
    for (const char* name :
         {"planted", "planted.dll", "libplanted.so", ".\\planted.dll", "./libplanted.so", "sub\\planted.dll",
          "sub/planted", "..\\planted.dll", "sub/../planted.dll", "sub\\..\\..\\planted", "Z:planted.dll",
          "C:planted", ".\\\\planted.dll", "././planted", "planted.dll/", "planted.dll/."}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(Output("", std::string("load '") + name + "'"), "refused\n");
        EXPECT_FALSE(TraceLeft());
    }
}

TEST_F(Planted, NoPrefixLeadsToTheCurrentFolder)
{
    for (const char* prefix :
         {"ZEK", "sub/ZEK", "sub\\ZEK", "..\\ZEK", "../ZEK", "./ZEK", "C:ZEK", "Z:ZEK"}) {
        SCOPED_TRACE(prefix);
        EXPECT_EQ(Output("", std::string("text '") + prefix + "'"), kNotBound);
        EXPECT_FALSE(TraceLeft());
    }
}

TEST_F(Planted, AnEmptyOrRelativeElementOfTheSearchPathIsNoFolder)
{
    for (const char* path :
         {"", ":", "::", ".", "./", ":/nowhere", "/nowhere:", "sub", "..", "/nowhere::."}) {
        SCOPED_TRACE(path);
        const std::string environment = std::string("LD_LIBRARY_PATH='") + path + "'";
        EXPECT_EQ(Output(environment, "load planted.DLL"), "refused\n");
        EXPECT_EQ(Output(environment, "text ZEK"), kNotBound);
        EXPECT_FALSE(TraceLeft());
    }
}

TEST_F(Planted, AProgramWithoutAPathHasNoFolder)
{
    const std::string environment =
        "ASAN_OPTIONS=verify_asan_link_order=0 LD_PRELOAD='" + ProgramFolder() + "libwinapi_no_self.so'";
    for (const char* task : {"load planted.DLL", "load ./planted", "load sub/planted.DLL"}) {
        SCOPED_TRACE(task);
        EXPECT_EQ(Output(environment, task), "refused\n");
    }
    EXPECT_EQ(Output(environment, "text ZEK"), kNotBound);
    EXPECT_EQ(Output(environment, "text sub/ZEK"), kNotBound);
    EXPECT_FALSE(TraceLeft());
}

// The library's own path is then a relative one, and the folder that it is relative to is left.
TEST_F(Planted, ALibraryReachedByARelativePathKeepsItsFolder)
{
    const std::string name = "libZEK_lib.so.0";
    for (const char* folder : {"near", "here/near"})
        std::filesystem::create_directories(m_root.Path(folder));
    std::filesystem::copy_file(ProgramFolder() + name, m_root.Path("here/near/" + name));
    WriteWholeFile(m_root.Path("near/" + name), "");
    std::filesystem::copy_file(ProgramFolder() + "libwinapi_planted.so", m_root.Path("near/libplanted.so"));
    EXPECT_EQ(Output("LD_LIBRARY_PATH=near", "load planted '" + m_root.Path() + "'"), "refused\n");
    EXPECT_FALSE(TraceLeft());
    std::filesystem::rename(m_root.Path("near/libplanted.so"), m_root.Path("here/near/libplanted.so"));
    EXPECT_EQ(Output("LD_LIBRARY_PATH=near", "load planted '" + m_root.Path() + "'"), "loaded\n");
}

TEST_F(Planted, WhatCannotBeLoadedIsNoModule)
{
    const std::string whole = ReadWholeFile(ProgramFolder() + "libwinapi_planted.so");
    std::string other = whole;
    other[18] = 0x08; // another machine
    const struct {
        const char *label, *file;
        std::string content;
    } rows[] = {{"text", "text.DLL", "no module"},
                {"nothing", "empty.DLL", ""},
                {"half a header", "half.DLL", whole.substr(0, 40)},
                {"another machine's", "other.DLL", other},
                {"its mark alone", "mark.DLL",
                 "\x7F"
                 "ELF"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        WriteWholeFile(m_root.Path(row.file), row.content);
        EXPECT_EQ(LoadLibraryA(m_root.Path(row.file).c_str()), nullptr);
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_BAD_EXE_FORMAT));
    }
    EXPECT_EQ(LoadLibraryA(Here().c_str()), nullptr) << "a folder";
}

} // namespace
