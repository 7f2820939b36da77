#pragma once

#include "platform/data/value.h"
#include "platform/system/object.h"

namespace vorn {

class TDataSet;

/// One column of an open dataset, seen at the current row. Owned by its dataset, valid while that is open.
///
/// Reading converts: null reads as 0, empty text and date 0; a text that isn't a number raises EConvertError naming
/// column, dataset and text when it is read as one. Writing needs the dataset in an edit state.
class TField : public TObject {
public:
    TField(TDataSet& dataset, int index, String name, TFieldType type, bool required, int size);

    const String& FieldName() const { return name_; }
    TFieldType DataType() const { return type_; }
    int Index() const { return index_; }
    bool Required() const { return required_; }
    /// Longest text in characters, 0 for no limit.
    int Size() const { return size_; }

    bool IsNull() const;
    /// A float is rounded, ties to the even number. Raises EConvertError outside 32 bits.
    int AsInteger() const;
    std::int64_t AsLargeInt() const;
    double AsFloat() const;
    /// Dates as "dd/mm/yyyy", Booleans as 1 and 0, bytes as the UTF-8 text they are.
    String AsString() const;
    /// Reads a text as ISO date or "dd/mm/yyyy"; an empty one is date 0.
    TDateTime AsDateTime() const;
    bool AsBoolean() const;
    const TValue& Value() const;
    /// The text of another row, by its ordinal, as stored; nothing moves. For grids. Raises EListError for an ordinal
    /// outside the rows.
    String TextAt(int row) const;

    /// The setters convert to the column's type. Date 0 and, in any column but a text, the empty text set null.
    void SetAsInteger(std::int64_t value);
    void SetAsFloat(double value);
    void SetAsString(StringView value);
    void SetAsDateTime(TDateTime value);
    void SetValue(TValue value);
    void Clear();

    /// Writes the bytes of a blob, or a text as UTF-8, at the stream's position; null writes nothing.
    void SaveToStream(TStream& stream) const;
    /// Sets the field to the rest of the stream: to its bytes, or in any other column to the UTF-8 text they are.
    void LoadFromStream(TStream& stream);

private:
    friend class TDataSet;
    [[noreturn]] void RaiseConvert(const TValue& value, StringView wanted) const;
    /// The value as this column stores it; raises EConvertError when it can't be one.
    TValue Coerce(TValue value) const;

    TDataSet& dataset_;
    String name_;
    int index_;
    TFieldType type_;
    bool required_;
    int size_;
};

} // namespace vorn
