#pragma once

#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace OrvDoc
{
class Content;
class Document;
} // namespace OrvDoc

namespace OrvPaint
{
class FormPaint;
}

namespace OrvPdf
{

class NestedSource;

/// A content that an object of another one paints with.
struct NestedContent
{
    const OrvDoc::Content* content;
    /// Null for the cell of a pattern and for a soft mask.
    std::shared_ptr<const OrvPaint::FormPaint> form;
};

/// The contents that the objects of a content paint with, in order, those inside of them left out. One may be
/// listed several times. Linear in the objects.
std::vector<NestedContent> ListNestedContents(const OrvDoc::Content& content);

/// Which contents that were read from a file can stay there as they stand.
class KeptContents
{
public:
    explicit KeptContents(const OrvDoc::Document& givenDocument) : document(givenDocument) {}

    /// Where a form comes from; null if it wasn't read from the document's file, or has other properties than
    /// there.
    const NestedSource* FindSource(const OrvPaint::FormPaint& form) const;

    /// Whether a content that nobody changed since it was read can stay as it stands: what was changed inside
    /// of it are only forms that can be written in the place where they stand. One that has nothing
    /// unmodelled, of which nothing is lost, stays only if all that it paints with does: otherwise it would
    /// have other objects than those who share these with it and are written anew. Each content is walked at
    /// most twice. One of which writing anew would lose something inside stays as if it were not modelled.
    bool MayKeep(const OrvDoc::Content& content);
    /// The same for the content of a page, of which its reader knows whether something is not modelled, or
    /// damaged. Damage stays only with what is not modelled.
    bool MayKeepPage(const OrvDoc::Content& content, bool hasUnmodelled, bool isDamaged);

private:
    /// Whether a content that is written anew loses something of what it paints with: something unmodelled in
    /// a content that cannot stay without this one, or the text of a glyph that is other than its font draws
    /// it. Each content is walked once.
    bool LosesInside(const OrvDoc::Content& content);
    bool MayKeep(const OrvDoc::Content& content, bool isModelled);
    bool MayKeep(const NestedContent& inside, bool isModelled);
    bool Loses(const NestedContent& inside);

    const OrvDoc::Document& document;
    /// By the content and whether all of it is modelled, it and what is around it.
    std::map<std::pair<const OrvDoc::Content*, bool>, bool> known;
    std::map<const OrvDoc::Content*, bool> knownLosses;
};

} // namespace OrvPdf
