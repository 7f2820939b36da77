#pragma once

#include "tests/support/chart_fixture.h"

namespace vorn::test {

/// A row of the symbol catalogue.
struct Symbol {
    int Id = 1;
    BlobValue Picture = {};
    String Terapia = {};
    int Scale = 100;
    int Angle = 0;
    int Opacity = 255;
    String Nome = u"Simbolo";
};

/// A row of the placements; `Key` is its own, `Id` the symbol's.
struct Placement {
    int Key = 1;
    int Id = 1;
    int X = 0;
    int Y = 0;
    int Angle = 0;
    double Scale = 100;
    TValue Opacity = std::int64_t{255};
    BlobValue Image = {};
    String Nome = u"Nome";
};

/// A chart with a symbol catalogue and placements. At first the catalogue has symbol 1, 20 by 10 pixels, and
/// symbol 2, 40 by 40, which stands for the treatment "Corona".
class SymbolFixture : public ChartFixture {
protected:
    SymbolFixture();

    /// Each replaces what was there and leaves the dataset open. `without` names a column that the table
    /// lacks.
    void ShowCatalogue(const std::vector<Symbol>& rows, StringView without = {});
    void ShowPlacements(const std::vector<Placement>& rows, StringView without = {});
    /// The same rows in a SQLite file; `statements` run on it before it is opened.
    void ShowSqlPlacements(const std::vector<Placement>& rows, std::initializer_list<StringView> statements = {});

    /// A chart and a view again, connected to the datasets, whatever a handler has freed or taken away.
    void Renew();

    /// Number of symbol layers; the n-th of them from below, from 0; its record.
    int Symbols() const;
    TIELayer& Layer(int n) const;
    const TDibRec& Rec(int n) const { return *static_cast<TDibRec*>(Layer(n).UserData.get()); }
    /// A placement's row; moves the dataset.
    TValue Cell(int key, StringView column);
    int Int(int key, StringView column);
    /// The middle of a symbol, in view coordinates.
    TPoint Middle(int n) const;
    /// Selects a symbol with the mouse.
    void Pick(int n);
    void DragSymbol(int n, int dx, int dy);
    /// Neither an update lock, nor disabled controls, nor an edit, nor a layer without a record is left
    /// behind.
    void ExpectNothingHalfDone() const;

    TDataSource* catalogueSource;
    TDataSource* placementsSource;
    TDataSet* catalogue = nullptr;
    TDataSet* placements = nullptr;

private:
    void Take(TDataSource* source, TDataSet*& dataset, TDataSet* by);
};

} // namespace vorn::test
