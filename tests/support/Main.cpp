// The common start of every test program: settings live in a folder of the run's own.
#include "Scratch.h"

#include <gmock/gmock.h>
#include <windows.h>

int main(int argc, char** argv)
{
    testing::InitGoogleMock(&argc, argv);
    // A death test's child starts again from here and must not lose its parent's folder.
    const ScratchFolder home;
    SetEnvironmentVariableA("ZEK_HOME", home.Path().c_str());
    return RUN_ALL_TESTS();
}
