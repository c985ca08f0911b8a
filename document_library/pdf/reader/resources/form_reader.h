#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <orv_paint/form_paint.h>

#include "pdf/reader/resources/matrix_key.h"
#include "pdf/reader/resources/nested_stream.h"

namespace OrvPdf
{

class NestedSource;

/// A form XObject of a file (ISO 32000-1, 8.10). Its content is read when somebody paints it.
class PdfForm : public FormDefinition
{
public:
    /// `around` are the resources of the content that names the form first. `givenSame` is the form whose
    /// content this one has too; null for its own. Needs an access to the file.
    PdfForm(DocumentResources& givenDocument, QPDFObjectHandle givenStream, QPDFObjectHandle around,
            std::shared_ptr<PdfForm> givenSame);
    virtual ~PdfForm() = default;
    PdfForm(const PdfForm&) = delete;
    PdfForm& operator=(const PdfForm&) = delete;

    std::shared_ptr<const FormUse> Use(const GraphicsState& state, const Matrix& matrix,
                                       std::string& problem) override;
    GroupUse TakeGroup(const GraphicsState& state, const Matrix& around) override;
    std::shared_ptr<const OrvDoc::Layer::Membership> GetLayer() const override { return layer; }

protected:
    /// A content that is painted like a form.
    PdfForm(DocumentResources& givenDocument, NestedStream givenStream);

    const NestedStream& GetStream() const { return stream; }
    /// Where the content that was read under that state comes from.
    virtual std::unique_ptr<NestedSource> MakeSource(const NestedStream::Reading& reading,
                                                     const GraphicsState& state) const;
    /// Sets matrix and box. Called under an access to the file.
    virtual void SetPlace(OrvPaint::FormPaint::Factory& factory, const NestedStream::Reading& reading,
                          std::vector<std::string>& problems);

private:
    /// What a content depends on, and what it became there.
    struct Variant
    {
        GraphicsState state;
        std::shared_ptr<const FormUse> use;
    };

    std::shared_ptr<const FormUse> UseSame(const GraphicsState& state, const Matrix& matrix,
                                           std::string& problem);
    GraphicsState Begin(const GraphicsState& state, const Matrix& matrix);
    std::shared_ptr<const FormUse> MakeUse(NestedStream::Reading& reading, const GraphicsState& state);
    std::shared_ptr<const OrvPaint::FormPaint> MakePaint(NestedStream::Reading& reading);

    DocumentResources& document;
    NestedStream stream;
    std::shared_ptr<const OrvDoc::Layer::Membership> layer;
    /// What is wrong with its `OC`; empty if nothing is.
    std::string layerProblem;
    bool isGroup = false;
    bool isIsolated = false;
    bool isKnockout = false;
    /// It says that it is the form of a group.
    bool isWrittenAsGroup = false;
    /// As a group, which can happen once.
    bool mayBeTaken = false;
    /// Of a written group.
    Matrix base;
    std::vector<Variant> variants;
    /// What the stream holds, in bytes; known when there is a variant.
    std::uint64_t size = 0;
    /// Masks from around as the form sees them, by the mask and the matrix of the form.
    using MaskKey = std::pair<std::shared_ptr<const OrvBlend::SoftMask>, MatrixKey>;
    std::map<MaskKey, std::shared_ptr<const OrvBlend::SoftMask>> masks;
    /// The form whose content this one has too; null for its own.
    std::shared_ptr<PdfForm> same;
};

} // namespace OrvPdf
