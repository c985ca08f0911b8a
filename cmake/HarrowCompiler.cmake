# How every target of the project is compiled: harrow_compile_options(<target>).

if(PROJECT_IS_TOP_LEVEL)
    set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
    if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
        set(CMAKE_BUILD_TYPE Release CACHE STRING "Kind of build" FORCE)
    endif()
    find_program(HARROW_CCACHE ccache)
    if(HARROW_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
        set(CMAKE_CXX_COMPILER_LAUNCHER "${HARROW_CCACHE}")
    endif()
endif()

set(harrowWarnings
    -Wall -Wextra -Wpedantic
    -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
    -Wextra-semi -Wformat=2 -Wimplicit-fallthrough -Wmissing-declarations -Wredundant-decls -Wundef)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    list(APPEND harrowWarnings -Wduplicated-cond -Wlogical-op)
    if(HARROW_SANITIZE)
        # The checks that the sanitizers insert hide from gcc that a variable is always set.
        list(APPEND harrowWarnings -Wno-maybe-uninitialized)
    endif()
endif()
if(HARROW_WARNINGS_AS_ERRORS)
    list(APPEND harrowWarnings -Werror)
endif()

set(harrowSanitizerFlags "")
if(HARROW_SANITIZE STREQUAL "address")
    set(harrowSanitizerFlags -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
elseif(HARROW_SANITIZE STREQUAL "thread")
    set(harrowSanitizerFlags -fsanitize=thread -fno-omit-frame-pointer)
elseif(HARROW_SANITIZE)
    message(FATAL_ERROR "HARROW_SANITIZE is '${HARROW_SANITIZE}'; it may be empty, 'address' or 'thread'.")
endif()
if(HARROW_BUILD_FUZZERS)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        message(FATAL_ERROR "HARROW_BUILD_FUZZERS needs clang, which has the fuzzing engine: cmake --preset fuzz.")
    endif()
    # Lets the engine see which lines of the libraries an input reaches.
    list(APPEND harrowSanitizerFlags -fsanitize=fuzzer-no-link)
endif()

function(harrow_compile_options target)
    set_target_properties(${target} PROPERTIES
        CXX_STANDARD 17
        CXX_STANDARD_REQUIRED ON
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
    # A fused multiply-add rounds once where two operations round twice. The comparisons are exact, so the same
    # source has to give the same numbers on every machine.
    target_compile_options(${target} PRIVATE ${harrowWarnings} -ffp-contract=off ${harrowSanitizerFlags})
    if(HARROW_SANITIZE)
        target_compile_definitions(${target} PRIVATE _GLIBCXX_ASSERTIONS)
        target_link_options(${target} PRIVATE ${harrowSanitizerFlags})
    endif()
endfunction()
