# Sourced by the scripts that run Windows programs: a quiet Wine with its own
# prefix under the build folder, created once.
export WINEDEBUG=-all
export WINEPREFIX="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)/build/wine-prefix"
export WINEDLLOVERRIDES="mscoree,mshtml="
if [ ! -f "$WINEPREFIX/system.reg" ]; then
    echo "Creating the Wine prefix in $WINEPREFIX..."
    mkdir -p "$WINEPREFIX"
    wineboot -i >/dev/null 2>&1 || true
    wineserver -w 2>/dev/null || true
fi
