// Which window is active and which has the keyboard.
#pragma once

#include "Window.h"

enum class Origin { Program, User }; // the user's doing has been done by the toolkit already

// Makes a top-level window (null: none) the active one of its thread and tells the windows that change.
void Activate(const WindowRef& window, Origin origin);
void GiveFocus(const WindowRef& window, Origin origin);

// For a window that is hidden, disabled or goes: others take its place.
void LoseFocus(const WindowRef& window);
void LoseActivation(const WindowRef& window);

// The top-level window that a window lies in; null below the message root.
WindowRef TopLevelOf(const WindowRef& window);
