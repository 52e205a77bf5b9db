// Scopes for the two profilers, named by where they stand.
//
//   void CModel::Read()
//   {
//       ZEK_PROFILE_FUNCTION();           // CProfiler: "void CModel::Read()"
//       ZEK_PROFILE_SECTION("read deck"); // ProfileWrite: "read deck"
//       {
//           ZEK_PROFILE_BLOCK();          // ProfileWrite: "Model.cpp(12) void CModel::Read()"
//           ...
//       }
//   }
//
// Each times the rest of its block; several may stand in one.
#pragma once

#include "ProfileMgr.h"
#include "Profiler.h"

// The function's name in full where the compiler has it, so that functions of one name in two classes differ.
#ifdef __GNUC__
#define ZEK_PROFILE_FUNCTION_NAME __PRETTY_FUNCTION__
#else
#define ZEK_PROFILE_FUNCTION_NAME __func__
#endif

#define ZEK_PROFILE_JOIN_(A, B) A##B
#define ZEK_PROFILE_JOIN(A, B) ZEK_PROFILE_JOIN_(A, B)
#define ZEK_PROFILE_NAME(KIND) ZEK_PROFILE_JOIN(ZEK_PROFILE_JOIN(zekProfile, KIND), __LINE__)

// Counts and times the function.
#define ZEK_PROFILE_FUNCTION() ZEK_PROFILE_SCOPE(ZEK_PROFILE_FUNCTION_NAME)

// The same for a block under a name, which must be a literal.
#define ZEK_PROFILE_SCOPE(NAME) const CProfiler ZEK_PROFILE_NAME(Scope)(__FILE__, __LINE__, NAME)

// A section of the line profiler under a name.
#define ZEK_PROFILE_SECTION(NAME) const ProfileWrite ZEK_PROFILE_NAME(Section)(NAME)

// A section under the name of its place.
#define ZEK_PROFILE_BLOCK()                                                                                  \
    const ProfileWrite ZEK_PROFILE_NAME(Section)(                                                            \
        ZekSectionName(__FILE__, __LINE__, ZEK_PROFILE_FUNCTION_NAME))

// "FILE(LINE) FUNCTION", the file without its folders.
AFX_EXT_API CString ZekSectionName(const char* file, int line, const char* function);
