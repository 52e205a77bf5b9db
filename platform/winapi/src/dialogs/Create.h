// Makes dialogs from templates.
#pragma once

#include "State.h"
#include "Template.h"

struct DialogOrder {
    HINSTANCE module = nullptr;
    HWND owner = nullptr;
    DLGPROC procedure = nullptr;
    LPARAM data = 0;
    ModalRun* run = nullptr; // of a modal dialog: its owner is disabled and the dialog not shown yet
};

// Null with the last error set when the dialog or one of its controls cannot be made, or when it is gone
// after WM_INITDIALOG.
HWND MakeDialog(const Template& shape, const DialogOrder& order);

// The template in a module's resources or in memory; nothing with the last error set.
std::optional<Template> FindTemplate(HINSTANCE module, LPCSTR name);
std::optional<Template> TemplateAt(LPCDLGTEMPLATEA shape);
