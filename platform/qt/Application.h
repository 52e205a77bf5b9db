// The toolkit's application object.
#pragma once

// Makes it on the calling thread, unless the host has made one; the process's locale is left as it was.
// Answers whether windows can be shown; where no display answers, the object is there all the same, for
// measures. Never ends the process, as the toolkit itself does when it cannot reach a display.
//
// The toolkit's platform is what QT_QPA_PLATFORM names, or else X where it answers, because windows have no
// place of their own under Wayland, or else Wayland.
bool StartApplication();
