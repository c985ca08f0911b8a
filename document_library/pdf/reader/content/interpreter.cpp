#include "pdf/reader/content/interpreter.h"

#include <algorithm>
#include <limits>

#include <orv_doc/content.h>
#include <orv_doc/content_object.h>

#include "pdf/reader/content/inherited_parameters.h"

namespace OrvPdf
{

namespace
{

enum class Meaning
{
    Damaged, // The bytes are left out.
    Odd,     // They are read nonetheless.
    Limit    // A limit leaves out what others may read.
};

Meaning MeaningOf(DamageKind kind)
{
    switch (kind) {
    case DamageKind::UnclosedContainer:
    case DamageKind::BadHexadecimalDigit:
    case DamageKind::MalformedNumber:
    case DamageKind::MissingSeparator:
    case DamageKind::MalformedDictionary:
    case DamageKind::InlineImageLengthMismatch:
        return Meaning::Odd;
    case DamageKind::TooManyOperands:
    case DamageKind::TooManyElements:
    case DamageKind::NestingTooDeep:
    case DamageKind::StringTooLong:
        return Meaning::Limit;
    default:
        return Meaning::Damaged;
    }
}

ContentLexerLimits LexerLimits(const OrvDoc::ReadOptions::Limits& limits)
{
    ContentLexerLimits result;
    result.nesting = limits.objectNesting;
    result.operands = limits.operands;
    result.elements = static_cast<std::uint32_t>(
        std::min<std::uint64_t>(limits.operandElements, std::numeric_limits<std::uint32_t>::max()));
    result.stringBytes = limits.operandBytes;
    result.damages = limits.errors;
    return result;
}

} // namespace

Interpreter::Interpreter(ContentResources& contentResources, const OrvDoc::ReadOptions::Limits& readLimits,
                         OrvDoc::Content& givenContent, const ContentFrame& frame)
    : content(givenContent),
      resources(contentResources),
      limits(readLimits),
      box(frame.box),
      problems(readLimits.errors),
      tree(content, readLimits.contentObjects, readLimits.groupCopies),
      state(frame.initial ? *frame.initial : BeginPage()),
      isGlyph(frame.isGlyph),
      beginsWithUnknownState(frame.initial != nullptr)
{
    if (!Plexa::IsIdentity(frame.base)) {
        bases.push_back({0, frame.base});
    }
}

Interpretation Interpreter::Run(std::string_view stream)
{
    ContentLexer lexer(stream, LexerLimits(limits));
    ContentOperation operation;
    while (lexer.Next(operation)) {
        ++operationNumber;
        Execute(operation);
        problems.EndOperation(operation.end);
    }
    // What comes now is not in the order of the stream.
    problems.EndOperation(std::numeric_limits<std::size_t>::max());
    TakeLexerDamages(lexer);
    Finish(stream.size());
    Interpretation interpretation = problems.Finish();
    interpretation.usedParameters = usedParameters;
    interpretation.glyphBox = glyphBox;
    interpretation.nested = std::move(nested);
    if (!foreignObjects.IsEmpty()) {
        interpretation.foreign = std::make_shared<const ForeignObjects>(std::move(foreignObjects));
    }
    return interpretation;
}

void Interpreter::TakeLexerDamages(const ContentLexer& lexer)
{
    for (const LexerDamage& damage : lexer.Damages()) {
        const ByteRange place{damage.begin, damage.end};
        switch (MeaningOf(damage.kind)) {
        case Meaning::Damaged:
            problems.Damaged({}, DamageText(damage.kind), {}, place);
            break;
        case Meaning::Odd:
            problems.Odd({}, DamageText(damage.kind), {}, place);
            break;
        case Meaning::Limit:
            TellLimit(damage.kind, place);
            break;
        }
    }
    problems.CountDropped(lexer.DamageCount() - lexer.Damages().size());
}

void Interpreter::TellLimit(DamageKind kind, ByteRange place)
{
    if (kind == DamageKind::TooManyOperands) {
        problems.Limit("operands", limits.operands, place);
    } else if (kind == DamageKind::TooManyElements) {
        problems.Limit("operandElements", limits.operandElements, place);
    } else if (kind == DamageKind::NestingTooDeep) {
        problems.Limit("objectNesting", limits.objectNesting, place);
    } else {
        problems.Limit("operandBytes", limits.operandBytes, place);
    }
}

void Interpreter::Finish(std::size_t streamSize)
{
    const ByteRange end{streamSize, streamSize};
    if (text.isOpen) {
        problems.Odd({}, "a text object that is not ended", {}, end);
        EndTextObject(end);
    }
    for (const ByteRange& place : pathPlaces) {
        problems.Damaged({}, "a path that no operator paints or ends", {}, place);
    }
    if (!openMarks.empty()) {
        problems.Odd({}, "marked content that is not ended", {}, end);
    }
    tree.CloseAll();
    // A content that paints nothing has no functions from around.
    const bool isFromAround = (state.inherited & Inherited::transferFunctions) != 0;
    if (auto functions = transferFunctions.GetOfContent(isFromAround ? TransferSetting() : state.transfer)) {
        content.SetTransferFunctionSet(std::move(functions));
    }
    if (tree.HitObjectLimit()) {
        problems.Limit("contentObjects", limits.contentObjects, end);
    }
    if (tree.HitCopyLimit()) {
        problems.Limit("groupCopies", limits.groupCopies, end);
    }
}

Interpretation InterpretContent(std::string_view stream, ContentResources& resources,
                                const OrvDoc::ReadOptions::Limits& limits, OrvDoc::Content& content,
                                const ContentFrame& frame)
{
    return Interpreter(resources, limits, content, frame).Run(stream);
}

} // namespace OrvPdf
