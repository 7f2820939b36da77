#pragma once

#include "platform/data/data_source.h"
#include "platform/system/object.h"

namespace vorn {

/// What a rule for the look of labels goes by.
enum class TXSetProp : std::uint8_t { etUnassigned, etOp, etTip };

/// Rules that colour labels by operator or by treatment type. A change takes effect when a record is next read.
class TDRLabelProperties : public TPersistent {
public:
    TDRLabelProperties() = default;
    /// `follower` hears when a source goes, and calls Forget.
    explicit TDRLabelProperties(TComponent& follower) : FFollower(&follower) {}
    /// Clears what refers to a component that is going.
    void Forget(const TComponent* component);

    /// Names of the colour, font and key columns in both tables.
    const String& FieldColore() const { return FColor; }
    void SetFieldColore(StringView value) { FColor = value; }
    const String& FieldFont() const { return FFont; }
    void SetFieldFont(StringView value) { FFont = value; }
    const String& FieldKey() const { return FKey; }
    void SetFieldKey(StringView value) { FKey = value; }
    /// Rule for the text colour.
    TXSetProp SetColorProp() const { return FColorSetProp; }
    void SetSetColorProp(TXSetProp value) { SetDRLabelProperties(0, value); }
    /// Rule for the font.
    TXSetProp SetFontProp() const { return FFontSetProp; }
    void SetSetFontProp(TXSetProp value) { SetDRLabelProperties(1, value); }
    TDataSource* DSOperatori() const { return FDSOp; }
    void SetDSOperatori(TDataSource* value) { SetDRLabelDataSource(0, value); }
    TDataSource* DSTipologie() const { return FDSTip; }
    void SetDSTipologie(TDataSource* value) { SetDRLabelDataSource(1, value); }

    /// Index 0 is the colour rule, 1 the font rule; any other does nothing.
    void SetDRLabelProperties(int Index, TXSetProp Value);
    /// Index 0 is the operators, 1 the treatment types; any other does nothing.
    void SetDRLabelDataSource(int Index, TDataSource* Value);
    /// Raises OnChange.
    virtual void Change();

    TNotifyEvent OnChange;

protected:
    /// Rules and sources; the column names stay the other's own.
    void AssignTo(TPersistent& dest) const override;

private:
    TComponent* FFollower = nullptr;
    TXSetProp FColorSetProp = TXSetProp::etOp;
    TXSetProp FFontSetProp = TXSetProp::etTip;
    TDataSource* FDSOp = nullptr;
    TDataSource* FDSTip = nullptr;
    String FColor = u"Colore";
    String FFont = u"Font";
    String FKey = u"Sigla";
};

} // namespace vorn
