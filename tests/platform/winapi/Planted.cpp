// A message library that nobody is meant to load: its first act is to leave a trace.
#include <cstdio>
#include <cstdlib>

#define EXPORTED extern "C" __attribute__((visibility("default")))

namespace {

const bool kTraceLeft = [] {
    const char* trace = std::getenv("ZEK_PLANTED_TRACE");
    std::FILE* file = trace ? std::fopen(trace, "a") : nullptr;
    if (file)
        std::fclose(file);
    return file != nullptr;
}();

} // namespace

EXPORTED const char* LoadStr(const char*, int)
{
    return kTraceLeft ? "planted" : "planted, without a trace";
}

EXPORTED void RegAllStrRes(int)
{
}
