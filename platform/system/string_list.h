#pragma once

#include "platform/system/object.h"
#include "platform/system/stream.h"

#include <vector>

namespace vorn {

/// A list of texts in the order in which they were added.
class TStrings : public TPersistent {
public:
    virtual int Count() const = 0;
    /// Raises EListError for an index outside the list.
    virtual const String& Strings(int index) const = 0;
    virtual int Add(StringView text) = 0;
    virtual void Clear() = 0;

    const String& operator[](int index) const { return Strings(index); }
    /// The first text equal to `text`, case aside; -1 if there is none.
    virtual int IndexOf(StringView text) const;
    /// All lines, each ended by CR LF.
    String Text() const;
    /// Splits at CR LF, CR or LF; a line end behind the last line adds no empty line.
    void SetText(StringView text);
    /// Replaces the content with the rest of the stream. A byte-order mark (UTF-8, UTF-16 either way) decides the
    /// encoding; without one the text is UTF-8 if it is valid as such, else Windows-1252.
    void LoadFromStream(TStream& stream);
};

class TStringList : public TStrings {
public:
    int Count() const override { return static_cast<int>(lines_.size()); }
    const String& Strings(int index) const override;
    int Add(StringView text) override;
    void Clear() override;
    void Assign(const TPersistent& source) override;

private:
    std::vector<String> lines_;
};

} // namespace vorn
