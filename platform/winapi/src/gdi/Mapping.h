// Logical to device coordinates and back: what a mapping mode, its extents and origins amount to.
#pragma once

#include <wingdi.h>

// The screen that the fixed scales refer to.
struct ScreenScale {
    SIZE pixels;
    SIZE millimetres;
};

// One direction of a mapping. Extents are never 0.
struct MappingAxis {
    LONG windowOrigin = 0;
    LONG windowExtent = 1;
    LONG viewportOrigin = 0;
    LONG viewportExtent = 1;

    // To the nearest whole number, a half upwards; false when it does not fit.
    bool ToDevice(LONG logical, LONG& device) const;
    bool ToLogical(LONG device, LONG& logical) const;
    // Lengths know neither origin nor direction; what does not fit becomes the greatest number.
    LONG LengthToDevice(LONG logical) const;
    LONG LengthToLogical(LONG device) const;
};

struct Mapping {
    int mode = MM_TEXT;
    MappingAxis x, y;

    // `newMode` lies between MM_MIN and MM_MAX.
    void SetMode(int newMode, const ScreenScale& screen);
    bool HasFreeExtents() const { return mode == MM_ISOTROPIC || mode == MM_ANISOTROPIC; }
    // Makes a unit as long both ways, by the rule of MM_ISOTROPIC.
    void Equalize(const ScreenScale& screen);
};
