# ostrakon_add_fuzz_target(NAME fuzz_reader CORPUS reader LIBRARIES ostrakon_tables)
#
# One fuzz target, tests/fuzz/<name>.cpp, which defines LLVMFuzzerTestOneInput. In the preset fuzz it becomes a libFuzzer
# program, built with all others by the target fuzz; elsewhere a test that feeds it every file of its corpus,
# tests/fuzz/corpus/<corpus>, and needs no clang.
add_custom_target(fuzz)

function(ostrakon_add_fuzz_target)
    cmake_parse_arguments(ARG "" "NAME;CORPUS" "LIBRARIES" ${ARGN})
    add_executable(${ARG_NAME} EXCLUDE_FROM_ALL "${PROJECT_SOURCE_DIR}/tests/fuzz/${ARG_NAME}.cpp")
    ostrakon_target(${ARG_NAME} CORE)
    set_target_properties(${ARG_NAME} PROPERTIES AUTOMOC OFF)
    target_link_libraries(${ARG_NAME} PRIVATE ${ARG_LIBRARIES})
    target_include_directories(${ARG_NAME} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
    if(OSTRAKON_FUZZ)
        target_link_options(${ARG_NAME} PRIVATE -fsanitize=fuzzer)
        add_dependencies(fuzz ${ARG_NAME})
        return()
    endif()
    set_target_properties(${ARG_NAME} PROPERTIES EXCLUDE_FROM_ALL OFF)
    target_sources(${ARG_NAME} PRIVATE "${PROJECT_SOURCE_DIR}/tests/fuzz/ReplayMain.cpp")
    add_test(NAME ${ARG_NAME} COMMAND ${ARG_NAME} "${PROJECT_SOURCE_DIR}/tests/fuzz/corpus/${ARG_CORPUS}")
    set_tests_properties(
        ${ARG_NAME} PROPERTIES LABELS unit TIMEOUT 120 ENVIRONMENT "LC_ALL=C.UTF-8;ASAN_OPTIONS=detect_leaks=0"
    )
endfunction()
