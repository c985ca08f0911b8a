#pragma once

#include <harrow_support/comparators.h>

#include <orv_doc/document.h>

#include <cstdint>
#include <string>
#include <unordered_map>
#include <unordered_set>

namespace Examples
{

/// Says where in a document a page, a content or an object is, in words and with numbers that count from one:
///
/// | place | words |
/// |---|---|
/// | the document as a whole | `document` |
/// | a page, or its content | `page 2` |
/// | an object at the top of a page | `page 2 object 37` |
/// | an object inside groups | `page 2 object 3.1.2`: second child of the first child of the third object |
/// | the content of a form, a pattern, a soft mask | `form`, `pattern`, `soft mask` |
/// | an object in such a content | `pattern object 3` |
/// | an object that only the other document has | `-` |
///
/// The numbers are positions in the lists of the object tree. All groups count, also those that the
/// comparison looks through, since these too are found when somebody walks the tree to the place.
///
/// A content is walked once, when the first of its objects is asked for: linear in its objects, with some 60
/// bytes for each. Contents of pages are made on the way up to the page that is asked for, and no further.
/// The document must outlive the index and not change meanwhile.
class LocationIndex
{
public:
    explicit LocationIndex(const OrvDoc::Document& documentToDescribe);

    /// The place that a report names on this document's side.
    std::string Describe(const HarrowSupport::Comparators::LocationPath& path);

    std::string Describe(const OrvDoc::Page* page);
    std::string Describe(const OrvDoc::Content* content);
    std::string Describe(const OrvDoc::ContentObject* object);

private:
    struct Place
    {
        /// The group around the object; null at the top of the content.
        const OrvDoc::ContentObject* parent;
        /// Counted from one.
        std::uint64_t position;
    };

    std::string DescribePageContent(const OrvDoc::Content& content);
    void AddObjects(const OrvDoc::Content& content);

    const OrvDoc::Document& document;
    /// The first page whose content is not in pageNumbers.
    OrvDoc::Document::ConstPageIterator nextPage;
    std::unordered_map<const OrvDoc::Content*, std::uint64_t> pageNumbers;
    std::unordered_map<const OrvDoc::ContentObject*, Place> places;
    std::unordered_set<const OrvDoc::Content*> walkedContents;
};

} // namespace Examples
