#pragma once

#include "platform/data/data_source.h"

namespace vorn {

/// One follower of a data source. Has a window of rows on the dataset and operations that descendants override.
class TDataLink : public TPersistent {
public:
    TDataLink() = default;
    ~TDataLink() override;

    TDataSource* DataSource() const { return source_; }
    /// Raises EInvalidOperation on a fixed link.
    void SetDataSource(TDataSource* source);
    /// The dataset behind the source, or none.
    TDataSet* DataSet() const { return source_ ? source_->DataSet() : nullptr; }
    bool Active() const { return opening_ != 0; }

    bool DataSourceFixed() const { return fixed_; }
    void SetDataSourceFixed(bool fixed) { fixed_ = fixed; }
    bool VisualControl() const { return visual_; }
    void SetVisualControl(bool visual) { visual_ = visual; }
    bool ReadOnly() const { return readOnly_; }
    void SetReadOnly(bool readOnly) { readOnly_ = readOnly; }

    /// Size of the window in rows.
    int BufferCount() const { return bufferCount_; }
    /// The window grows or shrinks around the current row.
    virtual void SetBufferCount(int count);
    /// Index of the current row inside the window. With a window that holds the whole dataset: its ordinal. 0 if there
    /// is no row.
    int ActiveRecord() const;

    /// Puts the dataset in edit state and says whether it is in it; a read-only link does nothing and says no.
    bool Edit();

protected:
    /// The dataset was opened, closed or opened anew, or the link was connected.
    virtual void ActiveChanged() {}
    /// Moves the window so that it holds the current row, then calls one of the operations below.
    virtual void DataEvent(TDataEvent event, std::intptr_t info);
    virtual void DataSetChanged() {}
    /// `distance` is how far the window moved: 0 for a move inside it.
    virtual void DataSetScrolled(int) {}
    virtual void LayoutChanged() { DataSetChanged(); }
    /// The content of one field changed during an edit; none means all.
    virtual void RecordChanged(TField*) {}
    virtual void EditingChanged() {}
    virtual void UpdateData() {}

private:
    friend class TDataSource;
    void Receive(TDataEvent event, std::intptr_t info, const TRowsWatch& rows);
    void UpdateState();
    std::uint64_t OpeningNow() const;
    int WindowStart() const;
    int MoveWindow();

    TDataSource* source_ = nullptr;
    const TRowsWatch* telling_ = nullptr; // the rows that the event on its way is about
    int bufferCount_ = 1;
    int firstRecord_ = 0;
    std::uint64_t opening_ = 0; // that this link has heard of; 0 for a closed dataset
    bool editing_ = false;
    bool fixed_ = false;
    bool visual_ = false;
    bool readOnly_ = false;
};

} // namespace vorn
