#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include <orv_sys/pdf_object.h>

namespace OrvPdf
{

/// Parameters of the graphics state that the model has no place for (ISO 32000-1, table 58): a dictionary of
/// those that a content has set so far; null for none.
using ForeignParameters = std::shared_ptr<const OrvSys::PdfObject>;

/// Which objects have foreign parameters. They belong to what the file says of its content, not to the model:
/// an object that goes into another content, or a copy, leaves them behind.
class ForeignObjects
{
public:
    /// `id` is that of the object. None are the same as not being added.
    void Add(std::uint64_t id, const ForeignParameters& parameters);
    void Add(const ForeignObjects& others);

    bool IsEmpty() const { return parametersOfIds.empty(); }
    /// Null if the object has none.
    const OrvSys::PdfObject* Find(std::uint64_t id) const;

private:
    std::unordered_map<std::uint64_t, ForeignParameters> parametersOfIds;
};

/// Whether both are the same; both may be null.
bool AreSameForeignParameters(const OrvSys::PdfObject* left, const OrvSys::PdfObject* right);

/// The foreign parameters of a content, equal ones once.
class ForeignParameterCache
{
public:
    /// Far more than the standard knows, and than real contents have different sets of. A hostile one could
    /// make a new set of any size with each operator.
    static constexpr std::size_t maximumParameters = 64;
    static constexpr std::size_t maximumSets = 4096;

    /// Sets parameters beside those that are set already; those whose value is null are taken away. False,
    /// and nothing is done, if that would be too many.
    bool Change(ForeignParameters& parameters, const OrvSys::PdfObject::Entries& changes);

private:
    ForeignParameters Share(OrvSys::PdfObject parameters);

    std::unordered_map<std::uint64_t, std::vector<ForeignParameters>> known;
    std::size_t knownCount = 0;
};

} // namespace OrvPdf
