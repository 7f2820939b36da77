#include "chart/label_look.h"

#include "chart/font_text.h"

namespace vorn {

namespace {

constexpr TColor GreyOlder = 0xC0C0C0;
constexpr TColor GreyOlderExcluded = 0xE0E0E0;
constexpr int StatoExcluded = 1;
constexpr int StatoNotAccepted = 2;
constexpr int FattoDone = 1;

/// `row` stands on a row of the look table.
void ReadAppearance(TLabelLook& look, const TDataSet& row)
{
    look.Opaque();
    if (const int color = row.FieldByName(u"COLOREFONDO").AsInteger(); color != 0)
        look.Background(static_cast<TColor>(color));
    if (const int color = row.FieldByName(u"COLORETESTO").AsInteger(); color != 0)
        look.Text(static_cast<TColor>(color));
    look.KeepText();
    if (row.FieldByName(u"BOLD").AsString() == u"1")
        look.Bold();
}

/// Raises ERowsGone if a handler of the table has ended the visit.
bool LookUp(TDataSet& table, StringView column, const String& key, const TVisit& visit)
{
    const bool found = table.Locate(column, key);
    visit.Check();
    return found;
}

void ApplyFont(TDRLabel& label, const String& text)
{
    // The label is measured once, for the font as it ends up.
    TFont font;
    font.Assign(label.Font());
    try {
        LoadFontFromString(text, font);
    } catch (const std::exception&) {
        font.Assign(TFont()); // the platform's default font, colour included
    }
    label.Font().Assign(font);
}

} // namespace

void TLabelLook::Apply(TDRLabel& label, TDRLabel* pattern) const
{
    // A selected label shows a colour of its timer now and then. What is kept, compared or replaced is its own.
    if (label.InList())
        label.Font().SetColor(label.FontColor());
    for (const Step& step : steps_)
        ApplyStep(step, label, pattern);
}

void TLabelLook::ApplyStep(const Step& step, TDRLabel& label, TDRLabel* pattern)
{
    switch (step.What) {
    case Kind::Opaque:
        label.SetTransparent(false);
        break;
    case Kind::Background:
        label.SetColor(step.Color);
        break;
    case Kind::Text:
        label.Font().SetColor(step.Color);
        break;
    case Kind::Bold:
        label.Font().SetStyle(fsBold);
        break;
    case Kind::Template:
        if (label.Transparent())
            break;
        label.AssignProperties(pattern);
        label.SetFontColor(label.Font().Color());
        break;
    case Kind::Ungrey:
        if (label.Font().Color() != clGrayText)
            break;
        label.Font().SetColor(clBlack);
        [[fallthrough]];
    case Kind::KeepText:
        label.SetFontColor(label.Font().Color());
        break;
    case Kind::Font:
        ApplyFont(label, step.FontText);
        break;
    }
}

TLabelLook TLookReader::Read(TTreatmentColumns& row, const TVisit& visit) const
{
    TLabelLook look;
    try {
        if (ReadState(look, row, visit))
            return look;
    } catch (const std::exception&) {
        visit.Check();
    }
    try {
        ReadColorRule(look, row, visit);
        ReadFontRule(look, row, visit);
    } catch (const std::exception&) {
        visit.Check();
    }
    return look;
}

/// True if the row's state settles how the label looks; the rules by operator and type come after it otherwise.
bool TLookReader::ReadState(TLabelLook& look, TTreatmentColumns& row, const TVisit& visit) const
{
    const String aspetto = settings_.Appearance ? row[TTreatmentColumn::Aspetto].AsString() : String();
    if (const TDataSet* own = aspetto.empty() ? nullptr : FindAppearance(aspetto, visit)) {
        ReadAppearance(look, *own);
        look.Description = own->FieldByName(u"Descrizione").AsString();
        if (OlderThanDataPrev(row))
            look.Background(GreyOlder);
        return true;
    }
    look.Template();
    const int stato = row[TTreatmentColumn::Stato].AsInteger();
    if (OlderThanDataPrev(row)) {
        look.Opaque();
        look.Background(stato == StatoExcluded ? GreyOlderExcluded : GreyOlder);
    }
    if (row[TTreatmentColumn::Fatto].AsInteger() == FattoDone) {
        if (const TDataSet* done = FindAppearance(settings_.IDFatto, visit)) {
            ReadAppearance(look, *done);
            return true;
        }
    }
    if (stato != StatoExcluded && stato != StatoNotAccepted) {
        look.Ungrey(); // left by an earlier read
        return false;
    }
    const String& id = stato == StatoExcluded ? settings_.IDEsclusa : settings_.IDNONAccettata;
    if (const TDataSet* closed = id.empty() ? nullptr : FindAppearance(id, visit)) {
        ReadAppearance(look, *closed);
    } else {
        look.Text(clGrayText);
        look.KeepText();
    }
    return true;
}

bool TLookReader::OlderThanDataPrev(TTreatmentColumns& row) const
{
    return settings_.DataPrev > 0 && row[TTreatmentColumn::Data].AsDateTime() < settings_.DataPrev;
}

TDataSet* TLookReader::FindAppearance(const String& id, const TVisit& visit) const
{
    TDataSet* table = settings_.Appearance ? settings_.Appearance->DataSet() : nullptr;
    return table && LookUp(*table, u"ID", id, visit) ? table : nullptr;
}

/// The row of the operators or types table that a rule goes by, or none.
TDataSet* TLookReader::FindRuleRow(TXSetProp rule, TTreatmentColumns& row, const TVisit& visit) const
{
    if (rule == TXSetProp::etUnassigned)
        return nullptr;
    const bool byOperator = rule == TXSetProp::etOp;
    const TField& key = row[byOperator ? TTreatmentColumn::Dottore : TTreatmentColumn::Tipo];
    const TDataSource* source = byOperator ? rules_.DSOperatori() : rules_.DSTipologie();
    TDataSet* table = source ? source->DataSet() : nullptr;
    if (key.IsNull() || !table || !LookUp(*table, rules_.FieldKey(), key.AsString(), visit))
        return nullptr;
    return table;
}

void TLookReader::ReadColorRule(TLabelLook& look, TTreatmentColumns& row, const TVisit& visit) const
{
    const TDataSet* rule = FindRuleRow(rules_.SetColorProp(), row, visit);
    if (!rule)
        return;
    if (const int color = rule->FieldByName(rules_.FieldColore()).AsInteger(); color != 0)
        look.Text(static_cast<TColor>(color));
    look.KeepText();
}

void TLookReader::ReadFontRule(TLabelLook& look, TTreatmentColumns& row, const TVisit& visit) const
{
    const TDataSet* rule = FindRuleRow(rules_.SetFontProp(), row, visit);
    if (!rule)
        return;
    if (const String text = rule->FieldByName(rules_.FieldFont()).AsString(); !text.empty())
        look.Font(text);
}

} // namespace vorn
