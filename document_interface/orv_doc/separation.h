#pragma once

#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include <orv_color/representation.h>
#include <orv_sys/export.h>

namespace OrvColor
{
class ColorSpace;
}

namespace OrvDoc::Separation
{

/// One separation of a document: its name and the colour that stands for it where it can't be printed.
class ORV_EXPORT Entry
{
public:
    Entry(const Entry& other);
    Entry& operator=(const Entry& other);
    ~Entry();

    /// Same name and same alternate colour.
    bool operator==(const Entry& other) const;
    bool operator!=(const Entry& other) const { return !(*this == other); }

    // For makers of documents.

    Entry(std::string name, OrvColor::Representation alternate);
    const std::string& GetName() const { return name; }
    /// The colour of the full tint; of no kind if it isn't known.
    const OrvColor::Representation& GetAlternate() const { return alternate; }
    /// The colour space of a file that the separation was named by; null if there is none. Takes no part in
    /// the comparison of entries.
    const std::shared_ptr<const OrvColor::ColorSpace>& GetColorSpace() const { return space; }
    void SetColorSpace(std::shared_ptr<const OrvColor::ColorSpace> value);

private:
    std::string name;
    OrvColor::Representation alternate;
    std::shared_ptr<const OrvColor::ColorSpace> space;
};

/// Such as `[Gold (CMYK 0 0.2 1 0), Cut (none)]`.
ORV_EXPORT std::ostream& operator<<(std::ostream& stream, const std::vector<Entry>& entries);

} // namespace OrvDoc::Separation
