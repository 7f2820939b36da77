#include "chart/vorndblabelIE.h"

namespace vorn {

namespace {

constexpr TColor GreyOlder = 0xC0C0C0;
constexpr TColor GreyOlderExcluded = 0xE0E0E0;
constexpr int StatoExcluded = 1;
constexpr int StatoNotAccepted = 2;

void SetTextColor(TDRLabel& label, TColor color)
{
    label.Font().SetColor(color);
    label.SetFontColor(color);
}

/// A selected label shows a colour of its timer now and then. What a read keeps, compares or replaces is its own.
void ShowOwnColor(TDRLabel& label)
{
    if (label.InList())
        label.Font().SetColor(label.FontColor());
}

/// `row` stands on a row of the appearance table.
void ApplyAppearance(TDRLabel& label, TDataSet& row)
{
    label.SetTransparent(false);
    if (const int color = row.FieldByName(u"COLOREFONDO").AsInteger(); color != 0)
        label.SetColor(static_cast<TColor>(color));
    if (const int color = row.FieldByName(u"COLORETESTO").AsInteger(); color != 0)
        label.Font().SetColor(static_cast<TColor>(color));
    label.SetFontColor(label.Font().Color());
    if (row.FieldByName(u"BOLD").AsString() == u"1")
        label.Font().SetStyle(fsBold);
}

} // namespace

/// A handler of a looked-up table's scroll has rebuilt or freed the chart: the label is no more.
struct TVornIEDBTerList::Abandoned {};

bool TVornIEDBTerList::LookUp(TDataSet& table, StringView column, const String& key) const
{
    const TVisit visit = VisitRows();
    const bool found = table.Locate(column, key);
    if (!visit.Current())
        throw Abandoned();
    return found;
}

String TVornIEDBTerList::AssegnaProprieta(TDRLabel& lbl, TTreatmentColumns& row)
{
    String description;
    ShowOwnColor(lbl);
    // A bad appearance setting never stops a chart: the label stays as far as it came.
    try {
        if (ApplyState(lbl, row, description))
            return description;
    } catch (const Abandoned&) {
        return description;
    } catch (...) {
    }
    try {
        ApplyColorRule(lbl, row);
        ApplyFontRule(lbl, row);
    } catch (...) {
    }
    return description;
}

/// True if the row's state settles how the label looks; the rules by operator and type come after it otherwise.
bool TVornIEDBTerList::ApplyState(TDRLabel& lbl, TTreatmentColumns& row, String& description)
{
    const String aspetto = FSettings->Appearance ? row[TTreatmentColumn::Aspetto].AsString() : String();
    if (TDataSet* look = aspetto.empty() ? nullptr : FindAppearance(aspetto)) {
        ApplyAppearance(lbl, *look);
        description = look->FieldByName(u"Descrizione").AsString();
        if (OlderThanDataPrev(row))
            lbl.SetColor(GreyOlder);
        return true;
    }
    if (!lbl.Transparent()) {
        lbl.AssignProperties(FSettings->DefaultLabel); // undoes the look of an earlier read
        lbl.SetFontColor(lbl.Font().Color());
    }
    const int stato = row[TTreatmentColumn::Stato].AsInteger();
    if (OlderThanDataPrev(row)) {
        lbl.SetTransparent(false);
        lbl.SetColor(stato == StatoExcluded ? GreyOlderExcluded : GreyOlder);
    }
    if (row[TTreatmentColumn::Fatto].AsInteger() == 1) {
        if (TDataSet* look = FindAppearance(FSettings->IDFatto)) {
            ApplyAppearance(lbl, *look);
            return true;
        }
    }
    if (stato == StatoExcluded || stato == StatoNotAccepted) {
        ApplyClosedState(lbl, stato == StatoExcluded ? FSettings->IDEsclusa : FSettings->IDNONAccettata);
        return true;
    }
    if (lbl.Font().Color() == clGrayText) // left by an earlier read
        SetTextColor(lbl, clBlack);
    return false;
}

void TVornIEDBTerList::ApplyClosedState(TDRLabel& lbl, StringView id)
{
    if (TDataSet* look = id.empty() ? nullptr : FindAppearance(id))
        ApplyAppearance(lbl, *look);
    else
        SetTextColor(lbl, clGrayText);
}

bool TVornIEDBTerList::OlderThanDataPrev(TTreatmentColumns& row) const
{
    return FSettings->DataPrev > 0 && row[TTreatmentColumn::Data].AsDateTime() < FSettings->DataPrev;
}

TDataSet* TVornIEDBTerList::FindAppearance(StringView id) const
{
    TDataSet* table = FSettings->Appearance ? FSettings->Appearance->DataSet() : nullptr;
    return table && LookUp(*table, u"ID", String(id)) ? table : nullptr;
}

/// The row of the operators or types table that a rule goes by, or none.
TDataSet* TVornIEDBTerList::FindRuleRow(TXSetProp rule, TTreatmentColumns& row) const
{
    if (rule == TXSetProp::etUnassigned)
        return nullptr;
    const bool byOperator = rule == TXSetProp::etOp;
    const TField& key = row[byOperator ? TTreatmentColumn::Dottore : TTreatmentColumn::Tipo];
    const TDataSource* source = byOperator ? FLabelProp->DSOperatori() : FLabelProp->DSTipologie();
    TDataSet* table = source ? source->DataSet() : nullptr;
    if (key.IsNull() || !table || !LookUp(*table, FLabelProp->FieldKey(), key.AsString()))
        return nullptr;
    return table;
}

void TVornIEDBTerList::ApplyColorRule(TDRLabel& lbl, TTreatmentColumns& row)
{
    const TDataSet* rule = FindRuleRow(FLabelProp->SetColorProp(), row);
    if (!rule)
        return;
    if (const int color = rule->FieldByName(FLabelProp->FieldColore()).AsInteger(); color != 0)
        lbl.Font().SetColor(static_cast<TColor>(color));
    lbl.SetFontColor(lbl.Font().Color());
}

void TVornIEDBTerList::ApplyFontRule(TDRLabel& lbl, TTreatmentColumns& row)
{
    const TDataSet* rule = FindRuleRow(FLabelProp->SetFontProp(), row);
    if (!rule)
        return;
    const String text = rule->FieldByName(FLabelProp->FieldFont()).AsString();
    if (text.empty())
        return;
    // The label is measured once, for the font as it ends up.
    TFont font;
    font.Assign(lbl.Font());
    try {
        LoadFontFromString(text, font);
    } catch (const std::exception&) {
        font.Assign(TFont()); // the platform's default font, colour included
    }
    lbl.Font().Assign(font);
}

} // namespace vorn
