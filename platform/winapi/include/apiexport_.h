// How a function of the adapter leaves the library. Apart from windef.h, for headers that programs include
// without thinking of Windows.
#pragma once

#define WINBASEAPI extern "C" __attribute__((visibility("default")))
