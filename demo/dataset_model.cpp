#include "demo/dataset_model.h"

#include "demo/qt_strings.h"

namespace vorn::demo {

class DataSetModel::Link : public TDataLink {
public:
    explicit Link(DataSetModel& model) : model_(model) { SetVisualControl(true); }

protected:
    void ActiveChanged() override { model_.Reset(); }
    void DataSetChanged() override { model_.RowChanged(); }
    void DataSetScrolled(int) override { model_.Scrolled(); }

private:
    DataSetModel& model_;
};

DataSetModel::DataSetModel(TDataSource& source, std::vector<GridColumn> columns)
    : columns_(std::move(columns)), link_(std::make_unique<Link>(*this))
{
    link_->SetDataSource(&source);
    Reset();
}

DataSetModel::~DataSetModel() = default;

int DataSetModel::CurrentRow() const
{
    const TDataSet* dataset = link_->DataSet();
    return dataset && dataset->Active() ? dataset->RowIndex() : -1;
}

void DataSetModel::Reset()
{
    beginResetModel();
    const TDataSet* dataset = link_ ? link_->DataSet() : nullptr;
    rows_ = dataset && dataset->Active() ? dataset->RecordCount() : 0;
    endResetModel();
    Scrolled();
}

void DataSetModel::RowChanged()
{
    if (link_->DataSet()->RecordCount() != rows_) {
        Reset();
        return;
    }
    if (rows_ > 0)
        emit dataChanged(index(0, 0), index(rows_ - 1, columnCount() - 1));
    Scrolled();
}

void DataSetModel::Scrolled()
{
    if (onCurrentRow)
        onCurrentRow(CurrentRow());
}

int DataSetModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : rows_;
}

int DataSetModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant DataSetModel::data(const QModelIndex& index, int role) const
{
    const TDataSet* dataset = link_->DataSet();
    if (!dataset || !dataset->Active() || index.row() >= dataset->RecordCount())
        return {};
    const String& name = columns_[static_cast<std::size_t>(index.column())].field;
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return ToQt(dataset->FieldByName(name).TextAt(index.row()));
    return {};
}

QVariant DataSetModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return {};
    return orientation == Qt::Horizontal ? QVariant(columns_[static_cast<std::size_t>(section)].title)
                                         : QVariant(section + 1);
}

} // namespace vorn::demo
