# Fails, naming file and line, when a source includes what its folder may not know:
# - the system and the public headers know the document library only by its interface;
# - the embedded document library does not know the system;
# - QPDF stays inside the PDF reader and writer, and no public header shows another PDF, font or colour library;
# - the model knows files only by the classes that it has for them, and the reader does not know the writer.

set(failures "")

# forbid(<reason> PATTERN <regular expression> FOLDERS <folder>... [EXCEPT <folder or file>...])
function(forbid reason)
    cmake_parse_arguments(PARSE_ARGV 1 rule "" "PATTERN" "FOLDERS;EXCEPT")
    foreach(folder IN LISTS rule_FOLDERS)
        file(GLOB_RECURSE files RELATIVE "${SOURCE_FOLDER}"
            "${SOURCE_FOLDER}/${folder}/*.h" "${SOURCE_FOLDER}/${folder}/*.hpp" "${SOURCE_FOLDER}/${folder}/*.cpp")
        foreach(except IN LISTS rule_EXCEPT)
            list(FILTER files EXCLUDE REGEX "^${except}(/|$)")
        endforeach()
        foreach(file IN LISTS files)
            file(STRINGS "${SOURCE_FOLDER}/${file}" lines REGEX "^[ \t]*#[ \t]*include.*${rule_PATTERN}")
            foreach(line IN LISTS lines)
                string(APPEND failures "${file}: ${line}\n    ${reason}\n")
            endforeach()
        endforeach()
    endforeach()
    set(failures "${failures}" PARENT_SCOPE)
endfunction()

set(system comparators generation image_catalogue round_trip scripting)
set(public include document_interface)
set(model orv_sys plexa vantry orv_color orv_font orv_img orv_paint orv_blend orv_doc)
list(TRANSFORM model PREPEND "document_library/")
set(foreignLibraries "[<\"](qpdf/|libdeflate|zlib|ft2build|freetype|hb|lcms2|jpeglib|openjpeg|tiff)")

forbid("the system includes only the interface of the document library"
    PATTERN "[<\"][^>\"]*(document_library|pdf/(reader|writer))/" FOLDERS ${system} ${public} examples)
forbid("the document library does not know the system that tests it"
    PATTERN "[<\"](\\.\\./)*(harrow_support|comparators|generation|image_catalogue|round_trip|scripting)/"
    FOLDERS document_library document_interface)
forbid("only the PDF reader and writer include QPDF"
    PATTERN "[<\"]qpdf/" FOLDERS document_library ${system}
    EXCEPT document_library/pdf/reader document_library/pdf/writer)
forbid("the model knows files only by orv_doc/document_source.h and orv_doc/content_source.h"
    PATTERN "[<\"]pdf/" FOLDERS ${model} EXCEPT document_library/orv_doc/document.cpp)
forbid("the PDF reader does not know the writer"
    PATTERN "[<\"]pdf/writer/" FOLDERS document_library EXCEPT document_library/pdf/writer document_library/orv_doc/document.cpp)
forbid("the interpreter of content streams asks for resources and knows no file"
    PATTERN "[<\"]qpdf/" FOLDERS document_library/pdf/reader/lexer document_library/pdf/reader/content)
forbid("what reader and writer share knows neither"
    PATTERN "[<\"]pdf/(reader|writer)/" FOLDERS document_library/pdf
    EXCEPT document_library/pdf/reader document_library/pdf/writer)
forbid("public headers show no type of the libraries that the implementation stands on"
    PATTERN "${foreignLibraries}" FOLDERS ${public} EXCEPT document_interface/boost_network_shim)

if(failures)
    message(FATAL_ERROR "\n${failures}")
endif()
