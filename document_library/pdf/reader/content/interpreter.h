#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include <boost/optional.hpp>

#include <orv_doc/read_options.h>
#include <plexa/compound_builder.h>
#include <plexa/rectangle.h>
#include <plexa/winding_rule.h>

#include "pdf/reader/content/content_interpreter.h"
#include "pdf/reader/content/content_resources.h"
#include "pdf/reader/content/graphics_state.h"
#include "pdf/reader/content/halftone_cache.h"
#include "pdf/reader/content/paint_cache.h"
#include "pdf/reader/content/problem_log.h"
#include "pdf/reader/content/resource_cache.h"
#include "pdf/reader/content/scope_tree.h"
#include "pdf/reader/content/text_object.h"
#include "pdf/reader/content/transparency_cache.h"
#include "pdf/reader/lexer/content_lexer.h"

namespace OrvDoc
{
class Blendable;
}

namespace OrvPdf
{

/// The last operands of an operation, as many as its operator takes.
class Arguments
{
public:
    /// The operation must have that many operands.
    Arguments(const ContentOperation& given, std::size_t count)
        : operation(given), operands(given.operands.Last(count))
    {}

    const Operand& operator[](std::size_t index) const { return operands[index]; }
    /// For a walk over all of them, which takes linear time where arrays are among them.
    const OperandRange& All() const { return operands; }
    std::size_t Count() const { return operands.size(); }
    const ContentOperation& Operation() const { return operation; }
    std::string_view OperatorText() const { return operation.operatorText; }
    ByteRange Place() const { return {operation.begin, operation.end}; }

private:
    const ContentOperation& operation;
    OperandRange operands;
};

/// Carries out the operations of one content stream. The operators are listed in `operator_table.cpp`; their
/// functions stand in one source file a family.
class Interpreter
{
public:
    Interpreter(ContentResources& contentResources, const OrvDoc::ReadOptions::Limits& readLimits,
                OrvDoc::Content& givenContent, const ContentFrame& frame);

    Interpretation Run(std::string_view stream);

    // Path construction (ISO 32000-1, 8.5.2).
    void MoveTo(const Arguments& arguments);
    void LineTo(const Arguments& arguments);
    void CurveTo(const Arguments& arguments);
    void CurveToFromCurrent(const Arguments& arguments);
    void CurveToReplicateFinal(const Arguments& arguments);
    void ClosePath(const Arguments& arguments);
    void Rectangle(const Arguments& arguments);

    // Path painting and clipping (8.5.3, 8.5.4).
    void Stroke(const Arguments& arguments);
    void CloseStroke(const Arguments& arguments);
    void Fill(const Arguments& arguments);
    void FillEvenOdd(const Arguments& arguments);
    void FillStroke(const Arguments& arguments);
    void FillStrokeEvenOdd(const Arguments& arguments);
    void CloseFillStroke(const Arguments& arguments);
    void CloseFillStrokeEvenOdd(const Arguments& arguments);
    void EndPath(const Arguments& arguments);
    void Clip(const Arguments& arguments);
    void ClipEvenOdd(const Arguments& arguments);

    // Graphics state (8.4.4).
    void SaveState(const Arguments& arguments);
    void RestoreState(const Arguments& arguments);
    void ConcatMatrix(const Arguments& arguments);
    void SetLineWidth(const Arguments& arguments);
    void SetLineCap(const Arguments& arguments);
    void SetLineJoin(const Arguments& arguments);
    void SetMiterLimit(const Arguments& arguments);
    void SetDash(const Arguments& arguments);
    void SetRenderingIntent(const Arguments& arguments);
    void SetFlatness(const Arguments& arguments);
    void SetParameters(const Arguments& arguments);

