# How tests are compiled, and CTest entries for GoogleTest programs: one for each suite, because a start of a program
# that is built with sanitizers takes longer than most tests.

# The code of the tests needs no speed, and compiling it is most of the build. Below the sanitizers it is not optimised,
# nor are its pointers checked one by one for null, alignment and object size: the address sanitizer stops at null and
# stray ones as well, and alignment is the libraries' affair. That halves the time: 3.5 s for a test file, not 7.1 s.
# The libraries' own sources keep their full flags.
function(harrow_test_compile_options target)
    harrow_compile_options(${target})
    if(HARROW_SANITIZE)
        target_compile_options(${target} PRIVATE -O0)
    endif()
    if(HARROW_SANITIZE STREQUAL "address")
        target_compile_options(${target} PRIVATE -fno-sanitize=null,alignment,object-size)
    endif()
endfunction()

set(harrowListTestsScript "${CMAKE_CURRENT_LIST_DIR}/list_tests.cmake")

# harrow_discover_tests(<program> PREFIX <text> [LARGEST <count>] PROPERTIES <name> <value>...)
# lists the program's tests after each link. CTest then knows them as <prefix><Suite>, where the instances of a
# parameterised suite are one; a suite with more than LARGEST tests (50 unless told) is dealt out to several entries,
# <prefix><Suite>#1 and so on, which run at the same time. LARGEST 1 gives each test an entry.
#
# `ctest -C each` knows each test on its own instead, as <prefix><Suite>.<Test>.
function(harrow_discover_tests program)
    cmake_parse_arguments(PARSE_ARGV 1 tests "" "PREFIX;LARGEST" "PROPERTIES")
    if(NOT tests_LARGEST)
        set(tests_LARGEST 50)
    endif()
    set(listing "${CMAKE_CURRENT_BINARY_DIR}/${program}_entries.cmake")
    # Semicolons would end the argument.
    string(REPLACE ";" "|" properties "${tests_PROPERTIES}")
    add_custom_command(TARGET ${program} POST_BUILD
        COMMAND ${CMAKE_COMMAND}
            -D "PROGRAM=$<TARGET_FILE:${program}>"
            -D "PREFIX=${tests_PREFIX}"
            -D "LARGEST=${tests_LARGEST}"
            -D "PROPERTIES=${properties}"
            -D "WORKING_FOLDER=${PROJECT_SOURCE_DIR}"
            -D "LISTING=${listing}"
            -P "${harrowListTestsScript}"
        BYPRODUCTS "${listing}"
        VERBATIM)
    # A program that nobody has built fails as a test; it is not left out in silence.
    set(included "${CMAKE_CURRENT_BINARY_DIR}/${program}_include.cmake")
    file(WRITE "${included}"
        "if(EXISTS \"${listing}\")\n  include(\"${listing}\")\n"
        "else()\n  add_test(${program}_NOT_BUILT ${program}_NOT_BUILT)\nendif()\n")
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES "${included}")
endfunction()
