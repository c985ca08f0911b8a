#include "support/random_documents.h"

#include "support/random_forms.h"
#include "support/random_objects.h"
#include "support/random_paints.h"
#include "support/random_pictures.h"
#include "support/random_states.h"
#include "support/random_texts.h"

#include <harrow_support/content_generator.h>

#include <orv_color/gen_color_profiles.h>
#include <orv_doc/content.h>
#include <orv_doc/dump.h>
#include <orv_doc/errors.h>
#include <orv_doc/group.h>
#include <orv_doc/layer_properties.h>

#include <cstdlib>
#include <random>
#include <sstream>

namespace HarrowSupport::Testing
{

namespace
{

using Random = std::mt19937;
using Layers = std::vector<std::shared_ptr<OrvDoc::LayerProperties>>;

/// What the objects of a document are made of.
struct Material
{
    OrvDoc::Document& document;
    Layers layers;
    /// Those that are made already. A form is among them when its content is, so none holds itself.
    std::vector<std::shared_ptr<const OrvPaint::FormPaint>> forms;
    RandomPaints paints;
    RandomPictures pictures;
    /// How many patterns and masks are being made, one inside of the other.
    int openPaints = 0;
    /// How many of them are uncoloured patterns. An image there is reported even if it is the same.
    int openUncolored = 0;
};

std::vector<PlannedObject> PlanObjects(Random& random, int depth)
{
    std::vector<PlannedObject> objects(random() % (depth == 0 ? 12 : 5));
    for (PlannedObject& object : objects) {
        object.kind = random() % 3 != 0 ? PlannedKind::Path : static_cast<PlannedKind>(random() % 11 % 10);
        object.seed = static_cast<std::uint32_t>(random());
        if (object.seed % 4 == 0) {
            object.kind = PlannedKind::Text;
        }
        if (object.seed % 4 == 1) {
            object.kind = PlannedKind::Picture;
        }
        if (CanHaveChildren(object.kind) && depth < 5) {
            object.children = PlanObjects(random, depth + 1);
        }
    }
    return objects;
}

void MakeLayers(OrvDoc::Document& document, Random& random)
{
    using Node = OrvDoc::LayerConfiguration::Node;
    OrvDoc::Layers& layers = document.GetLayers();
    std::vector<Node> top;
    const std::size_t count = random() % 5;
    for (std::size_t i = 0; i < count; ++i) {
        const auto layer = layers.AddUnorderedLayer(RandomName(random));
        if (random() % 3 == 0) {
            layer->SetProcessingStep("Structural", random() % 2 == 0 ? "Cutting" : "Folding");
        }
        OrvDoc::LayerConfiguration& configuration = layers.GetDefaultConfiguration();
        configuration.SetLayerVisible(layer, random() % 3 != 0);
        configuration.SetLayerPrintState(layer,
                                         static_cast<OrvDoc::LayerConfiguration::PrintState>(random() % 3));
        const auto place = random() % 4;
        if (place == 0 && !top.empty()) {
            top.back().children.push_back({layer, {}});
        } else if (place == 1) {
            top.push_back({layers.CreateGroup(RandomName(random)), {{layer, {}}}});
        } else if (place == 2) {
            top.push_back({layer, {}});
        }
    }
    layers.GetDefaultConfiguration().SetOrder(std::move(top));
}

void MakeSeparations(OrvDoc::Document& document, Random& random)
{
    std::vector<OrvDoc::Separation::Entry> entries;
    const std::size_t count = random() % 4;
    for (std::size_t i = 0; i < count; ++i) {
        OrvColor::Representation alternate;
        if (random() % 3 != 0) {
            alternate.SetCmyk(
                {RandomTint(random), RandomTint(random), RandomTint(random), RandomTint(random)});
        }
        entries.emplace_back("Ink " + std::to_string(i), alternate);
    }
    if (!entries.empty()) {
        document.SetSeparationInfo(std::move(entries));
    }
}

void MakeOutputIntent(OrvDoc::Document& document, Random& random)
{
    if (random() % 2 == 0) {
        return;
    }
    OrvColor::OutputIntent intent;
    intent.SetOutputConditionIdentifier("FOGRA39").SetInfo(RandomName(random));
    if (random() % 2 == 0) {
        intent.SetDestinationProfile(OrvColor::GenColorProfiles::Instance().GetDefaultCmykProfile(true));
    }
    document.SetOutputIntent(intent);
}

void AddObjects(ContentGenerator& generator, const std::vector<PlannedObject>& plans, Material& material);

std::shared_ptr<const OrvPaint::FormPaint> PlanForm(const PlannedObject& plan, Random& random,
                                                    Material& material)
{
    if (!material.forms.empty() && random() % 3 == 0) {
        return material.forms[random() % material.forms.size()];
    }
    auto content = std::make_shared<OrvDoc::Content>(material.document, OrvDoc::Content::Type::FormContent);
    content->SetBlendColorSpace(RandomBlendColorSpace(random));
    content->SetTransferFunctionSet(RandomTransferFunctions(random));
    ContentGenerator generator(*content);
    AddObjects(generator, plan.children, material);
    material.forms.push_back(RandomForm(std::move(content), random));
    return material.forms.back();
}

void FillPaint(OrvDoc::Content& content, Random& random, Material& material)
{
    ContentGenerator generator(content);
    const int uncolored = content.GetType() == OrvDoc::Content::Type::UncoloredPatternContent ? 1 : 0;
    ++material.openPaints;
    material.openUncolored += uncolored;
    AddObjects(generator, PlanObjects(random, 4), material);
    material.openUncolored -= uncolored;
    --material.openPaints;
}

/// Gives an object patterns and masks, three deep.
void AddPaints(OrvDoc::ContentObject& object, Random& random, Material& material)
{
    if (material.openPaints == 3 || object.IsClippingObject()) {
        return;
    }
    const auto fill = [&material](OrvDoc::Content& content, Random& inner) {
        FillPaint(content, inner, material);
    };
    auto* const painted = dynamic_cast<OrvDoc::Fillable*>(&object);
    if (painted &&
        !(painted->GetFillPaint() && painted->GetFillPaint()->GetType() == OrvPaint::Paint::Type::Form)) {
        material.paints.SetSomePatterns(*painted, random, fill);
    }
    if (auto* const blendable = dynamic_cast<OrvDoc::Blendable*>(&object)) {
        material.paints.SetSomeMask(*blendable, random, fill);
    }
}

void AddObjects(ContentGenerator& generator, const std::vector<PlannedObject>& plans, Material& material)
{
    for (const PlannedObject& plan : plans) {
        Random random(plan.seed);
        if (plan.kind == PlannedKind::Form) {
            auto instance = RandomInstance(PlanForm(plan, random, material), random);
            AddPaints(*instance, random, material);
            generator.Add(std::move(instance));
        } else if (plan.kind == PlannedKind::Layer && plan.seed % 2 == 0) {
            generator.BeginLayer(RandomName(random));
            AddObjects(generator, plan.children, material);
            generator.EndLayer();
        } else if (plan.kind == PlannedKind::Picture) {
            std::unique_ptr<OrvDoc::ContentObject> picture;
            if (material.openUncolored > 0 || random() % 3 == 0) {
                picture = material.pictures.NextImageMask(random);
            } else {
                picture = material.pictures.NextImage(random);
            }
            AddPaints(*picture, random, material);
            generator.Add(std::move(picture));
        } else if (plan.kind == PlannedKind::Text) {
            auto group = RandomTextGroup(material.document, random);
            AddPaints(*group, random, material);
            for (OrvDoc::ContentObject* text = group->children.first; text; text = text->next) {
                AddPaints(*text, random, material);
            }
            generator.Add(std::move(group));
        } else if (CanHaveChildren(plan.kind)) {
            auto group = MakeGroup(plan.kind, random, material.layers);
            AddPaints(*group, random, material);
            generator.BeginGroup(std::move(group));
            AddObjects(generator, plan.children, material);
            generator.EndGroup();
        } else {
            auto leaf = MakeLeaf(plan.kind, random);
            AddPaints(*leaf, random, material);
            generator.Add(std::move(leaf));
        }
    }
}

// Calls `change` for every object of a list and of the lists below, until it returns true.
bool ForEachList(std::vector<PlannedObject>& objects,
                 const std::function<bool(std::vector<PlannedObject>&)>& change)
{
    if (change(objects)) {
        return true;
    }
    for (PlannedObject& object : objects) {
        if (ForEachList(object.children, change)) {
            return true;
        }
    }
    return false;
}

// Takes one object away, or puts its children in its place, where the plan still fails afterwards.
bool ShrinkOnce(PlannedDocument& plan, const std::function<bool(const PlannedDocument&)>& fails)
{
    for (std::size_t page = 0; page < plan.pages.size() && plan.pages.size() > 1; ++page) {
        PlannedDocument smaller = plan;
        smaller.pages.erase(smaller.pages.begin() + static_cast<std::ptrdiff_t>(page));
        if (fails(smaller)) {
            plan = std::move(smaller);
            return true;
        }
    }
    for (PlannedPage& page : plan.pages) {
        const auto change = [&plan, &fails](std::vector<PlannedObject>& objects) {
            for (std::size_t i = 0; i < objects.size(); ++i) {
                const std::vector<PlannedObject> before = objects;
                objects.erase(objects.begin() + static_cast<std::ptrdiff_t>(i));
                if (fails(plan)) {
                    return true;
                }
                const auto& children = before[i].children;
                objects.insert(objects.begin() + static_cast<std::ptrdiff_t>(i), children.begin(),
                               children.end());
                if (!children.empty() && fails(plan)) {
                    return true;
                }
                objects = before;
            }
            return false;
        };
        if (ForEachList(page.objects, change)) {
            return true;
        }
    }
    return false;
}

} // namespace

PlannedDocument PlanDocument(std::uint32_t seed)
{
    Random random(seed);
    PlannedDocument plan{static_cast<std::uint32_t>(random()), {}};
    plan.pages.resize(1 + random() % 3);
    for (PlannedPage& page : plan.pages) {
        page.seed = static_cast<std::uint32_t>(random());
        page.objects = PlanObjects(random, 0);
    }
    return plan;
}

std::unique_ptr<OrvDoc::Document> MakeDocument(const PlannedDocument& plan)
{
    auto document = OrvDoc::Document::CreateNew();
    Random random(plan.seed);
    MakeLayers(*document, random);
    // Those that the objects make for themselves are not among them.
    Material material{*document,
                      document->GetLayers().GetAllLayers(),
                      {},
                      RandomPaints(*document),
                      RandomPictures(*document),
                      0,
                      0};
    MakeSeparations(*document, random);
    MakeOutputIntent(*document, random);
    for (const PlannedPage& pagePlan : plan.pages) {
        Random pageRandom(pagePlan.seed);
        OrvDoc::Page& page = document->AddPage(RandomBox(pageRandom));
        for (const auto box :
             {OrvDoc::PageBox::Crop, OrvDoc::PageBox::Bleed, OrvDoc::PageBox::Trim, OrvDoc::PageBox::Art}) {
            if (pageRandom() % 2 == 0) {
                page.SetPageBox(box, RandomBox(pageRandom));
            }
        }
        page.GetContent().SetBlendColorSpace(RandomBlendColorSpace(pageRandom));
        page.SetTransferFunctionSet(RandomTransferFunctions(pageRandom));
        ContentGenerator generator(page.GetContent());
        AddObjects(generator, pagePlan.objects, material);
    }
    return document;
}

PlannedDocument Shrink(PlannedDocument plan, const std::function<bool(const PlannedDocument&)>& fails)
{
    while (ShrinkOnce(plan, fails)) {
    }
    return plan;
}

std::string Describe(const PlannedDocument& plan)
{
    std::ostringstream text;
    OrvDoc::Dump(*MakeDocument(plan), text, OrvDoc::DumpOption::WithBelow, 0);
    return text.str();
}

std::uint32_t FirstSeed()
{
    const char* const text = std::getenv("HARROW_SEED");
    return text ? static_cast<std::uint32_t>(std::strtoul(text, nullptr, 10)) : 1;
}

} // namespace HarrowSupport::Testing
