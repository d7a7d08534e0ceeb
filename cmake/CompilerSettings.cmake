# Two interface targets that every target of ours links, written out like any other library:
# TLBuild::Warnings for all C++, TLBuild::Qt in addition for what is built on Qt.

add_library(TLBuildWarnings INTERFACE)
add_library(TLBuild::Warnings ALIAS TLBuildWarnings)
if(MSVC)
    target_compile_options(TLBuildWarnings INTERFACE /W4 /permissive- /utf-8 $<$<BOOL:${TL_WARNINGS_AS_ERRORS}>:/WX>)
    target_compile_definitions(TLBuildWarnings INTERFACE NOMINMAX WIN32_LEAN_AND_MEAN _CRT_SECURE_NO_WARNINGS)
else()
    target_compile_options(TLBuildWarnings INTERFACE
        -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wcast-align -Wformat=2 -Wimplicit-fallthrough
        # gtest's and Qt's variadic macros are called without arguments; GCC has no word on it
        $<$<CXX_COMPILER_ID:Clang>:-Wno-gnu-zero-variadic-macro-arguments>
        $<$<BOOL:${TL_WARNINGS_AS_ERRORS}>:-Werror>)
endif()

add_library(TLBuildQt INTERFACE)
add_library(TLBuild::Qt ALIAS TLBuildQt)
target_compile_definitions(TLBuildQt INTERFACE
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII
    QT_NO_URL_CAST_FROM_STRING
    QT_DISABLE_DEPRECATED_BEFORE=0x050F00)
target_link_libraries(TLBuildQt INTERFACE TLBuild::Warnings)

if(TL_SANITIZE)
    add_compile_options(-fsanitize=${TL_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all -g1)
    add_link_options(-fsanitize=${TL_SANITIZE})
endif()

if(TL_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
