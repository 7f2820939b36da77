#include "chart/chart_painting.h"
#include "chart/vorndblabelIE.h"

#include "platform/controls/application.h"
#include "platform/system/strings.h"

namespace vorn {

void TVornIEDBTerList::ReadRecord(TVornRec& rec, bool refresh)
{
    const TLifeWatch chart(this);
    const bool box = FDiagnosis->Visible();
    TTreatmentColumns row = Columns();
    ReadRecord(rec, row, refresh);
    if (chart.Alive() && !box)
        FLayout->MakeRoomForDiagnosis(); // not in the middle of the read: it may shift the labels
}

void TVornIEDBTerList::ReadRecord(TVornRec& rec, TTreatmentColumns& row, bool refresh)
{
    if (row[TTreatmentColumn::Stato].AsInteger() == StatoNotOnChart) {
        CreaCollection(); // takes the record of such a row away
        return;
    }
    const auto reading = FReader->Read(row, VisitRows());
    if (!reading)
        return; // a handler has rebuilt the chart: this record is no more
    if (reading->Diagnosis) {
        FDiagnosis->Add(*reading->Diagnosis);
        if (refresh)
            FDiagnosis->Refresh();
    }
    const auto place = FTreatments->Show(rec, *reading, refresh);
    if (place == TTreatments::TPlace::Kept)
        return;
    if (NamesSeveralZones(reading->Zones))
        DrawLineOnPicture(reading->Zones);
    if (place == TTreatments::TPlace::NoZone)
        TellUnplaced(rec);
}

/// A record that has no zone to stand on loses its label.
void TVornIEDBTerList::TellUnplaced(TVornRec& rec)
{
    const TVisit visit = VisitRows();
    ShowMessage(Format(_SNotSingolaZona, {StringView(rec.FLabel->Caption()), StringView(rec.Zona)}));
    // The message waits for the user, and much may happen meanwhile.
    if (visit.SameDrawing())
        delete rec.FLabel; // its holder is the record's pointer, which reads as none from here on
}

void TVornIEDBTerList::ShowParentGliph(int parentKey)
{
    if (FTreatments->Index().OfKey(parentKey))
        FTreatments->ShowChild(parentKey, FDataLink->DataSet()->FieldByName(FSettings->FieldFatto).AsString() == u"1");
}

} // namespace vorn
