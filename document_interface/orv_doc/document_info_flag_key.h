#pragma once

namespace OrvDoc
{

/// What `Document::GetInfoFlag` can be asked about.
enum class DocumentInfoFlagKey
{
    /// The file was damaged, and was read after a repair of its structure.
    Repaired = 0,
    /// The file was encrypted.
    Encrypted = 1,
    /// The document has links to PDF files in normalised form, which `ResolveNormalizedPDFLinks` turns into
    /// paths.
    NormalizedPDFLinks = 2,
};

} // namespace OrvDoc
