// Dialog templates, of which the framework reads no more than the beginning.
#pragma once

#include <windows.h>

// The template of that name; `module` becomes the module that holds it. Null when there is none.
LPCDLGTEMPLATEA AfxFindDialogTemplate(LPCSTR name, HINSTANCE& module);

// Whether the template leaves its dialog's place to the framework.
bool AfxIsPlaceOpen(LPCDLGTEMPLATEA shape);
