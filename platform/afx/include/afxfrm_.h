// Frame windows, views and documents.
#pragma once

#include "afxwnd_.h"
