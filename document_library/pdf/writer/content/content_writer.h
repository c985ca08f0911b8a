#pragma once

#include <string>
#include <vector>

#include <orv_color/color_space.h>
#include <orv_doc/layer.h>
#include <orv_doc/marked_content.h>
#include <orv_sys/pdf_object.h>

#include "pdf/writer/content/graphics_state_writer.h"
#include "pdf/writer/content/nested_reference.h"
#include "pdf/writer/content/paint_patterns.h"
#include "pdf/writer/content/used_fonts.h"
#include "pdf/writer/file/writing_problems.h"
#include "pdf/writer/pictures/pictures_writer.h"

namespace OrvDoc
{
class Content;
class Group;
} // namespace OrvDoc

namespace OrvPdf
{

class SeparationSpaces;

/// A content stream with what its resource dictionary has to hold. The names there are the prefix and the
/// index.
struct WrittenContent
{
    ContentStart start = ContentStart::Page;
    std::string bytes;
    std::vector<OrvColor::ColorSpace::Pointer> colorSpaces; ///< `cs`
    std::vector<WrittenPattern> patterns;                   ///< `p`
    std::vector<ExtGState> graphicsStates;                  ///< `gs`
    /// `tr`, without an index.
    boost::optional<OrvDoc::TransferFunctionSet> transferFunctions;
    std::vector<OrvSys::PdfObject> foreignParameters; ///< `fp`
    std::vector<OrvDoc::Layer::Membership> layers;    ///< `oc`
    std::vector<OrvDoc::MarkedContent> propertyLists; ///< `mc`
    std::vector<FormReference> forms;                 ///< `fm`
    std::vector<UsedFont> fonts;                      ///< `f`
    std::vector<UsedPicture> pictures;                ///< `im`
    WritingProblems problems;
};

/// Writes the objects of a content as a content stream (ISO 32000-1, 7.8.2).
///
/// The walk goes through the tree in paint order with a stack of its own, so depth costs memory and no stack.
/// Each object's state is known in full; of it only what differs from the state in force is written. A run of
/// objects with one transformation shares one `q cm ... Q`. What PDF has no words for goes into marked
/// content with the tags of `marked_content_tags.h`.
///
/// What can't be said is left out and told in the problems. Equal contents give equal bytes.
WrittenContent WriteContent(const OrvDoc::Content& content, SeparationSpaces& separations,
                            ContentStart start);

/// The same for one group, as a content inside of another.
/// `base` leads from the container around it to the coordinates of the content; the stream begins with it.
WrittenContent WriteGroup(const OrvDoc::Group& group, const Matrix& base, SeparationSpaces& separations);

} // namespace OrvPdf
