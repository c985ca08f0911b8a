#pragma once

#include "counting_reporter.h"
#include "equal_paint_memo.h"
#include "meeting_index.h"
#include "object_classes.h"

#include <harrow_support/comparators.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace OrvBlend
{
class SoftMask;
}

namespace OrvDoc
{
class Content;
}

namespace OrvImg
{
class PaintedPicture;
class PictureData;
} // namespace OrvImg

namespace OrvPaint
{
class FormPaint;
class PatternPaint;
} // namespace OrvPaint

namespace HarrowSupport::Comparators
{

/// The state of one call of Compare, passed by reference to all comparison code and gone when the call ends.
///
/// The memo fields live as long as the call and so span all pages of a document: what two pages share is
/// compared once. Paints are held, since a document may build them anew; pictures are raw pointers, as the
/// two documents outlive the call.
struct ComparisonContext
{
    ComparisonContext(Reporter& receiver, const Options& chosen) : reporter(receiver), options(chosen) {}

    ComparisonContext(const ComparisonContext&) = delete;
    ComparisonContext& operator=(const ComparisonContext&) = delete;

    /// Leads to the receiver that was given to Compare.
    CountingReporter reporter;
    const Options options;

    /// Result of each pair of pictures compared so far, left pointer first.
    std::map<std::pair<const OrvImg::PaintedPicture*, const OrvImg::PaintedPicture*>, bool> comparedImages;
    /// The same for the picture data of image masks.
    std::map<std::pair<const OrvImg::PictureData*, const OrvImg::PictureData*>, bool> comparedImageMasks;
    /// Pattern paints met so far, left and right, in the order of their first meeting.
    std::vector<std::pair<std::shared_ptr<const OrvPaint::PatternPaint>,
                          std::shared_ptr<const OrvPaint::PatternPaint>>>
        visitedPatterns;
    /// IDs of pattern contents met so far; only filled when Options::comparePatternContentReuse is set.
    std::vector<std::pair<std::uint64_t, std::uint64_t>> visitedPatternContents;
    /// Form paints met so far, as the patterns.
    std::vector<
        std::pair<std::shared_ptr<const OrvPaint::FormPaint>, std::shared_ptr<const OrvPaint::FormPaint>>>
        visitedForms;
    /// Left unique ID of a form to the right one that it was met with first.
    std::map<std::string, std::string> formUniqueIds;
    /// How many soft mask contents the walk is inside. Halftones are compared only while it is zero.
    std::uint64_t softMaskDepth = 0;

    /// What is known of the dynamic classes met so far. It only saves dynamic casts.
    ObjectClasses objectClasses;
    /// Flat paints found alike. It only saves comparisons whose outcome is known.
    EqualPaintMemo equalFlatPaints;
    /// Pairs of soft masks that were compared without a word. It only saves comparisons whose outcome is
    /// known.
    std::set<std::pair<std::shared_ptr<const OrvBlend::SoftMask>, std::shared_ptr<const OrvBlend::SoftMask>>>
        settledSoftMasks;
    /// Where the lists of visited paints and contents have what. They only save scans.
    MeetingIndex<const void*> patternIndex;
    MeetingIndex<std::uint64_t> patternContentIndex;
    MeetingIndex<const void*> formIndex;
    /// For each right unique ID in formUniqueIds, the lowest left one that it belongs to. It only saves a
    /// scan.
    std::map<std::string, std::string> lowestLeftIds;
    /// The contents that the walk is inside, left pointer first; and for each time that it is inside of them,
    /// the outermost first, how many members of the reuse lists were known when it came there. It only ends a
    /// walk that would never end.
    std::map<std::pair<const OrvDoc::Content*, const OrvDoc::Content*>, std::vector<std::size_t>> openWalks;
};

} // namespace HarrowSupport::Comparators
