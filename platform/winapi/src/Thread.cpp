#include "Waitable.h"

#include <process.h>
#include <winbase.h>

#include <pthread.h>
#include <sys/resource.h>

#include <algorithm>
#include <array>
#include <climits>

namespace {

class Thread : public Waitable
{
public:
    bool IsSignalled() const override { return ended; }

    // All under WaitMutex().
    LPTHREAD_START_ROUTINE start = nullptr;
    LPVOID parameter = nullptr;
    DWORD id = 0; // 0: not running yet
    DWORD suspended = 0;
    DWORD code = STILL_ACTIVE;
    int priority = THREAD_PRIORITY_NORMAL;
    bool ended = false;
};

using ThreadPtr = std::shared_ptr<Thread>;

const HANDLE kCurrentThread = reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-2));

// Waited for by a thread that starts and by the one that started it.
std::condition_variable& Progress()
{
    static std::condition_variable& progress = *new std::condition_variable;
    return progress;
}

void End(void* thread)
{
    const std::unique_ptr<ThreadPtr> self(static_cast<ThreadPtr*>(thread));
    const std::lock_guard lock(WaitMutex());
    (*self)->ended = true;
    SignalWaiters();
}

// Holds each thread's ThreadPtr. Its destructor runs after those of the thread's own objects, which is when
// the thread counts as ended.
pthread_key_t CurrentKey()
{
    static const pthread_key_t key = [] {
        pthread_key_t made = 0;
        pthread_key_create(&made, End);
        return made;
    }();
    return key;
}

// The calling thread; one that was not made here is taken in now.
ThreadPtr Current()
{
    if (const auto* known = static_cast<ThreadPtr*>(pthread_getspecific(CurrentKey())))
        return *known;
    auto thread = std::make_shared<Thread>();
    thread->id = GetCurrentThreadId();
    pthread_setspecific(CurrentKey(), new ThreadPtr(thread));
    return thread;
}

ThreadPtr ThreadOf(HANDLE handle)
{
    return handle == kCurrentThread ? Current() : ObjectOf<Thread>(handle);
}

void AwaitResume(Thread& thread)
{
    std::unique_lock lock(WaitMutex());
    thread.id = GetCurrentThreadId();
    Progress().notify_all();
    Progress().wait(lock, [&thread] { return thread.suspended == 0; });
}

void SetCode(Thread& thread, DWORD code)
{
    const std::lock_guard lock(WaitMutex());
    thread.code = code;
}

void* Run(void* argument)
{
    pthread_setspecific(CurrentKey(), argument);
    Thread& thread = **static_cast<ThreadPtr*>(argument);
    AwaitResume(thread);
    SetCode(thread, thread.start(thread.parameter));
    return nullptr;
}

bool StartDetached(SIZE_T stack, ThreadPtr* thread)
{
    pthread_attr_t attributes;
    if (pthread_attr_init(&attributes) != 0)
        return Fail(ERROR_NOT_ENOUGH_MEMORY);
    pthread_attr_setdetachstate(&attributes, PTHREAD_CREATE_DETACHED);
    if (stack != 0)
        pthread_attr_setstacksize(&attributes, std::max(stack, static_cast<SIZE_T>(PTHREAD_STACK_MIN)));
    pthread_t made;
    const int error = pthread_create(&made, &attributes, Run, thread);
    pthread_attr_destroy(&attributes);
    return error == 0 || Fail(ERROR_NOT_ENOUGH_MEMORY);
}

struct Level {
    int priority;
    int nice; // relative to the process
};
constexpr std::array kLevels = {
    Level{THREAD_PRIORITY_IDLE, 19},           Level{THREAD_PRIORITY_LOWEST, 10},
    Level{THREAD_PRIORITY_BELOW_NORMAL, 5},    Level{THREAD_PRIORITY_NORMAL, 0},
    Level{THREAD_PRIORITY_ABOVE_NORMAL, -5},   Level{THREAD_PRIORITY_HIGHEST, -10},
    Level{THREAD_PRIORITY_TIME_CRITICAL, -15},
};

