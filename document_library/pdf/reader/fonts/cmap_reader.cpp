#include <set>
#include <string>
#include <vector>

#include <qpdf/QPDFObjGen.hh>

#include "pdf/reader/content/problem_log.h"
#include "pdf/reader/file/qpdf_text.h"
#include "pdf/reader/fonts/composite_font_reader.h"

namespace OrvPdf
{

namespace
{

using OrvFont::WritingMode;

// Real ones stand on one or two others.
constexpr std::size_t mostNested = 16;

std::shared_ptr<const CMap> FindNamed(const std::string& name)
{
    if (name == "Identity-H")
        return CMap::GetIdentity(WritingMode::Horizontal);
    if (name == "Identity-V")
        return CMap::GetIdentity(WritingMode::Vertical);
    return CMap::FindPredefined(name);
}

/// The streams from the outermost to the one at the bottom, and what that is given by its name.
struct Chain
{
    std::vector<QPDFObjectHandle> streams;
    std::shared_ptr<const CMap> bottom;
};

Chain FollowChain(QPDFObjectHandle encoding, FontProblems& problems)
{
    Chain chain;
    std::set<QPDFObjGen> seen;
    QPDFObjectHandle next = encoding;
    while (next.isStream()) {
        if (!seen.insert(next.getObjGen()).second || chain.streams.size() == mostNested) {
            problems.Add("Encoding: UseCMap leads in a circle or deeper than " + std::to_string(mostNested) +
                         " levels");
            return chain;
        }
        chain.streams.push_back(next);
        next = GetEntry(next, "/UseCMap");
    }
    if (next.isNull())
        return chain;
    if (next.isName()) {
        chain.bottom = FindNamed(GetNameText(next));
        if (!chain.bottom)
            problems.Add("Encoding: there is no CMap " + Readable(GetNameText(next)));
    } else {
        problems.Add("Encoding is neither the name of a CMap nor a stream");
    }
    return chain;
}

} // namespace

std::shared_ptr<const CMap> ReadCMap(const std::shared_ptr<const SourceFile>& file, QPDFObjectHandle encoding,
                                     FontProblems& problems)
{
    if (encoding.isNull())
        problems.Add("Encoding is missing; Identity-H takes its place");
    const Chain chain = FollowChain(encoding, problems);
    std::shared_ptr<const CMap> map = chain.bottom;
    for (auto stream = chain.streams.rbegin(); stream != chain.streams.rend(); ++stream) {
        std::string problem;
        const std::string bytes = MakeFontStream(file, *stream)->Read(problem);
        if (!problem.empty())
            problems.Add("Encoding: " + problem);
        problem.clear();
        map = CMap::Parse(bytes, map, problem);
        if (!problem.empty())
            problems.Add("Encoding: " + problem);
    }
    if (map)
        return map;
    const std::string name = GetNameText(encoding);
    const bool isVertical = name.size() > 2 && name.compare(name.size() - 2, 2, "-V") == 0;
    return CMap::GetIdentity(isVertical ? WritingMode::Vertical : WritingMode::Horizontal);
}

} // namespace OrvPdf
