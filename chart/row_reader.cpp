#include "chart/row_reader.h"

namespace vorn {

std::optional<TRowReading> TRowReader::Read(TTreatmentColumns& row, const TVisit& visit) const
{
    TRowReading reading;
    reading.Diagnosis = diagnosis_.LineOf(row);
    if (!visit.Current())
        return std::nullopt;
    reading.Caption = row[TTreatmentColumn::Terapia].AsString();
    try {
        reading.Look = looks_.Read(row, visit);
    } catch (const ERowsGone&) {
        return std::nullopt;
    }
    reading.Color = static_cast<TColor>(row[TTreatmentColumn::Colore].AsInteger());
    reading.Hint = HintOf(row, reading.Look.Description);
    ReadPosition(reading, row);
    reading.Zones = row[TTreatmentColumn::Dente].AsString();
    if (!settings_.FieldFatto.empty())
        reading.Done = row[TTreatmentColumn::Done].AsString();
    return reading;
}

std::optional<String> TRowReader::HintOf(TTreatmentColumns& row, const String& description) const
{
    if (settings_.FieldFatto.empty())
        return std::nullopt;
    const bool done = row[TTreatmentColumn::Done].AsString() == u"1";
    String hint = row[TTreatmentColumn::Descrizione].AsString();
    hint += u' ';
    hint += row[done ? TTreatmentColumn::DataFatto : TTreatmentColumn::Data].AsString();
    hint += u' ';
    hint += row[TTreatmentColumn::Dottore].AsString();
    if (!description.empty())
        hint += u"\r\n" + description;
    return hint;
}

void TRowReader::ReadPosition(TRowReading& reading, TTreatmentColumns& row) const
{
    // With repositioning on, a stored position counts only where the user can drag labels.
    const bool counts
        = !settings_.RiposizionaPrestazioni || settings_.ShowPictureContainer || settings_.ShowDragPrestazioni;
    if (counts)
        reading.Stored = {row[TTreatmentColumn::X].AsInteger(), row[TTreatmentColumn::Y].AsInteger()};
    if (settings_.RiposizionaPrestazioni)
        reading.Drag = counts;
}

} // namespace vorn
