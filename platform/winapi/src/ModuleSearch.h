// Where a module of a given name may lie.
#pragma once

#include <windef.h>

#include <string>
#include <vector>

// The folder of the executable and that of the library which holds this adapter.
std::string ProgramFolder();
std::string LibraryFolder();

// The executable's own path.
std::string ProgramPath();

// The files that exist for `name` in the order of the search, absolute; none with the last error set if the
// name is refused. `flags` are those of LoadLibraryEx.
std::vector<std::string> ModuleCandidates(LPCSTR name, DWORD flags);

// The names that a shared object for `NAME.DLL` may have, in the order they are tried.
std::vector<std::string> ModuleFileNames(const std::string& name);

// The last part of a Win32 or Unix path.
std::string LastPart(const std::string& path);
