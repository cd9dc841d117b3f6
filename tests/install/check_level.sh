#!/bin/bash
# Builds the 16-bit sum with g++ in a build whose optimisation level differs from its own.
set -euo pipefail
source=$1 build=$2 level=$3
rm -rf "$build"
cmake -S "$source" -B "$build" -G Ninja -DCMAKE_CXX_COMPILER=g++ -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_FLAGS="$level"
cmake --build "$build" --target velk/CMakeFiles/velk.dir/cmake_pch.hxx.gch \
  velk/CMakeFiles/velk.dir/datablock/Checksums.cpp.o
rm -rf "$build"
