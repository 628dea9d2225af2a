# Every compiler flag of the project stands here, on one interface target.

option(OSTRAKON_WARNINGS_AS_ERRORS "A warning stops the build" OFF)
option(OSTRAKON_SANITIZE "Address and undefined-behaviour sanitizers" OFF)
option(OSTRAKON_FUZZ "Fuzz targets with clang's libFuzzer, instead of replays of their corpora" OFF)
option(OSTRAKON_BENCH "Benchmarks with a peer in the same run" OFF)
option(OSTRAKON_PRECOMPILED_HEADERS "Share the Qt headers precompiled" ON)

add_library(ostrakon_flags INTERFACE)
if(MSVC)
    target_compile_options(ostrakon_flags INTERFACE /W4 /utf-8 /permissive-)
    if(OSTRAKON_WARNINGS_AS_ERRORS)
        target_compile_options(ostrakon_flags INTERFACE /WX)
    endif()
else()
    # -fPIC on programs too: one precompiled header then serves libraries and programs alike.
    target_compile_options(ostrakon_flags INTERFACE -fPIC -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
                                                    -Wold-style-cast -Wcast-align -Woverloaded-virtual -Wconversion
                                                    -Wno-sign-conversion)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        # GCC 12 warns falsely inside the standard string's own code when it is inlined (GCC bug 105329).
        target_compile_options(ostrakon_flags INTERFACE -Wno-restrict -Wno-stringop-overflow)
    endif()
    if(OSTRAKON_WARNINGS_AS_ERRORS)
        target_compile_options(ostrakon_flags INTERFACE -Werror)
    endif()
    # A fused multiply-add would change last bits from machine to machine.
    target_compile_options(ostrakon_flags INTERFACE -ffp-contract=off)
    if(OSTRAKON_SANITIZE)
        target_compile_options(ostrakon_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=undefined
                                                        -fno-omit-frame-pointer)
        target_link_options(ostrakon_flags INTERFACE -fsanitize=address,undefined)
    endif()
    if(OSTRAKON_FUZZ)
        target_compile_options(ostrakon_flags INTERFACE -fsanitize=fuzzer-no-link)
    endif()
endif()
# Strings of the sources are UTF-8; no implicit conversion from bytes can hide another encoding.
target_compile_definitions(ostrakon_flags INTERFACE QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_DISABLE_DEPRECATED_BEFORE=0x060400)

# Links the flags, and takes a precompiled header: the toolkit's headers, or with CORE the part that needs no widgets.
function(ostrakon_target target)
    cmake_parse_arguments(ARG "CORE" "" "" ${ARGN})
    target_link_libraries(${target} PRIVATE ostrakon_flags)
    if(NOT OSTRAKON_PRECOMPILED_HEADERS)
        return()
    endif()
    if(ARG_CORE)
        target_precompile_headers(${target} REUSE_FROM ostrakon_core_pch)
    else()
        target_precompile_headers(${target} REUSE_FROM ostrakon_pch)
    endif()
endfunction()
