#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include <boost/optional.hpp>

#include "pdf/reader/content/scope_tree.h"
#include "pdf/reader/content/text_run.h"

namespace OrvPdf
{

/// The text object that is being read (ISO 32000-1, 9.4.1).
struct TextObject
{
    /// How the line came to be where it is since the latest character.
    enum class LineChange
    {
        None,
        Moved,
        Set,
    };

    bool isOpen = false;
    /// The group that it makes; 0 for none of its own.
    ScopeTree::Id scope = 0;
    /// The start of the current line.
    TextMatrix line;
    LineChange change = LineChange::None;
    /// By how much it moved since, in points and in its own axes.
    double moveX = 0.0;
    double moveY = 0.0;
    /// What the line was said to be exactly.
    boost::optional<TextLine> exactLine;
    /// What is being shown.
    std::unique_ptr<TextRun> run;
    /// Without a run the pen is that far from the start of the line, in points and in its axes, and then
    /// behind the latest text, if there is one on the line.
    double penX = 0.0;
    double penY = 0.0;
    /// Owned by the content or by the clips.
    const OrvDoc::Text* latest = nullptr;
    /// Those whose outlines clip what follows the text object.
    std::vector<std::unique_ptr<OrvDoc::Text>> clips;
};

} // namespace OrvPdf
