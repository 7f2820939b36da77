#include "chart/treatment_columns.h"

namespace vorn {

TTreatmentColumns::TTreatmentColumns(const TDataSet& dataset, StringView key, StringView parent, StringView done)
    // In the order of TTreatmentColumn.
    : dataset_(dataset), names_{u"stato", String(parent), String(key), u"Dente", u"Terapia", u"Colore", String(done),
                             u"Descrizione", u"DataFatto", u"Data", u"Dottore", u"X", u"Y", u"ASPETTO", u"Fatto",
                             u"Tipo", u"Diagnosi"}
{
}

TField& TTreatmentColumns::operator[](TTreatmentColumn column)
{
    const auto place = static_cast<std::size_t>(column);
    TField*& field = fields_[place];
    if (!field)
        field = &dataset_.FieldByName(names_[place]);
    return *field;
}

} // namespace vorn
