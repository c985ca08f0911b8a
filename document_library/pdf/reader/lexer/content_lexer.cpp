#include "pdf/reader/lexer/content_lexer.h"

#include <algorithm>
#include <cstring>

#include "pdf/content_characters.h"
#include "pdf/reader/lexer/string_decoding.h"

namespace OrvPdf
{

namespace
{

constexpr std::size_t excerptLength = 24;

/// Half of the operands are left out at once, and no operator may lose one that it needs.
constexpr std::uint32_t fewestOperands = 64;

/// A scan whose exponent is beyond this is zero or the largest number anyway.
constexpr std::int32_t exponentBound = 100000;

} // namespace

ContentLexer::ContentLexer(std::string_view content, const ContentLexerLimits& givenLimits)
    : limits(givenLimits)
{
    limits.operands = std::max(limits.operands, fewestOperands);
    operands.reserve(64);
    open.reserve(8);
    Reset(content);
}

void ContentLexer::Reset(std::string_view content)
{
    base = at = content.data();
    end = base + content.size();
    imageEnd = InlineImageEnd(content);
    imageBegin = nullptr;
    damages.clear();
    damageCount = 0;
    StartOperation();
}

void ContentLexer::StartOperation()
{
    operands.clear();
    open.clear();
    open.push_back({0, 0, at, false});
    tooDeep = openArrays = openDictionaries = 0;
    room = limits.operands;
    hasTooMany = false;
}

bool ContentLexer::Next(ContentOperation& operation)
{
    arena.Clear();
    StartOperation();
    for (;;) {
        SkipSpace();
        if (at == end) {
            Finish();
            return false;
        }
        const std::uint8_t characterClass = ClassOf(*at);
        if (characterClass & CharacterClass::number) {
            LexNumber();
        } else if (characterClass & CharacterClass::delimiter) {
            LexDelimiter();
        } else if (LexWord(operation)) {
            return true;
        }
    }
}

void ContentLexer::SkipSpace()
{
    for (; at != end; ++at) {
        if (IsWhite(*at)) {
            continue;
        }
        if (*at != '%') {
            return;
        }
        while (at + 1 != end && at[1] != '\n' && at[1] != '\r') {
            ++at;
        }
    }
}

void ContentLexer::Report(DamageKind kind, const char* from, const char* to)
{
    if (!damages.empty() && damages.back().kind == kind && damages.back().end == Offset(from)) {
        damages.back().end = Offset(to);
        return;
    }
    ++damageCount;
    if (damages.size() < limits.damages) {
        const std::size_t length = static_cast<std::size_t>(to - from);
        damages.push_back({kind, Offset(from), Offset(to), {from, std::min(length, excerptLength)}});
    }
}

// ---- operands

void ContentLexer::LexNumber()
{
    const char* const from = at;
    DecimalScan scan;
    const std::size_t length = ScanDecimal({at, static_cast<std::size_t>(end - at)}, scan);
    at += length;
    std::int32_t extraExponent = 0;
    if ((at != end && IsRegular(*at)) || !scan.hasDigits || scan.hasOddSigns) {
        LexNumberEnd(from, scan, extraExponent);
    }
    Add(Operand::Number({from, length}, scan, extraExponent), from);
}

/// What makes a number unusual: odd signs, or more regular characters behind it.
void ContentLexer::LexNumberEnd(const char* from, DecimalScan& scan, std::int32_t& extraExponent)
{
    const auto isDigit = [this](const char* position) {
        return position < end && *position >= '0' && *position <= '9';
    };
    const auto isSign = [this](const char* position) {
        return position < end && (*position == '-' || *position == '+');
    };

    bool isMalformed = !scan.hasDigits || scan.hasOddSigns;
    if (at != end && (*at == 'e' || *at == 'E') && scan.hasDigits &&
        (isDigit(at + 1) || (isSign(at + 1) && isDigit(at + 2)))) {
        isMalformed = true;
        const bool isNegative = *++at == '-';
        at += isSign(at) ? 1 : 0;
        for (; isDigit(at); ++at) {
            extraExponent = std::min(extraExponent * 10 + (*at - '0'), exponentBound);
        }
        extraExponent = isNegative ? -extraExponent : extraExponent;
    } else if (at != end && *at == '.' && !isDigit(at + 1)) {
        isMalformed = true;
        ++at;
    }
    if (isMalformed) {
        Report(DamageKind::MalformedNumber, from, at);
    } else if (at != end && IsRegular(*at)) {
        Report(DamageKind::MissingSeparator, from, at + 1);
    }
}

std::string_view ContentLexer::Limited(std::string_view text, const char* from)
{
    if (text.size() > limits.stringBytes) {
        Report(DamageKind::StringTooLong, from, at);
        text = text.substr(0, limits.stringBytes);
    }
    return text;
}

void ContentLexer::LexName()
{
    const char* const from = at++;
    bool hasEscape = false;
    for (; at != end && IsRegular(*at); ++at) {
        hasEscape = hasEscape || *at == '#';
    }
    std::string_view name(from + 1, static_cast<std::size_t>(at - from - 1));
    if (hasEscape && tooDeep == 0) {
        name = DecodeName(name, arena);
    }
    Add(Operand::Name(Limited(name, from)), from);
}

void ContentLexer::LexLiteralString()
{
    const char* const from = at++;
    std::size_t depth = 1;
    bool isPlain = true;
    for (; at != end; ++at) {
        if ((ClassOf(*at) & CharacterClass::inString) == 0) {
            continue;
        }
        if (*at == ')') {
            if (--depth == 0) {
                break;
            }
        } else if (*at == '(') {
            ++depth;
        } else {
            isPlain = false;
            at += *at == '\\' && at + 1 != end ? 1 : 0;
        }
    }
    std::string_view text(from + 1, static_cast<std::size_t>(at - from - 1));
    if (at == end) {
        Report(DamageKind::UnclosedString, from, at);
    } else {
        ++at;
    }
    if (!isPlain && tooDeep == 0) {
        text = DecodeLiteralString(text, arena);
    }
    Add(Operand::String(Limited(text, from), false), from);
}

void ContentLexer::LexHexString()
{
    const char* const from = at++;
    const char* const close =
        static_cast<const char*>(std::memchr(at, '>', static_cast<std::size_t>(end - at)));
    const char* const textEnd = close == nullptr ? end : close;
    const std::string_view text(at, static_cast<std::size_t>(textEnd - at));
    at = close == nullptr ? end : close + 1;
    if (close == nullptr) {
        Report(DamageKind::UnclosedString, from, at);
    }
    if (tooDeep > 0) {
        return;
    }
    bool isClean = true;
    const std::string_view decoded = DecodeHexString(text, arena, isClean);
    if (!isClean) {
        Report(DamageKind::BadHexadecimalDigit, from, at);
    }
    Add(Operand::String(Limited(decoded, from), true), from);
}

void ContentLexer::LexDelimiter()
{
    const bool isDouble = at + 1 != end && at[1] == *at;
    switch (*at) {
    case '/':
        LexName();
        return;
    case '(':
        LexLiteralString();
        return;
    case '[':
        Open(OperandKind::Array, 1);
        return;
    case ']':
        Close(false, 1);
        return;
    case '<':
        if (isDouble) {
            Open(OperandKind::Dictionary, 2);
        } else {
            LexHexString();
        }
        return;
    case '>':
        if (isDouble) {
            Close(true, 2);
            return;
        }
        break;
    default:
        break;
    }
    ++at;
    Report(DamageKind::StrayDelimiter, at - 1, at);
}

// ---- operators

bool ContentLexer::LexWord(ContentOperation& operation)
{
    const char* const from = at;
    std::uint8_t classes = 0;
    for (; at != end && IsRegular(*at); ++at) {
        classes |= ClassOf(*at);
    }
    if (classes & CharacterClass::unprintable) {
        Report(DamageKind::GarbageBytes, from, at);
        return false;
    }
    const std::string_view word(from, static_cast<std::size_t>(at - from));
    const OperatorId id = FindOperator(word);
    if (id != OperatorId::Unknown) {
        return TakeOperator(operation, id, from);
    }
    const bool isOperand = word == "true" || word == "false" || word == "null";
    const bool isInside = open.size() > 1 || tooDeep > 0 || imageBegin != nullptr;
    if (isOperand || isInside || word.size() > limits.operatorBytes) {
        TakeOtherWord(word);
        return false;
    }
    Deliver(operation, id, from);
    return true;
}

void ContentLexer::TakeOtherWord(std::string_view word)
{
    const char* const from = word.data();
    if (word == "null") {
        Add(Operand::Null(), from);
    } else if (word == "true" || word == "false") {
        Add(Operand::Boolean(word == "true"), from);
    } else if (open.size() > 1 || tooDeep > 0 || imageBegin != nullptr) {
        Report(DamageKind::StrayToken, from, at);
    } else {
        Report(DamageKind::OperatorTooLong, from, at);
        StartOperation();
    }
}

bool ContentLexer::TakeOperator(ContentOperation& operation, OperatorId id, const char* from)
{
    CloseAll();
    if (imageBegin != nullptr && id == OperatorId::InlineImageData) {
        TakeInlineData(operation);
        return true;
    }
    if (imageBegin != nullptr) {
        Report(DamageKind::InlineImageWithoutData, imageBegin, from);
        imageBegin = nullptr;
        StartOperation();
    }
    if (id == OperatorId::BeginInlineImage) {
        if (!operands.empty()) {
            Report(DamageKind::OperandsWithoutOperator, operationBegin, from);
        }
        StartOperation();
        imageBegin = from;
        return false;
    }
    Deliver(operation, id, from);
    return true;
}

void ContentLexer::TakeInlineData(ContentOperation& operation)
{
    const OperandRange entries(operands.data(), operands.size(), open.front().count);
    const InlineImageEnd::Range range = imageEnd.Find(Offset(at), entries);
    if (range.lengthIsWrong) {
        Report(DamageKind::InlineImageLengthMismatch, imageBegin, base + range.end);
    }
    if (!range.hasEnd) {
        Report(DamageKind::InlineImageWithoutEnd, imageBegin, end);
    }
    at = base + range.end;
    operation.id = OperatorId::BeginInlineImage;
    operation.operatorText = {imageBegin, 2};
    operation.operands = entries;
    operation.inlineData = {base + range.dataBegin, range.dataEnd - range.dataBegin};
    operation.begin = Offset(imageBegin);
    operation.end = range.end;
    imageBegin = nullptr;
}

void ContentLexer::Deliver(ContentOperation& operation, OperatorId id, const char* from)
{
    operation.id = id;
    operation.operatorText = {from, static_cast<std::size_t>(at - from)};
    operation.operands = OperandRange(operands.data(), operands.size(), open.front().count);
    operation.inlineData = {};
    operation.begin = Offset(operands.empty() ? from : operationBegin);
    operation.end = Offset(at);
}

void ContentLexer::Finish()
{
    CloseAll();
    if (imageBegin != nullptr) {
        Report(DamageKind::InlineImageWithoutData, imageBegin, end);
    } else if (!operands.empty()) {
        Report(DamageKind::OperandsWithoutOperator, operationBegin, end);
    }
    imageBegin = nullptr;
}

} // namespace OrvPdf
