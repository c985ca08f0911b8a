#include "pdf/writer/content/ext_g_state.h"

#include <algorithm>
#include <functional>
#include <sstream>
#include <string>

#include "pdf/halftone_definition.h"
#include "pdf/matrix_numbers.h"
#include "pdf/number_text.h"
#include "pdf/transfer_definition.h"
#include "pdf/writer/file/object_maker.h"
#include "pdf/writer/resources/nested_writer.h"

namespace OrvPdf
{

namespace
{

/// The parameters that the states of a content change.
struct UsedParameters
{
    bool overprint = false;
    bool overprintMode = false;
    bool blendMode = false;
    bool fillAlpha = false;
    bool strokeAlpha = false;
    bool alphaIsShape = false;
    bool softMask = false;
    bool halftones = false;
    bool transferFunctions = false;
};

UsedParameters FindUsed(const std::vector<ExtGState>& states, ContentStart start, bool hasTransferFunctions)
{
    const ExtGState initial;
    UsedParameters used;
    if (start != ContentStart::Page) {
        used.overprint = true;
        used.overprintMode = true;
        used.halftones = true;
        used.transferFunctions = start == ContentStart::Nested && !hasTransferFunctions;
    }
    for (const ExtGState& state : states) {
        used.overprint = used.overprint || state.stroke || state.fill;
        used.overprintMode = used.overprintMode || state.nonzero;
        used.blendMode = used.blendMode || state.blending.blendMode != initial.blending.blendMode;
        used.fillAlpha = used.fillAlpha || state.blending.fillAlpha != initial.blending.fillAlpha;
        used.strokeAlpha = used.strokeAlpha || state.blending.strokeAlpha != initial.blending.strokeAlpha;
        used.alphaIsShape = used.alphaIsShape || state.blending.alphaIsShape;
        used.softMask = used.softMask || state.blending.softMask;
        used.halftones = used.halftones || state.halftones;
    }
    return used;
}

QPDFObjectHandle MakeAlpha(float alpha)
{
    std::string text;
    AppendFloat(text, alpha);
    return QPDFObjectHandle::newReal(text);
}

QPDFObjectHandle MakeBlendMode(OrvBlend::BlendMode mode)
{
    std::ostringstream name;
    name << '/' << mode;
    return QPDFObjectHandle::newName(name.str());
}

void SetHalftones(QPDFObjectHandle dictionary, const OrvDoc::HalftoneSet* halftones, ObjectMaker& maker)
{
    if (!halftones) {
        dictionary.replaceKey("/HT", QPDFObjectHandle::newName("/Default"));
        return;
    }
    dictionary.replaceKey("/HT", maker.MakeShared(halftones->GetDefinition()));
    if (halftones->GetName() != GetHalftoneName(halftones->GetDefinition())) {
        dictionary.replaceKey(std::string("/") + halftoneNameKey,
                              QPDFObjectHandle::newString(halftones->GetName()));
    }
}

QPDFObjectHandle MakeExtGState(const ExtGState& state, const UsedParameters& used, ObjectMaker& maker,
                               NestedWriter& nested)
{
    QPDFObjectHandle dictionary = QPDFObjectHandle::newDictionary();
    dictionary.replaceKey("/Type", QPDFObjectHandle::newName("/ExtGState"));
    if (used.overprint) {
        dictionary.replaceKey("/OP", QPDFObjectHandle::newBool(state.stroke));
        dictionary.replaceKey("/op", QPDFObjectHandle::newBool(state.fill));
    }
    if (used.overprintMode) {
        dictionary.replaceKey("/OPM", QPDFObjectHandle::newInteger(state.nonzero ? 1 : 0));
    }
    if (used.blendMode) {
        dictionary.replaceKey("/BM", MakeBlendMode(state.blending.blendMode));
    }
    if (used.fillAlpha) {
        dictionary.replaceKey("/ca", MakeAlpha(state.blending.fillAlpha));
    }
    if (used.strokeAlpha) {
        dictionary.replaceKey("/CA", MakeAlpha(state.blending.strokeAlpha));
    }
    if (used.alphaIsShape) {
        dictionary.replaceKey("/AIS", QPDFObjectHandle::newBool(state.blending.alphaIsShape));
    }
    if (used.softMask) {
        dictionary.replaceKey("/SMask", state.blending.softMask
                                            ? nested.GetMask(state.blending.softMask, state.maskMatrix)
                                            : QPDFObjectHandle::newName("/None"));
    }
    if (used.halftones) {
        SetHalftones(dictionary, state.halftones.get(), maker);
    }
    if (used.transferFunctions) {
        dictionary.replaceKey("/TR2", QPDFObjectHandle::newName("/Default"));
    }
    return dictionary;
}

bool AreSame(const std::shared_ptr<OrvDoc::HalftoneSet>& left,
             const std::shared_ptr<OrvDoc::HalftoneSet>& right)
{
    return left == right || (left && right && *left == *right);
}

std::size_t GetHash(const ExtGState& state)
{
    std::size_t hash = (state.stroke ? 1U : 0U) + (state.fill ? 2U : 0U) + (state.nonzero ? 4U : 0U) +
                       (state.blending.alphaIsShape ? 8U : 0U);
    const auto mix = [&hash](std::size_t part) { hash = hash * 1000003 + part; };
    mix(static_cast<std::size_t>(state.blending.blendMode));
    mix(std::hash<float>()(state.blending.fillAlpha));
    mix(std::hash<float>()(state.blending.strokeAlpha));
    mix(std::hash<const void*>()(state.blending.softMask.get()));
    mix(state.halftones ? state.halftones->GetDefinition().GetDigest() : 0);
    return hash;
}

} // namespace

bool operator==(const ExtGState& left, const ExtGState& right)
{
    return left.stroke == right.stroke && left.fill == right.fill && left.nonzero == right.nonzero &&
           left.blending == right.blending &&
           (!left.blending.softMask || AreIdentical(left.maskMatrix, right.maskMatrix)) &&
           AreSame(left.halftones, right.halftones);
}

std::size_t ExtGStateIndex::Add(const ExtGState& state)
{
    const std::size_t hash = GetHash(state);
    const auto candidates = indices.equal_range(hash);
    const auto found = std::find_if(candidates.first, candidates.second,
                                    [&](const auto& candidate) { return states[candidate.second] == state; });
    if (found != candidates.second) {
        return found->second;
    }
    states.push_back(state);
    indices.emplace(hash, states.size() - 1);
    return states.size() - 1;
}

QPDFObjectHandle MakeExtGStates(const std::vector<ExtGState>& states,
                                const boost::optional<OrvDoc::TransferFunctionSet>& transferFunctions,
                                ContentStart start, ObjectMaker& maker, NestedWriter& nested)
{
    const UsedParameters used = FindUsed(states, start, transferFunctions.has_value());
    QPDFObjectHandle category = QPDFObjectHandle::newDictionary();
    for (std::size_t index = 0; index < states.size(); ++index) {
        category.replaceKey("/gs" + std::to_string(index), MakeExtGState(states[index], used, maker, nested));
    }
    if (transferFunctions) {
        QPDFObjectHandle dictionary = QPDFObjectHandle::newDictionary();
        dictionary.replaceKey("/Type", QPDFObjectHandle::newName("/ExtGState"));
        for (const auto& [key, value] : DefineTransferFunctions(*transferFunctions)) {
            dictionary.replaceKey('/' + key, maker.Make(value));
        }
        category.replaceKey("/tr", dictionary);
    }
    return category;
}

void AddForeignParameters(QPDFObjectHandle category, const std::vector<OrvSys::PdfObject>& parameters,
                          ObjectMaker& maker)
{
    for (std::size_t index = 0; index < parameters.size(); ++index) {
        category.replaceKey("/fp" + std::to_string(index), maker.MakeShared(parameters[index]));
    }
}

} // namespace OrvPdf
