#include "tests/support/chart_fixture.h"

#include "platform/controls/application.h"
#include "tests/support/database_file.h"
#include "tests/support/mouse.h"
#include "tests/support/pixels.h"

#include <QBuffer>
#include <QImage>
#include <QTemporaryDir>

namespace vorn::test {

namespace {

struct Column {
    StringView Name;
    TFieldType Type;
};

constexpr Column TreatmentColumns[] = {
    {u"ID", TFieldType::ftInteger},
    {u"PADRE", TFieldType::ftInteger},
    {u"Dente", TFieldType::ftString},
    {u"Terapia", TFieldType::ftString},
    {u"stato", TFieldType::ftInteger},
    {u"Progressivo", TFieldType::ftInteger},
    {u"Eseguita", TFieldType::ftString},
    {u"Fatto", TFieldType::ftInteger},
    {u"X", TFieldType::ftInteger},
    {u"Y", TFieldType::ftInteger},
    {u"ASPETTO", TFieldType::ftString},
    {u"Colore", TFieldType::ftInteger},
    {u"Dottore", TFieldType::ftString},
    {u"Tipo", TFieldType::ftString},
    {u"Data", TFieldType::ftDate},
    {u"DataFatto", TFieldType::ftDate},
    {u"Descrizione", TFieldType::ftString},
    {u"Diagnosi", TFieldType::ftString},
};

TValue Int(std::int64_t value)
{
    return value;
}

TValue Day(TDate value)
{
    return value == 0 ? TValue() : TValue(TDateValue{value});
}

/// In the order of the columns above.
std::vector<TValue> Values(const Treatment& t)
{
    return {Int(t.Id), Int(t.Padre), t.Dente, t.Terapia, Int(t.Stato), Int(t.Progressivo), t.Eseguita, Int(t.Fatto),
        Int(t.X), Int(t.Y), t.Aspetto, t.Colore, t.Dottore, t.Tipo, Day(t.Data), Day(t.DataFatto), t.Descrizione,
        t.Diagnosi};
}

BlobValue MakeBlob(const char* data, std::size_t size)
{
    const auto* bytes = reinterpret_cast<const std::byte*>(data);
    return std::make_shared<const Bytes>(bytes, bytes + size);
}

} // namespace

Bytes Picture(int width, int height, TColor fill, const std::vector<std::pair<TPoint, TColor>>& dots)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Rgb(fill));
    for (const auto& [at, color] : dots)
        image.setPixel(at.X, at.Y, Rgb(color));
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return *MakeBlob(buffer.data().constData(), static_cast<std::size_t>(buffer.data().size()));
}

BlobValue Blob(Bytes bytes)
{
    return std::make_shared<const Bytes>(std::move(bytes));
}

BlobValue Blob(StringView text)
{
    const std::string utf8 = ToUtf8(text);
    return MakeBlob(utf8.data(), utf8.size());
}

ChartFixture::ChartFixture()
    : root(std::make_unique<TComponent>()), view(new ProbeView(root.get())), timer(new TDRLabelTimer(root.get())),
      look(new TDRLabel(root.get())), chart(new TVornIEDBTerList(root.get())), treatmentsSource(NewSource()),
      backgroundsSource(NewSource()), appearanceSource(NewSource()), operatorsSource(NewSource()),
      typesSource(NewSource()), folder(std::make_unique<QTemporaryDir>())
{
    messageBox = SetMessageHandler([this](StringView text) { messages.push_back(ToUtf8(text)); });
    look->SetBlinkTimer(timer);
    look->SetTransparent(true);
    FillTables();
    chart->SetKeyField(u"ID");
    chart->SetParentField(u"PADRE");
    chart->SetFieldFatto(u"Eseguita");
    chart->SetDefaultLabel(look);
    chart->SetContainer(view);
    chart->SetDataSourceAspetto(appearanceSource);
    chart->LabelProp().SetDSOperatori(operatorsSource);
    chart->LabelProp().SetDSTipologie(typesSource);
    chart->SetDataSourceSfondi(backgroundsSource);
    chart->SetDataSource(treatmentsSource);
    ShowBackground(Zones);
}

