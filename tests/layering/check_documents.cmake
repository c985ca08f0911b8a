# Fails, naming page and path, when a page for people names a file that is not there:
# - the target of a link, relative to the page;
# - a name between backticks that ends like a source file, or begins with a folder of the repository. It stands for
#   every file whose path ends with it, so that a table need not repeat the folder of its section; `*` stands for any
#   part of a name;
# - such a name at the beginning of a line, as lists in fenced blocks have them.
# Names with a place to fill in, such as `<name>_fuzzer.cpp`, and what a build makes are left alone.

set(failures "")

# What lies in version control, as far as its place tells.
file(GLOB topLevel LIST_DIRECTORIES true RELATIVE "${SOURCE_FOLDER}" "${SOURCE_FOLDER}/*")
list(REMOVE_ITEM topLevel build .git)
set(folders "")
foreach(entry IN LISTS topLevel)
    if(IS_DIRECTORY "${SOURCE_FOLDER}/${entry}")
        list(APPEND folders "${entry}")
    endif()
endforeach()
list(TRANSFORM folders PREPEND "${SOURCE_FOLDER}/" OUTPUT_VARIABLE globs)
list(TRANSFORM globs APPEND "/*")
file(GLOB_RECURSE paths LIST_DIRECTORIES true RELATIVE "${SOURCE_FOLDER}" ${globs})
list(APPEND paths ${topLevel})
# Each path between two line feeds, with a solidus in front.
list(JOIN paths "\n/" known)
set(known "\n/${known}\n")

list(JOIN folders "|" anyFolder)
set(sourceEnding "\\.(cpp|h|cmake|sh|md|svg)$")

# Sets <result> to the names in a page that have to be there. A name is no part of a longer one.
function(find_names text result)
    set(names "")
    string(REGEX MATCHALL "\n[a-z0-9_/*]+\\.(cpp|h|\\*) " listed "${text}")
    foreach(name IN LISTS listed)
        string(STRIP "${name}" name)
        list(APPEND names "${name}")
    endforeach()
    string(REGEX REPLACE "\n```[^`]*\n```" "" text "${text}")
    string(REGEX MATCHALL "`[^`\n]+`" quoted "${text}")
    foreach(name IN LISTS quoted)
        string(REGEX REPLACE "^`|`$|/+$" "" name "${name}")
        string(REGEX REPLACE "/+$" "" name "${name}")
        if(name MATCHES "[ <>(){}$]")
            continue()
        endif()
        if(name MATCHES "${sourceEnding}" OR name MATCHES "^(${anyFolder})(/|$)")
            list(APPEND names "${name}")
        endif()
    endforeach()
    list(REMOVE_DUPLICATES names)
    set(${result} "${names}" PARENT_SCOPE)
endfunction()

file(GLOB pages "${SOURCE_FOLDER}/*.md" "${SOURCE_FOLDER}/docs/*.md" "${SOURCE_FOLDER}/benchmarks/*.md"
    "${SOURCE_FOLDER}/tools/*.md" "${SOURCE_FOLDER}/document_library/*/*/*.md")
# What was once there may be gone.
list(REMOVE_ITEM pages "${SOURCE_FOLDER}/CHANGELOG.md")
set(count 0)
foreach(page IN LISTS pages)
    file(READ "${page}" text)
    # Brackets and semicolons mean something in a list.
    string(REGEX REPLACE "[][;]" " " plain "${text}")
    file(RELATIVE_PATH shown "${SOURCE_FOLDER}" "${page}")
    cmake_path(GET page PARENT_PATH around)

    find_names("${plain}" names)
    foreach(name IN LISTS names)
        math(EXPR count "${count} + 1")
        string(REGEX REPLACE "([.+])" "\\\\\\1" pattern "${name}")
        string(REPLACE "*" "[^/\n]*" pattern "${pattern}")
        if(NOT known MATCHES "/${pattern}\n")
            string(APPEND failures "${shown}: there is no `${name}`\n")
        endif()
    endforeach()

    # "[text](target)" has lost its square brackets above.
    string(REGEX MATCHALL " \\([^() `\n]+\\)" targets "${plain}")
    foreach(target IN LISTS targets)
        string(REGEX REPLACE "^ \\(|\\)$|#.*" "" target "${target}")
        if(target STREQUAL "" OR target MATCHES "^https?:" OR NOT target MATCHES "[./]")
            continue()
        endif()
        math(EXPR count "${count} + 1")
        if(NOT EXISTS "${around}/${target}")
            string(APPEND failures "${shown}: the link to ${target} leads nowhere\n")
        endif()
    endforeach()
endforeach()

if(count EQUAL 0)
    message(FATAL_ERROR "no page names any file")
endif()
if(failures)
    message(FATAL_ERROR "\n${failures}")
endif()
message(STATUS "${count} names and links lead somewhere")
