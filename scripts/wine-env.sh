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
# Wine's own faces (Tahoma, Courier, ... from Debian's fonts-wine) where its
# programs look for fonts, so that text is drawn in them rather than in
# whatever the system's font configuration offers.
for font in /usr/share/wine/fonts/*.ttf; do
    if [ -f "$font" ] && [ ! -e "$WINEPREFIX/drive_c/windows/Fonts/${font##*/}" ]; then
        cp "$font" "$WINEPREFIX/drive_c/windows/Fonts/" 2>/dev/null || true
    fi
done
