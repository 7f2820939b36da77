#include "demo/chart_session.h"

#include "demo/qt_strings.h"

namespace vorn::demo {

namespace {

constexpr char16_t Missing = u'1';
constexpr char16_t Present = u'0';
/// The table of names lists the permanent teeth, three areas that are no teeth, and the deciduous teeth.
constexpr int PermanentTeeth = 32;
constexpr int AreasBetween = 3;

} // namespace

QString ChartSession::PatientName()
{
    for (const PatientEntry& entry : Patients())
        if (entry.number == patient_)
            return entry.name;
    return {};
}

bool ChartSession::IsTooth(const TZone& zone) const
{
    return PlaceInMissing(zone).has_value();
}

std::optional<std::size_t> ChartSession::PlaceInMissing(const TZone& zone) const
{
    const TStrings& names = chart_->NomiZoneList();
    for (int i = 0; i < names.Count(); ++i) {
        if (names.Strings(i) != zone.numZona)
            continue;
        if (i < PermanentTeeth)
            return static_cast<std::size_t>(i);
        if (i >= PermanentTeeth + AreasBetween)
            return static_cast<std::size_t>(i - AreasBetween);
        return std::nullopt;
    }
    return std::nullopt;
}

bool ChartSession::ToggleMissing(const TZone& zone)
{
    const std::optional<std::size_t> place = PlaceInMissing(zone);
    if (!place)
        return false;
    const bool newRecord = record_->RecordCount() == 0;
    String teeth = newRecord ? String() : record_->FieldByName(u"Mancanti").AsString();
    if (teeth.size() <= *place)
        teeth.resize(*place + 1, Present);
    const bool missing = teeth[*place] != Missing;
    teeth[*place] = missing ? Missing : Present;
    newRecord ? record_->Append() : record_->Edit();
    try {
        if (newRecord)
            record_->FieldByName(u"PAZIENTE").SetAsInteger(patient_);
        record_->FieldByName(u"Mancanti").SetAsString(teeth);
        record_->Post();
    } catch (...) {
        record_->Cancel();
        throw;
    }
    Rebuild(); // the chart looks at the record when it is built
    return missing;
}

void ChartSession::ShowDiagnosis(bool shown)
{
    chart_->SetDiagPazVisible(shown);
    Rebuild(); // the chart has room for the box, or needs none
    if (!box_ || !chart_->DiagPazVisible())
        return;
    const TPoint place = chart_->DiagnosiPoint();
    const TRect area = box_->ClientRect();
    const TPoint seen = box_->ScrollPosition();
    const TRect comfortable{
        seen.X, seen.Y, seen.X + area.Width() * 3 / 4, seen.Y + area.Height() * 3 / 4}; // room for the text too
    if (!PtInRect(comfortable, place))
        box_->SetScrollPosition({place.X - area.Width() / 2, place.Y - area.Height() / 2});
}

} // namespace vorn::demo
