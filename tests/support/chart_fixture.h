#pragma once

#include "chart/vorndblabelIE.h"
#include "platform/controls/scroll_box.h"
#include "platform/data/memory_dataset.h"
#include "platform/data/sql_dataset.h"
#include "platform/system/strings.h"
#include "tests/support/strings_print.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class QTemporaryDir;

namespace vorn::test {

/// A treatment as a test writes it down; what it leaves out is a plain row on tooth 11.
struct Treatment {
    int Id = 0;
    int Padre = 0;
    String Dente = u"11";
    String Terapia = u"Ter";
    int Stato = 0;
    int Progressivo = 0;
    String Eseguita = u"0"; ///< the column that FieldFatto names
    int Fatto = 0;
    int X = 0;
    int Y = 0;
    String Aspetto = {};
    TValue Colore = std::int64_t{0};
    TValue Dottore = {};
    TValue Tipo = {};
    TDate Data = 0;
    TDate DataFatto = 0;
    String Descrizione = {};
    String Diagnosi = {};
};

/// Labels 1, 2 and 4 stand apart; 3 is a child row of 2.
inline const std::vector<Treatment> FourRows = {
    {.Id = 1, .Dente = u"11"},
    {.Id = 2, .Dente = u"12"},
    {.Id = 3, .Padre = 2, .Progressivo = 2},
    {.Id = 4, .Dente = u"21"},
};

/// A view that tells whether it holds back its painting.
class ProbeView : public TImageEnView {
public:
    using TImageEnView::TImageEnView;
    using TImageEnView::UpdateLocked;
};

/// The bytes of a picture in one colour, with single pixels in others.
Bytes Picture(int width, int height, TColor fill, const std::vector<std::pair<TPoint, TColor>>& dots = {});
BlobValue Blob(Bytes bytes);
BlobValue Blob(StringView text);

/// A chart on a view, with a dataset of each kind behind it. Everything is owned by `root` and can be freed
/// earlier.
///
/// The picture is 200 by 150 white pixels with zones 11 (stacks down), 12 (up), 21 (right), 22 (left) and GL
/// (down), far enough from each other for two labels each.
class ChartFixture : public testing::Test {
protected:
    static constexpr StringView Zones = u"10 10 40 40 3 15 60 11\r\n"
                                        u"60 10 90 40 1 60 60 12\r\n"
                                        u"110 10 140 40 2 110 60 21\r\n"
                                        u"150 10 190 40 0 190 60 22\r\n"
                                        u"10 105 40 145 3 15 110 GL\r\n";

    ChartFixture();
    ~ChartFixture() override;
    /// No test leaves a message unread.
    void TearDown() override { EXPECT_EQ(TakeMessages(), std::vector<std::string>()); }

    // --- data; each replaces what was there and leaves the dataset open. No picture stands for a null
    // column. ---
    void ShowBackground(BlobValue picture, StringView zones, StringView names = {});
    void ShowBackground(StringView zones) { ShowBackground(Blob(Picture(200, 150, clWhite)), zones); }
    /// `without` names a column that the table lacks.
    void ShowTreatments(const std::vector<Treatment>& rows, StringView without = {});
    /// The same rows in a SQLite file.
    void ShowSqlTreatments(const std::vector<Treatment>& rows);
    /// Makes a memory dataset of the same columns without rows; the fixture's stays.
    TMemoryDataSet* NewTable(StringView name, std::initializer_list<std::pair<StringView, TFieldType>> columns);
    void Replace(TDataSource* source, TMemoryDataSet*& dataset, TMemoryDataSet* by);

    /// Goes to the row with this key; fails the test if there is none.
    void GoTo(int key);
    int RowKey() const { return treatments->FieldByName(u"ID").AsInteger(); }
    /// Edits and posts one column of the current row, or of the row with this key.
    void Post(StringView column, TValue value);
    void Change(int key, StringView column, TValue value);
    TValue Stored(int key, StringView column);

    // --- what the chart shows ---
    /// None if no label bears the key.
    TVornRec* Record(int key) const;
    TDRLabel* Label(int key) const;
    /// Keys of all labels in the order of the records.
    std::vector<int> Labels() const;
    /// Keys of the selected labels in the order of joining.
    std::vector<int> Selected() const;
    /// The current record's key; 0 for a record without a label, -1 for no record.
    int CurrentKey() const;
    /// Nothing is held back any more, neither painting nor notifications.
    bool Paintable() const;
    std::vector<std::string> TakeMessages() { return std::exchange(messages, {}); }

    // --- the mouse ---
    void ClickLabel(int key, TShiftState shift = 0);
    /// Puts the pointer on the handle of a selected label and drags it.
    void DragLabel(int key, int dx, int dy);
    void ClickView(TPoint at);

    /// Where the rows of ShowSqlTreatments lie.
    String DatabaseFile() const;

    std::unique_ptr<TComponent> root;
    ProbeView* view;
    TDRLabelTimer* timer;
    TDRLabel* look; ///< the default label
    TVornIEDBTerList* chart;
    TDataSource* treatmentsSource;
    TDataSource* backgroundsSource;
    TDataSource* appearanceSource;
    TDataSource* operatorsSource;
    TDataSource* typesSource;
    TDataSet* treatments = nullptr;
    TMemoryDataSet* backgrounds = nullptr;
    TMemoryDataSet* appearance = nullptr;
    std::vector<std::string> messages;

private:
    TDataSource* NewSource();
    void FillTables();
    void Take(TDataSet* dataset);

    std::unique_ptr<QTemporaryDir> folder;
    std::function<void(StringView)> messageBox;
};

} // namespace vorn::test
