#include "pdf/writer/file/writing_problems.h"

namespace OrvPdf
{

void WritingProblems::Add(const std::string& kind, std::uint64_t objectId)
{
    const auto [found, isNew] = indices.emplace(kind, kinds.size());
    if (isNew) {
        kinds.push_back(Kind{kind, 0, objectId});
    }
    ++kinds[found->second].count;
}

void WritingProblems::Add(const std::string& text)
{
    if (indices.emplace(text, kinds.size()).second) {
        kinds.push_back(Kind{text, 0, 0});
    }
}

std::vector<std::string> WritingProblems::GetTexts(const std::string& place) const
{
    std::vector<std::string> texts;
    for (const Kind& kind : kinds) {
        std::string text = place.empty() ? kind.text : place + ": " + kind.text;
        if (kind.count > 0) {
            text += ": " + std::to_string(kind.count) + ", the first is object " +
                    std::to_string(kind.firstObject);
        }
        texts.push_back(std::move(text));
    }
    return texts;
}

} // namespace OrvPdf