ChartFixture::~ChartFixture()
{
    root.reset();
    SetMessageHandler(messageBox);
}

TDataSource* ChartFixture::NewSource()
{
    return new TDataSource(root.get());
}

TMemoryDataSet* ChartFixture::NewTable(
    StringView name, std::initializer_list<std::pair<StringView, TFieldType>> columns)
{
    auto* table = new TMemoryDataSet(root.get());
    table->SetName(name);
    for (const auto& [column, type] : columns)
        table->AddFieldDef(column, type);
    return table;
}

void ChartFixture::FillTables()
{
    using enum TFieldType;
    appearance = NewTable(u"aspetto",
        {{u"ID", ftString}, {u"COLOREFONDO", ftInteger}, {u"COLORETESTO", ftInteger}, {u"BOLD", ftString},
            {u"Descrizione", ftString}});
    appearance->AddRow({u"VER", Int(0x00AA00), Int(0xFF0000), u"1", u"Verde"});
    appearance->AddRow({u"TRA", Int(0), Int(0), u"0", u"Senza colori"});
    appearance->AddRow({u"FAT", Int(0x0000F1), Int(0x0000F2), u"0", u"Fatta"});
    appearance->AddRow({u"ESC", Int(0x0000E1), Int(0x0000E2), u"0", u"Esclusa"});
    appearance->AddRow({u"NON", Int(0x0000D1), Int(0x0000D2), u"0", u"Non accettata"});
    appearanceSource->SetDataSet(appearance); // the rebuild opens it

    for (const auto& [source, name] :
        {std::pair(operatorsSource, u"operatori"), std::pair(typesSource, u"tipologie")}) {
        TMemoryDataSet* table = NewTable(name, {{u"Sigla", ftString}, {u"Colore", ftInteger}, {u"Font", ftString}});
        const bool operators = source == operatorsSource;
        table->AddRow({u"A", Int(operators ? 0x00BB01 : 0x00BB02), operators ? u"Arial,12,0101," : u"Arial,10,1000,"});
        table->AddRow({u"Z", Int(0), u""});
        table->AddRow({u"BAD", Int(0x0000CC), u"Arial,x,1000,"});
        table->AddRow({u"NAME", Int(0), u"Arial"});
        table->Open();
        source->SetDataSet(table);
    }
}

void ChartFixture::ShowBackground(BlobValue picture, StringView zones, StringView names)
{
    using enum TFieldType;
    if (backgrounds)
        backgrounds->SetName({});
    TMemoryDataSet* table = NewTable(u"sfondi", {{u"grafico_ie", ftBlob}, {u"Zone", ftBlob}, {u"Dialoghi", ftBlob}});
    table->AddRow({picture ? TValue(std::move(picture)) : TValue(), Blob(zones), Blob(names)});
    Replace(backgroundsSource, backgrounds, table);
}

void ChartFixture::Replace(TDataSource* source, TMemoryDataSet*& dataset, TMemoryDataSet* by)
{
    source->SetDataSet(by);
    delete std::exchange(dataset, by);
    by->Open();
}

void ChartFixture::Take(TDataSet* dataset)
{
    treatmentsSource->SetDataSet(dataset);
    delete std::exchange(treatments, dataset);
    dataset->SetName(u"prestazioni");
    dataset->Open();
}

void ChartFixture::ShowTreatments(const std::vector<Treatment>& rows, StringView without)
{
    auto* table = new TMemoryDataSet(root.get());
    std::ptrdiff_t missing = -1;
    for (std::size_t i = 0; i < std::size(TreatmentColumns); ++i) {
        const auto& [name, type] = TreatmentColumns[i];
        if (name == without)
            missing = static_cast<std::ptrdiff_t>(i);
        else
            table->AddFieldDef(name, type);
    }
    for (const Treatment& row : rows) {
        std::vector<TValue> values = Values(row);
        if (missing >= 0)
            values.erase(values.begin() + missing);
        table->AddRow(std::move(values));
    }
    Take(table);
}

