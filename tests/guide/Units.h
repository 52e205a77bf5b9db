#pragma once

#include <ZEK_lib.h>

// Service "Units": turns the double at the data from metres into inches and answers 1.
constexpr int kToInches = 1;

// What every plug-in exports as "CreatePlugin".
using CreatePluginFunc = CDynModule*();
