#include "tests/support/symbol_fixture.h"

#include "tests/support/database_file.h"
#include "tests/support/mouse.h"

namespace vorn::test {

namespace {

using enum TFieldType;

using Columns = std::vector<std::pair<StringView, TFieldType>>;

const Columns CatalogueColumns{{u"SIMB_ID", ftInteger}, {u"Grafico_ie", ftBlob}, {u"Nome", ftString},
    {u"Terapia", ftString}, {u"Scale", ftFloat}, {u"Angle", ftInteger}, {u"Opacity", ftInteger}};
const Columns PlacementColumns{{u"id", ftInteger}, {u"simb_id", ftInteger}, {u"Nome", ftString}, {u"Angle", ftInteger},
    {u"Scale", ftFloat}, {u"X", ftInteger}, {u"Y", ftInteger}, {u"Opacity", ftInteger}, {u"IMMAGINE", ftBlob},
    {u"ID_VORNAL", ftInteger}};

TValue Number(int value)
{
    return std::int64_t{value};
}

TValue Maybe(const BlobValue& blob)
{
    return blob ? TValue(blob) : TValue();
}

/// In the order of the columns above.
std::vector<TValue> Values(const Symbol& s)
{
    return {Number(s.Id), Maybe(s.Picture), s.Nome, s.Terapia, double(s.Scale), Number(s.Angle), Number(s.Opacity)};
}

std::vector<TValue> Values(const Placement& p)
{
    return {Number(p.Id), Number(p.Key), p.Nome, Number(p.Angle), p.Scale, Number(p.X), Number(p.Y), p.Opacity,
        Maybe(p.Image), TValue()};
}

template <typename R>
TMemoryDataSet* Table(TComponent* owner, const Columns& columns, const std::vector<R>& rows, StringView without)
{
    auto* table = new TMemoryDataSet(owner);
    for (const auto& [name, type] : columns)
        if (name != without)
            table->AddFieldDef(name, type);
    for (const R& row : rows) {
        const std::vector<TValue> all = Values(row);
        std::vector<TValue> values;
        for (std::size_t i = 0; i < columns.size(); ++i)
            if (columns[i].first != without)
                values.push_back(all[i]);
        table->AddRow(std::move(values));
    }
    return table;
}

} // namespace

SymbolFixture::SymbolFixture()
    : catalogueSource(new TDataSource(root.get())), placementsSource(new TDataSource(root.get()))
{
    chart->SetMViewDibDS(catalogueSource);
    chart->SetDataSourceSimb(placementsSource);
    ShowCatalogue({{.Id = 1, .Picture = Blob(Picture(20, 10, clRed))},
        {.Id = 2, .Picture = Blob(Picture(40, 40, clBlue)), .Terapia = u"Corona"}});
}

void SymbolFixture::Take(TDataSource* source, TDataSet*& dataset, TDataSet* by)
{
    source->SetDataSet(by);
    delete std::exchange(dataset, by);
    by->Open();
}

void SymbolFixture::ShowCatalogue(const std::vector<Symbol>& rows, StringView without)
{
    Take(catalogueSource, catalogue, Table(root.get(), CatalogueColumns, rows, without));
}

void SymbolFixture::ShowPlacements(const std::vector<Placement>& rows, StringView without)
{
    TMemoryDataSet* table = Table(root.get(), PlacementColumns, rows, without);
    if (without != u"simb_id")
        table->SetAutoIncField(u"simb_id");
    Take(placementsSource, placements, table);
}

void SymbolFixture::ShowSqlPlacements(const std::vector<Placement>& rows, std::initializer_list<StringView> statements)
{
    const String file = DatabaseFile();
    ExecuteOnFile(file,
        {u"CREATE TABLE simboli (id INTEGER, simb_id INTEGER PRIMARY KEY, Nome TEXT, Angle INTEGER, Scale "
         u"REAL, "
         u"X INTEGER, Y INTEGER, Opacity INTEGER, IMMAGINE BLOB, ID_VORNAL INTEGER)"});
    auto* connection = new TSqlConnection(root.get());
    connection->OpenFile(file);
    auto* table = new TSqlDataSet(root.get());
    table->SetConnection(connection);
    table->SetCommandText(u"SELECT * FROM simboli ORDER BY simb_id");
    table->SetUpdateTable(u"simboli", u"simb_id");
    table->Open();
    for (const Placement& row : rows) {
        table->Append();
        const std::vector<TValue> values = Values(row);
        for (std::size_t i = 0; i < values.size(); ++i)
            table->FieldByName(PlacementColumns[i].first).SetValue(values[i]);
        table->Post();
    }
    table->Close();
    ExecuteOnFile(file, statements);
    Take(placementsSource, placements, table);
}

void SymbolFixture::Renew()
{
    if (!view)
        view = new ProbeView(root.get());
    if (!chart)
        chart = new TVornIEDBTerList(root.get());
    chart->SetKeyField(u"ID");
    chart->SetParentField(u"PADRE");
    chart->SetContainer(view);
    chart->SetEnabledDib(true);
    chart->SetDataSourceSfondi(backgroundsSource);
    chart->SetMViewDibDS(catalogueSource);
    chart->SetDataSourceSimb(placementsSource);
}

int SymbolFixture::Symbols() const
{
    int count = 0;
    for (int i = 1; i < view->GetLayersCount(); ++i)
        count += view->GetLayer(i).UserDataLen == SymbolLayerMark;
    return count;
}

TIELayer& SymbolFixture::Layer(int n) const
{
    return view->GetLayer(view->GetLayersCount() - Symbols() + n);
}

TValue SymbolFixture::Cell(int key, StringView column)
{
    EXPECT_TRUE(placements->Locate(u"simb_id", Number(key))) << "no placement " << key;
    return placements->FieldByName(column).Value();
}

int SymbolFixture::Int(int key, StringView column)
{
    Cell(key, column);
    return placements->FieldByName(column).AsInteger();
}

TPoint SymbolFixture::Middle(int n) const
{
    const TRect box = Layer(n).Box();
    return {(box.Left + box.Right) / 2, (box.Top + box.Bottom) / 2};
}

void SymbolFixture::Pick(int n)
{
    Mouse().Click(*view, Middle(n));
}

void SymbolFixture::DragSymbol(int n, int dx, int dy)
{
    const TPoint from = Middle(n);
    Mouse().Drag(*view, from, {from.X + dx, from.Y + dy});
}

void SymbolFixture::ExpectNothingHalfDone() const
{
    EXPECT_FALSE(view->UpdateLocked());
    EXPECT_FALSE(placements->ControlsDisabled());
    EXPECT_EQ(placements->State(), TDataSetState::dsBrowse);
    for (int i = 1; i < view->GetLayersCount(); ++i)
        EXPECT_TRUE(view->GetLayer(i).UserData) << "layer " << i;
}

} // namespace vorn::test
