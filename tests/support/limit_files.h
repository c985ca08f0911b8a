#pragma once

#include <cstddef>
#include <string>

/// Files that ask for just as much of one thing as they are told, and for little of all others.
namespace HarrowSupport::Testing::LimitFiles
{

// Counts are of what the limit counts: levels, pages, objects, bytes and so on.

std::string NestedProperties(std::size_t levels);
std::string NestedColorSpace(std::size_t levels);
std::string NestedMarks(std::size_t levels);
std::string NestedStates(std::size_t levels);
std::string NestedForms(std::size_t levels);
/// A page in each level of the tree.
std::string NestedPageTree(std::size_t levels);
std::string NestedLayers(std::size_t levels);
std::string Pages(std::size_t pages);
std::string Objects(std::size_t objects);
/// A content of paths of eight bytes each, behind white space.
std::string ContentBytes(std::size_t bytes);
std::string ContentPartsOfBytes(std::size_t bytes);
/// So many bytes more than 50 times its own length. The latest are paths of eight bytes each.
std::string ContentBytesBeyondTheFile(std::size_t bytes);
std::string PictureOfBytes(std::size_t bytes);
std::string FunctionOfBytes(std::size_t bytes);
std::string Paths(std::size_t paths);
std::string OverlappingGroups(std::size_t copies);
std::string OverlappingMatrices(std::size_t corrections);
std::string Operands(std::size_t operands);
std::string OperandElements(std::size_t elements);
std::string NameOfBytes(std::size_t bytes);
std::string PathOfSegments(std::size_t segments);
std::string DashOfElements(std::size_t elements);
std::string PictureOfSamples(std::size_t samples);
std::string Colorants(std::size_t colorants);
std::string SampledFunction(std::size_t samples);
std::string NestedFunctions(std::size_t levels);
std::string NestedBraces(std::size_t levels);
std::string CalculatorOfTokens(std::size_t tokens);
std::string UnknownOperators(std::size_t operators);

} // namespace HarrowSupport::Testing::LimitFiles
