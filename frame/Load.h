// What the library's load leaves behind for the rest of it.
#pragma once

// The floating-point control word as it stood when dividing by zero had been masked.
unsigned int SavedControlWord();
