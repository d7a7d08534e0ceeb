# Windows x64 from Linux: Debian's mingw-w64 with POSIX threads. tools/windows/make-prefix fills the folder in
# which Qt, SQLite and GoogleTest are looked for; what was built runs under Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../../tools/windows/wine-run)

if(DEFINED ENV{TL_WINDOWS_PREFIX})
    set(default_prefix $ENV{TL_WINDOWS_PREFIX})
else()
    set(default_prefix $ENV{HOME}/.cache/tl-workstation/windows-x64)
endif()
set(TL_WINDOWS_PREFIX ${default_prefix} CACHE PATH "Qt and the other libraries for Windows x64")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES TL_WINDOWS_PREFIX)

set(CMAKE_FIND_ROOT_PATH ${TL_WINDOWS_PREFIX} /usr/x86_64-w64-mingw32)
set(CMAKE_PREFIX_PATH ${TL_WINDOWS_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Qt's translation tools run here, and are the same for every system.
if(NOT DEFINED Qt5LinguistTools_DIR)
    set(Qt5LinguistTools_DIR /usr/lib/${CMAKE_HOST_SYSTEM_PROCESSOR}-linux-gnu/cmake/Qt5LinguistTools)
endif()
