#include "chart/diagnosis_box.h"

#include "chart/zone.h"
#include "platform/data/row_write.h"
#include "platform/data/rows_watch.h"
#include "platform/system/guards.h"
#include "platform/system/strings.h"
#include "utils/Scanf.h"

namespace vorn {

namespace {

constexpr StringView Heading = u"Diagnosi\r\n";
constexpr StringView PlaceFormat = u"%d %d %d";
constexpr std::size_t LineEnd = 2; // CR LF
constexpr int DefaultTop = 2;
constexpr int DefaultFontSize = 12;

} // namespace

TDiagnosisBox::TDiagnosisBox(const TChartSettings& settings, const TChartSpace& space)
    : settings_(settings), space_(space)
{
    label_->Font().SetColor(clRed);
    label_->Font().SetSize(DefaultFontSize);
    label_->Font().SetName(u"Arial");
    label_->SetTransparent(true);
}

void TDiagnosisBox::SetPlace(const TPoint& place)
{
    label_->SetLeft(place.X);
    label_->SetTop(place.Y);
}

void TDiagnosisBox::PutOn(TImageEnView* view)
{
    label_->SetParent(view);
    label_->SetVisible(false);
}

void TDiagnosisBox::LeaveView()
{
    TakeOff();
    label_->SetVisible(false);
    if (label_->InList())
        label_->AddToList(false);
}

void TDiagnosisBox::Clear()
{
    lines_.Clear();
    folded_.clear();
    label_->SetVisible(false);
    SetPlace({});
}

std::optional<String> TDiagnosisBox::LineOf(TTreatmentColumns& row) const
{
    const String code = row[TTreatmentColumn::Diagnosi].AsString();
    if (code.empty())
        return {};
    const String tooth = row[TTreatmentColumn::Dente].AsString();
    const String prefix = tooth == GeneralZone ? String() : tooth + u" - ";
    return prefix + Wording(code); // handlers run: `row` may be no more
}

String TDiagnosisBox::Wording(const String& code) const
{
    const TDiagnosiShow show = settings_.DiagnosiShow;
    if (show == TDiagnosiShow::diagSigla || !settings_.Diagnoses)
        return code;
    if (show == TDiagnosiShow::diagNone)
        return {};
    TDataSet* table = TChartSettings::OpenRows(settings_.Diagnoses);
    if (!table || table->FieldCount() < 2)
        return code;
    const TLifeWatch watch(table);
    bool found = false;
    try {
        found = table->Locate(table->Fields(0).FieldName(), code);
    } catch (const ERowsGone&) { // a handler has closed the table or opened it anew
    }
    if (!found || !watch.Alive() || !table->Active())
        return code;
    const String description = table->Fields(1).AsString();
    return show == TDiagnosiShow::diagSiglaDescr ? table->Fields(0).AsString() + u' ' + description : description;
}

void TDiagnosisBox::Add(const String& line)
{
    if (!line.empty() && folded_.insert(FoldCase(line)).second)
        lines_.Add(line);
}

void TDiagnosisBox::Refresh()
{
    label_->SetVisible(false);
    label_->SetCaption({});
    if (settings_.DiagnosiShow == TDiagnosiShow::diagNone || !HasLines() || !space_.View())
        return;
    if (!label_->BTimer() && settings_.DefaultLabel) {
        label_->SetBlinkTimer(settings_.Timer());
        label_->ShowDrag = true;
    }
    const bool shown = GoToStoredPlace();
    String text = lines_.Text();
    text.resize(text.size() - LineEnd);
    label_->SetCaption(String(Heading) + text);
    label_->SetVisible(shown);
}

/// False if the user has hidden the box: it then stays hidden until it is shown again. A row without a place holds
/// nothing back: a box that had nothing to show was saved so.
bool TDiagnosisBox::GoToStoredPlace()
{
    int left = 0, top = 0, visible = 1;
    if (const TDataSet* record = TChartSettings::OpenRows(settings_.Record)) {
        const String stored = record->FieldByName(u"POS_DIAGNOSI").AsString();
        if (!stored.empty()) {
            sscanf(stored, PlaceFormat, left, top, visible);
            SetPlace({left, top});
        }
    }
    LeaveCorner();
    return visible != 0 || asked_ || (left == 0 && top == 0);
}

/// The corner counts as no place: a box there goes to its default one, at the right of the picture.
void TDiagnosisBox::LeaveCorner()
{
    if (space_.View() && Place() == TPoint{})
        SetPlace({space_.View()->GetLayer(0).Bitmap().Width(), DefaultTop});
}

void TDiagnosisBox::Ask()
{
    const ScopedValue asked(asked_, true);
    Refresh();
    if (!Visible())
        SetPlace({});
}

/// What the user hides is stored with a place, what has nothing to show without one: only the former stays hidden.
void TDiagnosisBox::Hide()
{
    label_->SetVisible(false);
    LeaveCorner();
}

/// A chart row that isn't there, with its dataset closed or empty, leaves nowhere to save.
void TDiagnosisBox::Save() const
{
    TDataSet* record = TChartSettings::OpenRows(settings_.Record);
    if (!record || (record->IsEmpty() && record->State() != TDataSetState::dsInsert))
        return;
    const String place = Format(PlaceFormat, {label_->Left(), label_->Top(), static_cast<int>(label_->Visible())});
    const TLifeWatch watch(record);
    const ScopeExit untag([&] {
        if (watch.Alive())
            record->SetTag(0);
    });
    record->SetTag(WritingTag);
    WriteRow(*record, [&](TDataSet& row) { row.FieldByName(u"POS_DIAGNOSI").SetAsString(place); });
}

} // namespace vorn
