// Dialogs.
#pragma once

#include "afxwnd_.h"
