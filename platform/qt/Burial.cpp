#include "Burial.h"

#include "Peer.h"

#include <QtCore/QThread>

#include <vector>

namespace {

int g_depth = 0;

std::vector<std::unique_ptr<WindowPeer>>& Buried()
{
    // What a host leaves open at the process's end is not deleted after the toolkit's own statics.
    static auto& buried = *new std::vector<std::unique_ptr<WindowPeer>>;
    return buried;
}

class LateDeletion : public QObject
{
public:
    explicit LateDeletion(std::unique_ptr<WindowPeer> peer) : m_peer(std::move(peer)) {}

private:
    std::unique_ptr<WindowPeer> m_peer;
};

void DeleteWhatMayBe()
{
    auto& buried = Buried();
    for (size_t i = 0; i < buried.size();) {
        if (buried[i]->Depth() < g_depth) {
            ++i;
            continue;
        }
        const auto peer = std::move(buried[i]); // its end may bury others
        buried.erase(buried.begin() + static_cast<std::ptrdiff_t>(i));
    }
}

} // namespace

ToolkitCall::ToolkitCall()
{
    ++g_depth;
}

ToolkitCall::~ToolkitCall()
{
    --g_depth;
    if (!Buried().empty())
        DeleteWhatMayBe();
}

int ToolkitCall::DepthBefore()
{
    return g_depth - 1;
}

void Bury(std::unique_ptr<WindowPeer> peer)
{
    // The calls of a loop that the host runs are not counted; the toolkit knows when its own have returned.
    if (QThread::currentThread()->loopLevel() > 0)
        (new LateDeletion(std::move(peer)))->deleteLater();
    else
        Buried().push_back(std::move(peer));
}
