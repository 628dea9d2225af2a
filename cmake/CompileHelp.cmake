# cmake -D SOURCE=<folder> -D FILES=<names> -D CONTENTS=<file> -D LOCALE=<number> -D LISTS=<encoding> -D PAGES=<encoding>
#       -D CHARSET=<name> -D WORK=<folder> -D OUTPUT=<file> -D CHMCMD=<program> -D ICONV=<program> -P CompileHelp.cmake
#
# Compiles the FILES of a folder, pages and what these use, into one help file. CONTENTS lists the pages in the order of
# the help file's contents; a page that belongs below another is indented by two blanks more. The entries read as the
# <title> of their pages.
#
# Viewers read the titles of a help file in the code page of its locale, which LISTS names, and a page as it says
# itself. Pages are written in PAGES, and their "charset=utf-8" becomes CHARSET.
cmake_minimum_required(VERSION 3.25)

function(write_encoded path encoding text)
    set(plain "${WORK}/plain-text")
    file(WRITE "${plain}" "${text}")
    execute_process(
        COMMAND "${ICONV}" -f UTF-8 -t "${encoding}" "${plain}"
        OUTPUT_FILE "${path}"
        ERROR_VARIABLE complaint
        RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${path}: a page or title has a character that ${encoding} lacks; write an entity.\n"
                            "${complaint}")
    endif()
endfunction()

# The title of a page, fit for a quoted attribute.
function(read_title page result)
    file(READ "${SOURCE}/${page}" text)
    if(NOT text MATCHES "<title>([^<]+)</title>")
        message(FATAL_ERROR "${SOURCE}/${page} has no title")
    endif()
    string(REGEX REPLACE "[ \t\r\n]+" " " title "${CMAKE_MATCH_1}")
    string(STRIP "${title}" title)
    string(REPLACE "\"" "&quot;" title "${title}")
    set(${result} "${title}" PARENT_SCOPE)
endfunction()

function(make_entry title page result)
    set(${result}
        "<li><object type=\"text/sitemap\"><param name=\"Name\" value=\"${title}\"><param name=\"Local\" value=\"${page}\"></object>\n"
        PARENT_SCOPE)
endfunction()

function(write_list path entries)
    write_encoded("${path}" "${LISTS}" "<html><head></head><body>\n<ul>\n${entries}</ul>\n</body></html>\n")
endfunction()

# The tree of the contents and, by title, the index.
function(write_lists)
    file(STRINGS "${CONTENTS}" lines)
    set(tree "")
    set(index "")
    set(depth 0)
    foreach(line IN LISTS lines)
        if(NOT line MATCHES "^((  )*)([A-Za-z0-9_./-]+)$")
            message(FATAL_ERROR "${CONTENTS}: \"${line}\" is no page with two blanks a level before it")
        endif()
        set(page "${CMAKE_MATCH_3}")
        string(LENGTH "${CMAKE_MATCH_1}" blanks)
        math(EXPR level "${blanks} / 2")
        math(EXPR too_deep "${depth} + 1")
        if(level GREATER too_deep OR (tree STREQUAL "" AND level GREATER 0))
            message(FATAL_ERROR "${CONTENTS}: ${page} stands deeper than below the page before it")
        endif()
        if(level GREATER depth)
            string(APPEND tree "<ul>\n")
        endif()
        while(level LESS depth)
            string(APPEND tree "</ul>\n")
            math(EXPR depth "${depth} - 1")
        endwhile()
        set(depth ${level})
        read_title("${page}" title)
        make_entry("${title}" "${page}" entry)
        string(APPEND tree "${entry}")
        # What means something in a list of CMake's is put back below.
        string(REPLACE ";" "<semicolon>" entry "${entry}")
        string(REPLACE "[" "<bracket>" entry "${entry}")
        list(APPEND index "${entry}")
    endforeach()
    string(REPEAT "</ul>\n" ${depth} closing)
    write_list("${WORK}/book.hhc" "${tree}${closing}")

    list(SORT index CASE INSENSITIVE)
    list(JOIN index "" index)
    string(REPLACE "<semicolon>" ";" index "${index}")
    string(REPLACE "<bracket>" "[" index "${index}")
    write_list("${WORK}/book.hhk" "${index}")
endfunction()

function(write_pages)
    foreach(file IN LISTS FILES)
        if(file MATCHES "\\.html$")
            file(READ "${SOURCE}/${file}" text)
            string(REPLACE "charset=utf-8" "charset=${CHARSET}" text "${text}")
            get_filename_component(folder "${WORK}/${file}" DIRECTORY)
            file(MAKE_DIRECTORY "${folder}")
            write_encoded("${WORK}/${file}" "${PAGES}" "${text}")
        else()
            configure_file("${SOURCE}/${file}" "${WORK}/${file}" COPYONLY)
        endif()
    endforeach()
endfunction()

# Full-text search stays off: the compiler crashes on it with Chinese pages. Contents and index stay plain text: the
# compiler takes every text of their binary forms for Latin.
function(write_project)
    file(STRINGS "${CONTENTS}" first LIMIT_COUNT 1)
    read_title("${first}" title)
    foreach(entity "&lt;=<" "&gt;=>" "&quot;=\"" "&amp;=&")
        string(REGEX MATCH "^([^=]+)=(.)$" entity "${entity}")
        string(REPLACE "${CMAKE_MATCH_1}" "${CMAKE_MATCH_2}" title "${title}")
    endforeach()
    list(JOIN FILES "\n" files)
    write_encoded(
        "${WORK}/book.hhp"
        "${LISTS}"
        "[OPTIONS]
Compatibility=1.1 or later
Compiled file=book.chm
Contents file=book.hhc
Index file=book.hhk
Default topic=${first}
Language=${LOCALE}
Title=${title}
Full-text search=No
Binary TOC=No
Binary Index=No

[FILES]
${files}
")
endfunction()

# The compiler resolves names against its own folder, and wants them plain.
file(REMOVE_RECURSE "${WORK}")
file(MAKE_DIRECTORY "${WORK}")
write_pages()
write_lists()
write_project()
execute_process(
    COMMAND "${CHMCMD}" --no-html-scan book.hhp
    WORKING_DIRECTORY "${WORK}"
    OUTPUT_VARIABLE account
    ERROR_VARIABLE account
    RESULT_VARIABLE result)
if(NOT result EQUAL 0 OR NOT EXISTS "${WORK}/book.chm")
    message(FATAL_ERROR "${CHMCMD} fails (${result}):\n${account}")
endif()
file(COPY_FILE "${WORK}/book.chm" "${OUTPUT}")
