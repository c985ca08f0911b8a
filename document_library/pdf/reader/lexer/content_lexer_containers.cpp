#include "pdf/reader/lexer/content_lexer.h"

#include <cstddef>

// The row of operands: which of them are inside of which, and how many there may be.

namespace OrvPdf
{

bool ContentLexer::MakeRoom(const char* from)
{
    if (tooDeep > 0) {
        return false;
    }
    const bool isElement = open.size() > 1 || imageBegin != nullptr;
    const bool isFull = isElement ? open.size() > 1 || open.front().count >= limits.elements
                                  : open.front().count >= limits.operands;
    if (isFull && !hasTooMany) {
        Report(isElement ? DamageKind::TooManyElements : DamageKind::TooManyOperands, from, at);
        hasTooMany = true;
    }
    if (isFull && isElement) {
        return false;
    }
    if (isFull) {
        DropOldest();
    }
    UpdateRoom();
    return true;
}

void ContentLexer::DropOldest()
{
    const std::size_t dropped = open.front().count / 2;
    std::size_t index = 0;
    for (std::size_t i = 0; i < dropped; ++i) {
        index += 1 + operands[index].Extent();
    }
    operands.erase(operands.begin(), operands.begin() + static_cast<std::ptrdiff_t>(index));
    open.front().count -= dropped;
}

void ContentLexer::UpdateRoom()
{
    if (tooDeep > 0) {
        room = 0;
    } else if (open.size() > 1) {
        room = std::size_t{limits.elements} + open.front().count;
    } else {
        // Containers take places of the row, and the operands at the outer level are what is limited here.
        const std::size_t outer = open.front().count;
        const std::size_t left = limits.operands > outer ? limits.operands - outer : 1;
        room = operands.size() + left;
    }
}

void ContentLexer::Open(OperandKind kind, std::size_t markLength)
{
    const char* const from = at;
    at += markLength;
    if (tooDeep > 0) {
        ++tooDeep;
        return;
    }
    const bool fits = open.size() <= limits.nesting;
    const bool isAdded = Add(fits ? Operand::Container(kind) : Operand::Null(), from);
    if (!fits || !isAdded) {
        if (!fits) {
            Report(DamageKind::NestingTooDeep, from, at);
        }
        tooDeep = 1;
        UpdateRoom();
        return;
    }
    const bool isDictionary = kind == OperandKind::Dictionary;
    ++(isDictionary ? openDictionaries : openArrays);
    open.push_back({operands.size() - 1, 0, from, isDictionary});
    UpdateRoom();
}

void ContentLexer::Close(bool isDictionary, std::size_t markLength)
{
    const char* const from = at;
    at += markLength;
    if (tooDeep > 0) {
        --tooDeep;
        UpdateRoom();
        return;
    }
    if ((isDictionary ? openDictionaries : openArrays) == 0) {
        Report(DamageKind::StrayDelimiter, from, at);
        return;
    }
    while (open.back().isDictionary != isDictionary) {
        Report(DamageKind::UnclosedContainer, open.back().begin, at);
        CloseInnermost();
    }
    CloseInnermost();
    UpdateRoom();
}

void ContentLexer::CloseInnermost()
{
    const OpenContainer closed = open.back();
    open.pop_back();
    Operand& container = operands[closed.index];
    container.SetElements(closed.count, operands.size() - closed.index - 1);
    if (closed.isDictionary) {
        --openDictionaries;
        CheckDictionary(container, closed.begin);
    } else {
        --openArrays;
    }
}

void ContentLexer::CloseAll()
{
    if (open.size() == 1 && tooDeep == 0) {
        return;
    }
    Report(DamageKind::UnclosedContainer, open.size() > 1 ? open[1].begin : at, at);
    while (open.size() > 1) {
        CloseInnermost();
    }
    tooDeep = 0;
    UpdateRoom();
}

void ContentLexer::CheckDictionary(const Operand& dictionary, const char* from)
{
    const OperandRange elements = dictionary.Elements();
    bool isWell = elements.size() % 2 == 0;
    bool isKey = true;
    for (const Operand& element : elements) {
        isWell = isWell && (!isKey || element.IsName());
        isKey = !isKey;
    }
    if (!isWell) {
        Report(DamageKind::MalformedDictionary, from, at);
    }
}

} // namespace OrvPdf
