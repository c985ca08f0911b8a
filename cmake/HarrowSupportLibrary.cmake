# The system itself, libharrow_support: target harrow_support, and harrow_support_internal for tests of its inner
# parts. It sees the document library only through the headers that OrvDoc::orvdoc brings.

harrow_glob_sources(harrowSources comparators generation image_catalogue round_trip scripting)

harrow_library(harrow_support
    SOURCES ${harrowSources}
    INCLUDE "${PROJECT_SOURCE_DIR}/include"
    PRIVATE_INCLUDE "${PROJECT_SOURCE_DIR}"
    LINK OrvDoc::orvdoc Boost::headers Boost::filesystem Boost::system)
add_library(HarrowSupport::harrow_support ALIAS harrow_support)
target_include_directories(harrow_support INTERFACE "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>")
