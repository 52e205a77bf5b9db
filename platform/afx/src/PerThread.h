// An object of which each thread has its own, made when it is first asked for and deleted at the thread's
// end.
#pragma once

#include <windows.h>

#include <memory>
#include <mutex>
#include <unordered_map>
#include <utility>

template <class T>
class PerThread
{
public:
    // Null when the thread has given its object up at its end, which static objects outlive.
    static T* Current()
    {
        if (!t_object && !t_ended) {
            t_object = Keep(std::make_unique<T>());
            thread_local const End end;
        }
        return t_object;
    }

private:
    // The variables of a thread in a library may be gone, with MinGW they are, when their destructors run:
    // this one has nothing to read, and the object lies elsewhere.
    struct End {
        End() {}
        ~End()
        {
            t_ended = true;
            t_object = nullptr;
            Drop();
        }
        End(const End&) = delete;
        End& operator=(const End&) = delete;
    };

    struct Objects {
        std::mutex mutex;
        std::unordered_map<DWORD, std::unique_ptr<T>> byThread;
    };

    // Never destroyed: the last thread may end after it.
    static Objects& All()
    {
        static auto* const objects = new Objects;
        return *objects;
    }

    static T* Keep(std::unique_ptr<T> object)
    {
        Objects& all = All();
        const std::lock_guard lock(all.mutex);
        std::unique_ptr<T>& kept = all.byThread[::GetCurrentThreadId()];
        static_cast<void>(kept.release()); // of a thread that was ended by force, or there is none
        kept = std::move(object);
        return kept.get();
    }

    static void Drop()
    {
        Objects& all = All();
        std::unique_ptr<T> object; // outlives the lock
        const std::lock_guard lock(all.mutex);
        const auto found = all.byThread.find(::GetCurrentThreadId());
        if (found == all.byThread.end())
            return;
        object = std::move(found->second);
        all.byThread.erase(found);
    }

    static inline thread_local T* t_object = nullptr;
    static inline thread_local bool t_ended = false;
};
