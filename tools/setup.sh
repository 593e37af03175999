#!/usr/bin/env bash
# Installs from Debian what building, testing and running need and is not there yet. Safe to run
# again: with everything in place it only asks the package database.
set -euo pipefail

packages=(
  build-essential cmake ninja-build ccache git python3
  g++-mingw-w64-x86-64-posix mingw-w64-tools
  wine wine64 libwine-dev
  xvfb xdotool x11-utils imagemagick fonts-noto-cjk librsvg2-bin
  libboost-dev nlohmann-json3-dev googletest libbenchmark-dev libsqlite3-dev libicu-dev
  clang-format-14 clang-tidy-19 clang-19 libclang-rt-19-dev
)

missing=()
for package in "${packages[@]}"; do
  status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
  [ "$status" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

echo "installing: ${missing[*]}"
as_root=()
[ "$(id -u)" = 0 ] || as_root=(sudo)
"${as_root[@]}" apt-get update -qq
# With what the packages recommend: Wine draws text and cursors through libraries that it only recommends.
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${missing[@]}"
