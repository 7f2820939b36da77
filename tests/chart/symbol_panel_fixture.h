#pragma once

#include "platform/imaging/thumbnail_view.h"
#include "tests/support/drag.h"
#include "tests/support/mouse.h"
#include "tests/support/symbol_fixture.h"

#include <QtWidgets/QWidget>

namespace vorn::test {

/// A chart whose view and panel are shown; the label of treatment 1 stands on zone 11.
class SymbolPanelFixture : public SymbolFixture {
protected:
    SymbolPanelFixture()
    {
        panel->SetBounds(0, 0, 300, 120);
        ShowCatalogue({{.Id = 1, .Picture = Blob(Picture(41, 11, clRed))},
            {.Id = 2, .Picture = Blob(Picture(40, 40, clBlue)), .Terapia = u"Corona", .Scale = 150, .Opacity = 99},
            {.Id = 3, .Picture = Blob(Picture(20, 10, clRed, {{{2, 1}, clBlue}})), .Angle = 90}});
        ShowPlacements({});
        ShowTreatments({{.Id = 1, .Terapia = u"Otturazione"}});
        chart->OnAddTerFromSimb = [this](TObject* zone) {
            asked.push_back(Utf8(dynamic_cast<TZone&>(*zone).numZona) + " "
                + Utf8(catalogue->FieldByName(u"Terapia").AsString()) + " "
                + std::to_string(placements->RecordCount()));
        };
        for (TWinControl* control : {static_cast<TWinControl*>(view), static_cast<TWinControl*>(panel)})
            control->Widget()->show();
        ProcessEvents();
    }

    TPoint Thumbnail(int idx) const
    {
        const TRect cell = panel->ImageCell(idx);
        return {(cell.Left + cell.Right) / 2, (cell.Top + cell.Bottom) / 2};
    }
    DragResult Drop(int idx, TPoint at) { return DragFromTo(*panel, Thumbnail(idx), *view, at); }
    TPoint LastPlace() const
    {
        placements->Last();
        return {placements->FieldByName(u"X").AsInteger(), placements->FieldByName(u"Y").AsInteger()};
    }

    TImageEnMView* panel = new TImageEnMView(root.get());
    std::vector<std::string> asked;
};

} // namespace vorn::test
