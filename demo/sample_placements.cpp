#include "demo/sample_placements.h"

#include "demo/database_builder.h"
#include "demo/dentition/layout.h"
#include "demo/symbols/symbol_art.h"

#include <stdexcept>
#include <string>

namespace vorn::demo {

namespace {

constexpr int LargePatientSymbols = 50;

/// A symbol on a tooth, at the spot where it is at home or `shift` pixels from it.
struct Entry {
    int patient;
    int tooth; ///< FDI number
    const char* symbol;
    QPoint shift{};
    int scale = 100;
    int opacity = 255;
};

const Entry Entries[] = {
    {AdultPatient, 16, "Capsula", {0, -4}},
    {AdultPatient, 26, "Devitalizzazione, due canali", {0, -6}},
    {AdultPatient, 14, "Elemento di ponte"},
    {AdultPatient, 11, "Faccetta"},
    // turned down by the patient
    {AdultPatient, 21, "Faccetta", {}, 100, 110},
    {AdultPatient, 17, "Carie", {8, -4}},
    {AdultPatient, 27, "Da controllare"},
    {AdultPatient, 36, "Impianto", {0, 4}},
    {AdultPatient, 36, "Capsula su impianto", {0, 4}},
    {AdultPatient, 46, "Otturazione due superfici", {6, -6}},
    {AdultPatient, 35, "Estrazione"},
    {AdultPatient, 35, "Ascesso", {0, -14}, 80},
    {AdultPatient, 31, "Mobilità", {0, 24}},
    {AdultPatient, 43, "Recessione gengivale", {0, 6}, 90},
    {ChildPatient, 16, "Sigillatura"},
    {ChildPatient, 74, "Carie", {0, -4}, 90},
    {ChildPatient, 63, "Estrazione", {}, 80},
};

const PlacedTooth& ToothByNumber(int number)
{
    for (const PlacedTooth& tooth : PlacedTeeth())
        if (tooth.number.quadrant * 10 + tooth.number.position == number)
            return tooth;
    throw std::logic_error("There is no tooth " + std::to_string(number));
}

QPointF SpotOn(const PlacedTooth& tooth, Spot spot)
{
    const QPointF neck = tooth.shape.neckMiddle;
    const QRectF rect = tooth.rect;
    const QPointF apex(rect.center().x(), tooth.number.Upper() ? rect.top() : rect.bottom());
    switch (spot) {
    case Spot::Bite:
        return tooth.shape.biteMiddle;
    case Spot::Crown:
        return tooth.shape.crown.boundingRect().center();
    case Spot::Neck:
        return neck;
    case Spot::Middle:
        return rect.center();
    case Spot::Root:
        return (neck + apex) / 2;
    case Spot::Apex:
        return apex;
    }
    return rect.center();
}

SamplePlacement Place(const Entry& entry)
{
    const QString name = QString::fromUtf8(entry.symbol);
    const SymbolArt* art = FindSymbol(name);
    if (!art)
        throw std::logic_error(std::string("There is no drawing of ") + entry.symbol);
    const PlacedTooth& tooth = ToothByNumber(entry.tooth);
    const QSize box = art->box + QSize(2 * SymbolMargin, 2 * SymbolMargin);
    const QPointF half = QPointF(box.width() * entry.scale / 100, box.height() * entry.scale / 100) / 2;
    const bool turned = tooth.number.Upper() && !art->upright;
    const QPointF corner = SpotOn(tooth, art->spot) + entry.shift - half;
    return {entry.patient, name, corner.toPoint(), turned ? 180 : 0, entry.scale, entry.opacity};
}

/// Teeth and symbols take turns at steps that have no divisor in common with their numbers.
void SpreadOverTeeth(std::vector<SamplePlacement>& placements)
{
    const std::vector<SymbolArt>& symbols = AllSymbols();
    for (int n = 0; n < LargePatientSymbols; ++n) {
        const int tooth = (n * 11) % 32;
        const SymbolArt& symbol = symbols[static_cast<std::size_t>(n) * 7 % symbols.size()];
        placements.push_back(Place({LargePatient, (tooth / 8 + 1) * 10 + tooth % 8 + 1, symbol.name, {},
            90 + n % 3 * 10, n % 9 == 4 ? 150 : 255}));
    }
}

} // namespace

std::vector<SamplePlacement> SamplePlacements()
{
    std::vector<SamplePlacement> placements;
    for (const Entry& entry : Entries)
        placements.push_back(Place(entry));
    SpreadOverTeeth(placements);
    return placements;
}

} // namespace vorn::demo