void ChartFixture::ShowSqlTreatments(const std::vector<Treatment>& rows)
{
    const String file = DatabaseFile();
    ExecuteOnFile(file,
        {u"CREATE TABLE prestazioni (ID INTEGER PRIMARY KEY, PADRE INTEGER, Dente TEXT, Terapia TEXT, "
         u"stato INTEGER, Progressivo INTEGER, Eseguita TEXT, Fatto INTEGER, X INTEGER, Y INTEGER, ASPETTO "
         u"TEXT, "
         u"Colore INTEGER, Dottore TEXT, Tipo TEXT, Data DATE, DataFatto DATE, Descrizione TEXT, "
         u"Diagnosi TEXT)"});
    auto* connection = new TSqlConnection(root.get());
    connection->OpenFile(file);
    auto* table = new TSqlDataSet(root.get());
    table->SetConnection(connection);
    table->SetCommandText(u"SELECT * FROM prestazioni ORDER BY ID");
    table->SetUpdateTable(u"prestazioni", u"ID");
    table->Open();
    for (const Treatment& row : rows) {
        table->Append();
        const std::vector<TValue> values = Values(row);
        for (std::size_t i = 0; i < values.size(); ++i)
            table->FieldByName(TreatmentColumns[i].Name).SetValue(values[i]);
        table->Post();
    }
    table->Close();
    Take(table);
}

void ChartFixture::GoTo(int key)
{
    ASSERT_TRUE(treatments->Locate(u"ID", std::int64_t{key})) << "no row " << key;
}

void ChartFixture::Post(StringView column, TValue value)
{
    treatments->Edit();
    treatments->FieldByName(column).SetValue(std::move(value));
    treatments->Post();
}

void ChartFixture::Change(int key, StringView column, TValue value)
{
    GoTo(key);
    Post(column, std::move(value));
}

TValue ChartFixture::Stored(int key, StringView column)
{
    GoTo(key);
    return treatments->FieldByName(column).Value();
}

TVornRec* ChartFixture::Record(int key) const
{
    for (TVornRec* record : chart->ListVornRec())
        if (record->FLabel && record->FLabel->Tag() == key)
            return record;
    return nullptr;
}

TDRLabel* ChartFixture::Label(int key) const
{
    const TVornRec* record = Record(key);
    return record ? record->FLabel : nullptr;
}

std::vector<int> ChartFixture::Labels() const
{
    std::vector<int> keys;
    for (const TVornRec* record : chart->ListVornRec())
        if (record->FLabel)
            keys.push_back(static_cast<int>(record->FLabel->Tag()));
    return keys;
}

std::vector<int> ChartFixture::Selected() const
{
    std::vector<int> keys;
    for (int i = 0; i < timer->ComponentList().Count(); ++i)
        keys.push_back(static_cast<int>(timer->ComponentList().Items(i)->Tag()));
    return keys;
}

int ChartFixture::CurrentKey() const
{
    const TVornRec* record = chart->CurDib();
    if (!record)
        return -1;
    return record->FLabel ? static_cast<int>(record->FLabel->Tag()) : 0;
}

bool ChartFixture::Paintable() const
{
    return !view->UpdateLocked() && !(treatments && treatments->ControlsDisabled());
}

void ChartFixture::ClickLabel(int key, TShiftState shift)
{
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::ShiftModifier, shift & ssShift);
    modifiers.setFlag(Qt::ControlModifier, shift & ssCtrl);
    modifiers.setFlag(Qt::AltModifier, shift & ssAlt);
    Mouse(modifiers).Click(*Label(key), {2, 2});
}

void ChartFixture::DragLabel(int key, int dx, int dy)
{
    Mouse().Drag(*Label(key), {3, 3}, {3 + dx, 3 + dy});
}

void ChartFixture::ClickView(TPoint at)
{
    Mouse().Click(*view, at);
}

String ChartFixture::DatabaseFile() const
{
    return folder->filePath(QStringLiteral("prestazioni.sqlite")).toStdU16String();
}

} // namespace vorn::test
