# What the two libraries stand on. Each is a package of the Debian 12 main archive.

find_package(Boost 1.74 REQUIRED COMPONENTS filesystem system)
find_package(Threads REQUIRED)

# boost::network::uri::uri comes from an installed cpp-netlib, and otherwise from the header in
# document_interface/boost_network_shim, which has the same name and interface.
find_package(cppnetlib QUIET)
if(TARGET cppnetlib-uri)
    set(HARROW_HAS_CPPNETLIB ON)
else()
    set(HARROW_HAS_CPPNETLIB OFF)
endif()

if(NOT HARROW_DOCUMENT_LIBRARY)
    find_package(PkgConfig REQUIRED)
    pkg_check_modules(QPDF REQUIRED IMPORTED_TARGET libqpdf>=11)
    pkg_check_modules(DEFLATE REQUIRED IMPORTED_TARGET libdeflate)
    pkg_check_modules(URIPARSER REQUIRED IMPORTED_TARGET liburiparser)
    pkg_check_modules(LCMS REQUIRED IMPORTED_TARGET lcms2)
    pkg_check_modules(FREETYPE REQUIRED IMPORTED_TARGET freetype2)
    pkg_check_modules(HARFBUZZ REQUIRED IMPORTED_TARGET harfbuzz-subset>=6.0)
    pkg_check_modules(JPEG REQUIRED IMPORTED_TARGET libjpeg)
    pkg_check_modules(OPENJPEG REQUIRED IMPORTED_TARGET libopenjp2)
    if(HARROW_BUILD_TESTS)
        # Its encoder is the second opinion on fax data.
        pkg_check_modules(TIFF REQUIRED IMPORTED_TARGET libtiff-4)
    endif()
    find_package(ZLIB REQUIRED)
endif()
