// The framework's base classes: strings, files, exceptions, time, collections' root.
#pragma once

#include "afxver_.h"
#include "afxobj_.h"
#include "afxstr_.h"
#include "afxexc_.h"
#include "afxtime_.h"
#include "afxfile_.h"
