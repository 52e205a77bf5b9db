// What a thread can wait for.
//
// One lock and one condition serve them all: waits of several objects are then simple, and programs that wait
// have few of them.
#pragma once

#include "Handle.h"

#include <condition_variable>
#include <mutex>

class Waitable : public KernelObject
{
public:
    // Both are called with WaitMutex() held.
    virtual bool IsSignalled() const = 0;
    virtual void Taken() {} // a waiter was let through
};

std::mutex& WaitMutex();

// Has the waiters look again.
void SignalWaiters();