    // Colour (8.6.8).
    void SetFillColorSpace(const Arguments& arguments);
    void SetStrokeColorSpace(const Arguments& arguments);
    void SetFillColor(const Arguments& arguments);
    void SetStrokeColor(const Arguments& arguments);
    void SetFillGray(const Arguments& arguments);
    void SetStrokeGray(const Arguments& arguments);
    void SetFillRgb(const Arguments& arguments);
    void SetStrokeRgb(const Arguments& arguments);
    void SetFillCmyk(const Arguments& arguments);
    void SetStrokeCmyk(const Arguments& arguments);

    // Shadings (8.7.4.2).
    void PaintShading(const Arguments& arguments);

    // Text state, text objects, positions, showing (9.3, 9.4).
    void SetCharacterSpacing(const Arguments& arguments);
    void SetWordSpacing(const Arguments& arguments);
    void SetHorizontalScaling(const Arguments& arguments);
    void SetLeading(const Arguments& arguments);
    void SetTextRise(const Arguments& arguments);
    void SetTextRenderingMode(const Arguments& arguments);
    void SetFont(const Arguments& arguments);
    void BeginText(const Arguments& arguments);
    void EndText(const Arguments& arguments);
    void MoveText(const Arguments& arguments);
    void MoveTextSetLeading(const Arguments& arguments);
    void NextLine(const Arguments& arguments);
    void SetTextMatrix(const Arguments& arguments);
    void ShowText(const Arguments& arguments);
    void ShowTextAdjusted(const Arguments& arguments);
    void NextLineShowText(const Arguments& arguments);
    void NextLineShowTextWithSpacing(const Arguments& arguments);

    // Glyphs of Type 3 fonts (9.6.5).
    void SetGlyphWidth(const Arguments& arguments);
    void SetGlyphWidthAndBox(const Arguments& arguments);

    // Marked content (14.6) and optional content (8.11.3).
    void BeginMarkedContent(const Arguments& arguments);
    void BeginMarkedContentList(const Arguments& arguments);
    void EndMarkedContent(const Arguments& arguments);
    void MarkedPoint(const Arguments& arguments);
    void MarkedPointList(const Arguments& arguments);

    // External objects (8.8, 8.10) and inline images (8.9.7).
    void PaintXObject(const Arguments& arguments);
    void PaintInlineImage(const Arguments& arguments);

    // Compatibility (7.8.2).
    void BeginCompatibility(const Arguments& arguments);
    void EndCompatibility(const Arguments& arguments);

    // Operators that the model has no place for.
    void RejectMisplaced(const Arguments& arguments);

private:
    /// What an `OrvObject` says about the object inside.
    struct ObjectAttributes
    {
        std::string name;
        bool evenOdd = false;
        /// The path that comes first is the outline of what is painted, and clips it.
        bool hasOutline = false;
        std::shared_ptr<const Plexa::Compound> outline;
        bool isolated = false;
        bool knockout = false;
        bool blended = false;
        bool halftones = false;
        bool showsNothing = false;
    };

    struct OpenMark
    {
        /// 0 for the attributes of an object.
        ScopeTree::Id scope;
    };

    /// A group that objects are placed in relative to its own transformation.
    struct Base
    {
        ScopeTree::Id scope;
        Matrix transformation;
    };

    struct SavedState
    {
        GraphicsState state;
        std::size_t clipCount;
        std::size_t baseCount;
    };

    /// A matrix that a property list has named, and the operation that the `cm` must directly follow; 0 for
    /// none.
    struct ExpectedMatrix
    {
        Matrix matrix;
        ScopeTree::Id scope = 0;
        std::uint64_t operation = 0;
    };

    /// A property list, its layer apart so that all groups share it.
    struct PropertyList
    {
        std::shared_ptr<const ContentResources::PropertyList> list;
        std::shared_ptr<const OrvDoc::Layer::Membership> layer;
    };

    // operator_table.cpp
    void Execute(const ContentOperation& operation);

