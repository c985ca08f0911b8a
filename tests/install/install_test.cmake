# One way of using the project from outside, WAY:
# - install_tree: cmake --install into a folder, which is then moved, so that no absolute path can survive in it;
# - find_package, pkg_config: an outside project on that folder;
# - document_library_package: the system built on the installed document library instead of the embedded one;
# - add_subdirectory: an outside project that takes the sources in.
# An outside project's program has to build, run and print what it should.

set(installTree "${WORK_FOLDER}/tree")
set(way "${WORK_FOLDER}/${WAY}")
set(outside "${SOURCE_FOLDER}/tests/install/outside_project")

function(run)
    list(JOIN ARGN " " commandLine)
    message(STATUS "${commandLine}")
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        message("${output}")
        message(FATAL_ERROR "ended with ${result}: ${commandLine}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

# configure_and_build(<source folder> <target> <option>...)
function(configure_and_build source target)
    set(compiler "-DCMAKE_CXX_COMPILER=${COMPILER}" "-DCMAKE_BUILD_TYPE=${BUILD_TYPE}")
    if(COMPILER_LAUNCHER)
        list(APPEND compiler "-DCMAKE_CXX_COMPILER_LAUNCHER=${COMPILER_LAUNCHER}")
    endif()
    run("${CMAKE_COMMAND}" -S "${source}" -B "${way}" -G "${GENERATOR}" ${compiler} ${ARGN})
    run("${CMAKE_COMMAND}" --build "${way}" --target ${target})
endfunction()

function(expect_program_works program)
    run(${ARGN} "${program}")
    if(NOT output STREQUAL "equal\n")
        message(FATAL_ERROR "${program} printed '${output}' instead of 'equal'.")
    endif()
endfunction()

file(REMOVE_RECURSE "${way}")

if(WAY STREQUAL "install_tree")
    file(REMOVE_RECURSE "${installTree}")
    run("${CMAKE_COMMAND}" --install "${BUILD_FOLDER}" --prefix "${way}")
    file(RENAME "${way}" "${installTree}")
elseif(WAY STREQUAL "find_package")
    configure_and_build("${outside}" all "-DCMAKE_PREFIX_PATH=${installTree}")
    expect_program_works("${way}/outside")
elseif(WAY STREQUAL "pkg_config")
    # Nothing else can be found: what the shared libraries stand on is no affair of those who link them.
    set(ENV{PKG_CONFIG_LIBDIR} "${installTree}/${LIBRARY_FOLDER_NAME}/pkgconfig")
    set(ENV{PKG_CONFIG_PATH} "")
    find_program(pkgConfig pkg-config REQUIRED)
    run("${pkgConfig}" --cflags --libs harrow_support)
    separate_arguments(flags UNIX_COMMAND "${output}")
    file(MAKE_DIRECTORY "${way}")
    run("${COMPILER}" -std=c++17 "${outside}/main.cpp" -o "${way}/outside" ${flags})
    expect_program_works("${way}/outside"
        "${CMAKE_COMMAND}" -E env "LD_LIBRARY_PATH=${installTree}/${LIBRARY_FOLDER_NAME}")
elseif(WAY STREQUAL "document_library_package")
    configure_and_build("${SOURCE_FOLDER}" harrow_support
        "-DCMAKE_PREFIX_PATH=${installTree}" -DHARROW_DOCUMENT_LIBRARY=OrvDoc
        -DHARROW_BUILD_TESTS=OFF -DHARROW_BUILD_EXAMPLES=OFF)
    file(GLOB_RECURSE embedded "${way}/*liborvdoc*")
    if(embedded)
        message(FATAL_ERROR "The embedded document library was built although another was named: ${embedded}")
    endif()
elseif(WAY STREQUAL "add_subdirectory")
    # The flags of the outer build, warnings as errors too: then the compiler cache has all objects already.
    configure_and_build("${SOURCE_FOLDER}/tests/install/embedding_project" outside
        "-DHARROW_FOLDER=${SOURCE_FOLDER}" "-DHARROW_WARNINGS_AS_ERRORS=${WARNINGS_AS_ERRORS}")
    expect_program_works("${way}/outside")
else()
    message(FATAL_ERROR "WAY is '${WAY}', which this script does not know.")
endif()
