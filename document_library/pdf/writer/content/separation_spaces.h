#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include <orv_color/color_space.h>
#include <orv_color/representation.h>
#include <orv_doc/separation.h>

namespace OrvPdf
{

/// Makes colour spaces for colours that a program gave as lists of separations, with what a document knows
/// about the looks of its separations. For the length of one writing.
class SeparationSpaces
{
public:
    /// The entries must outlive this object. Of two entries of one name the first counts.
    explicit SeparationSpaces(const std::vector<OrvDoc::Separation::Entry>& entries);

    /// `Separation` for one name, in the space that a file named it by if there is one; `DeviceN` for more.
    /// The looks: the entry's alternate colour, the colours of the process inks for their names, otherwise
    /// black. Throws `std::invalid_argument` for names that make no colour space.
    OrvColor::ColorSpace::Pointer Get(const std::vector<std::string>& names);

    /// The same where an empty name stands for a component of no ink.
    OrvColor::ColorSpace::Pointer GetWithBlanks(const std::vector<std::string>& names);

    /// Those with what each of them looks like, where that is given. A name may be `None`, and may occur
    /// several times.
    OrvColor::ColorSpace::Pointer GetWithLooks(const std::vector<std::string>& names,
                                               const std::vector<OrvColor::Representation>& looks) const;

    /// `Separation` of all separations, seen as black.
    static OrvColor::ColorSpace::Pointer MakeAll();
    /// `Separation` of no ink at all.
    static OrvColor::ColorSpace::Pointer MakeNone();

private:
    const OrvDoc::Separation::Entry* Find(const std::string& name) const;
    const OrvColor::Representation& FindLooks(const std::string& name) const;
    OrvColor::ColorSpace::Pointer MakeSingle(const std::string& name) const;
    /// The name `None` stands for no ink.
    OrvColor::ColorSpace::Pointer MakeSeveral(const std::vector<std::string>& names) const;

    std::unordered_map<std::string, const OrvDoc::Separation::Entry*> entries;
    std::unordered_map<std::string, OrvColor::ColorSpace::Pointer> made;
};

} // namespace OrvPdf