    // interpreter.cpp
    void TakeLexerDamages(const ContentLexer& lexer);
    void TellLimit(DamageKind kind, ByteRange place);
    void Finish(std::size_t streamSize);
    bool IsExpected(const ExpectedMatrix& matrix) const
    {
        return matrix.operation != 0 && matrix.operation + 1 == operationNumber;
    }

    /// Notes that what is painted now depends on these parameters.
    void MarkUsed(std::uint32_t parameters) { usedParameters |= parameters & state.inherited; }

    // picture_operators.cpp
    OrvSys::PdfObject GetInlineStream(const Arguments& arguments);
    OrvColor::ColorSpace::Pointer FindInlineSpace(const OrvSys::PdfObject& definition,
                                                  const Arguments& arguments);
    void PaintPicture(PictureResource& picture);
    /// What a picture that can't be read would depend on.
    void NotePicture(bool isStencil);

    // path_operators.cpp
    ObjectAttributes TakeAttributes();
    bool ExtendPath(const Arguments& arguments, std::size_t segments);
    void PaintPath(const Arguments& arguments, bool close, boost::optional<Plexa::WindingRule> fillRule,
                   bool stroke);
    void PlacePath(std::shared_ptr<const Plexa::Compound> compound, bool fill, bool stroke,
                   const ObjectAttributes& attributes);
    void BeginClip(std::shared_ptr<const Plexa::Compound> compound, const std::string& name, ByteRange place);
    void OpenClip(GroupRecipe recipe, ByteRange place);

    // text_operators.cpp
    void TakeFont(const std::shared_ptr<const OrvFont::Font>& font, double size, const std::string& problem,
                  const Arguments& arguments);
    void SetLine(const TextMatrix& line);
    void MoveLine(double x, double y, const Arguments& arguments);
    void ShowString(std::string_view codes, const Arguments& arguments);
    void Adjust(double thousandths);

    // text_runs.cpp
    void BeginTextObject();
    void EndTextObject(ByteRange place);
    void BeginTextClip(ByteRange place);
    /// False if nothing can be shown now.
    bool PrepareShowing(const Arguments& arguments);
    /// Has a run open for what is shown next.
    void PrepareRun();
    bool IsRunOfState();
    bool FollowLine();
    void OpenRun();
    /// To be called before anything else is placed, opened or closed. An operator that does nothing does not
    /// end it, so that it may be left out of a content.
    void EndRun();
    /// Null if the content has no room for it.
    const OrvDoc::Text* PlaceText(TextRun& run);

    // glyph_operators.cpp
    bool ShowsGlyphs() const;
    void ShowGlyphs(std::string_view codes, const Arguments& arguments);
    void ShowGlyph(const OrvFont::Character& character, const Arguments& arguments);
    void GoToPen();

    // state_operators.cpp
    void LeaveScopes(const SavedState& saved);
    bool EnterGroupMatrix(const Matrix& matrix, ByteRange place);
    bool LeaveClipMatrix();
    void ReleaseBase(ScopeTree::Id scope);

    // stroke_operators.cpp
    void ChangeStroke(OrvDoc::StrokeProperties properties);
    bool SetDashPattern(OrvDoc::StrokeProperties& properties, std::vector<double> dashes, double phase,
                        const Arguments& arguments);

    // parameter_operators.cpp
    /// `foreign` takes up what the model has no place for.
    void ApplyParameter(const std::string& key, const OrvSys::PdfObject& value,
                        OrvSys::PdfObject::Entries& foreign, const Arguments& arguments);
    bool ApplyStrokeParameter(const std::string& key, const OrvSys::PdfObject& value);
    bool ApplyDashParameter(const OrvSys::PdfObject& value, const Arguments& arguments);
    void ApplyFont(const Arguments& arguments);
    void TakeRenderingIntent(const std::string& name);
    bool ApplyOverprintParameter(const std::string& key, const OrvSys::PdfObject& value);

