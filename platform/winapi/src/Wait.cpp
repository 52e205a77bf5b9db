#include "Waitable.h"

#include <winbase.h>

#include <algorithm>
#include <chrono>
#include <vector>

namespace {

using Waitables = std::vector<std::shared_ptr<Waitable>>;

// Never destroyed: threads may wait while the process ends.
std::condition_variable& Changed()
{
    static std::condition_variable& changed = *new std::condition_variable;
    return changed;
}

bool CollectWaitables(DWORD count, const HANDLE* handles, Waitables& objects)
{
    for (DWORD i = 0; i < count; ++i) {
        auto object = ObjectOf<Waitable>(handles[i]);
        if (!object)
            return false;
        objects.push_back(std::move(object));
    }
    return true;
}

// The index of the object that ends the wait, or the number of objects when none does.
size_t TakeAny(const Waitables& objects)
{
    const auto found = std::find_if(objects.begin(), objects.end(),
                                    [](const auto& object) { return object->IsSignalled(); });
    if (found != objects.end())
        (*found)->Taken();
    return static_cast<size_t>(found - objects.begin());
}

size_t TakeAll(const Waitables& objects)
{
    if (!std::all_of(objects.begin(), objects.end(),
                     [](const auto& object) { return object->IsSignalled(); }))
        return objects.size();
    for (const auto& object : objects)
        object->Taken();
    return 0;
}

DWORD Wait(const Waitables& objects, bool all, DWORD milliseconds)
{
    size_t taken = objects.size();
    const auto done = [&] {
        taken = all ? TakeAll(objects) : TakeAny(objects);
        return taken < objects.size();
    };
    std::unique_lock lock(WaitMutex());
    if (milliseconds == INFINITE)
        Changed().wait(lock, done);
    else if (!Changed().wait_for(lock, std::chrono::milliseconds(milliseconds), done))
        return WAIT_TIMEOUT;
    return WAIT_OBJECT_0 + static_cast<DWORD>(taken);
}

} // namespace

std::mutex& WaitMutex()
{
    static std::mutex& mutex = *new std::mutex;
    return mutex;
}

void SignalWaiters()
{
    Changed().notify_all();
}

DWORD WINAPI WaitForSingleObject(HANDLE handle, DWORD milliseconds)
{
    return WaitForMultipleObjects(1, &handle, FALSE, milliseconds);
}

DWORD WINAPI WaitForMultipleObjects(DWORD count, const HANDLE* handles, BOOL all, DWORD milliseconds)
{
    if (count == 0 || count > MAXIMUM_WAIT_OBJECTS)
        return SetLastError(ERROR_INVALID_PARAMETER), WAIT_FAILED;
    Waitables objects;
    if (!CollectWaitables(count, handles, objects))
        return WAIT_FAILED;
    return Wait(objects, all, milliseconds);
}
