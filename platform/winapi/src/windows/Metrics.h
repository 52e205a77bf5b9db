// The sizes of Windows' classic look at 96 dots per inch, in pixels.
#pragma once

constexpr int kBorder = 1;
constexpr int kEdge = 2;
constexpr int kFixedFrame = 3;
constexpr int kSizeFrame = 4;
constexpr int kCaption = 19;
constexpr int kSmallCaption = 16;
constexpr int kMenu = 19;
constexpr int kScrollBar = 17;
constexpr int kMinimizedWidth = 160;
constexpr int kMinimizedHeight = 24;
