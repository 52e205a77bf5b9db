// Catches message boxes, so that a test can tell what a user would have seen.
//
//   BoxCatcher boxes;
//   AfxMessageBox("Cannot start");
//   EXPECT_THAT(boxes.Texts(), ElementsAre("Cannot start"));
#pragma once

#include <windows.h>

#include <string>
#include <vector>

struct CaughtBox {
    std::string text;
    std::string caption;
    UINT style; // buttons and icon: MB_TYPEMASK | MB_ICONMASK; nothing else of it is to be seen on a real box
};

// Answers every box that the calling thread shows while the object lives. One at a time.
class BoxCatcher
{
public:
    // `answer` is the button pressed; 0: the default one.
    explicit BoxCatcher(int answer = 0);
    ~BoxCatcher();
    BoxCatcher(const BoxCatcher&) = delete;
    BoxCatcher& operator=(const BoxCatcher&) = delete;

    const std::vector<CaughtBox>& Caught() const;
    std::vector<std::string> Texts() const;
};
