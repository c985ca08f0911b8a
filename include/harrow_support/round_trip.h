#pragma once

#include <harrow_support/comparators.h>
#include <harrow_support/export.h>

#include <memory>
#include <string>
#include <vector>

#include <boost/utility/string_view.hpp>

#include <orv_doc/read_options.h>
#include <orv_doc/write_options.h>

namespace OrvDoc
{
class Document;
}

namespace OrvSys::Core
{
class Error;
}

namespace HarrowSupport
{

/// Takes a document through a file: writes it to a new file in the temporary directory, destroys it, and puts
/// the document that is read from that file in its place. Both never exist side by side, and every pointer
/// into the old one is dead afterwards.
///
/// The file is called "Harrow-", then the name as it is given, then a random part and ".pdf"; a `%` in the
/// name becomes a random digit, and a separator leads into a folder, which must exist. The file belongs to
/// the new document and goes with it: it is deleted when the last copy of the property
/// "Harrow.RoundTripTester.RemoveTempFile" is destroyed, and if that fails nobody is told.
///
/// Nothing is caught. `boost::filesystem::filesystem_error` about the temporary directory, and whatever
/// `OrvDoc::Document::Save` throws, leave the document as it is. When `OrvDoc::Document::Create` throws, the
/// pointer is empty and the file stays; when memory runs out after that, the new document is there and the
/// file stays.
///
/// @param document the document to save, not empty; then the one read back
/// @param name part of the file's name, not checked, cut or escaped
/// @param writeOptions handed to `OrvDoc::Document::Save`
/// @param readOptions handed to `OrvDoc::Document::Create`
HARROW_EXPORT void SaveAndReopen(std::unique_ptr<OrvDoc::Document>& document, boost::string_view name,
                                 const OrvDoc::WriteOptions& writeOptions,
                                 const OrvDoc::ReadOptions& readOptions);

/// What the comparison after a round trip reported.
struct Difference
{
    /// Name of the property that differs, such as "PaintColor".
    std::string label;
    /// Both values, left before right, with the place in front: "Left object OID12 differs with Right object
    /// OID40: '3' vs '2'". Pages are told by their index as `OrvDoc::Page::GetPageIndex` has it, contents and
    /// objects by their numbers. A difference of the document as a whole has no place.
    std::string message;
};

/// The outcome of a round trip. All is well when the three lists are empty.
struct HARROW_EXPORT RoundTripResult
{
    /// In the order in which they were reported, tolerated variations included.
    std::vector<Difference> differences;
    /// The errors that are in force for the document and were not before the trip, in order of their
    /// addresses.
    std::vector<std::shared_ptr<OrvSys::Core::Error>> documentErrors;
    /// The same for the content of the first page.
    std::vector<std::shared_ptr<OrvSys::Core::Error>> contentErrors;
};

/// Takes a document through a real file and compares the content of its first page, and the separation info
/// if the options ask for it, with a copy taken before: left is what was, right what came back. Further pages
/// are not looked at.
///
/// The document is saved to a file "Harrow-RoundTripTester-" with a random part and ".pdf" in the temporary
/// directory, destroyed, and read again with default options. Every pointer into the old one is dead
/// afterwards, but for the errors in the result, which live on. The file goes with the new document, as told
/// at SaveAndReopen. Errors of saving are in the result, those of reading again are not.
///
/// The copy stands in the one scratch document of the process (`OrvDoc::GetScratchDocument`): two of these
/// calls must not overlap, on any threads. Afterwards the scratch page is empty again, but keeps the blend
/// colour space and the transfer functions of the last copy.
///
/// Nothing is caught. After an exception the scratch page keeps the copy, and the next call would compare
/// with both; take the objects out first. When `OrvDoc::Document::Save` throws, the document stays as it was;
/// when `OrvDoc::Document::Create` throws, the pointer is empty and the file stays.
///
/// @param document the document to test, not empty, with at least one page; then the one read back
/// @param options what the comparison looks at
HARROW_EXPORT RoundTripResult TestRoundTripStructure(std::unique_ptr<OrvDoc::Document>& document,
                                                     const Comparators::Options& options);

/// The same without a file: the document goes through the write path (`OrvDoc::Document::Flush`) and stays
/// the caller's object. What comes back is what that leaves of it.
///
/// Here, errors that the resolving of links adds to the document count as new; in the overload with a file
/// they come after the errors are gathered and are not in the result.
///
/// @param document the document to test, with at least one page
/// @param options what the comparison looks at
HARROW_EXPORT RoundTripResult TestRoundTripStructure(OrvDoc::Document& document,
                                                     const Comparators::Options& options);

} // namespace HarrowSupport
