// What a module with static objects exports.
#pragma once

#include <DynModuleMgr.h>
#include <Subject.h>

constexpr int kGreeting = 1;
constexpr int kFarewell = 2;

using LifeSubjectFunc = DP_CSubject*();
using LifeModulesFunc = CDynModuleMgr*();
using LifeMeetFunc = void(DP_CSubject* subject, CDynModuleMgr* modules);
