# Windows, by MinGW-w64. The compiler with POSIX threads: where a distribution has two, the standard
# library of the other one lacks <mutex>.
set(CMAKE_SYSTEM_NAME Windows)
if(NOT CMAKE_SYSTEM_PROCESSOR)
    set(CMAKE_SYSTEM_PROCESSOR x86_64)
endif()
set(triple ${CMAKE_SYSTEM_PROCESSOR}-w64-mingw32)

find_program(TABLIO_MINGW_CXX
    NAMES ${triple}-g++-posix ${triple}-g++ REQUIRED)
set(CMAKE_CXX_COMPILER "${TABLIO_MINGW_CXX}")
set(CMAKE_RC_COMPILER ${triple}-windres)
# At our level of optimisation this compiler sees std::variant read what was never written.
set(CMAKE_CXX_FLAGS_INIT -Wno-maybe-uninitialized)
# A program needs no library beside it.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)

# Nothing of this machine's own libraries.
set(CMAKE_FIND_ROOT_PATH /usr/${triple})
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)

find_program(TABLIO_WINE wine)
# Programs of 32 bits want another Wine, which need not be there.
if(TABLIO_WINE AND CMAKE_SYSTEM_PROCESSOR STREQUAL "x86_64")
    set(CMAKE_CROSSCOMPILING_EMULATOR
        "${CMAKE_CURRENT_LIST_DIR}/../../scripts/with-wine" plain "${TABLIO_WINE}")
endif()
