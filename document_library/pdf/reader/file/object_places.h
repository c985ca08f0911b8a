#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include <qpdf/QPDFObjGen.hh>

class QPDF;

namespace OrvPdf
{

/// Where an object stands in the bytes of a file, up to the next one.
struct ObjectPlace
{
    QPDFObjGen object;
    std::size_t begin = 0;
    std::size_t end = 0;
};

/// The objects that the cross-reference table gives a place in the file (ISO 32000-1, 7.5.4), those in object
/// streams left out. Ascending, each place once. The table is copied for that.
std::vector<ObjectPlace> ListObjectPlaces(QPDF& qpdf, std::string_view bytes);

/// The first of the objects at whose place there is something else; nothing if each is where it should be.
std::optional<QPDFObjGen> FindMisplacedObject(const std::vector<ObjectPlace>& places, std::string_view bytes);

/// Whether each object that is where it should be has a place in another table as well.
bool KeepsObjects(const std::vector<ObjectPlace>& before, const std::vector<ObjectPlace>& after,
                  std::string_view bytes);

} // namespace OrvPdf
