#!/usr/bin/env bash
# Installs what building and testing Tavukit needs on Debian, when it is missing.
# Runs apt-get only when a package is absent; uses sudo only when not root.
set -euo pipefail

packages=(
    cmake ninja-build g++ clang libclang-rt-14-dev googletest libbenchmark-dev
    g++-mingw-w64-x86-64-posix wine64 wine fonts-wine
    libtinyxml2-dev libpugixml-dev libexpat1-dev
    libcegui-mk2-dev libcegui-mk2-data fonts-cegui
    libfreetype-dev libfontconfig-dev fonts-dejavu-core libsdl2-dev libstb-dev pkgconf
    xvfb xauth xdotool libxml2-utils
)

missing=()
for package in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed"; then
        missing+=("$package")
    fi
done

if [ ${#missing[@]} -eq 0 ]; then
    echo "All build and test packages are installed."
    exit 0
fi

sudo=""
if [ "$(id -u)" -ne 0 ]; then sudo="sudo"; fi
echo "Installing: ${missing[*]}"
$sudo apt-get update -qq
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
echo "Installed ${#missing[@]} packages."
