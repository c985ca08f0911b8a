#pragma once

#include <orv_sys/export.h>

namespace OrvDoc
{

/// How `Document::Save` writes. A value.
class ORV_EXPORT WriteOptions
{
public:
    enum class Flavour
    {
        /// The whole document, as a new file.
        Full = 0,
    };

    explicit WriteOptions(Flavour flavour);

    // For makers of documents.

    Flavour GetFlavour() const { return flavour_; }

private:
    Flavour flavour_;
};

} // namespace OrvDoc
