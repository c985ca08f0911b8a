#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "pdf/reader/lexer/byte_arena.h"
#include "pdf/reader/lexer/content_operand.h"
#include "pdf/reader/lexer/inline_image_data.h"
#include "pdf/reader/lexer/lexer_damage.h"
#include "pdf/reader/lexer/operator_id.h"

namespace OrvPdf
{

/// One operation of a content stream. Its views are good until the lexer's next operation.
struct ContentOperation
{
    OperatorId id = OperatorId::Unknown;

    /// As it stands in the content. An inline image is one operation `BI`; `ID` and `EI` are only delivered
    /// where they stand alone.
    std::string_view operatorText;

    /// For an inline image the entries of its dictionary, keys and values in turn (OperandRange::FindValue).
    OperandRange operands;

    /// An inline image's data, still filtered.
    std::string_view inlineData;

    /// Offsets in the content: the first operand's (or the operator's) first byte, and behind the last byte.
    std::size_t begin = 0;
    std::size_t end = 0;
};

/// What hostile content may ask of a lexer. Where a file exceeds one, a damage says so.
struct ContentLexerLimits
{
    /// Levels of arrays and dictionaries. They take no stack.
    std::uint32_t nesting = 500;

    /// Operands of one operation, at the outer level; at least 64 (ISO 32000-1, Annex C.2 gives DeviceN 32).
    std::uint32_t operands = 1024;

    /// Operands of one operation inside of arrays and dictionaries, all levels together; each takes 32 bytes.
    std::uint32_t elements = 1000000;

    /// Bytes of one decoded string or name.
    std::size_t stringBytes = std::size_t{64} << 20;

    /// Bytes of one unknown operator. The known ones have up to three.
    std::size_t operatorBytes = 127;

    /// Damages kept; further ones are only counted.
    std::size_t damages = 1000;
};

/// Splits the decoded bytes of a content stream into operations (ISO 32000-1, 7.2, 7.3, 7.8.2 and 8.9.7). Any
/// bytes are accepted: what is wrong becomes a damage, and lexing goes on; nothing is thrown but
/// std::bad_alloc. Takes time linear in the content whatever it holds, no stack for nesting, and no
/// allocation once its buffers have grown to the largest operation. For one thread at a time.
///
/// The content must outlive the lexer's use and not change; parts of a page's content are to be joined with
/// white space before.
class ContentLexer
{
public:
    explicit ContentLexer(std::string_view content = {}, const ContentLexerLimits& limits = {});
    ContentLexer(const ContentLexer&) = delete;
    ContentLexer& operator=(const ContentLexer&) = delete;

    /// Begins with other content. Buffers stay, damages go.
    void Reset(std::string_view content);

    /// The next operation; false at the end of the content. Unknown operators are delivered like others.
    bool Next(ContentOperation& operation);

    /// In the order of their finding. Neighbours of one kind without a byte between them are one.
    const std::vector<LexerDamage>& Damages() const { return damages; }

    /// Those that were not kept included.
    std::size_t DamageCount() const { return damageCount; }

private:
    struct OpenContainer
    {
        std::size_t index;
        std::size_t count;
        const char* begin;
        bool isDictionary;
    };

    void StartOperation();
    void SkipSpace();
    void Report(DamageKind kind, const char* from, const char* to);

    /// `from` is where it begins. False if a limit leaves it out.
    bool Add(const Operand& operand, const char* from)
    {
        if (operands.size() >= room && !MakeRoom(from)) {
            return false;
        }
        if (operands.empty()) {
            operationBegin = from;
        }
        ++open.back().count;
        operands.push_back(operand);
        return true;
    }
    bool MakeRoom(const char* from);
    void DropOldest();
    void UpdateRoom();

    void LexNumber();
    void LexNumberEnd(const char* from, DecimalScan& scan, std::int32_t& extraExponent);
    void LexName();
    void LexLiteralString();
    void LexHexString();
    void LexDelimiter();
    std::string_view Limited(std::string_view text, const char* from);

    void Open(OperandKind kind, std::size_t markLength);
    void Close(bool isDictionary, std::size_t markLength);
    void CloseInnermost();
    void CloseAll();
    void CheckDictionary(const Operand& dictionary, const char* from);

    bool LexWord(ContentOperation& operation);
    bool TakeOperator(ContentOperation& operation, OperatorId id, const char* from);
    void TakeInlineData(ContentOperation& operation);
    void TakeOtherWord(std::string_view word);
    void Deliver(ContentOperation& operation, OperatorId id, const char* from);
    void Finish();

    std::size_t Offset(const char* position) const { return static_cast<std::size_t>(position - base); }

    ContentLexerLimits limits;
    const char* base = nullptr;
    const char* at = nullptr;
    const char* end = nullptr;

    std::vector<Operand> operands;
    std::vector<OpenContainer> open; // the first one is the operation itself
    ByteArena arena;
    std::size_t room = 0;    // MakeRoom has a say when so many operands are there
    std::size_t tooDeep = 0; // containers open beyond the nesting limit
    std::size_t openArrays = 0;
    std::size_t openDictionaries = 0;
    const char* operationBegin = nullptr;
    const char* imageBegin = nullptr; // of `BI`, until its `ID`
    bool hasTooMany = false;

    InlineImageEnd imageEnd;
    std::vector<LexerDamage> damages;
    std::size_t damageCount = 0;
};

} // namespace OrvPdf