// The process's own nice value: that of its first thread when it began, as far as this adapter knows.
int BaseNice()
{
    static const int base = getpriority(PRIO_PROCESS, GetCurrentProcessId());
    return base;
}

} // namespace

HANDLE WINAPI CreateThread(LPSECURITY_ATTRIBUTES, SIZE_T stack, LPTHREAD_START_ROUTINE start,
                           LPVOID parameter, DWORD flags, LPDWORD id)
{
    if (!start || (flags & ~(CREATE_SUSPENDED | STACK_SIZE_PARAM_IS_A_RESERVATION)))
        return Fail(ERROR_INVALID_PARAMETER), nullptr;
    auto thread = std::make_shared<Thread>();
    thread->start = start;
    thread->parameter = parameter;
    thread->suspended = flags & CREATE_SUSPENDED ? 1 : 0;
    const HANDLE handle = AddHandle(thread);
    if (handle == INVALID_HANDLE_VALUE)
        return nullptr;
    auto own = std::make_unique<ThreadPtr>(thread);
    if (!StartDetached(stack, own.get()))
        return RemoveHandle(handle), nullptr;
    static_cast<void>(own.release()); // the thread's now
    std::unique_lock lock(WaitMutex());
    Progress().wait(lock, [&thread] { return thread->id != 0; });
    if (id)
        *id = thread->id;
    return handle;
}

void WINAPI ExitThread(DWORD code)
{
    SetCode(*Current(), code);
    pthread_exit(nullptr);
}

BOOL WINAPI GetExitCodeThread(HANDLE handle, LPDWORD code)
{
    const ThreadPtr thread = ThreadOf(handle);
    if (!thread)
        return FALSE;
    const std::lock_guard lock(WaitMutex());
    *code = thread->ended ? thread->code : STILL_ACTIVE;
    return TRUE;
}

DWORD WINAPI ResumeThread(HANDLE handle)
{
    const ThreadPtr thread = ThreadOf(handle);
    if (!thread)
        return static_cast<DWORD>(-1);
    const std::lock_guard lock(WaitMutex());
    const DWORD before = thread->suspended;
    thread->suspended = 0;
    Progress().notify_all();
    return before;
}

BOOL WINAPI SetThreadPriority(HANDLE handle, int priority)
{
    const ThreadPtr thread = ThreadOf(handle);
    if (!thread)
        return FALSE;
    const auto* level = std::find_if(kLevels.begin(), kLevels.end(),
                                     [priority](const Level& known) { return known.priority == priority; });
    if (level == kLevels.end())
        return Fail(ERROR_INVALID_PARAMETER);
    const int base = BaseNice();
    const std::lock_guard lock(WaitMutex());
    // A number of a thread that has ended may be another's by now.
    if (priority != thread->priority && !thread->ended &&
        setpriority(PRIO_PROCESS, thread->id, base + level->nice) != 0)
        return Fail(ERROR_ACCESS_DENIED);
    thread->priority = priority;
    return TRUE;
}

int WINAPI GetThreadPriority(HANDLE handle)
{
    const ThreadPtr thread = ThreadOf(handle);
    if (!thread)
        return THREAD_PRIORITY_ERROR_RETURN;
    const std::lock_guard lock(WaitMutex());
    return thread->priority;
}

HANDLE WINAPI GetCurrentThread()
{
    return kCurrentThread;
}

UINT_PTR _beginthreadex(void* security, unsigned stack, unsigned (*start)(void*), void* parameter,
                        unsigned flags, unsigned* id)
{
    return reinterpret_cast<UINT_PTR>(
        CreateThread(static_cast<LPSECURITY_ATTRIBUTES>(security), stack, start, parameter, flags, id));
}

void _endthreadex(unsigned code)
{
    ExitThread(code);
}
