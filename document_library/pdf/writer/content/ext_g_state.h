#pragma once

#include <cstddef>
#include <memory>
#include <unordered_map>
#include <vector>

#include <boost/optional.hpp>
#include <qpdf/QPDFObjectHandle.hh>

#include <orv_blend/transparency.h>
#include <orv_doc/halftone_set.h>
#include <orv_doc/transfer_function_set.h>
#include <orv_sys/pdf_object.h>

#include "pdf/matrix_numbers.h"

namespace OrvPdf
{

class NestedWriter;
class ObjectMaker;

/// What the graphics state is when a content begins.
enum class ContentStart
{
    Page,      ///< The initial one (ISO 32000-1, tables 52 and 53).
    Nested,    ///< In a form or a pattern: what is in force where it is used, and opaque.
    Uncolored, ///< In an uncoloured pattern: the same, but for the colour, which nobody asks for.
    Group      ///< In the form of a group: the same, but transfer functions are those of the content around.
};

/// Parameters of the graphics state that content streams set by resource alone (ISO 32000-1, 8.4.5). Begins
/// with what is in force at the start of a page.
struct ExtGState
{
    /// Overprint (8.6.7): `OP`, `op` and `OPM`.
    bool stroke = false;
    bool fill = false;
    bool nonzero = false;
    /// `BM`, `ca`, `CA`, `AIS` and `SMask` (11.6.4). Isolated and knockout say nothing here and stay false.
    OrvBlend::Transparency blending;
    /// Of a soft mask: the matrix that it is set under.
    Matrix maskMatrix;
    /// `HT` (10.5); null for those of the device.
    std::shared_ptr<OrvDoc::HalftoneSet> halftones;
};

bool operator==(const ExtGState& left, const ExtGState& right);

/// The states of a content, equal ones once.
class ExtGStateIndex
{
public:
    /// The index of a state, in order of the first calls.
    std::size_t Add(const ExtGState& state);
    const std::vector<ExtGState>& GetAll() const { return states; }

private:
    std::vector<ExtGState> states;
    std::unordered_multimap<std::size_t, std::size_t> indices;
};

/// The `ExtGState` category of the resources of one content: its states, named `gs` and their index, and
/// `tr`, the transfer functions that are in force for all of it. Each of the states says the same parameters,
/// which are those that any of them changes: whatever was in force before, exactly the state is in force
/// behind its `gs`. In a content that begins with parameters that are not known they say all of these.
QPDFObjectHandle MakeExtGStates(const std::vector<ExtGState>& states,
                                const boost::optional<OrvDoc::TransferFunctionSet>& transferFunctions,
                                ContentStart start, ObjectMaker& maker, NestedWriter& nested);

/// Adds graphics state dictionaries of parameters that the model has no place for, named `fp` and their
/// index.
void AddForeignParameters(QPDFObjectHandle category, const std::vector<OrvSys::PdfObject>& parameters,
                          ObjectMaker& maker);

} // namespace OrvPdf
