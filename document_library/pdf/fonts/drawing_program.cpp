#include "pdf/fonts/drawing_program.h"

#include <stdexcept>
#include <utility>

#include "orv_font/library_fonts.h"
#include "pdf/fonts/shared_programs.h"

namespace OrvPdf
{

DrawingProgram::DrawingProgram(Description givenDescription, std::unique_ptr<const FontStream> givenStream,
                               std::shared_ptr<const LateProblems> givenProblems, std::string& problem)
    : description(std::move(givenDescription)),
      stream(std::move(givenStream)),
      problems(std::move(givenProblems))
{
    if (!stream)
        opened.Get([&] { return Replace("is not embedded", problem); });
}

DrawingProgram::~DrawingProgram() = default;

bool DrawingProgram::IsSameAs(const DrawingProgram& other) const
{
    if (IsReplaced() != other.IsReplaced())
        return false;
    const auto* const left = Get();
    const auto* const right = other.Get();
    return left == right || (left && right && left->IsSameAs(*right));
}

const DrawingProgram::Opened& DrawingProgram::Open() const
{
    const Opened& result = opened.Get([this] { return OpenEmbedded(); });
    if (!result.problem.empty())
        std::call_once(toldOnce, [&] { problems->Tell(result.problem); });
    return result;
}

DrawingProgram::Opened DrawingProgram::OpenEmbedded() const
{
    std::string problem;
    std::string reason;
    std::string bytes = stream->Read(problem);
    try {
        auto program = ShareProgram(std::move(bytes));
        if (!problem.empty())
            problem = "the font " + description.name + ": its program: " + problem;
        return {std::move(program), false, problem};
    } catch (const std::runtime_error& failure) {
        reason = failure.what();
    }
    std::string told;
    Opened replaced = Replace("is damaged", told);
    replaced.problem = told + ". " + (problem.empty() ? "" : "Its program: " + problem + ". ") + reason;
    return replaced;
}

DrawingProgram::Opened DrawingProgram::Replace(const std::string& state, std::string& problem) const
{
    problem = "the font " + description.name + " " + state;
    try {
        auto font = OrvFont::Detail::ReplacementFor(description.postScriptName, description.hints);
        problem += "; " + font.name + " is used instead";
        return {std::move(font.program), true, {}};
    } catch (const std::runtime_error& failure) {
        problem += std::string("; nothing is used instead: ") + failure.what();
        return {nullptr, true, {}};
    }
}

} // namespace OrvPdf