    // blending_parameters.cpp
    bool ApplyBlendParameter(const std::string& key, const OrvSys::PdfObject& value,
                             const Arguments& arguments);
    bool ApplyBlendMode(const OrvSys::PdfObject& value, const Arguments& arguments);
    /// Gives an object that is no group the transparency of the state.
    bool ApplySoftMask(const OrvSys::PdfObject& value, const Arguments& arguments);
    void SetSoftMask(std::shared_ptr<const OrvBlend::SoftMask> mask);
    void SetBlending(OrvDoc::Blendable& object, const ObjectAttributes& attributes)
    {
        SetBlending(object, attributes, state.blending);
    }
    void SetBlending(OrvDoc::Blendable& object, const ObjectAttributes& attributes, BlendSetting& setting);

    // halftone_parameters.cpp
    /// Parameters that the model has no place for.
    void ApplyForeignParameters(OrvSys::PdfObject::Entries parameters, const Arguments& arguments);
    void ApplyHalftones(const OrvSys::PdfObject& parameters, const Arguments& arguments);

    // transfer_parameters.cpp
    void ApplyTransferFunctions(const OrvSys::PdfObject& parameters, const Arguments& arguments);
    /// To be called for each object that paints.
    void NotePainting();

    // color_operators.cpp
    using ColorSpaceEntry = ResourceCache<OrvColor::ColorSpace::Pointer>::Entry;
    const ColorSpaceEntry& LookUpColorSpace(std::string_view name);
    OrvColor::ColorSpace::Pointer FindColorSpace(std::string_view name, const Arguments& arguments);
    OrvColor::ColorSpace::Pointer FindDeviceSpace(OrvColor::ColorSpace::Family family,
                                                  const Arguments& arguments);
    void TakeColor(const PaintSetting& setting);
    void SetColorSpace(PaintSetting& setting, const Arguments& arguments);
    void SetColor(PaintSetting& setting, const Arguments& arguments);
    void SetColor(PaintSetting& setting, OrvColor::ColorSpace::Pointer space, const Arguments& arguments);
    std::shared_ptr<const OrvPaint::Paint> GetPaint(PaintSetting& setting);

    // xobject_operators.cpp
    void PaintForm(FormDefinition& form, const Arguments& arguments);
    void PlaceForm(const FormUse& use) { PlaceForm(use, state.matrix); }
    void PlaceForm(const FormUse& use, const Matrix& matrix);
    void PlaceGroup(GroupUse use);
    void SetGroupBlending(OrvDoc::Blendable& object, bool isIsolated, bool isKnockout);
    void NoteReading(const std::shared_ptr<const NestedReading>& reading);

    // pattern_operators.cpp
    void SetPattern(PaintSetting& setting, const Arguments& arguments);
    bool SetPatternColor(PaintSetting& setting, const Arguments& arguments);
    std::shared_ptr<const OrvPaint::Paint> MakeTilingPaint(const PaintSetting& setting);
    std::shared_ptr<const OrvPaint::Paint> MakePatternPaint(const PaintSetting& setting);
    Matrix GetBaseMatrix() const;
    std::shared_ptr<const Plexa::Compound> MakeBoxOutline();

    // marked_content_operators.cpp
    OrvSys::PdfObject ToObject(const Operand& operand, const Arguments& arguments);
    void BeginMark(const std::string& tag, const OrvSys::PdfObject& properties, const Arguments& arguments);
    GroupRecipe ForeignRecipe(const std::string& tag, const OrvSys::PdfObject& properties, bool isPoint,
                              const Arguments& arguments);
    PropertyList LookUpPropertyList(const std::string& name, std::string& problem);

    // private_marks.cpp
    static GroupRecipe ReadGroupRecipe(const OrvSys::PdfObject& properties);
    void BeginObject(const OrvSys::PdfObject& properties);
    void BeginNamedText(const OrvSys::PdfObject& properties, const Arguments& arguments);
    void NameLine(const OrvSys::PdfObject& properties);
    void ApplyAttributes(const OrvSys::PdfObject& properties, const Arguments& arguments);
    void ExpectGroupParts(ScopeTree::Id scope, const OrvSys::PdfObject& properties,
                          const Arguments& arguments);
    void ExpectClipMatrix(const OrvSys::PdfObject& properties);

