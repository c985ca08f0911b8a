# Writes the CTest entries of one GoogleTest program to LISTING; harrow_discover_tests calls it.

execute_process(COMMAND "${PROGRAM}" --gtest_list_tests
    WORKING_DIRECTORY "${WORKING_FOLDER}"
    TIMEOUT 60
    OUTPUT_VARIABLE output
    RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "${PROGRAM} can't list its tests (${result}):\n${output}")
endif()

# An entry whose tests were all skipped counts as skipped, one with a failure or a passed test never does.
set(allSkipped "\\[  PASSED  \\] 0 tests\\.\n\\[  SKIPPED \\] [0-9]+ tests?, listed below:\n(\\[  SKIPPED \\] [^\n]*\n)+$")
string(REPLACE "|" ";" PROPERTIES "${PROPERTIES}")

set(entries "")
# Entry of the given name, for the tests that the filter lets through; ARGN are further properties.
function(add_entry name filter)
    string(APPEND entries
        "add_test([==[${PREFIX}${name}]==] [==[${PROGRAM}]==] [==[--gtest_filter=${filter}]==])\n"
        "set_tests_properties([==[${PREFIX}${name}]==] PROPERTIES WORKING_DIRECTORY [==[${WORKING_FOLDER}]==]"
        " SKIP_REGULAR_EXPRESSION [==[${allSkipped}]==]")
    foreach(word IN LISTS PROPERTIES ARGN)
        string(APPEND entries " [==[${word}]==]")
    endforeach()
    string(APPEND entries ")\n")
    set(entries "${entries}" PARENT_SCOPE)
endfunction()

# Suites stand at the margin and end in a dot, their tests are indented; comments tell parameters.
string(REPLACE ";" " " output "${output}")
string(REPLACE "[" "(" output "${output}")
string(REPLACE "]" ")" output "${output}")
string(REPLACE "\n" ";" lines "${output}")
set(suites "")
foreach(line IN LISTS lines)
    string(REGEX REPLACE " *#.*$" "" line "${line}")
    if(line MATCHES "^([^ ]+)\\.$")
        set(listed "${CMAKE_MATCH_1}")
        # Instance/Suite for parameters that are values, Suite/0 or Instance/Suite/0 for those that are types.
        string(REGEX REPLACE "/[0-9]+$" "" suite "${listed}")
        string(REGEX REPLACE "^.*/" "" suite "${suite}")
        list(APPEND suites "${suite}")
    elseif(line MATCHES "^  ([^ ]+)$")
        list(APPEND tests_${suite} "${listed}.${CMAKE_MATCH_1}")
        list(APPEND listed_${suite} "${listed}.*")
    endif()
endforeach()
list(REMOVE_DUPLICATES suites)

foreach(suite IN LISTS suites)
    foreach(test IN LISTS tests_${suite})
        add_entry("${test}" "${test}")
    endforeach()
endforeach()
set(single "${entries}")

set(entries "")
foreach(suite IN LISTS suites)
    list(LENGTH tests_${suite} count)
    list(REMOVE_DUPLICATES listed_${suite})
    list(JOIN listed_${suite} ":" filter)
    if(LARGEST EQUAL 1)
        foreach(test IN LISTS tests_${suite})
            add_entry("${test}" "${test}")
        endforeach()
    elseif(count GREATER LARGEST)
        math(EXPR shards "(${count} + ${LARGEST} - 1) / ${LARGEST}")
        foreach(number RANGE 1 ${shards})
            math(EXPR index "${number} - 1")
            add_entry("${suite}#${number}" "${filter}"
                ENVIRONMENT "GTEST_TOTAL_SHARDS=${shards}\\;GTEST_SHARD_INDEX=${index}")
        endforeach()
    elseif(count GREATER 0)
        add_entry("${suite}" "${filter}")
    endif()
endforeach()

file(WRITE "${LISTING}" "if(CTEST_CONFIGURATION_TYPE STREQUAL \"each\")\n${single}else()\n${entries}endif()\n")
