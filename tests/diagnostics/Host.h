// The host that the tests of the diagnostics start.
#pragma once

#include <memory>
#include <string>

// Code without the tracker.
namespace plain {

void Free(int* block);
void Free(char* array);
void FreeAligned(char* block); // at 64 bytes
void Release(void* block);     // past the program's own functions
int* Make();
std::string Text(); // too long for the text object itself

struct Base {
    Base() = default;
    Base(const Base&) = delete;
    Base& operator=(const Base&) = delete;
    virtual ~Base();
    int number = 7;
};

struct Owner {
    std::unique_ptr<int> number;
};
Owner* MakeOwner();

} // namespace plain

// What a process does for a test; its exit code.
int RunReport(const std::string& name);
