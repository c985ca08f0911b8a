#include "orv_font/standard_advances.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string_view>
#include <unordered_map>

namespace OrvFont::Detail
{

namespace
{

using Design = FontKind::Design;
using Advances = std::unordered_map<std::string_view, int>;

/// The glyphs of one advance.
struct AdvanceGroup
{
    int advance;
    std::string_view names; ///< With a space between two.
};

constexpr AdvanceGroup symbolGroups[] = {
    {167, "fraction"},
    {200, "bar"},
    {247, "minute"},
    {250, "comma dotmath period space"},
    {274, "integral"},
    {278, "colon semicolon slash"},
    {329, "angleleft angleright iota"},
    {333, "Iota bracketleft bracketright exclam parenleft parenright"},
    {384, "bracketleftbt bracketleftex bracketlefttp bracketrightbt bracketrightex bracketrighttp "
          "parenleftbt parenleftex parenlefttp parenrightbt parenrightex parenrighttp"},
    {400, "degree"},
    {411, "gamma second"},
    {439, "epsilon sigma1 suchthat tau"},
    {444, "question"},
    {460, "bullet"},
    {480, "braceleft braceright"},
    {493, "xi"},
    {494, "braceex braceleftbt braceleftmid bracelefttp bracerightbt bracerightmid bracerighttp delta "
          "lozenge partialdiff zeta"},
    {500,
     "asteriskmath eight five florin four nine numbersign one radicalex seven six three two underscore zero"},
    {521, "nu phi theta"},
    {549, "approxequal beta chi congruent divide equal equivalence existential greater greaterequal kappa "
          "lambda less lessequal minus multiply notequal omicron pi plus plusminus radical rho similar"},
    {556, "Rho"},
    {576, "mu upsilon"},
    {592, "Sigma"},
    {603, "Gamma arrowdbldown arrowdblup arrowdown arrowup arrowvertex eta logicaland logicalor phi1 sigma"},
    {611, "Epsilon Tau Zeta"},
    {612, "Delta"},
    {620, "Upsilon1"},
    {631, "alpha theta1"},
    {645, "Xi"},
    {658, "carriagereturn perpendicular"},
    {667, "Beta"},
    {686, "Ifraktur Lambda integralbt integralex integraltp omega psi"},
    {690, "Upsilon"},
    {713, "element gradient infinity logicalnot notelement notsubset omega1 propersubset propersuperset "
          "proportional reflexsubset reflexsuperset summation universal"},
    {722, "Alpha Chi Eta Kappa Nu Omicron"},
    {741, "Theta"},
    {750, "Euro"},
    {753, "club diamond heart spade"},
    {763, "Phi"},
    {768, "Omega Pi angle circlemultiply circleplus intersection union"},
    {778, "ampersand"},
    {786, "trademarksans"},
    {790, "apple copyrightsans copyrightserif registersans registerserif"},
    {795, "Psi Rfraktur"},
    {823, "aleph emptyset product"},
    {833, "percent"},
    {863, "therefore"},
    {889, "Mu"},
    {890, "trademarkserif"},
    {987, "arrowdblleft arrowdblright arrowleft arrowright weierstrass"},
    {1000, "arrowhorizex ellipsis"},
    {1042, "arrowboth arrowdblboth"},
};

constexpr AdvanceGroup dingbatGroups[] = {
    {138, "a82"},
    {234, "a87 a88"},
    {276, "a91 a92"},
    {277, "a83"},
    {278, "space"},
    {317, "a93 a94"},
    {334, "a95 a96"},
    {390, "a89 a90"},
    {392, "a97 a98"},
    {410, "a86 a206"},
    {415, "a84"},
    {438, "a81"},
    {458, "a164"},
    {463, "a177"},
    {494, "a6"},
    {509, "a85 a205"},
    {537, "a8"},
    {544, "a102 a103"},
    {549, "a13"},
    {552, "a7"},
    {571, "a23"},
    {577, "a9"},
    {595, "a111"},
    {626, "a109"},
    {667, "a106"},
    {668, "a99 a100"},
    {677, "a24"},
    {682, "a56"},
    {687, "a63"},
    {689, "a65"},
    {690, "a117"},
    {692, "a10"},
    {694, "a110"},
    {695, "a49"},
    {696, "a64 a181 a200"},
    {701, "a57"},
    {707, "a54 a62"},
    {708, "a55"},
    {713, "a68"},
    {719, "a4"},
    {723, "a45"},
    {732, "a101"},
    {744, "a44"},
    {748, "a192 a196"},
    {749, "a46"},
    {754, "a28"},
    {755, "a19"},
    {759, "a27 a53 a75 a204"},
    {760, "a26 a107 a108 a183"},
    {761, "a22 a73"},
    {762, "a21 a74 a203"},
    {763, "a25"},
    {768, "a51"},
    {771, "a194 a197"},
    {776, "a50 a112"},
    {784, "a79"},
    {785, "a70"},
    {786, "a29 a66"},
    {787, "a67"},
    {788, "a30 a31 a78 a120 a121 a122 a123 a124 a125 a126 a127 a128 a129 a130 a131 a132 a133 a134 a135 a136 "
          "a137 a138 a139 a140 a141 a142 a143 a144 a145 a146 a147 a148 a149 a150 a151 a152 a153 a154 a155 "
          "a156 a157 a158 a159"},
    {789, "a5 a37 a60 a61"},
    {790, "a32 a47 a119"},
    {791, "a69 a71 a118"},
    {792, "a48 a52"},
    {793, "a33"},
    {794, "a34"},
    {815, "a59"},
    {816, "a35 a41"},
    {823, "a36 a39"},
    {826, "a58"},
    {828, "a172"},
    {831, "a42 a187"},
    {833, "a40"},
    {834, "a170"},
    {836, "a179 a193"},
    {838, "a161"},
    {841, "a38"},
    {846, "a20"},
    {855, "a14"},
    {865, "a185"},
    {867, "a180 a199"},
    {873, "a72 a171 a188"},
    {874, "a182 a201"},
    {883, "a178"},
    {888, "a195 a198"},
    {892, "a76 a77"},
    {894, "a160"},
    {910, "a104"},
    {911, "a15 a105"},
    {917, "a174"},
    {918, "a166 a191"},
    {923, "a43"},
    {924, "a162 a165 a173"},
    {927, "a167 a189"},
    {928, "a168 a169"},
    {930, "a175"},
    {931, "a176"},
    {933, "a16"},
    {939, "a12"},
    {945, "a17"},
    {946, "a184"},
    {960, "a11"},
    {961, "a2"},
    {967, "a186"},
    {970, "a190"},
    {974, "a1 a18 a202"},
    {980, "a3"},
    {1016, "a163"},
};

template <std::size_t groupCount>
Advances MakeAdvances(const AdvanceGroup (&groups)[groupCount])
{
    Advances advances;
    for (const AdvanceGroup& group : groups) {
        for (std::string_view rest = group.names; !rest.empty();) {
            const std::size_t end = std::min(rest.find(' '), rest.size());
            advances.emplace(rest.substr(0, end), group.advance);
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    }
    return advances;
}

double FindAdvance(const Advances& advances, std::string_view glyphName, double otherwise)
{
    const auto found = advances.find(glyphName);
    return found == advances.end() ? otherwise : found->second;
}

/// A glyph of a text font that has another advance in the font that stands in.
struct DifferentAdvance
{
    std::string_view name;
    int sans[4]; ///< Upright, bold, italic, bold italic.
    int serif[4];
};

constexpr DifferentAdvance differentAdvances[] = {
    {"divide", {584, 584, 584, 584}, {564, 570, 675, 570}},
    {"macron", {333, 333, 333, 333}, {333, 333, 333, 333}},
    {"mu", {556, 611, 556, 611}, {500, 556, 500, 576}},
    {"periodcentered", {278, 278, 278, 278}, {250, 250, 250, 250}},
    {"plusminus", {584, 584, 584, 584}, {564, 570, 675, 570}},
};

} // namespace

double GetStandardAdvance(const FontKind& kind, std::string_view glyphName, double advance)
{
    static const Advances symbols = MakeAdvances(symbolGroups);
    static const Advances dingbats = MakeAdvances(dingbatGroups);
    if (kind.design == Design::Symbols)
        return FindAdvance(symbols, glyphName, advance);
    if (kind.design == Design::Dingbats)
        return FindAdvance(dingbats, glyphName, advance);
    if (kind.design != Design::FixedPitch) {
        const auto* const different =
            std::find_if(std::begin(differentAdvances), std::end(differentAdvances),
                         [glyphName](const DifferentAdvance& each) { return each.name == glyphName; });
        if (different != std::end(differentAdvances)) {
            const int style = (kind.isBold ? 1 : 0) + (kind.isItalic ? 2 : 0);
            return kind.design == Design::Serif ? different->serif[style] : different->sans[style];
        }
    }
    // The em of the fonts that stand in has 2048 units, the standard fonts' has 1000.
    return std::round(advance);
}

} // namespace OrvFont::Detail
