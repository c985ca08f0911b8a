#pragma once

namespace Plexa
{

/// Tags that keep numbers of different units apart by type. There is no conversion between them: who needs
/// one multiplies or divides by 1000.0 where it is needed, so that every change of unit can be seen.

/// The unit is the milli-point; 1000.0 milli-points are one point (1/72 inch).
struct MilliPointCoordinateSystem
{};

/// The unit is the point, as in default user space (ISO 32000-1, 8.3.2.3).
struct PdfCoordinateSystem
{};

} // namespace Plexa
