#pragma once

namespace OrvPdf::Tags
{

// Marked content that says what PDF has no word for. Other readers skip tags that they don't know.

/// A `Group`. Properties, each left out where it has its default: `Name` (string: the bytes of the name as
/// they are, UTF-8), `Flags` (integer; 511), `Matrix` (the group's own transformation; the first `cm` inside
/// has the same six numbers), `OwnClips` (integer; 0: so many of the clips that follow are clipping objects
/// of this group and not of a group of their own).
inline constexpr const char* group = "OrvGroup";
/// A `TextGroup`, with the properties of a group, and `Clip` (boolean; false).
inline constexpr const char* textGroup = "OrvTextGroup";
/// A marked-content point directly inside the marked content of a layer or of another program: what that
/// group has beside it, with the properties of a group.
inline constexpr const char* attributes = "OrvAttributes";
/// Around the operators of one object that is no group: `Name` (as above), `EvenOdd` (boolean: the winding
/// rule of a path that nothing fills and that clips nothing), `Isolated` and `Knockout` (booleans: the flags
/// of the object's transparency, which PDF knows for groups alone), `Blended` (boolean: the object has a
/// transparency also if the graphics state says nothing but what is initial), `Halftones` (boolean: also if
/// nothing paints the path, it has the halftones of the graphics state),
/// `Empty` (boolean: a text without characters is shown by an empty string, an image mask without a fill in
/// no ink),
/// `Outline` (boolean: the first path inside, which clips what follows, is the outline of the object that is
/// filled with the form that follows).
inline constexpr const char* object = "OrvObject";

/// A marked-content point behind a clipping path that stands under a matrix of its own: `Matrix` has its six
/// numbers, and the `cm` that follows directly holds the inverse, rounded. The matrix in force is then
/// exactly the one before.
inline constexpr const char* reset = "OrvReset";

/// A marked-content point inside of a text object: a text begins at the matrix in force, though its first
/// character may stand on another line, and though nothing else may tell it from the one before. With the
/// properties `Text` and `Matrix` that matrix is the product of the two, the text's own and that of the
/// object, which all texts of one clip have no other place for.
inline constexpr const char* text = "OrvText";

/// A marked-content point inside of a text object: `Matrix` leads from the line that the `Tm` that follows
/// directly begins to the matrix that the text began with, in points. The product of both is rounded in the
/// operands of `Tm`.
inline constexpr const char* line = "OrvLine";

inline constexpr const char* nameKey = "Name";
inline constexpr const char* flagsKey = "Flags";
inline constexpr const char* matrixKey = "Matrix";
inline constexpr const char* textKey = "Text";
inline constexpr const char* clipKey = "Clip";
inline constexpr const char* ownClipsKey = "OwnClips";
inline constexpr const char* evenOddKey = "EvenOdd";
inline constexpr const char* isolatedKey = "Isolated";
inline constexpr const char* knockoutKey = "Knockout";
inline constexpr const char* blendedKey = "Blended";
inline constexpr const char* halftonesKey = "Halftones";
inline constexpr const char* outlineKey = "Outline";
inline constexpr const char* emptyKey = "Empty";

// Private keys of form XObjects.

/// A boolean: the form is a group of its content for the sake of the group's transparency. Its stream paints
/// exactly one group.
inline constexpr const char* groupFormKey = "/OrvGroup";
/// Of such a form, where the group stands in others with transformations of their own: six numbers, the
/// matrix that leads out of them. The stream begins with a `cm` of it and `Matrix` takes it back, so that
/// patterns inside lie as they would outside of the form.
inline constexpr const char* baseKey = "/OrvBase";
/// A form whose content and properties are the same: the two are one form, painted as groups of different
/// kinds.
inline constexpr const char* sameFormKey = "/OrvForm";
/// Of a pattern: another one whose cell is the same content.
inline constexpr const char* sameCellKey = "/OrvCell";
/// In a soft mask dictionary that is set under a matrix: the six numbers of the mask's transformation in
/// full, for the form's `Matrix` is rounded, and those of the matrix that it was written for. Set under
/// another one the mask stands where the form's `Matrix` says.
inline constexpr const char* maskMatrixKey = "/OrvMatrix";
inline constexpr const char* maskSettingKey = "/OrvSetting";
/// In the form of a soft mask: another one whose drawing is the same content.
inline constexpr const char* sameDrawingKey = "/OrvDrawing";
/// In the form of a soft mask, a boolean: the group's colour space is there because the standard asks for
/// one.
inline constexpr const char* noBlendSpaceKey = "/OrvNoBlendSpace";
/// In a font descriptor, a string: the style by which the font's family tells it, which PDF has no key for.
inline constexpr const char* fontStyleKey = "/OrvStyle";
/// The blend colour space of a form that is no transparency group.
inline constexpr const char* blendSpaceKey = "/OrvBlendSpace";

} // namespace OrvPdf::Tags
