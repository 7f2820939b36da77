#pragma once

#include "chart/chart_settings.h"
#include "chart/label_properties.h"
#include "chart/treatment_columns.h"
#include "chart/visit.h"

#include <vector>

namespace vorn {

/// How a label is to look: what a row, the look table and the rules by operator and type have said, in the order in
/// which it is applied. A value: applying it runs no handler.
class TLabelLook {
public:
    void Opaque() { steps_.push_back({Kind::Opaque, {}, {}}); }
    void Background(TColor color) { steps_.push_back({Kind::Background, color, {}}); }
    void Text(TColor color) { steps_.push_back({Kind::Text, color, {}}); }
    /// The text colour so far is the label's own, which it has again after blinking.
    void KeepText() { steps_.push_back({Kind::KeepText, {}, {}}); }
    void Bold() { steps_.push_back({Kind::Bold, {}, {}}); }
    /// Undoes the look that an earlier read has left.
    void Template() { steps_.push_back({Kind::Template, {}, {}}); }
    void Ungrey() { steps_.push_back({Kind::Ungrey, {}, {}}); }
    /// A font in its text form; one that can't be parsed stands for the platform's default font.
    void Font(const String& text) { steps_.push_back({Kind::Font, {}, text}); }

    /// `pattern` is the default label, or none.
    void Apply(TDRLabel& label, TDRLabel* pattern) const;

    String Description; ///< of the row's own look

private:
    enum class Kind { Opaque, Background, Text, KeepText, Bold, Template, Ungrey, Font };
    struct Step {
        Kind What;
        TColor Color;
        String FontText;
    };
    static void ApplyStep(const Step& step, TDRLabel& label, TDRLabel* pattern);

    std::vector<Step> steps_;
};

/// Works out a label's look from its row. A setting or column that is missing or bad never stops a chart: the look is
/// then as far as it came.
class TLookReader {
public:
    TLookReader(const TChartSettings& settings, const TDRLabelProperties& rules) : settings_(settings), rules_(rules) {}

    /// Moves the look table and those of the rules. Raises ERowsGone if a handler of theirs has ended the visit.
    TLabelLook Read(TTreatmentColumns& row, const TVisit& visit) const;

private:
    bool ReadState(TLabelLook& look, TTreatmentColumns& row, const TVisit& visit) const;
    bool OlderThanDataPrev(TTreatmentColumns& row) const;
    TDataSet* FindAppearance(const String& id, const TVisit& visit) const;
    TDataSet* FindRuleRow(TXSetProp rule, TTreatmentColumns& row, const TVisit& visit) const;
    void ReadColorRule(TLabelLook& look, TTreatmentColumns& row, const TVisit& visit) const;
    void ReadFontRule(TLabelLook& look, TTreatmentColumns& row, const TVisit& visit) const;

    const TChartSettings& settings_;
    const TDRLabelProperties& rules_;
};

} // namespace vorn
