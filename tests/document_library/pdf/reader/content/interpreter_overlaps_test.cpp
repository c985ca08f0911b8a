#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "document_library/pdf/reader/interpreter_test_support.h"

// Scopes that begin and end in any order, checked against a plain account of what is in force at each path:
// its matrix, the clips and the marked content around it, in the order in which they began.

namespace
{

using OrvPdf::Testing::Reading;
using OrvPdf::Testing::ShortNumber;
using Matrix = Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>;

std::string MatrixText(const Matrix& t)
{
    std::string text;
    for (const double number : {t.a, t.b, t.c, t.d, t.x.value, t.y.value})
        text += ShortNumber(number) + " ";
    return text;
}

/// Writes a random stream and keeps account of it.
class RandomContent
{
public:
    explicit RandomContent(std::uint32_t seed) : random(seed)
    {
        for (int i = 0; i < 40; ++i)
            AddOperation();
        // What is still open ends at the end.
    }

    std::string stream;
    /// One text for each path: its number, its matrix and what is around it.
    std::vector<std::string> expected;

private:
    struct Scope
    {
        int number;
        bool isClip;
        Matrix clipMatrix;
    };

    struct State
    {
        Matrix matrix;
        std::vector<int> clips;
    };

    void AddOperation()
    {
        switch (random() % 9) {
        case 0:
        case 1:
            stream += "q ";
            saved.push_back(state);
            break;
        case 2:
        case 3:
            Restore();
            break;
        case 4:
            Transform(RandomMatrix());
            break;
        case 5:
            BeginMark();
            break;
        case 6:
            EndMark();
            break;
        case 7:
            BeginClip();
            break;
        default:
            AddPath();
            break;
        }
    }

    Matrix RandomMatrix()
    {
        // So few and so plain that no product is rounded.
        if (++matrixCount > 10)
            return Matrix();
        return Matrix(random() % 2 ? 2.0 : 0.5, 0.0, 0.0, 2.0, 1000.0 * static_cast<double>(random() % 4),
                      0.0);
    }

    static std::string Numbers(const Matrix& t)
    {
        return ShortNumber(t.a) + " 0 0 " + ShortNumber(t.d) + " " + ShortNumber(t.x.value / 1000.0) + " 0";
    }

    void Transform(const Matrix& matrix)
    {
        stream += Numbers(matrix) + " cm ";
        state.matrix = Plexa::Concatenate(matrix, state.matrix);
    }

    void Restore()
    {
        if (saved.empty())
            return;
        stream += "Q ";
        for (const int clip : state.clips) {
            if (std::count(saved.back().clips.begin(), saved.back().clips.end(), clip) == 0)
                End(clip);
        }
        state = saved.back();
        saved.pop_back();
    }

    void BeginMark()
    {
        scopes.push_back({++count, false, {}});
        marks.push_back(count);
        if (random() % 2) {
            stream += "/T" + std::to_string(count) + " BMC ";
            return;
        }
        const Matrix matrix = RandomMatrix();
        stream +=
            "/OrvGroup <</Name (T" + std::to_string(count) + ") /Matrix [" + Numbers(matrix) + "]>> BDC ";
        if (random() % 2) {
            stream += "q ";
            saved.push_back(state);
        }
        Transform(matrix);
    }

    void EndMark()
    {
        if (marks.empty())
            return;
        stream += "EMC ";
        End(marks.back());
        marks.pop_back();
    }

    void BeginClip()
    {
        scopes.push_back({++count, true, state.matrix});
        state.clips.push_back(count);
        stream += "0 0 m " + std::to_string(count) + " 0 l W n ";
    }

    void AddPath()
    {
        stream += "0 0 m " + std::to_string(++count) + " 0 l n ";
        std::string text = std::to_string(count) + " at " + MatrixText(state.matrix);
        for (const Scope& scope : scopes) {
            text += scope.isClip
                        ? "in clip " + std::to_string(scope.number) + " at " + MatrixText(scope.clipMatrix)
                        : "in T" + std::to_string(scope.number) + " ";
        }
        expected.push_back(text);
    }

    void End(int number)
    {
        scopes.erase(std::find_if(scopes.begin(), scopes.end(),
                                  [number](const Scope& scope) { return scope.number == number; }));
    }

    std::mt19937 random;
    int count = 0;
    int matrixCount = 0;
    State state;
    std::vector<State> saved;
    std::vector<int> marks;
    std::vector<Scope> scopes;
};

/// A path's number is the length of its line in points.
std::string NumberText(const OrvDoc::Path& path)
{
    const auto& points = path.DefiningCompound()->GetSubpaths()[0]->GetPoints();
    return ShortNumber(points.back().x.value / 1000.0);
}

std::string AroundText(const OrvDoc::Group& group)
{
    std::string text = group.GetParentGroup() ? AroundText(*group.GetParentGroup()) : std::string();
    if (group.GetMarkedContent())
        return text + "in " + group.GetMarkedContent()->tag + " ";
    if (!group.GetName().empty())
        return text + "in " + group.GetName() + " ";
    const auto& clip = dynamic_cast<const OrvDoc::Path&>(*group.children.first);
    return text + "in clip " + NumberText(clip) + " at " + MatrixText(GetAbsoluteTransformation(clip));
}

void ListPaths(const OrvDoc::Detail::List<OrvDoc::ContentObject>& objects, std::vector<std::string>& texts)
{
    for (const OrvDoc::ContentObject* object = objects.first; object; object = object->next) {
        if (const auto* const group = dynamic_cast<const OrvDoc::Group*>(object)) {
            ListPaths(group->children, texts);
        } else if (!object->IsClippingObject()) {
            const auto& path = dynamic_cast<const OrvDoc::Path&>(*object);
            const OrvDoc::Group* const parent = path.GetParentGroup();
            texts.push_back(NumberText(path) + " at " + MatrixText(GetAbsoluteTransformation(path)) +
                            (parent ? AroundText(*parent) : std::string()));
        }
    }
}

TEST(InterpreterOverlaps, EachPathStandsInJustWhatIsInForceInTheOrderOfItsBeginning)
{
    for (std::uint32_t seed = 1; seed <= 3000; ++seed) {
        const RandomContent content(seed);
        SCOPED_TRACE("seed " + std::to_string(seed) + ": " + content.stream);
        Reading reading;
        reading.Read(content.stream);
        std::vector<std::string> read;
        ListPaths(reading.content->GetChildren(), read);
        ASSERT_EQ(read, content.expected);
    }
}

} // namespace
