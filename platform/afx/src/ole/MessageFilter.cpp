#include <afxole.h>

#include <atomic>

namespace {

constexpr DWORD kRetryEvery = 100; // milliseconds; shorter answers mean "at once"
constexpr DWORD kGiveUp = static_cast<DWORD>(-1);
constexpr DWORD kRetryFor = 10000;

} // namespace

class COleMessageFilter::Filter final : public IMessageFilter
{
public:
    DWORD m_retryFor = kRetryFor;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        *object = iid == IID_IUnknown || iid == IID_IMessageFilter ? this : nullptr;
        if (!*object)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }

    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }

    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG left = --m_references;
        if (left == 0)
            delete this;
        return left;
    }

    DWORD STDMETHODCALLTYPE HandleInComingCall(DWORD, HTASK, DWORD, LPINTERFACEINFO) override
    {
        return SERVERCALL_ISHANDLED;
    }

    DWORD STDMETHODCALLTYPE RetryRejectedCall(HTASK, DWORD waited, DWORD rejection) override
    {
        return rejection == SERVERCALL_RETRYLATER && waited < m_retryFor ? kRetryEvery : kGiveUp;
    }

    DWORD STDMETHODCALLTYPE MessagePending(HTASK, DWORD, DWORD) override { return PENDINGMSG_WAITDEFPROCESS; }

private:
    ~Filter() = default;
    std::atomic<ULONG> m_references = 1;
};

COleMessageFilter::COleMessageFilter() : m_filter(new Filter)
{
}

COleMessageFilter::~COleMessageFilter()
{
    Revoke();
    m_filter->Release();
}

BOOL COleMessageFilter::Register()
{
    if (!m_registered)
        m_registered = SUCCEEDED(CoRegisterMessageFilter(m_filter, nullptr));
    return m_registered;
}

void COleMessageFilter::Revoke()
{
    if (m_registered)
        CoRegisterMessageFilter(nullptr, nullptr);
    m_registered = FALSE;
}

void COleMessageFilter::SetRetryReply(DWORD milliseconds)
{
    m_filter->m_retryFor = milliseconds;
}
