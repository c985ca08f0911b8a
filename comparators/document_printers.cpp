#include "document_printers.h"

#include <orv_paint/function.h>
#include <vantry/uri.h>

#include <boost/variant/static_visitor.hpp>

#include <string>

namespace HarrowSupport::Comparators
{

namespace
{

using FunctionPointer = std::shared_ptr<const OrvPaint::Function>;

void PrintFunction(std::ostream& stream, const FunctionPointer& function)
{
    if (function != nullptr)
        stream << *function;
}

class TransferFunctionPrinter : public boost::static_visitor<void>
{
public:
    explicit TransferFunctionPrinter(std::ostream& target) : stream(target) {}

    void operator()(bool identity) const { stream << identity; }
    void operator()(const FunctionPointer& function) const
    {
        stream << static_cast<const void*>(function.get());
    }

private:
    std::ostream& stream;
};

} // namespace

void PrintValue(std::ostream& stream, const OrvDoc::Content::Type& type)
{
    switch (static_cast<int>(type)) {
    case 0:
        stream << "PageContent";
        break;
    case 1:
        stream << "FormContent";
        break;
    case 2:
        stream << "ColoredPatternContent";
        break;
    case 3:
        stream << "UncoloredPatternContent";
        break;
    case 4:
        stream << "SoftMaskContent";
        break;
    default:
        break;
    }
}

void PrintValue(std::ostream& stream, const boost::optional<OrvDoc::TransferFunctionSet>& transferFunctions)
{
    if (!transferFunctions) {
        stream << "TransferFunctionSet(none)";
        return;
    }
    stream << "TransferFunctionSet(Default:";
    PrintFunction(stream, transferFunctions->GetDefaultTransferFunction());
    for (const std::pair<std::string, FunctionPointer>& named :
         transferFunctions->GetNamedTransferFunctions()) {
        stream << ", " << named.first << ":";
        PrintFunction(stream, named.second);
    }
    stream << ")";
}

void PrintValue(std::ostream& stream,
                const boost::optional<std::pair<boost::filesystem::path, std::size_t>>& reference)
{
    if (!reference)
        stream << "NoExternalReference";
    else
        stream << "Page " << reference->second << " @ " << Vantry::ToUTF8String(reference->first);
}

void PrintValue(std::ostream& stream,
                const boost::variant<bool, std::shared_ptr<const OrvPaint::Function>>& transferFunction)
{
    boost::apply_visitor(TransferFunctionPrinter(stream), transferFunction);
}

} // namespace HarrowSupport::Comparators
