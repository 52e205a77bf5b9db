#!/bin/sh
# Starts what the tests under Wine share: one virtual display and one fresh
# prefix in the folder given, with its server kept alive between programs.
set -e
state=$1
mkdir -p "$state"
export WINEPREFIX="$state/prefix" WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
unset DISPLAY

server() {
    /usr/lib/wine/wineserver64 "$@" >/dev/null 2>&1 </dev/null || wineserver "$@" >/dev/null 2>&1 </dev/null
}
wine() {
    /usr/lib/wine/wine64 "$@" >/dev/null 2>&1 </dev/null
}

if [ ! -s "$state/xvfb.pid" ] || ! kill -0 "$(cat "$state/xvfb.pid")" 2>/dev/null; then
    rm -f "$state/display"
    Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp \
        3>"$state/display" >/dev/null 2>&1 </dev/null &
    echo $! >"$state/xvfb.pid"
    for _ in $(seq 100); do
        [ -s "$state/display" ] && break
        sleep 0.1
    done
fi
DISPLAY=:$(cat "$state/display")
export DISPLAY

if [ ! -s "$WINEPREFIX/system.reg" ]; then
    wine wineboot -i
    # Files that are the system's own, unchanged, need no second copy: 695 MB become 81.
    find "$WINEPREFIX/drive_c/windows" -type f | while read -r file; do
        original=/usr/lib/x86_64-linux-gnu/wine/x86_64-windows/$(basename "$file")
        if cmp -s "$file" "$original"; then ln -sf "$original" "$file"; fi
    done
    # The services of the making end by themselves; what starts before they have would go with them.
    server -w || true
fi
server -p300 || true
# Without a window manager every window that closes would cost two seconds.
wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f
# The signs of the caption's buttons, and Korean letters in fonts that have none: the links of the system's own name
# fonts that are not here. DejaVu first, for its small superscripts.
fonts="$WINEPREFIX/drive_c/windows/Fonts"
if [ ! -e "$fonts/marlett.ttf" ]; then
    links='HKLM\Software\Microsoft\Windows NT\CurrentVersion\FontLink\SystemLink'
    wine reg add "$links" /v 'Liberation Sans' /t REG_MULTI_SZ /f \
        /d 'DejaVuSans.ttf,DejaVu Sans\0NanumGothic.ttf,NanumGothic'
    wine reg add "$links" /v 'Liberation Sans Bold' /t REG_MULTI_SZ /f \
        /d 'DejaVuSans-Bold.ttf,DejaVu Sans\0NanumGothicBold.ttf,NanumGothic'
    ln -s /usr/share/wine/fonts/marlett.ttf "$fonts/marlett.ttf"
fi
# The service behind OLE's table of running objects starts on demand; on a busy machine its first start can time
# out, and the first test to need it would fail. `net start` fails, too, when the service runs already.
for _ in 1 2 3 4 5; do
    wine net start RpcSs || true
    /usr/lib/wine/wine64 net start >"$state/services" 2>/dev/null </dev/null || true
    grep -q 'Remote Procedure Call' "$state/services" && break
done
