#pragma once

#include "platform/data/data_link.h"

#include <QAbstractTableModel>

#include <functional>
#include <vector>

namespace vorn::demo {

/// One column of the grid.
struct GridColumn {
    String field;
    QString title;
};

/// Shows the rows of a dataset in a Qt table, and tells when another row has become current.
class DataSetModel : public QAbstractTableModel {
public:
    DataSetModel(TDataSource& source, std::vector<GridColumn> columns);
    ~DataSetModel() override;

    /// Called with the ordinal of the current row, -1 if there is none.
    std::function<void(int row)> onCurrentRow;
    int CurrentRow() const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    class Link;

    void Reset();
    void RowChanged();
    void Scrolled();

    std::vector<GridColumn> columns_;
    std::unique_ptr<Link> link_;
    int rows_ = 0;
};

} // namespace vorn::demo
