# WebAssembly, by the compiler that Debian packs as emscripten.
set(CMAKE_C_COMPILER_LAUNCHER "")
set(CMAKE_CXX_COMPILER_LAUNCHER "")
include(/usr/share/emscripten/cmake/Modules/Platform/Emscripten.cmake)
