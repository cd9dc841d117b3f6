#!/usr/bin/env bash
# Installs a build and builds a consumer against what was installed, found by CMake and by pkg-config.
# usage: check_install.sh BUILD COMPILER FLAGS
set -euo pipefail
build=$1 compiler=$2 flags=$3
sources=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

expect() {
  local result
  result=$("$@")
  [ "$result" = "IDENT_2: sound" ] || { echo "$* printed: $result" >&2; exit 1; }
}

cmake --install "$build" --prefix "$work/first" >/dev/null
mv "$work/first" "$work/moved"

cmake -S "$sources" -B "$work/cmake" -G Ninja -DCMAKE_PREFIX_PATH="$work/moved" \
  -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_CXX_FLAGS="$flags" >/dev/null
cmake --build "$work/cmake" >/dev/null
expect "$work/cmake/consumer"

for document in bash-completion/completions/velk zsh/site-functions/_velk fish/vendor_completions.d/velk.fish man/man1/velk.1; do
  [ -s "$work/moved/share/$document" ] || { echo "share/$document is not installed" >&2; exit 1; }
done

pages=$work/moved/share/doc/velk
for page in "$pages"/*.md "$pages"/docs/*.md; do
  for target in $(grep -v '^    ' "$page" | grep -oE '\]\([^)#:]+' | cut -c 3-); do
    [ -e "$(dirname "$page")/$target" ] || { echo "$page links to $target, which is not installed" >&2; exit 1; }
  done
done
[ -s "$pages/examples/images/rf_board.bin" ] || { echo "the example images are not installed" >&2; exit 1; }

pc=$(dirname "$(find "$work/moved" -name velk.pc)")
read -ra options <<<"$flags $(PKG_CONFIG_PATH=$pc pkg-config --cflags velk)"
read -ra libraries <<<"$(PKG_CONFIG_PATH=$pc pkg-config --libs velk)"
"$compiler" -std=c++20 -fPIC "${options[@]}" "$sources/consumer.cpp" -o "$work/consumer" "${libraries[@]}"
# The installed headers are those that velk/velk.h includes, by the compiler's own account.
include=$work/moved/include
"$compiler" -std=c++20 -fPIC "${options[@]}" -M "$sources/consumer.cpp" | tr ' ' '\n' | xargs -n 1 realpath -m |
  grep "^$include/" | sort -u >"$work/included"
find "$include" -name '*.h' | sort | diff "$work/included" - || { echo "other headers are installed" >&2; exit 1; }
LD_LIBRARY_PATH="$(dirname "$pc")" expect "$work/consumer"

"$work/moved/bin/velk" check "$sources/../../examples/images/rf_board.bin" >/dev/null