    OrvDoc::Content& content;
    ContentResources& resources;
    const OrvDoc::ReadOptions::Limits& limits;
    const Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem> box;
    /// That of the box in the content's coordinates; null until somebody needs it.
    std::shared_ptr<const Plexa::Compound> boxOutline;
    ProblemLog problems;
    ScopeTree tree;
    PaintCache paints;
    TransparencyCache transparencies;
    HalftoneCache halftones;
    ForeignParameterCache foreignParameters;
    ForeignObjects foreignObjects;
    TransferFunctionsInForce transferFunctions;
    ResourceCache<OrvColor::ColorSpace::Pointer> spaces;
    /// The device spaces or what stands in for them, by family, once they have been had without a problem.
    std::array<OrvColor::ColorSpace::Pointer, 3> deviceSpaces;
    ResourceCache<std::shared_ptr<const ContentResources::Pattern>> patterns;
    ResourceCache<std::shared_ptr<const ShadingResource>> shadings;
    ResourceCache<OrvSys::PdfObject> parameterLists;
    ResourceCache<PropertyList> propertyLists;
    ResourceCache<ContentResources::XObject> xObjects;
    ResourceCache<std::shared_ptr<const OrvFont::Font>> fonts;
    ResourceCache<ContentResources::SizedFont> fontsOfStates;
    ResourceCache<std::shared_ptr<MaskDefinition>> masks;
    std::vector<std::shared_ptr<const NestedReading>> nested;
    std::unordered_set<const NestedReading*> knownNested;

    /// Counts from 1.
    std::uint64_t operationNumber = 0;
    GraphicsState state;
    std::uint32_t usedParameters = 0;
    std::vector<SavedState> savedStates;
    /// `q` operators past the nesting limit, whose `Q` must not restore anything.
    std::uint64_t droppedSaves = 0;
    /// The clips in force, in order of their beginning.
    std::vector<ScopeTree::Id> openClips;
    std::vector<OpenMark> openMarks;
    /// Marked content past the nesting limit, whose ends must not end anything.
    std::uint64_t droppedMarks = 0;

    Plexa::CompoundBuilder path;
    boost::optional<Plexa::WindingRule> pendingClip;
    std::uint64_t pathSegments = 0;
    /// The operations that make up the path, those side by side as one.
    std::vector<ByteRange> pathPlaces;
    std::uint64_t latestPathOperation = 0;

    const bool isGlyph;
    /// The content is painted inside of another one, whose state is none of its own.
    const bool beginsWithUnknownState;
    Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem> glyphBox;
    /// What is painted has the colours from around.
    bool isColorFixed = false;

    TextObject text;
    /// The line that a property list has named, and the operation that the `Tm` must directly follow; 0 for
    /// none.
    TextLine exactLine;
    std::uint64_t exactLineOperation = 0;

    boost::optional<ObjectAttributes> objectAttributes;
    /// The matrix of a group that was just opened, for the first `cm` behind nothing but `q`.
    ExpectedMatrix groupMatrix;
    /// The matrix that an `OrvReset` point has named.
    ExpectedMatrix clipMatrix;
    /// The groups with a transformation of their own that the matrix of the state is relative to, outermost
    /// first.
    std::vector<Base> bases;
    /// How many matrices and clips were corrected because marked content ended before the state that began in
    /// it.
    std::uint64_t corrections = 0;
    /// Clips that a group claims as its own. A claim ends with the first object that is no clip, which the
    /// clips behind it don't clip.
    std::uint64_t ownClipsLeft = 0;
    ScopeTree::Id ownClipsScope = 0;
    std::uint64_t compatibilityDepth = 0;
};

} // namespace OrvPdf
