#include "chart/conventions.h"
#include "chart/vorndblabelIE.h"

#include "platform/data/row_write.h"
#include "platform/system/guards.h"
#include "platform/system/strings.h"
#include "utils/Scanf.h"

namespace vorn {

namespace {

constexpr StringView Heading = u"Diagnosi\r\n";
constexpr StringView PlaceFormat = u"%d %d %d";
constexpr std::size_t LineEnd = 2; // CR LF
constexpr int DefaultTop = 2;

} // namespace

/// Adds the row's diagnosis, if it has one that isn't listed yet.
void TVornIEDBTerList::ComponiRecDiagnosi(TTreatmentColumns& row, bool Refresh)
{
    const String code = row[TTreatmentColumn::Diagnosi].AsString();
    if (code.empty())
        return;
    String line;
    if (const String tooth = row[TTreatmentColumn::Dente].AsString(); tooth != GeneralZone)
        line = tooth + u" - ";
    const TVisit visit = VisitRows();
    line += DiagnosisWording(code);
    if (!visit.Current())
        return; // a handler of the diagnosis table has rebuilt the chart, or freed it
    if (!line.empty() && FDiagnosiLines.insert(FoldCase(line)).second)
        listDiagnosi->Add(line);
    if (Refresh)
        ActiveDiagnosi();
}

String TVornIEDBTerList::DiagnosisWording(const String& code) const
{
    TDataSet* table = FSettings->Diagnoses ? FSettings->Diagnoses->DataSet() : nullptr;
    if (FSettings->DiagnosiShow == TDiagnosiShow::diagSigla || !FSettings->Diagnoses)
        return code;
    if (FSettings->DiagnosiShow == TDiagnosiShow::diagNone)
        return {};
    if (!table || !table->Active() || table->FieldCount() < 2)
        return code;
    const bool withCode = FSettings->DiagnosiShow == TDiagnosiShow::diagSiglaDescr;
    const TLifeWatch watch(table);
    if (!table->Locate(table->Fields(0).FieldName(), code) || !watch.Alive() || !table->Active())
        return code;
    const String description = table->Fields(1).AsString();
    return withCode ? table->Fields(0).AsString() + u' ' + description : description;
}

/// Makes room for a box that wasn't there before. While the chart is zoomed its bounds stay as they are: they are
/// measured at natural size.
void TVornIEDBTerList::MakeRoomForDiagnosi(bool before)
{
    if (!before && FLabelDiagnosi->Visible() && FSpace->AtNaturalSize())
        AdjustBounds();
}

void TVornIEDBTerList::ActiveDiagnosi()
{
    FLabelDiagnosi->SetVisible(false);
    FLabelDiagnosi->SetCaption({});
    if (FSettings->DiagnosiShow == TDiagnosiShow::diagNone || listDiagnosi->Count() == 0 || !FSpace->View())
        return;
    if (!FLabelDiagnosi->BTimer() && FSettings->DefaultLabel) {
        FLabelDiagnosi->SetBlinkTimer(FSettings->DefaultLabel->BTimer());
        FLabelDiagnosi->ShowDrag = true;
    }
    const bool shown = PlaceDiagnosi();
    String text = listDiagnosi->Text();
    text.resize(text.size() - LineEnd);
    FLabelDiagnosi->SetCaption(String(Heading) + text);
    FLabelDiagnosi->SetVisible(shown);
}

/// Puts the box where the patient's chart row says, or else at the right of the picture. False if the user has hidden
/// it: it then stays hidden until it is shown again. A row without a place holds nothing back: a box that had nothing
/// to show was saved so.
bool TVornIEDBTerList::PlaceDiagnosi()
{
    int left = 0, top = 0, visible = 1;
    if (const TDataSet* record = FSettings->Record ? FSettings->Record->DataSet() : nullptr;
        record && record->Active()) {
        const String stored = record->FieldByName(u"POS_DIAGNOSI").AsString();
        if (!stored.empty()) {
            sscanf(stored, PlaceFormat, left, top, visible);
            SetDiagnosiPoint({left, top});
        }
    }
    LeaveCorner();
    return visible != 0 || FDiagnosiAsked || (left == 0 && top == 0);
}

/// The corner counts as no place: a box there goes to its default one, at the right of the picture.
void TVornIEDBTerList::LeaveCorner()
{
    if (FSpace->View() && DiagnosiPoint() == TPoint{})
        SetDiagnosiPoint({FSpace->View()->GetLayer(0).Bitmap().Width(), DefaultTop});
}

/// A chart row that isn't there, with its dataset closed or empty, leaves nowhere to save.
void TVornIEDBTerList::SaveXYDiagnosi(TObject*)
{
    TDataSet* record = FSettings->Record ? FSettings->Record->DataSet() : nullptr;
    if (!record || !record->Active() || (record->IsEmpty() && record->State() != TDataSetState::dsInsert))
        return;
    const String place = Format(
        PlaceFormat, {FLabelDiagnosi->Left(), FLabelDiagnosi->Top(), static_cast<int>(FLabelDiagnosi->Visible())});
    const TLifeWatch watch(record);
    const ScopeExit untag([&] {
        if (watch.Alive())
            record->SetTag(0);
    });
    record->SetTag(WritingTag);
    WriteRow(*record, [&](TDataSet& row) { row.FieldByName(u"POS_DIAGNOSI").SetAsString(place); });
}

void TVornIEDBTerList::SetDiagPazVisible(bool Value)
{
    if (!FSpace->View() || FLabelDiagnosi->Visible() == Value)
        return;
    const auto self = FSelf;
    FDiagnosiAsked = Value;
    const ScopeExit asked([&] {
        if (*self)
            FDiagnosiAsked = false;
    });
    // What the user hides is stored with a place, what has nothing to show without one: only the former stays hidden.
    if (Value) {
        ActiveDiagnosi();
        MakeRoomForDiagnosi(false);
        if (!FLabelDiagnosi->Visible())
            SetDiagnosiPoint({0, 0});
    } else {
        FLabelDiagnosi->SetVisible(false);
        LeaveCorner();
    }
    SaveXYDiagnosi(this);
}

} // namespace vorn
