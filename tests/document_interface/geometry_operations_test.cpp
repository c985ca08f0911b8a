// The geometry types, whose fields programs read and write, and the operations on shapes.

#include "document_interface/signature.h"

#include <memory>
#include <ostream>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include <plexa/compound.h>
#include <plexa/geometry.h>

namespace
{

using namespace InterfaceTests;
using namespace Plexa;

using Coordinate = CoordinateBase<MilliPointCoordinateSystem>;
using Point = PointBase<MilliPointCoordinateSystem>;
using Dimension = DimensionBase<MilliPointCoordinateSystem>;
using Rectangle = RectangleBase<MilliPointCoordinateSystem>;
using Transformation = TransformationBase<MilliPointCoordinateSystem>;
using CompoundPointer = std::shared_ptr<const Compound>;

static_assert(std::is_same_v<decltype(Coordinate::value), double>);
static_assert(std::is_same_v<decltype(Point::x), Coordinate> &&
              std::is_same_v<decltype(Point::y), Coordinate>);
static_assert(std::is_same_v<decltype(Dimension::width), Coordinate>);
static_assert(std::is_same_v<decltype(Dimension::height), Coordinate>);
static_assert(std::is_same_v<decltype(Rectangle::origin), Point>);
static_assert(std::is_same_v<decltype(Rectangle::size), Dimension>);
static_assert(std::is_same_v<decltype(Rectangle::isInitial), bool>);
static_assert(std::is_same_v<decltype(Transformation::a), double>);
static_assert(std::is_same_v<decltype(Transformation::d), double>);
static_assert(std::is_same_v<decltype(Transformation::x), Coordinate>);
static_assert(std::is_same_v<decltype(Transformation::y), Coordinate>);

// Numbers and nothing else, in the order of the fields.
static_assert(sizeof(Coordinate) == sizeof(double) && std::is_standard_layout_v<Coordinate>);
static_assert(sizeof(Point) == 2 * sizeof(double) && std::is_standard_layout_v<Point>);
static_assert(sizeof(Dimension) == 2 * sizeof(double) && std::is_standard_layout_v<Dimension>);
static_assert(sizeof(Transformation) == 6 * sizeof(double) && std::is_standard_layout_v<Transformation>);
static_assert(std::is_trivially_copyable_v<Rectangle> && std::is_trivially_copyable_v<Transformation>);

// The two systems are kept apart.
static_assert(!std::is_convertible_v<CoordinateBase<PdfCoordinateSystem>, Coordinate>);
static_assert(!std::is_convertible_v<PointBase<PdfCoordinateSystem>, Point>);
static_assert(!std::is_convertible_v<RectangleBase<PdfCoordinateSystem>, Rectangle>);
static_assert(!std::is_convertible_v<TransformationBase<PdfCoordinateSystem>, Transformation>);

static_assert(std::is_enum_v<WindingRule>);
static_assert(Has<CompoundPointer (*)(const Rectangle&)>(&GetRectangleCompound));
static_assert(Has<CompoundPointer (*)(const Transformation&, CompoundPointer)>(&Plexa::operator*));
static_assert(Has<Coordinate (*)(const Point&)>(&GetLength));
static_assert(Has<std::ostream& (*)(std::ostream&, const CompoundPointer&)>(&Plexa::operator<<));

static_assert(
    Has<const std::vector<std::shared_ptr<const Subpath>>& (Compound::*)() const>(&Compound::GetSubpaths));
static_assert(Has<WindingRule (Compound::*)() const>(&Compound::GetWindingRule));
static_assert(Has<ConstSegmentIterator (Subpath::*)() const>(&Subpath::BeginSegment));
static_assert(Has<ConstSegmentIterator (Subpath::*)() const>(&Subpath::EndSegment));

static_assert(std::is_same_v<ConstSegmentIterator::value_type, Segment>);
static_assert(std::is_same_v<ConstSegmentIterator::reference, Segment>, "dereferencing makes a segment");
static_assert(std::is_convertible_v<boost::iterators::iterator_traversal<ConstSegmentIterator>::type,
                                    boost::iterators::bidirectional_traversal_tag>);
static_assert(
    Has<bool (ConstSegmentIterator::*)(const ConstSegmentIterator&) const>(&ConstSegmentIterator::equal));
static_assert(
    Has<bool (ConstSegmentIterator::*)() const>(&ConstSegmentIterator::IsImplicitlyAddedCloseSegment));

static_assert(Has<bool (Segment::*)() const>(&Segment::IsLine));
static_assert(Has<bool (Segment::*)() const>(&Segment::IsBezier));
static_assert(Has<const Point& (Segment::*)() const>(&Segment::GetEnd));
static_assert(Has<const Point& (Segment::*)() const>(&Segment::GetFirstControlPoint));
static_assert(Has<const Point& (Segment::*)() const>(&Segment::GetSecondControlPoint));

TEST(GeometryOperations, ADefaultRectangleWasNeverGivenAValue)
{
    EXPECT_TRUE(Rectangle().isInitial);
    EXPECT_FALSE(Rectangle(0.0, 0.0, 0.0, 0.0).isInitial);
}

TEST(GeometryOperations, ADefaultTransformationIsTheIdentity)
{
    const Transformation t;
    EXPECT_EQ(t.a, 1.0);
    EXPECT_EQ(t.b, 0.0);
    EXPECT_EQ(t.c, 0.0);
    EXPECT_EQ(t.d, 1.0);
    EXPECT_EQ(t.x.value, 0.0);
    EXPECT_EQ(t.y.value, 0.0);
}

TEST(GeometryOperations, TheOutlineOfARectangleIsOneClosedSubpathOfLines)
{
    const CompoundPointer outline = GetRectangleCompound({1.0, 2.0, 30.0, 40.0});
    ASSERT_EQ(outline->GetSubpaths().size(), 1u);
    const Subpath& subpath = *outline->GetSubpaths().front();
    bool isClosed = false;
    for (ConstSegmentIterator segment = subpath.BeginSegment(); segment != subpath.EndSegment(); ++segment) {
        EXPECT_TRUE(segment->IsLine());
        EXPECT_FALSE(segment->IsBezier());
        isClosed = segment.IsImplicitlyAddedCloseSegment();
    }
    EXPECT_TRUE(isClosed);
}

TEST(GeometryOperations, ATransformedShapeIsANewOne)
{
    const CompoundPointer given = GetRectangleCompound({1.0, 2.0, 30.0, 40.0});
    const CompoundPointer mapped = Transformation(2.0, 0.0, 0.0, 3.0, 100.0, 200.0) * given;
    EXPECT_NE(mapped, given);
    EXPECT_EQ(mapped->GetWindingRule(), given->GetWindingRule());
    const Point before = given->GetSubpaths().front()->BeginSegment()->GetEnd();
    const Point after = mapped->GetSubpaths().front()->BeginSegment()->GetEnd();
    EXPECT_EQ(before.x.value, 1.0);
    EXPECT_EQ(after.x.value, 102.0);
    EXPECT_EQ(after.y.value, 206.0);
}

TEST(GeometryOperations, LengthIsThatOfTheVectorFromTheOrigin)
{
    EXPECT_EQ(GetLength(Point(3.0, -4.0)).value, 5.0);
}

} // namespace
