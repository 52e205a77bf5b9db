#!/bin/sh
# Runs one Windows program in Wine: tests/wine/run.sh PROGRAM.exe [ARGUMENT...]
# Both streams go through a file: Wine's service processes inherit them, and a
# reader at a pipe's other end would wait for those to end.
state=${ZEK_WINE_STATE:?set by CTest}
gcc_dir=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-file-name=libstdc++-6.dll)")

export WINEPREFIX="$state/prefix" WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
export WINEPATH="Z:${ZEK_WINE_BIN:-$state/../bin};Z:$gcc_dir;Z:/usr/x86_64-w64-mingw32/lib"
if [ -s "$state/display" ]; then
    DISPLAY=:$(cat "$state/display")
    export DISPLAY
fi

output=$(mktemp) || exit 99
/usr/lib/wine/wine64 "$@" >"$output" 2>&1 </dev/null
status=$?
tr -d '\r' <"$output"
rm -f "$output"
exit $status
