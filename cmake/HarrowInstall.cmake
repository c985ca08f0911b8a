# cmake --install: libraries, headers, CMake packages and pkg-config files. The embedded document library is a
# package of its own, OrvDoc, on which HarrowSupport stands; a foreign one takes its place.

set(harrowGeneratedFolder "${PROJECT_BINARY_DIR}/install")

# harrow_install_package(<package> <target> <namespace>): the CMake package around one exported library.
function(harrow_install_package package target namespace)
    set(folder "${CMAKE_INSTALL_LIBDIR}/cmake/${package}")
    install(TARGETS ${target} EXPORT ${package}Targets LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}")
    install(EXPORT ${package}Targets NAMESPACE ${namespace}:: DESTINATION "${folder}")
    configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/${package}Config.cmake.in"
        "${harrowGeneratedFolder}/${package}Config.cmake" INSTALL_DESTINATION "${folder}")
    write_basic_package_version_file("${harrowGeneratedFolder}/${package}ConfigVersion.cmake"
        VERSION ${PROJECT_VERSION} COMPATIBILITY SameMajorVersion)
    install(FILES "${harrowGeneratedFolder}/${package}Config.cmake"
                  "${harrowGeneratedFolder}/${package}ConfigVersion.cmake"
        DESTINATION "${folder}")
endfunction()

function(harrow_install_pkg_config name)
    # The prefix stands relative to the file, so that an install tree can be moved.
    file(RELATIVE_PATH prefix "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
    string(REGEX REPLACE "/$" "" prefix "${prefix}")
    set(PC_PREFIX "\${pcfiledir}/${prefix}")
    configure_file("${PROJECT_SOURCE_DIR}/cmake/${name}.pc.in" "${harrowGeneratedFolder}/${name}.pc" @ONLY)
    install(FILES "${harrowGeneratedFolder}/${name}.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
endfunction()

if(HARROW_DOCUMENT_LIBRARY)
    set(HARROW_DOCUMENT_PACKAGE "${HARROW_DOCUMENT_LIBRARY}")
else()
    set(HARROW_DOCUMENT_PACKAGE OrvDoc)
    set(ORVDOC_PC_EXTRA_CFLAGS "")
    if(NOT HARROW_HAS_CPPNETLIB)
        set(ORVDOC_PC_EXTRA_CFLAGS " -I\${includedir}/orvdoc/boost_network_shim")
    endif()
    set(shimPattern PATTERN "boost_network_shim" EXCLUDE)
    if(NOT HARROW_HAS_CPPNETLIB)
        set(shimPattern "")
    endif()
    install(DIRECTORY "${PROJECT_SOURCE_DIR}/document_interface/"
        DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/orvdoc" FILES_MATCHING PATTERN "*.h" PATTERN "*.hpp" ${shimPattern})
    harrow_install_package(OrvDoc orvdoc OrvDoc)
    harrow_install_pkg_config(orvdoc)
endif()

install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/harrow_support"
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" FILES_MATCHING PATTERN "*.h")
harrow_install_package(HarrowSupport harrow_support HarrowSupport)
harrow_install_pkg_config(harrow_support)
install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION "${CMAKE_INSTALL_DOCDIR}")
