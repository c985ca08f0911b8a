#include <harrow_support/comparators.h>
#include <orv_doc/document.h>
#include <plexa/rectangle.h>

#include <iostream>
#include <memory>

namespace Comparators = HarrowSupport::Comparators;

namespace
{

using MilliPointRectangle = Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>;

class Counter : public Comparators::Reporter
{
public:
    void Report(Comparators::ReportKind, const std::string&, const Comparators::LocationPath&,
                const Comparators::LocationPath&, const std::string&) override
    {
        ++reports;
    }

    int reports = 0;
};

std::unique_ptr<OrvDoc::Document> MakeDocument(double height)
{
    std::unique_ptr<OrvDoc::Document> document = OrvDoc::Document::CreateNew();
    document->AddPage(MilliPointRectangle(0.0, 0.0, 100000.0, height));
    return document;
}

int CountDifferences(const OrvDoc::Document& left, const OrvDoc::Document& right)
{
    Counter counter;
    Comparators::Compare(counter, left, right, Comparators::Options());
    return counter.reports;
}

} // namespace

// Prints "equal" if two equal documents compare equal and two different ones do not.
int main()
{
    const auto left = MakeDocument(50000.0);
    const bool works = CountDifferences(*left, *MakeDocument(50000.0)) == 0 &&
                       CountDifferences(*left, *MakeDocument(60000.0)) > 0;
    std::cout << (works ? "equal" : "wrong") << '\n';
    return works ? 0 : 1;
}
