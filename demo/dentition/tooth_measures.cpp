#include "demo/dentition/tooth_measures.h"

namespace vorn::demo {

namespace {

using enum ToothKind;

constexpr std::array<ToothMeasures, 8> UpperPermanent{{
    {UpperIncisor, 8.5, 6.8, 10.5, 13.0, 1.5},
    {UpperIncisor, 6.6, 5.0, 9.2, 13.2, 3.0},
    {Canine, 7.6, 5.6, 10.0, 17.0, 3.5},
    {UpperFirstPremolar, 7.1, 5.1, 8.6, 14.0, 2.0},
    {Premolar, 6.9, 5.0, 8.4, 14.0, 2.5},
    {UpperMolar, 10.2, 8.0, 7.6, 12.8, 0.5},
    {UpperMolar, 9.4, 7.3, 7.2, 11.8, 2.0},
    {UpperWisdom, 8.5, 6.5, 6.6, 10.2, 3.5},
}};

constexpr std::array<ToothMeasures, 8> LowerPermanent{{
    {LowerIncisor, 5.2, 3.7, 9.0, 12.5, 0.0},
    {LowerIncisor, 5.7, 4.0, 9.4, 14.0, 1.0},
    {Canine, 7.0, 5.3, 10.8, 16.0, 2.0},
    {Premolar, 7.0, 5.0, 8.6, 14.0, 2.5},
    {Premolar, 7.1, 5.1, 8.2, 14.5, 3.0},
    {LowerFirstMolar, 11.0, 8.9, 7.6, 14.0, 2.0},
    {LowerMolar, 10.5, 8.1, 7.2, 13.0, 4.0},
    {LowerWisdom, 9.8, 7.4, 6.9, 10.8, 6.0},
}};

constexpr std::array<ToothMeasures, 5> UpperDeciduous{{
    {UpperIncisor, 6.6, 4.6, 6.2, 10.0, 0.5},
    {UpperIncisor, 5.3, 3.8, 5.8, 10.8, 2.0},
    {Canine, 7.0, 5.1, 6.7, 13.0, 2.5},
    {UpperMolar, 7.4, 5.3, 5.3, 9.6, 0.0},
    {UpperMolar, 8.8, 6.4, 5.8, 11.2, 0.0},
}};

constexpr std::array<ToothMeasures, 5> LowerDeciduous{{
    {LowerIncisor, 4.4, 3.1, 5.3, 9.2, 0.0},
    {LowerIncisor, 4.8, 3.2, 5.6, 10.0, 1.0},
    {Canine, 5.6, 4.0, 6.3, 11.4, 1.5},
    {LowerMolar, 7.9, 6.2, 6.0, 9.8, 0.0},
    {LowerFirstMolar, 9.6, 7.2, 5.8, 11.2, 0.0},
}};

std::array<ToothNumber, 52> ListTeeth()
{
    std::array<ToothNumber, 52> teeth{};
    size_t next = 0;
    auto addRow = [&](int rightQuadrant, int leftQuadrant, int count) {
        for (int position = count; position >= 1; --position)
            teeth[next++] = {rightQuadrant, position};
        for (int position = 1; position <= count; ++position)
            teeth[next++] = {leftQuadrant, position};
    };
    addRow(1, 2, 8);
    addRow(4, 3, 8);
    addRow(5, 6, 5);
    addRow(8, 7, 5);
    return teeth;
}

} // namespace

const std::array<ToothNumber, 52>& AllTeeth()
{
    static const std::array<ToothNumber, 52> teeth = ListTeeth();
    return teeth;
}

const ToothMeasures& MeasuresOf(const ToothNumber& tooth)
{
    const auto index = static_cast<size_t>(tooth.position - 1);
    if (tooth.Deciduous())
        return tooth.Upper() ? UpperDeciduous.at(index) : LowerDeciduous.at(index);
    return tooth.Upper() ? UpperPermanent.at(index) : LowerPermanent.at(index);
}

} // namespace vorn::demo
