// The X server that windows are to be shown on.
#pragma once

#include <memory>

struct xcb_connection_t;

class XServer
{
public:
    // Whether a server answers where DISPLAY says, and lets this program in. Takes a few seconds at most,
    // however the server behaves. Stays connected until the object goes: a server may start anew when its
    // last client leaves, and the toolkit is to find the one that answered.
    bool Answers();

private:
    std::shared_ptr<xcb_connection_t> m_connection;
};
