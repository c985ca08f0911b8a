#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include <orv_font/writing_mode.h>

namespace OrvPdf
{

/// A map from the codes of a shown string to CIDs (ISO 32000-1, 9.7.5). Immutable.
class CMap
{
public:
    struct Code
    {
        std::uint32_t value = 0;
        std::uint32_t bytes = 1;
        std::uint32_t cid = 0;
    };

    /// Two bytes a code, which is the CID: `Identity-H` and `Identity-V`.
    static std::shared_ptr<const CMap> GetIdentity(OrvFont::WritingMode mode);

    /// One of the predefined CMaps (ISO 32000-1, 9.7.5.2), read from the folders of CMap resources of the
    /// machine when it is first asked for and kept. Null if there is none of that name.
    static std::shared_ptr<const CMap> FindPredefined(const std::string& name);

    /// Parses an embedded CMap. `parent` is the one that its dictionary names by `UseCMap`; without one, the
    /// file's own `usecmap` counts. Damage leaves what can be read. `problem` gets what is wrong, if
    /// anything.
    static std::shared_ptr<const CMap> Parse(std::string_view bytes, std::shared_ptr<const CMap> parent,
                                             std::string& problem);

    virtual ~CMap() = default;

    /// Takes the next code from the front of `bytes`, which must not be empty, by the codespace ranges; a
    /// code that matches none takes the bytes that ISO 32000-1, 9.7.6.3 says and has the CID 0.
    virtual Code Next(std::string_view& bytes) const = 0;
    virtual OrvFont::WritingMode GetWritingMode() const = 0;
    virtual const std::string& GetName() const = 0;
    /// Such as `Adobe` and `Japan1`; empty if it does not say.
    virtual const std::string& GetRegistry() const = 0;
    virtual const std::string& GetOrdering() const = 0;
};

} // namespace OrvPdf
