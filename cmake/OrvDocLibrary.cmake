# The embedded document library, liborvdoc: target orvdoc, and orvdoc_internal for tests of its inner parts.

harrow_glob_sources(orvdocSources document_library)
if(HARROW_HAS_CPPNETLIB)
    list(FILTER orvdocSources EXCLUDE REGEX "/document_library/boost_network_shim/")
endif()

set(orvdocInclude "${PROJECT_SOURCE_DIR}/document_interface")
set(orvdocLink Boost::headers Boost::filesystem Boost::system)
if(HARROW_HAS_CPPNETLIB)
    list(APPEND orvdocLink cppnetlib-uri)
else()
    list(APPEND orvdocInclude "${PROJECT_SOURCE_DIR}/document_interface/boost_network_shim")
endif()

harrow_library(orvdoc
    SOURCES ${orvdocSources}
    INCLUDE ${orvdocInclude}
    PRIVATE_INCLUDE "${PROJECT_SOURCE_DIR}/document_library"
    LINK ${orvdocLink}
    PRIVATE_LINK PkgConfig::QPDF PkgConfig::DEFLATE PkgConfig::URIPARSER PkgConfig::LCMS
        PkgConfig::FREETYPE PkgConfig::HARFBUZZ PkgConfig::JPEG PkgConfig::OPENJPEG ZLIB::ZLIB Threads::Threads)
add_library(OrvDoc::orvdoc ALIAS orvdoc)
target_include_directories(orvdoc INTERFACE "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/orvdoc>")
if(NOT HARROW_HAS_CPPNETLIB)
    target_include_directories(orvdoc INTERFACE
        "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/orvdoc/boost_network_shim>")
endif()

# QPDF's transitional smart pointer stays undefined: only std::shared_ptr is in use.
target_compile_definitions(orvdoc_objects PRIVATE POINTERHOLDER_TRANSITION=4)
target_compile_definitions(orvdoc_internal PUBLIC POINTERHOLDER_TRANSITION=4)
