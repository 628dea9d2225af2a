# ostrakon_compile_help(SOURCE folder CONTENTS file LOCALE number LISTS encoding PAGES encoding CHARSET name OUTPUT file)
#
# Makes the compiled help file OUTPUT from a folder of pages; CompileHelp.cmake says what each argument means. A target
# that depends on OUTPUT has it compiled, and compiled anew when a page changes.

find_program(CHMCMD chmcmd)
if(NOT CHMCMD)
    message(FATAL_ERROR "chmcmd, the compiler of the help files, is missing. It is part of Free Pascal: "
                        "install the package fp-utils (Debian), or Free Pascal and have its bin folder in PATH (Windows).")
endif()
find_program(ICONV iconv)
if(NOT ICONV)
    message(FATAL_ERROR "iconv, which the help files are converted with, is missing. It is part of the C library's "
                        "programs: install the package libc-bin (Debian), or libiconv's and have it in PATH (Windows).")
endif()

function(ostrakon_compile_help)
    cmake_parse_arguments(ARG "" "SOURCE;CONTENTS;LOCALE;LISTS;PAGES;CHARSET;OUTPUT" "" ${ARGN})
    get_filename_component(name "${ARG_SOURCE}" NAME)
    file(GLOB_RECURSE files RELATIVE "${ARG_SOURCE}" CONFIGURE_DEPENDS "${ARG_SOURCE}/*")
    list(TRANSFORM files PREPEND "${ARG_SOURCE}/" OUTPUT_VARIABLE paths)
    set(script "${PROJECT_SOURCE_DIR}/cmake/CompileHelp.cmake")
    add_custom_command(
        OUTPUT "${ARG_OUTPUT}"
        COMMAND
            "${CMAKE_COMMAND}" -D "SOURCE=${ARG_SOURCE}" -D "FILES=${files}" -D "CONTENTS=${ARG_CONTENTS}" -D "LOCALE=${ARG_LOCALE}" -D
            "LISTS=${ARG_LISTS}" -D "PAGES=${ARG_PAGES}" -D "CHARSET=${ARG_CHARSET}" -D
            "WORK=${CMAKE_CURRENT_BINARY_DIR}/${name}" -D "OUTPUT=${ARG_OUTPUT}" -D "CHMCMD=${CHMCMD}" -D
            "ICONV=${ICONV}" -P "${script}"
        DEPENDS ${paths} "${ARG_CONTENTS}" "${script}"
        COMMENT "Compiling the help file of ${ARG_SOURCE}"
        VERBATIM)
endfunction()
