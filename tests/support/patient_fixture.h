#pragma once

#include "tests/support/chart_fixture.h"

#include <optional>

namespace vorn::test {

/// A chart with the datasets that concern the patient as a whole: the chart row, the symbols, the diagnoses.
class PatientFixture : public ChartFixture {
protected:
    PatientFixture()
        : recordSource(new TDataSource(root.get())), symbolsSource(new TDataSource(root.get())),
          catalogueSource(new TDataSource(root.get())), diagnosesSource(new TDataSource(root.get()))
    {
        chart->SetDataSourceCartella(recordSource);
    }

    /// The patient's chart row; nothing is rebuilt. No type stands for a table without the "Mancanti" column.
    void ShowRecord(TValue missing, TValue place = {}, std::optional<TFieldType> missingType = TFieldType::ftString)
    {
        if (record)
            record->SetName({});
        TMemoryDataSet* table = NewTable(u"cartella", {{u"POS_DIAGNOSI", TFieldType::ftString}});
        if (missingType)
            table->AddFieldDef(u"Mancanti", *missingType);
        table->AddRow(missingType ? std::vector{std::move(place), std::move(missing)} : std::vector{place});
        Replace(recordSource, record, table);
    }
    String StoredPlace() const { return record->FieldByName(u"POS_DIAGNOSI").AsString(); }

    /// Opaque red symbols, 10 by 10, with their left top corners at these points.
    void ShowSymbols(const std::vector<TPoint>& places)
    {
        using enum TFieldType;
        TMemoryDataSet* catalogue
            = NewTable(u"catalogo", {{u"SIMB_ID", ftInteger}, {u"NOME", ftString}, {u"Grafico_ie", ftBlob}});
        catalogue->AddRow({std::int64_t{7}, u"Croce", Blob(Picture(10, 10, clRed))});
        catalogue->Open();
        catalogueSource->SetDataSet(catalogue);
        chart->SetMViewDibDS(catalogueSource);
        symbols = NewTable(u"simboli",
            {{u"id", ftInteger}, {u"simb_id", ftInteger}, {u"Angle", ftInteger}, {u"Opacity", ftInteger},
                {u"X", ftInteger}, {u"Y", ftInteger}, {u"Scale", ftFloat}, {u"IMMAGINE", ftBlob}});
        std::int64_t key = 0;
        for (const TPoint& at : places)
            symbols->AddRow({std::int64_t{7}, ++key, std::int64_t{0}, std::int64_t{255}, std::int64_t{at.X},
                std::int64_t{at.Y}, 100.0});
        symbolsSource->SetDataSet(symbols);
        chart->SetDataSourceSimb(symbolsSource);
        symbols->Open();
    }

    /// The table of diagnoses: "C" is "Carie".
    void ShowDiagnoses()
    {
        if (!diagnosesSource->DataSet()) {
            TMemoryDataSet* table
                = NewTable(u"diagnosi", {{u"Codice", TFieldType::ftString}, {u"Testo", TFieldType::ftString}});
            table->AddRow({u"A", u"Ascesso"});
            table->AddRow({u"C", u"Carie"});
            table->Open();
            diagnosesSource->SetDataSet(table);
        }
        chart->SetDataSourceDiagnosi(diagnosesSource);
    }

    /// The diagnosis box of a chart: the one label on its view that has the chart's diagnosis font.
    static TDRLabel& Box(const TVornIEDBTerList& of)
    {
        for (int i = 0; i < of.Container()->ControlCount(); ++i)
            if (auto* label = dynamic_cast<TDRLabel*>(of.Container()->Controls(i));
                label && &label->Font() == &of.DiagnosiFont())
                return *label;
        throw EInvalidOperation(u"the view has no diagnosis box");
    }
    TDRLabel& Box() const { return Box(*chart); }

    TDataSource* recordSource;
    TDataSource* symbolsSource;
    TDataSource* catalogueSource;
    TDataSource* diagnosesSource;
    TMemoryDataSet* record = nullptr;
    TMemoryDataSet* symbols = nullptr;
};

} // namespace vorn::test
