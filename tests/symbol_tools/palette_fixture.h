#pragma once

#include "platform/data/sql_dataset.h"
#include "symbol_tools/vornSimbModify.h"
#include "tests/support/chart_fixture.h"
#include "tests/support/database_file.h"
#include "tests/support/mouse.h"

namespace vorn::test {

/// A chart with one symbol of 100 by 50 pixels in its catalogue and the placements in a SQLite file.
class PaletteFixture : public ChartFixture {
protected:
    PaletteFixture()
    {
        TMemoryDataSet* catalogue
            = NewTable(u"catalogo", {{u"SIMB_ID", TFieldType::ftInteger}, {u"Grafico_ie", TFieldType::ftBlob}});
        catalogue->AddRow({std::int64_t{7}, Blob(Picture(100, 50, clRed))});
        catalogue->Open();
        chart->SetMViewDibDS(Source(catalogue));
        ExecuteOnFile(DatabaseFile(),
            {u"CREATE TABLE simboli (simb_id INTEGER PRIMARY KEY, id INTEGER, Nome TEXT, Angle INTEGER, "
             u"Scale REAL, X INTEGER, Y INTEGER, Opacity INTEGER, IMMAGINE BLOB)"});
        connection = new TSqlConnection(root.get());
        connection->OpenFile(DatabaseFile());
        placements = Table(u"SELECT * FROM simboli ORDER BY simb_id");
        placements->SetUpdateTable(u"simboli", u"simb_id");
        placements->Open();
        chart->SetDataSourceSimb(Source(placements));
    }
    ~PaletteFixture() override
    {
        root.reset();
        EXPECT_EQ(vornSimbModifyFrm, nullptr) << "the palette goes with its chart";
    }

    void AddPlacement(int angle = 0, int scale = 100, int opacity = 255)
    {
        placements->Append();
        for (const auto& [column, value] : std::initializer_list<std::pair<StringView, int>>{
                 {u"id", 7}, {u"Angle", angle}, {u"Scale", scale}, {u"X", 30}, {u"Y", 40}, {u"Opacity", opacity}})
            placements->FieldByName(column).SetAsInteger(value);
        placements->Post();
    }
    /// Adds a placement and selects it: the palette appears.
    void Select(int angle = 0, int scale = 100, int opacity = 255)
    {
        AddPlacement(angle, scale, opacity);
        chart->SelectLastDib();
        ASSERT_NE(vornSimbModifyFrm, nullptr);
        ASSERT_GT(view->LayersCurrent(), 0);
    }
    TIELayer& Layer() { return view->GetCurrentLayer(); }
    static void Press(TPngSpeedButton* button, int times = 1)
    {
        for (int i = 0; i < times; ++i)
            Mouse().Click(*button, {12, 12});
    }
    /// What the file holds of the last placement, or -1 for no row.
    double InFile(StringView column)
    {
        const std::unique_ptr<TSqlDataSet> fresh(Table(u"SELECT * FROM simboli ORDER BY simb_id DESC"));
        fresh->Open();
        return fresh->Eof() ? -1 : fresh->FieldByName(column).AsFloat();
    }
    TSqlDataSet* Table(StringView command)
    {
        auto* table = new TSqlDataSet(root.get());
        table->SetConnection(connection);
        table->SetCommandText(command);
        return table;
    }
    TDataSource* Source(TDataSet* dataset)
    {
        auto* source = new TDataSource(root.get());
        source->SetDataSet(dataset);
        return source;
    }

    TSqlConnection* connection = nullptr;
    TSqlDataSet* placements = nullptr;
};

} // namespace vorn::test
