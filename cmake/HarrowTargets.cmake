# Helpers that turn folders into targets.

# harrow_glob_sources(<variable> <folder>...): all .cpp files below the folders, which need not exist. A new file
# is seen at the next build. Folders without a source give an empty one, so that their target can be made.
function(harrow_glob_sources variable)
    set(patterns "")
    foreach(folder IN LISTS ARGN)
        list(APPEND patterns "${PROJECT_SOURCE_DIR}/${folder}/*.cpp")
    endforeach()
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${patterns})
    if(NOT sources)
        set(placeholder "${PROJECT_BINARY_DIR}/no_source_yet.cpp")
        if(NOT EXISTS "${placeholder}")
            file(WRITE "${placeholder}" "")
        endif()
        set(sources "${placeholder}")
    endif()
    set(${variable} "${sources}" PARENT_SCOPE)
endfunction()

# harrow_library(<name> SOURCES <file>... INCLUDE <public folder>... PRIVATE_INCLUDE <folder>...
#                LINK <public target>... PRIVATE_LINK <target>...)
# compiles the sources once, for the shared library <name> and the static library <name>_internal. Only tests link
# the static one: it lets them reach what the shared one hides. The static one leaves it to the program that links
# it which flavour of the document library goes with it.
function(harrow_library name)
    cmake_parse_arguments(PARSE_ARGV 1 library "" "" "SOURCES;INCLUDE;PRIVATE_INCLUDE;LINK;PRIVATE_LINK")
    add_library(${name}_objects OBJECT ${library_SOURCES})
    add_library(${name} SHARED $<TARGET_OBJECTS:${name}_objects>)
    add_library(${name}_internal STATIC EXCLUDE_FROM_ALL $<TARGET_OBJECTS:${name}_objects>)

    set_target_properties(${name}_objects PROPERTIES POSITION_INDEPENDENT_CODE ON)
    harrow_compile_options(${name}_objects)
    target_include_directories(${name}_objects PRIVATE ${library_INCLUDE} ${library_PRIVATE_INCLUDE})
    target_link_libraries(${name}_objects PRIVATE ${library_LINK} ${library_PRIVATE_LINK})

    foreach(flavour IN ITEMS ${name} ${name}_internal)
        set_target_properties(${flavour} PROPERTIES LINKER_LANGUAGE CXX)
        target_compile_features(${flavour} PUBLIC cxx_std_17)
        foreach(folder IN LISTS library_INCLUDE)
            target_include_directories(${flavour} PUBLIC "$<BUILD_INTERFACE:${folder}>")
        endforeach()
        target_link_options(${flavour} PRIVATE ${harrowSanitizerFlags})
    endforeach()
    target_link_libraries(${name} PUBLIC ${library_LINK} PRIVATE ${library_PRIVATE_LINK})
    target_include_directories(${name}_internal PUBLIC ${library_PRIVATE_INCLUDE})
    list(FILTER library_LINK EXCLUDE REGEX "^OrvDoc::")
    target_link_libraries(${name}_internal PUBLIC ${library_LINK} ${library_PRIVATE_LINK})

    set_target_properties(${name} PROPERTIES
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}
        LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib"
        INSTALL_RPATH "$ORIGIN")
    # A symbol that no linked library defines is an error here, not at the start of the first program.
    target_link_options(${name} PRIVATE -Wl,--no-undefined)
endfunction()
