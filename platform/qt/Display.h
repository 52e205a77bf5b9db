// Whether there is a desktop to show windows on.
#pragma once

// Whether an X server answers where DISPLAY says, and lets this program in. Takes a few seconds at most,
// however the server behaves.
bool XServerAnswers();
