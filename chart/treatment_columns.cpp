#include "chart/treatment_columns.h"

namespace vorn {

TTreatmentColumns::TTreatmentColumns(const TDataSet& dataset, StringView key, StringView parent, StringView done)
    : dataset_(dataset), key_(key), parent_(parent), done_(done)
{
}

TField& TTreatmentColumns::operator[](TTreatmentColumn column)
{
    TField*& field = fields_[static_cast<std::size_t>(column)];
    if (!field)
        field = &dataset_.FieldByName(NameOf(column));
    return *field;
}

StringView TTreatmentColumns::NameOf(TTreatmentColumn column) const
{
    switch (column) {
    case TTreatmentColumn::Stato:
        return u"stato";
    case TTreatmentColumn::Parent:
        return parent_;
    case TTreatmentColumn::Key:
        return key_;
    case TTreatmentColumn::Dente:
        return u"Dente";
    case TTreatmentColumn::Terapia:
        return u"Terapia";
    case TTreatmentColumn::Colore:
        return u"Colore";
    case TTreatmentColumn::Done:
        return done_;
    case TTreatmentColumn::Descrizione:
        return u"Descrizione";
    case TTreatmentColumn::DataFatto:
        return u"DataFatto";
    case TTreatmentColumn::Data:
        return u"Data";
    case TTreatmentColumn::Dottore:
        return u"Dottore";
    case TTreatmentColumn::X:
        return u"X";
    case TTreatmentColumn::Y:
        return u"Y";
    case TTreatmentColumn::Aspetto:
        return u"ASPETTO";
    case TTreatmentColumn::Fatto:
        return u"Fatto";
    case TTreatmentColumn::Tipo:
        return u"Tipo";
    case TTreatmentColumn::Count:
        break;
    }
    return {};
}

} // namespace vorn
