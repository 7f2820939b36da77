#pragma once

#include "platform/data/dataset.h"

#include <array>

namespace vorn {

/// The columns of the treatments dataset that the chart reads for each row.
enum class TTreatmentColumn {
    Stato,
    Parent,
    Key,
    Dente,
    Terapia,
    Colore,
    Done,
    Descrizione,
    DataFatto,
    Data,
    Dottore,
    X,
    Y,
    Aspetto,
    Fatto,
    Tipo,
    Diagnosi,
    Count
};

/// Finds each column by name when it is first read, and not again: a rebuild reads the same ones in every row. A column
/// that doesn't exist raises EDatabaseError at that first reading.
class TTreatmentColumns {
public:
    /// `key`, `parent` and `done` are the names that the application has given.
    TTreatmentColumns(const TDataSet& dataset, StringView key, StringView parent, StringView done);

    TField& operator[](TTreatmentColumn column);

private:
    static constexpr auto Columns = static_cast<std::size_t>(TTreatmentColumn::Count);

    const TDataSet& dataset_;
    std::array<String, Columns> names_; // copies: a handler may give the chart another name
    std::array<TField*, Columns> fields_{};
};

} // namespace vorn
