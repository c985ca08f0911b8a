// Order of steps: a table on one side only is expanded, or is the difference; two tables have to have as many
// channels. Only where the tables are equal and each channel stands for itself may indices be compared
// instead of colours: equal indices into tables that differ are other colours.

#include "indexing_comparison.h"

#include "decoded_data_comparison.h"
#include "indexed_data_comparison.h"
#include "indexed_source_expansion.h"

#include <orv_doc/content_object.h>
#include <orv_img/color_table.h>

#include <algorithm>
#include <cstddef>

namespace HarrowSupport::Comparators
{

namespace
{

/// Whether each channel of the table is paired with itself, with exactly the same range.
bool IsPlainIdentity(std::vector<ChannelPair> pairs, std::size_t channelCount)
{
    if (pairs.size() != channelCount)
        return false;
    std::sort(pairs.begin(), pairs.end(), [](const ChannelPair& one, const ChannelPair& other) {
        return one.first.index < other.first.index;
    });
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        if (pairs[i].first.index != i || pairs[i].first != pairs[i].second)
            return false;
    }
    return true;
}

ChannelPair PairOfIndices(const OrvImg::ColorTable& left, const OrvImg::ColorTable& right)
{
    ChannelPair pair;
    pair.first.index = 0;
    pair.first.decode = left.GetDecode();
    pair.second.index = 0;
    pair.second.decode = right.GetDecode();
    return pair;
}

} // namespace

bool CompareIndexing(const std::shared_ptr<const OrvImg::PictureSource>& left,
                     const std::shared_ptr<const OrvImg::PictureSource>& right,
                     const std::vector<ChannelPair>& pairs, const SoftMaskWeighting& weighting,
                     DifferenceScope<OrvDoc::ContentObject>& scope, const Options& options,
                     HeldBuffers& buffers)
{
    const auto compareDecoded = [&](const auto& leftSource, const auto& rightSource, const auto& list) {
        const bool areEqual = CompareDecodedData(leftSource, rightSource, list, weighting, buffers);
        if (!areEqual)
            scope.AddDifference("DecodedImageData");
        return areEqual;
    };
    const auto leftTable = left->GetColorTable();
    const auto rightTable = right->GetColorTable();
    if (leftTable == nullptr && rightTable == nullptr)
        return compareDecoded(left, right, pairs);
    if (leftTable == nullptr || rightTable == nullptr) {
        if (options.expandIndexedImages) {
            return compareDecoded(leftTable == nullptr ? left : ExpandIndexedSource(left, buffers),
                                  rightTable == nullptr ? right : ExpandIndexedSource(right, buffers), pairs);
        }
        scope.AddValues("ImageIsIndexed", leftTable != nullptr, rightTable != nullptr);
        return false;
    }
    if (leftTable->GetChannelCount() != rightTable->GetChannelCount()) {
        scope.AddValues("ImageColorTableSize", leftTable->GetChannelCount(), rightTable->GetChannelCount());
        return false;
    }
    if (*leftTable == *rightTable && IsPlainIdentity(pairs, leftTable->GetChannelCount())) {
        const std::vector<ChannelPair> indices = {PairOfIndices(*leftTable, *rightTable)};
        return compareDecoded(left, right, indices);
    }
    const bool areEqual = CompareIndexedData(left, right, pairs, buffers);
    if (!areEqual)
        scope.AddDifference("IndexedImageData");
    return areEqual;
}

} // namespace HarrowSupport::Comparators
