#pragma once

#include "pdf/reader/lexer/content_lexer.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

/// What the tests of the lexer share: contents lexed as a whole, with their operations as text.
namespace OrvPdf::LexerTests
{

inline std::string Shown(OperandRange range);

inline std::string Shown(const Operand& operand)
{
    const std::string text(operand.Text());
    switch (operand.Kind()) {
    case OperandKind::Null:
        return "null";
    case OperandKind::Boolean:
        return operand.AsBoolean() ? "true" : "false";
    case OperandKind::Number:
        return text;
    case OperandKind::Name:
        return "/" + text;
    case OperandKind::String:
        return (operand.IsHexString() ? "h(" : "(") + text + ")";
    case OperandKind::Array:
        return "[" + Shown(operand.Elements()) + "]";
    case OperandKind::Dictionary:
        return "<<" + Shown(operand.Elements()) + ">>";
    }
    return "?";
}

inline std::string Shown(OperandRange range)
{
    std::string shown;
    std::size_t count = 0;
    for (const Operand& operand : range) {
        shown += (count++ == 0 ? "" : " ") + Shown(operand);
    }
    EXPECT_EQ(count, range.size());
    return shown;
}

inline std::string Shown(const ContentOperation& operation)
{
    const std::string operands = Shown(operation.operands);
    std::string shown = operands + (operands.empty() ? "" : " ") + std::string(operation.operatorText);
    if (operation.id == OperatorId::BeginInlineImage) {
        shown += "{" + std::string(operation.inlineData) + "}";
    }
    return shown;
}

/// The content's bytes in a block of just their size, so that a sanitizer sees a read beyond them.
class Lexed
{
public:
    explicit Lexed(const std::string& text, const ContentLexerLimits& limits = {})
        : bytes(new char[text.size()]), lexer({bytes.get(), text.copy(bytes.get(), text.size())}, limits)
    {
        ContentOperation operation;
        while (lexer.Next(operation)) {
            operations.push_back(Shown(operation));
            ranges.emplace_back(operation.begin, operation.end);
        }
        EXPECT_FALSE(lexer.Next(operation));
        for (const auto& damage : lexer.Damages()) {
            kinds.push_back(damage.kind);
            EXPECT_LE(damage.begin, damage.end);
            EXPECT_LE(damage.end, text.size());
            EXPECT_EQ(text.substr(damage.begin, damage.excerpt.size()), damage.excerpt);
        }
    }

    std::unique_ptr<char[]> bytes;
    ContentLexer lexer;
    std::vector<std::string> operations;
    std::vector<std::pair<std::size_t, std::size_t>> ranges;
    std::vector<DamageKind> kinds;
};

inline std::string Repeated(std::string_view text, std::size_t count)
{
    std::string repeated;
    repeated.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i) {
        repeated += text;
    }
    return repeated;
}

} // namespace OrvPdf::LexerTests
