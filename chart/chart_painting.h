#pragma once

#include "platform/system/types.h"

namespace vorn {

class TCanvas;
class TDRLabel;
class TZoneMap;

/// The part of a name of several zones before its first blank.
StringView FirstZoneName(StringView zones);
/// Whether a treatment's zone names are several, which a leader line joins.
bool NamesSeveralZones(StringView zones);

/// Draws the line that joins the zones of a name of several, with a square on each. `shift` leads from image
/// coordinates to the canvas's. A name without a zone is passed over; with fewer than two zones nothing is drawn. Sets
/// the colours of the canvas's pen and brush and nothing else.
void DrawLeaderLine(const TZoneMap& zones, StringView names, TCanvas& canvas, const TPoint& shift);

/// Paints a label's text and frame, as large as the text needs, where the label stands beside `origin`; its glyph,
/// shadow and 3-D effects stay on the screen. A dotted frame leaves the pen dotted.
void PaintLabel(const TDRLabel& label, TCanvas& canvas, const TPoint& origin);

} // namespace vorn
