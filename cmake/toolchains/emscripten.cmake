# WebAssembly, by the Emscripten whose em++ is found first. Its own toolchain file does the work.
find_program(TABLIO_EMXX em++ REQUIRED)
file(REAL_PATH "${TABLIO_EMXX}" emxx)
cmake_path(GET emxx PARENT_PATH emscripten)
include("${emscripten}/cmake/Modules/Platform/Emscripten.cmake")

# The core throws, which Emscripten leaves out unless it is told.
set(CMAKE_CXX_FLAGS_INIT -fexceptions)
