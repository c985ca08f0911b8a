#include "pdf/matrix_numbers.h"
#include "pdf/reader/content/interpreter.h"

namespace OrvPdf
{

namespace
{

Matrix ToMatrix(const Arguments& arguments)
{
    return Matrix(arguments[0].AsNumber(), arguments[1].AsNumber(), arguments[2].AsNumber(),
                  arguments[3].AsNumber(), arguments[4].AsMilliPoints(), arguments[5].AsMilliPoints());
}

} // namespace

void Interpreter::SaveState(const Arguments& arguments)
{
    if (IsExpected(groupMatrix)) {
        groupMatrix.operation = operationNumber;
    }
    if (savedStates.size() >= limits.contentNesting) {
        ++droppedSaves;
        problems.Limit("contentNesting", limits.contentNesting, arguments.Place());
        return;
    }
    savedStates.push_back({state, openClips.size(), bases.size()});
}

void Interpreter::RestoreState(const Arguments& arguments)
{
    if (droppedSaves > 0) {
        --droppedSaves;
        return;
    }
    if (savedStates.empty()) {
        problems.Damaged("Q", "there is no saved state", {}, arguments.Place());
        return;
    }
    LeaveScopes(savedStates.back());
    state = std::move(savedStates.back().state);
    savedStates.pop_back();
}

void Interpreter::LeaveScopes(const SavedState& saved)
{
    for (;;) {
        const bool hasClip = openClips.size() > saved.clipCount;
        const bool hasBase = bases.size() > saved.baseCount;
        if (hasClip && (!hasBase || openClips.back() > bases.back().scope)) {
            EndRun();
            tree.Close(openClips.back());
            openClips.pop_back();
        } else if (hasBase) {
            // The group is still open, but what follows in it isn't under its matrix any more.
            EndRun();
            tree.DropTransformation(bases.back().scope);
            bases.pop_back();
        } else {
            return;
        }
    }
}

void Interpreter::ConcatMatrix(const Arguments& arguments)
{
    const Matrix matrix = ToMatrix(arguments);
    // What leads into the container is no transformation of what is in it.
    const bool isBase = operationNumber == 1 && !bases.empty() && matrix == bases.front().transformation;
    if (isBase || LeaveClipMatrix() || EnterGroupMatrix(matrix, arguments.Place())) {
        return;
    }
    const Matrix product = Plexa::Concatenate(matrix, state.matrix);
    if (!IsFinite(product)) {
        problems.Damaged("cm", "the matrix goes beyond all numbers", {}, arguments.Place());
        return;
    }
    state.matrix = product;
}

bool Interpreter::EnterGroupMatrix(const Matrix& matrix, ByteRange place)
{
    // A group gets its matrix once, and before anything is in it.
    if (!IsExpected(groupMatrix) || matrix != groupMatrix.matrix ||
        !tree.IsInnermostAndFresh(groupMatrix.scope) ||
        (!bases.empty() && bases.back().scope == groupMatrix.scope)) {
        return false;
    }
    if (corrections > limits.groupCorrections) {
        problems.Limit("groupCorrections", limits.groupCorrections, place);
        return false;
    }
    GroupRecipe recipe = tree.GetInnermostRecipe();
    recipe.transformation = Plexa::Concatenate(matrix, state.matrix);
    if (!IsFinite(recipe.transformation)) {
        return false;
    }
    EndRun();
    tree.SetAttributes(recipe);
    bases.push_back({groupMatrix.scope, recipe.transformation});
    state.matrix = Matrix();
    return true;
}

bool Interpreter::LeaveClipMatrix()
{
    if (!IsExpected(clipMatrix) || state.matrix != clipMatrix.matrix) {
        return false;
    }
    state.matrix = Matrix();
    return true;
}

// Marked content that ends before the state that began in it leaves matrices behind that are relative to its
// group.
void Interpreter::ReleaseBase(ScopeTree::Id scope)
{
    if (bases.empty() || bases.back().scope != scope) {
        return;
    }
    const Matrix outer = bases.back().transformation;
    const auto correct = [this, &outer](Matrix& matrix) {
        matrix = Plexa::Concatenate(matrix, outer);
        ++corrections;
    };
    state.matrix = Plexa::Concatenate(state.matrix, outer);
    for (auto saved = savedStates.rbegin(); saved != savedStates.rend() && saved->baseCount == bases.size();
         ++saved) {
        correct(saved->state.matrix);
        --saved->baseCount;
    }
    for (auto clip = openClips.rbegin(); clip != openClips.rend() && *clip > scope; ++clip) {
        tree.MapClip(*clip, outer);
        ++corrections;
    }
    bases.pop_back();
}

} // namespace OrvPdf
