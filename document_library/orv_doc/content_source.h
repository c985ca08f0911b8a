#pragma once

namespace OrvDoc::Detail
{

/// What the content of a form, a pattern or a soft mask was read from. The model keeps it for who writes the
/// content again.
class ContentSource
{
public:
    virtual ~ContentSource() = default;

    /// Whether it is a glyph of a font.
    virtual bool IsGlyph() const { return false; }
};

} // namespace OrvDoc::Detail
