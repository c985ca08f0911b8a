#pragma once

#include <harrow_support/export.h>

#include <boost/variant.hpp>

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include <orv_doc/separation.h>

namespace OrvDoc
{
class Content;
class ContentObject;
class Document;
class Page;
} // namespace OrvDoc

/// Comparison of documents, contents and objects, property by property.
///
/// A comparison has a left and a right side, passed in this order and never swapped. It walks both sides in
/// step and hands every difference to a Reporter under a fixed label, with the two values as text. A
/// difference is data and never an exception; what the document library or a Reporter throws passes through
/// unchanged, and the reports made before it stand.
///
/// Everything runs on the caller's thread, and nothing is remembered from one call to the next. Two
/// comparisons may run at the same time on different threads as far as the document library allows concurrent
/// reading.
namespace HarrowSupport::Comparators
{

/// What a report says.
enum class ReportKind : std::int32_t
{
    /// A variation that is told but does not count as a difference: the layers of one side are the complete
    /// mirror of the other's ("LayerConfigurationReverse").
    ToleratedVariation = 0,
    /// A difference. Every other report.
    Difference = 1,
};

/// The place of a difference on one side. The pointers are observers and may be kept as long as the documents
/// live.
using LocationEntry =
    boost::variant<const OrvDoc::Page*, const OrvDoc::Content*, const OrvDoc::ContentObject*>;

/// Empty on both sides for what concerns a document as a whole. Otherwise one entry on each side, of the same
/// alternative: the compared pair's own page, content or object, never the containers above it. An object
/// that exists on one side only has a null `const OrvDoc::ContentObject*` on the other.
using LocationPath = std::deque<LocationEntry>;

/// Receiver of differences, implemented by the test program. It has no state of its own.
class HARROW_EXPORT Reporter
{
public:
    Reporter();
    Reporter(const Reporter& other);
    Reporter& operator=(const Reporter& other);
    virtual ~Reporter();

    /// Receives one report, on the thread that called Compare.
    ///
    /// @param kind   whether this is a difference or a tolerated variation
    /// @param label  name of the compared property, a fixed word such as "PageCount" that never carries a
    /// value
    /// @param left   where the difference lies on the left side
    /// @param right  where it lies on the right side
    /// @param text   both values, as `'<left>' vs '<right>'`; empty for a label that stands for itself
    ///
    /// An exception thrown from here ends the comparison and leaves Compare.
    virtual void Report(ReportKind kind, const std::string& label, const LocationPath& left,
                        const LocationPath& right, const std::string& text) = 0;
};

/// What a comparison looks at. It has no defaults: the caller sets every field.
struct Options
{
    /// Picture links are compared by their presence ("ImageLinkPresence") and their URI text ("ImageLinkURI")
    /// instead of as a whole ("ImageLink").
    bool looseImageLinks;
    /// The picture data of images and image masks are compared. Their other properties are in any case.
    bool compareImageData;
    /// A comparison of documents includes the separation info.
    bool compareSeparationInfo;
    /// A soft mask with the pixel size of its picture, on both sides, weighs the samples of the picture, so
    /// that a pixel hidden by the mask does not count.
    bool softMaskAsChannel;
    /// A picture with a colour table is compared with one without by expanding it. When clear, that case is a
    /// difference in itself.
    bool expandIndexedImages;
    /// Pattern paints are also tracked by the identity of their contents ("PatternPaintContentReuse").
    bool comparePatternContentReuse;
    /// Zero is silent. With any other value the objects at a mismatch of child lists are dumped to std::clog.
    std::uint32_t dumpLevel;
};

/// Compares two lists of separations under the label "SeparationInfo", whatever
/// Options::compareSeparationInfo says. The order of the entries counts.
HARROW_EXPORT void Compare(Reporter& reporter, const std::vector<OrvDoc::Separation::Entry>& left,
                           const std::vector<OrvDoc::Separation::Entry>& right, const Options& options);

/// Compares two contents with all objects in them, those inside groups, forms, patterns and soft masks
/// included. Depth takes memory and no stack: contents that lie thousands deep inside of one another are
/// compared, and reported, on other threads, one at a time, while the caller waits.
HARROW_EXPORT void Compare(Reporter& reporter, const OrvDoc::Content& left, const OrvDoc::Content& right,
                           const Options& options);

/// Compares two objects. The children of a group are not looked at.
HARROW_EXPORT void Compare(Reporter& reporter, const OrvDoc::ContentObject& left,
                           const OrvDoc::ContentObject& right, const Options& options);

/// Compares two documents: output intent, separation info (if the options say so), layers, number of pages,
/// and the pages pair by pair with their contents and boxes. The cost is linear in the objects of the two
/// documents.
HARROW_EXPORT void Compare(Reporter& reporter, const OrvDoc::Document& left, const OrvDoc::Document& right,
                           const Options& options);

} // namespace HarrowSupport::Comparators
