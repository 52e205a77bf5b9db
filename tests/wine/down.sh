#!/bin/sh
# Ends what up.sh started in the folder given.
state=$1
export WINEPREFIX="$state/prefix" WINEDEBUG=-all
/usr/lib/wine/wineserver64 -k >/dev/null 2>&1 </dev/null || wineserver -k >/dev/null 2>&1 </dev/null
[ -s "$state/xvfb.pid" ] && kill "$(cat "$state/xvfb.pid")" 2>/dev/null
rm -f "$state/xvfb.pid" "$state/display"
exit 0
