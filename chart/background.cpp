#include "chart/background.h"

#include "platform/controls/scroll_box.h"
#include "platform/data/dataset.h"
#include "platform/imaging/image_view.h"
#include "platform/system/guards.h"

namespace vorn {

void TBackground::Read(const TDataSet& row, TImageEnView& view)
{
    const ScopeExit fallback([this] {
        if (zones_.Empty())
            zones_.UseFallback();
    });
    ReadDrawing(row, view);
    ReadZones(row);
}

void TBackground::ReadDrawing(const TDataSet& row, TImageEnView& view)
{
    TMemoryStream stream;
    row.FieldByName(u"grafico_ie").SaveToStream(stream);
    stream.SetPosition(0);
    const bool loaded = view.GetImageEnIO().LoadFromStream(stream, 0);
    view.SetClientWidth(view.Bitmap().Width());
    view.SetClientHeight(view.Bitmap().Height());
    // What can't be read isn't reported: the chart goes on with the last picture, without what was drawn into it.
    if (loaded || drawing_.IsEmpty())
        drawing_.Assign(view.Bitmap());

    // The second pixel of the second row: an image's very edge may be a frame. One that is too small to have it leaves
    // the colour as it was.
    if (drawing_.Width() < 2 || drawing_.Height() < 2)
        return;
    const TColor surround = TRGB2TColor(drawing_.GetPixels_ie24RGB(1, 1));
    view.SetBackground(surround);
    if (auto* box = dynamic_cast<TScrollBox*>(view.Parent()))
        box->SetColor(surround);
}

void TBackground::ReadZones(const TDataSet& row)
{
    TStringList lines;
    const auto load = [&](StringView column) {
        TMemoryStream stream;
        row.FieldByName(column).SaveToStream(stream);
        stream.SetPosition(0);
        lines.LoadFromStream(stream);
    };
    load(u"Zone");
    zones_.ReadZones(lines);
    load(u"Dialoghi");
    zones_.ReadNames(lines);
}

void TBackground::PutBack(TImageEnView& view) const
{
    view.Bitmap().Assign(drawing_);
}

} // namespace vorn
