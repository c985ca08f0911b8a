#pragma once

/// Private keys of image dictionaries, for what PDF has no word for. Other readers pass over them.
namespace OrvPdf::PictureKeys
{

/// The channels behind those of the colour space: an array with a dictionary for each, in order. A picture's
/// own alpha channel is among them, and its `Picture` is then the picture's `SMask` too.
inline constexpr const char* channels = "OrvChannels";
/// In such a dictionary: the name, a string; the number of the type, 0 if it is missing; and the samples, an
/// image XObject in DeviceGray of the same size and depth whose Decode is that of the channel.
inline constexpr const char* channelName = "Name";
inline constexpr const char* channelType = "Type";
inline constexpr const char* channelPicture = "Picture";

/// Dots per inch: an array of two numbers.
inline constexpr const char* dpi = "OrvDpi";

} // namespace OrvPdf::PictureKeys
