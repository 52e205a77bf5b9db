// Exchange between a dialog's controls and its members, and validation.
#pragma once

#include "afxwnd_.h"
