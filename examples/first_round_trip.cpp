#include <harrow_support/content_generator.h>
#include <harrow_support/round_trip.h>
#include <orv_doc/document.h>
#include <orv_doc/path.h>
#include <plexa/geometry.h>

#include <iostream>

int main()
{
    auto document = OrvDoc::Document::CreateNew();
    OrvDoc::Page& page = document->AddPage({0.0, 0.0, 595276.0, 841890.0}); // milli-points: 1000 to the point
    auto square =
        std::make_unique<OrvDoc::Path>(Plexa::GetRectangleCompound({9000.0, 9000.0, 50000.0, 50000.0}));
    HarrowSupport::ContentGenerator(page.GetContent())
        .BeginLayer("Cutting")
        .Add(std::move(square))
        .EndLayer();

    const auto result =
        HarrowSupport::TestRoundTripStructure(document, HarrowSupport::Comparators::Options{});
    for (const auto& difference : result.differences)
        std::cout << difference.label << ": " << difference.message << "\n";
    std::cout << result.differences.size() << " differences\n";
}
