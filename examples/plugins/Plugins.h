// The plug-ins that the host has loaded.
#pragma once

#include "Beam.h"

// Loads the module from beside the program, has it create its plug-in and keeps that under `name`, started.
// False when there is no such module or it cannot start; the plug-in is gone then. The module stays loaded to
// the process's end: the services it has registered are deleted then.
bool LoadPlugin(CDynModuleMgr& plugins, const char* name, const char* file);
