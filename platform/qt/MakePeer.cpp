#include "ButtonPeer.h"
#include "ComboBoxPeer.h"
#include "EditPeer.h"
#include "ListBoxPeer.h"
#include "PlainWindow.h"
#include "StaticPeer.h"

#include <array>
#include <memory>

namespace {

template <class Kind>
WindowPeer* Make(PeerRequest& request, PeerEvents& events)
{
    return std::make_unique<Kind>(request, events).release();
}

struct PeerKind {
    const char* control;
    WindowPeer* (*make)(PeerRequest&, PeerEvents&);
};
constexpr std::array<PeerKind, 6> kKinds = {{
    {"", Make<PlainWindow>},
    {"button", Make<ButtonPeer>},
    {"static", Make<StaticPeer>},
    {"edit", Make<EditPeer>},
    {"listbox", Make<ListBoxPeer>},
    {"combobox", Make<ComboBoxPeer>},
}};

} // namespace

WindowPeer* MakePeer(PeerRequest& request, PeerEvents& events)
{
    for (const auto& kind : kKinds)
        if (request.control == kind.control)
            return kind.make(request, events);
    return nullptr;
}
