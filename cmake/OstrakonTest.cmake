# ostrakon_add_test(NAME tst_module FOLDER curve LABEL unit LIBRARIES ostrakon_tables [TIMEOUT s] [ENVIRONMENT A=B ...])
#
# One QtTest executable, tests/<folder>/<name>.cpp. Tests never need a screen: those with widgets run on the offscreen
# platform. Each has an own home and runtime folder, so that no setting and no lock of the user is touched.
function(ostrakon_add_test)
    cmake_parse_arguments(ARG "" "NAME;FOLDER;LABEL;TIMEOUT" "LIBRARIES;ENVIRONMENT;SOURCES" ${ARGN})
    add_executable(${ARG_NAME} "${PROJECT_SOURCE_DIR}/tests/${ARG_FOLDER}/${ARG_NAME}.cpp" ${ARG_SOURCES})
    ostrakon_target(${ARG_NAME})
    target_link_libraries(${ARG_NAME} PRIVATE ${ARG_LIBRARIES} Qt6::Widgets Qt6::Test)
    target_include_directories(${ARG_NAME} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
    target_compile_definitions(${ARG_NAME} PRIVATE OSTRAKON_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/${ARG_FOLDER}/data")
    set(home "${CMAKE_BINARY_DIR}/test-homes/${ARG_NAME}")
    file(MAKE_DIRECTORY "${home}/config" "${home}/runtime")
    # The toolkit takes a shared folder instead of a runtime folder that is open to others.
    file(CHMOD "${home}/runtime" PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 120)
    endif()
    add_test(NAME ${ARG_NAME} COMMAND ${ARG_NAME})
    set_tests_properties(
        ${ARG_NAME}
        PROPERTIES LABELS "${ARG_LABEL}"
                   TIMEOUT ${ARG_TIMEOUT}
                   ENVIRONMENT
                   "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;HOME=${home};XDG_CONFIG_HOME=${home}/config;XDG_RUNTIME_DIR=${home}/runtime;ASAN_OPTIONS=detect_leaks=0;${ARG_ENVIRONMENT}"
    )
endfunction()
