// Broadcasts to connectors with random priorities, measured and printed.
#pragma once

#include <cstddef>

void MeasureBroadcast(std::size_t count);
